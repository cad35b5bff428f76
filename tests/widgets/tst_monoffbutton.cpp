#include "MOnOffButton.h"
#include "WidgetRender.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QtTest>

namespace {

void sendMove(QWidget* w, const QPoint& pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, w->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(w, &move);
}

} // namespace

class TestMOnOffButton : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tapTogglesAndEmits_data();
    void tapTogglesAndEmits();
    void setOnoffStatusDoesNotEmit();
    void disabledIgnoresTaps();
    void releaseOutsideWithoutDragCancels();
    void dragAcrossMiddle_data();
    void dragAcrossMiddle();
    void knobAnimatesToState();
    void trackColourFollowsState();
    void render();

private:
    QWidget* m_host = nullptr;
    MOnOffButton* m_switch = nullptr;
    QPoint centre() const { return m_switch->rect().center(); }
};

void TestMOnOffButton::init()
{
    m_host = new QWidget;
    m_host->resize(300, 120);
    m_switch = new MOnOffButton(m_host);
    m_switch->setObjectName(QStringLiteral("AFBtn"));
    m_switch->setGeometry(20, 20, 104, 51);
    m_switch->setOnColor(QColor(20, 80, 255));
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host));
}

void TestMOnOffButton::cleanup()
{
    delete m_host;
    m_host = nullptr;
    m_switch = nullptr;
}

void TestMOnOffButton::tapTogglesAndEmits_data()
{
    QTest::addColumn<QString>("buttonId");
    QTest::addColumn<QString>("expectedId");
    QTest::newRow("object name when no ID") << QString() << QStringLiteral("AFBtn");
    QTest::newRow("button ID") << QStringLiteral("af") << QStringLiteral("af");
}

void TestMOnOffButton::tapTogglesAndEmits()
{
    QFETCH(QString, buttonId);
    QFETCH(QString, expectedId);
    m_switch->setButtonID(buttonId);
    QSignalSpy spy(m_switch, &MOnOffButton::onoffStatusChanged);

    QTest::mouseClick(m_switch, Qt::LeftButton, {}, centre());
    QVERIFY(m_switch->onoffStatus());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), expectedId);
    QCOMPARE(spy.at(0).at(1).toBool(), true);

    QTest::mouseClick(m_switch, Qt::LeftButton, {}, QPoint(5, 5));
    QVERIFY(!m_switch->onoffStatus());
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(1).toBool(), false);
}

void TestMOnOffButton::setOnoffStatusDoesNotEmit()
{
    QSignalSpy spy(m_switch, &MOnOffButton::onoffStatusChanged);
    m_switch->setOnoffStatus(true);
    QVERIFY(m_switch->onoffStatus());
    m_switch->setOnoffStatus(true);
    m_switch->setOnoffStatus(false);
    QVERIFY(!m_switch->onoffStatus());
    QCOMPARE(spy.count(), 0);

    // A later tap starts from the state that was set.
    m_switch->setOnoffStatus(true);
    QTest::mouseClick(m_switch, Qt::LeftButton, {}, centre());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().at(1).toBool(), false);
}

void TestMOnOffButton::disabledIgnoresTaps()
{
    m_switch->setBtnDisable(true);
    QSignalSpy spy(m_switch, &MOnOffButton::onoffStatusChanged);
    QTest::mouseClick(m_switch, Qt::LeftButton, {}, centre());
    QVERIFY(!m_switch->onoffStatus());
    QCOMPARE(spy.count(), 0);

    // The state can still be set while disabled.
    m_switch->setOnoffStatus(true);
    QVERIFY(m_switch->onoffStatus());
    m_switch->setBtnDisable(false);
    QTest::mouseClick(m_switch, Qt::LeftButton, {}, centre());
    QVERIFY(!m_switch->onoffStatus());
    QCOMPARE(spy.count(), 1);
}

void TestMOnOffButton::releaseOutsideWithoutDragCancels()
{
    QSignalSpy spy(m_switch, &MOnOffButton::onoffStatusChanged);
    QTest::mousePress(m_switch, Qt::LeftButton, {}, centre());
    QTest::mouseRelease(m_switch, Qt::LeftButton, {}, QPoint(centre().x(), 200));
    QVERIFY(!m_switch->onoffStatus());
    QCOMPARE(spy.count(), 0);
}

