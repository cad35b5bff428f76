#ifndef UNIXSIGNALNOTIFIER_H
#define UNIXSIGNALNOTIFIER_H

#include <QObject>

class QSocketNotifier;

// Turns a POSIX signal into a Qt signal on the GUI thread. The handler
// only writes one byte into a pipe (async-signal-safe); a socket notifier
// on the pipe's other end emits activated() from the event loop. One
// notifier per signal number at a time.
class UnixSignalNotifier : public QObject
{
    Q_OBJECT
public:
    UnixSignalNotifier(int signalNumber, QObject* parent = nullptr);
    ~UnixSignalNotifier() override;

    // False when the pipe or the handler could not be set up, or another
    // notifier already owns the signal (logged).
    bool isValid() const { return m_notifier != nullptr; }
    int signalNumber() const { return m_signal; }

signals:
    // Once per batch of signals that arrived since the last emission.
    void activated();

private:
    static void handler(int signalNumber);
    void drain();

    int m_signal;
    int m_pipe[2] = {-1, -1};
    QSocketNotifier* m_notifier = nullptr;
};

#endif
