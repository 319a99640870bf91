<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL">
<context>
    <name>BlinksDetectParams</name>
    <message>
        <source>Select blinks detection profile</source>
        <translation>Wybierz profil detekcji mrugnięć</translation>
    </message>
    <message>
        <source>Select blinks detection profile name</source>
        <translation>Wybierz nazwę profilu detekcji mrugnięć</translation>
    </message>
    <message>
        <source>Blinks detection profile (*.bdp);;All files (*.*)</source>
        <translation>Profil detekcji mrugnięć (*.bdp);;Wszystkie pliki (*.*)</translation>
    </message>
</context>
<context>
    <name>BlinksDetectParamsBase</name>
    <message>
        <source>Blinks detection parameters</source>
        <translation>Parametry detekcji mrugnięć</translation>
    </message>
    <message>
        <source>1st peak minimum velocity [deg/s]</source>
        <translation>Minimalna prędkość 1. szczytu [deg/s]</translation>
    </message>
    <message>
        <source>The downward stroke of a blink is faster than this</source>
        <translation>Ruch w dół podczas mrugnięcia jest szybszy</translation>
    </message>
    <message>
        <source>2nd peak minimum velocity [deg/s]</source>
        <translation>Minimalna prędkość 2. szczytu [deg/s]</translation>
    </message>
    <message>
        <source>The upward stroke of a blink reaches at least this velocity</source>
        <translation>Ruch w górę podczas mrugnięcia osiąga co najmniej tę prędkość</translation>
    </message>
    <message>
        <source>Initial (zero) velocity [deg/s]</source>
        <translation>Prędkość początkowa (zerowa) [deg/s]</translation>
    </message>
    <message>
        <source>Where the velocity falls to this value, a blink starts and ends</source>
        <translation>Mrugnięcie zaczyna się i kończy tam, gdzie prędkość spada do tej wartości</translation>
    </message>
    <message>
        <source>Maximum peaks distance [ms]</source>
        <translation>Maksymalny odstęp szczytów [ms]</translation>
    </message>
    <message>
        <source>The upward stroke follows the downward one within this time. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Ruch w górę następuje po ruchu w dół w tym czasie. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>Minimum amplitude [deg]</source>
        <translation>Minimalna amplituda [deg]</translation>
    </message>
    <message>
        <source>The downward stroke of a blink is at least this deep</source>
        <translation>Ruch w dół podczas mrugnięcia ma co najmniej taką głębokość</translation>
    </message>
    <message>
        <source>Minimum amplitude relation</source>
        <translation>Minimalny stosunek amplitud</translation>
    </message>
    <message>
        <source>Least height of the upward stroke divided by the depth of the downward one</source>
        <translation>Najmniejszy stosunek wysokości ruchu w górę do głębokości ruchu w dół</translation>
    </message>
    <message>
        <source>Maximum amplitude relation</source>
        <translation>Maksymalny stosunek amplitud</translation>
    </message>
    <message>
        <source>Greatest height of the upward stroke divided by the depth of the downward one</source>
        <translation>Największy stosunek wysokości ruchu w górę do głębokości ruchu w dół</translation>
    </message>
    <message>
        <source>Minimum duration [ms]</source>
        <translation>Minimalny czas trwania [ms]</translation>
    </message>
    <message>
        <source>A shorter figure is no blink. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Krótszy przebieg nie jest mrugnięciem. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>Maximum duration [ms]</source>
        <translation>Maksymalny czas trwania [ms]</translation>
    </message>
    <message>
        <source>A longer figure is no blink. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Dłuższy przebieg nie jest mrugnięciem. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>&amp;Domyślne</translation>
    </message>
    <message>
        <source>Fill the fields with the default values</source>
        <translation>Wypełnij pola wartościami domyślnymi</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>&amp;Wczytaj</translation>
    </message>
    <message>
        <source>Load the values of a profile</source>
        <translation>Wczytaj wartości z profilu</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
    <message>
        <source>Save the values as a profile</source>
        <translation>Zapisz wartości jako profil</translation>
    </message>
</context>
<context>
    <name>CalibrationStore</name>
    <message>
        <source>An error has occured during updating file header.
%1</source>
        <translation>Podczas aktualizacji nagłówka pliku wystąpił błąd.
%1</translation>
    </message>
    <message>
        <source>There are calibrated signals in the current data file,
</source>
        <translation>W bieżącym pliku danych są skalibrowane sygnały,
</translation>
    </message>
    <message>
        <source>but the header version is too old and does not support calibration.
</source>
        <translation>ale wersja nagłówka jest za stara i nie obsługuje kalibracji.
</translation>
    </message>
    <message>
        <source>If you want to store calibration please convert this data file
</source>
        <translation>Aby zapisać kalibrację, przekształć ten plik danych
</translation>
    </message>
    <message>
        <source>using the &quot;Save as binary&quot; option in DataFile Center</source>
        <translation>poleceniem „Zapisz binarnie” w DataFile Center</translation>
    </message>
    <message>
        <source>The file is no longer the one that was opened: it has other signals.</source>
        <translation>To już nie jest plik, który został otwarty: ma inne sygnały.</translation>
    </message>
</context>
<context>
    <name>DataFileCenter</name>
    <message>
        <source>Select kiro data file</source>
        <translation>Wybierz plik danych kiro</translation>
    </message>
    <message>
        <source>Kiro data file (*.kiro)</source>
        <translation>Plik danych kiro (*.kiro)</translation>
    </message>
    <message>
        <source>All files (*.*)</source>
        <translation>Wszystkie pliki (*.*)</translation>
    </message>
    <message>
        <source>Select BDF/EDF file</source>
        <translation>Wybierz plik BDF/EDF</translation>
    </message>
    <message>
        <source>BDF/EDF file (*.bdf;*.edf;*.rec);;BioSemi Data File (*.bdf);;European Data File (*.edf);;Recording file (*.rec);;All files (*.*)</source>
        <translation>Plik BDF/EDF (*.bdf;*.edf;*.rec);;Plik BioSemi Data File (*.bdf);;Plik European Data File (*.edf);;Plik zapisu (*.rec);;Wszystkie pliki (*.*)</translation>
    </message>
    <message>
        <source>Can&apos;t open file %1
%2</source>
        <translation>Nie można otworzyć pliku %1
%2</translation>
    </message>
    <message>
        <source>The file does not contain any data!</source>
        <translation>Plik nie zawiera żadnych danych!</translation>
    </message>
    <message>
        <source>File browser</source>
        <translation>Przeglądarka plików</translation>
    </message>
    <message>
        <source>The file you are trying to open is the valid kiro data file, which seems to be corrupted.
Would you like the DataFileCenter to repair it?</source>
        <translation>Otwierany plik jest poprawnym plikiem danych kiro, ale wygląda na uszkodzony.
Czy przeglądarka plików ma go naprawić?</translation>
    </message>
    <message>
        <source>Can&apos;t repair file &quot;%1&quot;!</source>
        <translation>Nie można naprawić pliku „%1”!</translation>
    </message>
    <message>
        <source>The corrupted file has been succesfully repaired!</source>
        <translation>Uszkodzony plik został pomyślnie naprawiony!</translation>
    </message>
    <message>
        <source>Failed to load data header from file %1</source>
        <translation>Nie udało się wczytać nagłówka danych z pliku %1</translation>
    </message>
    <message>
        <source>Importing %1</source>
        <translation>Importowanie pliku %1</translation>
    </message>
</context>
<context>
    <name>DataFileCenterBase</name>
    <message>
        <source>File browser</source>
        <translation>Przeglądarka plików</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Open a recording (Ctrl+O)</source>
        <translation>Otwórz zapis (Ctrl+O)</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importuj</translation>
    </message>
    <message>
        <source>Import a BDF or EDF file (Ctrl+I)</source>
        <translation>Importuj plik BDF lub EDF (Ctrl+I)</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Zapisz jako...</translation>
    </message>
    <message>
        <source>Save signals and fragments as a new recording</source>
        <translation>Zapisz sygnały i fragmenty jako nowy zapis</translation>
    </message>
    <message>
        <source>Save as text</source>
        <translation>Zapisz jako tekst</translation>
    </message>
    <message>
        <source>Save signals and fragments as text</source>
        <translation>Zapisz sygnały i fragmenty jako tekst</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Eksportuj</translation>
    </message>
    <message>
        <source>Export one signal</source>
        <translation>Eksportuj jeden sygnał</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Napraw</translation>
    </message>
    <message>
        <source>Fill packets gaps in data file</source>
        <translation>Uzupełnij brakujące pakiety w pliku danych</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Przetwarzanie</translation>
    </message>
    <message>
        <source>Compute derived signals in a new recording</source>
        <translation>Oblicz sygnały pochodne w nowym zapisie</translation>
    </message>
    <message>
        <source>Analysis</source>
        <translation>Analiza</translation>
    </message>
    <message>
        <source>Compute statistics of periods as a report</source>
        <translation>Oblicz statystyki okresów jako raport</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Close this window (Ctrl+W)</source>
        <translation>Zamknij to okno (Ctrl+W)</translation>
    </message>
    <message>
        <source>Open a recording, or drop one here</source>
        <translation>Otwórz zapis albo upuść go tutaj</translation>
    </message>
    <message>
        <source>Storing program:</source>
        <translation>Program zapisujący:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Data:</translation>
    </message>
    <message>
        <source>Packets count:</source>
        <translation>Liczba pakietów:</translation>
    </message>
    <message>
        <source>File version:</source>
        <translation>Wersja pliku:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Godzina:</translation>
    </message>
    <message>
        <source>Total time:</source>
        <translation>Czas trwania:</translation>
    </message>
    <message>
        <source>Signals</source>
        <translation>Sygnały</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Pełna nazwa</translation>
    </message>
    <message>
        <source>Short name</source>
        <translation>Krótka nazwa</translation>
    </message>
    <message>
        <source>Freq. [Hz]</source>
        <translation>Częst. [Hz]</translation>
    </message>
    <message>
        <source>Samples/Packet</source>
        <translation>Próbek/pakiet</translation>
    </message>
    <message>
        <source>Sample size [B]</source>
        <translation>Rozmiar próbki [B]</translation>
    </message>
    <message>
        <source>Sample type</source>
        <translation>Typ próbki</translation>
    </message>
    <message>
        <source>Calib. unit</source>
        <translation>Jedn. kalib.</translation>
    </message>
    <message>
        <source>Calib. factor</source>
        <translation>Współcz. kalib.</translation>
    </message>
    <message>
        <source>Calib. offset</source>
        <translation>Przesun. kalib.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Uwagi</translation>
    </message>
    <message>
        <source>Technical parameters</source>
        <translation>Parametry techniczne</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nazwa</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wartość</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiuj</translation>
    </message>
    <message>
        <source>Copy the technical parameters to the clipboard</source>
        <translation>Kopiuj parametry techniczne do schowka</translation>
    </message>
