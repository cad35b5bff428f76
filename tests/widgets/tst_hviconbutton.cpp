#include "HvIconButton.h"
#include "WidgetRender.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTouchDevice>
#include <QtTest>

namespace {

void sendMove(QWidget* w, const QPoint& pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, w->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(w, &move);
}

QString writeImage(const QTemporaryDir& dir, const QString& name, const QColor& color)
{
    QImage image(60, 40, QImage::Format_ARGB32);
    image.fill(color);
    const QString path = dir.filePath(name);
    return image.save(path) ? path : QString();
}

} // namespace

class TestHvIconButton : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tapEmitsButtonId();
    void releaseOutsideCancels_data();
    void releaseOutsideCancels();
    void slideOutAndBackStillClicks();
    void rightButtonIgnored();
    void longPressReplacesClick();
    void longPressNeedsSupport();
    void longPressRepeatsWhileHeld();
    void hugeRepeatIntervalFiresOnce();
    void leavingCancelsLongPress();
    void disabledIgnoresInput_data();
    void disabledIgnoresInput();
    void disablingWhilePressedCancels();
    void lockKeepsLatchedState_data();
    void lockKeepsLatchedState();
    void pressedImageWhileFingerDown();
    void disableModes_data();
    void disableModes();
    void missingImageStillWorks();
    void badSettersKeepState();
    void touchTapClicks();
    void render();

private:
    QWidget* m_host = nullptr;
    HvIconButton* m_button = nullptr;
    QPoint centre() const { return m_button->rect().center(); }
};

void TestHvIconButton::init()
{
    m_host = new QWidget;
    m_host->resize(400, 200);
    m_button = new HvIconButton(m_host);
    m_button->setGeometry(20, 20, 160, 80);
    m_button->setButtonID(QStringLiteral("ID_band"));
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host));
}

void TestHvIconButton::cleanup()
{
    delete m_host;
    m_host = nullptr;
    m_button = nullptr;
}

void TestHvIconButton::tapEmitsButtonId()
{
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QVERIFY(m_button->isPressed());
    QCOMPARE(clicked.count(), 0);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());

    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toString(), QStringLiteral("ID_band"));
    QCOMPARE(longPress.count(), 0);
    QVERIFY(!m_button->isPressed());
}

void TestHvIconButton::releaseOutsideCancels_data()
{
    QTest::addColumn<QPoint>("releaseAt");
    QTest::newRow("left of it") << QPoint(-5, 40);
    QTest::newRow("right edge + 1") << QPoint(160, 40);
}

void TestHvIconButton::releaseOutsideCancels()
{
    QFETCH(QPoint, releaseAt);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    sendMove(m_button, releaseAt);
    QVERIFY(!m_button->isPressed());
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, releaseAt);
    QCOMPARE(clicked.count(), 0);

    // The next tap works as usual.
    QTest::mouseClick(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
}

void TestHvIconButton::slideOutAndBackStillClicks()
{
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    sendMove(m_button, QPoint(300, 40));
    QVERIFY(!m_button->isPressed());
    sendMove(m_button, QPoint(10, 10));
    QVERIFY(m_button->isPressed());
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(clicked.count(), 1);
}

void TestHvIconButton::rightButtonIgnored()
{
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QTest::mousePress(m_button, Qt::RightButton, {}, centre());
    QVERIFY(!m_button->isPressed());
    QTest::mouseRelease(m_button, Qt::RightButton, {}, centre());
    QCOMPARE(clicked.count(), 0);
}

void TestHvIconButton::longPressReplacesClick()
{
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(40);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QTRY_COMPARE(longPress.count(), 1);
    QCOMPARE(longPress.first().first().toString(), QStringLiteral("ID_band"));
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(longPress.count(), 1);

    // A quick tap on the same button is still a click.
    QTest::mouseClick(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(longPress.count(), 1);
}

void TestHvIconButton::longPressNeedsSupport()
{
    // A second button with long press is the clock: once it has fired, the
    // first has been held past the same threshold too.
    auto* reference = new HvIconButton(m_host);
    reference->setGeometry(200, 20, 100, 80);
    reference->setSupportLongPress(true);
    reference->setLongPressThreshold(40);
    m_button->setLongPressThreshold(40);
    QSignalSpy refLong(reference, &HvIconButton::btnLongPress);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QTest::mousePress(reference, Qt::LeftButton, {}, QPoint(50, 40));
    QTRY_COMPARE(refLong.count(), 1);
    QCOMPARE(longPress.count(), 0);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
}

void TestHvIconButton::longPressRepeatsWhileHeld()
{
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(30);
    m_button->setProperty("timerInterval2", 15);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QTRY_VERIFY(longPress.count() >= 3);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    const int afterRelease = longPress.count();
    QCOMPARE(clicked.count(), 0);

    // Let another repeating button run a few rounds: the released one must
    // have stopped.
    auto* reference = new HvIconButton(m_host);
    reference->setGeometry(200, 20, 100, 80);
    reference->setSupportLongPress(true);
    reference->setLongPressThreshold(30);
    reference->setProperty("timerInterval2", 15);
    QSignalSpy refLong(reference, &HvIconButton::btnLongPress);
    QTest::mousePress(reference, Qt::LeftButton, {}, QPoint(50, 40));
    QTRY_VERIFY(refLong.count() >= 4);
    QCOMPARE(longPress.count(), afterRelease);
    QTest::mouseRelease(reference, Qt::LeftButton, {}, QPoint(50, 40));
}

void TestHvIconButton::hugeRepeatIntervalFiresOnce()
{
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(30);
    m_button->setProperty("timerInterval2", 864000000);
    auto* reference = new HvIconButton(m_host);
    reference->setGeometry(200, 20, 100, 80);
    reference->setSupportLongPress(true);
    reference->setLongPressThreshold(30);
    reference->setProperty("timerInterval2", 15);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);
    QSignalSpy refLong(reference, &HvIconButton::btnLongPress);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QTest::mousePress(reference, Qt::LeftButton, {}, QPoint(50, 40));
    QTRY_VERIFY(refLong.count() >= 4);
    QCOMPARE(longPress.count(), 1);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    QTest::mouseRelease(reference, Qt::LeftButton, {}, QPoint(50, 40));
}

