#include "RadioCmdToMCU.h"
#include "TunerEngine.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>

namespace {

Station station(uint32_t freq, const char* ps, uint8_t pty, uint8_t signal, bool tp = false)
{
    Station s;
    s.freq = freq;
    s.ps = QByteArray(ps, 8);
    s.pty = pty;
    s.signal = signal;
    s.tp = tp;
    s.radioText = QByteArray(ps).trimmed() + " text";
    s.mono = freq < 2000;
    return s;
}

// Region 12: FM 87.50-108.00 MHz in 50 kHz steps, AM 531-1629 kHz in 9 kHz.
// Signals: DX hears 25 and up, LOC 100 and up.
StationList lineup()
{
    StationList list(12);
    list.insert(station(8800, "ALPHA   ", 10, 150));
    list.insert(station(9000, "BRAVO   ", 1, 40));
    list.insert(station(9500, "CHARLIE ", 3, 200, true));
    list.insert(station(10000, "DELTA   ", 10, 90));
    list.insert(station(10500, "ECHO    ", 24, 30));
    list.insert(station(10790, "FOXTROT ", 11, 120));
    list.insert(station(10795, "GOLF    ", 14, 110));
    list.insert(station(603, "        ", 0, 150));
    list.insert(station(999, "        ", 0, 60));
    list.insert(station(1404, "        ", 0, 20));
    return list;
}

struct Fixture {
    explicit Fixture(const StationList& list = lineup(), quint32 seed = 1)
        : engine(list, seed)
    {
        engine.setTimeScale(1000);
    }
    void command(uint32_t code, uint32_t param = 0) { engine.handleCommand(code, param); }
    bool settle()
    {
        return QTest::qWaitFor([this] { return engine.activity() == TunerEngine::Activity::Idle; }, 5000);
    }
    TunerEngine engine;
};

QByteArray psOf(const tag_RadioCmdFromMCU& r)
{
    return QByteArray(reinterpret_cast<const char*>(r.psName), 8);
}

} // namespace

class TestTunerEngine : public QObject
{
    Q_OBJECT
private slots:
    void stateAtStart();
    void stepUsesRegionStepAndWraps_data();
    void stepUsesRegionStepAndWraps();
    void seekFindsNextStationAndWraps_data();
    void seekFindsNextStationAndWraps();
    void seekReportsIntermediateFrequencies();
    void seekWithoutStationsGoesRoundOnce();
    void bandsRememberTheirFrequency();
    void bandCommand_data();
    void bandCommand();
    void presetRecallNumbering_data();
    void presetRecallNumbering();
    void presetStoreNumbering_data();
    void presetStoreNumbering();
    void presetUpDown_data();
    void presetUpDown();
    void autoSearchStoresStrongestSortedByFrequency_data();
    void autoSearchStoresStrongestSortedByFrequency();
    void autoSearchLeavesOtherBandsAlone();
    void scanStopsOnEachStationUntilACommand();
    void scanKeyStopsScan();
    void presetScanCyclesPresets();
    void setFrequency_data();
    void setFrequency();
    void setFrequencySwitchesToLastBandOfWaveRange();
    void switches_data();
    void switches();
    void rdsOffHidesStationData();
    void ptySeek_data();
    void ptySeek();
    void ptySelectOutOfRangeIgnored();
    void favouritesToggle();
    void unknownCodesChangeNothing_data();
    void unknownCodesChangeNothing();
    void trafficAnnouncementRaisesIndicator();
    void sameSeedSameRecords();
};

