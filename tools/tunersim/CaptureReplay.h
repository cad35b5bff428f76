#ifndef CAPTUREREPLAY_H
#define CAPTUREREPLAY_H

#include "CaptureFile.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVector>

class TunerServer;

// Plays a capture's status records through a server that runs no engine,
// at their recorded spacing divided by the speed, starting when a screen
// connects. The capture's clock stands while no screen is connected; the
// next screen gets the records from the first one the socket did not take
// whole.
class CaptureReplay : public QObject
{
    Q_OBJECT
public:
    CaptureReplay(TunerServer* server, const QVector<CaptureFile::Record>& records, double speed,
                  QObject* parent = nullptr);

    // Records handed to the socket so far (less those a screen took away).
    int played() const { return m_next; }

signals:
    // Every record is in the socket (once: nothing is sent after it).
    void finished();

private:
    void resume();
    void pause(int unsentBytes);
    void playDue();
    void checkFinished();
    // Capture microseconds since m_startUs on this screen's clock.
    double elapsedUs() const;

    TunerServer* m_server;
    QVector<CaptureFile::Record> m_records;
    double m_speed;
    int m_next = 0;
    // Capture time at which the current screen's clock started.
    qint64 m_startUs = 0;
    QElapsedTimer m_clock;
    QTimer m_timer;
};

#endif