void TestHvIconButton::leavingCancelsLongPress()
{
    m_button->setSupportLongPress(true);
    m_button->setLongPressThreshold(40);
    auto* reference = new HvIconButton(m_host);
    reference->setGeometry(200, 20, 100, 80);
    reference->setSupportLongPress(true);
    reference->setLongPressThreshold(40);
    QSignalSpy longPress(m_button, &HvIconButton::btnLongPress);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QSignalSpy refLong(reference, &HvIconButton::btnLongPress);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    sendMove(m_button, QPoint(-30, 40));
    QTest::mousePress(reference, Qt::LeftButton, {}, QPoint(50, 40));
    QTRY_COMPARE(refLong.count(), 1);
    QCOMPARE(longPress.count(), 0);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, QPoint(-30, 40));
    QCOMPARE(clicked.count(), 0);
}

void TestHvIconButton::disabledIgnoresInput_data()
{
    QTest::addColumn<bool>("longPress");
    QTest::newRow("plain") << false;
    QTest::newRow("long press supported") << true;
}

void TestHvIconButton::disabledIgnoresInput()
{
    QFETCH(bool, longPress);
    m_button->setSupportLongPress(longPress);
    m_button->setLongPressThreshold(30);
    m_button->setDisableState(true);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QSignalSpy longSpy(m_button, &HvIconButton::btnLongPress);

    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    QVERIFY(!m_button->isPressed());
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(longSpy.count(), 0);

    m_button->setDisableState(false);
    QTest::mouseClick(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
}

void TestHvIconButton::disablingWhilePressedCancels()
{
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QTest::mousePress(m_button, Qt::LeftButton, {}, centre());
    m_button->setDisableState(true);
    QVERIFY(!m_button->isPressed());
    m_button->setDisableState(false);
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 0);
}

void TestHvIconButton::lockKeepsLatchedState_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("downAfterTap");
    QTest::newRow("unlocked tap releases") << false << false;
    QTest::newRow("locked tap keeps") << true << true;
}

void TestHvIconButton::lockKeepsLatchedState()
{
    QFETCH(bool, locked);
    QFETCH(bool, downAfterTap);
    m_button->setIsLock(locked);
    m_button->setIsDown(true);
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);

    QTest::mouseClick(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(m_button->isDown(), downAfterTap);

    m_button->setIsDown(false);
    QVERIFY(!m_button->isDown());
}

void TestHvIconButton::pressedImageWhileFingerDown()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString normal = writeImage(dir, QStringLiteral("n.png"), QColor(0, 0, 255));
    const QString pressed = writeImage(dir, QStringLiteral("p.png"), QColor(255, 0, 0));
    QVERIFY(!normal.isEmpty() && !pressed.isEmpty());
    m_button->setNormalImage(normal);
    m_button->setPressImage(pressed);
    m_button->setShowMode(1);

    const QPoint c = centre();
    QCOMPARE(renderOnBackdrop(m_button).pixelColor(c), QColor(0, 0, 255));
    QTest::mousePress(m_button, Qt::LeftButton, {}, c);
    QCOMPARE(renderOnBackdrop(m_button).pixelColor(c), QColor(255, 0, 0));
    sendMove(m_button, QPoint(-20, -20));
    QCOMPARE(renderOnBackdrop(m_button).pixelColor(c), QColor(0, 0, 255));
    QTest::mouseRelease(m_button, Qt::LeftButton, {}, QPoint(-20, -20));

    // The latched state shows the pressed image too.
    m_button->setIsDown(true);
    QCOMPARE(renderOnBackdrop(m_button).pixelColor(c), QColor(255, 0, 0));
}

