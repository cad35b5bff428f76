#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "SetupEqView.h"
#include "WidgetRender.h"

#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

class TestSetupEqView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fillsRect();
    void exitEmits();
    void userGainPersists_data();
    void userGainPersists();
    void resetZeroesAndPersists();
    void setGainBounds_data();
    void setGainBounds();
    void unusableStoredGain_data();
    void unusableStoredGain();
    void render();

private:
    QTemporaryDir* m_dir = nullptr;
};

void TestSetupEqView::init()
{
    m_dir = new QTemporaryDir;
    QVERIFY(m_dir->isValid());
    DataSaveControl::setStoreFile(m_dir->filePath(QStringLiteral("settings.ini")));
}

void TestSetupEqView::cleanup()
{
    DataSaveControl::setStoreFile(QString());
    delete m_dir;
    m_dir = nullptr;
}

void TestSetupEqView::fillsRect()
{
    QWidget screen;
    screen.resize(1280, 720);
    SetupEqView view(QRect(0, 80, 1280, 640), &screen);
    QCOMPARE(view.geometry(), QRect(0, 80, 1280, 640));
    QCOMPARE(view.bandCount(), 5);
    for (int band = 0; band < view.bandCount(); ++band)
        QCOMPARE(view.gain(band), 0);
}

void TestSetupEqView::exitEmits()
{
    SetupEqView view(QRect(0, 0, 1280, 720));
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    auto* exit = view.findChild<HvIconButton*>(QStringLiteral("eqExitBtn"));
    QVERIFY(exit);
    QCOMPARE(exit->displayText(), QStringLiteral("Back"));
    QVERIFY(view.rect().contains(exit->geometry()));
    QSignalSpy spy(&view, &SetupEqView::exitEqSig);
    QTest::mouseClick(exit, Qt::LeftButton, {}, exit->rect().center());
    QCOMPARE(spy.count(), 1);
}

void TestSetupEqView::userGainPersists_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("ups");
    QTest::addColumn<int>("expected");
    QTest::newRow("60 Hz +3") << 0 << 3 << 3;
    QTest::newRow("12 kHz past the top") << 4 << 20 << 12;
    QTest::newRow("250 Hz past the bottom") << 1 << -30 << -12;
}

void TestSetupEqView::userGainPersists()
{
    QFETCH(int, band);
    QFETCH(int, ups);
    QFETCH(int, expected);
    {
        SetupEqView view(QRect(0, 0, 1280, 720));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        auto* slider = view.findChild<QSlider*>(QStringLiteral("eqBand%1").arg(band));
        QVERIFY(slider);
        QSignalSpy changed(&view, &SetupEqView::gainChanged);
        for (int i = 0; i < qAbs(ups); ++i)
            QTest::keyClick(slider, ups > 0 ? Qt::Key_Up : Qt::Key_Down);
        QCOMPARE(view.gain(band), expected);
        QVERIFY(!changed.isEmpty());
        QCOMPARE(changed.last().at(0).toInt(), band);
        QCOMPARE(changed.last().at(1).toInt(), expected);
    }
    QCOMPARE(DataSaveControl::readSettingData(QStringLiteral("eq/band%1").arg(band), 99, QString()).toInt(), expected);

    SetupEqView again(QRect(0, 0, 1280, 720));
    for (int b = 0; b < again.bandCount(); ++b)
        QCOMPARE(again.gain(b), b == band ? expected : 0);
}

void TestSetupEqView::resetZeroesAndPersists()
{
    {
        SetupEqView view(QRect(0, 0, 1280, 720));
        view.setGain(0, 6);
        view.setGain(3, -9);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        auto* reset = view.findChild<HvIconButton*>(QStringLiteral("eqResetBtn"));
        QVERIFY(reset);
        QSignalSpy changed(&view, &SetupEqView::gainChanged);
        QTest::mouseClick(reset, Qt::LeftButton, {}, reset->rect().center());
        QCOMPARE(changed.count(), 2);
        for (int b = 0; b < view.bandCount(); ++b)
            QCOMPARE(view.gain(b), 0);
    }
    SetupEqView again(QRect(0, 0, 1280, 720));
    QCOMPARE(again.gain(0), 0);
    QCOMPARE(again.gain(3), 0);
}

void TestSetupEqView::setGainBounds_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("dB");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<int>("stored");
    QTest::newRow("too high") << 1 << 40 << QStringLiteral("gain out of range") << 12;
    QTest::newRow("too low") << 1 << -13 << QStringLiteral("gain out of range") << -12;
    QTest::newRow("no band -1") << -1 << 3 << QStringLiteral("no such band") << 0;
    QTest::newRow("no band 5") << 5 << 3 << QStringLiteral("no such band") << 0;
}

void TestSetupEqView::setGainBounds()
{
    QFETCH(int, band);
    QFETCH(int, dB);
    QFETCH(QString, warning);
    QFETCH(int, stored);
    SetupEqView view(QRect(0, 0, 1280, 720));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
    view.setGain(band, dB);
    QCOMPARE(view.gain(1), stored);
}

void TestSetupEqView::unusableStoredGain_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("loud"));
    QTest::newRow("out of range") << QVariant(99);
}

void TestSetupEqView::unusableStoredGain()
{
    QFETCH(QVariant, value);
    DataSaveControl::saveSettingData(QStringLiteral("band2"), value, QStringLiteral("eq"));
    DataSaveControl::saveSettingData(QStringLiteral("band3"), 4, QStringLiteral("eq"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("stored gain of band 2 unusable"));
    SetupEqView view(QRect(0, 0, 1280, 720));
    QCOMPARE(view.gain(2), 0);
    QCOMPARE(view.gain(3), 4);
}

void TestSetupEqView::render()
{
    SetupEqView view(QRect(0, 0, 1280, 640));
    const int gains[] = {4, 1, -2, 3, 6};
    for (int b = 0; b < 5; ++b)
        view.setGain(b, gains[b]);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(saveRender(&view, QStringLiteral("setupeqview")));
}

QTEST_MAIN(TestSetupEqView)
#include "tst_setupeqview.moc"
