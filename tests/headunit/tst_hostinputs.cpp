#include "HostInputs.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "FakeRadioActivity.h"
#include "ModuleManager.h"
#include "UIManager.h"

#include <QSignalSpy>
#include <QtTest>

using hvappframework::ActivityManager;

class TestHostInputs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void regionIsRecordedBeforeItIsAnnounced_data();
    void regionIsRecordedBeforeItIsAnnounced();
    void regionOutOfRangeIsRefused_data();
    void regionOutOfRangeIsRefused();
    void stepRegionWraps_data();
    void stepRegionWraps();
    void toggleStreamAsksForTheOpposite();
    void streamAndPowerWithoutRadioScreenFail();
    void temperatureSteps_data();
    void temperatureSteps();
    void switchToUnknownActivityFails();

private:
    QWidget m_layer;
    FakeRadioActivity* m_radio = nullptr;
    HostInputs* m_inputs = nullptr;
};

void TestHostInputs::initTestCase()
{
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
    hvappframework::ModuleManager::self()->addModule(QSharedPointer<AuxinModulePlugin>::create());
    hvappframework::UIManager::setUIHerarchy(1, &m_layer);
}

void TestHostInputs::init()
{
    m_radio = new FakeRadioActivity;
    ActivityManager::self()->registerActivity(QStringLiteral("radio"), m_radio);
    m_radio->onCreat();
    m_inputs = new HostInputs;
}

void TestHostInputs::cleanup()
{
    delete m_inputs;
    ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
    delete m_radio;
    BaseControl::getInstance()->clearCalls();
    AppData::GetInstance()->setCurTemperature(AppData::NoTemperature);
}

void TestHostInputs::regionIsRecordedBeforeItIsAnnounced_data()
{
    QTest::addColumn<int>("region");
    QTest::newRow("first") << 0;
    QTest::newRow("last") << 23;
}

void TestHostInputs::regionIsRecordedBeforeItIsAnnounced()
{
    QFETCH(int, region);
    BaseControl* control = BaseControl::getInstance();
    int recordedWhenAnnounced = -2;
    connect(control, &BaseControl::sigRadioRegionChanged, this,
            [&](int) { recordedWhenAnnounced = control->radioRegion(); });
    QSignalSpy announced(control, &BaseControl::sigRadioRegionChanged);
    QVERIFY(m_inputs->setRegion(region));
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().toInt(), region);
    QCOMPARE(recordedWhenAnnounced, region);
    QCOMPARE(control->calls().last(), QStringLiteral("setRadioRegion(%1)").arg(region));
    disconnect(control, &BaseControl::sigRadioRegionChanged, this, nullptr);
}

void TestHostInputs::regionOutOfRangeIsRefused_data()
{
    QTest::addColumn<int>("region");
    QTest::newRow("negative") << -1;
    QTest::newRow("one past the table") << 24;
}

void TestHostInputs::regionOutOfRangeIsRefused()
{
    QFETCH(int, region);
    QSignalSpy announced(BaseControl::getInstance(), &BaseControl::sigRadioRegionChanged);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("refused")));
    QVERIFY(!m_inputs->setRegion(region));
    QCOMPARE(announced.count(), 0);
    QVERIFY(BaseControl::getInstance()->calls().isEmpty());
}

void TestHostInputs::stepRegionWraps_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("delta");
    QTest::addColumn<int>("to");
    QTest::newRow("past the last") << 23 << 1 << 0;
    QTest::newRow("below the first") << 0 << -1 << 23;
}

void TestHostInputs::stepRegionWraps()
{
    QFETCH(int, from);
    QFETCH(int, delta);
    QFETCH(int, to);
    QVERIFY(m_inputs->setRegion(from));
    QSignalSpy announced(BaseControl::getInstance(), &BaseControl::sigRadioRegionChanged);
    m_inputs->stepRegion(delta);
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().toInt(), to);
}

void TestHostInputs::toggleStreamAsksForTheOpposite()
{
    const auto auxin = qSharedPointerDynamicCast<AuxinModulePlugin>(
        hvappframework::ModuleManager::self()->getModule(QStringLiteral("auxin")));
    QVERIFY(auxin);
    auxin->getAuxinModule()->streamOn();
    QVERIFY(m_inputs->toggleStream());
    auxin->getAuxinModule()->streamOff();
    QVERIFY(m_inputs->toggleStream());
    QCOMPARE(m_radio->controller()->calls,
             (QStringList{"TunerAudioStreamOnOffSlot(1)", "TunerAudioStreamOnOffSlot(0)"}));
}

void TestHostInputs::streamAndPowerWithoutRadioScreenFail()
{
    m_radio->onDestory();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("does not exist")));
    QVERIFY(!m_inputs->requestStream(true));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("does not exist")));
    QVERIFY(!m_inputs->powerKey());
}

void TestHostInputs::temperatureSteps_data()
{
    QTest::addColumn<float>("start");
    QTest::addColumn<double>("delta");
    QTest::addColumn<float>("expected");
    QTest::newRow("from no reading") << AppData::NoTemperature << 1.0 << 21.0f;
    QTest::newRow("below zero") << -0.5f << -1.0 << -1.5f;
}

void TestHostInputs::temperatureSteps()
{
    QFETCH(float, start);
    QFETCH(double, delta);
    QFETCH(float, expected);
    AppData::GetInstance()->setCurTemperature(start);
    m_inputs->stepTemperature(delta);
    QCOMPARE(AppData::GetInstance()->getCurTemperature(), expected);
}

void TestHostInputs::switchToUnknownActivityFails()
{
    QSignalSpy applied(m_inputs, &HostInputs::applied);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no activity named")));
    QVERIFY(!m_inputs->switchTo(QStringLiteral("navigation")));
    QCOMPARE(applied.count(), 0);
    QVERIFY(m_inputs->switchTo(QStringLiteral("radio")));
    QCOMPARE(ActivityManager::self()->currentActivity(), QStringLiteral("radio"));
}

QTEST_MAIN(TestHostInputs)
#include "tst_hostinputs.moc"
