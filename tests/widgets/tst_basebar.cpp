#include "BaseBar.h"
#include "HvIconButton.h"
#include "WidgetRender.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

class TestBaseBar : public QObject
{
    Q_OBJECT

private slots:
    void geometryIsTheRect();
    void buttonsEmitTheirIds_data();
    void buttonsEmitTheirIds();
    void maskChoosesButtons_data();
    void maskChoosesButtons();
    void title();
    void render();
};

void TestBaseBar::geometryIsTheRect()
{
    QWidget screen;
    screen.resize(1280, 720);
    BaseBar bar(QRect(0, 0, 1280, 80), &screen);
    QCOMPARE(bar.geometry(), QRect(0, 0, 1280, 80));
    BaseBar other(QRect(10, 640, 800, 60), &screen);
    QCOMPARE(other.geometry(), QRect(10, 640, 800, 60));
}

void TestBaseBar::buttonsEmitTheirIds_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("id");
    QTest::newRow("home") << QStringLiteral("homeBtn") << QStringLiteral("home");
    QTest::newRow("carplay") << QStringLiteral("carplayBtn") << QStringLiteral("carplay");
    QTest::newRow("android auto") << QStringLiteral("androidAutoBtn") << QStringLiteral("AndroidAuto");
}

void TestBaseBar::buttonsEmitTheirIds()
{
    QFETCH(QString, objectName);
    QFETCH(QString, id);
    QWidget screen;
    screen.resize(1280, 720);
    BaseBar bar(QRect(0, 0, 1280, 80), &screen);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));

    auto* button = bar.findChild<HvIconButton*>(objectName);
    QVERIFY(button);
    QVERIFY(button->isVisible());
    QVERIFY(bar.rect().contains(button->geometry()));
    QVERIFY(!button->displayText().isEmpty());
    QSignalSpy spy(&bar, &BaseBar::btnClickedSig);
    QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toString(), id);
}

void TestBaseBar::maskChoosesButtons_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<QStringList>("present");
    QTest::newRow("all") << 0xFFFF << QStringList{"homeBtn", "carplayBtn", "androidAutoBtn"};
    QTest::newRow("home only") << 1 << QStringList{"homeBtn"};
    QTest::newRow("projection only") << 6 << QStringList{"carplayBtn", "androidAutoBtn"};
    QTest::newRow("none") << 0 << QStringList{};
}

void TestBaseBar::maskChoosesButtons()
{
    QFETCH(int, mask);
    QFETCH(QStringList, present);
    BaseBar bar(QRect(0, 0, 1280, 80), nullptr, mask);
    QStringList found;
    for (const QString& name : {QStringLiteral("homeBtn"), QStringLiteral("carplayBtn"), QStringLiteral("androidAutoBtn")}) {
        if (bar.findChild<HvIconButton*>(name))
            found << name;
    }
    QCOMPARE(found, present);
}

void TestBaseBar::title()
{
    BaseBar bar(QRect(0, 0, 1280, 80));
    QCOMPARE(bar.currentTitle(), QString());
    bar.setCurrentTitle(QStringLiteral("Radio"), 0);
    QCOMPARE(bar.currentTitle(), QStringLiteral("Radio"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("unknown title type"));
    bar.setCurrentTitle(QStringLiteral("FM"), 3);
    QCOMPARE(bar.currentTitle(), QStringLiteral("FM"));
}

void TestBaseBar::render()
{
    QWidget screen;
    screen.resize(1280, 80);
    BaseBar bar(QRect(0, 0, 1280, 80), &screen);
    bar.setCurrentTitle(QStringLiteral("Radio"), 0);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    auto* carplay = bar.findChild<HvIconButton*>(QStringLiteral("carplayBtn"));
    QVERIFY(carplay);
    QTest::mousePress(carplay, Qt::LeftButton, {}, carplay->rect().center());
    QVERIFY(saveRender(&screen, QStringLiteral("basebar"), QColor(40, 60, 90)));
    QTest::mouseRelease(carplay, Qt::LeftButton, {}, carplay->rect().center());
}

QTEST_MAIN(TestBaseBar)
#include "tst_basebar.moc"
