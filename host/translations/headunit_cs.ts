<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="cs_CZ">
<context>
    <name>BaseBar</name>
    <message>
        <source>Home</source>
        <translation>Domů</translation>
    </message>
</context>
<context>
    <name>HomeScreen</name>
    <message>
        <source>Home</source>
        <translation>Domů</translation>
    </message>
</context>
<context>
    <name>HostInputPanel</name>
    <message>
        <source>Set region</source>
        <translation>Nastavit oblast</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>Tlačítko FM</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>Tlačítko AM</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Předchozí</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Další</translation>
    </message>
    <message>
        <source>Stream on</source>
        <translation>Zapnout stream</translation>
    </message>
    <message>
        <source>Stream off</source>
        <translation>Vypnout stream</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Tlačítko napájení</translation>
    </message>
    <message>
        <source>Set temperature</source>
        <translation>Nastavit teplotu</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Couvání</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ztlumení</translation>
    </message>
    <message>
        <source>Host inputs</source>
        <translation>Vstupy hostitele</translation>
    </message>
    <message>
        <source>Region </source>
        <translation>Oblast </translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Jazyk: %1</translation>
    </message>
</context>
<context>
    <name>HostShortcuts</name>
    <message>
        <source>Home screen</source>
        <translation>Domovská obrazovka</translation>
    </message>
    <message>
        <source>Radio screen</source>
        <translation>Obrazovka rádia</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>Tlačítko FM</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>Tlačítko AM</translation>
    </message>
    <message>
        <source>Previous key</source>
        <translation>Tlačítko předchozí</translation>
    </message>
    <message>
        <source>Next key</source>
        <translation>Tlačítko další</translation>
    </message>
    <message>
        <source>Audio stream on/off</source>
        <translation>Stream zap./vyp.</translation>
    </message>
    <message>
        <source>Region -1</source>
        <translation>Oblast -1</translation>
    </message>
    <message>
        <source>Region +1</source>
        <translation>Oblast +1</translation>
    </message>
    <message>
        <source>Reversing on/off</source>
        <translation>Couvání zap./vyp.</translation>
    </message>
    <message>
        <source>Temperature -1 °C</source>
        <translation>Teplota -1 °C</translation>
    </message>
    <message>
        <source>Temperature +1 °C</source>
        <translation>Teplota +1 °C</translation>
    </message>
    <message>
        <source>Mute on/off</source>
        <translation>Ztlumení</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Tlačítko napájení</translation>
    </message>
    <message>
        <source>Next language</source>
        <translation>Další jazyk</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Ukončit</translation>
    </message>
</context>
<context>
    <name>HostStatusPanel</name>
    <message>
        <source>Activity</source>
        <translation>Aktivita</translation>
    </message>
    <message>
        <source>Radio info</source>
        <translation>Info rádia</translation>
    </message>
    <message>
        <source>PS</source>
        <translation>PS</translation>
    </message>
    <message>
        <source>PTY</source>
        <translation>PTY</translation>
    </message>
    <message>
        <source>Flags</source>
        <translation>Příznaky</translation>
    </message>
    <message>
        <source>Audio stream</source>
        <translation>Zvukový stream</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ztlumení</translation>
    </message>
    <message>
        <source>Hard mute</source>
        <translation>Tvrdé ztlumení</translation>
    </message>
    <message>
        <source>Play state</source>
        <translation>Přehrávání</translation>
    </message>
    <message>
        <source>Band / preset</source>
        <translation>Pásmo / předvolba</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Oblast</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Couvání</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Teplota</translation>
    </message>
    <message>
        <source>Records to module</source>
        <translation>Záznamy pro modul</translation>
    </message>
    <message>
        <source>Last host input</source>
        <translation>Poslední vstup hostitele</translation>
    </message>
    <message>
        <source>Host side of the radio</source>
        <translation>Strana hostitele rádia</translation>
    </message>
    <message>
        <source>none</source>
        <translation>nic</translation>
    </message>
    <message>
        <source>no audio input</source>
        <translation>žádný zvukový vstup</translation>
    </message>
    <message>
        <source>on</source>
        <translation>zapnuto</translation>
    </message>
    <message>
        <source>off</source>
        <translation>vypnuto</translation>
    </message>
    <message>
        <source>playing</source>
        <translation>hraje</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>pozastaveno</translation>
    </message>
    <message>
        <source>%1, preset %2</source>
        <translation>%1, předvolba %2</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ano</translation>
    </message>
    <message>
        <source>no</source>
        <translation>ne</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>bez údaje</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Radio</source>
        <translation>Rádio</translation>
    </message>
</context>
<context>
    <name>SetupEqView</name>
    <message>
        <source>Equalizer</source>
        <translation>Ekvalizér</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Obnovit</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zpět</translation>
    </message>
</context>
</TS>
