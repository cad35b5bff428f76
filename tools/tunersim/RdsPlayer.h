#ifndef RDSPLAYER_H
#define RDSPLAYER_H

#include "RdsDecoder.h"
#include "RdsGroup.h"

#include <QObject>
#include <QTimer>
#include <QVector>

// Replays recorded groups into a decoder at the on-air pace multiplied by
// `speed`, starting over at the end of the log as a station keeps
// transmitting.
class RdsPlayer : public QObject
{
    Q_OBJECT
public:
    explicit RdsPlayer(QObject* parent = nullptr);

    RdsDecoder* decoder() { return &m_decoder; }
    void setSpeed(double speed);
    double speed() const { return m_speed; }

    void start(const QVector<RdsGroup>& groups);
    void stop();
    bool isRunning() const { return m_timer.isActive(); }
    int position() const { return m_position; }

private:
    void tick();

    RdsDecoder m_decoder;
    QTimer m_timer;
    QVector<RdsGroup> m_groups;
    int m_position = 0;
    int m_groupsPerTick = 1;
    double m_speed = 1.0;
};

#endif
