#include "LayoutTamper.h"
#include "RadioSetting.h"

#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "MOnOffButton.h"
#include "SetupStrIdConst.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <memory>
#include <vector>

namespace {

const char* const SwitchNames[] = {"AFBtn", "TABtn", "RegBtn", "ScanBtn", "LocOnOff"};

// The page signal that relays each switch.
const char* relaySignal(const QString& switchName)
{
    if (switchName == QLatin1String("AFBtn"))
        return SIGNAL(sigAFStatusChange(QString, bool));
    if (switchName == QLatin1String("TABtn"))
        return SIGNAL(sigTAStatusChange(QString, bool));
    if (switchName == QLatin1String("RegBtn"))
        return SIGNAL(sigRegStatusChange(QString, bool));
    if (switchName == QLatin1String("ScanBtn"))
        return SIGNAL(sigScanStatusChange(QString, bool));
    return SIGNAL(sigLocStatusChange(QString, bool));
}

// Every signal of the page, to prove that one action emits nothing else.
class PageSignals
{
public:
    explicit PageSignals(RadioSetting* page)
    {
        const QMetaObject* mo = page->metaObject();
        for (int i = mo->methodOffset(); i < mo->methodCount(); ++i) {
            const QMetaMethod m = mo->method(i);
            if (m.methodType() == QMetaMethod::Signal)
                m_spies.emplace_back(new QSignalSpy(page, m));
        }
    }
    // Emissions of all signals but the one named (normalised signature).
    int othersThan(const QByteArray& signature) const
    {
        int n = 0;
        for (const auto& spy : m_spies)
            if (spy->signal() != signature)
                n += spy->count();
        return n;
    }
    int total() const { return othersThan(QByteArray()); }

private:
    std::vector<std::unique_ptr<QSignalSpy>> m_spies;
};

QByteArray signature(const char* signalMacro)
{
    // SIGNAL() prefixes a code digit; QSignalSpy::signal() has none.
    return QMetaObject::normalizedSignature(signalMacro + 1);
}

// Translates only the page's window title.
class TitleTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (qstrcmp(context, "RadioSettingForm") == 0 && qstrcmp(source, "Form") == 0)
            return QStringLiteral("Einstellungen");
        return QString();
    }
};

// One of the page's switch setters.
using SwitchSetter = void (RadioSetting::*)(bool);

} // namespace

Q_DECLARE_METATYPE(SwitchSetter)

class tst_RadioSetting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void construction();
    void switchClickRelaysItsOwnSignal_data();
    void switchClickRelaysItsOwnSignal();
    void closeButtonRequestsExit();
    void statusSetters_data();
    void statusSetters();
    void locStatusSettingWithoutLabel();
    void locStatusChangeSlotWithoutLabel();
    void initRDSsetting_data();
    void initRDSsetting();
    void constructorDoesNotLoadStore();
    void updateButtonStates();
    void languageChangeRetitlesOnly();

    void optionalWidgetsWired();
    void locDxToggleWithLabel();
    void locStatusSettingWithLabel();
    void absentSwitchesAreSkipped_data();
    void absentSwitchesAreSkipped();

private:
    std::unique_ptr<QTemporaryDir> m_store;
};

void tst_RadioSetting::init()
{
    DataDefault::resetDefaults();
    m_store.reset(new QTemporaryDir);
    QVERIFY(m_store->isValid());
    DataSaveControl::setStoreFile(m_store->filePath(QStringLiteral("settings.ini")));
}

void tst_RadioSetting::cleanup()
{
    DataSaveControl::setStoreFile(QString());
    m_store.reset();
    DataDefault::resetDefaults();
}

void tst_RadioSetting::construction()
{
    QWidget parent;
    RadioSetting page(&parent);
    QCOMPARE(page.geometry(), QRect(0, 0, 450, 720));
    for (const char* name : SwitchNames) {
        auto* sw = page.findChild<MOnOffButton*>(QLatin1String(name));
        QVERIFY2(sw, name);
        QVERIFY2(!sw->onoffStatus(), name);
        QVERIFY2(!sw->btnDisable(), name);
    }
    QVERIFY(page.findChild<HvIconButton*>(QStringLiteral("setup_close")));
}

