<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL">
<context>
    <name>BdfImporter</name>
    <message>
        <source>Identification code not recognized (%1, hex 0x%2)</source>
        <translation>Nierozpoznany kod identyfikacyjny (%1, szesn. 0x%2)</translation>
    </message>
    <message>
        <source>Identification code not recognized (%1)</source>
        <translation>Nierozpoznany kod identyfikacyjny (%1)</translation>
    </message>
    <message>
        <source>Incorrect value of header record bytes number (%1)</source>
        <translation>Nieprawidłowa liczba bajtów nagłówka (%1)</translation>
    </message>
    <message>
        <source>Incorrect value of data records number (%1)</source>
        <translation>Nieprawidłowa liczba rekordów danych (%1)</translation>
    </message>
    <message>
        <source>Incorrect value of data record duration (%1)</source>
        <translation>Nieprawidłowy czas trwania rekordu danych (%1)</translation>
    </message>
    <message>
        <source>Incorrect value of channels number (%1)</source>
        <translation>Nieprawidłowa liczba kanałów (%1)</translation>
    </message>
    <message>
        <source>Incorrect value of data record samples count (%1) for channel %2 (no %3)</source>
        <translation>Nieprawidłowa liczba próbek w rekordzie danych (%1) kanału %2 (nr %3)</translation>
    </message>
    <message>
        <source>Incorrect value of physical minimum (%1) for channel %2 (no %3)</source>
        <translation>Nieprawidłowe minimum fizyczne (%1) kanału %2 (nr %3)</translation>
    </message>
    <message>
        <source>Incorrect value of physical maximum (%1) for channel %2 (no %3)</source>
        <translation>Nieprawidłowe maksimum fizyczne (%1) kanału %2 (nr %3)</translation>
    </message>
    <message>
        <source>Incorrect value of digital minimum (%1) for channel %2 (no %3)</source>
        <translation>Nieprawidłowe minimum cyfrowe (%1) kanału %2 (nr %3)</translation>
    </message>
    <message>
        <source>Incorrect value of digital maximum (%1) for channel %2 (no %3)</source>
        <translation>Nieprawidłowe maksimum cyfrowe (%1) kanału %2 (nr %3)</translation>
    </message>
    <message>
        <source>The file has %1 channels, and a recording can hold at most %2</source>
        <translation>Plik ma %1 kanałów, a zapis może ich zawierać najwyżej %2</translation>
    </message>
    <message>
        <source>Incorrect value of data record bytes number (%1)</source>
        <translation>Nieprawidłowa liczba bajtów rekordu danych (%1)</translation>
    </message>
    <message>
        <source>Failed to open file %1</source>
        <translation>Nie udało się otworzyć pliku %1</translation>
    </message>
    <message>
        <source>The file contains no data or header is invalid (size &lt; 512 bytes)</source>
        <translation>Plik nie zawiera danych lub nagłówek jest nieprawidłowy (rozmiar &lt; 512 bajtów)</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>Za mało pamięci</translation>
    </message>
    <message>
        <source>Data file header not loaded!</source>
        <translation>Nagłówek pliku danych nie został wczytany!</translation>
    </message>
    <message>
        <source>Incorrect value of first data record (%1 of %2)</source>
        <translation>Nieprawidłowy numer pierwszego rekordu danych (%1 z %2)</translation>
    </message>
    <message>
        <source>The destination is the imported file itself (%1)</source>
        <translation>Plik docelowy jest tym samym plikiem, który jest importowany (%1)</translation>
    </message>
    <message>
        <source>The recording would have %1 packets of %2 bytes, and only files below %3 bytes can be read. Import a part of the data records.</source>
        <translation>Zapis miałby %1 pakietów po %2 bajtów, a odczytać można tylko pliki mniejsze niż %3 bajtów. Zaimportuj część rekordów danych.</translation>
    </message>
    <message>
        <source>Failed to read file %1</source>
        <translation>Nie udało się odczytać pliku %1</translation>
    </message>
    <message>
        <source>Failed to write file %1 (%2)</source>
        <translation>Nie udało się zapisać pliku %1 (%2)</translation>
    </message>
    <message>
        <source>no %1</source>
        <translation>nr %1</translation>
    </message>
    <message>
        <source> and %1 more</source>
        <translation> i jeszcze %1</translation>
    </message>
    <message>
        <source>The file is a BDF file, but its reserved field holds &quot;%1&quot; and not &quot;%2&quot;: its samples are read as 16-bit numbers.</source>
        <translation>Plik jest plikiem BDF, ale jego pole zarezerwowane zawiera „%1”, a nie „%2”: próbki są odczytywane jako liczby 16-bitowe.</translation>
    </message>
    <message>
        <source>The import keeps no offset, so that physical zero reads as another value in: %1.</source>
        <translation>Import nie zachowuje przesunięcia, więc fizyczne zero jest odczytywane jako inna wartość w: %1.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 do %2</translation>
    </message>
    <message>
        <source>The range is inverted, so that samples are stored as they are, without calibration, in: %1.</source>
        <translation>Zakres jest odwrócony, więc próbki są zapisane bez zmian i bez kalibracji w: %1.</translation>
    </message>
    <message>
        <source>The gain is too small for the import to keep it, so that samples are stored as they are, without calibration, in (value of one step): %1.</source>
        <translation>Wzmocnienie jest za małe, aby import mógł je zachować, więc próbki są zapisane bez zmian i bez kalibracji w (wartość jednego kroku): %1.</translation>
    </message>
</context>
<context>
    <name>EyeSignals</name>
    <message>
        <source>Error while loading horizontal eye position samples!</source>
        <translation>Błąd podczas wczytywania próbek poziomej pozycji oka!</translation>
    </message>
    <message>
        <source>Error while loading vertical eye position samples!</source>
        <translation>Błąd podczas wczytywania próbek pionowej pozycji oka!</translation>
    </message>
    <message>
        <source>Error while loading horizontal left eye position samples!</source>
        <translation>Błąd podczas wczytywania próbek poziomej pozycji lewego oka!</translation>
    </message>
    <message>
        <source>Error while loading vertical left eye position samples!</source>
        <translation>Błąd podczas wczytywania próbek pionowej pozycji lewego oka!</translation>
    </message>
    <message>
        <source>Calibration factor not entered. Cannot proceed.</source>
        <translation>Nie podano współczynnika kalibracji. Nie można kontynuować.</translation>
    </message>
    <message>
        <source>There is not enough memory for the eye signals. Close other programs and try again.</source>
        <translation>Za mało pamięci na sygnały oczu. Zamknij inne programy i spróbuj ponownie.</translation>
    </message>
</context>
<context>
    <name>SafeFile</name>
    <message>
        <source>Not all bytes could be written</source>
        <translation>Nie udało się zapisać wszystkich bajtów</translation>
    </message>
</context>
</TS>
