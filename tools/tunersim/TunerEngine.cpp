#include "TunerEngine.h"

#include "ProtocolTrace.h"
#include "RadioCmdToMCU.h"
#include "RdsCharset.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

const QByteArray kBlankName(8, ' ');

} // namespace

TunerEngine::TunerEngine(const StationList& stations, quint32 seed, QObject* parent)
    : QObject(parent)
    , m_stations(stations)
    , m_seed(seed)
{
    for (QTimer* timer : {&m_moveTimer, &m_dwellTimer, &m_trafficTimer})
        timer->setSingleShot(true);
    connect(&m_moveTimer, &QTimer::timeout, this, &TunerEngine::moveTick);
    connect(&m_dwellTimer, &QTimer::timeout, this, &TunerEngine::dwellOver);
    connect(&m_trafficTimer, &QTimer::timeout, this, &TunerEngine::trafficTick);

    RdsDecoder* decoder = m_rdsPlayer.decoder();
    connect(decoder, &RdsDecoder::psChanged, this, [this](const QByteArray& ps) {
        m_rx.ps = ps;
        emit stateChanged();
    });
    connect(decoder, &RdsDecoder::radioTextChanged, this, [this](const QByteArray& text) {
        m_rx.rt = text;
        emit stateChanged();
    });
    connect(decoder, &RdsDecoder::ptyChanged, this, [this](int pty) {
        m_rx.pty = uint8_t(pty);
        emit stateChanged();
    });
    connect(decoder, &RdsDecoder::tpChanged, this, [this](bool tp) {
        m_rx.tp = tp;
        emit stateChanged();
    });
    connect(decoder, &RdsDecoder::taChanged, this, [this](bool ta) {
        m_rx.taActive = ta;
        emit stateChanged();
    });

    factoryPresets();
    tuneTo(m_bandFreq[0]);
}

void TunerEngine::setTimeScale(double scale)
{
    m_timeScale = scale > 0 ? scale : 1.0;
    m_rdsPlayer.setSpeed(m_timeScale * m_rdsSpeed);
}

void TunerEngine::setRdsSpeed(double speed)
{
    m_rdsSpeed = speed > 0 ? speed : 1.0;
    m_rdsPlayer.setSpeed(m_timeScale * m_rdsSpeed);
}

int TunerEngine::scaled(int ms) const
{
    return std::max(1, int(std::lround(ms / m_timeScale)));
}

uint8_t TunerEngine::noiseAt(uint32_t freq) const
{
    uint32_t h = freq * 2654435761u ^ m_seed;
    h ^= h >> 15;
    h *= 0x2C1B3C6Du;
    h ^= h >> 12;
    return uint8_t(h % 13);
}

bool TunerEngine::isReceivable(const Station& station) const
{
    return station.signal >= (m_loc ? kLocThreshold : kDxThreshold);
}

// FM1-FM3 get the eighteen strongest FM stations, six per band sorted by
// frequency; AM1-AM2 likewise. Bands short of stations are filled with
// channels spread over the band. Each band starts on its first preset.
void TunerEngine::factoryPresets()
{
    const BandPlan& plan = m_stations.plan();
    for (const bool fm : {true, false}) {
        QVector<Station> list = m_stations.waveRange(fm);
        std::stable_sort(list.begin(), list.end(),
                         [](const Station& a, const Station& b) { return a.signal > b.signal; });
        const int firstBand = fm ? 0 : 3;
        const int bands = fm ? 3 : 2;
        for (int b = 0; b < bands; ++b) {
            QVector<Station> chunk = list.mid(b * kPresetCount, kPresetCount);
            std::sort(chunk.begin(), chunk.end(),
                      [](const Station& x, const Station& y) { return x.freq < y.freq; });
            for (int k = 0; k < kPresetCount; ++k) {
                Preset& p = m_presets[firstBand + b][k];
                if (k < chunk.size()) {
                    p.freq = chunk.at(k).freq;
                    p.name = fm ? chunk.at(k).ps : kBlankName;
                } else {
                    p.freq = plan.snap(plan.min(fm) + (plan.max(fm) - plan.min(fm)) * uint32_t(k) / (kPresetCount - 1));
                    p.name = kBlankName;
                }
            }
            m_bandFreq[firstBand + b] = m_presets[firstBand + b][0].freq;
        }
    }
}