void tst_RadioSetting::switchClickRelaysItsOwnSignal_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : SwitchNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_RadioSetting::switchClickRelaysItsOwnSignal()
{
    QFETCH(QString, name);
    RadioSetting page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* sw = page.findChild<MOnOffButton*>(name);
    QVERIFY(sw);
    PageSignals all(&page);
    QSignalSpy spy(&page, relaySignal(name));

    QTest::mouseClick(sw, Qt::LeftButton, Qt::NoModifier, sw->rect().center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), name);  // the switch's own id
    QCOMPARE(spy.at(0).at(1).toBool(), true);

    QTest::mouseClick(sw, Qt::LeftButton, Qt::NoModifier, sw->rect().center());
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toString(), name);
    QCOMPARE(spy.at(1).at(1).toBool(), false);

    QCOMPARE(all.othersThan(signature(relaySignal(name))), 0);
}

void tst_RadioSetting::closeButtonRequestsExit()
{
    RadioSetting page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* close = page.findChild<HvIconButton*>(QStringLiteral("setup_close"));
    QVERIFY(close);
    PageSignals all(&page);
    QSignalSpy spy(&page, SIGNAL(sigReqExitRadioSetting(QString)));
    QTest::mouseClick(close, Qt::LeftButton, Qt::NoModifier, close->rect().center());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), close->buttonID());
    QCOMPARE(all.total(), 1);
}

void tst_RadioSetting::statusSetters_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<SwitchSetter>("setter");
    QTest::newRow("AF") << "AFBtn" << &RadioSetting::AFStatusSetting;
    QTest::newRow("TA") << "TABtn" << &RadioSetting::TAStatusSetting;
    QTest::newRow("REG") << "RegBtn" << &RadioSetting::REGStatusSetting;
    QTest::newRow("scan") << "ScanBtn" << &RadioSetting::ScanStatusSetting;
    QTest::newRow("LOC") << "LocOnOff" << &RadioSetting::LocStatusSetting;
}

void tst_RadioSetting::statusSetters()
{
    QFETCH(QString, name);
    QFETCH(SwitchSetter, setter);
    RadioSetting page;
    PageSignals all(&page);
    (page.*setter)(true);
    for (const char* other : SwitchNames)
        QCOMPARE(page.findChild<MOnOffButton*>(QLatin1String(other))->onoffStatus(), name == QLatin1String(other));
    (page.*setter)(false);
    for (const char* other : SwitchNames)
        QVERIFY(!page.findChild<MOnOffButton*>(QLatin1String(other))->onoffStatus());
    // A state the tuner reports is not sent back as a request.
    QCOMPARE(all.total(), 0);
}

void tst_RadioSetting::locStatusSettingWithoutLabel()
{
    RadioSetting page;
    const auto texts = [&page] {
        QStringList t;
        for (QLabel* label : page.findChildren<QLabel*>())
            t << label->text();
        return t;
    };
    const QStringList before = texts();
    page.LocStatusSetting(true);
    QVERIFY(page.findChild<MOnOffButton*>(QStringLiteral("LocOnOff"))->onoffStatus());
    QCOMPARE(texts(), before);
    page.LocStatusSetting(false);
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("LocOnOff"))->onoffStatus());
    QCOMPARE(texts(), before);
}

void tst_RadioSetting::locStatusChangeSlotWithoutLabel()
{
    RadioSetting page;
    PageSignals all(&page);
    page.LocStatusChangeSlot(QStringLiteral("x"));
    page.LocStatusChangeSlot(QStringLiteral("x"));
    QCOMPARE(all.total(), 0);
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("LocOnOff"))->onoffStatus());
}

void tst_RadioSetting::initRDSsetting_data()
{
    QTest::addColumn<QVariant>("storedTA");
    QTest::addColumn<QVariant>("storedAF");
    QTest::addColumn<QVariant>("defaultTA");
    QTest::addColumn<QVariant>("defaultAF");
    QTest::addColumn<bool>("ta");
    QTest::addColumn<bool>("af");
    const QVariant none;
    QTest::newRow("factory defaults") << none << none << none << none << false << true;
    QTest::newRow("stored TA on, AF off") << QVariant(true) << QVariant(false) << none << none << true << false;
    QTest::newRow("changed defaults") << none << none << QVariant(true) << QVariant(false) << true << false;
    QTest::newRow("store beats default") << QVariant(false) << QVariant(true) << QVariant(true) << QVariant(false)
                                         << false << true;
}

