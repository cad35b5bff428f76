#ifndef RADIOMODULE_H
#define RADIOMODULE_H

#include "RadioInfo.h"
#include "RadioCmdMetaType.h"

#include <QList>
#include <QObject>

#include <mutex>

// The host's radio module: receives whole status records while no radio
// screen exists, and the screen's info texts and flag word while one does.
// HandledTunerMsg runs on the tuner link's reader thread; everything it
// receives is kept for the host (and for tests) and announced with
// tunerMsgHandled(), delivered to receivers in their own threads.
class RadioModule : public QObject
{
    Q_OBJECT
public:
    explicit RadioModule(QObject* parent = nullptr);
    ~RadioModule() override;

    void HandledTunerMsg(tag_RadioCmdFromMCU msg);

    int receivedCount() const;
    QList<tag_RadioCmdFromMCU> receivedMsgs() const;
    void clearReceived();

    RadioInfo_t_ radioInfo() const { return m_radioInfo; }
    unsigned int radioFlag() const { return m_radioFlag; }

public slots:
    void radioInfoChangeSlot(RadioInfo_t_ info);
    void radioFlagChangeSlot(unsigned int flag);

signals:
    void tunerMsgHandled(const RadioCmdFromMCU_T& msg);
    void radioInfoChanged(const RadioInfo_t_& info);
    void radioFlagChanged(unsigned int flag);

private:
    mutable std::mutex m_lock;
    QList<tag_RadioCmdFromMCU> m_received;
    RadioInfo_t_ m_radioInfo;
    unsigned int m_radioFlag = 0;
};

#endif