void TestTunerEngine::stateAtStart()
{
    Fixture f;
    QCOMPARE(f.engine.region(), 12);
    const tag_RadioCmdFromMCU info = f.engine.record(MCU_TUNE_INFO);
    QCOMPARE(info.cmd, uint32_t(MCU_TUNE_INFO));
    // FM1 holds the six strongest FM stations sorted by frequency.
    QCOMPARE(info.freq, 8800u);
    QCOMPARE(info.band, uint8_t(0));
    QCOMPARE(info.preset, uint8_t(1));
    QCOMPARE(info.dxLoc, uint8_t(0));
    QCOMPARE(info.stereo, uint8_t(1));
    QCOMPARE(psOf(info), QByteArray("ALPHA   "));

    const tag_RadioCmdFromMCU presets = f.engine.record(MCU_PRESET_FREQ);
    const uint16_t fm1[12] = {8800, 9000, 9500, 10000, 10790, 10795, 0, 0, 0, 0, 0, 0};
    QVERIFY(std::memcmp(presets.presetFreq, fm1, sizeof fm1) == 0);
    const tag_RadioCmdFromMCU names = f.engine.record(MCU_PRESET_PS);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(names.presetPsName[2]), 8), QByteArray("CHARLIE "));
    QCOMPARE(names.presetPsName[6][0], uint8_t(0));

    QCOMPARE(f.engine.record(MCU_PTY).pty, uint8_t(10));
    QCOMPARE(f.engine.record(MCU_SIGNAL).signal, uint8_t(150));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(f.engine.record(MCU_RADIO_TEXT).radioText)), QByteArray("ALPHA text"));
    // RDS and AF on, TA and REG off, no TP on ALPHA.
    QCOMPARE(f.engine.record(MCU_RDS_FLAGS).rdsFlags, uint8_t(TunerEngine::kRdsOnFlag | RDS_FLAG_AF));
}

void TestTunerEngine::stepUsesRegionStepAndWraps_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<uint32_t>("start");
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<uint32_t>("expected");
    QTest::newRow("r12 FM up 50 kHz") << 12 << 8800u << uint32_t(RC_STEP_UP) << 8805u;
    QTest::newRow("r12 FM top wraps") << 12 << 10800u << uint32_t(RC_STEP_UP) << 8750u;
    QTest::newRow("r12 FM bottom wraps") << 12 << 8750u << uint32_t(RC_STEP_DOWN) << 10800u;
    QTest::newRow("r12 AM up 9 kHz") << 12 << 531u << uint32_t(RC_STEP_UP) << 540u;
    QTest::newRow("r12 AM top wraps") << 12 << 1629u << uint32_t(RC_STEP_UP) << 531u;
    QTest::newRow("r9 FM top wraps") << 9 << 7400u << uint32_t(RC_STEP_UP) << 6500u;
    QTest::newRow("r0 FM bottom wraps") << 0 << 8790u << uint32_t(RC_STEP_DOWN) << 10790u;
    QTest::newRow("r19 AM bottom wraps") << 19 << 520u << uint32_t(RC_STEP_DOWN) << 1620u;
}

void TestTunerEngine::stepUsesRegionStepAndWraps()
{
    QFETCH(int, region);
    QFETCH(uint32_t, start);
    QFETCH(uint32_t, code);
    QFETCH(uint32_t, expected);
    Fixture f{StationList(region)};
    f.command(RC_SET_FREQ, start);
    QCOMPARE(f.engine.frequency(), start);
    f.command(code);
    QCOMPARE(f.engine.frequency(), expected);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).freq, expected);
}

void TestTunerEngine::seekFindsNextStationAndWraps_data()
{
    QTest::addColumn<uint32_t>("start");
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<bool>("loc");
    QTest::addColumn<uint32_t>("expected");
    QTest::newRow("up to weak in DX") << 8800u << uint32_t(RC_SEEK_UP) << false << 9000u;
    QTest::newRow("up skips weak in LOC") << 8800u << uint32_t(RC_SEEK_UP) << true << 9500u;
    QTest::newRow("up wraps at top") << 10795u << uint32_t(RC_SEEK_UP) << false << 8800u;
    QTest::newRow("down wraps at bottom") << 8800u << uint32_t(RC_SEEK_DOWN) << false << 10795u;
    QTest::newRow("down in LOC") << 10790u << uint32_t(RC_SEEK_DOWN) << true << 9500u;
    QTest::newRow("AM up") << 603u << uint32_t(RC_SEEK_UP) << false << 999u;
    QTest::newRow("AM wraps past noise") << 999u << uint32_t(RC_SEEK_UP) << false << 603u;
    QTest::newRow("AM LOC only one") << 603u << uint32_t(RC_SEEK_DOWN) << true << 603u;
}

