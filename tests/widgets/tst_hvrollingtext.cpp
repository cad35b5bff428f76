#include "HvRollingText.h"

#include <QtTest>

class tst_HvRollingText : public QObject
{
    Q_OBJECT

private slots:
    void rolling_data();
    void rolling();
};

void tst_HvRollingText::rolling_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("rolls");
    QTest::addColumn<bool>("runs");
    QTest::newRow("fits") << "RADIO 1" << true << false << false;
    QTest::newRow("too wide") << QString(200, QLatin1Char('W')) << true << true << true;
    QTest::newRow("too wide but hidden") << QString(200, QLatin1Char('W')) << false << true << false;
}

void tst_HvRollingText::rolling()
{
    QFETCH(QString, text);
    QFETCH(bool, shown);
    QFETCH(bool, runs);
    HvRollingText widget;
    widget.resize(711, 51);
    widget.setFontSize(40);
    widget.setText(text);
    widget.setVisible(shown);
    QCOMPARE(widget.text(), text);
    QTEST(widget.isRolling(), "rolls");
    QCOMPARE(widget.isTimerRunning(), runs);
    if (runs)
        QTRY_VERIFY(widget.scrollOffset() != 0);
    // A new text that fits stops the roll and starts at the left again.
    widget.setText(QStringLiteral("RADIO 1"));
    QVERIFY(!widget.isRolling());
    QCOMPARE(widget.scrollOffset(), 0);
    QVERIFY(!widget.isTimerRunning());
}

QTEST_MAIN(tst_HvRollingText)
#include "tst_hvrollingtext.moc"
