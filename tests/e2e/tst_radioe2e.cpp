// The radio end to end: the real plugin in the real shell against the real
// tuner simulator, each a process of its own. A touch goes in through the
// shell's control channel, the frame shows in the simulator's trace, and
// the screen, read from the shell's snapshots, shows the tuner's answer.
#include "HeadUnitProcess.h"
#include "TunerSimProcess.h"

#include <QRegularExpression>
#include <QtTest>

class TestRadioEndToEnd : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void touchFrameRecordScreen_data();
    void touchFrameRecordScreen();
    void tunerRestartRefreshesTheScreen();
    void captureDecodesAndReplays();

private:
    // "{freq}", "{ps}", "{band}", "{presetN}" from the tuner's last
    // records, "{path}" from the snapshot.
    QString resolve(QString text, const QJsonObject& snapshot) const;
    bool screenMatchesTuner();

    TunerSimProcess m_sim;
    HeadUnitProcess m_shell;
};

QString TestRadioEndToEnd::resolve(QString text, const QJsonObject& snapshot) const
{
    const QStringList presets = m_sim.names("-> MCU_PRESET_PS");
    static const QRegularExpression token("\\{([\\w./]+)\\}");
    QRegularExpressionMatch m;
    while ((m = token.match(text)).hasMatch()) {
        const QString key = m.captured(1);
        QString value = HeadUnitProcess::value(snapshot, key);
        if (key == "freq")
            value = m_sim.capture("-> MCU_TUNE_INFO", " \\((\\S+) [Mk]Hz\\) band");
        else if (key == "band")
            value = m_sim.capture("-> MCU_TUNE_INFO", "band=\\d \\((\\w+)\\)");
        else if (key == "ps")
            value = m_sim.names("-> MCU_PS_NAME").value(0);
        else if (key.startsWith("preset"))
            value = presets.value(key.mid(6).toInt() - 1);
        text.replace(m.capturedStart(), m.capturedLength(), value);
    }
    return text;
}

bool TestRadioEndToEnd::screenMatchesTuner()
{
    return QTest::qWaitFor([this] {
        const QJsonObject snap = m_shell.snapshot();
        // The tune info and the name record after it agree: the tuner is not between the two.
        return m_sim.names("-> MCU_TUNE_INFO").value(0) == m_sim.names("-> MCU_PS_NAME").value(0)
            && resolve("{FreqDisp/state.text} {PSDisp/state.text}", snap).simplified() == resolve("{freq} {ps}", snap).simplified();
    }, 15000);
}

void TestRadioEndToEnd::initTestCase()
{
    QVERIFY2(m_sim.start({"--time-scale", "4"}), m_sim.process.readAllStandardError().constData());
    // The whole session is captured from the link's first record on.
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("RADIO_CAPTURE", m_shell.dir.filePath("session.pcapng"));
    m_shell.process.setProcessEnvironment(env);
    QVERIFY2(m_shell.start({"--plugins", RADIO_PLUGIN_DIR}), m_shell.errors.constData());
    QVERIFY2(screenMatchesTuner(), qPrintable(m_sim.lines.mid(m_sim.lines.size() - 20).join('\n')));
}

void TestRadioEndToEnd::cleanupTestCase()
{
    if (m_shell.process.state() == QProcess::Running)
        QCOMPARE(m_shell.stop(), 0);
}

