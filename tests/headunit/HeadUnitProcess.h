#ifndef HEADUNITPROCESS_H
#define HEADUNITPROCESS_H

#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

// radio-headunit as a child process, seen as a tester sees it: snapshots
// of the widget tree on SIGUSR1 (--dump) and commands on its control
// channel (--control-stdin), each waited for with the event loop running.
class HeadUnitProcess
{
public:
    ~HeadUnitProcess() { stop(); }

    // Starts the shell with a settings file of its own and waits for its
    // first answer, which comes once the screen is up.
    bool start(const QStringList& args);
    // "quit", then the exit code; -1 after a crash or a kill.
    int stop();
    // The answer to one command without "control: ", "" when none came.
    QString command(const QString& line, int timeoutMs = 15000);
    // A snapshot taken after the call; empty when none came.
    QJsonObject snapshot();

    // The value at a dotted path ("host.region"; "SeekUp/state.text" for
    // the first visible widget named SeekUp) as text: objects and arrays
    // as compact JSON.
    static QString value(const QJsonObject& snapshot, const QString& path);

    QProcess process;
    QTemporaryDir dir;
    QByteArray errors;

private:
    QStringList m_answers;
    QByteArray m_partial;
    int m_sequence = 0;
};

#endif