QVector<uint32_t> TunerEngine::stateKinds()
{
    return {MCU_TUNE_INFO, MCU_PRESET_FREQ, MCU_PRESET_PS, MCU_PTY, MCU_PS_NAME,
            MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_SIGNAL, MCU_FAVOURITE};
}

uint8_t TunerEngine::presetKey() const
{
    for (int k = 0; k < kPresetCount; ++k) {
        if (m_presets[m_band][k].freq == frequency())
            return uint8_t(k + 1);
    }
    return 0;
}

uint8_t TunerEngine::rdsFlags() const
{
    uint8_t flags = 0;
    if (m_rdsOn)
        flags |= kRdsOnFlag;
    if (m_rx.tp)
        flags |= RDS_FLAG_TP;
    if (m_af)
        flags |= RDS_FLAG_AF;
    if (m_ta)
        flags |= RDS_FLAG_TA;
    if (m_reg)
        flags |= RDS_FLAG_REG;
    if (m_rx.tp && m_rx.taActive)
        flags |= RDS_FLAG_TA_IND;
    return flags;
}

tag_RadioCmdFromMCU TunerEngine::record(uint32_t kind) const
{
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    r.cmd = kind;
    switch (kind) {
    case MCU_TUNE_INFO:
        r.freq = frequency();
        r.band = uint8_t(m_band);
        r.preset = presetKey();
        r.dxLoc = m_loc ? 1 : 0;
        r.asState = m_activity == Activity::AutoSearch ? 1 : 0;
        r.stereo = m_rx.stereo ? 1 : 0;
        r.psState = m_activity == Activity::PresetScan ? 1 : 0;
        r.scanState = m_activity == Activity::Scan ? 1 : 0;
        std::memcpy(r.psName, m_rx.ps.constData(), 8);
        break;
    case MCU_PRESET_FREQ:
        for (int k = 0; k < kPresetCount; ++k)
            r.presetFreq[k] = uint16_t(m_presets[m_band][k].freq);
        break;
    case MCU_PRESET_PS:
        for (int k = 0; k < kPresetCount; ++k)
            std::memcpy(r.presetPsName[k], m_presets[m_band][k].name.constData(), 8);
        break;
    case MCU_PTY:
        r.pty = m_rx.pty;
        r.selectedPty = m_selectedPty;
        break;
    case MCU_PS_NAME:
        std::memcpy(r.psName, m_rx.ps.constData(), 8);
        break;
    case MCU_RADIO_TEXT: {
        const QByteArray text = RdsCharset::truncateUtf8(m_rx.rt, int(sizeof r.radioText) - 1);
        std::memcpy(r.radioText, text.constData(), size_t(text.size()));
        break;
    }
    case MCU_RDS_FLAGS:
        r.rdsFlags = rdsFlags();
        break;
    case MCU_FAVOURITE:
        for (int i = 0; i < m_favourites.size(); ++i) {
            const uint16_t f = m_favourites.at(i);
            std::memcpy(r.favourite + 2 * i, &f, 2);
        }
        break;
    case MCU_SIGNAL:
        r.signal = m_rx.signal;
        break;
    default:
        break;
    }
    return r;
}

