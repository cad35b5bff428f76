#include "MRadioSlider.h"

#include "ObjectTimers.h"

#include <QSignalSpy>
#include <QtTest>

class tst_MRadioSlider : public QObject
{
    Q_OBJECT

private slots:
    void tap_data();
    void tap();
};

// A tap tunes to the grid frequency under the finger, in tuner units; the
// ends clamp. FM ranges arrive in MHz, the pointer in tuner units.
void tst_MRadioSlider::tap_data()
{
    QTest::addColumn<bool>("isFM");
    QTest::addColumn<float>("low");
    QTest::addColumn<float>("high");
    QTest::addColumn<float>("step");
    QTest::addColumn<double>("where");  // 0 left end, 1 right end of the scale
    QTest::addColumn<float>("tuned");
    QTest::addColumn<bool>("confirmed");  // the tuner answers with the tapped frequency
    QTest::newRow("fm left end") << true << 87.5f << 108.0f << 0.05f << 0.0 << 8750.0f << true;
    QTest::newRow("fm right end") << true << 87.5f << 108.0f << 0.05f << 1.0 << 10800.0f << true;
    QTest::newRow("fm middle") << true << 87.5f << 108.0f << 0.05f << 0.5 << 9775.0f << true;
    QTest::newRow("fm 200 kHz grid") << true << 87.5f << 107.9f << 0.2f << 0.5 << 9770.0f << true;
    QTest::newRow("am middle") << false << 531.0f << 1629.0f << 1.0f << 0.5 << 1080.0f << true;
    QTest::newRow("left of the scale clamps") << false << 531.0f << 1629.0f << 1.0f << -0.2 << 531.0f << true;
    QTest::newRow("fm, no answer") << true << 87.5f << 108.0f << 0.05f << 0.5 << 9775.0f << false;
    QTest::newRow("am, no answer") << false << 531.0f << 1629.0f << 1.0f << 0.5 << 1080.0f << false;
}

void tst_MRadioSlider::tap()
{
    QFETCH(bool, isFM);
    QFETCH(float, low);
    QFETCH(float, high);
    QFETCH(float, step);
    QFETCH(double, where);
    MRadioSlider slider;
    slider.resize(661, 91);
    slider.freqParamChangedSlot(isFM, low, high, step);
    slider.curFreqChangedSlot(isFM ? 9000.0f : 600.0f);
    slider.show();
    const int x = slider.scaleLeft() + int(std::lround(where * (slider.scaleRight() - slider.scaleLeft())));
    QSignalSpy spy(&slider, &MRadioSlider::freqChangedSgl);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(x, 40));
    QVERIFY(slider.isDragging());
    QCOMPARE(spy.count(), 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(x, 40));
    QCOMPARE(spy.count(), 1);
    QTEST(spy.at(0).at(0).toFloat(), "tuned");

    const float tuned = spy.at(0).at(0).toFloat();
    QFETCH(bool, confirmed);
    if (!confirmed) {
        // Back to the frequency shown, and the same tap asks again.
        QVERIFY(ObjectTimers::fire(&slider, MRadioSlider::ConfirmMs));
        QCOMPARE(slider.pointerX(), slider.xForFreq(isFM ? 9000.0f : 600.0f));
        QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(x, 40));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1).at(0).toFloat(), tuned);
    }
    slider.curFreqChangedSlot(tuned);
    QVERIFY(!ObjectTimers::isRunning(&slider, MRadioSlider::ConfirmMs));
    QCOMPARE(slider.pointerX(), slider.xForFreq(tuned));
    QCOMPARE(slider.freqAtX(slider.pointerX()), tuned);
}

QTEST_MAIN(tst_MRadioSlider)
#include "tst_mradioslider.moc"
