// The radio screen end to end: the real plugin in the real shell against
// the real tuner simulator, each a process of its own. The screen is read
// from the shell's snapshots, the tuner's side from the simulator's trace,
// and the user's touches go through the shell's control channel.
#include "ConditionWait.h"
#include "HeadUnitProcess.h"
#include "TunerSimProcess.h"

#include <QJsonArray>
#include <QtTest>

namespace {

const QString HeadUnit = QStringLiteral(HEADUNIT_BIN);
const QString TunerSim = QStringLiteral(TUNERSIM_BIN);
const QString PluginDir = QStringLiteral(RADIO_PLUGIN_DIR);
constexpr int TunerTimeoutMs = 15000;
const QString IndicatorOn = QStringLiteral("#ffffffff");
const QString IndicatorOff = QStringLiteral("#ff808080");

QRect rectOf(const QJsonObject& node)
{
    const QJsonObject g = node.value(QStringLiteral("geometry")).toObject();
    return QRect(g.value(QStringLiteral("x")).toInt(), g.value(QStringLiteral("y")).toInt(),
                 g.value(QStringLiteral("width")).toInt(), g.value(QStringLiteral("height")).toInt());
}

} // namespace

class TestRadioEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startupFillsTheScreen();
    void seekChangesFrequencyAndName();
    void presetIsStoredAndRecalled();
    void keypadEntryTunes();
    void afSwitchReachesTheTunerAndComesBack();
    void touchAtLayoutCoordinatesReachesTheButton();
    void homeAndBack();
    void audioStreamRequestsFromTheHost_data();
    void audioStreamRequestsFromTheHost();
    void tunerRestartReconnectsAndRefreshes();

private:
    // A value of the current screen, from a fresh snapshot.
    QString text(const QString& name, const QString& key = QStringLiteral("text"));
    bool flag(const QString& name, const QString& key);
    bool visible(const QString& name);
    QJsonObject host();
    // Waits until the screen shows what the tuner reported last.
    void waitScreenMatchesTuner();
    // Seeks up and waits until the tuner has arrived on a station (a seek
    // passes channels without a name on its way) and the screen shows it.
    void seekUpToNextStation();
    // Sends a control command that must be answered "ok".
    void act(const QString& command);

    TunerSimProcess* m_sim = nullptr;
    HeadUnitProcess* m_shell = nullptr;
};

void TestRadioEndToEnd::init()
{
    m_sim = new TunerSimProcess;
    QVERIFY2(m_sim->start(TunerSim), qPrintable(QStringLiteral("tuner simulator did not listen: ") + m_sim->standardError()));
    m_shell = new HeadUnitProcess;
    QVERIFY2(m_shell->start(HeadUnit, {QStringLiteral("--plugins"), PluginDir}),
             qPrintable(QStringLiteral("head unit did not start: ") + m_shell->standardError()));
    waitScreenMatchesTuner();
}

void TestRadioEndToEnd::cleanup()
{
    if (m_shell)
        QCOMPARE(m_shell->stop(), 0);
    delete m_shell;
    m_shell = nullptr;
    delete m_sim;
    m_sim = nullptr;
}

QString TestRadioEndToEnd::text(const QString& name, const QString& key)
{
    return HeadUnitProcess::state(m_shell->snapshot(), name).value(key).toString();
}

bool TestRadioEndToEnd::flag(const QString& name, const QString& key)
{
    return HeadUnitProcess::state(m_shell->snapshot(), name).value(key).toBool();
}

bool TestRadioEndToEnd::visible(const QString& name)
{
    return HeadUnitProcess::isVisible(m_shell->snapshot(), name);
}

QJsonObject TestRadioEndToEnd::host()
{
    return m_shell->snapshot().value(QStringLiteral("host")).toObject();
}

void TestRadioEndToEnd::act(const QString& command)
{
    QCOMPARE(m_shell->command(command).section(QLatin1Char(' '), 0, 0), QStringLiteral("ok"));
}

