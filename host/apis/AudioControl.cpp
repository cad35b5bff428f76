#include "AudioControl.h"

static AudioControl* s_audioControl = nullptr;

AudioControl* AudioControl::getInstance() { return s_audioControl; }

AudioControl* AudioControl::createInstance()
{
    if (!s_audioControl)
        s_audioControl = new AudioControl;
    return s_audioControl;
}

void AudioControl::destroyInstance()
{
    delete s_audioControl;
    s_audioControl = nullptr;
}

void AudioControl::setMute(bool mute, bool showOsd)
{
    m_calls.append(QStringLiteral("setMute(%1,%2)").arg(mute ? "true" : "false", showOsd ? "true" : "false"));
    m_mute = mute;
    emit muteChanged(mute);
}