// In order on one session: a command ("!" when it must be refused), the
// frame the tuner then receives ("" for none), and what the screen or the
// host shows once the tuner has answered: "path=value" or "path~part",
// with values resolved as above, "tuner" the tuner's last tune info.
void TestRadioEndToEnd::touchFrameRecordScreen_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QStringList>("shown");
    const QString fullScreen = "{\"height\":720,\"width\":1280,\"x\":0,\"y\":0}";
    QTest::newRow("start-up") << "" << "" << QStringList{"format=radio-headunit-dump/1",
        "window.class=HeadUnitWindow", "window.geometry=" + fullScreen, "SystemView/geometry=" + fullScreen,
        "SeekUp/geometry={\"height\":84,\"width\":98,\"x\":1160,\"y\":306}", "BandName/state.text={band}",
        "PS1/state.displayText={preset1}", "PS6/state.buttonID=6", "radioSlider/state.isFM=true", "host.activity=radio",
        "host.radioInfo.freqText~{freq}", "host.streaming=true", "host.temperature=-257", "AFBtn/visible=false"};
    QTest::newRow("seek up") << "click SeekUp" << "<- RC_SEEK_UP(5) param=0" << QStringList{"host.radioInfo.psText~{ps}"};
    QTest::newRow("tap at the layout point") << "tap 1209 348" << "<- RC_SEEK_UP(5) param=0" << QStringList{};
    QTest::newRow("seek down") << "click SeekDown" << "<- RC_SEEK_DOWN(6) param=0" << QStringList{};
    QTest::newRow("step up") << "click StepUp" << "<- RC_STEP_UP(7) param=0" << QStringList{"PS1/state.isDown=false"};
    QTest::newRow("store preset 3") << "longpress PS3" << "<- RC_PRESET_LONG(1) param=3"
                                    << QStringList{"PS3/state.isDown=true", "PS3/state.displayText~{freq}", "host.tunerPreset=3"};
    QTest::newRow("preset 1") << "click PS1" << "<- RC_PRESET(0) param=1"
                              << QStringList{"PS1/state.isDown=true", "PS3/state.isDown=false", "PS3/state.isLock=true"};
    QTest::newRow("preset 3") << "click PS3" << "<- RC_PRESET(0) param=3" << QStringList{"PS3/state.isDown=true"};
    QTest::newRow("step down") << "click StepDown" << "<- RC_STEP_DOWN(8) param=0" << QStringList{};
    QTest::newRow("host next key") << "host next" << "<- RC_SEEK_UP(5) param=0" << QStringList{};
    QTest::newRow("host previous key") << "host prev" << "<- RC_SEEK_DOWN(6) param=0" << QStringList{};
    QTest::newRow("LOC") << "click DX_LOC" << "<- RC_DX_LOC(12) param=1" << QStringList{"tuner~dxLoc=1"};
    QTest::newRow("DX") << "click DX_LOC" << "<- RC_DX_LOC(12) param=0" << QStringList{"tuner~dxLoc=0"};
    QTest::newRow("FM key: next FM band") << "click FMicon" << "<- RC_BAND(2) param=2 (FM2)" << QStringList{"BandName/state.text=FM2"};
    QTest::newRow("AM key") << "click AMicon" << "<- RC_BAND(2) param=4 (AM1)"
                            << QStringList{"BandName/state.text=AM1", "host.tunerBand=3", "radioSlider/state.isFM=false"};
    QTest::newRow("host FM key") << "host fm" << "<- RC_BAND(2) param=1 (FM1)" << QStringList{"BandName/state.text=FM1"};
    QTest::newRow("host AM key") << "host am" << "<- RC_BAND(2) param=4 (AM1)" << QStringList{"BandName/state.text=AM1"};
    QTest::newRow("host FM key again") << "host fm" << "<- RC_BAND(2) param=1 (FM1)" << QStringList{"BandName/state.text=FM1"};
    QTest::newRow("keypad") << "click Keyboard" << "" << QStringList{"Keypad_OK/visible=true"};
    QTest::newRow("keypad 1") << "click Keypad_1" << "" << QStringList{"Keypad_0/state.disableState=false"};
    QTest::newRow("keypad 10") << "click Keypad_0" << "" << QStringList{};
    QTest::newRow("keypad 101") << "click Keypad_1" << "" << QStringList{};
    QTest::newRow("keypad 101.1") << "click Keypad_1" << "" << QStringList{"KeypadFreqDispTxt/state.text=101.1"};
    QTest::newRow("keypad OK") << "click Keypad_OK" << "<- RC_SET_FREQ(17) param=10110 (101.10 MHz)"
                               << QStringList{"FreqDisp/state.text=101.10", "Keypad_OK/visible=false"};
    QTest::newRow("settings") << "click setupBtn" << "" << QStringList{"AFBtn/visible=true", "AFDisp/state.textColor=#ffffffff"};
    QTest::newRow("AF off") << "click AFBtn" << "<- RC_AF(10) param=0"
                            << QStringList{"AFDisp/state.textColor=#ff808080", "AFBtn/state.onoffStatus=false"};
    QTest::newRow("AF on") << "click AFBtn" << "<- RC_AF(10) param=1"
                           << QStringList{"AFDisp/state.textColor=#ffffffff", "AFBtn/state.onoffStatus=true"};
    QTest::newRow("TA on") << "click TABtn" << "<- RC_TA(11) param=1" << QStringList{"host.radioFlagNames~TA-on"};
    QTest::newRow("REG on") << "click RegBtn" << "<- RC_REG(14) param=1" << QStringList{"host.radioFlagNames~REG"};
    QTest::newRow("settings closed") << "click setup_close" << "" << QStringList{"AFBtn/visible=false"};
    QTest::newRow("scan") << "click ASPSBtn" << "<- RC_SCAN(9) param=0" << QStringList{"tuner~scan=1"};
    QTest::newRow("scan stopped") << "click ASPSBtn" << "<- RC_SCAN(9) param=0" << QStringList{"tuner~scan=0"};
    QTest::newRow("no such widget") << "!click Nobody" << "" << QStringList{};
    QTest::newRow("hidden widget") << "!click Keypad_OK" << "" << QStringList{};
    QTest::newRow("bad hold") << "!longpress PS1 -5" << "" << QStringList{};
    QTest::newRow("tap outside") << "!tap 2000 10" << "" << QStringList{};
    QTest::newRow("unknown command") << "!jump PS1" << "" << QStringList{};
    QTest::newRow("unknown activity") << "!activity navigation" << "" << QStringList{};
    QTest::newRow("region 24") << "!host region 24" << "" << QStringList{};
    QTest::newRow("region") << "host region 5" << "" << QStringList{"host.region=5", "host.baseControlCalls~setRadioRegion(5)"};
    QTest::newRow("region back") << "host region 12" << "" << QStringList{"host.region=12"};
    QTest::newRow("reversing") << "host reversing on" << "" << QStringList{"host.reversing=true"};
    QTest::newRow("reversing off") << "host reversing off" << "" << QStringList{"host.reversing=false"};
    QTest::newRow("mute") << "host mute on" << "" << QStringList{"host.mute=true"};
    QTest::newRow("mute off") << "host mute off" << "" << QStringList{"host.mute=false"};
    QTest::newRow("temperature") << "host temperature -3.5" << "" << QStringList{"host.temperature=-3.5"};
    QTest::newRow("stream off") << "host stream off" << "" << QStringList{"host.streaming=false", "host.playState=2"};
    QTest::newRow("stream on") << "host stream on" << "" << QStringList{"host.streaming=true", "host.playState=1"};
    QTest::newRow("home") << "click homeBtn" << "" << QStringList{"host.activity=home", "HomeScreen/visible=true",
        "HomeScreen/geometry=" + fullScreen, "FreqDisp/visible=false", "host.streaming=true",
        "StatusFreqText/state.text={host.radioInfo.freqText}"};
    QTest::newRow("radio again") << "click RadioTile" << "" << QStringList{"host.activity=radio", "FreqDisp/visible=true"};
    QTest::newRow("power key") << "host power" << "" << QStringList{"host.activity=home", "host.streaming=false"};
    QTest::newRow("radio after power") << "activity radio" << "" << QStringList{"FreqDisp/visible=true", "host.streaming=true"};
}