</context>
<context>
    <name>DialogProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>EyeCharts</name>
    <message>
        <source>Right eye h position [deg]</source>
        <translation>Prawe oko: pozycja h [deg]</translation>
    </message>
    <message>
        <source>Right eye h velocity [deg/s]</source>
        <translation>Prawe oko: prędkość h [deg/s]</translation>
    </message>
    <message>
        <source>Right eye v position [deg]</source>
        <translation>Prawe oko: pozycja v [deg]</translation>
    </message>
    <message>
        <source>Right eye v velocity [deg/s]</source>
        <translation>Prawe oko: prędkość v [deg/s]</translation>
    </message>
    <message>
        <source>Left eye h position [deg]</source>
        <translation>Lewe oko: pozycja h [deg]</translation>
    </message>
    <message>
        <source>Left eye h velocity [deg/s]</source>
        <translation>Lewe oko: prędkość h [deg/s]</translation>
    </message>
    <message>
        <source>Left eye v position [deg]</source>
        <translation>Lewe oko: pozycja v [deg]</translation>
    </message>
    <message>
        <source>Left eye v velocity [deg/s]</source>
        <translation>Lewe oko: prędkość v [deg/s]</translation>
    </message>
    <message>
        <source>Right eye horizontal [%1]</source>
        <translation>Prawe oko poziomo [%1]</translation>
    </message>
    <message>
        <source>Right eye horizontal [%1/s]</source>
        <translation>Prawe oko poziomo [%1/s]</translation>
    </message>
    <message>
        <source>Right eye vertical [%1]</source>
        <translation>Prawe oko pionowo [%1]</translation>
    </message>
    <message>
        <source>Right eye vertical [%1/s]</source>
        <translation>Prawe oko pionowo [%1/s]</translation>
    </message>
    <message>
        <source>Left eye horizontal [%1]</source>
        <translation>Lewe oko poziomo [%1]</translation>
    </message>
    <message>
        <source>Left eye horizontal [%1/s]</source>
        <translation>Lewe oko poziomo [%1/s]</translation>
    </message>
    <message>
        <source>Left eye vertical [%1]</source>
        <translation>Lewe oko pionowo [%1]</translation>
    </message>
    <message>
        <source>Left eye vertical [%1/s]</source>
        <translation>Lewe oko pionowo [%1/s]</translation>
    </message>
    <message>
        <source>Blink
Duration %1 ms
Peaks distance %2 ms
Amplitude %3 deg
Amplitude relation %4</source>
        <translation>Mrugnięcie
Czas trwania %1 ms
Odstęp szczytów %2 ms
Amplituda %3 deg
Stosunek amplitud %4</translation>
    </message>
    <message>
        <source>Saccade %1
Duration %2 ms
Amplitude %3 deg
Peak velocity %4 deg/s</source>
        <translation>Sakada %1
Czas trwania %2 ms
Amplituda %3 deg
Prędkość szczytowa %4 deg/s</translation>
    </message>
</context>
<context>
    <name>EyeSignalsDialog</name>
    <message>
        <source>Select right eye horizontal movement (default)</source>
        <translation>Wybierz ruch poziomy prawego oka (domyślny)</translation>
    </message>
    <message>
        <source>Select right eye vertical movement</source>
        <translation>Wybierz ruch pionowy prawego oka</translation>
    </message>
    <message>
        <source>Select left eye horizontal movement</source>
        <translation>Wybierz ruch poziomy lewego oka</translation>
    </message>
    <message>
        <source>Select left eye vertical movement</source>
        <translation>Wybierz ruch pionowy lewego oka</translation>
    </message>
    <message>
        <source>no signal selected</source>
        <translation>nie wybrano sygnału</translation>
    </message>
    <message>
        <source>do not ask for signals selection confirmation (can be changed in options)</source>
        <translation>nie pytaj o potwierdzenie wyboru sygnałów (można to zmienić w opcjach)</translation>
    </message>
    <message>
        <source>Please confirm or change the signals selection</source>
        <translation>Potwierdź lub zmień wybór sygnałów</translation>
    </message>
</context>
<context>
    <name>FavoriteViews</name>
    <message>
        <source>Custom view</source>
        <translation>Widok własny</translation>
    </message>
</context>
<context>
    <name>FileChoice</name>
    <message>
        <source>The file %1 already exists.
Do you want to replace it?</source>
        <translation>Plik %1 już istnieje.
Czy chcesz go zastąpić?</translation>
    </message>
</context>
<context>
    <name>LabelMemory</name>
    <message>
        <source>New label name</source>
        <translation>Nazwa nowej etykiety</translation>
    </message>
    <message>
        <source>New label description</source>
        <translation>Opis nowej etykiety</translation>
    </message>
</context>
<context>
    <name>LoadedRecording</name>
    <message>
        <source>The file %1 was changed or removed by another program while it was loaded.</source>
        <translation>Plik %1 został zmieniony lub usunięty przez inny program podczas wczytywania.</translation>
    </message>
    <message>
        <source>Failed to load data signals!</source>
        <translation>Nie udało się wczytać sygnałów!</translation>
    </message>
    <message>
        <source>Failed to load file header</source>
        <translation>Nie udało się wczytać nagłówka pliku</translation>
    </message>
    <message>
        <source>The file you are trying to open is the valid kiro file but the header is corrupted.
Use DataFileCenter module to reconstruct it.</source>
        <translation>Otwierany plik jest poprawnym plikiem kiro, ale jego nagłówek jest uszkodzony.
Użyj modułu DataFileCenter, aby go odtworzyć.</translation>
    </message>
    <message>
        <source>The file you are trying to open does not contain any data!</source>
        <translation>Otwierany plik nie zawiera żadnych danych!</translation>
    </message>
    <message>
        <source>The file %1 does not tell how fast its signals were recorded.</source>
        <translation>Plik %1 nie podaje, z jaką częstotliwością zapisano jego sygnały.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Za mało pamięci.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Change language</source>
        <translation>Zmień język</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Sprawdź aktualizacje</translation>
    </message>
    <message>
        <source>Open message log file</source>
        <translation>Otwórz dziennik komunikatów</translation>
    </message>
    <message>
        <source>Select application language</source>
        <translation>Wybierz język aplikacji</translation>
    </message>
    <message>
        <source>Language change will take place after application restart</source>
        <translation>Zmiana języka nastąpi po ponownym uruchomieniu aplikacji</translation>
    </message>
    <message>
        <source>Invalid reponse received from server!</source>
        <translation>Otrzymano nieprawidłową odpowiedź z serwera!</translation>
    </message>
    <message>
        <source>You have a newest version of KiroManager application.</source>
        <translation>Masz najnowszą wersję aplikacji KiroManager.</translation>
    </message>
    <message>
        <source>&lt;html&gt;An updated version of KiroManager application is available!&lt;br&gt;</source>
        <translation>&lt;html&gt;Dostępna jest nowsza wersja aplikacji KiroManager!&lt;br&gt;</translation>
    </message>
    <message>
        <source>Your version is %1 , an updated version is %2.&lt;br&gt;</source>
        <translation>Twoja wersja to %1 , nowsza wersja to %2.&lt;br&gt;</translation>
    </message>
    <message>
        <source>Download it from this &lt;a href=&quot;%1&quot;&gt;link&lt;/a&gt;&lt;/html&gt;</source>
        <translation>Pobierz ją, korzystając z tego &lt;a href=&quot;%1&quot;&gt;łącza&lt;/a&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>MainWindowBase</name>
    <message>
        <source>Review and analyse eye and head movement recordings.</source>
        <translation>Przeglądanie i analiza zapisów ruchów oczu i głowy.</translation>
    </message>
    <message>
        <source>&amp;File browser</source>
        <translation>Przeglądarka &amp;plików</translation>
    </message>
    <message>
        <source>Inspect, repair and convert recordings (Ctrl+O)</source>
        <translation>Sprawdzaj, naprawiaj i przekształcaj zapisy (Ctrl+O)</translation>
    </message>
    <message>
        <source>File browser</source>
        <translation>Przeglądarka plików</translation>
    </message>
    <message>
        <source>&amp;Signals browser</source>
        <translation>Przeglądarka &amp;sygnałów</translation>
    </message>
    <message>
        <source>Browse, measure and calibrate the signals of a recording</source>
        <translation>Przeglądaj, mierz i kalibruj sygnały zapisu</translation>
    </message>
    <message>
        <source>Signals browser</source>
        <translation>Przeglądarka sygnałów</translation>
    </message>
    <message>
        <source>Sa&amp;ccades browser</source>
        <translation>Przeglądarka sa&amp;kad</translation>
    </message>
    <message>
        <source>Detect, browse and edit saccades and blinks</source>
        <translation>Wykrywaj, przeglądaj i edytuj sakady i mrugnięcia</translation>
    </message>
    <message>
        <source>Saccades browser</source>
        <translation>Przeglądarka sakad</translation>
    </message>
    <message>
        <source>Set&amp;up   </source>
        <translation>&amp;Ustawienia   </translation>
    </message>
    <message>
        <source>Language, updates and message log</source>
        <translation>Język, aktualizacje i dziennik komunikatów</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Zakończ</translation>
    </message>
    <message>
        <source>Close this window (Ctrl+W)</source>
        <translation>Zamknij to okno (Ctrl+W)</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Zakończ</translation>
    </message>
