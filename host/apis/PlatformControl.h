#ifndef PLATFORMCONTROL_H
#define PLATFORMCONTROL_H

#include <QObject>
#include <QStringList>

// The platform's hard mute of the amplifier.
class PlatformControl : public QObject
{
    Q_OBJECT
public:
    static PlatformControl* getInstance();
    static PlatformControl* createInstance();
    static void destroyInstance();

    void setHardMute(bool mute);
    bool isHardMute() const { return m_hardMute; }
    QStringList calls() const { return m_calls; }
    void clearCalls() { m_calls.clear(); }

signals:
    void hardMuteChanged(bool mute);

private:
    PlatformControl() = default;
    bool m_hardMute = false;
    QStringList m_calls;
};

#endif
