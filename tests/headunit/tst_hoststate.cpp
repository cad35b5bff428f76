#include "HostState.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "FakeRadioActivity.h"
#include "ModuleManager.h"
#include "RadioModule.h"
#include "UIManager.h"

#include <QJsonArray>
#include <QtTest>

#include <cstring>

class TestHostState : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void flagNames_data();
    void flagNames();
    void infoText_data();
    void infoText();
    void bandName_data();
    void bandName();
    void modulesAndController();
    void snapshotCarriesWhatTheRadioReported();

private:
    RadioModule* m_radioModule = nullptr;
};

void TestHostState::initTestCase()
{
    AppData::createInstance();
    BaseControl::createInstance();
    m_radioModule = new RadioModule(this);
    auto modules = hvappframework::ModuleManager::self();
    modules->addModule(QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), m_radioModule));
    modules->addModule(QSharedPointer<AuxinModulePlugin>::create());
}

void TestHostState::flagNames_data()
{
    QTest::addColumn<unsigned>("flag");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << 0u << QStringList();
    QTest::newRow("TA indicator and TP") << 0x06u << QStringList{"TA", "TP"};
    QTest::newRow("all five") << 0x1Fu << QStringList{"ST", "TA", "TP", "TA-on", "REG"};
    QTest::newRow("unknown bits ignored") << 0xFFFFFFE1u << QStringList{"ST"};
}

void TestHostState::flagNames()
{
    QFETCH(unsigned, flag);
    QFETCH(QStringList, names);
    QCOMPARE(HostState::flagNames(flag), names);
}

void TestHostState::infoText_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("terminated") << QByteArray("FM1  87.50 MHz\0\0\0\0\0\0", 20) << "FM1  87.50 MHz";
    QTest::newRow("empty") << QByteArray(20, '\0') << "";
    QTest::newRow("no terminator: stops at the field's end") << QByteArray("ABCDEFGHIJ") << "ABCDEFGHIJ";
    QTest::newRow("stops at the first NUL") << QByteArray("NEWS\0junk", 9) << "NEWS";
}

void TestHostState::infoText()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    QCOMPARE(HostState::infoText(field.constData(), field.size()), text);
    QCOMPARE(HostState::infoText(nullptr, 5), QString());
    QCOMPARE(HostState::infoText(field.constData(), 0), QString());
}

void TestHostState::bandName_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("name");
    QTest::newRow("FM1") << 0 << "FM1";
    QTest::newRow("AM2") << 4 << "AM2";
    QTest::newRow("beyond") << 5 << "?";
    QTest::newRow("negative") << -1 << "?";
}

void TestHostState::bandName()
{
    QFETCH(int, band);
    QFETCH(QString, name);
    QCOMPARE(HostState::bandName(band), name);
}

void TestHostState::modulesAndController()
{
    QCOMPARE(HostState::radioModule(), m_radioModule);
    QVERIFY(HostState::auxinModule());
    QCOMPARE(HostState::radioController(), nullptr);

    QWidget layer;
    hvappframework::UIManager::setUIHerarchy(1, &layer);
    FakeRadioActivity radio;
    hvappframework::ActivityManager::self()->registerActivity(QStringLiteral("radio"), &radio);
    QCOMPARE(HostState::radioController(), nullptr);
    radio.onCreat();
    QCOMPARE(HostState::radioController(), radio.controller());
    hvappframework::ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
    hvappframework::UIManager::setUIHerarchy(1, nullptr);
}

void TestHostState::snapshotCarriesWhatTheRadioReported()
{
    RadioInfo_t_ info;
    std::memset(&info, 0, sizeof info);
    std::strcpy(info.freqText, "FM2  98.10 MHz");
    std::strcpy(info.psText, "CULTURE ");
    std::strcpy(info.ptyText, "Culture");
    m_radioModule->radioInfoChangeSlot(info);
    m_radioModule->radioFlagChangeSlot(RADIO_FLAG_STEREO | RADIO_FLAG_TP_IND);
    HostState::auxinModule()->streamOn();
    AppData::GetInstance()->setPlayState(1);
    AppData::GetInstance()->setTunerBand(1);
    BaseControl::getInstance()->setRadioRegion(7);

    const QJsonObject host = HostState::snapshot();
    const QJsonObject radioInfo = host.value(QStringLiteral("radioInfo")).toObject();
    QCOMPARE(radioInfo.value(QStringLiteral("freqText")).toString(), QStringLiteral("FM2  98.10 MHz"));
    QCOMPARE(radioInfo.value(QStringLiteral("psText")).toString(), QStringLiteral("CULTURE "));
    QCOMPARE(radioInfo.value(QStringLiteral("ptyText")).toString(), QStringLiteral("Culture"));
    QCOMPARE(host.value(QStringLiteral("radioFlag")).toInt(), 5);
    QCOMPARE(host.value(QStringLiteral("radioFlagNames")).toArray(), (QJsonArray{"ST", "TP"}));
    QCOMPARE(host.value(QStringLiteral("streaming")).toBool(), true);
    QCOMPARE(host.value(QStringLiteral("playState")).toInt(), 1);
    QCOMPARE(host.value(QStringLiteral("tunerBand")).toInt(), 1);
    QCOMPARE(host.value(QStringLiteral("region")).toInt(), 7);
    QVERIFY(host.value(QStringLiteral("auxinCalls")).toArray().contains(QStringLiteral("streamOn()")));
}

QTEST_MAIN(TestHostState)
#include "tst_hoststate.moc"