</context>
<context>
    <name>MessageLog</name>
    <message>
        <source>KiroManager has performed an illegal operation and will quit immediately!
The log file &quot;%1&quot; in the application installation directory may be revised for additional details.</source>
        <translation>KiroManager wykonał niedozwoloną operację i zostanie natychmiast zamknięty!
Dodatkowe szczegóły można znaleźć w pliku dziennika „%1” w katalogu instalacyjnym aplikacji.</translation>
    </message>
</context>
<context>
    <name>ProfileFiles</name>
    <message>
        <source>Failed to load parameters from file %1</source>
        <translation>Nie udało się wczytać parametrów z pliku %1</translation>
    </message>
    <message>
        <source>Failed to save parameters from file %1</source>
        <translation>Nie udało się zapisać parametrów do pliku %1</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
</context>
<context>
    <name>ReviewFrame</name>
    <message>
        <source>Signals browser</source>
        <translation>Przeglądarka sygnałów</translation>
    </message>
    <message>
        <source>Select kiro data file</source>
        <translation>Wybierz plik danych kiro</translation>
    </message>
    <message>
        <source>Kiro data (*.kiro)</source>
        <translation>Dane kiro (*.kiro)</translation>
    </message>
    <message>
        <source>All files (*.*)</source>
        <translation>Wszystkie pliki (*.*)</translation>
    </message>
    <message>
        <source>The file %1 could not be found!</source>
        <translation>Nie można znaleźć pliku %1!</translation>
    </message>
    <message>
        <source>There are unsaved changes in labels for this file. Would you like to save them?</source>
        <translation>Etykiety tego pliku mają niezapisane zmiany. Czy chcesz je zapisać?</translation>
    </message>
    <message>
        <source>Yes, save</source>
        <translation>Tak, zapisz</translation>
    </message>
    <message>
        <source>No, do not save</source>
        <translation>Nie, nie zapisuj</translation>
    </message>
    <message>
        <source>Cancel operation</source>
        <translation>Anuluj operację</translation>
    </message>
    <message>
        <source>Loading data header...</source>
        <translation>Wczytywanie nagłówka danych...</translation>
    </message>
    <message>
        <source>Data file loaded!</source>
        <translation>Plik danych wczytany!</translation>
    </message>
    <message>
        <source>Checking selected file integrity...</source>
        <translation>Sprawdzanie spójności wybranego pliku...</translation>
    </message>
    <message>
        <source>Storing display settings for current file...</source>
        <translation>Zapisywanie ustawień widoku bieżącego pliku...</translation>
    </message>
    <message>
        <source>Closing current file...</source>
        <translation>Zamykanie bieżącego pliku...</translation>
    </message>
    <message>
        <source>Loading favorite views...</source>
        <translation>Wczytywanie ulubionych widoków...</translation>
    </message>
    <message>
        <source>Initializing internal data...</source>
        <translation>Przygotowywanie danych wewnętrznych...</translation>
    </message>
    <message>
        <source>Loading file settings...</source>
        <translation>Wczytywanie ustawień pliku...</translation>
    </message>
    <message>
        <source>Looking for audio data...</source>
        <translation>Szukanie danych dźwiękowych...</translation>
    </message>
    <message>
        <source>Loading data signals...</source>
        <translation>Wczytywanie sygnałów...</translation>
    </message>
    <message>
        <source>Initializing audio player...</source>
        <translation>Przygotowywanie odtwarzacza dźwięku...</translation>
    </message>
    <message>
        <source>Initializing user interface...</source>
        <translation>Przygotowywanie okna...</translation>
    </message>
    <message>
        <source>Open labels</source>
        <translation>Otwórz etykiety</translation>
    </message>
    <message>
        <source>Add labels</source>
        <translation>Dodaj etykiety</translation>
    </message>
    <message>
        <source>Save labels</source>
        <translation>Zapisz etykiety</translation>
    </message>
    <message>
        <source>Save labels as...</source>
        <translation>Zapisz etykiety jako...</translation>
    </message>
    <message>
        <source>Export labels...</source>
        <translation>Eksportuj etykiety...</translation>
    </message>
    <message>
        <source>Manage labels</source>
        <translation>Zarządzaj etykietami</translation>
    </message>
    <message>
        <source>Clear labels</source>
        <translation>Usuń wszystkie etykiety</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Ogólne</translation>
    </message>
    <message>
        <source>Plot style</source>
        <translation>Styl wykresu</translation>
    </message>
    <message>
        <source>Signals scale</source>
        <translation>Skala sygnałów</translation>
    </message>
    <message>
        <source>Print selected range</source>
        <translation>Drukuj wybrany zakres</translation>
    </message>
    <message>
        <source>Print current page</source>
        <translation>Drukuj bieżącą stronę</translation>
    </message>
    <message>
        <source>Acquire screenshot</source>
        <translation>Zrzut ekranu</translation>
    </message>
    <message>
        <source>Go to time...</source>
        <translation>Przejdź do czasu...</translation>
    </message>
    <message>
        <source>Selection time</source>
        <translation>Długość okna</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Czas</translation>
    </message>
    <message>
        <source>Position %1 s</source>
        <translation>Pozycja %1 s</translation>
    </message>
    <message>
        <source>New selector position %1 s with range %2 s</source>
        <translation>Nowa pozycja okna %1 s, zakres %2 s</translation>
    </message>
    <message>
        <source>Enter time in seconds</source>
        <translation>Podaj czas w sekundach</translation>
    </message>
    <message>
        <source>Enter new selection time in seconds</source>
        <translation>Podaj nową długość okna w sekundach</translation>
    </message>
    <message>
        <source>Enter new favorite signals view name</source>
        <translation>Podaj nazwę nowego ulubionego widoku sygnałów</translation>
    </message>
    <message>
        <source>New favorite signals view name must be unique. Please try again.</source>
        <translation>Nazwa nowego ulubionego widoku musi być niepowtarzalna. Spróbuj ponownie.</translation>
    </message>
    <message>
        <source>Cannot remove default favorite signals view!</source>
        <translation>Nie można usunąć domyślnego widoku sygnałów!</translation>
    </message>
    <message>
        <source>Kiro labels file (*.lab)</source>
        <translation>Plik etykiet kiro (*.lab)</translation>
    </message>
    <message>
        <source>Edit label</source>
        <translation>Edytuj etykietę</translation>
    </message>
    <message>
        <source>Delete label</source>
        <translation>Usuń etykietę</translation>
    </message>
    <message>
        <source>Select Kiro labels file</source>
        <translation>Wybierz plik etykiet kiro</translation>
    </message>
    <message>
        <source>Failed to load labels from file %1</source>
        <translation>Nie udało się wczytać etykiet z pliku %1</translation>
    </message>
    <message>
        <source>Select destination file</source>
        <translation>Wybierz plik docelowy</translation>
    </message>
    <message>
        <source>The file %1 already exists! Would you like to overwrite it?</source>
        <translation>Plik %1 już istnieje! Czy chcesz go zastąpić?</translation>
    </message>
    <message>
        <source>Failed to save labels to the file %1</source>
        <translation>Nie udało się zapisać etykiet do pliku %1</translation>
    </message>
    <message>
        <source>This operation will remove all current labels! Would you like to continue?</source>
        <translation>Ta operacja usunie wszystkie bieżące etykiety! Czy chcesz kontynuować?</translation>
    </message>
    <message>
        <source>Mark calibration point</source>
        <translation>Zaznacz punkt kalibracji</translation>
    </message>
    <message>
        <source>Delete calibration point</source>
        <translation>Usuń punkt kalibracji</translation>
    </message>
    <message>
        <source>Calculate calibration factor</source>
        <translation>Oblicz współczynnik kalibracji</translation>
    </message>
    <message>
        <source>Clear calibration points</source>
        <translation>Usuń wszystkie punkty kalibracji</translation>
    </message>
    <message>
        <source>Direct calibration</source>
        <translation>Kalibracja bezpośrednia</translation>
    </message>
    <message>
        <source>Clear signal calibration</source>
        <translation>Usuń kalibrację sygnału</translation>
    </message>
    <message>
        <source>Show all signals</source>
        <translation>Pokaż wszystkie sygnały</translation>
    </message>
    <message>
        <source>Show only this signal</source>
        <translation>Pokaż tylko ten sygnał</translation>
    </message>
    <message>
        <source>Hide this signal</source>
        <translation>Ukryj ten sygnał</translation>
    </message>
    <message>
        <source>Change scale type to automatic</source>
        <translation>Zmień skalę na automatyczną</translation>
    </message>
    <message>
        <source>Change scale type to fixed</source>
        <translation>Zmień skalę na stałą</translation>
    </message>
    <message>
        <source>Change scale type to tracing</source>
        <translation>Zmień skalę na śledzącą</translation>
    </message>
    <message>
        <source>Edit signal scale...</source>
        <translation>Edytuj skalę sygnału...</translation>
    </message>
    <message>
        <source>Label %1
Description: %2</source>
        <translation>Etykieta %1
