#include "ViewFixture.h"

#include "RadioSetting.h"

#include "MOnOffButton.h"

#include <QSignalSpy>

using namespace ViewFixture;

class tst_RadioSetting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void switches_data();
    void switches();
    void backButton();
    void dxLocToggleNeedsItsLabel();

private:
    MOnOffButton* switchNamed(const QString& name) const { return find<MOnOffButton>(m_page, name); }

    QTemporaryDir m_dir;
    RadioSetting* m_page = nullptr;
};

void tst_RadioSetting::init()
{
    QVERIFY(m_dir.isValid());
    resetHost(m_dir);
    m_page = new RadioSetting;
    m_page->show();
}

void tst_RadioSetting::cleanup()
{
    delete m_page;
    m_page = nullptr;
}

void tst_RadioSetting::switches_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("relay");
    QTest::addColumn<int>("setter");
    QTest::newRow("AF") << "AFBtn" << QByteArray(SIGNAL(sigAFStatusChange(QString, bool))) << 0;
    QTest::newRow("TA") << "TABtn" << QByteArray(SIGNAL(sigTAStatusChange(QString, bool))) << 1;
    QTest::newRow("REG") << "RegBtn" << QByteArray(SIGNAL(sigRegStatusChange(QString, bool))) << 2;
    QTest::newRow("scan, below the page") << "ScanBtn" << QByteArray(SIGNAL(sigScanStatusChange(QString, bool))) << 3;
    QTest::newRow("LOC") << "LocOnOff" << QByteArray(SIGNAL(sigLocStatusChange(QString, bool))) << 4;
}

// A touch on a switch is relayed with the switch's string and new state;
// the status setters move the switch.
void tst_RadioSetting::switches()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, relay);
    QFETCH(int, setter);
    MOnOffButton* sw = switchNamed(name);
    QVERIFY(sw);
    QVERIFY(!sw->onoffStatus());
    QSignalSpy spy(m_page, relay.constData());
    QSignalSpy sent(sw, SIGNAL(onoffStatusChanged(QString, bool)));
    QSignalSpy antenna(m_page, SIGNAL(sigAntPowerStatusChange(QString, bool)));
    QTest::mouseClick(sw, Qt::LeftButton, {}, sw->rect().center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(sent.count(), 1);
    QCOMPARE(spy.at(0), sent.at(0));
    QCOMPARE(spy.at(0).at(1).toBool(), true);
    QCOMPARE(antenna.count(), 0);

    for (bool on : {false, true, false}) {
        switch (setter) {
        case 0: m_page->AFStatusSetting(on); break;
        case 1: m_page->TAStatusSetting(on); break;
        case 2: m_page->REGStatusSetting(on); break;
        case 3: m_page->ScanStatusSetting(on); break;
        case 4: m_page->LocStatusSetting(on); break;
        }
        QCOMPARE(sw->onoffStatus(), on);
    }
}

void tst_RadioSetting::backButton()
{
    QSignalSpy spy(m_page, SIGNAL(sigReqExitRadioSetting(QString)));
    HvIconButton* back = button(m_page, QStringLiteral("setup_close"));
    QTest::mouseClick(back, Qt::LeftButton, {}, back->rect().center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), back->buttonID());
    QVERIFY(m_page->isVisible());
}

// The layout has no DX/LOC label, so the toggle has nothing to read.
void tst_RadioSetting::dxLocToggleNeedsItsLabel()
{
    QSignalSpy spy(m_page, SIGNAL(sigLocStatusChange(QString, bool)));
    m_page->LocStatusChangeSlot(QStringLiteral("loc"));
    m_page->LocStatusChangeSlot(QStringLiteral("loc"));
    QCOMPARE(spy.count(), 0);
    QVERIFY(!switchNamed(QStringLiteral("LocOnOff"))->onoffStatus());
}

QTEST_MAIN(tst_RadioSetting)
#include "tst_radiosetting.moc"