void TestHvIconButton::disableModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("withDisableImage");
    QTest::addColumn<QColor>("expected");
    const QColor backdrop(10, 14, 22);
    // Mode 1 blends the normal image at 40 % over the backdrop.
    const QColor dimmed(qRound(0.4 * 200 + 0.6 * backdrop.red()), qRound(0.4 * 200 + 0.6 * backdrop.green()),
                        qRound(0.4 * 200 + 0.6 * backdrop.blue()));
    QTest::newRow("mode 0, disable image") << 0 << true << QColor(0, 160, 0);
    QTest::newRow("mode 0, no disable image") << 0 << false << QColor(200, 200, 200);
    QTest::newRow("mode 1 dims the normal image") << 1 << true << dimmed;
}

void TestHvIconButton::disableModes()
{
    QFETCH(int, mode);
    QFETCH(bool, withDisableImage);
    QFETCH(QColor, expected);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    m_button->setNormalImage(writeImage(dir, QStringLiteral("n.png"), QColor(200, 200, 200)));
    if (withDisableImage)
        m_button->setDisableImage(writeImage(dir, QStringLiteral("d.png"), QColor(0, 160, 0)));
    m_button->setDisableMode(mode);
    m_button->setDisableState(true);

    const QColor got = renderOnBackdrop(m_button).pixelColor(centre());
    QVERIFY2(qAbs(got.red() - expected.red()) <= 2 && qAbs(got.green() - expected.green()) <= 2
                 && qAbs(got.blue() - expected.blue()) <= 2,
             qPrintable(QStringLiteral("got %1, expected %2").arg(got.name(), expected.name())));
}

void TestHvIconButton::missingImageStillWorks()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("image not found.*radioimages/none-N.png"));
    m_button->setNormalImage(QStringLiteral(":/radioimages/none-N.png"));
    QCOMPARE(m_button->normalImage(), QStringLiteral(":/radioimages/none-N.png"));
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QTest::mouseClick(m_button, Qt::LeftButton, {}, centre());
    QCOMPARE(clicked.count(), 1);
    // Nothing but the backdrop is painted while idle.
    const QImage image = renderOnBackdrop(m_button);
    QCOMPARE(image.pixelColor(centre()), QColor(10, 14, 22));
}

void TestHvIconButton::badSettersKeepState()
{
    m_button->setLongPressThreshold(250);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("long press threshold must be positive"));
    m_button->setLongPressThreshold(0);
    QCOMPARE(m_button->longPressThreshold(), 250);

    m_button->setFontSize(20);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative font size"));
    m_button->setFontSize(-3);
    QCOMPARE(m_button->fontSize(), 20);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("unknown show mode"));
    m_button->setShowMode(7);
    QCOMPARE(m_button->showMode(), 0);
}

void TestHvIconButton::touchTapClicks()
{
    QTouchDevice* device = QTest::createTouchDevice();
    QSignalSpy clicked(m_button, &HvIconButton::btnClicked);
    QTest::touchEvent(m_button, device).press(0, centre(), m_button);
    QVERIFY(m_button->isPressed());
    QTest::touchEvent(m_button, device).release(0, centre(), m_button);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toString(), QStringLiteral("ID_band"));

    QTest::touchEvent(m_button, device).press(0, centre(), m_button);
    QTest::touchEvent(m_button, device).move(0, QPoint(-40, 10), m_button);
    QTest::touchEvent(m_button, device).release(0, QPoint(-40, 10), m_button);
    QCOMPARE(clicked.count(), 1);
}

void TestHvIconButton::render()
{
    // Preset keys in their three looks: normal, latched, disabled.
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const auto keyImage = [&dir](const QString& name, const QColor& colour) {
        QImage image(240, 95, QImage::Format_ARGB32);
        image.fill(colour);
        const QString path = dir.filePath(name);
        return image.save(path) ? path : QString();
    };
    const QString normal = keyImage(QStringLiteral("preset-N.png"), QColor(38, 46, 62));
    const QString pressed = keyImage(QStringLiteral("preset-P.png"), QColor(10, 70, 140));
    QWidget stage;
    stage.resize(760, 120);
    const QStringList texts = {QStringLiteral("87.50 MHz"), QStringLiteral("98.10 MHz"), QStringLiteral("106.10 MHz")};
    QList<HvIconButton*> buttons;
    for (int i = 0; i < texts.size(); ++i) {
        auto* b = new HvIconButton(&stage);
        b->setGeometry(10 + i * 250, 10, 240, 95);
        b->setFontSize(28);
        b->setNormalImage(normal);
        b->setPressImage(pressed);
        b->setDisplayText(texts.at(i));
        b->setNormalTextColor(QColor(230, 230, 230));
        b->setDisableTextColor(QColor(230, 230, 230, 154));
        buttons << b;
    }
    buttons[1]->setIsDown(true);
    buttons[2]->setDisableState(true);
    stage.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage));
    QVERIFY(saveRender(&stage, QStringLiteral("hviconbutton")));
}

QTEST_MAIN(TestHvIconButton)
#include "tst_hviconbutton.moc"