Opis: %2</translation>
    </message>
    <message>
        <source>Signal: %1, time: %2 s, value: %3</source>
        <translation>Sygnał: %1, czas: %2 s, wartość: %3</translation>
    </message>
    <message>
        <source>Signal: %1, time: %2 s, value: %3 %4</source>
        <translation>Sygnał: %1, czas: %2 s, wartość: %3 %4</translation>
    </message>
    <message>
        <source>The files opened last</source>
        <translation>Ostatnio otwierane pliki</translation>
    </message>
    <message>
        <source>There are unsaved changes in this file. Would you like to save them?</source>
        <translation>Ten plik ma niezapisane zmiany. Czy chcesz je zapisać?</translation>
    </message>
    <message>
        <source>Failed to open file %1</source>
        <translation>Nie udało się otworzyć pliku %1</translation>
    </message>
    <message>
        <source>Storing new calibration values...</source>
        <translation>Zapisywanie nowych wartości kalibracji...</translation>
    </message>
    <message>
        <source>Add label</source>
        <comment>undo</comment>
        <translation>dodanie etykiety</translation>
    </message>
    <message>
        <source>Edit label</source>
        <comment>undo</comment>
        <translation>zmianę etykiety</translation>
    </message>
    <message>
        <source>Delete label</source>
        <comment>undo</comment>
        <translation>usunięcie etykiety</translation>
    </message>
    <message>
        <source>Add labels</source>
        <comment>undo</comment>
        <translation>dodanie etykiet</translation>
    </message>
</context>
<context>
    <name>ReviewFrameBase</name>
    <message>
        <source>Signals browser</source>
        <translation>Przeglądarka sygnałów</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Otwórz zapis</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Save the changed calibration into the recording</source>
        <translation>Zapisz zmienioną kalibrację w pliku zapisu</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Etykiety</translation>
    </message>
    <message>
        <source>Open, save and clear labels</source>
        <translation>Otwieranie, zapisywanie i usuwanie etykiet</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>Look, printing, and the stretch of time that is shown</source>
        <translation>Wygląd, drukowanie i pokazywany zakres czasu</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Close the signals browser</source>
        <translation>Zamknij przeglądarkę sygnałów</translation>
    </message>
    <message>
        <source>Arrow pointer mode</source>
        <translation>Tryb strzałki</translation>
    </message>
    <message>
        <source>Signal measuring mode</source>
        <translation>Tryb pomiaru sygnału</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zakres</translation>
    </message>
    <message>
        <source>Time scale selection mode</source>
        <translation>Tryb wyboru zakresu czasu</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Point label mode</source>
        <translation>Tryb etykiety punktu</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Sygnał</translation>
    </message>
    <message>
        <source>Signal line label mode</source>
        <translation>Tryb etykiety linii sygnału</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Czas</translation>
    </message>
    <message>
        <source>Time line label mode</source>
        <translation>Tryb etykiety linii czasu</translation>
    </message>
    <message>
        <source>Signal p.</source>
        <translation>Okr. syg.</translation>
    </message>
    <message>
        <source>Signal period label mode</source>
        <translation>Tryb etykiety okresu sygnału</translation>
    </message>
    <message>
        <source>Time p.</source>
        <translation>Okr. cz.</translation>
    </message>
    <message>
        <source>Time period label mode</source>
        <translation>Tryb etykiety okresu czasu</translation>
    </message>
    <message>
        <source>Calib</source>
        <translation>Kalibr.</translation>
    </message>
    <message>
        <source>Signal calibration mode</source>
        <translation>Tryb kalibracji sygnału</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Szum</translation>
    </message>
    <message>
        <source>Signal noise statistic mode</source>
        <translation>Tryb statystyki szumu sygnału</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Dźwięk</translation>
    </message>
    <message>
        <source>Audio player mode</source>
        <translation>Tryb odtwarzania dźwięku</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Wideo</translation>
    </message>
    <message>
        <source>Video player mode</source>
        <translation>Tryb odtwarzania wideo</translation>
    </message>
    <message>
        <source>Connect the samples by lines</source>
        <translation>Połącz próbki liniami</translation>
    </message>
    <message>
        <source>Show the grid of times</source>
        <translation>Pokaż siatkę czasu</translation>
    </message>
    <message>
        <source>Show the grid of values</source>
        <translation>Pokaż siatkę wartości</translation>
    </message>
    <message>
        <source>Width of the curves in pixels</source>
        <translation>Grubość krzywych w pikselach</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Favorite views: signals that are shown together</source>
        <translation>Ulubione widoki: sygnały pokazywane razem</translation>
    </message>
    <message>
        <source>Favorite views</source>
        <translation>Ulubione widoki</translation>
    </message>
    <message>
        <source>Custom view</source>
        <translation>Widok własny</translation>
    </message>
    <message>
        <source>Keep the shown signals as a favorite view</source>
        <translation>Zachowaj pokazywane sygnały jako ulubiony widok</translation>
    </message>
    <message>
        <source>Add a favorite view</source>
        <translation>Dodaj ulubiony widok</translation>
    </message>
    <message>
        <source>Remove the chosen favorite view</source>
        <translation>Usuń wybrany ulubiony widok</translation>
    </message>
    <message>
        <source>Remove the favorite view</source>
        <translation>Usuń ulubiony widok</translation>
    </message>
    <message>
        <source>Show half of the time</source>
        <translation>Pokaż połowę czasu</translation>
    </message>
    <message>
        <source>Show twice the time</source>
        <translation>Pokaż dwa razy więcej czasu</translation>
    </message>
    <message>
        <source>Open a recording (Ctrl+O), or drop one here.</source>
        <translation>Otwórz zapis (Ctrl+O) lub upuść go tutaj.</translation>
    </message>
    <message>
        <source>Signals</source>
        <translation>Sygnały</translation>
    </message>
    <message>
        <source>Selection range 0 s</source>
        <translation>Zakres 0 s</translation>
    </message>
    <message>
        <source>No signal is shown. Choose some in the list.</source>
        <translation>Nie jest pokazany żaden sygnał. Wybierz sygnały z listy.</translation>
    </message>
    <message>
        <source>Show &amp;all signals</source>
        <translation>Pokaż &amp;wszystkie sygnały</translation>
    </message>
</context>
<context>
    <name>SaccDetectParams</name>
    <message>
        <source>Select saccade detection profile</source>
        <translation>Wybierz profil detekcji sakad</translation>
    </message>
    <message>
        <source>Select saccade detection profile name</source>
        <translation>Wybierz nazwę profilu detekcji sakad</translation>
    </message>
    <message>
        <source>Saccade detection profile (*.sdp);;All files (*.*)</source>
        <translation>Profil detekcji sakad (*.sdp);;Wszystkie pliki (*.*)</translation>
    </message>
    <message>
        <source>Invalid initial velocity threshold field</source>
        <translation>Nieprawidłowe pole progu prędkości początkowej</translation>
    </message>
    <message>
        <source>Invalid format of the initial velocity threshold value</source>
        <translation>Nieprawidłowy format wartości progu prędkości początkowej</translation>
    </message>
    <message>
        <source>Invalid speed threshold field</source>
        <translation>Nieprawidłowe pole progu prędkości</translation>
    </message>
    <message>
        <source>Invalid format of the speed threshold value</source>
        <translation>Nieprawidłowy format wartości progu prędkości</translation>
    </message>
    <message>
        <source>Invalid slope threshold field</source>
        <translation>Nieprawidłowe pole progu przyspieszenia</translation>
    </message>
    <message>
        <source>Invalid format of the slope threshold value</source>
        <translation>Nieprawidłowy format wartości progu przyspieszenia</translation>
    </message>
    <message>
        <source>Invalid minimum amplitude field</source>
        <translation>Nieprawidłowe pole minimalnej amplitudy</translation>
    </message>
    <message>
        <source>Invalid maximum amplitude field</source>
        <translation>Nieprawidłowe pole maksymalnej amplitudy</translation>
    </message>
</context>
<context>
    <name>SaccDetectParamsBase</name>
    <message>
        <source>Saccade detection parameters</source>
        <translation>Parametry detekcji sakad</translation>
    </message>
    <message>
        <source>Minimum fixation [ms]</source>
        <translation>Minimalna fiksacja [ms]</translation>
    </message>
    <message>
        <source>A saccade that starts sooner after the one before it is left out. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Sakada, która zaczyna się wcześniej po poprzedniej, jest pomijana. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>Minimum duration [ms]</source>
        <translation>Minimalny czas trwania [ms]</translation>
    </message>
    <message>
        <source>A shorter movement is no saccade. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Krótszy ruch nie jest sakadą. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>Maximum duration [ms]</source>
        <translation>Maksymalny czas trwania [ms]</translation>
    </message>
    <message>
        <source>A longer movement is no saccade. Counted in samples: milliseconds at 1000 Hz.</source>
        <translation>Dłuższy ruch nie jest sakadą. Liczone w próbkach: milisekundy przy 1000 Hz.</translation>
    </message>
    <message>
        <source>Initial velocity [deg/s]</source>
        <translation>Prędkość początkowa [deg/s]</translation>
    </message>
    <message>
        <source>Below this velocity a saccade starts and ends</source>
        <translation>Poniżej tej prędkości sakada zaczyna się i kończy</translation>
    </message>
    <message>
        <source>Minimum peak velocity [deg/s]</source>
        <translation>Minimalna prędkość szczytowa [deg/s]</translation>
    </message>
    <message>
        <source>A saccade reaches at least this velocity</source>
        <translation>Sakada osiąga co najmniej tę prędkość</translation>
    </message>
    <message>
        <source>Minimum acceleration [deg/s&lt;sup&gt;2&lt;/sup&gt;]</source>
        <translation>Minimalne przyspieszenie [deg/s&lt;sup&gt;2&lt;/sup&gt;]</translation>
    </message>
    <message>
        <source>A saccade reaches at least this acceleration</source>
        <translation>Sakada osiąga co najmniej to przyspieszenie</translation>
    </message>
    <message>
        <source>Minimum acceleration [deg/s²]</source>
        <translation>Minimalne przyspieszenie [deg/s²]</translation>
    </message>
    <message>
        <source>Minimum amplitude [deg]</source>
        <translation>Minimalna amplituda [deg]</translation>
    </message>
    <message>
        <source>A smaller movement is no saccade</source>
        <translation>Mniejszy ruch nie jest sakadą</translation>
    </message>
    <message>
        <source>Maximum amplitude [deg]</source>
        <translation>Maksymalna amplituda [deg]</translation>
    </message>
    <message>
        <source>A larger movement is no saccade</source>
        <translation>Większy ruch nie jest sakadą</translation>
    </message>
    <message>
        <source>&amp;Defaults</source>
        <translation>&amp;Domyślne</translation>
    </message>
    <message>
        <source>Fill the fields with the default values</source>
        <translation>Wypełnij pola wartościami domyślnymi</translation>
    </message>
    <message>
        <source>&amp;Load</source>
        <translation>&amp;Wczytaj</translation>
    </message>
    <message>
        <source>Load the values of a profile</source>
        <translation>Wczytaj wartości z profilu</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
    <message>
        <source>Save the values as a profile</source>
        <translation>Zapisz wartości jako profil</translation>
    </message>
