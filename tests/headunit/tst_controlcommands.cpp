#include "ControlCommands.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "BaseControl.h"
#include "FakeRadioActivity.h"
#include "HostInputs.h"
#include "HvIconButton.h"
#include "UIManager.h"

#include <QSignalSpy>
#include <QtTest>

using hvappframework::ActivityManager;

class TestControlCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void replies_data();
    void replies();
    void clickReachesTheNamedButton();
    void longPressIsLong();
    void tapNamesTheWidgetUnderThePoint();
    void hostCommandsReachTheHost();
    void dumpUsesGivenOrDefaultFile();
    void quitIsAnnounced();

private:
    QWidget* m_window = nullptr;
    HvIconButton* m_button = nullptr;
    FakeRadioActivity* m_radio = nullptr;
    HostInputs* m_inputs = nullptr;
    ControlCommands* m_commands = nullptr;
    QStringList m_dumps;
    bool m_dumpWorks = true;
};

void TestControlCommands::initTestCase()
{
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
}

void TestControlCommands::init()
{
    m_window = new QWidget;
    m_window->resize(1280, 720);
    auto* view = new QWidget(m_window);
    view->setObjectName(QStringLiteral("SystemView"));
    view->setGeometry(0, 0, 1280, 720);
    hvappframework::UIManager::setUIHerarchy(1, view);
    m_button = new HvIconButton(view);
    m_button->setObjectName(QStringLiteral("PS2"));
    m_button->setGeometry(41, 209, 353, 95);
    m_button->setButtonID(QStringLiteral("2"));
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(500);
    auto* hidden = new HvIconButton(view);
    hidden->setObjectName(QStringLiteral("Hidden"));
    hidden->hide();

    m_radio = new FakeRadioActivity;
    ActivityManager::self()->registerActivity(QStringLiteral("radio"), m_radio);
    m_radio->onCreat();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));

    m_inputs = new HostInputs;
    m_dumps.clear();
    m_dumpWorks = true;
    m_commands = new ControlCommands(
        m_window, m_inputs,
        [this](const QString& path, QString* error) {
            m_dumps << path;
            if (!m_dumpWorks)
                *error = QStringLiteral("disk full");
            return m_dumpWorks;
        },
        QStringLiteral("/default/dump.json"));
}

void TestControlCommands::cleanup()
{
    delete m_commands;
    delete m_inputs;
    ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
    delete m_radio;
    delete m_window;
    hvappframework::UIManager::setUIHerarchy(1, nullptr);
}

void TestControlCommands::replies_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("warns");
    QTest::newRow("click") << "click PS2" << "ok click PS2" << false;
    QTest::newRow("unknown widget") << "click Nothing" << "error click Nothing: no widget named Nothing" << false;
    QTest::newRow("hidden widget") << "click Hidden" << "error click Hidden: Hidden is not visible" << false;
    QTest::newRow("long press with bad time") << "longpress PS2 -5"
                                              << "error longpress PS2 -5: hold time must be 1 to 60000 ms" << false;
    QTest::newRow("tap outside") << "tap 2000 10"
                                 << "error tap 2000 10: point outside the window, or no native window" << false;
    QTest::newRow("region out of range") << "host region 24" << "error host region 24: region must be 0 to 23" << true;
    QTest::newRow("stream bad word") << "host stream maybe"
                                     << "error host stream maybe: usage: host region N | fm | am | next | prev | "
                                        "stream on|off | power | reversing on|off | temperature C | mute on|off | "
                                        "language en|de|fr|cs" << false;
    QTest::newRow("unknown activity") << "activity navigation" << "error activity navigation: no such activity" << true;
    QTest::newRow("unknown verb") << "jump PS2" << "error jump PS2: unknown command" << false;
    QTest::newRow("empty") << "   " << "error : empty command" << false;
}

void TestControlCommands::replies()
{
    QFETCH(QString, command);
    QFETCH(QString, reply);
    QFETCH(bool, warns);
    if (warns)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".")));
    QCOMPARE(m_commands->execute(command), reply);
}