void TestTunerEngine::seekFindsNextStationAndWraps()
{
    QFETCH(uint32_t, start);
    QFETCH(uint32_t, code);
    QFETCH(bool, loc);
    QFETCH(uint32_t, expected);
    Fixture f;
    f.command(RC_SET_FREQ, start);
    f.command(RC_DX_LOC, loc ? 1 : 0);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).dxLoc, uint8_t(loc ? 1 : 0));
    f.command(code);
    QCOMPARE(f.engine.activity(), TunerEngine::Activity::Seek);
    QVERIFY(f.settle());
    QCOMPARE(f.engine.frequency(), expected);
    const Station* s = f.engine.stations().at(expected);
    QVERIFY(s);
    QCOMPARE(f.engine.psName(), s->ps);
    QCOMPARE(f.engine.signal(), s->signal);
}

void TestTunerEngine::seekReportsIntermediateFrequencies()
{
    Fixture f;
    QVector<uint32_t> seen{8800};
    QVector<QByteArray> names{f.engine.psName()};
    connect(&f.engine, &TunerEngine::stateChanged, [&] {
        if (seen.isEmpty() || seen.last() != f.engine.frequency()) {
            seen << f.engine.frequency();
            names << f.engine.psName();
        }
    });
    f.command(RC_SEEK_DOWN);   // 8800 down wraps to 10795
    QVERIFY(f.settle());
    // Start, a few passing channels, goal.
    const int passing = seen.size() - 2;
    QVERIFY2(passing >= 2 && passing <= TunerEngine::kMoveUpdates, qPrintable(QString::number(passing)));
    QCOMPARE(seen.last(), 10795u);
    QCOMPARE(names.last(), QByteArray("GOLF    "));
    // Passing channels move downwards through the wrap, muted.
    const BandPlan plan(12);
    for (int i = 1; i <= passing; ++i) {
        QVERIFY(plan.isChannel(seen.at(i)));
        QVERIFY(plan.distance(8800, seen.at(i), -1) > plan.distance(8800, seen.at(i - 1), -1));
        QCOMPARE(names.at(i), QByteArray(8, ' '));
    }
}

void TestTunerEngine::seekWithoutStationsGoesRoundOnce()
{
    Fixture f{StationList(12)};
    f.command(RC_SET_FREQ, 9800);
    QSignalSpy notes(&f.engine, &TunerEngine::note);
    f.command(RC_SEEK_UP);
    QVERIFY(f.settle());
    QCOMPARE(f.engine.frequency(), 9800u);
    QCOMPARE(notes.count(), 1);
}

void TestTunerEngine::bandsRememberTheirFrequency()
{
    Fixture f;
    f.command(RC_STEP_UP);
    QCOMPARE(f.engine.frequency(), 8805u);
    f.command(RC_BAND, 2);   // FM2 starts on its preset 1
    QCOMPARE(f.engine.band(), uint8_t(1));
    QCOMPARE(f.engine.frequency(), f.engine.presetFrequency(1, 1));
    f.command(RC_STEP_DOWN);
    const uint32_t fm2 = f.engine.frequency();
    f.command(RC_BAND, 4);
    QCOMPARE(f.engine.band(), uint8_t(3));
    QCOMPARE(f.engine.frequency(), 603u);
    f.command(RC_STEP_UP);
    f.command(RC_BAND, 1);
    QCOMPARE(f.engine.frequency(), 8805u);
    f.command(RC_BAND, 2);
    QCOMPARE(f.engine.frequency(), fm2);
    f.command(RC_BAND, 4);
    QCOMPARE(f.engine.frequency(), 612u);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).band, uint8_t(3));
}

void TestTunerEngine::bandCommand_data()
{
    QTest::addColumn<uint32_t>("startParam");
    QTest::addColumn<uint32_t>("param");
    QTest::addColumn<int>("expectedBand");
    QTest::newRow("FM1 to AM2") << 1u << 5u << 4;
    QTest::newRow("0 cycles FM3 to AM1") << 3u << 0u << 3;
    QTest::newRow("6 ignored") << 2u << 6u << 1;
    QTest::newRow("huge ignored") << 4u << 0xFFFFFFFFu << 3;
}