</context>
<context>
    <name>SaccadeCenter</name>
    <message>
        <source>Saccades browser</source>
        <translation>Przeglądarka sakad</translation>
    </message>
    <message>
        <source>   Cancel and go back to the current data</source>
        <translation>   Anuluj i wróć do bieżących danych</translation>
    </message>
    <message>
        <source>   Save changes and detect</source>
        <translation>   Zapisz zmiany i wykryj</translation>
    </message>
    <message>
        <source>   Don&apos;t save changes and detect</source>
        <translation>   Nie zapisuj zmian i wykryj</translation>
    </message>
    <message>
        <source>   Save changes and open</source>
        <translation>   Zapisz zmiany i otwórz</translation>
    </message>
    <message>
        <source>   Don&apos;t save changes and open</source>
        <translation>   Nie zapisuj zmian i otwórz</translation>
    </message>
    <message>
        <source>   Save changes and close</source>
        <translation>   Zapisz zmiany i zamknij</translation>
    </message>
    <message>
        <source>   Don&apos;t save changes and close</source>
        <translation>   Nie zapisuj zmian i zamknij</translation>
    </message>
    <message>
        <source>   Cancel and go back to saccades browser</source>
        <translation>   Anuluj i wróć do przeglądarki sakad</translation>
    </message>
    <message>
        <source>There are unsaved changes in the current data!
What would you like to do?</source>
        <translation>W bieżących danych są niezapisane zmiany!
Co chcesz zrobić?</translation>
    </message>
    <message>
        <source>Select kiro data file</source>
        <translation>Wybierz plik danych kiro</translation>
    </message>
    <message>
        <source>Kiro data (*.kiro)</source>
        <translation>Dane kiro (*.kiro)</translation>
    </message>
    <message>
        <source>All files (*.*)</source>
        <translation>Wszystkie pliki (*.*)</translation>
    </message>
    <message>
        <source>Signal %1 is not calibrated!
Please enter calibration factor or use the default one (calibration unit: deg).</source>
        <translation>Sygnał %1 nie jest skalibrowany!
Podaj współczynnik kalibracji lub użyj domyślnego (jednostka kalibracji: deg).</translation>
    </message>
    <message>
        <source>Loading eye movement signal...</source>
        <translation>Wczytywanie sygnału ruchów oczu...</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Gotowe</translation>
    </message>
    <message>
        <source>Cannot read header - probably this is not valid kiro binary data file</source>
        <translation>Nie można odczytać nagłówka - prawdopodobnie nie jest to poprawny binarny plik danych kiro</translation>
    </message>
    <message>
        <source>The file you are trying to open does not contain any data!</source>
        <translation>Otwierany plik nie zawiera żadnych danych!</translation>
    </message>
    <message>
        <source>Detecting saccades...</source>
        <translation>Wykrywanie sakad...</translation>
    </message>
    <message>
        <source>No saccades found!</source>
        <translation>Nie znaleziono sakad!</translation>
    </message>
    <message>
        <source>Select file with saccades</source>
        <translation>Wybierz plik z sakadami</translation>
    </message>
    <message>
        <source>Kiro saccade file (*.sacc)</source>
        <translation>Plik sakad kiro (*.sacc)</translation>
    </message>
    <message>
        <source>Failed to locate kiro data file (%1)!
Press OK to locate file manually or cancel to break.</source>
        <translation>Nie znaleziono pliku danych kiro (%1)!
Naciśnij OK, aby wskazać plik samodzielnie, lub Anuluj, aby przerwać.</translation>
    </message>
    <message>
        <source>Kiro data file (*.kiro)</source>
        <translation>Plik danych kiro (*.kiro)</translation>
    </message>
    <message>
        <source>Cannot load kiro data file header - probably this is not valid format</source>
        <translation>Nie można wczytać nagłówka pliku danych kiro - prawdopodobnie format jest nieprawidłowy</translation>
    </message>
    <message>
        <source>The kiro data file does not contain any data!</source>
        <translation>Plik danych kiro nie zawiera żadnych danych!</translation>
    </message>
    <message>
        <source>Loading saccades...</source>
        <translation>Wczytywanie sakad...</translation>
    </message>
    <message>
        <source>Failed to load saccades!</source>
        <translation>Nie udało się wczytać sakad!</translation>
    </message>
    <message>
        <source>Failed to save saccades (%1)</source>
        <translation>Nie udało się zapisać sakad (%1)</translation>
    </message>
    <message>
        <source>Select output file name</source>
        <translation>Wybierz nazwę pliku wynikowego</translation>
    </message>
    <message>
        <source>Unable to save saccades (%1)</source>
        <translation>Nie można zapisać sakad (%1)</translation>
    </message>
    <message>
        <source>KiroManager ended before these edits of saccades were saved:
%1
The last one was made on %2.
What would you like to do?</source>
        <translation>KiroManager zakończył działanie przed zapisaniem tych zmian sakad:
%1
Ostatnią zmianę wprowadzono %2.
Co chcesz zrobić?</translation>
    </message>
    <message>
        <source>   Restore the edits</source>
        <translation>   Przywróć zmiany</translation>
    </message>
    <message>
        <source>   Discard the edits</source>
        <translation>   Odrzuć zmiany</translation>
    </message>
    <message>
        <source>   Decide later</source>
        <translation>   Zdecyduj później</translation>
    </message>
    <message>
        <source>The edits cannot be read.
The saved file is as it was.</source>
        <translation>Nie można odczytać zmian.
Zapisany plik pozostał bez zmian.</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Cofnij</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Ponów</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Początek</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Koniec</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Czas trwania</translation>
    </message>
    <message>
        <source>Fixation</source>
        <translation>Fiksacja</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>horizontal</source>
        <translation>poziomy</translation>
    </message>
    <message>
        <source>vertical</source>
        <translation>pionowy</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 do %2</translation>
    </message>
    <message>
        <source>not saved yet</source>
        <translation>jeszcze niezapisane</translation>
    </message>
    <message>
        <source>Saccades: %1    Recording: %2</source>
        <translation>Sakady: %1    Zapis: %2</translation>
    </message>
    <message>
        <source>Not saved: see Save as</source>
        <translation>Nie zapisano: użyj Zapisz jako</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Niezapisane zmiany</translation>
    </message>
    <message>
        <source>A new saccade can&apos;t have duration shorter than %1 ms!</source>
        <translation>Nowa sakada nie może trwać krócej niż %1 ms!</translation>
    </message>
    <message>
        <source>A new saccade can&apos;t overlap with exisiting one!</source>
        <translation>Nowa sakada nie może nakładać się na istniejącą!</translation>
    </message>
    <message>
        <source>Please acknowledge selected removal of selected %1 saccades.</source>
        <translation>Potwierdź usunięcie wybranych sakad (%1).</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>Undo the last change</source>
        <translation>Cofnij ostatnią zmianę</translation>
    </message>
    <message>
        <source>Make the change again</source>
        <translation>Ponów cofniętą zmianę</translation>
    </message>
    <message>
        <source>One signal</source>
        <translation>Jeden sygnał</translation>
    </message>
    <message>
        <source>Monocular</source>
        <translation>Jednooczna</translation>
    </message>
    <message>
        <source>Binocular</source>
        <translation>Obuoczna</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Nieznany</translation>
    </message>
</context>
<context>
    <name>SaccadeCenterBase</name>
    <message>
        <source>Saccades browser</source>
        <translation>Przeglądarka sakad</translation>
    </message>
    <message>
        <source>Detect the saccades of a recording (Ctrl+D), or open a saccade file (Ctrl+O).
Both can be dropped here too.</source>
        <translation>Wykryj sakady w zapisie (Ctrl+D) albo otwórz plik sakad (Ctrl+O).
