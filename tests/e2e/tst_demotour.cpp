// The scripted tour of `make demo` without a display: every step works
// against the real tuner simulator and leaves a 1280 x 720 screenshot.
#include "ConditionWait.h"
#include "TunerSimProcess.h"

#include <QDir>
#include <QImage>
#include <QProcess>
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
    QVERIFY2(sim.start(QStringLiteral(TUNERSIM_BIN)), qPrintable(sim.standardError()));

    QTemporaryDir work;
    QVERIFY(work.isValid());
    const QString output = qEnvironmentVariable("RADIO_TEST_OUTPUT", work.path());
    const QString tour = QDir(output).filePath(QStringLiteral("demo-tour"));
    QDir(tour).removeRecursively();

    QProcess shell;
    shell.start(QStringLiteral(HEADUNIT_BIN),
                {QStringLiteral("--plugins"), QStringLiteral(RADIO_PLUGIN_DIR), QStringLiteral("--settings"),
                 work.filePath(QStringLiteral("settings.ini")), QStringLiteral("--tour"), tour});
    // The event loop runs meanwhile, so the simulator's trace keeps coming in.
    QVERIFY(ConditionWait::until([&]() { return shell.state() == QProcess::NotRunning; }, 240000, 50));
    const QString report = QString::fromUtf8(shell.readAllStandardError());
    const QStringList tourLines = report.split(QLatin1Char('\n')).filter(QRegularExpression(QStringLiteral("^tour: ")));
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QVERIFY2(shell.exitCode() == 0, qPrintable(tourLines.join(QLatin1Char('\n'))));

    const QStringList steps = tourLines.filter(QRegularExpression(QStringLiteral("^tour: \\d\\d-")));
    QVERIFY2(steps.size() >= 10, qPrintable(report));
    const QStringList shots = QDir(tour).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    QCOMPARE(shots.size(), steps.size());
    for (const QString& shot : shots) {
        const QImage image(QDir(tour).filePath(shot));
        QCOMPARE(image.size(), QSize(1280, 720));
    }
    // Screens of different steps differ: the tour changed what is shown.
    QVERIFY(QImage(QDir(tour).filePath(shots.first())) != QImage(QDir(tour).filePath(shots.last())));
    QVERIFY(sim.count(QStringLiteral("<- RC_SEEK_UP")) >= 1);
    QVERIFY(sim.count(QStringLiteral("<- RC_SET_FREQ")) >= 1);
    QVERIFY(sim.count(QStringLiteral("<- RC_AF(")) >= 1);
}

QTEST_MAIN(TestDemoTour)
#include "tst_demotour.moc"
