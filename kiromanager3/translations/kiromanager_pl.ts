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
        <source>The file %1 already exists.
Do you want to replace it?</source>
        <translation>Plik %1 już istnieje.
Czy chcesz go zastąpić?</translation>
    </message>
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
    <name>ReviewFrame</name>
    <message>
        <source>Signals browser</source>
        <translation>Przeglądarka sygnałów</translation>
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
</context>
</TS>
