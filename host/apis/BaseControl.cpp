#include "BaseControl.h"

static BaseControl* s_baseControl = nullptr;

BaseControl* BaseControl::getInstance() { return s_baseControl; }

BaseControl* BaseControl::createInstance()
{
    if (!s_baseControl)
        s_baseControl = new BaseControl;
    return s_baseControl;
}

void BaseControl::destroyInstance()
{
    delete s_baseControl;
    s_baseControl = nullptr;
}

void BaseControl::record(const QString& call)
{
    m_calls.append(call);
    emit callRecorded(call);
}

void BaseControl::setRadioRegion(int region)
{
    m_radioRegion = region;
    record(QStringLiteral("setRadioRegion(%1)").arg(region));
}

void BaseControl::sendMcuKeyPressedSignal(int key, int value)
{
    record(QStringLiteral("sendMcuKeyPressedSignal(%1,%2)").arg(key).arg(value));
}

void BaseControl::SendDataToMcu(unsigned int group, unsigned int id, unsigned int value)
{
    record(QStringLiteral("SendDataToMcu(%1,%2,%3)").arg(group).arg(id).arg(value));
}

int BaseControl::sendUserEvent(const QString& name, int type, QVariant value, bool notify,
                               QSharedPointer<EventPrivateData>)
{
    record(QStringLiteral("sendUserEvent(%1,%2,%3,%4)")
               .arg(name)
               .arg(type)
               .arg(value.toString())
               .arg(notify ? "true" : "false"));
    return m_userEventResult;
}

void BaseControl::showDeviceSelectDialog(QString device, int state)
{
    record(QStringLiteral("showDeviceSelectDialog(%1,%2)").arg(device).arg(state));
}

QSharedPointer<QPixmap> BaseControl::getBackupPixmap(QString key) const
{
    return m_pixmaps.value(key);
}

void BaseControl::setBackupPixmap(QSharedPointer<QPixmap> pixmap, QString key)
{
    m_pixmaps.insert(key, pixmap);
}