void TunerEngine::handleCommand(uint32_t code, uint32_t param)
{
    if (code == RC_REQUEST_LIST) {
        emit stateRequested();
        return;
    }
    if (!radioCmdName(code)) {
        emit note(QStringLiteral("unknown command code %1 (param %2) ignored").arg(code).arg(param));
        return;
    }
    // Any command ends what the tuner was doing; the key that started an
    // activity stops it without starting it again.
    const Activity was = m_activity;
    if (was != Activity::Idle)
        stopActivity();

    switch (code) {
    case RC_PRESET: recallPreset(param); break;
    case RC_PRESET_LONG: storePreset(param); break;
    case RC_BAND: selectBand(param); break;
    case RC_AUTO_SEARCH:
        if (was != Activity::AutoSearch)
            startAutoSearch();
        break;
    case RC_PS:
        if (was != Activity::PresetScan)
            startPresetScan();
        break;
    case RC_SEEK_UP: seek(+1); break;
    case RC_SEEK_DOWN: seek(-1); break;
    case RC_STEP_UP: tuneTo(m_stations.plan().next(frequency(), +1)); break;
    case RC_STEP_DOWN: tuneTo(m_stations.plan().next(frequency(), -1)); break;
    case RC_SCAN:
        if (was != Activity::Scan) {
            m_activity = Activity::Scan;
            scanNext();
        }
        break;
    case RC_AF: m_af = param != 0; break;
    case RC_TA: m_ta = param != 0; break;
    case RC_REG: m_reg = param != 0; break;
    case RC_RDS:
        m_rdsOn = param != 0;
        tuneTo(frequency());
        break;
    case RC_DX_LOC: m_loc = param != 0; break;
    case RC_PTY_SELECTED: selectPty(param); break;
    case RC_SET_FREQ: setFrequency(param); break;
    case RC_PTY_SEEK: ptySeek(); break;
    case RC_FAVOR: toggleFavourite(); break;
    // The screen's next-station key sends PRESET_DOWN: down the row of keys.
    case RC_PRESET_UP: stepPreset(-1); break;
    case RC_PRESET_DOWN: stepPreset(+1); break;
    default: break;
    }
    emit stateChanged();
}

void TunerEngine::tuneTo(uint32_t freq, bool passing)
{
    m_bandFreq[m_band] = freq;
    m_rdsPlayer.stop();
    m_trafficTimer.stop();
    m_rx = Reception();
    const Station* station = m_stations.at(freq);
    m_rx.signal = station ? station->signal : noiseAt(freq);
    // A seek passes channels muted: no stereo, no RDS until it stops.
    if (passing || !station)
        return;
    const bool fm = isFmFrequency(freq);
    m_rx.stereo = fm && !station->mono && station->signal >= kStereoThreshold;
    if (!fm || !m_rdsOn)
        return;
    if (station->rdsLog) {
        m_rdsPlayer.start(station->rdsLog->groupsTunedTo(freq * 10));
        return;
    }
    m_rx.ps = station->ps;
    m_rx.rt = station->radioText;
    m_rx.pty = station->pty;
    m_rx.tp = station->tp;
    if (station->taPeriodMs > 0)
        m_trafficTimer.start(scaled(station->taPeriodMs));
}

void TunerEngine::trafficTick()
{
    const Station* station = m_stations.at(frequency());
    if (!station || station->taPeriodMs <= 0)
        return;
    m_rx.taActive = !m_rx.taActive;
    m_trafficTimer.start(scaled(m_rx.taActive ? station->taLengthMs : station->taPeriodMs));
    emit stateChanged();
}

void TunerEngine::setBand(int band)
{
    m_band = band;
    if (band <= 2)
        m_lastFmBand = band;
    else
        m_lastAmBand = band;
}

void TunerEngine::stopActivity()
{
    const bool moving = !m_path.isEmpty();
    m_moveTimer.stop();
    m_dwellTimer.stop();
    m_path.clear();
    m_activity = Activity::Idle;
    // Stay on the channel reached so far and listen to it properly.
    if (moving)
        tuneTo(frequency());
}

QVector<uint32_t> TunerEngine::pathTo(uint32_t target, int direction, int updates) const
{
    const BandPlan& plan = m_stations.plan();
    const uint32_t from = frequency();
    int distance = plan.distance(from, target, direction);
    if (distance == 0)
        distance = plan.channelCount(isFm());   // once round the band
    const int passes = std::min(updates, distance - 1);
    QVector<uint32_t> path;
    for (int i = 1; i <= passes; ++i) {
        const uint32_t f = plan.advance(from, direction * (distance * i / (passes + 1)));
        if (path.isEmpty() || path.last() != f)
            path.append(f);
    }
    path.append(target);
    return path;
}

uint32_t TunerEngine::findStation(int direction, const std::function<bool(const Station&)>& accept) const
{
    const BandPlan& plan = m_stations.plan();
    const bool fm = isFm();
    const int count = plan.channelCount(fm);
    uint32_t best = 0;
    int bestDistance = INT_MAX;
    for (const Station& s : m_stations.stations()) {
        if (isFmFrequency(s.freq) != fm || !accept(s))
            continue;
        int d = plan.distance(frequency(), s.freq, direction);
        if (d == 0)
            d = count;
        if (d < bestDistance) {
            bestDistance = d;
            best = s.freq;
        }
    }
    return best;
}

