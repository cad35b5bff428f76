#include "HomeActivity.h"

#include "ActivityManager.h"
#include "ActivityProperty.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "FakeRadioActivity.h"
#include "HomeScreen.h"
#include "HostInputs.h"
#include "HostStatusPanel.h"
#include "HvIconButton.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioModule.h"
#include "SyntheticInput.h"
#include "UIManager.h"

#include <QLabel>
#include <QtTest>

#include <cstring>

using hvappframework::ActivityManager;

class TestHomeActivity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void switchingHomeStopsRadioAndShowsHome();
    void radioTileStartsTheRadioAgain();
    void tileUsesTheRadioActivitysIcon();
    void statusShowsFlagWord();
    void statusShowsRadioInfoAndAudio();
    void destroyDeletesTheScreen();

private:
    HostStatusPanel* status() const;
    QString statusText(const QString& row) const;

    QWidget* m_window = nullptr;
    RadioModule* m_radioModule = nullptr;
    FakeRadioActivity* m_radio = nullptr;
    HostInputs* m_inputs = nullptr;
    HomeActivity* m_home = nullptr;
};

void TestHomeActivity::initTestCase()
{
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();
    m_radioModule = new RadioModule(this);
    auto modules = hvappframework::ModuleManager::self();
    modules->addModule(QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), m_radioModule));
    modules->addModule(QSharedPointer<AuxinModulePlugin>::create());
}

void TestHomeActivity::init()
{
    m_window = new QWidget;
    m_window->resize(1280, 720);
    auto* view = new QWidget(m_window);
    view->setGeometry(0, 0, 1280, 720);
    hvappframework::UIManager::setUIHerarchy(1, view);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));

    m_inputs = new HostInputs;
    m_radio = new FakeRadioActivity;
    m_home = new HomeActivity(m_inputs);
    ActivityManager::self()->registerActivity(QStringLiteral("radio"), m_radio);
    ActivityManager::self()->registerActivity(QStringLiteral("home"), m_home);
    QCOMPARE(ActivityManager::self()->switchActivity(QStringLiteral("radio"), 0), 0);
}

void TestHomeActivity::cleanup()
{
    ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
    ActivityManager::self()->unregisterActivity(QStringLiteral("home"));
    delete m_home;
    delete m_radio;
    delete m_inputs;
    delete m_window;
    hvappframework::UIManager::setUIHerarchy(1, nullptr);
}

HostStatusPanel* TestHomeActivity::status() const
{
    return m_home->screen() ? m_home->screen()->statusPanel() : nullptr;
}

QString TestHomeActivity::statusText(const QString& row) const
{
    QLabel* label = status() ? status()->valueLabel(row) : nullptr;
    return label ? label->text() : QStringLiteral("(no row %1)").arg(row);
}

void TestHomeActivity::switchingHomeStopsRadioAndShowsHome()
{
    m_radio->lifecycle.clear();
    QCOMPARE(ActivityManager::self()->switchActivity(QStringLiteral("home"), 0), 0);
    QCOMPARE(m_radio->lifecycle, QStringList{QStringLiteral("onStop")});
    QVERIFY(m_home->screen());
    QVERIFY(m_home->screen()->isVisible());
    QVERIFY(!m_radio->controller()->isVisible());
    // The home screen covers the system view, on top of the radio.
    QCOMPARE(m_home->screen()->geometry(), QRect(0, 0, 1280, 720));
    QCOMPARE(m_home->screen()->parentWidget()->children().last(), m_home->screen());
    QCOMPARE(statusText(QStringLiteral("Activity")), QStringLiteral("home"));
}

void TestHomeActivity::radioTileStartsTheRadioAgain()
{
    ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
    m_radio->lifecycle.clear();
    HvIconButton* tile = m_home->screen()->radioTile();
    QVERIFY(tile->isVisible());
    SyntheticInput::click(tile);
    QCOMPARE(ActivityManager::self()->currentActivity(), QStringLiteral("radio"));
    QCOMPARE(m_radio->lifecycle, QStringList{QStringLiteral("onStart")});
    QVERIFY(!m_home->screen()->isVisible());
    QVERIFY(m_radio->controller()->isVisible());
}