Oba pliki można też tutaj upuścić.</translation>
    </message>
    <message>
        <source>Time window [s]</source>
        <translation>Okno czasu [s]</translation>
    </message>
    <message>
        <source>Show more time</source>
        <translation>Pokaż dłuższy czas</translation>
    </message>
    <message>
        <source>Length of the time window in seconds</source>
        <translation>Długość okna czasu w sekundach</translation>
    </message>
    <message>
        <source>Show less time</source>
        <translation>Pokaż krótszy czas</translation>
    </message>
    <message>
        <source>Place in the recording</source>
        <translation>Miejsce w zapisie</translation>
    </message>
    <message>
        <source>Saccade</source>
        <translation>Sakada</translation>
    </message>
    <message>
        <source>First saccade</source>
        <translation>Pierwsza sakada</translation>
    </message>
    <message>
        <source>Previous saccade</source>
        <translation>Poprzednia sakada</translation>
    </message>
    <message>
        <source>Number of the current saccade</source>
        <translation>Numer bieżącej sakady</translation>
    </message>
    <message>
        <source>Next saccade</source>
        <translation>Następna sakada</translation>
    </message>
    <message>
        <source>Last saccade</source>
        <translation>Ostatnia sakada</translation>
    </message>
    <message>
        <source>Amplitude [deg]</source>
        <translation>Amplituda [deg]</translation>
    </message>
    <message>
        <source>Peak velocity [deg/s]</source>
        <translation>Prędk. szczyt. [deg/s]</translation>
    </message>
    <message>
        <source>Position scale</source>
        <translation>Skala pozycji</translation>
    </message>
    <message>
        <source>Adjust scale to eye position signal in the time window</source>
        <translation>Dopasuj skalę do sygnału pozycji oka w oknie czasu</translation>
    </message>
    <message>
        <source>auto</source>
        <translation>auto</translation>
    </message>
    <message>
        <source>Adjust scale to the largest saccade in the data set</source>
        <translation>Dopasuj skalę do największej sakady w danych</translation>
    </message>
    <message>
        <source>const</source>
        <translation>stała</translation>
    </message>
    <message>
        <source>Adjust scale to the currently selected saccade</source>
        <translation>Dopasuj skalę do bieżącej sakady</translation>
    </message>
    <message>
        <source>fit</source>
        <translation>dopasuj</translation>
    </message>
    <message>
        <source>Enlarge the position curves</source>
        <translation>Powiększ krzywe pozycji</translation>
    </message>
    <message>
        <source>Shrink the position curves</source>
        <translation>Zmniejsz krzywe pozycji</translation>
    </message>
    <message>
        <source>Adjust the position scale again</source>
        <translation>Dopasuj ponownie skalę pozycji</translation>
    </message>
    <message>
        <source>Velocity scale</source>
        <translation>Skala prędkości</translation>
    </message>
    <message>
        <source>Adjust scale to eye velocity signal in the time window</source>
        <translation>Dopasuj skalę do sygnału prędkości oka w oknie czasu</translation>
    </message>
    <message>
        <source>Enlarge the velocity curves</source>
        <translation>Powiększ krzywe prędkości</translation>
    </message>
    <message>
        <source>Shrink the velocity curves</source>
        <translation>Zmniejsz krzywe prędkości</translation>
    </message>
    <message>
        <source>Adjust the velocity scale again</source>
        <translation>Dopasuj ponownie skalę prędkości</translation>
    </message>
    <message>
        <source>Detected with</source>
        <translation>Parametry detekcji</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Blinks from</source>
        <translation>Sygnał mrugnięć</translation>
    </message>
    <message>
        <source>Initial velocity [deg/s]</source>
        <translation>Prędk. pocz. [deg/s]</translation>
    </message>
    <message>
        <source>Acceleration [deg/s²]</source>
        <translation>Przyspieszenie [deg/s²]</translation>
    </message>
    <message>
        <source>Duration [smp]</source>
        <translation>Czas trwania [prób.]</translation>
    </message>
    <message>
        <source>Gap [smp]</source>
        <translation>Odstęp [prób.]</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Plik</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Eksportuj</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edycja</translation>
    </message>
    <message>
        <source>&amp;Saccade</source>
        <translation>&amp;Sakada</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Narzędzia</translation>
    </message>
    <message>
        <source>&amp;Open saccades...</source>
        <translation>&amp;Otwórz sakady...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Open a saccade file</source>
        <translation>Otwórz plik sakad</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Save the saccades</source>
        <translation>Zapisz sakady</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Zapisz &amp;jako...</translation>
    </message>
    <message>
        <source>Save the saccades as a new file</source>
        <translation>Zapisz sakady jako nowy plik</translation>
    </message>
    <message>
        <source>&amp;Detect saccades...</source>
        <translation>&amp;Wykryj sakady...</translation>
    </message>
    <message>
        <source>Detect</source>
        <translation>Wykryj</translation>
    </message>
    <message>
        <source>Detect the saccades of a recording; blinks are looked for in the vertical signal</source>
        <translation>Wykryj sakady w zapisie; mrugnięcia są szukane w sygnale pionowym</translation>
    </message>
    <message>
        <source>Detect saccades, &amp;blinks from the horizontal signal...</source>
        <translation>Wykryj sakady, &amp;mrugnięcia z sygnału poziomego...</translation>
    </message>
    <message>
        <source>Detect the saccades of a recording; blinks are looked for in the horizontal signal</source>
        <translation>Wykryj sakady w zapisie; mrugnięcia są szukane w sygnale poziomym</translation>
    </message>
    <message>
        <source>Detect a&amp;gain</source>
        <translation>Wykryj po&amp;nownie</translation>
    </message>
    <message>
        <source>Detect again</source>
        <translation>Wykryj ponownie</translation>
    </message>
    <message>
        <source>Detect again in the signals shown, with the present parameters; manual edits are replaced</source>
        <translation>Wykryj ponownie w pokazanych sygnałach, z obecnymi parametrami; ręczne zmiany zostaną zastąpione</translation>
    </message>
    <message>
        <source>&amp;Saccades as text...</source>
        <translation>&amp;Sakady jako tekst...</translation>
    </message>
    <message>
        <source>Write the saccades to a text file</source>
        <translation>Zapisz sakady do pliku tekstowego</translation>
    </message>
    <message>
        <source>&amp;Blinks as text...</source>
        <translation>&amp;Mrugnięcia jako tekst...</translation>
    </message>
    <message>
        <source>Write the blinks to a text file</source>
        <translation>Zapisz mrugnięcia do pliku tekstowego</translation>
    </message>
    <message>
        <source>&amp;Fixations as text...</source>
        <translation>&amp;Fiksacje jako tekst...</translation>
    </message>
    <message>
        <source>Write the fixations to a text file</source>
        <translation>Zapisz fiksacje do pliku tekstowego</translation>
    </message>
    <message>
        <source>Sa&amp;mples of saccades as text...</source>
        <translation>&amp;Próbki sakad jako tekst...</translation>
    </message>
    <message>
        <source>Write the samples of the saccades to a text file</source>
        <translation>Zapisz próbki sakad do pliku tekstowego</translation>
    </message>
    <message>
        <source>&amp;Labels...</source>
        <translation>&amp;Etykiety...</translation>
    </message>
    <message>
        <source>Write saccades and blinks as labels</source>
        <translation>Zapisz sakady i mrugnięcia jako etykiety</translation>
    </message>
    <message>
        <source>&amp;Recording with activity indexes...</source>
        <translation>&amp;Zapis ze wskaźnikami aktywności...</translation>
    </message>
    <message>
        <source>Write a recording with indexes of saccadic activity</source>
        <translation>Utwórz zapis ze wskaźnikami aktywności sakadowej</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Z&amp;amknij</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Zamknij to okno</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Za&amp;kończ</translation>
    </message>
    <message>
        <source>Close all windows</source>
        <translation>Zamknij wszystkie okna</translation>
    </message>
    <message>
        <source>&amp;Saccade detection parameters...</source>
        <translation>Parametry detekcji &amp;sakad...</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parametry</translation>
    </message>
    <message>
        <source>Parameters of the next saccade detection</source>
        <translation>Parametry następnej detekcji sakad</translation>
    </message>
    <message>
        <source>&amp;Blink detection parameters...</source>
        <translation>Parametry detekcji &amp;mrugnięć...</translation>
    </message>
    <message>
        <source>Parameters of the next blink detection</source>
        <translation>Parametry następnej detekcji mrugnięć</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Opcje...</translation>
    </message>
    <message>
        <source>Options of the saccades browser</source>
        <translation>Opcje przeglądarki sakad</translation>
    </message>
    <message>
        <source>&amp;First</source>
        <translation>P&amp;ierwsza</translation>
    </message>
    <message>
        <source>Go to the first saccade</source>
        <translation>Przejdź do pierwszej sakady</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Poprzednia</translation>
    </message>
    <message>
        <source>Go to the previous saccade</source>
        <translation>Przejdź do poprzedniej sakady</translation>
    </message>
    <message>
        <source>&amp;Current</source>
        <translation>&amp;Bieżąca</translation>
    </message>
    <message>
        <source>Centre the current saccade</source>
        <translation>Wyśrodkuj bieżącą sakadę</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Następna</translation>
    </message>
    <message>
        <source>Go to the next saccade</source>
        <translation>Przejdź do następnej sakady</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>&amp;Ostatnia</translation>
    </message>
    <message>
        <source>Go to the last saccade</source>
        <translation>Przejdź do ostatniej sakady</translation>
    </message>
    <message>
        <source>&amp;Remove current</source>
        <translation>&amp;Usuń bieżącą</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Remove the current saccade</source>
        <translation>Usuń bieżącą sakadę</translation>
    </message>
    <message>
        <source>Remove &amp;selected...</source>
        <translation>Usuń &amp;wybrane...</translation>
    </message>
    <message>
        <source>Choose saccades from a list and remove them</source>
        <translation>Wybierz sakady z listy i usuń je</translation>
    </message>
    <message>
        <source>Profile of c&amp;urrent...</source>
        <translation>Profil bi&amp;eżącej...</translation>
    </message>
    <message>
        <source>Show the profile of the current saccade</source>
        <translation>Pokaż profil bieżącej sakady</translation>
    </message>
    <message>
        <source>Profiles of s&amp;elected...</source>
        <translation>P&amp;rofile wybranych...</translation>
    </message>
    <message>
        <source>Show the profiles of chosen saccades</source>
        <translation>Pokaż profile wybranych sakad</translation>
    </message>
    <message>
        <source>Profiles of &amp;all...</source>
        <translation>Profile wszys&amp;tkich...</translation>
    </message>
    <message>
        <source>Show the profiles of all saccades</source>
        <translation>Pokaż profile wszystkich sakad</translation>
    </message>
    <message>
        <source>&amp;Main sequence...</source>
        <translation>Sekwencja &amp;główna...</translation>
    </message>
    <message>
        <source>Show the main sequence of all saccades</source>
        <translation>Pokaż sekwencję główną wszystkich sakad</translation>
    </message>
    <message>
        <source>Main se&amp;quence of selected...</source>
        <translation>Sekwen&amp;cja główna wybranych...</translation>
    </message>
    <message>
        <source>Show the main sequence of chosen saccades</source>
        <translation>Pokaż sekwencję główną wybranych sakad</translation>
    </message>
    <message>
        <source>S&amp;tatistics...</source>
        <translation>&amp;Statystyki...</translation>
    </message>
    <message>
        <source>Show the statistics of all saccades</source>
        <translation>Pokaż statystyki wszystkich sakad</translation>
    </message>
    <message>
        <source>Statistics &amp;of selected...</source>
        <translation>Statysty&amp;ki wybranych...</translation>
    </message>
    <message>
        <source>Show the statistics of chosen saccades</source>
        <translation>Pokaż statystyki wybranych sakad</translation>
    </message>
