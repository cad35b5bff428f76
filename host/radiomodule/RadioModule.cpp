#include "RadioModule.h"

#include <cstring>

RadioModule::RadioModule(QObject* parent) : QObject(parent)
{
    std::memset(&m_radioInfo, 0, sizeof m_radioInfo);
    qRegisterMetaType<RadioCmdFromMCU_T>("RadioCmdFromMCU_T");
    qRegisterMetaType<RadioInfo_t_>("RadioInfo_t_");
}

RadioModule::~RadioModule() = default;

void RadioModule::HandledTunerMsg(tag_RadioCmdFromMCU msg)
{
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_received.append(msg);
    }
    emit tunerMsgHandled(msg);
}

int RadioModule::receivedCount() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_received.size();
}

QList<tag_RadioCmdFromMCU> RadioModule::receivedMsgs() const
{
    std::lock_guard<std::mutex> guard(m_lock);
    return m_received;
}

void RadioModule::clearReceived()
{
    std::lock_guard<std::mutex> guard(m_lock);
    m_received.clear();
}

void RadioModule::radioInfoChangeSlot(RadioInfo_t_ info)
{
    m_radioInfo = info;
    emit radioInfoChanged(info);
}

void RadioModule::radioFlagChangeSlot(unsigned int flag)
{
    m_radioFlag = flag;
    emit radioFlagChanged(flag);
}
