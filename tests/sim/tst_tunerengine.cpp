// What each command does to the state the tuner reports, on a known
// line-up of region 12 (FM 87.50-108.00 MHz in 50 kHz steps, AM 531-1629
// kHz in 9 kHz; DX hears signals of 25 and more, LOC of 100 and more).
#include "ProtocolTrace.h"
#include "RadioCmdToMCU.h"
#include "TunerEngine.h"

#include <QtTest>

using Script = QVector<QPair<uint32_t, uint32_t>>;
Q_DECLARE_METATYPE(Script)

namespace {

// region -1: the known line-up; else an empty one of that region.
StationList lineup(int region)
{
    StationList list(region < 0 ? 12 : region);
    for (const Station& s : {Station{8800, "ALPHA   ", 10, false, "ALPHA text", 150}, Station{9000, "BRAVO   ", 1, false, "", 40},
                             Station{9500, "CHARLIE ", 3, true, "", 200}, Station{10000, "DELTA   ", 10, false, "", 90},
                             Station{10500, "ECHO    ", 24, false, "", 30}, Station{10790, "FOXTROT ", 11, false, "", 120},
                             Station{10795, "GOLF    ", 14, false, "", 110}, Station{603, "        ", 0, false, "", 150},
                             Station{999, "        ", 0, false, "", 60}, Station{1404, "        ", 0, false, "", 20}}) {
        if (region < 0)
            list.insert(s);
    }
    return list;
}

// Runs the script, letting each seek, scan or search finish.
bool run(TunerEngine& engine, const Script& script)
{
    engine.setTimeScale(1000);
    for (const auto& command : script) {
        engine.handleCommand(command.first, command.second);
        if (!QTest::qWaitFor([&] { return engine.activity() == TunerEngine::Activity::Idle; }, 5000))
            return false;
    }
    return true;
}

} // namespace

class TestTunerEngine : public QObject
{
    Q_OBJECT
private slots:
    void tuning_data();
    void tuning();
    void records_data();
    void records();
    void sweepsStopOnEachStationUntilTheirKey_data();
    void sweepsStopOnEachStationUntilTheirKey();
};