void TestRadioEndToEnd::touchFrameRecordScreen()
{
    QFETCH(QString, command);
    QFETCH(QString, frame);
    QFETCH(QStringList, shown);
    const int frames = m_sim.count("<- ");
    if (command.startsWith('!')) {
        const QString answer = m_shell.command(command.mid(1));
        QVERIFY2(answer.startsWith("error " + command.mid(1) + ": "), qPrintable(answer));
    } else if (!command.isEmpty()) {
        const QString answer = m_shell.command(command);
        QVERIFY2(answer.startsWith("ok " + command), qPrintable(answer));
        if (command.startsWith("tap "))
            QCOMPARE(answer, "ok " + command + " SystemView/TunerViewImpl/RadioMain/SeekUp");
    }
    if (!frame.isEmpty()) {
        QVERIFY(m_sim.waitFor("<- ", frames + 1));
        QCOMPARE(m_sim.lines.filter(QRegularExpression("^<- ")).value(frames), frame);
        QVERIFY(screenMatchesTuner());
    }
    for (const QString& check : shown) {
        const int at = check.indexOf(QRegularExpression("[=~]"));
        const QString path = check.left(at);
        const auto holds = [&] {
            const QJsonObject snap = m_shell.snapshot();
            const QString expected = resolve(check.mid(at + 1), snap);
            const QString actual = path == "tuner" ? m_sim.lastLine("-> MCU_TUNE_INFO") : HeadUnitProcess::value(snap, path);
            return check.at(at) == '~' ? actual.contains(expected) : actual == expected;
        };
        QVERIFY2(QTest::qWaitFor(holds, 15000), qPrintable(check + ", not " + HeadUnitProcess::value(m_shell.snapshot(), path)));
    }
    QCOMPARE(m_sim.count("<- "), frames + (frame.isEmpty() ? 0 : 1));
}