void TunerEngine::startMove(const QVector<uint32_t>& path)
{
    m_path = path;
    m_moveTimer.start(scaled(kMoveStepMs));
}

void TunerEngine::moveTick()
{
    if (m_path.isEmpty())
        return;
    const uint32_t f = m_path.takeFirst();
    if (!m_path.isEmpty()) {
        tuneTo(f, true);
        m_moveTimer.start(scaled(kMoveStepMs));
    } else {
        tuneTo(f);
        arrived();
    }
    emit stateChanged();
}

void TunerEngine::arrived()
{
    switch (m_activity) {
    case Activity::Seek:
    case Activity::PtySeek:
        m_activity = Activity::Idle;
        break;
    case Activity::Scan:
        if (m_goalFound) {
            m_dwellTimer.start(scaled(kDwellMs));
        } else {
            m_activity = Activity::Idle;
            emit note(QStringLiteral("scan went round the band without a station, stopped"));
        }
        break;
    case Activity::AutoSearch:
        finishAutoSearch();
        break;
    case Activity::Idle:
    case Activity::PresetScan:
        break;
    }
}

void TunerEngine::dwellOver()
{
    if (m_activity == Activity::Scan) {
        scanNext();
    } else if (m_activity == Activity::PresetScan) {
        m_presetScanKey = m_presetScanKey % kPresetCount + 1;
        tuneTo(m_presets[m_band][m_presetScanKey - 1].freq);
        m_dwellTimer.start(scaled(kDwellMs));
        emit stateChanged();
    }
}

void TunerEngine::seek(int direction)
{
    const uint32_t target = findStation(direction, [this](const Station& s) { return isReceivable(s); });
    if (target == 0)
        emit note(QStringLiteral("seek found no receivable station, back to %1").arg(ProtocolTrace::frequencyText(frequency())));
    m_activity = Activity::Seek;
    startMove(pathTo(target ? target : frequency(), direction, kMoveUpdates));
}

void TunerEngine::scanNext()
{
    const uint32_t target = findStation(+1, [this](const Station& s) { return isReceivable(s); });
    m_goalFound = target != 0;
    startMove(pathTo(m_goalFound ? target : frequency(), +1, kMoveUpdates));
}

void TunerEngine::startAutoSearch()
{
    const BandPlan& plan = m_stations.plan();
    const bool fm = isFm();
    const uint32_t lo = plan.min(fm);
    const uint32_t hi = plan.max(fm);
    QVector<uint32_t> sweep;
    for (int i = 0; i <= kSweepUpdates; ++i)
        sweep.append(plan.snap(lo + (hi - lo) * uint32_t(i) / kSweepUpdates));
    m_activity = Activity::AutoSearch;
    startMove(sweep);
}

// The six strongest receivable stations of the band become its presets,
// sorted by frequency; keys left over get the band's lowest channel and no
// name. The tuner then plays preset 1.
void TunerEngine::finishAutoSearch()
{
    const bool fm = isFm();
    QVector<Station> found;
    for (const Station& s : m_stations.waveRange(fm)) {
        if (isReceivable(s))
            found.append(s);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Station& a, const Station& b) { return a.signal > b.signal; });
    found.resize(std::min(int(found.size()), kPresetCount));
    std::sort(found.begin(), found.end(), [](const Station& a, const Station& b) { return a.freq < b.freq; });
    for (int k = 0; k < kPresetCount; ++k) {
        Preset& p = m_presets[m_band][k];
        if (k < found.size()) {
            p.freq = found.at(k).freq;
            p.name = fm && m_rdsOn ? found.at(k).ps : kBlankName;
        } else {
            p.freq = m_stations.plan().min(fm);
            p.name = kBlankName;
        }
    }
    if (found.size() < kPresetCount)
        emit note(QStringLiteral("auto search found %1 stations").arg(found.size()));
    m_activity = Activity::Idle;
    tuneTo(m_presets[m_band][0].freq);
}

void TunerEngine::startPresetScan()
{
    m_activity = Activity::PresetScan;
    m_presetScanKey = 1;
    tuneTo(m_presets[m_band][0].freq);
    m_dwellTimer.start(scaled(kDwellMs));
}