void TestMOnOffButton::dragAcrossMiddle_data()
{
    QTest::addColumn<bool>("startOn");
    QTest::addColumn<int>("dx");
    QTest::addColumn<bool>("endOn");
    QTest::addColumn<int>("emits");
    QTest::newRow("off, full drag right") << false << 60 << true << 1;
    QTest::newRow("off, short drag right") << false << 15 << false << 0;
    QTest::newRow("on, full drag left") << true << -60 << false << 1;
    QTest::newRow("on, short drag left") << true << -15 << true << 0;
}

void TestMOnOffButton::dragAcrossMiddle()
{
    QFETCH(bool, startOn);
    QFETCH(int, dx);
    QFETCH(bool, endOn);
    QFETCH(int, emits);
    m_switch->setOnoffStatus(startOn);
    QTRY_COMPARE(m_switch->knobPosition(), startOn ? 1.0 : 0.0);
    QSignalSpy spy(m_switch, &MOnOffButton::onoffStatusChanged);

    const QPoint start = startOn ? QPoint(75, 25) : QPoint(28, 25);
    QTest::mousePress(m_switch, Qt::LeftButton, {}, start);
    for (int step = 1; step <= 4; ++step)
        sendMove(m_switch, start + QPoint(dx * step / 4, 0));
    QTest::mouseRelease(m_switch, Qt::LeftButton, {}, start + QPoint(dx, 0));

    QCOMPARE(m_switch->onoffStatus(), endOn);
    QCOMPARE(spy.count(), emits);
    if (emits)
        QCOMPARE(spy.first().at(1).toBool(), endOn);
}

void TestMOnOffButton::knobAnimatesToState()
{
    QCOMPARE(m_switch->knobPosition(), 0.0);
    QTest::mouseClick(m_switch, Qt::LeftButton, {}, centre());
    QTRY_COMPARE(m_switch->knobPosition(), 1.0);
    m_switch->setOnoffStatus(false);
    QTRY_COMPARE(m_switch->knobPosition(), 0.0);

    // Hidden, it jumps straight to the state.
    m_host->hide();
    m_switch->setOnoffStatus(true);
    QCOMPARE(m_switch->knobPosition(), 1.0);
}

void TestMOnOffButton::trackColourFollowsState()
{
    // Sample the track just inside its left end, away from the knob when on.
    m_switch->setOnoffStatus(true);
    QTRY_COMPARE(m_switch->knobPosition(), 1.0);
    QColor on = renderOnBackdrop(m_switch).pixelColor(16, 25);
    QVERIFY2(on.blue() > 180 && on.red() < 80, qPrintable(on.name()));

    m_switch->setOnoffStatus(false);
    QTRY_COMPARE(m_switch->knobPosition(), 0.0);
    const QColor off = renderOnBackdrop(m_switch).pixelColor(88, 25);
    QVERIFY2(qAbs(off.red() - off.blue()) < 30 && off.red() > 50, qPrintable(off.name()));

    // Disabled is dimmed towards the backdrop.
    m_switch->setOnoffStatus(true);
    QTRY_COMPARE(m_switch->knobPosition(), 1.0);
    m_switch->setBtnDisable(true);
    const QColor dim = renderOnBackdrop(m_switch).pixelColor(16, 25);
    QVERIFY2(dim.blue() < on.blue() - 60, qPrintable(dim.name()));
}

void TestMOnOffButton::render()
{
    QWidget stage;
    stage.resize(380, 80);
    const bool states[] = {false, true, true};
    for (int i = 0; i < 3; ++i) {
        auto* s = new MOnOffButton(&stage);
        s->setGeometry(14 + i * 124, 14, 104, 51);
        s->setOnColor(QColor(20, 80, 255));
        s->setOnoffStatus(states[i]);
        s->setBtnDisable(i == 2);
    }
    stage.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage));
    QVERIFY(saveRender(&stage, QStringLiteral("monoffbutton")));
}

QTEST_MAIN(TestMOnOffButton)
#include "tst_monoffbutton.moc"
