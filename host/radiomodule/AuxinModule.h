#ifndef AUXINMODULE_H
#define AUXINMODULE_H

#include "Module.h"

#include <QObject>
#include <QStringList>

// The host's audio/video input: routes an input (the radio tuner among
// them) to the speakers and, for video sources, to the screen. Every call
// is recorded in order in calls() and announced with callRecorded().
class AuxinModule : public QObject
{
    Q_OBJECT
public:
    enum AVInMode { AVIN_MODE_TUNER = 0, AVIN_MODE_AUX = 1, AVIN_MODE_CAMERA = 2 };
    Q_ENUM(AVInMode)
    enum AudioChannel { AUDIO_CHANNEL_0 = 0, AUDIO_CHANNEL_1 = 1, AUDIO_CHANNEL_2 = 2 };
    Q_ENUM(AudioChannel)

    explicit AuxinModule(QObject* parent = nullptr);

    void takeScreen();
    void setVideoOnly(bool videoOnly);
    void setAVInMode(AVInMode mode);
    void setAudioOnly(bool audioOnly);
    void setAudioInChannel(AudioChannel channel);
    int streamOn();
    int streamOff();

    bool isStreaming() const { return m_streaming; }
    QStringList calls() const { return m_calls; }
    void clearCalls() { m_calls.clear(); }

signals:
    void callRecorded(const QString& call);
    void streamStateChanged(bool on);

private:
    void record(const QString& call);
    bool m_streaming = false;
    QStringList m_calls;
};

// The "auxin" module as the module manager lists it.
class AuxinModulePlugin : public hvappframework::Module
{
    Q_OBJECT
public:
    AuxinModulePlugin();
    AuxinModule* getAuxinModule() const { return m_module; }

private:
    AuxinModule* m_module;
};

#endif