void tst_RadioSetting::initRDSsetting()
{
    QFETCH(QVariant, storedTA);
    QFETCH(QVariant, storedAF);
    QFETCH(QVariant, defaultTA);
    QFETCH(QVariant, defaultAF);
    QFETCH(bool, ta);
    QFETCH(bool, af);
    if (storedTA.isValid())
        DataSaveControl::saveSettingData(SetupStrIdConst::setupTA, storedTA, QString());
    if (storedAF.isValid())
        DataSaveControl::saveSettingData(SetupStrIdConst::setupAF, storedAF, QString());
    if (defaultTA.isValid())
        DataDefault::setDefault(SetupStrIdConst::setupTA, defaultTA);
    if (defaultAF.isValid())
        DataDefault::setDefault(SetupStrIdConst::setupAF, defaultAF);

    RadioSetting page;
    // Start from the opposite of what the store says, so both directions count.
    page.TAStatusSetting(!ta);
    page.AFStatusSetting(!af);
    page.initRDSsetting();
    QCOMPARE(page.findChild<MOnOffButton*>(QStringLiteral("TABtn"))->onoffStatus(), ta);
    QCOMPARE(page.findChild<MOnOffButton*>(QStringLiteral("AFBtn"))->onoffStatus(), af);
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("RegBtn"))->onoffStatus());
}

void tst_RadioSetting::constructorDoesNotLoadStore()
{
    DataSaveControl::saveSettingData(SetupStrIdConst::setupTA, true, QString());
    DataSaveControl::saveSettingData(SetupStrIdConst::setupAF, true, QString());
    RadioSetting page;
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("TABtn"))->onoffStatus());
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("AFBtn"))->onoffStatus());
}

void tst_RadioSetting::updateButtonStates()
{
    RadioSetting page;
    page.updateButtonStates(false);
    for (const char* name : SwitchNames)
        QVERIFY2(page.findChild<MOnOffButton*>(QLatin1String(name))->btnDisable(), name);
    page.updateButtonStates(true);
    for (const char* name : SwitchNames)
        QVERIFY2(!page.findChild<MOnOffButton*>(QLatin1String(name))->btnDisable(), name);
}

void tst_RadioSetting::languageChangeRetitlesOnly()
{
    RadioSetting page;
    page.AFStatusSetting(true);
    QCOMPARE(page.windowTitle(), QStringLiteral("Form"));
    TitleTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(page.windowTitle(), QStringLiteral("Einstellungen"));
    QCoreApplication::removeTranslator(&translator);
    QTRY_COMPARE(page.windowTitle(), QStringLiteral("Form"));
    QVERIFY(page.findChild<MOnOffButton*>(QStringLiteral("AFBtn"))->onoffStatus());
    QCOMPARE(page.findChild<QLabel*>(QStringLiteral("af_label"))->text(), QStringLiteral("AF"));
}

namespace {

HvIconButton* makeButton(QWidget* host, const char* name, const char* id, int x)
{
    auto* b = new HvIconButton(host);
    b->setObjectName(QLatin1String(name));
    b->setButtonID(QLatin1String(id));
    b->setGeometry(x, 500, 60, 60);
    return b;
}

// A layout with every optional widget of the page.
void equipFullLayout(LayoutTamper& tamper)
{
    tamper.addExtra([](QWidget* host) {
        auto* label = new QLabel(QStringLiteral("DX"), host);
        label->setObjectName(QStringLiteral("loc_dx_disp_label"));
        return label;
    });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "PTYBtn", "pty", 0); });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "PTYSeekBtn", "ptyseek", 60); });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "as_left_btn", "asl", 120); });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "as_right_btn", "asr", 180); });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "loc_dx_left_btn", "locl", 240); });
    tamper.addExtra([](QWidget* h) { return makeButton(h, "loc_dx_right_btn", "locr", 300); });
}

void click(QWidget* w)
{
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
}

} // namespace