// After the script: "freq band preset name" of the tune info, and the
// presets of the current band as the trace prints them ("" not checked).
void TestTunerEngine::tuning_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<Script>("script");
    QTest::addColumn<QString>("tuned");
    QTest::addColumn<QString>("presets");
    const QString fm1 = "-> MCU_PRESET_FREQ 8800 9000 9500 10000 10790 10795";
    const QString none = "8800 0 1 ALPHA";
    QTest::newRow("start: strongest six") << -1 << Script{} << none << fm1;
    QTest::newRow("step up") << -1 << Script{{RC_STEP_UP, 0}} << "8805 0 0 " << fm1;
    QTest::newRow("step wraps at the top") << -1 << Script{{RC_SET_FREQ, 10800}, {RC_STEP_UP, 0}} << "8750 0 0 " << "";
    QTest::newRow("AM step") << -1 << Script{{RC_SET_FREQ, 603}, {RC_STEP_UP, 0}} << "612 3 0 " << "";
    QTest::newRow("region 9 wraps") << 9 << Script{{RC_SET_FREQ, 7400}, {RC_STEP_UP, 0}} << "6500 0 1 " << "";
    QTest::newRow("region 19 AM wraps") << 19 << Script{{RC_SET_FREQ, 520}, {RC_STEP_DOWN, 0}} << "1620 3 6 " << "";
    QTest::newRow("seek: weak one in DX") << -1 << Script{{RC_SEEK_UP, 0}} << "9000 0 2 BRAVO" << fm1;
    QTest::newRow("seek: not in LOC") << -1 << Script{{RC_DX_LOC, 1}, {RC_SEEK_UP, 0}} << "9500 0 3 CHARLIE" << fm1;
    QTest::newRow("seek down wraps") << -1 << Script{{RC_SEEK_DOWN, 0}} << "10795 0 6 GOLF" << fm1;
    QTest::newRow("AM seek passes noise") << -1 << Script{{RC_SET_FREQ, 999}, {RC_SEEK_UP, 0}} << "603 3 1 " << "";
    QTest::newRow("seek on nothing goes round") << 12 << Script{{RC_SET_FREQ, 9800}, {RC_SEEK_UP, 0}} << "9800 0 0 " << "";
    QTest::newRow("band keeps its frequency") << -1 << Script{{RC_STEP_UP, 0}, {RC_BAND, 4}, {RC_BAND, 1}} << "8805 0 0 " << fm1;
    QTest::newRow("band 0 cycles FM3 to AM1") << -1 << Script{{RC_BAND, 3}, {RC_BAND, 0}} << "603 3 1 " << "";
    QTest::newRow("band 6 ignored") << -1 << Script{{RC_BAND, 6}} << none << fm1;
    QTest::newRow("preset 3") << -1 << Script{{RC_STEP_UP, 0}, {RC_PRESET, 3}} << "9500 0 3 CHARLIE" << fm1;
    QTest::newRow("preset 7 is FM2 key 1") << -1 << Script{{RC_PRESET, 7}} << "10500 1 1 ECHO" << "";
    QTest::newRow("preset 19 ignored") << -1 << Script{{RC_STEP_UP, 0}, {RC_PRESET, 19}} << "8805 0 0 " << fm1;
    QTest::newRow("AM preset 7 is AM2 key 1") << -1 << Script{{RC_BAND, 4}, {RC_PRESET, 7}} << "531 4 1 " << "";
    QTest::newRow("store 4, recall") << -1 << Script{{RC_SET_FREQ, 10500}, {RC_PRESET_LONG, 4}, {RC_STEP_UP, 0}, {RC_PRESET, 4}}
                                     << "10500 0 4 ECHO" << "-> MCU_PRESET_FREQ 8800 9000 9500 10500 10790 10795";
    QTest::newRow("store 9 is FM2 key 3") << -1 << Script{{RC_BAND, 2}, {RC_SET_FREQ, 9500}, {RC_PRESET_LONG, 9}}
                                          << "9500 1 3 CHARLIE" << "";
    QTest::newRow("preset down from 6 wraps") << -1 << Script{{RC_PRESET, 6}, {RC_PRESET_DOWN, 0}} << none << fm1;
    QTest::newRow("preset up from 1 wraps") << -1 << Script{{RC_PRESET_UP, 0}} << "10795 0 6 GOLF" << fm1;
    QTest::newRow("auto search") << -1 << Script{{RC_BAND, 3}, {RC_AUTO_SEARCH, 0}} << "8800 2 1 ALPHA" << fm1;
    QTest::newRow("auto search in LOC fills up") << -1 << Script{{RC_BAND, 3}, {RC_DX_LOC, 1}, {RC_AUTO_SEARCH, 0}}
                                                 << "8800 2 1 ALPHA" << "-> MCU_PRESET_FREQ 8800 9500 10790 10795 8750 8750";
    QTest::newRow("frequency snapped") << -1 << Script{{RC_SET_FREQ, 9812}} << "9810 0 0 " << "";
    QTest::newRow("above FM refused") << -1 << Script{{RC_SET_FREQ, 10801}} << none << "";
    QTest::newRow("1999 is AM, refused") << -1 << Script{{RC_SET_FREQ, 1999}} << none << "";
    QTest::newRow("beyond 16 bits refused") << -1 << Script{{RC_SET_FREQ, 0x10000 + 9810}} << none << "";
    QTest::newRow("frequency to the last band of its range") << -1 << Script{{RC_BAND, 2}, {RC_BAND, 5}, {RC_SET_FREQ, 9810}}
                                                            << "9810 1 0 " << "";
    QTest::newRow("PTY seek") << -1 << Script{{RC_PTY_SELECTED, 10}, {RC_PTY_SEEK, 0}} << "10000 0 4 DELTA" << fm1;
    QTest::newRow("PTY seek in LOC") << -1 << Script{{RC_DX_LOC, 1}, {RC_PTY_SELECTED, 24}, {RC_PTY_SEEK, 0}} << none << fm1;
    QTest::newRow("unused codes") << -1 << Script{{23, 1}, {256, 2}, {0xFFFFFFFF, 3}} << none << fm1;
}

void TestTunerEngine::tuning()
{
    QFETCH(int, region);
    QFETCH(Script, script);
    QFETCH(QString, tuned);
    QFETCH(QString, presets);
    TunerEngine engine(lineup(region), 1);
    QVERIFY(run(engine, script));
    const tag_RadioCmdFromMCU info = engine.record(MCU_TUNE_INFO);
    QCOMPARE(QString("%1 %2 %3 %4").arg(info.freq).arg(info.band).arg(info.preset)
                 .arg(QString::fromLatin1(reinterpret_cast<const char*>(info.psName), 8).trimmed()), tuned);
    QCOMPARE(info.asState | info.scanState | info.psState, 0);
    if (!presets.isEmpty())
        QCOMPARE(ProtocolTrace::recordLine(engine.record(MCU_PRESET_FREQ)), presets);
}

