#include "MRadioSlider.h"
#include "ObjectTimers.h"
#include "WidgetRender.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>

namespace {

struct Band
{
    bool fm;
    float min;
    float max;
    float step;
};

void sendMove(QWidget* w, const QPoint& pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, w->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(w, &move);
}

// x of a display-unit frequency, from the scale's two end points alone.
int xOfDisplay(const MRadioSlider& s, double display)
{
    const double lo = s.freqStart();
    const double hi = s.freqEnd();
    return int(std::lround(s.scaleLeft() + (display - lo) / (hi - lo) * (s.scaleRight() - s.scaleLeft())));
}

QString exact(float f)
{
    return QString::number(double(f), 'f', 6);
}

} // namespace

Q_DECLARE_METATYPE(Band)

class TestMRadioSlider : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tapTunesSnapped_data();
    void tapTunesSnapped();
    void clampsAtBothEnds_data();
    void clampsAtBothEnds();
    void dragFollowsFingerEmitsOnceOnRelease();
    void noEmitWhenUnchanged();
    void curFreqMovesPointer_data();
    void curFreqMovesPointer();
    void pointerStaysWithFingerDuringTunerUpdate();
    void layoutSetupIsAmScale();
    void invalidRangeIgnored_data();
    void invalidRangeIgnored();
    void nonFiniteFrequencyIgnored();
    void pointerFallbackAndImage();
    void render();

    // The tuner's answer to a drag (definitions at the end of the file).
    void dragAwaitsTheTuner();

private:
    QWidget* m_host = nullptr;
    MRadioSlider* m_slider = nullptr;
};

void TestMRadioSlider::init()
{
    m_host = new QWidget;
    m_host->resize(700, 120);
    m_slider = new MRadioSlider(m_host);
    m_slider->setGeometry(0, 10, 661, 91);
    QFont f = m_slider->font();
    f.setPointSize(16);
    m_slider->setFont(f);
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host));
}

void TestMRadioSlider::cleanup()
{
    delete m_host;
    m_host = nullptr;
    m_slider = nullptr;
}

void TestMRadioSlider::tapTunesSnapped_data()
{
    QTest::addColumn<Band>("band");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("target");
    QTest::addColumn<float>("expected");

    const Band fm{true, 87.5f, 108.0f, 0.05f};
    const Band fm100{true, 87.5f, 108.0f, 0.1f};
    const Band am{false, 531.0f, 1629.0f, 1.0f};
    const Band am9{false, 531.0f, 1602.0f, 9.0f};
    // At the real width a pixel is 0.033 MHz, so only on-step targets are
    // exact there; off-step targets need a wide scale.
    QTest::newRow("FM 98.10 at 661 px") << fm << 661 << 98.10 << 9810.0f;
    QTest::newRow("FM 98.13 snaps up") << fm << 4100 << 98.13 << 9815.0f;
    QTest::newRow("FM 98.12 snaps down") << fm << 4100 << 98.12 << 9810.0f;
    QTest::newRow("FM 107.99 snaps to end") << fm << 4100 << 107.99 << 10800.0f;
    QTest::newRow("FM 87.51 snaps to start") << fm << 4100 << 87.51 << 8750.0f;
    QTest::newRow("FM 100 kHz step 98.13") << fm100 << 4100 << 98.13 << 9810.0f;
    QTest::newRow("AM 999.2 kHz") << am << 2300 << 999.2 << 999.0f;
    QTest::newRow("AM 9 kHz step from 531") << am9 << 2300 << 1000.0 << 999.0f;
    QTest::newRow("AM 9 kHz step 1004") << am9 << 2300 << 1004.0 << 1008.0f;
}

void TestMRadioSlider::tapTunesSnapped()
{
    QFETCH(Band, band);
    QFETCH(int, width);
    QFETCH(double, target);
    QFETCH(float, expected);

    m_host->resize(width + 40, 120);
    m_slider->resize(width, 91);
    m_slider->freqParamChangedSlot(band.fm, band.min, band.max, band.step);
    // A tuner value off the band, so that every tap is a change.
    m_slider->curFreqChangedSlot(0.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);

    const int x = xOfDisplay(*m_slider, target);
    QCOMPARE(m_slider->freqAtX(x), expected);
    QTest::mouseClick(m_slider, Qt::LeftButton, {}, QPoint(x, 45));

    QCOMPARE(spy.count(), 1);
    const float got = spy.first().first().toFloat();
    QVERIFY2(got == expected, qPrintable(exact(got) + " != " + exact(expected)));
    // The view truncates to an integer: no 9814.9999 may slip through.
    QCOMPARE(unsigned(got), unsigned(expected));
    // The pointer waits there for the tuner's answer.
    QCOMPARE(m_slider->pointerX(), m_slider->xForFreq(expected));
}

