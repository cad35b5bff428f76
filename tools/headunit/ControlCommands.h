#ifndef CONTROLCOMMANDS_H
#define CONTROLCOMMANDS_H

#include <QObject>
#include <QString>

#include <functional>

class ActivityPluginLoader;
class HostInputs;
class QWidget;

// The test-control commands of the shell, one per line:
//   click NAME             press and release on the widget named NAME
//   longpress NAME [MS]    the same, held MS ms (default: past its threshold)
//   tap X Y [MS]           press and release at window point X,Y through
//                          the window, as a pointer device would
//   host region N | host fm | host am | host next | host prev
//   host stream on|off | host power | host reversing on|off
//   host temperature C | host mute on|off
//   activity NAME          switch the head unit to an activity
//   dump [FILE]            write the snapshot now (default: the --dump file)
//   capture start FILE | capture stop
//                          record the radio's tuner link into a pcapng file
//   quit
// Each command answers one line: "ok <command>[ <detail>]" or
// "error <command>: <reason>".
class ControlCommands : public QObject
{
    Q_OBJECT
public:
    using DumpFn = std::function<bool(const QString& path, QString* error)>;

    ControlCommands(QWidget* window, HostInputs* inputs, DumpFn dump, const QString& defaultDumpFile,
                    QObject* parent = nullptr);

    QString execute(const QString& line);
    // Where the capture commands find the radio plugin's link.
    void setPlugins(const ActivityPluginLoader* plugins) { m_plugins = plugins; }

signals:
    void quitRequested();

private:
    QString host(const QStringList& words, const QString& line);
    QString capture(const QStringList& words, const QString& line);

    QWidget* m_window;
    HostInputs* m_inputs;
    DumpFn m_dump;
    QString m_defaultDumpFile;
    const ActivityPluginLoader* m_plugins = nullptr;
};

#endif