void TestTunerEngine::bandCommand()
{
    QFETCH(uint32_t, startParam);
    QFETCH(uint32_t, param);
    QFETCH(int, expectedBand);
    Fixture f;
    f.command(RC_BAND, startParam);
    f.command(RC_BAND, param);
    QCOMPARE(int(f.engine.band()), expectedBand);
    QCOMPARE(f.engine.frequency(), f.engine.bandFrequency(expectedBand));
}

void TestTunerEngine::presetRecallNumbering_data()
{
    QTest::addColumn<uint32_t>("bandParam");
    QTest::addColumn<uint32_t>("number");
    QTest::addColumn<int>("expectedBand");
    QTest::addColumn<int>("expectedKey");
    QTest::newRow("FM1 key 1") << 1u << 1u << 0 << 1;
    QTest::newRow("FM1 number 9 is FM2 key 3") << 1u << 9u << 1 << 3;
    QTest::newRow("FM3 number 18") << 3u << 18u << 2 << 6;
    QTest::newRow("AM1 number 6") << 4u << 6u << 3 << 6;
    QTest::newRow("AM1 number 7 is AM2 key 1") << 4u << 7u << 4 << 1;
    QTest::newRow("FM 19 ignored") << 1u << 19u << -1 << 0;
    QTest::newRow("0 ignored") << 2u << 0u << -1 << 0;
}

void TestTunerEngine::presetRecallNumbering()
{
    QFETCH(uint32_t, bandParam);
    QFETCH(uint32_t, number);
    QFETCH(int, expectedBand);
    QFETCH(int, expectedKey);
    Fixture f;
    f.command(RC_BAND, bandParam);
    f.command(RC_STEP_UP);   // off every preset
    const uint32_t before = f.engine.frequency();
    QSignalSpy notes(&f.engine, &TunerEngine::note);
    f.command(RC_PRESET, number);
    if (expectedBand < 0) {
        QCOMPARE(notes.count(), 1);
        QCOMPARE(int(f.engine.band()), int(bandParam) - 1);
        QCOMPARE(f.engine.frequency(), before);
        return;
    }
    QCOMPARE(int(f.engine.band()), expectedBand);
    QCOMPARE(f.engine.frequency(), f.engine.presetFrequency(expectedBand, expectedKey));
    QCOMPARE(int(f.engine.record(MCU_TUNE_INFO).preset), expectedKey);
}

void TestTunerEngine::presetStoreNumbering_data()
{
    QTest::addColumn<uint32_t>("bandParam");
    QTest::addColumn<uint32_t>("tuneTo");
    QTest::addColumn<uint32_t>("number");
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("FM1 key 4") << 1u << 10790u << 4u << 0 << 4 << QByteArray("FOXTROT ");
    QTest::newRow("FM2 key 3 is 9") << 2u << 9500u << 9u << 1 << 3 << QByteArray("CHARLIE ");
    QTest::newRow("FM3 key 6 is 18") << 3u << 9800u << 18u << 2 << 6 << QByteArray(8, ' ');
    QTest::newRow("AM2 key 6 is 12") << 5u << 999u << 12u << 4 << 6 << QByteArray(8, ' ');
}

void TestTunerEngine::presetStoreNumbering()
{
    QFETCH(uint32_t, bandParam);
    QFETCH(uint32_t, tuneTo);
    QFETCH(uint32_t, number);
    QFETCH(int, band);
    QFETCH(int, key);
    QFETCH(QByteArray, name);
    Fixture f;
    f.command(RC_BAND, bandParam);
    f.command(RC_SET_FREQ, tuneTo);
    f.command(RC_PRESET_LONG, number);
    QCOMPARE(f.engine.presetFrequency(band, key), tuneTo);
    QCOMPARE(f.engine.presetName(band, key), name);
    const tag_RadioCmdFromMCU presets = f.engine.record(MCU_PRESET_FREQ);
    QCOMPARE(uint32_t(presets.presetFreq[key - 1]), tuneTo);
    QCOMPARE(int(f.engine.record(MCU_TUNE_INFO).preset), key);
    // Recall from elsewhere in the band brings it back.
    f.command(RC_STEP_DOWN);
    QCOMPARE(int(f.engine.presetKey()), 0);
    f.command(RC_PRESET, number);
    QCOMPARE(f.engine.frequency(), tuneTo);
}