// Preset numbers count on through the bands of one wave range:
// FM1 1-6, FM2 7-12, FM3 13-18; AM1 1-6, AM2 7-12.
bool TunerEngine::presetTarget(uint32_t number, int* band, int* key)
{
    const bool fm = isFm();
    const uint32_t limit = fm ? 18 : 12;
    if (number < 1 || number > limit) {
        emit note(QStringLiteral("preset %1 is not 1-%2 in %3, ignored")
                      .arg(number).arg(limit).arg(fm ? QStringLiteral("FM") : QStringLiteral("AM")));
        return false;
    }
    *band = int((number - 1) / kPresetCount) + (fm ? 0 : 3);
    *key = int((number - 1) % kPresetCount) + 1;
    return true;
}

void TunerEngine::recallPreset(uint32_t number)
{
    int band = 0;
    int key = 0;
    if (!presetTarget(number, &band, &key))
        return;
    setBand(band);
    tuneTo(m_presets[band][key - 1].freq);
}

void TunerEngine::storePreset(uint32_t number)
{
    int band = 0;
    int key = 0;
    if (!presetTarget(number, &band, &key))
        return;
    m_presets[band][key - 1] = Preset{frequency(), m_rx.ps};
}

void TunerEngine::selectBand(uint32_t param)
{
    if (param > 5) {
        emit note(QStringLiteral("band %1 is not 0-5, ignored").arg(param));
        return;
    }
    // 0 moves on to the next band; 1-5 are FM1-FM3, AM1-AM2.
    setBand(param == 0 ? (m_band + 1) % kBandCount : int(param) - 1);
    tuneTo(m_bandFreq[m_band]);
}

void TunerEngine::stepPreset(int direction)
{
    const int key = presetKey();
    int next;
    if (key == 0)
        next = direction > 0 ? 1 : kPresetCount;
    else
        next = (key - 1 + direction + kPresetCount) % kPresetCount + 1;
    tuneTo(m_presets[m_band][next - 1].freq);
}

// Values above 1999 are FM, the rest AM; either must lie within the
// region's limits. In-range values are tuned to the nearest channel (the
// screen's scale sends truncated values), changing to the last band of the
// other wave range when needed.
void TunerEngine::setFrequency(uint32_t value)
{
    const BandPlan& plan = m_stations.plan();
    if (!plan.contains(value)) {
        emit note(QStringLiteral("frequency %1 is outside the band plan of region %2, ignored")
                      .arg(value).arg(plan.region()));
        emit stateRequested();
        return;
    }
    const uint32_t f = plan.snap(value);
    const bool fm = isFmFrequency(f);
    if (fm != isFm())
        setBand(fm ? m_lastFmBand : m_lastAmBand);
    tuneTo(f);
}

void TunerEngine::toggleFavourite()
{
    const uint16_t f = uint16_t(frequency());
    const int at = m_favourites.indexOf(f);
    if (at >= 0) {
        m_favourites.remove(at);
        return;
    }
    if (m_favourites.size() == kFavouriteCount) {
        emit note(QStringLiteral("favourites full, %1 dropped").arg(ProtocolTrace::frequencyText(m_favourites.first())));
        m_favourites.removeFirst();
    }
    m_favourites.append(f);
}

void TunerEngine::selectPty(uint32_t pty)
{
    if (pty > 31) {
        emit note(QStringLiteral("PTY %1 is not 0-31, ignored").arg(pty));
        return;
    }
    m_selectedPty = uint8_t(pty);
}

void TunerEngine::ptySeek()
{
    if (m_selectedPty == 0 || !isFm() || !m_rdsOn) {
        emit note(QStringLiteral("PTY seek needs FM, RDS on and a selected PTY, ignored"));
        return;
    }
    const uint8_t wanted = m_selectedPty;
    const uint32_t target = findStation(+1, [this, wanted](const Station& s) {
        return isReceivable(s) && s.pty == wanted;
    });
    if (target == 0) {
        emit note(QStringLiteral("no station with PTY %1").arg(wanted));
        return;
    }
    m_activity = Activity::PtySeek;
    startMove(pathTo(target, +1, kMoveUpdates));
}
