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
    void keysEmitHostSignals();
    void streamRequestInvokesControllerSlot_data();
    void streamRequestInvokesControllerSlot();
    void toggleStreamAsksForTheOpposite();
    void streamAndPowerWithoutRadioScreenFail();
    void powerKeyInvokesControllerSlot();
    void temperatureSteps_data();
    void temperatureSteps();
    void reversingAndMuteToggle();
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
    QTest::newRow("start region") << 12;
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
    QTest::newRow("far out") << 1000;
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
    QTest::newRow("up") << 12 << 1 << 13;
    QTest::newRow("down") << 12 << -1 << 11;
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

void TestHostInputs::keysEmitHostSignals()
{
    BaseControl* control = BaseControl::getInstance();
    QSignalSpy fmam(control, &BaseControl::FMAMChangedSig);
    QSignalSpy next(control, &BaseControl::handle_infopagenextbtn);
    QSignalSpy prev(control, &BaseControl::handle_infopageprevbtn);
    m_inputs->fmKey();
    m_inputs->amKey();
    m_inputs->nextKey();
    m_inputs->prevKey();
    QCOMPARE(fmam.count(), 2);
    QCOMPARE(fmam.at(0).first().toInt(), 1);
    QCOMPARE(fmam.at(1).first().toInt(), 2);
    QCOMPARE(next.count(), 1);
    QCOMPARE(prev.count(), 1);
}

void TestHostInputs::streamRequestInvokesControllerSlot_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("call");
    QTest::newRow("off is 1") << false << "TunerAudioStreamOnOffSlot(1)";
    QTest::newRow("on is 0") << true << "TunerAudioStreamOnOffSlot(0)";
}

void TestHostInputs::streamRequestInvokesControllerSlot()
{
    QFETCH(bool, on);
    QFETCH(QString, call);
    QSignalSpy applied(m_inputs, &HostInputs::applied);
    QVERIFY(m_inputs->requestStream(on));
    QCOMPARE(m_radio->controller()->calls, QStringList{call});
    QCOMPARE(applied.count(), 1);
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

void TestHostInputs::powerKeyInvokesControllerSlot()
{
    QVERIFY(m_inputs->powerKey());
    QCOMPARE(m_radio->controller()->calls, QStringList{QStringLiteral("OnPowerBtnClicked(PowerBtn)")});
}

void TestHostInputs::temperatureSteps_data()
{
    QTest::addColumn<float>("start");
    QTest::addColumn<double>("delta");
    QTest::addColumn<float>("expected");
    QTest::newRow("from no reading") << AppData::NoTemperature << 1.0 << 21.0f;
    QTest::newRow("down from a reading") << 5.0f << -1.0 << 4.0f;
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

void TestHostInputs::reversingAndMuteToggle()
{
    AppData* data = AppData::GetInstance();
    AudioControl* audio = AudioControl::getInstance();
    const bool reversing = data->getIsReversing();
    const bool mute = audio->isMute();
    m_inputs->toggleReversing();
    m_inputs->toggleMute();
    QCOMPARE(data->getIsReversing(), !reversing);
    QCOMPARE(audio->isMute(), !mute);
    m_inputs->toggleReversing();
    m_inputs->toggleMute();
    QCOMPARE(data->getIsReversing(), reversing);
    QCOMPARE(audio->isMute(), mute);
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
