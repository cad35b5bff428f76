#ifndef SIMCLIENT_H
#define SIMCLIENT_H

#include "RadioCmdFromMCU.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

class QSocketNotifier;

// The screen's side of the tuner socket for tests: connects to an
// abstract name, writes raw bytes or frames, and collects whole records.
class SimClient : public QObject
{
    Q_OBJECT
public:
    explicit SimClient(QObject* parent = nullptr);
    ~SimClient() override;

    bool connectTo(const QString& name);
    void close();
    bool isClosedByPeer() const { return m_peerClosed; }

    bool sendRaw(const QByteArray& bytes);
    bool send(uint32_t code, uint32_t param = 0);

    QList<tag_RadioCmdFromMCU> records;
    // Kinds of the records received so far, in order.
    QList<uint32_t> kinds() const;
    // The last record of a kind, or an all-zero one with cmd 0xFFFFFFFF.
    tag_RadioCmdFromMCU lastOf(uint32_t kind) const;
    int partialBytes() const { return m_buffer.size(); }

private:
    void readAvailable();

    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
    QByteArray m_buffer;
    bool m_peerClosed = false;
};

#endif