void tst_RadioSetting::optionalWidgetsWired()
{
    LayoutTamper tamper("RadioSetting");
    equipFullLayout(tamper);
    RadioSetting page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));

    const struct {
        const char* button;
        const char* signal;
        const char* id;
    } wiring[] = {
        {"PTYBtn", SIGNAL(sigPTYBtnClicked(QString)), "pty"},
        {"PTYSeekBtn", SIGNAL(sigPTYSeekBtnClicked(QString)), "ptyseek"},
        {"as_left_btn", SIGNAL(sigAsBtnClicked(QString)), "asl"},
        {"as_right_btn", SIGNAL(sigAsBtnClicked(QString)), "asr"},
    };
    for (const auto& w : wiring) {
        auto* button = page.findChild<HvIconButton*>(QLatin1String(w.button));
        QVERIFY2(button, w.button);
        PageSignals all(&page);
        QSignalSpy spy(&page, w.signal);
        click(button);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QLatin1String(w.id));
        QCOMPARE(all.total(), 1);
    }

    // The DX/LOC arrows go through the toggle: LOC first, then DX.
    auto* label = page.findChild<QLabel*>(QStringLiteral("loc_dx_disp_label"));
    QSignalSpy loc(&page, SIGNAL(sigLocStatusChange(QString, bool)));
    click(page.findChild<HvIconButton*>(QStringLiteral("loc_dx_left_btn")));
    QCOMPARE(label->text(), QStringLiteral("LOC"));
    click(page.findChild<HvIconButton*>(QStringLiteral("loc_dx_right_btn")));
    QCOMPARE(label->text(), QStringLiteral("DX"));
    QCOMPARE(loc.count(), 2);
    QCOMPARE(loc.at(0).at(0).toString(), QStringLiteral("locl"));
    QCOMPARE(loc.at(0).at(1).toBool(), true);
    QCOMPARE(loc.at(1).at(0).toString(), QStringLiteral("locr"));
    QCOMPARE(loc.at(1).at(1).toBool(), false);
}

void tst_RadioSetting::locDxToggleWithLabel()
{
    LayoutTamper tamper("RadioSetting");
    equipFullLayout(tamper);
    RadioSetting page;
    auto* label = page.findChild<QLabel*>(QStringLiteral("loc_dx_disp_label"));
    QVERIFY(label);
    QSignalSpy spy(&page, SIGNAL(sigLocStatusChange(QString, bool)));
    page.LocStatusChangeSlot(QStringLiteral("a"));
    page.LocStatusChangeSlot(QStringLiteral("b"));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0), (QList<QVariant>{QStringLiteral("a"), true}));
    QCOMPARE(spy.at(1), (QList<QVariant>{QStringLiteral("b"), false}));
    QCOMPARE(label->text(), QStringLiteral("DX"));

    // Any text but "DX" counts as LOC.
    label->setText(QStringLiteral("?"));
    page.LocStatusChangeSlot(QStringLiteral("c"));
    QCOMPARE(spy.at(2), (QList<QVariant>{QStringLiteral("c"), false}));
    QCOMPARE(label->text(), QStringLiteral("DX"));
    // The toggle does not move the LOC switch.
    QVERIFY(!page.findChild<MOnOffButton*>(QStringLiteral("LocOnOff"))->onoffStatus());
}

void tst_RadioSetting::locStatusSettingWithLabel()
{
    LayoutTamper tamper("RadioSetting");
    equipFullLayout(tamper);
    RadioSetting page;
    auto* label = page.findChild<QLabel*>(QStringLiteral("loc_dx_disp_label"));
    auto* loc = page.findChild<MOnOffButton*>(QStringLiteral("LocOnOff"));
    page.LocStatusSetting(true);
    QCOMPARE(label->text(), QStringLiteral("LOC"));
    QVERIFY(loc->onoffStatus());
    page.LocStatusSetting(false);
    QCOMPARE(label->text(), QStringLiteral("DX"));
    QVERIFY(!loc->onoffStatus());
}

void tst_RadioSetting::absentSwitchesAreSkipped_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : SwitchNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_RadioSetting::absentSwitchesAreSkipped()
{
    QFETCH(QString, name);
    LayoutTamper tamper("RadioSetting");
    tamper.withhold(name);
    DataSaveControl::saveSettingData(SetupStrIdConst::setupTA, true, QString());
    DataSaveControl::saveSettingData(SetupStrIdConst::setupAF, true, QString());
    RadioSetting page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QVERIFY(!page.findChild<MOnOffButton*>(name));
    auto* orphan = page.findChild<MOnOffButton*>(LayoutTamper::absentName(name));
    QVERIFY(orphan);

    PageSignals all(&page);
    page.AFStatusSetting(true);
    page.TAStatusSetting(true);
    page.REGStatusSetting(true);
    page.ScanStatusSetting(true);
    page.LocStatusSetting(true);
    page.initRDSsetting();
    page.updateButtonStates(false);
    QVERIFY(!orphan->onoffStatus());
    QVERIFY(!orphan->btnDisable());
    for (const char* other : SwitchNames) {
        if (name != QLatin1String(other))
            QVERIFY2(page.findChild<MOnOffButton*>(QLatin1String(other))->onoffStatus(), other);
    }

    // The switch the page does not know is not relayed.
    click(orphan);
    QVERIFY(orphan->onoffStatus());
    QCOMPARE(all.total(), 0);
}

QTEST_MAIN(tst_RadioSetting)
#include "tst_radiosetting.moc"