void TestRadioEndToEnd::waitScreenMatchesTuner()
{
    QString shown;
    QString reported;
    const bool matches = ConditionWait::until(
        [&]() {
            const QJsonObject snap = m_shell->snapshot();
            shown = HeadUnitProcess::state(snap, QStringLiteral("FreqDisp")).value(QStringLiteral("text")).toString()
                + QLatin1Char(' ')
                + HeadUnitProcess::state(snap, QStringLiteral("PSDisp")).value(QStringLiteral("text")).toString().trimmed();
            reported = m_sim->shownFrequency() + QLatin1Char(' ') + m_sim->psName();
            // The tune info and the name record that follows it must agree,
            // or the tuner is between the two.
            return !m_sim->shownFrequency().isEmpty() && m_sim->psName() == m_sim->tunedName() && shown == reported;
        },
        TunerTimeoutMs, 50);
    if (!matches) {
        const QStringList trace = m_sim->lines();
        QFAIL(qPrintable(QStringLiteral("screen shows \"%1\", tuner reported \"%2\"; trace ends:\n%3")
                             .arg(shown, reported, trace.mid(qMax(0, trace.size() - 25)).join(QLatin1Char('\n')))));
    }
}

void TestRadioEndToEnd::seekUpToNextStation()
{
    const QString before = m_sim->shownFrequency();
    const int seeks = m_sim->count(QStringLiteral("<- RC_SEEK_UP"));
    act(QStringLiteral("click SeekUp"));
    QTRY_COMPARE_WITH_TIMEOUT(m_sim->count(QStringLiteral("<- RC_SEEK_UP")), seeks + 1, TunerTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(m_sim->shownFrequency() != before && !m_sim->tunedName().isEmpty(), TunerTimeoutMs);
    waitScreenMatchesTuner();
}

void TestRadioEndToEnd::startupFillsTheScreen()
{
    const QJsonObject snap = m_shell->snapshot();
    QVERIFY(HeadUnitProcess::isVisible(snap, QStringLiteral("FreqDisp")));
    QCOMPARE(HeadUnitProcess::state(snap, QStringLiteral("FreqDisp")).value(QStringLiteral("text")).toString(),
             m_sim->shownFrequency());
    QCOMPARE(HeadUnitProcess::state(snap, QStringLiteral("BandName")).value(QStringLiteral("text")).toString(),
             m_sim->bandName());
    const QStringList names = m_sim->presetNames();
    QCOMPARE(names.size(), 6);
    for (int key = 1; key <= 6; ++key) {
        const QString button = QStringLiteral("PS%1").arg(key);
        QVERIFY2(HeadUnitProcess::isVisible(snap, button), qPrintable(button));
        const QString shown = HeadUnitProcess::state(snap, button).value(QStringLiteral("displayText")).toString();
        // A preset with a station name shows the name, one without shows
        // its frequency: never the layout's placeholder or nothing.
        if (!names.at(key - 1).isEmpty())
            QCOMPARE(shown, names.at(key - 1));
        else
            QVERIFY2(!shown.isEmpty(), qPrintable(button));
    }
    // The screen told the host what it shows.
    const QJsonObject info = snap.value(QStringLiteral("host")).toObject().value(QStringLiteral("radioInfo")).toObject();
    QVERIFY2(info.value(QStringLiteral("freqText")).toString().contains(m_sim->shownFrequency()),
             qPrintable(info.value(QStringLiteral("freqText")).toString()));
}

void TestRadioEndToEnd::seekChangesFrequencyAndName()
{
    const QString before = text(QStringLiteral("FreqDisp"));
    seekUpToNextStation();
    QVERIFY(text(QStringLiteral("FreqDisp")) != before);
    QCOMPARE(text(QStringLiteral("PSDisp")).trimmed(), m_sim->psName());
    QVERIFY(!text(QStringLiteral("PSDisp")).trimmed().isEmpty());
}

void TestRadioEndToEnd::presetIsStoredAndRecalled()
{
    // Move off the presets first, so that storing changes something.
    seekUpToNextStation();
    const QString stored = text(QStringLiteral("FreqDisp"));
    const QString storedName = text(QStringLiteral("PSDisp")).trimmed();
    QCOMPARE(text(QStringLiteral("BandName")), QStringLiteral("FM1"));

    act(QStringLiteral("longpress PS3"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_sim->lastLine(QStringLiteral("<- RC_PRESET_LONG")).isEmpty(), TunerTimeoutMs);
    QCOMPARE(m_sim->lastLine(QStringLiteral("<- RC_PRESET_LONG")), QStringLiteral("<- RC_PRESET_LONG(1) param=3"));
    QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("PS3"), QStringLiteral("displayText")), storedName, TunerTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(flag(QStringLiteral("PS3"), QStringLiteral("isDown")), TunerTimeoutMs);

    seekUpToNextStation();
    QVERIFY(text(QStringLiteral("FreqDisp")) != stored);
    QVERIFY(!flag(QStringLiteral("PS3"), QStringLiteral("isDown")));

    act(QStringLiteral("click PS3"));
    QTRY_COMPARE_WITH_TIMEOUT(m_sim->lastLine(QStringLiteral("<- RC_PRESET(")), QStringLiteral("<- RC_PRESET(0) param=3"),
                              TunerTimeoutMs);
    QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("FreqDisp")), stored, TunerTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(flag(QStringLiteral("PS3"), QStringLiteral("isDown")), TunerTimeoutMs);
}