void TestTunerEngine::presetUpDown_data()
{
    QTest::addColumn<uint32_t>("startKey");
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<int>("expectedKey");
    QTest::newRow("down from 1") << 1u << uint32_t(RC_PRESET_DOWN) << 2;
    QTest::newRow("down from 6 wraps") << 6u << uint32_t(RC_PRESET_DOWN) << 1;
    QTest::newRow("up from 1 wraps") << 1u << uint32_t(RC_PRESET_UP) << 6;
    QTest::newRow("up off preset") << 0u << uint32_t(RC_PRESET_UP) << 6;
}

void TestTunerEngine::presetUpDown()
{
    QFETCH(uint32_t, startKey);
    QFETCH(uint32_t, code);
    QFETCH(int, expectedKey);
    Fixture f;
    if (startKey > 0)
        f.command(RC_PRESET, startKey);
    else
        f.command(RC_SET_FREQ, 9800);
    QCOMPARE(uint32_t(f.engine.presetKey()), startKey);
    f.command(code);
    QCOMPARE(int(f.engine.presetKey()), expectedKey);
    QCOMPARE(f.engine.frequency(), f.engine.presetFrequency(0, expectedKey));
}

void TestTunerEngine::autoSearchStoresStrongestSortedByFrequency_data()
{
    QTest::addColumn<bool>("loc");
    QTest::addColumn<QVector<uint32_t>>("presets");
    QTest::addColumn<QByteArray>("lastName");
    // DX: seven receivable, the weakest (ECHO, 30) left out.
    QTest::newRow("DX") << false << QVector<uint32_t>{8800, 9000, 9500, 10000, 10790, 10795} << QByteArray("GOLF    ");
    // LOC: four strong ones; the rest get the band's lowest channel.
    QTest::newRow("LOC") << true << QVector<uint32_t>{8800, 9500, 10790, 10795, 8750, 8750} << QByteArray(8, ' ');
}

void TestTunerEngine::autoSearchStoresStrongestSortedByFrequency()
{
    QFETCH(bool, loc);
    QFETCH(QVector<uint32_t>, presets);
    QFETCH(QByteArray, lastName);
    Fixture f;
    f.command(RC_BAND, 3);   // FM3 starts with filler presets
    f.command(RC_DX_LOC, loc ? 1 : 0);
    bool sawAsState = false;
    connect(&f.engine, &TunerEngine::stateChanged, [&] { sawAsState |= f.engine.record(MCU_TUNE_INFO).asState != 0; });
    f.command(RC_AUTO_SEARCH);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).asState, uint8_t(1));
    QVERIFY(f.settle());
    QVERIFY(sawAsState);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).asState, uint8_t(0));
    const tag_RadioCmdFromMCU r = f.engine.record(MCU_PRESET_FREQ);
    for (int k = 0; k < 6; ++k)
        QCOMPARE(uint32_t(r.presetFreq[k]), presets.at(k));
    QCOMPARE(f.engine.presetName(2, 6), lastName);
    QCOMPARE(f.engine.frequency(), presets.first());
    QCOMPARE(int(f.engine.presetKey()), 1);
}

void TestTunerEngine::autoSearchLeavesOtherBandsAlone()
{
    Fixture f;
    const uint32_t fm1 = f.engine.presetFrequency(0, 6);
    f.command(RC_BAND, 2);
    f.command(RC_DX_LOC, 1);
    f.command(RC_AUTO_SEARCH);
    QVERIFY(f.settle());
    QCOMPARE(f.engine.presetFrequency(1, 1), 8800u);
    QCOMPARE(f.engine.presetFrequency(0, 6), fm1);
    // Stopped half way, the presets stay as they were.
    f.command(RC_BAND, 3);
    const uint32_t fm3 = f.engine.presetFrequency(2, 1);
    f.command(RC_AUTO_SEARCH);
    f.command(RC_AUTO_SEARCH);
    QCOMPARE(f.engine.activity(), TunerEngine::Activity::Idle);
    QCOMPARE(f.engine.presetFrequency(2, 1), fm3);
}

