// radio-headunit as a program: plugin loading from a folder, the snapshot
// on SIGUSR1, the control channel, exit codes. Runs against the fixture
// plugins, so no tuner is involved.
#include "HeadUnitProcess.h"

#include "PluginFolder.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString HeadUnit = QStringLiteral(HEADUNIT_BIN);

QRect rectOf(const QJsonObject& node)
{
    const QJsonObject g = node.value(QStringLiteral("geometry")).toObject();
    return QRect(g.value(QStringLiteral("x")).toInt(), g.value(QStringLiteral("y")).toInt(),
                 g.value(QStringLiteral("width")).toInt(), g.value(QStringLiteral("height")).toInt());
}

} // namespace

class TestHeadUnitShell : public QObject
{
    Q_OBJECT

private slots:
    void rejectsPluginsByInterfaceId_data();
    void rejectsPluginsByInterfaceId();
    void snapshotDescribesTheWindow();
    void snapshotOnEverySignal();
    void controlChannelDrivesWidgetsAndActivities();
    void helpAndBadCommandLine_data();
    void helpAndBadCommandLine();

private:
    QString folderWith(const QStringList& plugins);
    QTemporaryDir m_dir;
};

QString TestHeadUnitShell::folderWith(const QStringList& plugins)
{
    return pluginFolder(m_dir, plugins);
}

void TestHeadUnitShell::rejectsPluginsByInterfaceId_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("reason");
    QTest::newRow("wrong interface id") << QStringLiteral(HU_FIXTURE_WRONGIID)
                                        << QStringLiteral(": interface id \"activity/9.9\", expected \"activity/0.1\"");
    QTest::newRow("no activity behind the right id")
        << QStringLiteral(HU_FIXTURE_NOTACTIVITY)
        << QStringLiteral(": root object NotAnActivity does not implement hvappframework::Activity");
}

void TestHeadUnitShell::rejectsPluginsByInterfaceId()
{
    QFETCH(QString, plugin);
    QFETCH(QString, reason);
    const QString folder = folderWith({plugin});
    QProcess shell;
    shell.start(HeadUnit, {QStringLiteral("--plugins"), folder, QStringLiteral("--settings"),
                           m_dir.filePath(QStringLiteral("s.ini"))});
    QVERIFY(shell.waitForFinished(30000));
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QCOMPARE(shell.exitCode(), 2);
    const QString err = QString::fromUtf8(shell.readAllStandardError());
    const QString linked = QDir(folder).filePath(QFileInfo(plugin).fileName());
    QVERIFY2(err.contains(QStringLiteral("rejecting ") + linked + reason), qPrintable(err));
    QVERIFY2(err.contains(QStringLiteral("no \"radio\" activity was loaded from ") + folder), qPrintable(err));
    // Turned away by its metadata: the plugin's object was never made.
    QVERIFY2(!err.contains(QStringLiteral("WrongIidActivity constructed")), qPrintable(err));
}

void TestHeadUnitShell::snapshotDescribesTheWindow()
{
    HeadUnitProcess shell;
    QVERIFY(shell.start(HeadUnit, {QStringLiteral("--plugins"), folderWith({QStringLiteral(HU_FIXTURE_ACTIVITY)})}));
    const QJsonObject snap = shell.snapshot();
    QVERIFY(!snap.isEmpty());
    QCOMPARE(snap.value(QStringLiteral("format")).toString(), QStringLiteral("radio-headunit-dump/1"));
    QCOMPARE(snap.value(QStringLiteral("pid")).toVariant().toLongLong(), shell.process().processId());

    const QJsonObject window = snap.value(QStringLiteral("window")).toObject();
    QCOMPARE(window.value(QStringLiteral("class")).toString(), QStringLiteral("HeadUnitWindow"));
    QCOMPARE(rectOf(window), QRect(0, 0, 1280, 720));
    QCOMPARE(window.value(QStringLiteral("state")).toObject().value(QStringLiteral("windowTitle")).toString(),
             QStringLiteral("Radio head unit"));
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("SystemView"))), QRect(0, 0, 1280, 720));

    // Geometry in window coordinates: nested offsets add up.
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("Panel"))), QRect(100, 50, 600, 400));
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("FreqLabel"))), QRect(110, 70, 200, 40));
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("TapMe"))), QRect(800, 300, 98, 84));

    // Stacking: the button was raised above the cover made after it.
    const int buttonStack = HeadUnitProcess::findNode(snap, QStringLiteral("TapMe")).value(QStringLiteral("stack")).toInt();
    const int coverStack = HeadUnitProcess::findNode(snap, QStringLiteral("Cover")).value(QStringLiteral("stack")).toInt();
    QVERIFY2(buttonStack > coverStack, qPrintable(QStringLiteral("%1 %2").arg(buttonStack).arg(coverStack)));

    QVERIFY(!HeadUnitProcess::isVisible(snap, QStringLiteral("HiddenLabel")));
    const QJsonObject label = HeadUnitProcess::state(snap, QStringLiteral("FreqLabel"));
    QCOMPARE(label.value(QStringLiteral("text")).toString(), QStringLiteral("87.50"));
    QCOMPARE(label.value(QStringLiteral("textColor")).toString(), QStringLiteral("#ffff8000"));
    const QJsonObject button = HeadUnitProcess::state(snap, QStringLiteral("TapMe"));
    QCOMPARE(button.value(QStringLiteral("displayText")).toString(), QStringLiteral("Tap"));
    QCOMPARE(button.value(QStringLiteral("buttonID")).toString(), QStringLiteral("7"));
    QCOMPARE(button.value(QStringLiteral("isDown")).toBool(), true);
    QCOMPARE(button.value(QStringLiteral("isLock")).toBool(), true);
    QCOMPARE(button.value(QStringLiteral("disableState")).toBool(), false);
    QCOMPARE(HeadUnitProcess::state(snap, QStringLiteral("Switch")).value(QStringLiteral("onoffStatus")).toBool(), true);
    QCOMPARE(HeadUnitProcess::state(snap, QStringLiteral("Rolling")).value(QStringLiteral("text")).toString(),
             QStringLiteral("NEWS 24"));
    const QJsonObject slider = HeadUnitProcess::state(snap, QStringLiteral("Slider"));
    QCOMPARE(slider.value(QStringLiteral("isFM")).toBool(), true);
    QCOMPARE(slider.value(QStringLiteral("curFreq")).toDouble(), 9010.0);
    QCOMPARE(slider.value(QStringLiteral("freqStart")).toDouble(), 87.5);

    const QJsonObject host = snap.value(QStringLiteral("host")).toObject();
    QCOMPARE(host.value(QStringLiteral("activity")).toString(), QStringLiteral("radio"));
    QVERIFY(host.contains(QStringLiteral("streaming")));
    QCOMPARE(shell.stop(), 0);
}