// Other records after a script, as the trace prints them.
void TestTunerEngine::records_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QString>("line");
    QTest::newRow("flags at start") << Script{} << "-> MCU_RDS_FLAGS flags=0x05 [RDS AF]";
    QTest::newRow("TP station, TA and REG on") << Script{{RC_PRESET, 3}, {RC_TA, 1}, {RC_REG, 7}}
                                               << "-> MCU_RDS_FLAGS flags=0x4f [RDS TP AF TA REG]";
    QTest::newRow("RDS off hides the name") << Script{{RC_RDS, 0}} << "-> MCU_PS_NAME psName=\"        \"";
    QTest::newRow("PTY 32 not selectable") << Script{{RC_PTY_SELECTED, 5}, {RC_PTY_SELECTED, 32}} << "-> MCU_PTY pty=10 selected=5";
    QTest::newRow("favourite toggles") << Script{{RC_FAVOR, 0}, {RC_PRESET, 3}, {RC_FAVOR, 0}, {RC_PRESET, 1}, {RC_FAVOR, 0}}
                                       << "-> MCU_FAVOURITE 9500 0 0 0 0 0";
    QTest::newRow("stored name") << Script{{RC_SET_FREQ, 10500}, {RC_PRESET_LONG, 2}}
                                 << "-> MCU_PRESET_PS \"ALPHA   \" \"ECHO    \" \"CHARLIE \" \"DELTA   \" \"FOXTROT \" \"GOLF    \"";
    QTest::newRow("AM tune info") << Script{{RC_BAND, 4}} << "-> MCU_TUNE_INFO freq=603 (603 kHz) band=3 (AM1) preset=1 dxLoc=0 "
                                                             "as=0 stereo=0 ps=0 scan=0 psName=\"        \"";
}

void TestTunerEngine::records()
{
    QFETCH(Script, script);
    QFETCH(QString, line);
    TunerEngine engine(lineup(-1), 1);
    QVERIFY(run(engine, script));
    const QMap<QString, uint32_t> kinds{{"RDS_FLAGS", MCU_RDS_FLAGS}, {"PS_NAME", MCU_PS_NAME}, {"PTY", MCU_PTY},
        {"FAVOURITE", MCU_FAVOURITE}, {"PRESET_PS", MCU_PRESET_PS}, {"TUNE_INFO", MCU_TUNE_INFO}};
    QCOMPARE(ProtocolTrace::recordLine(engine.record(kinds.value(line.section(' ', 1, 1).mid(4)))), line);
}

// Scan stops on every station it hears, preset scan on every preset; the
// key that started them stops them where they are.
void TestTunerEngine::sweepsStopOnEachStationUntilTheirKey_data()
{
    QTest::addColumn<uint32_t>("code");
    QTest::addColumn<QString>("stops");
    QTest::newRow("scan") << uint32_t(RC_SCAN) << "8800 9000 9500 10000 10500 10790";
    QTest::newRow("preset scan") << uint32_t(RC_PS) << "8800 9000 9500 10000 10790 10795 8800";
}

void TestTunerEngine::sweepsStopOnEachStationUntilTheirKey()
{
    QFETCH(uint32_t, code);
    QFETCH(QString, stops);
    TunerEngine engine(lineup(-1), 1);
    engine.setTimeScale(200);
    QStringList seen;
    connect(&engine, &TunerEngine::stateChanged, [&] {
        const tag_RadioCmdFromMCU info = engine.record(MCU_TUNE_INFO);
        const QString freq = QString::number(info.freq);
        if ((info.scanState || info.psState) && engine.psName() != QByteArray(8, ' ') && seen.value(seen.size() - 1) != freq)
            seen << freq;
    });
    engine.handleCommand(code, 0);
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() > stops.count(' '), 10000);
    QCOMPARE(seen.mid(0, stops.count(' ') + 1).join(' '), stops);
    engine.handleCommand(code, 0);
    const tag_RadioCmdFromMCU info = engine.record(MCU_TUNE_INFO);
    QCOMPARE(info.scanState | info.psState, 0);
    QCOMPARE(QString::number(info.freq), seen.last());
}

// Each region's line-up lies on its band plan and fills every band's
// presets with channels of the band's wave range.
QTEST_GUILESS_MAIN(TestTunerEngine)
#include "tst_tunerengine.moc"