void TestTunerEngine::scanStopsOnEachStationUntilACommand()
{
    Fixture f;
    f.engine.setTimeScale(200);   // 25 ms on each station
    QVector<uint32_t> stops;
    connect(&f.engine, &TunerEngine::stateChanged, [&] {
        // A stop is where the tuner listens: not muted as when passing.
        if (f.engine.activity() == TunerEngine::Activity::Scan && f.engine.psName() != QByteArray(8, ' ')
            && (stops.isEmpty() || stops.last() != f.engine.frequency()))
            stops << f.engine.frequency();
    });
    f.command(RC_SCAN);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).scanState, uint8_t(1));
    QTRY_VERIFY_WITH_TIMEOUT(stops.size() >= 5, 10000);
    QStringList visited;
    for (uint32_t stop : stops)
        visited << QString::number(stop);
    QCOMPARE(visited.mid(0, 5).join(' '), QStringLiteral("8800 9000 9500 10000 10500"));
    f.command(RC_AF, 0);
    QCOMPARE(f.engine.activity(), TunerEngine::Activity::Idle);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).scanState, uint8_t(0));
    const uint32_t stay = f.engine.frequency();
    QSignalSpy changes(&f.engine, &TunerEngine::stateChanged);
    QVERIFY(!changes.wait(100));
    QCOMPARE(f.engine.frequency(), stay);
}

void TestTunerEngine::scanKeyStopsScan()
{
    Fixture f;
    f.command(RC_SCAN);
    f.command(RC_SCAN);
    QCOMPARE(f.engine.activity(), TunerEngine::Activity::Idle);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).scanState, uint8_t(0));
    // Stopped before it moved: still listening to the start station.
    QCOMPARE(f.engine.frequency(), 8800u);
    QCOMPARE(f.engine.psName(), QByteArray("ALPHA   "));
}

void TestTunerEngine::presetScanCyclesPresets()
{
    Fixture f;
    f.engine.setTimeScale(500);
    QVector<int> keys;
    connect(&f.engine, &TunerEngine::stateChanged, [&] {
        if (f.engine.record(MCU_TUNE_INFO).psState && (keys.isEmpty() || keys.last() != f.engine.presetKey()))
            keys << f.engine.presetKey();
    });
    f.command(RC_PS);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).psState, uint8_t(1));
    QTRY_VERIFY_WITH_TIMEOUT(keys.size() >= 8, 10000);
    QCOMPARE(keys.mid(0, 8), (QVector<int>{1, 2, 3, 4, 5, 6, 1, 2}));
    f.command(RC_PS);
    QCOMPARE(f.engine.record(MCU_TUNE_INFO).psState, uint8_t(0));
}

void TestTunerEngine::setFrequency_data()
{
    QTest::addColumn<uint32_t>("value");
    QTest::addColumn<uint32_t>("expected");   // 0: refused
    QTest::addColumn<int>("band");
    QTest::newRow("FM on grid") << 9810u << 9810u << 0;
    QTest::newRow("FM snapped down") << 9812u << 9810u << 0;
    QTest::newRow("FM top edge") << 10800u << 10800u << 0;
    QTest::newRow("FM above") << 10801u << 0u << 0;
    QTest::newRow("2000 is FM") << 2000u << 0u << 0;
    QTest::newRow("1999 is AM") << 1999u << 0u << 0;
    QTest::newRow("AM top edge") << 1629u << 1629u << 3;
    QTest::newRow("AM below") << 530u << 0u << 0;
    QTest::newRow("beyond 16 bits") << 0x10000u + 9810u << 0u << 0;
}

void TestTunerEngine::setFrequency()
{
    QFETCH(uint32_t, value);
    QFETCH(uint32_t, expected);
    QFETCH(int, band);
    Fixture f;
    QSignalSpy resend(&f.engine, &TunerEngine::stateRequested);
    f.command(RC_SET_FREQ, value);
    if (expected == 0) {
        QCOMPARE(resend.count(), 1);
        QCOMPARE(f.engine.frequency(), 8800u);
    } else {
        QCOMPARE(resend.count(), 0);
        QCOMPARE(f.engine.frequency(), expected);
    }
    QCOMPARE(int(f.engine.band()), band);
}

