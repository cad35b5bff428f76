#ifndef HEADUNITSHELL_H
#define HEADUNITSHELL_H

#include "HeadUnitOptions.h"

#include <QJsonObject>
#include <QObject>
#include <QString>

#include <memory>

class ActivityPluginLoader;
class ControlChannel;
class ControlCommands;
class HeadUnitWindow;
class HomeActivity;
class HostInputs;
class HostShortcuts;
class LanguageSwitch;
class RadioModule;
class UnixSignalNotifier;

// The head unit: host singletons, the "radio" and "auxin" modules, the
// display language, the window with UI layer 1, the home activity, the activity plugins, and the
// shell's own tools (snapshot on SIGUSR1, control channel, tour).
class HeadUnitShell : public QObject
{
    Q_OBJECT
public:
    explicit HeadUnitShell(const HeadUnitOptions& options, QObject* parent = nullptr);
    ~HeadUnitShell() override;

    // Sets everything up and starts the radio. Returns 0, or the process
    // exit code when the head unit cannot run (reason logged).
    int start();
    // Runs the tour of --tour; returns the exit code.
    int runTour();

    HeadUnitWindow* window() const { return m_window.get(); }
    HostInputs* inputs() const { return m_inputs; }
    LanguageSwitch* languages() const { return m_languages; }

    // The snapshot document (see README.md).
    QJsonObject dumpDocument();
    bool writeDump(const QString& path, QString* error);

private:
    void createHost();
    void dumpOnSignal();

    HeadUnitOptions m_options;
    std::unique_ptr<HeadUnitWindow> m_window;
    std::unique_ptr<ActivityPluginLoader> m_plugins;
    LanguageSwitch* m_languages = nullptr;
    HostInputs* m_inputs = nullptr;
    HomeActivity* m_home = nullptr;
    HostShortcuts* m_shortcuts = nullptr;
    UnixSignalNotifier* m_dumpSignal = nullptr;
    ControlCommands* m_commands = nullptr;
    ControlChannel* m_control = nullptr;
    int m_dumpCount = 0;
};

#endif
