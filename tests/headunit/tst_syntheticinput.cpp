#include "SyntheticInput.h"

#include "HvIconButton.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

class TestSyntheticInput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void findPrefersVisibleWidget();
    void findIncludesRootAndHandlesNoName();
    void clickOnDisabledButtonDoesNothing();
    void longPressEmitsLongPressOnly();
    void longPressHoldPassesThreshold_data();
    void longPressHoldPassesThreshold();
    void tapReachesTopmostWidgetAtPoint_data();
    void tapReachesTopmostWidgetAtPoint();
    void tapOutsideWindowFails();

private:
    QWidget* m_window = nullptr;
    HvIconButton* m_button = nullptr;
    HvIconButton* m_under = nullptr;
};

void TestSyntheticInput::init()
{
    m_window = new QWidget;
    m_window->setObjectName(QStringLiteral("Window"));
    m_window->resize(1280, 720);
    auto* view = new QWidget(m_window);
    view->setGeometry(0, 0, 1280, 720);

    // Two buttons overlap at 1160..1180; the later one (m_button) is on top.
    m_under = new HvIconButton(view);
    m_under->setObjectName(QStringLiteral("Under"));
    m_under->setGeometry(1100, 306, 80, 84);
    m_under->setButtonID(QStringLiteral("under"));
    m_button = new HvIconButton(view);
    m_button->setObjectName(QStringLiteral("SeekUp"));
    m_button->setGeometry(1160, 306, 98, 84);
    m_button->setButtonID(QStringLiteral("up"));
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(150);

    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void TestSyntheticInput::cleanup()
{
    delete m_window;
    m_window = nullptr;
}

void TestSyntheticInput::findPrefersVisibleWidget()
{
    auto* hiddenTwin = new QLabel(m_window);
    hiddenTwin->setObjectName(QStringLiteral("Twin"));
    hiddenTwin->hide();
    auto* shownTwin = new QLabel(m_window);
    shownTwin->setObjectName(QStringLiteral("Twin"));
    shownTwin->show();
    QCOMPARE(SyntheticInput::findWidget(m_window, QStringLiteral("Twin")), shownTwin);
    shownTwin->hide();
    // With none visible, the first one found.
    QCOMPARE(SyntheticInput::findWidget(m_window, QStringLiteral("Twin")), hiddenTwin);
}

void TestSyntheticInput::findIncludesRootAndHandlesNoName()
{
    QCOMPARE(SyntheticInput::findWidget(m_window, QStringLiteral("Window")), m_window);
    QCOMPARE(SyntheticInput::findWidget(m_window, QString()), nullptr);
    QCOMPARE(SyntheticInput::findWidget(m_window, QStringLiteral("Nobody")), nullptr);
    QCOMPARE(SyntheticInput::findWidget(nullptr, QStringLiteral("SeekUp")), nullptr);
}

void TestSyntheticInput::clickOnDisabledButtonDoesNothing()
{
    m_button->setDisableState(true);
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    SyntheticInput::click(m_button);
    QCOMPARE(clicks.count(), 0);
}

void TestSyntheticInput::longPressEmitsLongPressOnly()
{
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    QSignalSpy longPresses(m_button, &HvIconButton::btnLongPress);
    SyntheticInput::longPress(m_button, SyntheticInput::longPressHold(m_button));
    QCOMPARE(longPresses.count(), 1);
    QCOMPARE(clicks.count(), 0);
    QVERIFY(!m_button->isPressed());
}

void TestSyntheticInput::longPressHoldPassesThreshold_data()
{
    QTest::addColumn<int>("threshold");
    QTest::newRow("short") << 150;
    QTest::newRow("long") << 2000;
}

void TestSyntheticInput::longPressHoldPassesThreshold()
{
    QFETCH(int, threshold);
    m_button->setLongPressThreshold(threshold);
    QVERIFY(SyntheticInput::longPressHold(m_button) > threshold);
    // Widgets without a threshold still get a hold longer than the default one.
    QLabel plain;
    QVERIFY(SyntheticInput::longPressHold(&plain) > HvIconButton::DefaultLongPressThreshold);
}

void TestSyntheticInput::tapReachesTopmostWidgetAtPoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("expected");
    QTest::newRow("centre of SeekUp") << QPoint(1209, 348) << "up";
    QTest::newRow("overlap: the upper one") << QPoint(1170, 348) << "up";
    QTest::newRow("only the lower one") << QPoint(1110, 348) << "under";
    QTest::newRow("nothing there") << QPoint(600, 100) << "";
}

void TestSyntheticInput::tapReachesTopmostWidgetAtPoint()
{
    QFETCH(QPoint, point);
    QFETCH(QString, expected);
    QSignalSpy top(m_button, &HvIconButton::btnClicked);
    QSignalSpy under(m_under, &HvIconButton::btnClicked);
    QVERIFY(SyntheticInput::tap(m_window, point));
    QStringList ids;
    for (const auto& args : top)
        ids << args.first().toString();
    for (const auto& args : under)
        ids << args.first().toString();
    QCOMPARE(ids, expected.isEmpty() ? QStringList() : QStringList{expected});
}

void TestSyntheticInput::tapOutsideWindowFails()
{
    QSignalSpy clicks(m_button, &HvIconButton::btnClicked);
    QVERIFY(!SyntheticInput::tap(m_window, QPoint(1280, 10)));
    QVERIFY(!SyntheticInput::tap(m_window, QPoint(-1, 10)));
    QVERIFY(!SyntheticInput::tap(nullptr, QPoint(10, 10)));
    QCOMPARE(clicks.count(), 0);
}

QTEST_MAIN(TestSyntheticInput)
#include "tst_syntheticinput.moc"