void TestTunerEngine::setFrequencySwitchesToLastBandOfWaveRange()
{
    Fixture f;
    f.command(RC_BAND, 2);   // FM2
    f.command(RC_BAND, 5);   // AM2
    f.command(RC_SET_FREQ, 9810);
    QCOMPARE(int(f.engine.band()), 1);
    f.command(RC_SET_FREQ, 999);
    QCOMPARE(int(f.engine.band()), 4);
    QCOMPARE(f.engine.frequency(), 999u);
    f.command(RC_SET_FREQ, 1008);   // same wave range: band stays
    QCOMPARE(int(f.engine.band()), 4);
}

void TestTunerEngine::switches_data()
{
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<uint32_t>("param");
    QTest::addColumn<int>("flags");
    const int base = TunerEngine::kRdsOnFlag | RDS_FLAG_TP;   // on CHARLIE, a TP station
    QTest::newRow("AF on") << uint32_t(RC_AF) << 1u << (base | RDS_FLAG_AF);
    QTest::newRow("REG on") << uint32_t(RC_REG) << 1u << (base | RDS_FLAG_AF | RDS_FLAG_REG);
    QTest::newRow("any non-zero is on") << uint32_t(RC_REG) << 7u << (base | RDS_FLAG_AF | RDS_FLAG_REG);
    QTest::newRow("RDS off") << uint32_t(RC_RDS) << 0u << int(RDS_FLAG_AF);
}

void TestTunerEngine::switches()
{
    QFETCH(uint32_t, code);
    QFETCH(uint32_t, param);
    QFETCH(int, flags);
    Fixture f;
    f.command(RC_PRESET, 3);   // CHARLIE
    f.command(code, param);
    QCOMPARE(int(f.engine.record(MCU_RDS_FLAGS).rdsFlags), flags);
}

void TestTunerEngine::rdsOffHidesStationData()
{
    Fixture f;
    f.command(RC_RDS, 0);
    QCOMPARE(f.engine.psName(), QByteArray(8, ' '));
    QCOMPARE(f.engine.record(MCU_PTY).pty, uint8_t(0));
    QCOMPARE(f.engine.record(MCU_RADIO_TEXT).radioText[0], uint8_t(0));
    f.command(RC_RDS, 1);
    QCOMPARE(f.engine.psName(), QByteArray("ALPHA   "));
}

void TestTunerEngine::ptySeek_data()
{
    QTest::addColumn<uint32_t>("pty");
    QTest::addColumn<bool>("loc");
    QTest::addColumn<uint32_t>("expected");
    QTest::newRow("jazz in DX") << 24u << false << 10500u;
    QTest::newRow("pop wraps to next pop") << 10u << false << 10000u;
    QTest::newRow("jazz too weak for LOC") << 24u << true << 8800u;
    QTest::newRow("nobody plays weather") << 16u << false << 8800u;
}

void TestTunerEngine::ptySeek()
{
    QFETCH(uint32_t, pty);
    QFETCH(bool, loc);
    QFETCH(uint32_t, expected);
    Fixture f;
    f.command(RC_DX_LOC, loc ? 1 : 0);
    f.command(RC_PTY_SELECTED, pty);
    QCOMPARE(uint32_t(f.engine.record(MCU_PTY).selectedPty), pty);
    f.command(RC_PTY_SEEK);
    QVERIFY(f.settle());
    QCOMPARE(f.engine.frequency(), expected);
}

void TestTunerEngine::ptySelectOutOfRangeIgnored()
{
    Fixture f;
    f.command(RC_PTY_SELECTED, 5);
    QSignalSpy notes(&f.engine, &TunerEngine::note);
    f.command(RC_PTY_SELECTED, 32);
    QCOMPARE(notes.count(), 1);
    QCOMPARE(f.engine.selectedPty(), uint8_t(5));
}

