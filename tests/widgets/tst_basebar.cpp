#include "BaseBar.h"
#include "HvIconButton.h"

#include <QSignalSpy>
#include <QtTest>

class tst_BaseBar : public QObject
{
    Q_OBJECT

private slots:
    void buttons_data();
    void buttons();
};

// The system bar's buttons, chosen by bit mask, report their IDs.
void tst_BaseBar::buttons_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("all") << 0xFFFF << QStringList{"home", "carplay", "AndroidAuto"};
    QTest::newRow("home only") << 0x1 << QStringList{"home"};
    QTest::newRow("phones") << 0x6 << QStringList{"carplay", "AndroidAuto"};
}

void tst_BaseBar::buttons()
{
    QFETCH(int, mask);
    QFETCH(QStringList, ids);
    BaseBar bar(QRect(0, 0, 1280, 72), nullptr, mask);
    bar.show();
    QCOMPARE(bar.size(), QSize(1280, 72));
    QSignalSpy spy(&bar, &BaseBar::btnClickedSig);
    for (HvIconButton* button : bar.findChildren<HvIconButton*>()) {
        if (button->isVisible())
            QTest::mouseClick(button, Qt::LeftButton, {}, button->rect().center());
    }
    QStringList clicked;
    for (const QList<QVariant>& args : spy)
        clicked << args.at(0).toString();
    clicked.sort();
    ids.sort();
    QCOMPARE(clicked, ids);
}

QTEST_MAIN(tst_BaseBar)
#include "tst_basebar.moc"