void TestRadioEndToEnd::tunerRestartRefreshesTheScreen()
{
    const QStringList before = m_sim.names("-> MCU_PRESET_PS");
    m_sim.stop();
    QVERIFY(m_sim.start({"--time-scale", "4", "--seed", "7"}));
    QVERIFY(m_sim.waitFor("# screen connected"));
    QVERIFY(m_sim.waitFor("-> MCU_PRESET_PS"));
    QVERIFY(m_sim.names("-> MCU_PRESET_PS") != before);
    QVERIFY(screenMatchesTuner());
    for (const int key : {1, 6}) {
        QVERIFY(QTest::qWaitFor([&] {
            const QJsonObject snap = m_shell.snapshot();
            return resolve(QString("{PS%1/state.displayText}").arg(key), snap) == resolve(QString("{preset%1}").arg(key), snap);
        }, 15000));
    }
    QVERIFY(m_shell.command("click SeekUp").startsWith("ok"));
    QVERIFY(m_sim.waitFor("<- RC_SEEK_UP(5) param=0"));
}

namespace {

// A trace line's values by the dissector's field names; the lists of
// preset frequencies and names as "|"-joined values.
QMap<QString, QString> traceFields(const QString& line)
{
    static const QMap<QString, QString> names{{"freq", "radio.freq"}, {"band", "radio.band"}, {"preset", "radio.preset"},
        {"dxLoc", "radio.dx_loc"}, {"as", "radio.as_state"}, {"stereo", "radio.stereo"}, {"ps", "radio.ps_state"},
        {"scan", "radio.scan_state"}, {"psName", "radio.ps"}, {"pty", "radio.pty"}, {"selected", "radio.pty_selected"},
        {"text", "radio.rt"}, {"flags", "radio.rds_flags"}, {"signal", "radio.signal"}, {"param", "radio.param"}};
    static const QRegularExpression pair("(\\w+)=(\"(?:[^\"\\\\]|\\\\.)*\"|\\S+)");
    QMap<QString, QString> fields;
    const QStringList words = line.split(' ');
    const QString kind = words.value(1).section('(', 0, 0);
    fields[line.startsWith("<-") ? "radio.cmd" : "radio.kind"] = kind;
    for (auto it = pair.globalMatch(line); it.hasNext();) {
        const auto m = it.next();
        QString value = m.captured(2);
        if (value.startsWith('"'))
            value = value.mid(1, value.size() - 2).replace("\\\"", "\"").replace("\\\\", "\\");
        fields[names.value(m.captured(1), m.captured(1))] = value;
    }
    if (kind == "MCU_PRESET_FREQ" || kind == "MCU_PRESET_PS") {
        static const QRegularExpression item("\"((?:[^\"\\\\]|\\\\.)*)\"|(\\d+)");
        QStringList items;
        for (auto it = item.globalMatch(line.section(' ', 2)); it.hasNext();) {
            const auto m = it.next();
            items << m.captured(1) + m.captured(2);
        }
        fields[kind == "MCU_PRESET_FREQ" ? "radio.preset_freq" : "radio.preset_ps"] = items.join('|');
    }
    return fields;
}

} // namespace