void TestControlCommands::clickReachesTheNamedButton()
{
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    QCOMPARE(m_commands->execute(QStringLiteral("click PS2")), QStringLiteral("ok click PS2"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.first().first().toString(), QStringLiteral("2"));
}

void TestControlCommands::longPressIsLong()
{
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    QSignalSpy longPresses(m_button, &HvIconButton::btnLongPress);
    QCOMPARE(m_commands->execute(QStringLiteral("longpress PS2 800")), QStringLiteral("ok longpress PS2 800 held 800 ms"));
    QCOMPARE(longPresses.count(), 1);
    QCOMPARE(clicks.count(), 0);
    // A hold shorter than the threshold is a click.
    m_commands->execute(QStringLiteral("longpress PS2 10"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(longPresses.count(), 1);
}

void TestControlCommands::tapNamesTheWidgetUnderThePoint()
{
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    QCOMPARE(m_commands->execute(QStringLiteral("tap 217 256")), QStringLiteral("ok tap 217 256 SystemView/PS2"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(m_commands->execute(QStringLiteral("tap 700 500")), QStringLiteral("ok tap 700 500 SystemView"));
    QCOMPARE(clicks.count(), 1);
}

void TestControlCommands::hostCommandsReachTheHost()
{
    BaseControl* control = BaseControl::getInstance();
    QSignalSpy region(control, &BaseControl::sigRadioRegionChanged);
    QSignalSpy fmam(control, &BaseControl::FMAMChangedSig);
    QSignalSpy next(control, &BaseControl::handle_infopagenextbtn);
    QSignalSpy prev(control, &BaseControl::handle_infopageprevbtn);
    const QStringList commands{"host region 5", "host fm", "host am", "host next", "host prev", "host stream off",
                               "host stream on", "host power", "host reversing on", "host mute on",
                               "host temperature -3.5"};
    for (const QString& command : commands)
        QCOMPARE(m_commands->execute(command), QStringLiteral("ok ") + command);
    QCOMPARE(region.count(), 1);
    QCOMPARE(region.first().first().toInt(), 5);
    QCOMPARE(fmam.count(), 2);
    QCOMPARE(next.count(), 1);
    QCOMPARE(prev.count(), 1);
    QCOMPARE(m_radio->controller()->calls, (QStringList{"TunerAudioStreamOnOffSlot(1)", "TunerAudioStreamOnOffSlot(0)",
                                                        "OnPowerBtnClicked(PowerBtn)"}));
    QVERIFY(AppData::GetInstance()->getIsReversing());
    QVERIFY(AudioControl::getInstance()->isMute());
    QCOMPARE(AppData::GetInstance()->getCurTemperature(), -3.5f);
    m_commands->execute(QStringLiteral("host reversing off"));
    m_commands->execute(QStringLiteral("host mute off"));
    QVERIFY(!AppData::GetInstance()->getIsReversing());
    QVERIFY(!AudioControl::getInstance()->isMute());
}

void TestControlCommands::dumpUsesGivenOrDefaultFile()
{
    QCOMPARE(m_commands->execute(QStringLiteral("dump")), QStringLiteral("ok dump /default/dump.json"));
    QCOMPARE(m_commands->execute(QStringLiteral("dump /x/y.json")), QStringLiteral("ok dump /x/y.json"));
    QCOMPARE(m_dumps, (QStringList{"/default/dump.json", "/x/y.json"}));
    m_dumpWorks = false;
    QCOMPARE(m_commands->execute(QStringLiteral("dump")), QStringLiteral("error dump: disk full"));
}

void TestControlCommands::quitIsAnnounced()
{
    QSignalSpy quit(m_commands, &ControlCommands::quitRequested);
    QCOMPARE(m_commands->execute(QStringLiteral("quit")), QStringLiteral("ok quit"));
    QCOMPARE(quit.count(), 1);
}

QTEST_MAIN(TestControlCommands)
#include "tst_controlcommands.moc"