</context>
<context>
    <name>SaccadeCenterOptions</name>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>%1, width %2</source>
        <translation>%1, grubość %2</translation>
    </message>
</context>
<context>
    <name>SaccadeCenterOptionsBase</name>
    <message>
        <source>Saccades browser options</source>
        <translation>Opcje przeglądarki sakad</translation>
    </message>
    <message>
        <source>Pages of options</source>
        <translation>Strony opcji</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Ogólne</translation>
    </message>
    <message>
        <source>Detection and times</source>
        <translation>Detekcja i czas</translation>
    </message>
    <message>
        <source>Con&amp;firm the signals at every detection</source>
        <translation>Po&amp;twierdzaj sygnały przy każdej detekcji</translation>
    </message>
    <message>
        <source>Show which signals are the eye movements before each detection, and let them be changed</source>
        <translation>Przed każdą detekcją pokazuj, które sygnały są ruchami oczu, i pozwalaj je zmienić</translation>
    </message>
    <message>
        <source>Confirm the signals at every detection</source>
        <translation>Potwierdzaj sygnały przy każdej detekcji</translation>
    </message>
    <message>
        <source>&amp;Time unit</source>
        <translation>&amp;Jednostka czasu</translation>
    </message>
    <message>
        <source>How times are shown in the window and written to text files</source>
        <translation>Jak czas jest pokazywany w oknie i zapisywany w plikach tekstowych</translation>
    </message>
    <message>
        <source>Time unit</source>
        <translation>Jednostka czasu</translation>
    </message>
    <message>
        <source>samples</source>
        <translation>próbki</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>sekundy</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minuty</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>godziny</translation>
    </message>
    <message>
        <source>Charts</source>
        <translation>Wykresy</translation>
    </message>
    <message>
        <source>Look of the charts on the screen</source>
        <translation>Wygląd wykresów na ekranie</translation>
    </message>
    <message>
        <source>&amp;Font</source>
        <translation>&amp;Czcionka</translation>
    </message>
    <message>
        <source>Choose the font of the texts on the screen; titles are bold and two points larger</source>
        <translation>Wybierz czcionkę tekstów na ekranie; tytuły są pogrubione i o dwa punkty większe</translation>
    </message>
    <message>
        <source>Font on the screen</source>
        <translation>Czcionka na ekranie</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Tło</translation>
    </message>
    <message>
        <source>Choose the color</source>
        <translation>Wybierz kolor</translation>
    </message>
    <message>
        <source>Background on the screen</source>
        <translation>Tło na ekranie</translation>
    </message>
    <message>
        <source>Foregroun&amp;d</source>
        <translation>&amp;Pierwszy plan</translation>
    </message>
    <message>
        <source>Frame and texts on the screen</source>
        <translation>Ramka i teksty na ekranie</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>&amp;Siatka</translation>
    </message>
    <message>
        <source>Grid lines on the screen</source>
        <translation>Linie siatki na ekranie</translation>
    </message>
    <message>
        <source>&amp;Eye signal</source>
        <translation>S&amp;ygnał oka</translation>
    </message>
    <message>
        <source>Choose the color, width and style of the line</source>
        <translation>Wybierz kolor, grubość i styl linii</translation>
    </message>
    <message>
        <source>Eye signal on the screen</source>
        <translation>Sygnał oka na ekranie</translation>
    </message>
    <message>
        <source>How the line looks on the background</source>
        <translation>Jak linia wygląda na tle</translation>
    </message>
    <message>
        <source>Eye signal on the screen: preview</source>
        <translation>Sygnał oka na ekranie: podgląd</translation>
    </message>
    <message>
        <source>Saccades, &amp;left eye</source>
        <translation>Sakady, &amp;lewe oko</translation>
    </message>
    <message>
        <source>Saccades of the left eye on the screen</source>
        <translation>Sakady lewego oka na ekranie</translation>
    </message>
    <message>
        <source>Saccades of the left eye on the screen: preview</source>
        <translation>Sakady lewego oka na ekranie: podgląd</translation>
    </message>
    <message>
        <source>Saccades, &amp;right eye</source>
        <translation>Sakady, p&amp;rawe oko</translation>
    </message>
    <message>
        <source>Saccades of the right eye on the screen</source>
        <translation>Sakady prawego oka na ekranie</translation>
    </message>
    <message>
        <source>Saccades of the right eye on the screen: preview</source>
        <translation>Sakady prawego oka na ekranie: podgląd</translation>
    </message>
    <message>
        <source>C&amp;urrent saccade</source>
        <translation>&amp;Bieżąca sakada</translation>
    </message>
    <message>
        <source>Current saccade on the screen</source>
        <translation>Bieżąca sakada na ekranie</translation>
    </message>
    <message>
        <source>Current saccade on the screen: preview</source>
        <translation>Bieżąca sakada na ekranie: podgląd</translation>
    </message>
    <message>
        <source>Blin&amp;ks</source>
        <translation>&amp;Mrugnięcia</translation>
    </message>
    <message>
        <source>Blinks on the screen</source>
        <translation>Mrugnięcia na ekranie</translation>
    </message>
    <message>
        <source>Blinks on the screen: preview</source>
        <translation>Mrugnięcia na ekranie: podgląd</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>Wydruk</translation>
    </message>
    <message>
        <source>Look of the charts on paper</source>
        <translation>Wygląd wykresów na wydruku</translation>
    </message>
    <message>
        <source>&amp;Print with a look of its own</source>
        <translation>&amp;Drukuj z osobnym wyglądem</translation>
    </message>
    <message>
        <source>Print the charts with the look of this page, and not with that of the screen</source>
        <translation>Drukuj wykresy z wyglądem z tej strony, a nie z wyglądem ekranowym</translation>
    </message>
    <message>
        <source>Print with a look of its own</source>
        <translation>Drukuj z osobnym wyglądem</translation>
    </message>
    <message>
        <source>Choose the font of the texts on paper; titles are bold and two points larger</source>
        <translation>Wybierz czcionkę tekstów na wydruku; tytuły są pogrubione i o dwa punkty większe</translation>
    </message>
    <message>
        <source>Font on paper</source>
        <translation>Czcionka na wydruku</translation>
    </message>
    <message>
        <source>Background on paper</source>
        <translation>Tło na wydruku</translation>
    </message>
    <message>
        <source>Frame and texts on paper</source>
        <translation>Ramka i teksty na wydruku</translation>
    </message>
    <message>
        <source>Grid lines on paper</source>
        <translation>Linie siatki na wydruku</translation>
    </message>
    <message>
        <source>Eye signal on paper</source>
        <translation>Sygnał oka na wydruku</translation>
    </message>
    <message>
        <source>Eye signal on paper: preview</source>
        <translation>Sygnał oka na wydruku: podgląd</translation>
    </message>
    <message>
        <source>Saccades of the left eye on paper</source>
        <translation>Sakady lewego oka na wydruku</translation>
    </message>
    <message>
        <source>Saccades of the left eye on paper: preview</source>
        <translation>Sakady lewego oka na wydruku: podgląd</translation>
    </message>
    <message>
        <source>Saccades of the right eye on paper</source>
        <translation>Sakady prawego oka na wydruku</translation>
    </message>
    <message>
        <source>Saccades of the right eye on paper: preview</source>
        <translation>Sakady prawego oka na wydruku: podgląd</translation>
    </message>
    <message>
        <source>Current saccade on paper</source>
        <translation>Bieżąca sakada na wydruku</translation>
    </message>
    <message>
        <source>Current saccade on paper: preview</source>
        <translation>Bieżąca sakada na wydruku: podgląd</translation>
    </message>
    <message>
        <source>Blinks on paper</source>
        <translation>Mrugnięcia na wydruku</translation>
    </message>
    <message>
        <source>Blinks on paper: preview</source>
        <translation>Mrugnięcia na wydruku: podgląd</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Tekst</translation>
    </message>
    <message>
        <source>Export of saccades, blinks, fixations and samples as text</source>
        <translation>Eksport sakad, mrugnięć, fiksacji i próbek jako tekst</translation>
    </message>
    <message>
        <source>Field &amp;separator</source>
        <translation>&amp;Separator pól</translation>
    </message>
    <message>
        <source>Choose what stands between the fields of a line</source>
        <translation>Wybierz, co rozdziela pola w wierszu</translation>
    </message>
    <message>
        <source>Field separator</source>
        <translation>Separator pól</translation>
    </message>
    <message>
        <source>Kept, without effect on the files</source>
        <translation>Zapamiętywane, bez wpływu na pliki</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Tytuł</translation>
    </message>
    <message>
        <source>Kept with the options; exports have no title line</source>
        <translation>Zapamiętywane w opcjach; eksportowane pliki nie mają wiersza tytułu</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Tytuł</translation>
    </message>
    <message>
        <source>&amp;File names</source>
        <translation>Nazwy &amp;plików</translation>
    </message>
    <message>
        <source>Kept with the options; exports of saccades and blinks always have the file names</source>
        <translation>Zapamiętywane w opcjach; pliki z sakadami i mrugnięciami zawsze zawierają nazwy plików</translation>
    </message>
    <message>
        <source>File names</source>
        <translation>Nazwy plików</translation>
    </message>
    <message>
        <source>Sampling f&amp;requency</source>
        <translation>&amp;Częstotliwość próbkowania</translation>
    </message>
    <message>
        <source>Kept with the options; exports of saccades and blinks always have the frequency</source>
        <translation>Zapamiętywane w opcjach; pliki z sakadami i mrugnięciami zawsze zawierają częstotliwość</translation>
    </message>
    <message>
        <source>Sampling frequency</source>
        <translation>Częstotliwość próbkowania</translation>
    </message>
    <message>
        <source>Fiel&amp;d names</source>
        <translation>&amp;Nazwy pól</translation>
    </message>
    <message>
        <source>Kept with the options; exports of saccades and blinks always have the line of field names</source>
        <translation>Zapamiętywane w opcjach; pliki z sakadami i mrugnięciami zawsze zawierają wiersz nazw pól</translation>
    </message>
    <message>
        <source>Field names</source>
        <translation>Nazwy pól</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Etykiety</translation>
    </message>
    <message>
        <source>Export of saccades and blinks as labels</source>
        <translation>Eksport sakad i mrugnięć jako etykiety</translation>
    </message>
    <message>
        <source>Labels belong to</source>
        <translation>Etykiety należą do</translation>
    </message>
    <message>
        <source>the eye &amp;signals</source>
        <translation>&amp;sygnałów oczu</translation>
    </message>
    <message>
        <source>One label for each signal that a saccade or blink was found in</source>
        <translation>Jedna etykieta na każdy sygnał, w którym znaleziono sakadę lub mrugnięcie</translation>
    </message>
    <message>
        <source>the eye signals</source>
        <translation>sygnałów oczu</translation>
    </message>
    <message>
        <source>the &amp;time</source>
        <translation>&amp;czasu</translation>
    </message>
    <message>
        <source>One label for each saccade or blink, across all signals</source>
        <translation>Jedna etykieta na każdą sakadę lub mrugnięcie, przez wszystkie sygnały</translation>
    </message>
    <message>
        <source>the time</source>
        <translation>czasu</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Kolory</translation>
    </message>
    <message>
        <source>S&amp;accades</source>
        <translation>Sa&amp;kady</translation>
    </message>
    <message>
        <source>Labels of saccades</source>
        <translation>Etykiety sakad</translation>
    </message>
    <message>
        <source>&amp;Blinks</source>
        <translation>&amp;Mrugnięcia</translation>
    </message>
    <message>
        <source>Labels of blinks</source>
        <translation>Etykiety mrugnięć</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Zapis</translation>
    </message>
    <message>
        <source>Export of the saccadic activity indexes as a recording</source>
        <translation>Eksport wskaźników aktywności sakadowej jako zapis</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Ok&amp;no</translation>
    </message>
    <message>
        <source>Length of the time that one index value counts</source>
        <translation>Długość czasu, z którego liczona jest jedna wartość wskaźnika</translation>
    </message>
    <message>
        <source>Window of the indexes</source>
        <translation>Okno wskaźników</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>&amp;Interval</source>
        <translation>O&amp;dstęp</translation>
    </message>
    <message>
        <source>Time from one index value to the next</source>
        <translation>Czas od jednej wartości wskaźnika do następnej</translation>
    </message>
    <message>
        <source>Interval of the indexes</source>
        <translation>Odstęp wskaźników</translation>
    </message>
    <message>
        <source>Proposed comment names</source>
        <translation>Proponowany komentarz podaje</translation>
    </message>
    <message>
        <source>the &amp;saccade file</source>
        <translation>plik &amp;sakad</translation>
    </message>
    <message>
        <source>The proposed comment tells the file of the saccades</source>
        <translation>Proponowany komentarz podaje plik sakad</translation>
    </message>
    <message>
        <source>the saccade file</source>
        <translation>plik sakad</translation>
    </message>
    <message>
        <source>the &amp;recording</source>
        <translation>&amp;zapis</translation>
    </message>
    <message>
        <source>The proposed comment tells the recording of the eye signals</source>
        <translation>Proponowany komentarz podaje zapis sygnałów oczu</translation>
    </message>
    <message>
        <source>the recording</source>
        <translation>zapis</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>Próbki</translation>
    </message>
    <message>
        <source>Export of the samples of saccades as text</source>
        <translation>Eksport próbek sakad jako tekst</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Wartości</translation>
    </message>
    <message>
        <source>&amp;Start each saccade at zero</source>
        <translation>&amp;Zaczynaj każdą sakadę od zera</translation>
    </message>
    <message>
        <source>Subtract the first sample of a saccade from all its samples</source>
        <translation>Odejmuj pierwszą próbkę sakady od wszystkich jej próbek</translation>
    </message>
    <message>
        <source>Start each saccade at zero</source>
        <translation>Zaczynaj każdą sakadę od zera</translation>
    </message>
    <message>
        <source>Re&amp;verse falling saccades</source>
        <translation>Od&amp;wracaj sakady opadające</translation>
    </message>
    <message>
        <source>Write the samples of a saccade that goes down from its end to its start</source>
        <translation>Zapisuj próbki sakady biegnącej w dół od jej końca do początku</translation>
    </message>
    <message>
        <source>Reverse falling saccades</source>
        <translation>Odwracaj sakady opadające</translation>
    </message>
    <message>
        <source>&amp;Arbitrary units</source>
        <translation>Jednostki &amp;umowne</translation>
    </message>
    <message>
        <source>Kept with the options; samples are written in degrees</source>
        <translation>Zapamiętywane w opcjach; próbki są zapisywane w stopniach</translation>
    </message>
    <message>
        <source>Arbitrary units</source>
        <translation>Jednostki umowne</translation>
    </message>
    <message>
        <source>Calibration &amp;factor</source>
        <translation>Współczynnik &amp;kalibracji</translation>
    </message>
    <message>
        <source>Kept with the options; the export of samples does not write it</source>
        <translation>Zapamiętywane w opcjach; pliki z próbkami tego nie zawierają</translation>
    </message>
    <message>
        <source>Calibration factor</source>
        <translation>Współczynnik kalibracji</translation>
    </message>
    <message>
        <source>Calibration &amp;unit</source>
        <translation>&amp;Jednostka kalibracji</translation>
    </message>
    <message>
        <source>Calibration unit</source>
        <translation>Jednostka kalibracji</translation>
    </message>
    <message>
        <source>Sampling fre&amp;quency</source>
        <translation>&amp;Częstotliwość próbkowania</translation>
    </message>
    <message>
        <source>&amp;Number of the saccade</source>
        <translation>&amp;Numer sakady</translation>
    </message>
    <message>
        <source>Kept with the options; the export of samples always writes it</source>
        <translation>Zapamiętywane w opcjach; pliki z próbkami zawsze to zawierają</translation>
    </message>
    <message>
        <source>Number of the saccade</source>
        <translation>Numer sakady</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>Ki&amp;erunek</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Kierunek</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Obrazy</translation>
    </message>
    <message>
        <source>Pictures of saccade profiles and of the main sequence</source>
        <translation>Obrazy profili sakad i sekwencji głównej</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Szerokość</translation>
    </message>
    <message>
        <source>Width of a saved picture</source>
        <translation>Szerokość zapisywanego obrazu</translation>
    </message>
    <message>
        <source>Width of a picture</source>
        <translation>Szerokość obrazu</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>&amp;Wysokość</translation>
    </message>
    <message>
        <source>Height of a saved picture</source>
        <translation>Wysokość zapisywanego obrazu</translation>
    </message>
    <message>
        <source>Height of a picture</source>
        <translation>Wysokość obrazu</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>&amp;Format</translation>
    </message>
    <message>
        <source>Which kind of file is offered first</source>
        <translation>Który rodzaj pliku jest proponowany jako pierwszy</translation>
    </message>
    <message>
        <source>Format of a picture</source>
        <translation>Format obrazu</translation>
    </message>
