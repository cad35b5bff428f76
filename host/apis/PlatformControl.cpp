#include "PlatformControl.h"

static PlatformControl* s_platformControl = nullptr;

PlatformControl* PlatformControl::getInstance() { return s_platformControl; }

PlatformControl* PlatformControl::createInstance()
{
    if (!s_platformControl)
        s_platformControl = new PlatformControl;
    return s_platformControl;
}

void PlatformControl::destroyInstance()
{
    delete s_platformControl;
    s_platformControl = nullptr;
}

void PlatformControl::setHardMute(bool mute)
{
    m_calls.append(QStringLiteral("setHardMute(%1)").arg(mute ? "true" : "false"));
    m_hardMute = mute;
    emit hardMuteChanged(mute);
}