void TestMRadioSlider::clampsAtBothEnds_data()
{
    QTest::addColumn<Band>("band");
    QTest::addColumn<int>("x");
    QTest::addColumn<float>("expected");
    const Band fm{true, 87.5f, 108.0f, 0.05f};
    const Band am{false, 522.0f, 1629.0f, 1.0f};
    QTest::newRow("FM far left") << fm << -300 << 8750.0f;
    QTest::newRow("FM far right") << fm << 5000 << 10800.0f;
    QTest::newRow("AM far left") << am << -1 << 522.0f;
    QTest::newRow("AM far right") << am << 900 << 1629.0f;
}

void TestMRadioSlider::clampsAtBothEnds()
{
    QFETCH(Band, band);
    QFETCH(int, x);
    QFETCH(float, expected);
    m_slider->freqParamChangedSlot(band.fm, band.min, band.max, band.step);
    m_slider->setCurFreq(band.fm ? 9810.0f : 999.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);

    // Start on the scale and drag off its end.
    const QPoint start(m_slider->width() / 2, 45);
    QTest::mousePress(m_slider, Qt::LeftButton, {}, start);
    sendMove(m_slider, QPoint(x, 45));
    QTest::mouseRelease(m_slider, Qt::LeftButton, {}, QPoint(x, 45));

    QCOMPARE(spy.count(), 1);
    QVERIFY2(spy.first().first().toFloat() == expected, qPrintable(exact(spy.first().first().toFloat())));
    QCOMPARE(m_slider->pointerX(), x < m_slider->width() / 2 ? m_slider->scaleLeft() : m_slider->scaleRight());
}

void TestMRadioSlider::dragFollowsFingerEmitsOnceOnRelease()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->curFreqChangedSlot(8750.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);

    const int x1 = xOfDisplay(*m_slider, 92.0);
    const int x2 = xOfDisplay(*m_slider, 96.0);
    const int x3 = xOfDisplay(*m_slider, 101.3);
    QTest::mousePress(m_slider, Qt::LeftButton, {}, QPoint(x1, 40));
    QVERIFY(m_slider->isDragging());
    QVERIFY(qAbs(m_slider->pointerX() - x1) <= 1);
    sendMove(m_slider, QPoint(x2, 40));
    QVERIFY(qAbs(m_slider->pointerX() - x2) <= 1);
    sendMove(m_slider, QPoint(x3, 80));
    QVERIFY(qAbs(m_slider->pointerX() - x3) <= 1);
    QCOMPARE(spy.count(), 0);
    // The tuner's value is untouched until the finger lifts.
    QCOMPARE(m_slider->curFreq(), 8750.0f);

    QTest::mouseRelease(m_slider, Qt::LeftButton, {}, QPoint(x3, 80));
    QVERIFY(!m_slider->isDragging());
    QCOMPARE(spy.count(), 1);
    const float got = spy.first().first().toFloat();
    // 101.30 MHz +- one pixel (0.033 MHz), on the 0.05 grid.
    QVERIFY2(got >= 10125.0f && got <= 10135.0f, qPrintable(exact(got)));
    QCOMPARE(std::fmod(double(got) - 8750.0, 5.0), 0.0);
    QCOMPARE(m_slider->pointerX(), m_slider->xForFreq(got));
}

