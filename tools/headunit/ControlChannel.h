#ifndef CONTROLCHANNEL_H
#define CONTROLCHANNEL_H

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <cstdio>

class ControlCommands;
class QSocketNotifier;

// Reads control commands line by line from a file descriptor (the shell's
// standard input) without blocking the event loop, runs them one after the
// other through ControlCommands, and writes each answer as one line
// "control: <answer>" to `out`. A command that waits (longpress) holds
// back the lines after it until it is done. Lines longer than 4 KiB are
// answered with an error and dropped.
class ControlChannel : public QObject
{
    Q_OBJECT
public:
    static constexpr int MaxLine = 4096;

    ControlChannel(int fd, ControlCommands* commands, FILE* out, QObject* parent = nullptr);
    ~ControlChannel() override;

    bool atEnd() const { return m_atEnd; }

signals:
    // The input was closed; the lines read before have all been run.
    void closed();

private:
    void readAvailable();
    void runQueued();
    void answer(const QString& text);

    int m_fd;
    int m_savedFlags;
    ControlCommands* m_commands;
    FILE* m_out;
    QSocketNotifier* m_notifier;
    QByteArray m_partial;
    bool m_discarding = false;
    QStringList m_queue;
    bool m_running = false;
    bool m_atEnd = false;
};

#endif
