#include "HvIconButton.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_HvIconButton : public QObject
{
    Q_OBJECT

private slots:
    void touch_data();
    void touch();
};

void tst_HvIconButton::touch_data()
{
    QTest::addColumn<QString>("setup");  // 'l' long press, 'r' repeat, 'd' disabled, 'k' lock
    // 'p' press, 'o' move out, 'i' back in, 'R'/'X' release in/out, 'w' until the next long press; 't', 'O', 'T' a
    // finger down, moved out, lifted on the touch screen
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("clicks");
    QTest::addColumn<int>("longPresses");
    QTest::addColumn<bool>("down");
    QTest::newRow("tap") << "" << "pR" << 1 << 0 << false;
    QTest::newRow("release outside cancels") << "" << "pX" << 0 << 0 << false;
    QTest::newRow("out and back in still clicks") << "" << "poiR" << 1 << 0 << false;
    QTest::newRow("long press replaces the click") << "l" << "pwR" << 0 << 1 << false;
    QTest::newRow("long press repeats while held") << "lr" << "pwwwR" << 0 << 3 << false;
    QTest::newRow("disabled ignores touches") << "d" << "pR" << 0 << 0 << false;
    QTest::newRow("locked stays down") << "k" << "pR" << 1 << 0 << true;
    QTest::newRow("finger tap") << "" << "tT" << 1 << 0 << false;
    QTest::newRow("finger slides off") << "" << "tOT" << 0 << 0 << false;
}

void tst_HvIconButton::touch()
{
    QFETCH(QString, setup);
    QFETCH(QString, steps);
    QTemporaryDir dir;
    QImage normal(40, 40, QImage::Format_RGB32), pressed(40, 40, QImage::Format_RGB32);
    normal.fill(Qt::red);
    pressed.fill(Qt::blue);
    QVERIFY(normal.save(dir.filePath("n.png")) && pressed.save(dir.filePath("p.png")));
    HvIconButton button;
    button.resize(40, 40);
    button.setNormalImage(dir.filePath("n.png"));
    button.setPressImage(dir.filePath("p.png"));
    button.setButtonID(QStringLiteral("ID_x"));
    button.setSupportLongPress(setup.contains('l'));
    button.setLongPressThreshold(30);
    button.setProperty("timerInterval2", setup.contains('r') ? 200 : 0);
    button.setDisableState(setup.contains('d'));
    button.setIsDown(setup.contains('k'));
    button.setIsLock(setup.contains('k'));
    button.show();
    QSignalSpy clicks(&button, &HvIconButton::btnClicked);
    QSignalSpy holds(&button, &HvIconButton::btnLongPress);
    int held = 0;
    static auto* const screen = QTest::createTouchDevice();
    QPoint finger(20, 20);
    QFETCH(int, longPresses);
    for (QChar step : steps) {
        switch (step.toLatin1()) {
        case 'p': QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(20, 20)); break;
        case 'o': QTest::mouseMove(&button, QPoint(80, 20)); break;
        case 'i': QTest::mouseMove(&button, QPoint(20, 20)); break;
        case 'R': QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(20, 20)); break;
        case 'X': QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(80, 20)); break;
        case 't': QTest::touchEvent(&button, screen).press(0, finger, &button); break;
        case 'O': QTest::touchEvent(&button, screen).move(0, finger = QPoint(80, 20), &button); break;
        case 'T': QTest::touchEvent(&button, screen).release(0, finger, &button); break;
        case 'w':
            ++held;
            QTRY_COMPARE(holds.count(), held);
            // The pressed image shows only while the finger is down.
            QCOMPARE(button.grab().toImage().pixelColor(20, 20), button.isPressed() ? QColor(Qt::blue) : QColor(Qt::red));
            break;
        }
    }
    QTEST(int(clicks.count()), "clicks");
    QCOMPARE(int(holds.count()), longPresses);
    for (const QList<QVariant>& args : clicks + holds)
        QCOMPARE(args.at(0).toString(), QStringLiteral("ID_x"));
    QTEST(button.isDown(), "down");
}

QTEST_MAIN(tst_HvIconButton)
#include "tst_hviconbutton.moc"
