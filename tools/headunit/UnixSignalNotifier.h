#ifndef UNIXSIGNALNOTIFIER_H
#define UNIXSIGNALNOTIFIER_H

#include <QObject>

class QSocketNotifier;

// Turns a POSIX signal into a Qt signal on the GUI thread. The handler
// only writes one byte into a pipe (async-signal-safe); a socket notifier
// on the pipe's other end emits activated() from the event loop.
//
// catchSignal() installs that handler for the rest of the process's life,
// before any Qt object exists if need be: from then on the signal never
// ends the process, and deliveries wait in the pipe until a notifier
// takes them (the notifier reports them from its first event loop turn).
// A notifier going away leaves the handler in place. One notifier per
// signal number at a time.
class UnixSignalNotifier : public QObject
{
    Q_OBJECT
public:
    UnixSignalNotifier(int signalNumber, QObject* parent = nullptr);
    ~UnixSignalNotifier() override;

    // False when the signal cannot be caught (logged). Idempotent.
    static bool catchSignal(int signalNumber);

    // False when the signal could not be caught, or another notifier
    // already owns it (logged).
    bool isValid() const { return m_notifier != nullptr; }
    int signalNumber() const { return m_signal; }

    // Empties the pipe without waiting for the event loop; true when a
    // delivery was waiting.
    bool takePending();

signals:
    // Once per batch of signals that arrived since the last emission.
    void activated();

private:
    static void handler(int signalNumber);
    void drain();

    int m_signal;
    QSocketNotifier* m_notifier = nullptr;
};

#endif
