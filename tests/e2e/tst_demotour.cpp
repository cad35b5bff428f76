// The scripted tour of `make demo` without a display: every step works
// against the real tuner simulator and leaves a 1280 x 720 screenshot.
#include "TunerSimProcess.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

class TestDemoTour : public QObject
{
    Q_OBJECT
private slots:
    void everyStepWorksAndLeavesAScreenshot();
};

void TestDemoTour::everyStepWorksAndLeavesAScreenshot()
{
    TunerSimProcess sim;
    QVERIFY2(sim.start({"--time-scale", "4"}), sim.process.readAllStandardError().constData());
    QTemporaryDir work;
    const QDir tour(QDir(qEnvironmentVariable("RADIO_TEST_OUTPUT", work.path())).filePath("demo-tour"));
    QDir(tour).removeRecursively();
    QProcess shell;
    shell.start(HEADUNIT_BIN, {"--plugins", RADIO_PLUGIN_DIR, "--settings", work.filePath("settings.ini"), "--tour", tour.path()});
    // The event loop keeps running, so the simulator's trace keeps coming in.
    QVERIFY(QTest::qWaitFor([&] { return shell.state() == QProcess::NotRunning; }, 240000));
    const QString report = QString::fromUtf8(shell.readAllStandardError());
    const QStringList steps = report.split('\n').filter(QRegularExpression("^tour: \\d\\d-"));
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QVERIFY2(shell.exitCode() == 0, qPrintable(report));
    QCOMPARE(steps.filter(" ok after ").size(), steps.size());
    QVERIFY2(steps.size() >= 13, qPrintable(report));
    const QStringList shots = tour.entryList({"*.png"}, QDir::Files, QDir::Name);
    QCOMPARE(shots.size(), steps.size());
    for (const QString& shot : shots)
        QCOMPARE(QImage(tour.filePath(shot)).size(), QSize(1280, 720));
    QVERIFY(QImage(tour.filePath(shots.first())) != QImage(tour.filePath(shots.last())));
    for (const char* frame : {"<- RC_SEEK_UP", "<- RC_SEEK_DOWN", "<- RC_PRESET(0) param=2", "<- RC_PRESET_LONG(1) param=5",
                                 "<- RC_SET_FREQ(17) param=10110", "<- RC_AF(", "<- RC_BAND("})
        QVERIFY2(sim.count(QLatin1String(frame)) > 0, frame);
}

QTEST_MAIN(TestDemoTour)
#include "tst_demotour.moc"