// The session's capture, decoded by tshark with the dissector, holds what
// the tuner sent and received since its restart, field by field; replayed
// into a fresh shell it brings that shell to what this one showed.
void TestRadioEndToEnd::captureDecodesAndReplays()
{
    if (QStandardPaths::findExecutable("tshark").isEmpty())
        QSKIP("tshark is not installed (make test installs it)");
    const QString file = m_shell.dir.filePath("session.pcapng");
    QCOMPARE(m_shell.command("capture stop"), QString("ok capture stop"));

    const QStringList fields{"frame.comment", "_ws.col.Info", "radio.dir", "radio.kind", "radio.cmd", "radio.param",
        "radio.freq", "radio.band", "radio.preset", "radio.dx_loc", "radio.as_state", "radio.stereo", "radio.ps_state",
        "radio.scan_state", "radio.ps", "radio.pty", "radio.pty_selected", "radio.rt", "radio.rds_flags",
        "radio.signal", "radio.preset_freq", "radio.preset_ps", "_ws.malformed"};
    QStringList args{"-X", "lua_script:" RADIO_SOURCE_DIR "/tools/wireshark/radio_tuner.lua", "-r", file, "-T", "fields",
                     "-E", "separator=/t", "-E", "aggregator=|"};
    for (const QString& f : fields)
        args << "-e" << f;
    QProcess tshark;
    tshark.start("tshark", args);
    QVERIFY(tshark.waitForFinished(60000) && tshark.exitCode() == 0);
    QList<QStringList> rows;
    for (const QString& line : QString::fromUtf8(tshark.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts))
        rows << line.split('\t');
    int restart = -1;
    for (int i = 0; i < rows.size(); ++i) {
        QVERIFY2(rows[i].value(fields.indexOf("_ws.malformed")).isEmpty(), qPrintable(rows[i].join(' ')));
        if (rows[i][0].contains("connected again"))
            restart = i;
    }
    QVERIFY(restart > 0);

    // Per direction, the packets since the restart are the tuner's trace.
    QStringList trace[2] = {m_sim.lines.filter(QRegularExpression("^-> ")), m_sim.lines.filter(QRegularExpression("^<- "))};
    int next[2] = {0, 0};
    QMap<QString, QString> last;  // the last line of each kind captured
    for (const QStringList& row : rows.mid(restart)) {
        const int dir = row[fields.indexOf("radio.dir")].toInt();
        QVERIFY(next[dir] < trace[dir].size());
        const QString line = trace[dir][next[dir]++];
        const QMap<QString, QString> expected = traceFields(line);
        for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
            const int at = fields.indexOf(it.key());
            if (at < 0)
                continue;
            QString got = it.key() == "radio.kind" || it.key() == "radio.cmd" ? row[1].section(' ', 0, 0) : row[at];
            if (it.key().startsWith("radio.preset_"))  // the trace leaves out six empty ones
                got = got.section('|', 0, it.value().count('|'));
            if (it.key() == "radio.rds_flags")
                got = QString("0x%1").arg(got.toUInt(nullptr, 0), 2, 16, QChar('0'));
            QVERIFY2(got == it.value(), qPrintable(QString("%1: %2 is \"%3\"").arg(line, it.key(), got)));
        }
        last[expected.value(dir ? "radio.cmd" : "radio.kind")] = line;
    }
    for (const char* name : {"MCU_TUNE_INFO", "MCU_PRESET_FREQ", "MCU_PS_NAME", "RC_REQUEST_LIST", "RC_SEEK_UP"})
        QVERIFY2(last.contains(name), name);

    // A fresh screen fed the capture alone ends on its last station.
    const QString freq = QRegularExpression(" \\((\\S+) [Mk]Hz\\) band").match(last["MCU_TUNE_INFO"]).captured(1);
    const QString ps = traceFields(last["MCU_PS_NAME"]).value("radio.ps").trimmed();
    const QString given = m_shell.dir.filePath("given.json");
    QVERIFY(m_shell.command("dump " + given) == "ok dump " + given && QFileInfo(given).size() > 0);
    QCOMPARE(m_shell.stop(), 0);
    m_sim.stop();
    QVERIFY2(m_sim.start({"--replay", file, "--replay-speed", "50"}), m_sim.process.readAllStandardError().constData());
    HeadUnitProcess fresh;
    QVERIFY2(fresh.start({"--plugins", RADIO_PLUGIN_DIR}), fresh.errors.constData());
    QVERIFY(m_sim.process.waitForFinished(60000));
    QCOMPARE(m_sim.process.exitCode(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(HeadUnitProcess::value(fresh.snapshot(), "FreqDisp/state.text"), freq, 15000);
    QCOMPARE(HeadUnitProcess::value(fresh.snapshot(), "PSDisp/state.text").simplified(), ps);
}

QTEST_MAIN(TestRadioEndToEnd)
#include "tst_radioe2e.moc"
