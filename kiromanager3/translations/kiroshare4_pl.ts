<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL">
<context>
    <name>CurvePlot</name>
    <message>
        <source>Chart</source>
        <translation>Wykres</translation>
    </message>
    <message>
        <source>Across: %1.</source>
        <translation>W poziomie: %1.</translation>
    </message>
    <message>
        <source>Up: %1.</source>
        <translation>W pionie: %1.</translation>
    </message>
    <message>
        <source>Left and Right read out the points of the curve in front.</source>
        <translation>Klawisze w lewo i w prawo odczytują punkty krzywej z przodu.</translation>
    </message>
</context>
<context>
    <name>KiroLabel</name>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Signal line</source>
        <translation>Linia sygnału</translation>
    </message>
    <message>
        <source>Time line</source>
        <translation>Linia czasu</translation>
    </message>
    <message>
        <source>Signal period</source>
        <translation>Okres sygnału</translation>
    </message>
    <message>
        <source>Time period</source>
        <translation>Okres czasu</translation>
    </message>
</context>
<context>
    <name>KiroLabelDlg</name>
    <message>
        <source>Label color</source>
        <translation>Kolor etykiety</translation>
    </message>
</context>
<context>
    <name>KiroLabelDlgBase</name>
    <message>
        <source>Kiro label settings</source>
        <translation>Ustawienia etykiety Kiro</translation>
    </message>
    <message>
        <source>Label &amp;name</source>
        <translation>&amp;Nazwa etykiety</translation>
    </message>
    <message>
        <source>Short text, drawn beside the label</source>
        <translation>Krótki tekst, rysowany obok etykiety</translation>
    </message>
    <message>
        <source>Label name</source>
        <translation>Nazwa etykiety</translation>
    </message>
    <message>
        <source>Label &amp;description</source>
        <translation>O&amp;pis etykiety</translation>
    </message>
    <message>
        <source>Long text, of several lines where you like</source>
        <translation>Długi tekst, w razie potrzeby w kilku wierszach</translation>
    </message>
    <message>
        <source>Label description</source>
        <translation>Opis etykiety</translation>
    </message>
    <message>
        <source>Label colo&amp;r</source>
        <translation>&amp;Kolor etykiety</translation>
    </message>
    <message>
        <source>Label color</source>
        <translation>Kolor etykiety</translation>
    </message>
    <message>
        <source>C&amp;hange...</source>
        <translation>Z&amp;mień...</translation>
    </message>
    <message>
        <source>Choose the color of the label</source>
        <translation>Wybierz kolor etykiety</translation>
    </message>
    <message>
        <source>Change label color</source>
        <translation>Zmień kolor etykiety</translation>
    </message>
    <message>
        <source>Label &amp;template</source>
        <translation>&amp;Szablon etykiety</translation>
    </message>
    <message>
        <source>Gives the label the name, description and color of a template</source>
        <translation>Nadaje etykiecie nazwę, opis i kolor z szablonu</translation>
    </message>
    <message>
        <source>Label template</source>
        <translation>Szablon etykiety</translation>
    </message>
    <message>
        <source>Ed&amp;it...</source>
        <translation>&amp;Edytuj...</translation>
    </message>
    <message>
        <source>Change the list of label templates</source>
        <translation>Zmień listę szablonów etykiet</translation>
    </message>
    <message>
        <source>Edit label templates</source>
        <translation>Edytuj szablony etykiet</translation>
    </message>
    <message>
        <source>Label t&amp;ype</source>
        <translation>&amp;Typ etykiety</translation>
    </message>
    <message>
        <source>What the label marks</source>
        <translation>Co oznacza etykieta</translation>
    </message>
    <message>
        <source>Label type</source>
        <translation>Typ etykiety</translation>
    </message>
    <message>
        <source>&amp;Signal</source>
        <translation>Sy&amp;gnał</translation>
    </message>
    <message>
        <source>The signal that the label belongs to</source>
        <translation>Sygnał, do którego należy etykieta</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Sygnał</translation>
    </message>
    <message>
        <source>&amp;Position</source>
        <translation>Poz&amp;ycja</translation>
    </message>
    <message>
        <source>Value of the signal at the point</source>
        <translation>Wartość sygnału w tym punkcie</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Pozycja</translation>
    </message>
    <message>
        <source>Unit of the position</source>
        <translation>Jednostka pozycji</translation>
    </message>
    <message>
        <source>St&amp;art time</source>
        <translation>&amp;Czas początku</translation>
    </message>
    <message>
        <source>Seconds from the start of the recording</source>
        <translation>Sekundy od początku zapisu</translation>
    </message>
    <message>
        <source>Start time</source>
        <translation>Czas początku</translation>
    </message>
    <message>
        <source>[s]</source>
        <translation>[s]</translation>
    </message>
    <message>
        <source>&amp;End time</source>
        <translation>C&amp;zas końca</translation>
    </message>
    <message>
        <source>Seconds from the start of the recording; later than the start time</source>
        <translation>Sekundy od początku zapisu; później niż czas początku</translation>
    </message>
    <message>
        <source>End time</source>
        <translation>Czas końca</translation>
    </message>