void TestHomeActivity::tileUsesTheRadioActivitysIcon()
{
    ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
    QCOMPARE(m_home->screen()->radioTile()->normalImage(), m_radio->getProperty()->getStringList().first());
    QCOMPARE(m_home->screen()->radioTile()->displayText(), m_radio->getProperty()->getDispString());
}

void TestHomeActivity::statusShowsFlagWord()
{
    ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
    m_radioModule->radioFlagChangeSlot(0x1F);
    QCOMPARE(statusText(QStringLiteral("Flags")), QStringLiteral("0x1f  ST TA TP TA-on REG"));
}

void TestHomeActivity::statusShowsRadioInfoAndAudio()
{
    ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
    RadioInfo_t_ info;
    std::memset(&info, 0, sizeof info);
    std::strcpy(info.freqText, "FM1  87.50 MHz");
    std::strcpy(info.psText, "NEWS 24 ");
    std::strcpy(info.ptyText, "News");
    m_radioModule->radioInfoChangeSlot(info);
    QCOMPARE(statusText(QStringLiteral("FreqText")), QStringLiteral("FM1  87.50 MHz"));
    QCOMPARE(statusText(QStringLiteral("PsText")), QStringLiteral("\"NEWS 24 \""));
    QCOMPARE(statusText(QStringLiteral("PtyText")), QStringLiteral("News"));

    const auto auxin = qSharedPointerDynamicCast<AuxinModulePlugin>(
        hvappframework::ModuleManager::self()->getModule(QStringLiteral("auxin")));
    auxin->getAuxinModule()->streamOff();
    QCOMPARE(statusText(QStringLiteral("Stream")), QStringLiteral("off"));
    auxin->getAuxinModule()->streamOn();
    QCOMPARE(statusText(QStringLiteral("Stream")), QStringLiteral("on"));

    AudioControl::getInstance()->setMute(true, false);
    QCOMPARE(statusText(QStringLiteral("Mute")), QStringLiteral("on"));
    AudioControl::getInstance()->setMute(false, false);
    QCOMPARE(statusText(QStringLiteral("Mute")), QStringLiteral("off"));
    PlatformControl::getInstance()->setHardMute(true);
    QCOMPARE(statusText(QStringLiteral("HardMute")), QStringLiteral("on"));
    PlatformControl::getInstance()->setHardMute(false);
    AppData::GetInstance()->setPlayState(2);
    QCOMPARE(statusText(QStringLiteral("PlayState")), QStringLiteral("paused"));
    AppData::GetInstance()->setPlayState(1);
    QCOMPARE(statusText(QStringLiteral("PlayState")), QStringLiteral("playing"));

    // Records the link hands to the module while no screen exists arrive on
    // the link's thread; the count follows through the event loop.
    const int before = m_radioModule->receivedCount();
    tag_RadioCmdFromMCU record;
    std::memset(&record, 0, sizeof record);
    m_radioModule->HandledTunerMsg(record);
    QTRY_COMPARE(statusText(QStringLiteral("Records")), QString::number(before + 1));

    m_inputs->setRegion(9);
    QCOMPARE(statusText(QStringLiteral("Region")), QStringLiteral("9"));
    QCOMPARE(statusText(QStringLiteral("LastInput")), QStringLiteral("region 9"));
}

void TestHomeActivity::destroyDeletesTheScreen()
{
    ActivityManager::self()->switchActivity(QStringLiteral("home"), 0);
    QPointer<HomeScreen> screen = m_home->screen();
    QVERIFY(screen);
    QCOMPARE(m_home->onDestory(), 0);
    QVERIFY(!screen);
    QCOMPARE(m_home->getProperty()->getUiObj(), nullptr);
    QCOMPARE(m_home->onStart(), 0);
}

QTEST_MAIN(TestHomeActivity)
#include "tst_homeactivity.moc"
