#include "MOnOffButton.h"

#include <QSignalSpy>
#include <QtTest>

class tst_MOnOffButton : public QObject
{
    Q_OBJECT

private slots:
    void tap_data();
    void tap();
};

void tst_MOnOffButton::tap_data()
{
    QTest::addColumn<bool>("startOn");
    QTest::addColumn<bool>("disabled");
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("sent");  // empty: nothing emitted
    QTest::newRow("off to on") << false << false << "AF" << true << "AF";
    QTest::newRow("on to off") << true << false << "AF" << false << "AF";
    QTest::newRow("no id sends the object name") << false << false << "" << true << "TABtn";
    QTest::newRow("disabled ignores taps") << false << true << "AF" << false << "";
}

void tst_MOnOffButton::tap()
{
    QFETCH(bool, startOn);
    QFETCH(bool, disabled);
    QFETCH(QString, id);
    QFETCH(QString, sent);
    QFETCH(bool, on);
    MOnOffButton sw;
    sw.setObjectName(QStringLiteral("TABtn"));
    sw.resize(104, 51);
    sw.setOnColor(QColor(20, 80, 255));
    sw.setOnoffStatus(startOn);
    sw.setBtnDisable(disabled);
    sw.setButtonID(id);
    sw.show();
    QSignalSpy spy(&sw, &MOnOffButton::onoffStatusChanged);
    QTest::mouseClick(&sw, Qt::LeftButton, {}, sw.rect().center());
    QCOMPARE(sw.onoffStatus(), on);
    QCOMPARE(spy.count(), sent.isEmpty() ? 0 : 1);
    if (!sent.isEmpty())
        QCOMPARE(spy.at(0), (QList<QVariant>{sent, on}));
    // The knob settles at the end of its state.
    QTRY_COMPARE(sw.knobPosition(), on ? 1.0 : 0.0);
}

QTEST_MAIN(tst_MOnOffButton)
#include "tst_monoffbutton.moc"