</context>
<context>
    <name>KiroLabelTemplateEditDlg</name>
    <message>
        <source>Enter new label template name</source>
        <translation>Podaj nazwę nowego szablonu etykiety</translation>
    </message>
    <message>
        <source>New label template</source>
        <translation>Nowy szablon etykiety</translation>
    </message>
    <message>
        <source>The label template name &quot;%1&quot; already exists!
Please use unique template name.</source>
        <translation>Szablon etykiety o nazwie „%1” już istnieje!
Podaj niepowtarzalną nazwę szablonu.</translation>
    </message>
    <message>
        <source>Label color</source>
        <translation>Kolor etykiety</translation>
    </message>
</context>
<context>
    <name>KiroLabelTemplateEditDlgBase</name>
    <message>
        <source>Kiro label templates</source>
        <translation>Szablony etykiet Kiro</translation>
    </message>
    <message>
        <source>&amp;Template name</source>
        <translation>Nazwa &amp;szablonu</translation>
    </message>
    <message>
        <source>The template whose settings are shown</source>
        <translation>Szablon, którego ustawienia są pokazane</translation>
    </message>
    <message>
        <source>Template name</source>
        <translation>Nazwa szablonu</translation>
    </message>
    <message>
        <source>&amp;Add new label template</source>
        <translation>&amp;Dodaj nowy szablon etykiety</translation>
    </message>
    <message>
        <source>Asks for the name of the new template</source>
        <translation>Pyta o nazwę nowego szablonu</translation>
    </message>
    <message>
        <source>&amp;Remove current label template</source>
        <translation>&amp;Usuń bieżący szablon etykiety</translation>
    </message>
    <message>
        <source>Removes the template; the last one stays</source>
        <translation>Usuwa szablon; ostatni pozostaje</translation>
    </message>
    <message>
        <source>Current template settings</source>
        <translation>Ustawienia bieżącego szablonu</translation>
    </message>
    <message>
        <source>Label &amp;name</source>
        <translation>&amp;Nazwa etykiety</translation>
    </message>
    <message>
        <source>Short text that the template gives a label</source>
        <translation>Krótki tekst, który szablon nadaje etykiecie</translation>
    </message>
    <message>
        <source>Label name</source>
        <translation>Nazwa etykiety</translation>
    </message>
    <message>
        <source>Label &amp;description</source>
        <translation>O&amp;pis etykiety</translation>
    </message>
    <message>
        <source>Long text that the template gives a label</source>
        <translation>Długi tekst, który szablon nadaje etykiecie</translation>
    </message>
    <message>
        <source>Label description</source>
        <translation>Opis etykiety</translation>
    </message>
    <message>
        <source>Label co&amp;lor</source>
        <translation>&amp;Kolor etykiety</translation>
    </message>
    <message>
        <source>Label color</source>
        <translation>Kolor etykiety</translation>
    </message>
    <message>
        <source>C&amp;hange label template color</source>
        <translation>&amp;Zmień kolor szablonu etykiety</translation>
    </message>
    <message>
        <source>Choose the color that the template gives a label</source>
        <translation>Wybierz kolor, który szablon nadaje etykiecie</translation>
    </message>
