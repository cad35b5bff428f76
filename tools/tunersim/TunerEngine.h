#ifndef TUNERENGINE_H
#define TUNERENGINE_H

#include "RadioCmdFromMCU.h"
#include "RdsPlayer.h"
#include "StationList.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <functional>

// The simulated tuner: the whole tuner state, the reaction to every
// command code, and the status record of every kind built from that state.
// Seek, scan, auto search, preset scan, traffic announcements and RDS
// replay move on by timers; setTimeScale() shortens all of them alike.
class TunerEngine : public QObject
{
    Q_OBJECT
public:
    enum class Activity { Idle, Seek, PtySeek, Scan, AutoSearch, PresetScan };
    Q_ENUM(Activity)

    static constexpr int kBandCount = 5;
    static constexpr int kPresetCount = 6;
    static constexpr int kFavouriteCount = 6;
    // Weakest signal a seek, scan or auto search stops on, in DX and in LOC.
    static constexpr uint8_t kDxThreshold = 25;
    static constexpr uint8_t kLocThreshold = 100;
    static constexpr uint8_t kStereoThreshold = 40;
    // rdsFlags bit 0 reports the RDS switch; the screen leaves it alone.
    static constexpr uint8_t kRdsOnFlag = 0x01;
    // Pace at time scale 1.
    static constexpr int kMoveStepMs = 80;     // between frequency updates of a seek
    static constexpr int kMoveUpdates = 3;     // intermediate updates of a seek
    static constexpr int kSweepUpdates = 12;   // updates of the auto search sweep
    static constexpr int kDwellMs = 5000;      // stay of scan and preset scan

    TunerEngine(const StationList& stations, quint32 seed, QObject* parent = nullptr);

    void setTimeScale(double scale);
    void setRdsSpeed(double speed);
    double timeScale() const { return m_timeScale; }

    // One command frame from the screen. Unknown codes and out-of-range
    // arguments are reported through note() and change nothing.
    void handleCommand(uint32_t code, uint32_t param);

    // The record of one kind for the current state; kinds the tuner does
    // not report carry nothing but their kind.
    tag_RadioCmdFromMCU record(uint32_t kind) const;
    // The kinds that make up the whole state, in sending order.
    static QVector<uint32_t> stateKinds();

    const StationList& stations() const { return m_stations; }
    int region() const { return m_stations.region(); }
    uint8_t band() const { return uint8_t(m_band); }
    uint32_t frequency() const { return m_bandFreq[m_band]; }
    uint32_t bandFrequency(int band) const { return m_bandFreq[band]; }
    uint8_t presetKey() const;
    uint32_t presetFrequency(int band, int key) const { return m_presets[band][key - 1].freq; }
    QByteArray presetName(int band, int key) const { return m_presets[band][key - 1].name; }
    Activity activity() const { return m_activity; }
    bool isLoc() const { return m_loc; }
    uint8_t signal() const { return m_rx.signal; }
    QByteArray psName() const { return m_rx.ps; }
    QByteArray radioText() const { return m_rx.rt; }
    uint8_t pty() const { return m_rx.pty; }
    uint8_t selectedPty() const { return m_selectedPty; }
    uint8_t rdsFlags() const;
    QVector<uint16_t> favourites() const { return m_favourites; }
    bool isReceivable(const Station& station) const;

signals:
    // Something a record reports may have changed.
    void stateChanged();
    // The screen asked for the whole state, or must see it again because
    // a command was refused.
    void stateRequested();
    // A refused or odd input, for the log.
    void note(const QString& text);

private:
    struct Preset {
        uint32_t freq = 0;
        QByteArray name;
    };
    // What the receiver gets on the current channel.
    struct Reception {
        QByteArray ps = QByteArray(8, ' ');
        QByteArray rt;
        uint8_t pty = 0;
        bool tp = false;
        bool taActive = false;
        uint8_t signal = 0;
        bool stereo = false;
    };

    int scaled(int ms) const;
    bool isFm() const { return m_band <= 2; }
    uint8_t noiseAt(uint32_t freq) const;
    void factoryPresets();

    void tuneTo(uint32_t freq, bool passing = false);
    void setBand(int band);
    void stopActivity();
    void startMove(const QVector<uint32_t>& path);
    QVector<uint32_t> pathTo(uint32_t target, int direction, int updates) const;
    uint32_t findStation(int direction, const std::function<bool(const Station&)>& accept) const;
    void moveTick();
    void arrived();
    void dwellOver();
    void trafficTick();

    void seek(int direction);
    void scanNext();
    void startAutoSearch();
    void finishAutoSearch();
    void startPresetScan();
    void recallPreset(uint32_t number);
    void storePreset(uint32_t number);
    bool presetTarget(uint32_t number, int* band, int* key);
    void selectBand(uint32_t param);
    void stepPreset(int direction);
    void setFrequency(uint32_t value);
    void toggleFavourite();
    void selectPty(uint32_t pty);
    void ptySeek();

    StationList m_stations;
    quint32 m_seed;
    double m_timeScale = 1.0;
    double m_rdsSpeed = 1.0;

    int m_band = 0;
    int m_lastFmBand = 0;
    int m_lastAmBand = 3;
    uint32_t m_bandFreq[kBandCount] = {};
    Preset m_presets[kBandCount][kPresetCount];
    bool m_loc = false;
    bool m_af = true;
    bool m_ta = false;
    bool m_reg = false;
    bool m_rdsOn = true;
    uint8_t m_selectedPty = 0;
    QVector<uint16_t> m_favourites;
    Reception m_rx;

    Activity m_activity = Activity::Idle;
    QVector<uint32_t> m_path;      // channels still to pass; the last one is the goal
    bool m_goalFound = true;       // false when a scan went round without a station
    int m_presetScanKey = 0;
    QTimer m_moveTimer;
    QTimer m_dwellTimer;
    QTimer m_trafficTimer;
    RdsPlayer m_rdsPlayer;
};

#endif