void TestMRadioSlider::noEmitWhenUnchanged()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->curFreqChangedSlot(9810.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);
    const int x = m_slider->xForFreq(9810.0f);
    QTest::mouseClick(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    QCOMPARE(spy.count(), 0);

    // A drag away and back again ends where it began: still nothing.
    QTest::mousePress(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    sendMove(m_slider, QPoint(x + 200, 45));
    sendMove(m_slider, QPoint(x, 45));
    QTest::mouseRelease(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    QCOMPARE(spy.count(), 0);
}

void TestMRadioSlider::curFreqMovesPointer_data()
{
    QTest::addColumn<bool>("fm");
    QTest::addColumn<float>("freq");
    QTest::addColumn<double>("fraction");
    QTest::newRow("FM start") << true << 8750.0f << 0.0;
    QTest::newRow("FM end") << true << 10800.0f << 1.0;
    QTest::newRow("FM 98.00") << true << 9800.0f << (98.0 - 87.5) / 20.5;
    QTest::newRow("FM above the band") << true << 12000.0f << 1.0;
    QTest::newRow("AM 1000") << false << 1000.0f << (1000.0 - 531.0) / 1098.0;
    QTest::newRow("AM below the band") << false << 100.0f << 0.0;
}

void TestMRadioSlider::curFreqMovesPointer()
{
    QFETCH(bool, fm);
    QFETCH(float, freq);
    QFETCH(double, fraction);
    if (fm)
        m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    else
        m_slider->freqParamChangedSlot(false, 531.0f, 1629.0f, 1.0f);
    m_slider->curFreqChangedSlot(freq);

    const int left = m_slider->scaleLeft();
    const int right = m_slider->scaleRight();
    QVERIFY(left > 0 && right < m_slider->width() && right - left > 500);
    const int expected = int(std::lround(left + fraction * (right - left)));
    QCOMPARE(m_slider->xForFreq(freq), expected);
    QCOMPARE(m_slider->pointerX(), expected);
    // The tuner's value is kept as given, even outside the band.
    QCOMPARE(m_slider->curFreq(), freq);
}

void TestMRadioSlider::pointerStaysWithFingerDuringTunerUpdate()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->curFreqChangedSlot(8750.0f);
    const int x = xOfDisplay(*m_slider, 104.0);
    QTest::mousePress(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    m_slider->curFreqChangedSlot(9000.0f);
    QVERIFY(qAbs(m_slider->pointerX() - x) <= 1);
    QTest::mouseRelease(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    QVERIFY(qAbs(m_slider->pointerX() - x) <= 1);
}

void TestMRadioSlider::layoutSetupIsAmScale()
{
    // The main layout's calls, in its order.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("pointer image not found"));
    m_slider->setIndicatePix(QStringLiteral(":/radioimages/missing-pointer.png"));
    m_slider->setLineColor(QColor(255, 255, 255));
    m_slider->setLineGap(6);
    m_slider->setFreqStart(522.0f);
    m_slider->setFreqEnd(1629.0f);
    m_slider->setFreqStep(1.0f);
    m_slider->setCurFreq(600.0f);
    m_slider->setIsFM(false);
    m_slider->setMarginY(0);
    m_slider->setProperty("scaleMode", 2);
    m_slider->setTextMarginY(5);
    m_slider->setScaleMarginY(-20);

    QCOMPARE(m_slider->freqAtX(-10), 522.0f);
    QCOMPARE(m_slider->freqAtX(10000), 1629.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);
    const int x = xOfDisplay(*m_slider, 1000.0);
    QTest::mouseClick(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
    QCOMPARE(spy.count(), 1);
    // AM stays in kHz: within a pixel (1.8 kHz) of 1000, an integer.
    const float got = spy.first().first().toFloat();
    QVERIFY2(qAbs(got - 1000.0f) <= 2.0f && got == std::floor(got), qPrintable(exact(got)));
}

void TestMRadioSlider::invalidRangeIgnored_data()
{
    QTest::addColumn<float>("min");
    QTest::addColumn<float>("max");
    QTest::addColumn<float>("step");
    QTest::newRow("reversed") << 108.0f << 87.5f << 0.05f;
    QTest::newRow("empty") << 87.5f << 87.5f << 0.05f;
    QTest::newRow("zero step") << 87.5f << 108.0f << 0.0f;
    QTest::newRow("NaN") << std::nanf("") << 108.0f << 0.05f;
    QTest::newRow("infinite end") << 87.5f << float(INFINITY) << 0.05f;
}

void TestMRadioSlider::invalidRangeIgnored()
{
    QFETCH(float, min);
    QFETCH(float, max);
    QFETCH(float, step);
    m_slider->freqParamChangedSlot(false, 531.0f, 1629.0f, 1.0f);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("invalid band range ignored"));
    m_slider->freqParamChangedSlot(true, min, max, step);
    QCOMPARE(m_slider->isFM(), false);
    QCOMPARE(m_slider->freqStart(), 531.0f);
    QCOMPARE(m_slider->freqEnd(), 1629.0f);
    QCOMPARE(m_slider->freqStep(), 1.0f);
    QCOMPARE(m_slider->freqAtX(100000), 1629.0f);
}

void TestMRadioSlider::nonFiniteFrequencyIgnored()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->setCurFreq(9810.0f);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("non-finite frequency ignored"));
    m_slider->curFreqChangedSlot(std::nanf(""));
    QCOMPARE(m_slider->curFreq(), 9810.0f);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("scale step must be positive"));
    m_slider->setFreqStep(0.0f);
    QCOMPARE(m_slider->freqStep(), 0.05f);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("line gap must be at least 1"));
    m_slider->setLineGap(0);
    QCOMPARE(m_slider->lineGap(), 6);
}