</context>
<context>
    <name>MultiPlot</name>
    <message>
        <source>Signal strips</source>
        <translation>Paski sygnałów</translation>
    </message>
    <message>
        <source>Arrow keys move the pointer, Space begins and ends a selection, Return acts as a double click, Escape gives up a selection</source>
        <translation>Strzałki przesuwają wskaźnik, spacja rozpoczyna i kończy zaznaczenie, Enter działa jak podwójne kliknięcie, Esc porzuca zaznaczenie</translation>
    </message>
</context>
<context>
    <name>PenSetupDialog</name>
    <message>
        <source>Pen color</source>
        <translation>Kolor linii</translation>
    </message>
</context>
<context>
    <name>PenSetupDialogBase</name>
    <message>
        <source>Pen settings</source>
        <translation>Ustawienia linii</translation>
    </message>
    <message>
        <source>Pen &amp;color</source>
        <translation>&amp;Kolor linii</translation>
    </message>
    <message>
        <source>Choose the color of the pen</source>
        <translation>Wybierz kolor linii</translation>
    </message>
    <message>
        <source>Pen color</source>
        <translation>Kolor linii</translation>
    </message>
    <message>
        <source>Pen &amp;width</source>
        <translation>&amp;Grubość linii</translation>
    </message>
    <message>
        <source>Width of the pen in pixels</source>
        <translation>Grubość linii w pikselach</translation>
    </message>
    <message>
        <source>Pen width</source>
        <translation>Grubość linii</translation>
    </message>
    <message>
        <source>Pen &amp;style</source>
        <translation>&amp;Styl linii</translation>
    </message>
    <message>
        <source>Pattern of the pen</source>
        <translation>Wzór linii</translation>
    </message>
    <message>
        <source>Pen style</source>
        <translation>Styl linii</translation>
    </message>
    <message>
        <source>No pen</source>
        <translation>Bez linii</translation>
    </message>
    <message>
        <source>Solid line</source>
        <translation>Linia ciągła</translation>
    </message>
    <message>
        <source>Dash line</source>
        <translation>Linia kreskowana</translation>
    </message>
    <message>
        <source>Dot line</source>
        <translation>Linia kropkowana</translation>
    </message>
    <message>
        <source>Dash dot line</source>
        <translation>Linia kreska-kropka</translation>
    </message>
    <message>
        <source>Dash dot dot line</source>
        <translation>Linia kreska-kropka-kropka</translation>
    </message>
    <message>
        <source>Preview of the pen</source>
        <translation>Podgląd linii</translation>
    </message>
</context>
<context>
    <name>PositionSelector</name>
    <message>
        <source>%1 to %2 (%3)</source>
        <translation>od %1 do %2 (%3)</translation>
    </message>
    <message>
        <source>Position in the recording</source>
        <translation>Położenie w nagraniu</translation>
    </message>
    <message>
        <source>The part of the recording that is shown. Arrow and page keys move it, Home and End go to its ends, plus and minus zoom.</source>
        <translation>Pokazana część nagrania. Strzałki i klawisze Page Up i Page Down przesuwają ją, Home i End przechodzą na początek i koniec, plus i minus zmieniają powiększenie.</translation>
    </message>
    <message>
        <source>Start: %1</source>
        <translation>Początek: %1</translation>
    </message>
    <message>
        <source>End: %1</source>
        <translation>Koniec: %1</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>SelectSignal</name>
    <message>
        <source>Item</source>
        <translation>Pozycja</translation>
    </message>
    <message>
        <source>At least %1 items must be selected!</source>
        <translation>Liczba zaznaczonych pozycji musi wynosić co najmniej %1!</translation>
    </message>
    <message>
        <source>Selected, but hidden by the filter: %1</source>
        <translation>Zaznaczone, lecz ukryte przez filtr: %1</translation>
    </message>
    <message>
        <source>%1 selected, %2 of them hidden by the filter</source>
        <translation>Zaznaczono: %1, w tym ukryte przez filtr: %2</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>Zaznaczono: %1</translation>
    </message>
