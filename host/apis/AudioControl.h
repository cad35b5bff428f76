#ifndef AUDIOCONTROL_H
#define AUDIOCONTROL_H

#include <QObject>
#include <QStringList>

// The user's audio mute.
class AudioControl : public QObject
{
    Q_OBJECT
public:
    static AudioControl* getInstance();
    static AudioControl* createInstance();
    static void destroyInstance();

    bool isMute() const { return m_mute; }
    // showOsd: whether the host shows its mute indicator.
    void setMute(bool mute, bool showOsd);
    QStringList calls() const { return m_calls; }
    void clearCalls() { m_calls.clear(); }

signals:
    void muteChanged(bool mute);

private:
    AudioControl() = default;
    bool m_mute = false;
    QStringList m_calls;
};

#endif