void TestMRadioSlider::pointerFallbackAndImage()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->curFreqChangedSlot(9810.0f);
    const int px = m_slider->pointerX();

    auto columnHas = [&](const QImage& image, int x, auto pred) {
        for (int y = 0; y < image.height(); ++y) {
            if (pred(image.pixelColor(x, y)))
                return true;
        }
        return false;
    };
    auto isRed = [](const QColor& c) { return c.red() > 200 && c.green() < 90 && c.blue() < 90; };
    auto isGreen = [](const QColor& c) { return c.green() > 200 && c.red() < 60 && c.blue() < 60; };

    // No image: a red needle at the pointer, none far away from it.
    QImage image = renderOnBackdrop(m_slider);
    QVERIFY(columnHas(image, px, isRed));
    QVERIFY(!columnHas(image, px + 60, isRed));

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QImage needle(6, 70, QImage::Format_ARGB32);
    needle.fill(QColor(0, 255, 0));
    const QString path = dir.filePath(QStringLiteral("pointer.png"));
    QVERIFY(needle.save(path));
    m_slider->setIndicatePix(path);
    image = renderOnBackdrop(m_slider);
    QVERIFY(columnHas(image, m_slider->pointerX(), isGreen));
    QVERIFY(!columnHas(image, m_slider->pointerX(), isRed));
}

void TestMRadioSlider::render()
{
    QWidget stage;
    stage.resize(701, 230);
    auto* fm = new MRadioSlider(&stage);
    auto* am = new MRadioSlider(&stage);
    for (MRadioSlider* s : {fm, am}) {
        QFont f = s->font();
        f.setPointSize(16);
        s->setFont(f);
        s->setLineColor(QColor(255, 255, 255));
        s->setLineGap(6);
        s->setMarginY(0);
        s->setProperty("scaleMode", 2);
        s->setTextMarginY(5);
        s->setScaleMarginY(-20);
    }
    fm->setGeometry(20, 15, 661, 91);
    fm->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    fm->curFreqChangedSlot(9810.0f);
    am->setGeometry(20, 125, 661, 91);
    am->setFreqStart(522.0f);
    am->setFreqEnd(1629.0f);
    am->setFreqStep(1.0f);
    am->setCurFreq(600.0f);
    am->setIsFM(false);
    stage.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage));
    QVERIFY(saveRender(&stage, QStringLiteral("mradioslider")));
}

// ---- The tuner's answer to a drag ----

// A drag to 104.00 that the tuner does not take: the pointer waits there,
// then goes back to the shown 90.00, and the same drag asks again; an answer
// with another frequency moves the pointer there at once.
void TestMRadioSlider::dragAwaitsTheTuner()
{
    m_slider->freqParamChangedSlot(true, 87.5f, 108.0f, 0.05f);
    m_slider->curFreqChangedSlot(9000.0f);
    QSignalSpy spy(m_slider, &MRadioSlider::freqChangedSgl);
    const int x = m_slider->xForFreq(10400.0f);
    for (int drag = 1; drag <= 2; ++drag) {
        QTest::mouseClick(m_slider, Qt::LeftButton, {}, QPoint(x, 45));
        QCOMPARE(spy.count(), drag);
        QCOMPARE(spy.last().first().toFloat(), 10400.0f);
        QCOMPARE(m_slider->pointerX(), x);
        if (drag == 1) {
            QVERIFY(ObjectTimers::fire(m_slider, MRadioSlider::ConfirmMs));
            QCOMPARE(m_slider->pointerX(), m_slider->xForFreq(9000.0f));
        }
    }
    m_slider->curFreqChangedSlot(9550.0f);
    QVERIFY(!ObjectTimers::isRunning(m_slider, MRadioSlider::ConfirmMs));
    QCOMPARE(m_slider->pointerX(), m_slider->xForFreq(9550.0f));
}

QTEST_MAIN(TestMRadioSlider)
#include "tst_mradioslider.moc"