void TestRadioEndToEnd::keypadEntryTunes()
{
    // 101.1 MHz lies on the FM grid of the start region (87.50-108.00 MHz
    // in 50 kHz steps); 99.5 MHz when the radio is there already.
    const bool there = text(QStringLiteral("FreqDisp")) == QLatin1String("101.10");
    const QStringList digits = there ? QStringList{"9", "9", "5"} : QStringList{"1", "0", "1", "1"};
    const QString entry = there ? QStringLiteral("99.5") : QStringLiteral("101.1");
    const QString frame = there ? QStringLiteral("<- RC_SET_FREQ(17) param=9950 (99.50 MHz)")
                                : QStringLiteral("<- RC_SET_FREQ(17) param=10110 (101.10 MHz)");

    act(QStringLiteral("click Keyboard"));
    QTRY_VERIFY(visible(QStringLiteral("Keypad_OK")));
    for (const QString& digit : digits) {
        const QString key = QStringLiteral("Keypad_") + digit;
        QVERIFY2(!flag(key, QStringLiteral("disableState")), qPrintable(key + QStringLiteral(" is not offered")));
        act(QStringLiteral("click ") + key);
    }
    QCOMPARE(text(QStringLiteral("KeypadFreqDispTxt")), entry);
    act(QStringLiteral("click Keypad_OK"));
    QTRY_COMPARE_WITH_TIMEOUT(m_sim->lastLine(QStringLiteral("<- RC_SET_FREQ")), frame, TunerTimeoutMs);
    QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("FreqDisp")), entry + QLatin1Char('0'), TunerTimeoutMs);
    QVERIFY(!visible(QStringLiteral("Keypad_OK")));
    QCOMPARE(m_sim->shownFrequency(), entry + QLatin1Char('0'));
}

void TestRadioEndToEnd::afSwitchReachesTheTunerAndComesBack()
{
    QTRY_VERIFY_WITH_TIMEOUT(visible(QStringLiteral("AFDisp")), TunerTimeoutMs);
    act(QStringLiteral("click setupBtn"));
    QTRY_VERIFY(visible(QStringLiteral("AFBtn")));

    for (int round = 0; round < 2; ++round) {
        const bool before = flag(QStringLiteral("AFBtn"), QStringLiteral("onoffStatus"));
        QCOMPARE(text(QStringLiteral("AFDisp"), QStringLiteral("textColor")), before ? IndicatorOn : IndicatorOff);
        const int frames = m_sim->count(QStringLiteral("<- RC_AF("));
        act(QStringLiteral("click AFBtn"));
        QTRY_COMPARE_WITH_TIMEOUT(m_sim->count(QStringLiteral("<- RC_AF(")), frames + 1, TunerTimeoutMs);
        QCOMPARE(m_sim->lastLine(QStringLiteral("<- RC_AF(")),
                 QStringLiteral("<- RC_AF(10) param=%1").arg(before ? 0 : 1));
        // The tuner's answer turns the indicator, and the switch shows it.
        QTRY_COMPARE_WITH_TIMEOUT(m_sim->rdsFlags().contains(QStringLiteral("AF")), !before, TunerTimeoutMs);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("AFDisp"), QStringLiteral("textColor")),
                                  before ? IndicatorOff : IndicatorOn, TunerTimeoutMs);
        QCOMPARE(flag(QStringLiteral("AFBtn"), QStringLiteral("onoffStatus")), !before);
    }
    act(QStringLiteral("click setup_close"));
    QTRY_VERIFY(!visible(QStringLiteral("AFBtn")));
}

