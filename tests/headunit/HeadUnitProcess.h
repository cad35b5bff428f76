#ifndef HEADUNITPROCESS_H
#define HEADUNITPROCESS_H

#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// radio-headunit as a child process, observed the way a tester would:
// widget-tree snapshots on SIGUSR1 (--dump) and the test-control channel
// on its standard input (--control-stdin). Waits are bounded event-loop
// waits.
class HeadUnitProcess
{
public:
    HeadUnitProcess();
    ~HeadUnitProcess();

    // Starts the shell with --dump, --control-stdin and a settings file of
    // its own, plus extraArgs. False when it did not start.
    bool start(const QString& program, const QStringList& extraArgs);
    // Closes the control channel with "quit" and waits for the exit;
    // kills the process when it does not exit in time. Returns the exit code
    // (-1 after a crash or kill).
    int stop();

    // Sends one command; returns its "control: ..." answer without the
    // prefix, or an empty string when none came within timeoutMs.
    QString command(const QString& line, int timeoutMs = 15000);
    // A fresh snapshot: SIGUSR1, then the file's next sequence number.
    // Empty when none came within timeoutMs.
    QJsonObject snapshot(int timeoutMs = 5000);

    QProcess& process() { return m_process; }
    QString dumpFile() const;
    QString standardError();

    // The node of the widget named `name` in a snapshot: the first visible
    // one, else the first one; empty when there is none.
    static QJsonObject findNode(const QJsonObject& snapshot, const QString& name);
    static QJsonObject state(const QJsonObject& snapshot, const QString& name);
    static bool isVisible(const QJsonObject& snapshot, const QString& name);

private:
    void readOutput();

    QTemporaryDir m_dir;
    QProcess m_process;
    QByteArray m_stdoutBuffer;
    QStringList m_answers;
    QByteArray m_stderr;
    int m_lastSequence = 0;
};

#endif
