#include "FormInspection.h"
#include "FormSuite.h"
#include "RecordingTranslator.h"
#include "ui_RadioMain.h"

#include <QtTest>

using namespace FormInspection;

namespace {

const QStringList kMembers = {
    "bkg", "SeekDown", "SeekUp", "PS1", "PS2", "PS3", "PS4", "PS5", "PS6", "ASPSBtn", "DX_LOC", "BandName",
    "MKHz", "FreqDisp", "label", "StepDown", "StepUp", "radioSlider", "label_2", "AutoSearch",
    "AS_PS_DispLabel", "Keyboard", "AFDisp", "STDispLabel", "TPDisp", "TADisp", "RTDisp", "EQBtn",
    "BandSwitch", "AMicon", "FMicon", "fmambg", "setupBtn", "PSDisp", "PTYDisp"};

const QStringList kStacking = {
    "bkg", "fmambg", "SeekDown", "SeekUp", "ASPSBtn", "DX_LOC", "BandName", "MKHz", "FreqDisp", "label",
    "PS1", "PS4", "PS5", "PS6", "PS2", "PS3", "AutoSearch", "AS_PS_DispLabel", "AFDisp", "STDispLabel",
    "TPDisp", "TADisp", "RTDisp", "Keyboard", "EQBtn", "BandSwitch", "AMicon", "FMicon", "setupBtn",
    "PSDisp", "PTYDisp", "label_2", "radioSlider", "StepDown", "StepUp"};

Members members(const Ui_RadioMain& ui)
{
    return {{"bkg", ui.bkg}, {"SeekDown", ui.SeekDown}, {"SeekUp", ui.SeekUp}, {"PS1", ui.PS1},
            {"PS2", ui.PS2}, {"PS3", ui.PS3}, {"PS4", ui.PS4}, {"PS5", ui.PS5}, {"PS6", ui.PS6},
            {"ASPSBtn", ui.ASPSBtn}, {"DX_LOC", ui.DX_LOC}, {"BandName", ui.BandName}, {"MKHz", ui.MKHz},
            {"FreqDisp", ui.FreqDisp}, {"label", ui.label}, {"StepDown", ui.StepDown}, {"StepUp", ui.StepUp},
            {"radioSlider", ui.radioSlider}, {"label_2", ui.label_2}, {"AutoSearch", ui.AutoSearch},
            {"AS_PS_DispLabel", ui.AS_PS_DispLabel}, {"Keyboard", ui.Keyboard}, {"AFDisp", ui.AFDisp},
            {"STDispLabel", ui.STDispLabel}, {"TPDisp", ui.TPDisp}, {"TADisp", ui.TADisp},
            {"RTDisp", ui.RTDisp}, {"EQBtn", ui.EQBtn}, {"BandSwitch", ui.BandSwitch}, {"AMicon", ui.AMicon},
            {"FMicon", ui.FMicon}, {"fmambg", ui.fmambg}, {"setupBtn", ui.setupBtn}, {"PSDisp", ui.PSDisp},
            {"PTYDisp", ui.PTYDisp}};
}

const QString kImg = QStringLiteral(":/radioimages/");

using Form = SetUpForm<Ui_RadioMain>;

} // namespace

class TestRadioMainForm : public FormSuiteFor<Ui_RadioMain>
{
    Q_OBJECT

public:
    // Image paths: presets, arrows, bottom row, band switch, its two halves,
    // scale pointer and band switch background.
    TestRadioMainForm()
        : FormSuiteFor({QStringLiteral("RadioMain"), QStringLiteral("TunerMainScreen"), QSize(1280, 720), kMembers,
                        kStacking, 12 + 12 + 8 + 2 + 4 + 1 + 1, QStringLiteral("radiomainform.png")},
                       members)
    {
    }

protected:
    void widgetRows() const override;
    void labelPixmapRows() const override;

private slots:
    void topWidgetAt_data();
    void topWidgetAt();
    void absentWidgets();
    void properties_data();
    void properties();
    void translatedTexts();
    void retranslateRestoresTexts();
};