void TestRadioEndToEnd::touchAtLayoutCoordinatesReachesTheButton()
{
    const QJsonObject snap = m_shell->snapshot();
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("SeekUp"))), QRect(1160, 306, 98, 84));
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("PS1"))), QRect(41, 113, 353, 95));
    const QString answer = m_shell->command(QStringLiteral("tap 1209 348"));
    QVERIFY2(answer.startsWith(QLatin1String("ok tap 1209 348 ")) && answer.endsWith(QLatin1String("/SeekUp")),
             qPrintable(answer));
    QTRY_COMPARE_WITH_TIMEOUT(m_sim->count(QStringLiteral("<- RC_SEEK_UP")), 1, TunerTimeoutMs);
}

void TestRadioEndToEnd::homeAndBack()
{
    act(QStringLiteral("click homeBtn"));
    QTRY_COMPARE(host().value(QStringLiteral("activity")).toString(), QStringLiteral("home"));
    const QJsonObject snap = m_shell->snapshot();
    QVERIFY(HeadUnitProcess::isVisible(snap, QStringLiteral("HomeScreen")));
    QVERIFY(!HeadUnitProcess::isVisible(snap, QStringLiteral("FreqDisp")));
    const QJsonObject hostState = snap.value(QStringLiteral("host")).toObject();
    // Stopping the radio leaves its audio as it was.
    QCOMPARE(hostState.value(QStringLiteral("streaming")).toBool(), true);
    // The home screen shows what the radio module received.
    const QString freqText =
        hostState.value(QStringLiteral("radioInfo")).toObject().value(QStringLiteral("freqText")).toString();
    QVERIFY(!freqText.isEmpty());
    QCOMPARE(HeadUnitProcess::state(snap, QStringLiteral("StatusFreqText")).value(QStringLiteral("text")).toString(),
             freqText);

    act(QStringLiteral("click RadioTile"));
    QTRY_VERIFY(visible(QStringLiteral("FreqDisp")));
    QCOMPARE(host().value(QStringLiteral("activity")).toString(), QStringLiteral("radio"));
    QVERIFY(!visible(QStringLiteral("HomeScreen")));
}

void TestRadioEndToEnd::audioStreamRequestsFromTheHost_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("streaming");
    QTest::addColumn<int>("playState");
    QTest::newRow("off") << "host stream off" << false << 2;
    QTest::newRow("on") << "host stream on" << true << 1;
}

void TestRadioEndToEnd::audioStreamRequestsFromTheHost()
{
    QFETCH(QString, command);
    QFETCH(bool, streaming);
    QFETCH(int, playState);
    act(command);
    const QJsonObject state = host();
    QCOMPARE(state.value(QStringLiteral("streaming")).toBool(), streaming);
    QCOMPARE(state.value(QStringLiteral("playState")).toInt(), playState);
}

void TestRadioEndToEnd::tunerRestartReconnectsAndRefreshes()
{
    const QStringList oldNames = m_sim->presetNames();
    m_sim->stop();
    delete m_sim;
    // Another line-up, so that a refreshed screen can be told from a stale one.
    m_sim = new TunerSimProcess;
    QVERIFY2(m_sim->start(TunerSim, {QStringLiteral("--seed"), QStringLiteral("7")}), qPrintable(m_sim->standardError()));
    QTRY_VERIFY_WITH_TIMEOUT(m_sim->count(QStringLiteral("# screen connected")) == 1, TunerTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(m_sim->presetNames().size() == 6, TunerTimeoutMs);
    QVERIFY2(m_sim->presetNames() != oldNames, "the second line-up must differ from the first");
    waitScreenMatchesTuner();
    const QStringList names = m_sim->presetNames();
    for (int key = 1; key <= 6; ++key) {
        if (!names.at(key - 1).isEmpty())
            QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("PS%1").arg(key), QStringLiteral("displayText")),
                                      names.at(key - 1), TunerTimeoutMs);
    }
    // Still in control after the restart.
    act(QStringLiteral("click SeekUp"));
    QTRY_COMPARE_WITH_TIMEOUT(m_sim->count(QStringLiteral("<- RC_SEEK_UP")), 1, TunerTimeoutMs);
}

QTEST_MAIN(TestRadioEndToEnd)
#include "tst_radioe2e.moc"
