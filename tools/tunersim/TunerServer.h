#ifndef TUNERSERVER_H
#define TUNERSERVER_H

#include "FrameAssembler.h"
#include "RadioCmdFromMCU.h"
#include "RecordMemory.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

class QSocketNotifier;
class TunerEngine;

// The socket side of the simulator: listens on an abstract UNIX address,
// serves one screen at a time (a new connection replaces the old one),
// feeds its command frames to the engine, and sends the whole state on
// connect and on request, afterwards only the records that changed.
// Without an engine (a replay) frames are only traced and nothing goes out
// but what send() is given.
class TunerServer : public QObject
{
    Q_OBJECT
public:
    // Records waiting for a screen that does not read are capped; past
    // this the screen is dropped rather than the simulator growing.
    static constexpr int kMaxPendingBytes = 1 << 20;

    explicit TunerServer(TunerEngine* engine, QObject* parent = nullptr);
    ~TunerServer() override;

    // Binds "\0<name>" with the address length 2 + 1 + strlen(name).
    bool listen(const QString& name, QString* error);
    bool hasClient() const { return m_client >= 0; }
    // Bytes of a frame the screen has only partly written so far.
    int pendingFrameBytes() const { return m_frames.pendingBytes(); }
    // Queues the record for the screen and writes what the socket takes.
    void send(const tag_RadioCmdFromMCU& record);

    // Receives one line per frame received and record sent.
    void setTraceSink(std::function<void(const QString&)> sink) { m_trace = std::move(sink); }
    // Receives connection events and the engine's notes.
    void setLogSink(std::function<void(const QString&)> sink) { m_log = std::move(sink); }

signals:
    void clientConnected();
    // unsentBytes: the tail of the queued records that never reached the
    // socket and is dropped with the screen.
    void clientDisconnected(int unsentBytes);
    // Everything queued so far is in the socket.
    void outputDrained();

private:
    void acceptPending();
    void readClient();
    void flushOutput();
    void dropClient(const QString& why);
    void sendWholeState();
    void sendChanges();
    void log(const QString& line);

    TunerEngine* m_engine;
    int m_listener = -1;
    int m_client = -1;
    QSocketNotifier* m_acceptNotifier = nullptr;
    QSocketNotifier* m_readNotifier = nullptr;
    QSocketNotifier* m_writeNotifier = nullptr;
    FrameAssembler m_frames;
    RecordMemory m_sent;
    QByteArray m_output;
    std::function<void(const QString&)> m_trace;
    std::function<void(const QString&)> m_log;
};

#endif