void TestRadioMainForm::widgetRows() const
{
    addWidgetRow("bkg", "QLabel", 0, 0, 1280, 720);
    addWidgetRow("SeekDown", "HvIconButton", 444, 306, 98, 84);
    addWidgetRow("SeekUp", "HvIconButton", 1160, 306, 98, 84);
    addWidgetRow("PS1", "HvIconButton", 41, 113, 353, 95);
    addWidgetRow("PS2", "HvIconButton", 41, 209, 353, 95);
    addWidgetRow("PS3", "HvIconButton", 41, 304, 353, 95);
    addWidgetRow("PS4", "HvIconButton", 41, 399, 353, 95);
    addWidgetRow("PS5", "HvIconButton", 41, 494, 353, 95);
    addWidgetRow("PS6", "HvIconButton", 41, 589, 353, 95);
    addWidgetRow("ASPSBtn", "HvIconButton", 479, 600, 91, 69);
    addWidgetRow("DX_LOC", "HvIconButton", 560, 293, 80, 43);
    addWidgetRow("BandName", "QLabel", 560, 340, 80, 43);
    addWidgetRow("MKHz", "QLabel", 1060, 340, 80, 43);
    addWidgetRow("FreqDisp", "QLabel", 640, 255, 411, 131);
    addWidgetRow("label", "QLabel", 22, 84, 421, 621);
    addWidgetRow("StepDown", "HvIconButton", 452, 145, 59, 90);
    addWidgetRow("StepUp", "HvIconButton", 1204, 145, 59, 90);
    addWidgetRow("radioSlider", "MRadioSlider", 525, 150, 661, 91);
    addWidgetRow("label_2", "QLabel", 444, 90, 821, 191);
    addWidgetRow("AutoSearch", "HvIconButton", 1023, 0, 0, 0);
    addWidgetRow("AS_PS_DispLabel", "QLabel", 670, 100, 60, 45);
    addWidgetRow("Keyboard", "HvIconButton", 590, 600, 91, 69);
    addWidgetRow("AFDisp", "QLabel", 750, 100, 60, 45);
    addWidgetRow("STDispLabel", "QLabel", 990, 100, 60, 45);
    addWidgetRow("TPDisp", "QLabel", 830, 100, 60, 45);
    addWidgetRow("TADisp", "QLabel", 910, 100, 60, 45);
    addWidgetRow("RTDisp", "HvRollingText", 500, 470, 711, 51);
    addWidgetRow("EQBtn", "HvIconButton", 1030, 600, 91, 69);
    addWidgetRow("BandSwitch", "HvIconButton", 700, 604, 299, 69);
    addWidgetRow("AMicon", "HvIconButton", 852, 596, 141, 81);
    addWidgetRow("FMicon", "HvIconButton", 711, 596, 141, 81);
    addWidgetRow("fmambg", "HvBackgroundImage", 700, 605, 299, 69);
    addWidgetRow("setupBtn", "HvIconButton", 1140, 600, 91, 69);
    addWidgetRow("PSDisp", "HvRollingText", 500, 400, 711, 71);
    addWidgetRow("PTYDisp", "HvRollingText", 500, 520, 711, 51);
}

void TestRadioMainForm::topWidgetAt_data()
{
    addTopWidgetColumns();
    QTest::newRow("preset column margin") << QPoint(30, 90) << "label";
    QTest::newRow("first preset over its column") << QPoint(100, 150) << "PS1";
    QTest::newRow("bar background over AF indicator") << QPoint(780, 120) << "label_2";
    QTest::newRow("scale over bar background") << QPoint(600, 190) << "radioSlider";
    QTest::newRow("step down over bar background") << QPoint(480, 190) << "StepDown";
    QTest::newRow("step up over scale edge") << QPoint(1230, 190) << "StepUp";
    QTest::newRow("DX/LOC over frequency") << QPoint(600, 310) << "DX_LOC";
    QTest::newRow("FM half over band switch") << QPoint(720, 640) << "FMicon";
    QTest::newRow("AM half over band switch") << QPoint(900, 640) << "AMicon";
}

void TestRadioMainForm::topWidgetAt()
{
    Form f;
    checkTopWidgetRow(f.form);
}

