#ifndef BASECONTROL_H
#define BASECONTROL_H

#include <QMap>
#include <QObject>
#include <QPixmap>
#include <QSharedPointer>
#include <QStringList>
#include <QVariant>

// Extra data a user event may carry; opaque to the radio screen.
class EventPrivateData
{
public:
    virtual ~EventPrivateData() = default;
};

// The head unit's control centre: region, MCU traffic, user events, the
// shared pixmap cache and the host's key signals. Every call that leaves
// the host is recorded in calls() and announced with callRecorded().
class BaseControl : public QObject
{
    Q_OBJECT
public:
    static BaseControl* getInstance();
    static BaseControl* createInstance();
    static void destroyInstance();

    void setRadioRegion(int region);
    int radioRegion() const { return m_radioRegion; }

    void sendMcuKeyPressedSignal(int key, int value);
    void SendDataToMcu(unsigned int group, unsigned int id, unsigned int value);
    int sendUserEvent(const QString& name, int type, QVariant value, bool notify,
                      QSharedPointer<EventPrivateData> data);
    void showDeviceSelectDialog(QString device, int state);
    // What sendUserEvent answers (set by the shell or a test).
    void setUserEventResult(int result) { m_userEventResult = result; }

    QSharedPointer<QPixmap> getBackupPixmap(QString key) const;
    void setBackupPixmap(QSharedPointer<QPixmap> pixmap, QString key);

    QStringList calls() const { return m_calls; }
    void clearCalls() { m_calls.clear(); }

signals:
    void sigRadioRegionChanged(int region);
    void FMAMChangedSig(int which);
    void handle_infopagenextbtn(QString id);
    void handle_infopageprevbtn(QString id);
    void playpausebtnChangeSig(int state);
    void callRecorded(const QString& call);

private:
    BaseControl() = default;
    void record(const QString& call);

    int m_radioRegion = -1;
    int m_userEventResult = 1;
    QMap<QString, QSharedPointer<QPixmap>> m_pixmaps;
    QStringList m_calls;
};

#endif