</context>
<context>
    <name>SelectSignalBase</name>
    <message>
        <source>Select signal</source>
        <translation>Wybór sygnału</translation>
    </message>
    <message>
        <source>Data file</source>
        <translation>Plik danych</translation>
    </message>
    <message>
        <source>no data file</source>
        <translation>brak pliku danych</translation>
    </message>
    <message>
        <source>&amp;Filter</source>
        <translation>&amp;Filtr</translation>
    </message>
    <message>
        <source>Shows the items that contain all these words. Items that it hides stay selected.</source>
        <translation>Pokazuje pozycje zawierające wszystkie te słowa. Ukryte pozycje pozostają zaznaczone.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtr</translation>
    </message>
    <message>
        <source>Words of a name</source>
        <translation>Słowa z nazwy</translation>
    </message>
    <message>
        <source>Items to choose from</source>
        <translation>Pozycje do wyboru</translation>
    </message>
    <message>
        <source>What is selected</source>
        <translation>Co jest zaznaczone</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Zaznacz &amp;wszystko</translation>
    </message>
    <message>
        <source>Select all items that the filter shows (Ctrl+A in the list)</source>
        <translation>Zaznacz wszystkie pozycje widoczne po filtrowaniu (Ctrl+A na liście)</translation>
    </message>
    <message>
        <source>&amp;Clear selection</source>
        <translation>Wy&amp;czyść zaznaczenie</translation>
    </message>
    <message>
        <source>Deselect all items that the filter shows</source>
        <translation>Usuń zaznaczenie pozycji widocznych po filtrowaniu</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>Wy&amp;bierz</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>SelectSignals</name>
    <message>
        <source>Select signals</source>
        <translation>Wybór sygnałów</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtr</translation>
    </message>
    <message>
        <source>Words of a name</source>
        <translation>Słowa z nazwy</translation>
    </message>
    <message>
        <source>Leaves the names in the lists that contain all these words</source>
        <translation>Zostawia na listach nazwy, które zawierają wszystkie te słowa</translation>
    </message>
    <message>
        <source>&amp;Filter</source>
        <translation>&amp;Filtr</translation>
    </message>
</context>
<context>
    <name>SeparatorDlg</name>
    <message>
        <source>space</source>
        <translation>spacja</translation>
    </message>
    <message>
        <source>tab</source>
        <translation>tabulator</translation>
    </message>
    <message>
        <source>Separator selection</source>
        <translation>Wybór separatora</translation>
    </message>
    <message>
        <source>The custom separator has not been entered!</source>
        <translation>Nie wprowadzono własnego separatora!</translation>
    </message>
</context>
<context>
    <name>SeparatorDlgBase</name>
    <message>
        <source>Field separator selection</source>
        <translation>Wybór separatora pól</translation>
    </message>
    <message>
        <source>Select separator</source>
        <translation>Wybierz separator</translation>
    </message>
    <message>
        <source>space (  )</source>
        <translation>spacja (  )</translation>
    </message>
    <message>
        <source>tab ( \t )</source>
        <translation>tabulator ( \t )</translation>
    </message>
    <message>
        <source>semicolon ( ; )</source>
        <translation>średnik ( ; )</translation>
    </message>
    <message>
        <source>coma ( , )</source>
        <translation>przecinek ( , )</translation>
    </message>
    <message>
        <source>colon ( : )</source>
        <translation>dwukropek ( : )</translation>
    </message>
    <message>
        <source>custom</source>
        <translation>własny</translation>
    </message>
    <message>
        <source>Any text; entering one selects the custom separator</source>
        <translation>Dowolny tekst; wpisanie go wybiera własny separator</translation>
    </message>
    <message>
        <source>Custom separator</source>
        <translation>Własny separator</translation>
    </message>
</context>
<context>
    <name>TemplateButtons</name>
    <message>
        <source>No label template</source>
        <translation>Brak szablonu etykiety</translation>
    </message>
</context>
<context>
    <name>TimeAxis</name>
    <message>
        <source>samples</source>
        <translation>próbki</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>min:s</source>
        <translation>min:s</translation>
    </message>
    <message>
        <source>h:min:s</source>
        <translation>godz.:min:s</translation>
    </message>
</context>
</TS>