void TestRadioMainForm::absentWidgets()
{
    Form f;
    QVERIFY(!f.form.findChild<QObject*>(QStringLiteral("PowerBtn")));
    QVERIFY(!f.form.findChild<QObject*>(QStringLiteral("dabBtn")));
    // The zero-sized scan widget exists but covers no pixel.
    QVERIFY(f.ui.AutoSearch->rect().isEmpty());
    QCOMPARE(f.form.childAt(1023, 0), static_cast<QWidget*>(f.ui.bkg));
}

void TestRadioMainForm::properties_data()
{
    addPropertyColumns();

    const QStringList presetTexts = {"87.50 MHz", "90.10 MHz", "98.10 MHz", "106.10 MHz", "108.00 MHz",
                                     "87.50 MHz"};
    for (int i = 0; i < 6; ++i) {
        const QString ps = QStringLiteral("PS%1").arg(i + 1);
        addPropertyRow(ps, "normalImage", kImg + "preset-N.png");
        addPropertyRow(ps, "pressImage", kImg + "preset-P.png");
        addPropertyRow(ps, "disableState", false);
        addPropertyRow(ps, "supportLongPress", true);
        addPropertyRow(ps, "timerInterval2", 864000000);
        addPropertyRow(ps, "buttonID", QString::number(i + 1));
        addPropertyRow(ps, "displayText", presetTexts.at(i));
    }

    const QList<QPair<QString, QString>> arrows = {
        {"SeekDown", "prev"}, {"SeekUp", "next"}, {"StepDown", "left"}, {"StepUp", "right"}};
    for (const auto& a : arrows) {
        addPropertyRow(a.first, "normalImage", kImg + a.second + "-N.png");
        addPropertyRow(a.first, "pressImage", kImg + a.second + "-P.png");
        addPropertyRow(a.first, "disableImage", kImg + a.second + "-N.png");
        addPropertyRow(a.first, "supportLongPress", false);
        addPropertyRow(a.first, "buttonID", QString());
    }

    addPropertyRow("ASPSBtn", "normalImage", kImg + "scan-N.png");
    addPropertyRow("ASPSBtn", "pressImage", kImg + "scan-P.png");
    addPropertyRow("ASPSBtn", "supportLongPress", true);
    addPropertyRow("ASPSBtn", "displayText", QString());

    const QList<QPair<QString, QString>> bottom = {{"Keyboard", "keypad"}, {"EQBtn", "EQ"}, {"setupBtn", "setting"}};
    for (const auto& b : bottom) {
        addPropertyRow(b.first, "normalImage", kImg + b.second + "-N.png");
        addPropertyRow(b.first, "pressImage", kImg + b.second + "-P.png");
        addPropertyRow(b.first, "buttonID", QStringLiteral("HvIconButton_ID"));
        addPropertyRow(b.first, "displayText", QString());
    }

    addPropertyRow("BandSwitch", "normalImage", kImg + "FM-P.png");
    addPropertyRow("BandSwitch", "pressImage", kImg + "AM-P.png");
    addPropertyRow("BandSwitch", "buttonID", QStringLiteral("ID_band"));

    const QString key = QStringLiteral(":/radioimages2/VELMAR_1024_600/Key_");
    for (const char* icon : {"FMicon", "AMicon"}) {
        addPropertyRow(icon, "normalImage", key + "N.png");
        addPropertyRow(icon, "pressImage", key + "P.png");
    }
    addPropertyRow("FMicon", "buttonID", QStringLiteral("1"));
    addPropertyRow("FMicon", "displayText", QStringLiteral("FM1"));
    addPropertyRow("AMicon", "buttonID", QStringLiteral("2"));
    addPropertyRow("AMicon", "displayText", QStringLiteral("AM1"));

    addPropertyRow("AutoSearch", "displayText", QString());
    addPropertyRow("DX_LOC", "displayText", QStringLiteral("DX"));

    const QList<QPair<QString, QString>> labels = {
        {"BandName", "FM3"}, {"MKHz", "MHz"},       {"FreqDisp", "105.10"}, {"AS_PS_DispLabel", "AS"},
        {"AFDisp", "AF"},    {"STDispLabel", "ST"}, {"TPDisp", "TP"},       {"TADisp", "TA"}};
    for (const auto& l : labels)
        addPropertyRow(l.first, "text", l.second);
    for (const char* l : {"bkg", "label", "label_2"})
        addPropertyRow(l, "text", QString());

    addPropertyRow("fmambg", "pixmap", kImg + "FM-AM-BG.png");

    addPropertyRow("RTDisp", "text", QStringLiteral("DSFDFDFDjgjg"));
    addPropertyRow("PSDisp", "text", QStringLiteral("DSFDFDFDjgjg"));
    addPropertyRow("PTYDisp", "text", QStringLiteral("DSFDFDFDjgjg"));

    addPropertyRow("radioSlider", "indicatePix", kImg + "pointer.png");
    addPropertyRow("radioSlider", "freqStart", 522.0f);
    addPropertyRow("radioSlider", "freqEnd", 1629.0f);
    addPropertyRow("radioSlider", "freqStep", 1.0f);
    addPropertyRow("radioSlider", "curFreq", 600.0f);
    addPropertyRow("radioSlider", "isFM", false);
    addPropertyRow("radioSlider", "scaleMode", 2);
}

