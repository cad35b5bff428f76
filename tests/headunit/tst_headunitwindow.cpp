#include "HeadUnitWindow.h"

#include "UIManager.h"

#include <QtTest>

class TestHeadUnitWindow : public QObject
{
    Q_OBJECT

private slots:
    void clientAreaIsTheSystemView();
    void fullScreenKeepsTheViewAtTheOrigin();
    void childAtLayoutPointIsFoundAtTheSamePoint();
};

void TestHeadUnitWindow::clientAreaIsTheSystemView()
{
    HeadUnitWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QRect view = hvappframework::UIManager::getSystemViewRect();
    QCOMPARE(window.size(), view.size());
    QCOMPARE(window.systemView()->geometry(), view);
    QCOMPARE(window.systemView()->mapTo(&window, QPoint(0, 0)), QPoint(0, 0));
    QCOMPARE(window.layout(), nullptr);
    QCOMPARE(window.contentsMargins(), QMargins());
    QCOMPARE(window.systemView()->objectName(), QStringLiteral("SystemView"));
}

void TestHeadUnitWindow::fullScreenKeepsTheViewAtTheOrigin()
{
    HeadUnitWindow window;
    window.releaseFixedSize();
    window.resize(1600, 900);
    QCOMPARE(window.size(), QSize(1600, 900));
    QCOMPARE(window.systemView()->geometry(), QRect(0, 0, 1280, 720));
}

void TestHeadUnitWindow::childAtLayoutPointIsFoundAtTheSamePoint()
{
    HeadUnitWindow window;
    auto* button = new QWidget(window.systemView());
    button->setGeometry(1160, 306, 98, 84);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.childAt(1160, 306), button);
    QCOMPARE(window.childAt(1257, 389), button);
    QVERIFY(window.childAt(1159, 306) != button);
}

QTEST_MAIN(TestHeadUnitWindow)
#include "tst_headunitwindow.moc"
