#ifndef STATIONLIST_H
#define STATIONLIST_H

#include "BandPlan.h"
#include "Station.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

// The stations on air in one region, sorted by frequency, every one on
// the region's channel grid.
class StationList
{
public:
    explicit StationList(int region = TUNER_DEFAULT_REGION);

    // A plausible line-up for the region's band plan: FM stations with
    // RDS data and a spread of signal levels, AM stations without RDS.
    // The same region and seed always give the same line-up.
    static StationList builtIn(int region, quint32 seed);

    // CSV line-up: frequency, PS, PTY, TP, radio text, signal. A header
    // line naming the columns (freq/freq_mhz, ps, pty, tp, rt, signal) may
    // select and order them; without one the order above applies.
    // Frequencies with a decimal point are MHz, else record units (FM
    // 10 kHz, AM kHz); "\xNN" and "<NN>" in the radio text are RDS codes.
    // Missing signals are drawn from `seed`. Rejected lines are reported in
    // `warnings`; only an unreadable file is an error.
    bool loadCsv(const QString& path, quint32 seed, QStringList* warnings, QString* error);
    void loadCsvText(const QByteArray& text, quint32 seed, QStringList* warnings);

    // "96.7" (MHz), "9670" (FM, 10 kHz) or "999" (AM, kHz) to record units;
    // 0 when the text is no frequency.
    static uint32_t parseFrequency(const QByteArray& text);

    const BandPlan& plan() const { return m_plan; }
    int region() const { return m_plan.region(); }

    // Replays `log` whenever the tuner sits on `freq` (snapped to the
    // grid). Without a station there, one is added with a strong signal
    // and the PS, PTY and TP the log decodes to. False when `freq` is
    // outside the band plan or AM.
    bool attachRdsLog(uint32_t freq, const QSharedPointer<const RdsLog>& log);

    // Adds a station, replacing one on the same channel.
    void insert(const Station& station);
    const Station* at(uint32_t freq) const;
    Station* find(uint32_t freq);
    const QVector<Station>& stations() const { return m_stations; }
    QVector<Station> waveRange(bool fm) const;
    int count() const { return m_stations.size(); }

private:
    BandPlan m_plan;
    QVector<Station> m_stations;
};

#endif
