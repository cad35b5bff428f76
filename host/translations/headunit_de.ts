<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BaseBar</name>
    <message>
        <source>Home</source>
        <translation>Start</translation>
    </message>
</context>
<context>
    <name>HomeScreen</name>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
</context>
<context>
    <name>HostInputPanel</name>
    <message>
        <source>Set region</source>
        <translation>Region setzen</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>FM-Taste</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>AM-Taste</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Stream on</source>
        <translation>Stream ein</translation>
    </message>
    <message>
        <source>Stream off</source>
        <translation>Stream aus</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Ein/Aus-Taste</translation>
    </message>
    <message>
        <source>Set temperature</source>
        <translation>Temperatur setzen</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Rückwärtsgang</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stummschaltung</translation>
    </message>
    <message>
        <source>Host inputs</source>
        <translation>Host-Eingaben</translation>
    </message>
    <message>
        <source>Region </source>
        <translation>Region </translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Sprache: %1</translation>
    </message>
</context>
<context>
    <name>HostShortcuts</name>
    <message>
        <source>Home screen</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>Radio screen</source>
        <translation>Radiobildschirm</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>FM-Taste</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>AM-Taste</translation>
    </message>
    <message>
        <source>Previous key</source>
        <translation>Zurück-Taste</translation>
    </message>
    <message>
        <source>Next key</source>
        <translation>Weiter-Taste</translation>
    </message>
    <message>
        <source>Audio stream on/off</source>
        <translation>Audiostream ein/aus</translation>
    </message>
    <message>
        <source>Region -1</source>
        <translation>Region -1</translation>
    </message>
    <message>
        <source>Region +1</source>
        <translation>Region +1</translation>
    </message>
    <message>
        <source>Reversing on/off</source>
        <translation>Rückwärts ein/aus</translation>
    </message>
    <message>
        <source>Temperature -1 °C</source>
        <translation>Temperatur -1 °C</translation>
    </message>
    <message>
        <source>Temperature +1 °C</source>
        <translation>Temperatur +1 °C</translation>
    </message>
    <message>
        <source>Mute on/off</source>
        <translation>Stumm ein/aus</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Ein/Aus-Taste</translation>
    </message>
    <message>
        <source>Next language</source>
        <translation>Nächste Sprache</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>HostStatusPanel</name>
    <message>
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message>
        <source>Radio info</source>
        <translation>Radio-Info</translation>
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
        <translation>Flags</translation>
    </message>
    <message>
        <source>Audio stream</source>
        <translation>Audiostream</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stummschaltung</translation>
    </message>
    <message>
        <source>Hard mute</source>
        <translation>Harte Stummschaltung</translation>
    </message>
    <message>
        <source>Play state</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Band / preset</source>
        <translation>Band / Speicher</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Region</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Rückwärtsgang</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Records to module</source>
        <translation>Datensätze an Modul</translation>
    </message>
    <message>
        <source>Last host input</source>
        <translation>Letzte Host-Eingabe</translation>
    </message>
    <message>
        <source>Host side of the radio</source>
        <translation>Host-Seite des Radios</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>no audio input</source>
        <translation>kein Audioeingang</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>playing</source>
        <translation>spielt</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>pausiert</translation>
    </message>
    <message>
        <source>%1, preset %2</source>
        <translation>%1, Speicher %2</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>kein Messwert</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
</context>
<context>
    <name>SetupEqView</name>
    <message>
        <source>Equalizer</source>
        <translation>Equalizer</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Neutral</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
</TS>
