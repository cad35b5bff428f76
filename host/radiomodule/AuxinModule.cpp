#include "AuxinModule.h"

AuxinModule::AuxinModule(QObject* parent) : QObject(parent) {}

void AuxinModule::record(const QString& call)
{
    m_calls.append(call);
    emit callRecorded(call);
}

void AuxinModule::takeScreen()
{
    record(QStringLiteral("takeScreen()"));
}

void AuxinModule::setVideoOnly(bool videoOnly)
{
    record(QStringLiteral("setVideoOnly(%1)").arg(videoOnly ? "true" : "false"));
}

void AuxinModule::setAVInMode(AVInMode mode)
{
    record(QStringLiteral("setAVInMode(%1)").arg(int(mode)));
}

void AuxinModule::setAudioOnly(bool audioOnly)
{
    record(QStringLiteral("setAudioOnly(%1)").arg(audioOnly ? "true" : "false"));
}

void AuxinModule::setAudioInChannel(AudioChannel channel)
{
    record(QStringLiteral("setAudioInChannel(%1)").arg(int(channel)));
}

int AuxinModule::streamOn()
{
    record(QStringLiteral("streamOn()"));
    m_streaming = true;
    emit streamStateChanged(true);
    return 0;
}

int AuxinModule::streamOff()
{
    record(QStringLiteral("streamOff()"));
    m_streaming = false;
    emit streamStateChanged(false);
    return 0;
}

AuxinModulePlugin::AuxinModulePlugin()
    : hvappframework::Module(QStringLiteral("auxin")), m_module(new AuxinModule(this))
{
}