</context>
<context>
    <name>SaccadeDocument</name>
    <message>
        <source>Detect again</source>
        <translation>ponowne wykrycie</translation>
    </message>
    <message>
        <source>Add saccade</source>
        <translation>dodanie sakady</translation>
    </message>
    <message>
        <source>Remove saccade</source>
        <translation>usunięcie sakady</translation>
    </message>
    <message>
        <source>Remove %1 saccades</source>
        <translation>usunięcie sakad (%1)</translation>
    </message>
    <message>
        <source>this is the recording itself</source>
        <translation>to jest sam zapis</translation>
    </message>
    <message>
        <source>there is a recording of this name, which is not replaced</source>
        <translation>pod tą nazwą jest zapis, który nie zostanie zastąpiony</translation>
    </message>
</context>
<context>
    <name>SaccadeSelection</name>
    <message>
        <source> [sample]</source>
        <translation> [próbka]</translation>
    </message>
    <message>
        <source> [s]</source>
        <translation> [s]</translation>
    </message>
    <message>
        <source> [min]</source>
        <translation> [min]</translation>
    </message>
    <message>
        <source> [hour]</source>
        <translation> [godz.]</translation>
    </message>
    <message>
        <source> [ms]</source>
        <translation> [ms]</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nr</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Początek</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Czas trwania</translation>
    </message>
    <message>
        <source>Fixation</source>
        <translation>Fiksacja</translation>
    </message>
    <message>
        <source>Amplitude [deg]</source>
        <translation>Amplituda [deg]</translation>
    </message>
    <message>
        <source>Peak velocity [deg/s]</source>
        <translation>Prędk. szczyt. [deg/s]</translation>
    </message>
    <message>
        <source>Select saccades</source>
        <translation>Wybór sakad</translation>
    </message>
</context>
</TS>
