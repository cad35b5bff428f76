#include "ProtocolTrace.h"

#include <QtTest>

#include <cstring>

namespace {

tag_RadioCmdFromMCU blank(uint32_t kind)
{
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    r.cmd = kind;
    return r;
}

} // namespace

class TestProtocolTrace : public QObject
{
    Q_OBJECT
private slots:
    void frames_data();
    void frames();
    void records_data();
    void records();
};

void TestProtocolTrace::frames_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<uint>("param");
    QTest::addColumn<QString>("line");
    QTest::newRow("seek") << 5u << 0u << QStringLiteral("<- RC_SEEK_UP(5) param=0");
    QTest::newRow("set FM") << 17u << 9810u << QStringLiteral("<- RC_SET_FREQ(17) param=9810 (98.10 MHz)");
    QTest::newRow("set AM") << 17u << 531u << QStringLiteral("<- RC_SET_FREQ(17) param=531 (531 kHz)");
    QTest::newRow("band") << 2u << 4u << QStringLiteral("<- RC_BAND(2) param=4 (AM1)");
    QTest::newRow("band cycle") << 2u << 0u << QStringLiteral("<- RC_BAND(2) param=0");
    QTest::newRow("long press") << 1u << 9u << QStringLiteral("<- RC_PRESET_LONG(1) param=9");
    QTest::newRow("list") << 255u << 0u << QStringLiteral("<- RC_REQUEST_LIST(255) param=0");
    QTest::newRow("unknown") << 99u << 7u << QStringLiteral("<- ?(99) param=7");
}

void TestProtocolTrace::frames()
{
    QFETCH(uint, code);
    QFETCH(uint, param);
    QFETCH(QString, line);
    QCOMPARE(ProtocolTrace::frameLine(RadioCmdToMCU{code, param}), line);
}

void TestProtocolTrace::records_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("line");
    auto bytes = [](const tag_RadioCmdFromMCU& r) { return QByteArray(reinterpret_cast<const char*>(&r), sizeof r); };

    tag_RadioCmdFromMCU r = blank(MCU_TUNE_INFO);
    r.freq = 8750;
    r.band = 0;
    r.preset = 1;
    r.stereo = 1;
    std::memcpy(r.psName, "CITY FM ", 8);
    QTest::newRow("tune info") << bytes(r)
        << QStringLiteral("-> MCU_TUNE_INFO freq=8750 (87.50 MHz) band=0 (FM1) preset=1 dxLoc=0 as=0 stereo=1 ps=0 scan=0 psName=\"CITY FM \"");
    r = blank(MCU_TUNE_INFO);
    r.freq = 1602;
    r.band = 4;
    r.dxLoc = 1;
    r.asState = 1;
    std::memset(r.psName, ' ', 8);
    QTest::newRow("tune info AM") << bytes(r)
        << QStringLiteral("-> MCU_TUNE_INFO freq=1602 (1602 kHz) band=4 (AM2) preset=0 dxLoc=1 as=1 stereo=0 ps=0 scan=0 psName=\"        \"");

    r = blank(MCU_PRESET_FREQ);
    const uint16_t presets[6] = {8750, 9010, 9500, 10010, 10250, 10400};
    std::memcpy(r.presetFreq, presets, sizeof presets);
    QTest::newRow("presets") << bytes(r) << QStringLiteral("-> MCU_PRESET_FREQ 8750 9010 9500 10010 10250 10400");
    r.presetFreq[11] = 603;
    QTest::newRow("presets with second half") << bytes(r)
        << QStringLiteral("-> MCU_PRESET_FREQ 8750 9010 9500 10010 10250 10400 | 0 0 0 0 0 603");

    r = blank(MCU_PTY);
    r.pty = 10;
    r.selectedPty = 24;
    QTest::newRow("pty") << bytes(r) << QStringLiteral("-> MCU_PTY pty=10 selected=24");

    r = blank(MCU_PS_NAME);
    std::memcpy(r.psName, "A\"B\\C\x91\x01 ", 8);
    QTest::newRow("ps escaped") << bytes(r) << QStringLiteral("-> MCU_PS_NAME psName=\"A\\\"B\\\\C\\x91\\x01 \"");

    r = blank(MCU_RADIO_TEXT);
    std::strcpy(reinterpret_cast<char*>(r.radioText), "Gr\xC3\xBC\xC3\x9F" "e \"x\"");
    QTest::newRow("radio text") << bytes(r) << QString::fromUtf8("-> MCU_RADIO_TEXT text=\"Grüße \\\"x\\\"\"");
    r = blank(MCU_RADIO_TEXT);
    std::memset(r.radioText, 'x', sizeof r.radioText);
    QTest::newRow("radio text without terminator stops at the field end") << bytes(r)
        << QStringLiteral("-> MCU_RADIO_TEXT text=\"%1\"").arg(QString(65, QLatin1Char('x')));

    r = blank(MCU_RDS_FLAGS);
    r.rdsFlags = 0x8A;
    QTest::newRow("flags") << bytes(r) << QStringLiteral("-> MCU_RDS_FLAGS flags=0x8a [TP TA TA-IND]");
    r.rdsFlags = 0x45;
    QTest::newRow("flags switches") << bytes(r) << QStringLiteral("-> MCU_RDS_FLAGS flags=0x45 [RDS AF REG]");

    r = blank(MCU_FAVOURITE);
    const uint16_t favourites[2] = {9810, 603};
    std::memcpy(r.favourite, favourites, sizeof favourites);
    QTest::newRow("favourites") << bytes(r) << QStringLiteral("-> MCU_FAVOURITE 9810 603 0 0 0 0");

    r = blank(MCU_SIGNAL);
    r.signal = 184;
    QTest::newRow("signal") << bytes(r) << QStringLiteral("-> MCU_SIGNAL signal=184");
    QTest::newRow("unnamed kind") << bytes(blank(12)) << QStringLiteral("-> ?(12)");
}

void TestProtocolTrace::records()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, line);
    tag_RadioCmdFromMCU r;
    std::memcpy(&r, record.constData(), sizeof r);
    QCOMPARE(ProtocolTrace::recordLine(r), line);
}

QTEST_GUILESS_MAIN(TestProtocolTrace)
#include "tst_protocoltrace.moc"
