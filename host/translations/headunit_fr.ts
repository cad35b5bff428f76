<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>BaseBar</name>
    <message>
        <source>Home</source>
        <translation>Accueil</translation>
    </message>
</context>
<context>
    <name>HomeScreen</name>
    <message>
        <source>Home</source>
        <translation>Accueil</translation>
    </message>
</context>
<context>
    <name>HostInputPanel</name>
    <message>
        <source>Set region</source>
        <translation>Définir la région</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>Touche FM</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>Touche AM</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Stream on</source>
        <translation>Activer le flux</translation>
    </message>
    <message>
        <source>Stream off</source>
        <translation>Couper le flux</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Marche/arrêt</translation>
    </message>
    <message>
        <source>Set temperature</source>
        <translation>Régler la temp.</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Marche arrière</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Sourdine</translation>
    </message>
    <message>
        <source>Host inputs</source>
        <translation>Entrées de l&apos;hôte</translation>
    </message>
    <message>
        <source>Region </source>
        <translation>Région </translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Langue&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>HostShortcuts</name>
    <message>
        <source>Home screen</source>
        <translation>Écran d&apos;accueil</translation>
    </message>
    <message>
        <source>Radio screen</source>
        <translation>Écran radio</translation>
    </message>
    <message>
        <source>FM key</source>
        <translation>Touche FM</translation>
    </message>
    <message>
        <source>AM key</source>
        <translation>Touche AM</translation>
    </message>
    <message>
        <source>Previous key</source>
        <translation>Touche précédent</translation>
    </message>
    <message>
        <source>Next key</source>
        <translation>Touche suivant</translation>
    </message>
    <message>
        <source>Audio stream on/off</source>
        <translation>Flux audio</translation>
    </message>
    <message>
        <source>Region -1</source>
        <translation>Région -1</translation>
    </message>
    <message>
        <source>Region +1</source>
        <translation>Région +1</translation>
    </message>
    <message>
        <source>Reversing on/off</source>
        <translation>Marche arrière</translation>
    </message>
    <message>
        <source>Temperature -1 °C</source>
        <translation>Température -1 °C</translation>
    </message>
    <message>
        <source>Temperature +1 °C</source>
        <translation>Température +1 °C</translation>
    </message>
    <message>
        <source>Mute on/off</source>
        <translation>Sourdine</translation>
    </message>
    <message>
        <source>Power key</source>
        <translation>Marche/arrêt</translation>
    </message>
    <message>
        <source>Next language</source>
        <translation>Langue suivante</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>HostStatusPanel</name>
    <message>
        <source>Activity</source>
        <translation>Activité</translation>
    </message>
    <message>
        <source>Radio info</source>
        <translation>Infos radio</translation>
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
        <translation>Indicateurs</translation>
    </message>
    <message>
        <source>Audio stream</source>
        <translation>Flux audio</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Sourdine</translation>
    </message>
    <message>
        <source>Hard mute</source>
        <translation>Sourdine matérielle</translation>
    </message>
    <message>
        <source>Play state</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Band / preset</source>
        <translation>Bande / présélection</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Région</translation>
    </message>
    <message>
        <source>Reversing</source>
        <translation>Marche arrière</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Température</translation>
    </message>
    <message>
        <source>Records to module</source>
        <translation>Trames vers le module</translation>
    </message>
    <message>
        <source>Last host input</source>
        <translation>Dernière entrée hôte</translation>
    </message>
    <message>
        <source>Host side of the radio</source>
        <translation>Côté hôte de la radio</translation>
    </message>
    <message>
        <source>none</source>
        <translation>néant</translation>
    </message>
    <message>
        <source>no audio input</source>
        <translation>pas d&apos;entrée audio</translation>
    </message>
    <message>
        <source>on</source>
        <translation>marche</translation>
    </message>
    <message>
        <source>off</source>
        <translation>arrêt</translation>
    </message>
    <message>
        <source>playing</source>
        <translation>lecture</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>pause</translation>
    </message>
    <message>
        <source>%1, preset %2</source>
        <translation>%1, présélection %2</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>pas de mesure</translation>
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
        <translation>Égaliseur</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinit.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
</context>
</TS>
