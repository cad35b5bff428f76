#include "CaptureReplay.h"

#include "TunerServer.h"

#include <algorithm>
#include <cmath>

namespace {

// Long gaps are waited for in steps, within QTimer's int range.
const double kMaxWaitMs = 60000;

} // namespace

CaptureReplay::CaptureReplay(TunerServer* server, const QVector<CaptureFile::Record>& records, double speed,
                             QObject* parent)
    : QObject(parent)
    , m_server(server)
    , m_records(records)
    , m_speed(speed)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CaptureReplay::playDue);
    connect(m_server, &TunerServer::clientConnected, this, &CaptureReplay::resume);
    connect(m_server, &TunerServer::clientDisconnected, this, &CaptureReplay::pause);
    connect(m_server, &TunerServer::outputDrained, this, &CaptureReplay::checkFinished);
}

double CaptureReplay::elapsedUs() const
{
    return m_clock.isValid() ? m_clock.nsecsElapsed() / 1000.0 * m_speed : 0.0;
}

void CaptureReplay::resume()
{
    m_clock.start();
    playDue();
}

void CaptureReplay::pause(int unsentBytes)
{
    m_timer.stop();
    const int record = int(sizeof(tag_RadioCmdFromMCU));
    m_next = std::max(0, m_next - (unsentBytes + record - 1) / record);
    // The clock stops where it was, but never past a record to be sent again.
    if (m_next < m_records.size())
        m_startUs = qint64(std::min(double(m_startUs) + elapsedUs(), double(m_records.at(m_next).timeUs)));
    m_clock.invalidate();
}

void CaptureReplay::playDue()
{
    while (m_server->hasClient() && m_next < m_records.size()
           && double(m_records.at(m_next).timeUs - m_startUs) <= elapsedUs())
        m_server->send(m_records.at(m_next++).record);
    if (!m_server->hasClient() || m_next >= m_records.size())
        return;
    const double waitMs = (double(m_records.at(m_next).timeUs - m_startUs) - elapsedUs()) / m_speed / 1000.0;
    m_timer.start(int(std::min(std::ceil(std::max(waitMs, 0.0)), kMaxWaitMs)));
}

void CaptureReplay::checkFinished()
{
    if (m_next >= m_records.size())
        emit finished();
}