void TestTunerEngine::favouritesToggle()
{
    Fixture f;
    f.command(RC_FAVOR);
    f.command(RC_PRESET, 3);
    f.command(RC_FAVOR);
    QCOMPARE(f.engine.favourites(), (QVector<uint16_t>{8800, 9500}));
    tag_RadioCmdFromMCU r = f.engine.record(MCU_FAVOURITE);
    // Six little-endian 16-bit frequencies.
    QCOMPARE(r.favourite[0] | r.favourite[1] << 8, 8800);
    QCOMPARE(r.favourite[2] | r.favourite[3] << 8, 9500);
    QCOMPARE(r.favourite[4], uint8_t(0));
    f.command(RC_PRESET, 1);
    f.command(RC_FAVOR);
    QCOMPARE(f.engine.favourites(), (QVector<uint16_t>{9500}));
    // Full: the oldest goes.
    for (uint32_t freq : {9000u, 10000u, 10500u, 10790u, 10795u, 9810u}) {
        f.command(RC_SET_FREQ, freq);
        f.command(RC_FAVOR);
    }
    QCOMPARE(f.engine.favourites(), (QVector<uint16_t>{9000, 10000, 10500, 10790, 10795, 9810}));
}

void TestTunerEngine::unknownCodesChangeNothing_data()
{
    QTest::addColumn<uint32_t>("code");
    QTest::newRow("23") << 23u;
    QTest::newRow("256") << 256u;
    QTest::newRow("max") << 0xFFFFFFFFu;
}

void TestTunerEngine::unknownCodesChangeNothing()
{
    QFETCH(uint32_t, code);
    Fixture f;
    f.command(RC_SCAN);
    const tag_RadioCmdFromMCU before = f.engine.record(MCU_TUNE_INFO);
    QSignalSpy notes(&f.engine, &TunerEngine::note);
    QSignalSpy changes(&f.engine, &TunerEngine::stateChanged);
    f.command(code, 3);
    QCOMPARE(notes.count(), 1);
    QCOMPARE(changes.count(), 0);
    // Not a command: the scan goes on.
    QCOMPARE(f.engine.activity(), TunerEngine::Activity::Scan);
    const tag_RadioCmdFromMCU after = f.engine.record(MCU_TUNE_INFO);
    QVERIFY(std::memcmp(&before, &after, sizeof before) == 0);
}

void TestTunerEngine::trafficAnnouncementRaisesIndicator()
{
    StationList list(12);
    Station s = station(9500, "TRAFFIC ", 3, 180, true);
    s.taPeriodMs = 2000;
    s.taLengthMs = 1000;
    list.insert(s);
    Fixture f{list};
    f.engine.setTimeScale(100);
    QCOMPARE(f.engine.frequency(), 9500u);
    QCOMPARE(f.engine.rdsFlags() & RDS_FLAG_TA_IND, 0);
    QTRY_VERIFY_WITH_TIMEOUT(f.engine.rdsFlags() & RDS_FLAG_TA_IND, 5000);
    QVERIFY(f.engine.rdsFlags() & RDS_FLAG_TP);
    QTRY_COMPARE_WITH_TIMEOUT(f.engine.rdsFlags() & RDS_FLAG_TA_IND, 0, 5000);
}

void TestTunerEngine::sameSeedSameRecords()
{
    auto run = [](quint32 seed) {
        Fixture f{StationList::builtIn(12, seed), seed};
        QByteArray records;
        connect(&f.engine, &TunerEngine::stateChanged, [&] {
            for (uint32_t kind : TunerEngine::stateKinds()) {
                const tag_RadioCmdFromMCU r = f.engine.record(kind);
                records.append(reinterpret_cast<const char*>(&r), sizeof r);
            }
        });
        const uint32_t script[][2] = {{RC_SEEK_UP, 0}, {RC_STEP_UP, 0}, {RC_BAND, 2}, {RC_AUTO_SEARCH, 0},
                                      {RC_PRESET, 9}, {RC_SEEK_DOWN, 0}, {RC_PRESET_LONG, 7}, {RC_BAND, 4}};
        for (const auto& c : script) {
            f.command(c[0], c[1]);
            if (!f.settle())
                return QByteArray("timeout");
        }
        return records;
    };
    const QByteArray first = run(7);
    QVERIFY(first.size() > 20 * int(sizeof(tag_RadioCmdFromMCU)));
    QCOMPARE(run(7), first);
    QVERIFY(run(8) != first);
}

QTEST_GUILESS_MAIN(TestTunerEngine)
#include "tst_tunerengine.moc"
