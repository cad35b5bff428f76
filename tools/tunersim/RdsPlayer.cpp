#include "RdsPlayer.h"

#include "RdsLog.h"

#include <cmath>

RdsPlayer::RdsPlayer(QObject* parent)
    : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &RdsPlayer::tick);
    setSpeed(1.0);
}

void RdsPlayer::setSpeed(double speed)
{
    m_speed = speed > 0 ? speed : 1.0;
    // Timers below a millisecond would turn into a busy loop: beyond that
    // pace several groups are decoded per tick instead.
    const double groupMs = RdsLog::kGroupMs / m_speed;
    if (groupMs >= 1.0) {
        m_groupsPerTick = 1;
        m_timer.setInterval(int(std::lround(groupMs)));
    } else {
        m_groupsPerTick = int(std::ceil(1.0 / groupMs));
        m_timer.setInterval(1);
    }
}

void RdsPlayer::start(const QVector<RdsGroup>& groups)
{
    m_groups = groups;
    m_position = 0;
    m_decoder.reset();
    if (m_groups.isEmpty())
        m_timer.stop();
    else
        m_timer.start();
}

void RdsPlayer::stop()
{
    m_timer.stop();
}

void RdsPlayer::tick()
{
    for (int i = 0; i < m_groupsPerTick && m_timer.isActive(); ++i) {
        m_decoder.feed(m_groups.at(m_position));
        m_position = (m_position + 1) % m_groups.size();
    }
}