void TestHeadUnitShell::snapshotOnEverySignal()
{
    HeadUnitProcess shell;
    QVERIFY(shell.start(HeadUnit, {QStringLiteral("--plugins"), folderWith({QStringLiteral(HU_FIXTURE_ACTIVITY)})}));
    const int first = shell.snapshot().value(QStringLiteral("sequence")).toInt();
    const int second = shell.snapshot().value(QStringLiteral("sequence")).toInt();
    QVERIFY(first > 0);
    QCOMPARE(second, first + 1);
    // Only the snapshot file sits in the folder: written aside, renamed.
    const QStringList files = QFileInfo(shell.dumpFile()).dir().entryList({QStringLiteral("dump*")}, QDir::Files);
    QCOMPARE(files, QStringList{QStringLiteral("dump.json")});
    QCOMPARE(shell.stop(), 0);
}

void TestHeadUnitShell::controlChannelDrivesWidgetsAndActivities()
{
    HeadUnitProcess shell;
    QVERIFY(shell.start(HeadUnit, {QStringLiteral("--plugins"), folderWith({QStringLiteral(HU_FIXTURE_ACTIVITY)})}));
    // The point at the button's centre, in window coordinates, reaches it
    // through the window like a mouse would.
    QCOMPARE(shell.command(QStringLiteral("tap 849 342")),
             QStringLiteral("ok tap 849 342 SystemView/FixtureScreen/TapMe"));
    QCOMPARE(shell.command(QStringLiteral("click Nobody")), QStringLiteral("error click Nobody: no widget named Nobody"));
    QCOMPARE(shell.command(QStringLiteral("activity home")), QStringLiteral("ok activity home"));
    QJsonObject snap = shell.snapshot();
    QVERIFY(HeadUnitProcess::isVisible(snap, QStringLiteral("HomeScreen")));
    QVERIFY(!HeadUnitProcess::isVisible(snap, QStringLiteral("FixtureScreen")));
    QCOMPARE(rectOf(HeadUnitProcess::findNode(snap, QStringLiteral("HomeScreen"))), QRect(0, 0, 1280, 720));

    QCOMPARE(shell.command(QStringLiteral("click RadioTile")), QStringLiteral("ok click RadioTile"));
    snap = shell.snapshot();
    QVERIFY(!HeadUnitProcess::isVisible(snap, QStringLiteral("HomeScreen")));
    QVERIFY(HeadUnitProcess::isVisible(snap, QStringLiteral("FixtureScreen")));

    QCOMPARE(shell.command(QStringLiteral("host region 3")), QStringLiteral("ok host region 3"));
    QCOMPARE(shell.snapshot().value(QStringLiteral("host")).toObject().value(QStringLiteral("region")).toInt(), 3);
    QCOMPARE(shell.stop(), 0);
}

void TestHeadUnitShell::helpAndBadCommandLine_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("says");
    QTest::newRow("help") << QStringList{"--help"} << 0 << "--control-stdin";
    QTest::newRow("unknown option") << QStringList{"--nope"} << 64 << "Unknown option 'nope'";
    QTest::newRow("region out of range") << QStringList{"--region", "30"} << 64 << "--region takes a number";
}

void TestHeadUnitShell::helpAndBadCommandLine()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, says);
    QProcess shell;
    shell.start(HeadUnit, args);
    QVERIFY(shell.waitForFinished(30000));
    QCOMPARE(shell.exitCode(), exitCode);
    const QString output = QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError());
    QVERIFY2(output.contains(says), qPrintable(output));
}

QTEST_MAIN(TestHeadUnitShell)
#include "tst_headunitshell.moc"
