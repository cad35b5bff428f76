#ifndef RDSDECODER_H
#define RDSDECODER_H

#include "RdsGroup.h"

#include <QByteArray>
#include <QObject>

// Decodes the station data the radio screen shows from RDS groups:
// PS (groups 0A/0B), radio text (2A/2B with the A/B flag), PTY, TP and TA.
//
// Real receptions contain blocks that passed the CRC yet are wrong, so a
// value is only taken once it has been received twice the same way: each
// PS and RT segment, and PTY, TP and TA. Groups whose block A carries a
// PI other than the station's are dropped.
class RdsDecoder : public QObject
{
    Q_OBJECT
public:
    explicit RdsDecoder(QObject* parent = nullptr);

    void reset();
    void feed(const RdsGroup& group);

    uint16_t pi() const { return m_pi; }
    QByteArray ps() const { return m_ps; }                 // 8 codes; empty until complete
    QByteArray radioText() const { return m_rt; }          // UTF-8, trailing spaces removed
    int pty() const { return m_pty.value; }                // -1 until known
    bool tp() const { return m_tp.value > 0; }
    bool ta() const { return m_ta.value > 0; }

signals:
    void psChanged(const QByteArray& ps);
    void radioTextChanged(const QByteArray& text);
    void ptyChanged(int pty);
    void tpChanged(bool tp);
    void taChanged(bool ta);

private:
    // A value that changes only after two equal readings in a row.
    struct Confirmed {
        int value = -1;
        int candidate = -1;
        bool offer(int v);   // true when `value` changed
    };

    bool acceptPi(const RdsGroup& group);
    void clearStation();
    void clearText();
    void takePsSegment(int segment, uint16_t chars);
    void takeRtSegment(int segment, uint32_t chars, bool versionB, int abFlag);
    void publishRtIfComplete();

    uint16_t m_pi = 0;
    uint16_t m_piCandidate = 0;
    int m_piVotes = 0;

    Confirmed m_pty;
    Confirmed m_tp;
    Confirmed m_ta;

    uint16_t m_psLast[4] = {};
    uint16_t m_psValue[4] = {};
    uint8_t m_psSeen = 0;      // segments received at least once
    uint8_t m_psFresh = 0;     // segments confirmed since the last published name
    QByteArray m_ps;

    uint32_t m_rtLast[16] = {};
    uint32_t m_rtValue[16] = {};
    uint16_t m_rtSeen = 0;
    uint16_t m_rtConfirmed = 0;
    int m_rtAb = -1;
    bool m_rtVersionB = false;
    int m_rtPrevSegment = -1;
    int m_rtHighest = -1;      // highest segment seen for this text
    bool m_rtWrapped = false;  // the station has started the text over at least once
    QByteArray m_rt;
};

#endif
