#ifndef HEADUNITOPTIONS_H
#define HEADUNITOPTIONS_H

#include <QString>
#include <QStringList>

// The shell's command line.
class HeadUnitOptions
{
public:
    // Folder the activity plugins are loaded from (--plugins).
    QString pluginDir;
    // Settings store file (--settings).
    QString settingsFile;
    // File the widget-tree snapshot is written to on SIGUSR1 (--dump).
    QString dumpFile;
    // Folder of the scripted session's screenshots (--tour); empty: no tour.
    QString tourDir;
    // Read test-control commands from standard input (--control-stdin).
    bool controlStdin = false;
    bool frameless = false;
    bool fullscreen = false;
    // Host region reported once the radio has started (--region); -1: none.
    int region = -1;
    // Display language (--lang): "en", "de", "fr" or "cs"; empty: the
    // locale's, English when the head unit has no catalogue for it.
    QString language;
    bool helpRequested = false;

    // Parses args (args[0] is the program). On a bad command line returns
    // false and says why in *error. Defaults need a QCoreApplication.
    bool parse(const QStringList& args, QString* error);

    static QString helpText();
    // <executable's folder>/activities: where the build puts the plugins.
    static QString defaultPluginDir();
    // <XDG config>/headunit/settings.ini.
    static QString defaultSettingsFile();
};

#endif