void TestRadioMainForm::properties()
{
    Form f;
    checkPropertyRow(f.form);
}

void TestRadioMainForm::labelPixmapRows() const
{
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/BK.png");
    QTest::newRow("label") << QStringLiteral(":/radioimages/presetbg.png");
    QTest::newRow("label_2") << QStringLiteral(":/radioimages/freqbarbg.png");
}

void TestRadioMainForm::translatedTexts()
{
    TranslatedForm<Ui_RadioMain> t(QStringLiteral("RadioMain"),
                                   {"AS_PS_DispLabel", "STDispLabel", "bkg", "label", "label_2"});
    QVERIFY(t.installed);
    QCOMPARE(t.before, QStringList({"", "", "", "", ""}));

    QCOMPARE(t.form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(t.ui.AS_PS_DispLabel->text(), RecordingTranslator::marked("AS"));
    QCOMPARE(t.ui.STDispLabel->text(), RecordingTranslator::marked("ST"));
    // Fixed texts bypass translation.
    QCOMPARE(t.ui.AFDisp->text(), QStringLiteral("AF"));
    QCOMPARE(t.ui.FreqDisp->text(), QStringLiteral("105.10"));
    QCOMPARE(t.ui.DX_LOC->displayText(), QStringLiteral("DX"));
    QCOMPARE(t.ui.PS1->displayText(), QStringLiteral("87.50 MHz"));
    checkLookups(t.translator, QStringLiteral("RadioMain"), {"Form", "AS", "ST"});
}

void TestRadioMainForm::retranslateRestoresTexts()
{
    Form f;
    f.form.setWindowTitle(QStringLiteral("x"));
    f.ui.AS_PS_DispLabel->setText(QStringLiteral("PS"));
    f.ui.STDispLabel->clear();
    f.ui.ASPSBtn->setDisplayText(QStringLiteral("scan"));
    f.ui.AutoSearch->setDisplayText(QStringLiteral("auto"));
    f.ui.label_2->setText(QStringLiteral("bar"));
    f.ui.FreqDisp->setText(QStringLiteral("98.10"));

    f.ui.retranslateUi(&f.form);

    QCOMPARE(f.form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(f.ui.AS_PS_DispLabel->text(), QStringLiteral("AS"));
    QCOMPARE(f.ui.STDispLabel->text(), QStringLiteral("ST"));
    QCOMPARE(f.ui.ASPSBtn->displayText(), QString());
    QCOMPARE(f.ui.AutoSearch->displayText(), QString());
    QCOMPARE(f.ui.label_2->text(), QString());
    // Set-up texts belong to the display logic once set: not touched.
    QCOMPARE(f.ui.FreqDisp->text(), QStringLiteral("98.10"));
}

QTEST_MAIN(TestRadioMainForm)
#include "tst_radiomainform.moc"
