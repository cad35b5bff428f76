#include "FormInspection.h"
#include "FormSuite.h"
#include "RecordingTranslator.h"
#include "ui_RadioSettingForm.h"

#include <QtTest>

using namespace FormInspection;

namespace {

const QStringList kMembers = {"bkg",      "label_1",   "label_2",  "af_label", "AFBtn",   "setup_close",
                              "ta_label", "TABtn",     "REG_label", "RegBtn",  "label_3", "LocOnOff",
                              "label_4",  "LOC_label", "SCAN_label", "ScanBtn", "label_5"};

const QStringList kStacking = {"bkg",    "label_5",   "label_1", "label_2",   "af_label", "AFBtn",
                               "setup_close", "ta_label", "TABtn", "label_3", "RegBtn",   "REG_label",
                               "label_4", "LOC_label", "LocOnOff", "SCAN_label", "ScanBtn"};

const QStringList kSwitches = {"AFBtn", "TABtn", "RegBtn", "LocOnOff", "ScanBtn"};

Members members(const Ui_RadioSettingForm& ui)
{
    return {{"bkg", ui.bkg},           {"label_1", ui.label_1},       {"label_2", ui.label_2},
            {"af_label", ui.af_label}, {"AFBtn", ui.AFBtn},           {"setup_close", ui.setup_close},
            {"ta_label", ui.ta_label}, {"TABtn", ui.TABtn},           {"REG_label", ui.REG_label},
            {"RegBtn", ui.RegBtn},     {"label_3", ui.label_3},       {"LocOnOff", ui.LocOnOff},
            {"label_4", ui.label_4},   {"LOC_label", ui.LOC_label},   {"SCAN_label", ui.SCAN_label},
            {"ScanBtn", ui.ScanBtn},   {"label_5", ui.label_5}};
}

const QString kSetup = QStringLiteral(":/radioimages/setupimages/");

using Form = SetUpForm<Ui_RadioSettingForm>;

} // namespace

class TestRadioSettingForm : public FormSuiteFor<Ui_RadioSettingForm>
{
    Q_OBJECT

public:
    // Image paths: the back button's normal and pressed image.
    TestRadioSettingForm()
        : FormSuiteFor({QStringLiteral("RadioSettingForm"), QStringLiteral("RadioSetting"), QSize(450, 720), kMembers,
                        kStacking, 2, QStringLiteral("radiosettingform.png")},
                       members)
    {
    }

protected:
    void widgetRows() const override;
    void labelPixmapRows() const override;

private slots:
    void rowsInStackingOrder_data();
    void rowsInStackingOrder();
    void scanRowBelowPage();
    void backgroundOverhang();
    void switchesStartOffAndEnabled_data();
    void switchesStartOffAndEnabled();
    void captions_data();
    void captions();
    void backButton();
    void onlyTitleIsTranslated();
};

void TestRadioSettingForm::widgetRows() const
{
    addWidgetRow("bkg", "QLabel", -150, 0, 606, 720);
    addWidgetRow("label_1", "QLabel", 30, 110, 400, 77);
    addWidgetRow("label_2", "QLabel", 30, 195, 400, 77);
    addWidgetRow("af_label", "QLabel", 40, 105, 180, 77);
    addWidgetRow("AFBtn", "MOnOffButton", 310, 118, 104, 51);
    addWidgetRow("setup_close", "HvIconButton", 290, 600, 146, 100);
    addWidgetRow("ta_label", "QLabel", 40, 190, 180, 77);
    addWidgetRow("TABtn", "MOnOffButton", 310, 203, 104, 51);
    addWidgetRow("REG_label", "QLabel", 40, 280, 180, 77);
    addWidgetRow("RegBtn", "MOnOffButton", 310, 293, 104, 51);
    addWidgetRow("label_3", "QLabel", 30, 283, 400, 77);
    addWidgetRow("LocOnOff", "MOnOffButton", 310, 390, 104, 51);
    addWidgetRow("label_4", "QLabel", 30, 380, 400, 77);
    addWidgetRow("LOC_label", "QLabel", 40, 380, 180, 77);
    addWidgetRow("SCAN_label", "QLabel", 40, 830, 211, 77);
    addWidgetRow("ScanBtn", "MOnOffButton", 328, 840, 104, 51);
    addWidgetRow("label_5", "QLabel", 30, 830, 546, 77);
}

void TestRadioSettingForm::rowsInStackingOrder_data()
{
    addTopWidgetColumns();
    // Each row: caption and switch above the row image, all above the page
    // background.
    QTest::newRow("page background") << QPoint(5, 5) << "bkg";
    QTest::newRow("AF row image") << QPoint(250, 180) << "label_1";
    QTest::newRow("AF caption") << QPoint(60, 140) << "af_label";
    QTest::newRow("AF switch") << QPoint(360, 140) << "AFBtn";
    QTest::newRow("REG caption over row image") << QPoint(60, 300) << "REG_label";
    QTest::newRow("LOC row image") << QPoint(250, 450) << "label_4";
    QTest::newRow("back button") << QPoint(360, 650) << "setup_close";
}

void TestRadioSettingForm::rowsInStackingOrder()
{
    Form f;
    checkTopWidgetRow(f.form);
}

void TestRadioSettingForm::scanRowBelowPage()
{
    Form f;
    for (QWidget* w : {static_cast<QWidget*>(f.ui.SCAN_label), static_cast<QWidget*>(f.ui.ScanBtn),
                       static_cast<QWidget*>(f.ui.label_5)}) {
        QVERIFY2(!f.form.rect().intersects(w->geometry()), qPrintable(w->objectName()));
    }
    QCOMPARE(f.form.findChild<MOnOffButton*>(QStringLiteral("ScanBtn")), f.ui.ScanBtn);
}

void TestRadioSettingForm::backgroundOverhang()
{
    Form f;
    // The page covers the image from its 150th column on.
    const QLabel* bkg = f.ui.bkg;
    const QRect shown = QRect(bkg->mapFrom(&f.form, QPoint(0, 0)), f.form.size()).intersected(bkg->rect());
    QCOMPARE(shown, QRect(150, 0, 450, 720));
}

void TestRadioSettingForm::switchesStartOffAndEnabled_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& s : kSwitches)
        QTest::newRow(qPrintable(s)) << s;
}

void TestRadioSettingForm::switchesStartOffAndEnabled()
{
    QFETCH(QString, name);
    Form f;
    MOnOffButton* s = f.form.findChild<MOnOffButton*>(name);
    QVERIFY(s);
    QVERIFY(!s->onoffStatus());
    QVERIFY(!s->btnDisable());
    QCOMPARE(describe(s->onColor()), describe(QColor(20, 80, 255, 255)));
}

void TestRadioSettingForm::captions_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("af_label") << QStringLiteral("AF");
    QTest::newRow("ta_label") << QStringLiteral("TA");
    QTest::newRow("REG_label") << QStringLiteral("REG");
    QTest::newRow("LOC_label") << QStringLiteral("LOC");
    QTest::newRow("SCAN_label") << QStringLiteral("SCAN");
}

void TestRadioSettingForm::captions()
{
    QFETCH(QString, text);
    Form f;
    const QLabel* label = f.form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(label->text(), text);
    QCOMPARE(label->font().pointSize(), 28);
    QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
    checkTextColours(label, QColor(255, 255, 255), QColor(159, 158, 158));
}

void TestRadioSettingForm::backButton()
{
    Form f;
    const HvIconButton* close = f.ui.setup_close;
    QCOMPARE(close->normalImage(), kSetup + "BACK-N.png");
    QCOMPARE(close->pressImage(), kSetup + "BACK-P.png");
    QCOMPARE(close->buttonID(), QString());
    QVERIFY2(!QImage(close->normalImage()).isNull(), "normal image missing");
    QVERIFY2(!QImage(close->pressImage()).isNull(), "pressed image missing");
}

void TestRadioSettingForm::labelPixmapRows() const
{
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/setupbg.png");
    for (const char* row : {"label_1", "label_2", "label_3", "label_4", "label_5"})
        QTest::newRow(row) << kSetup + "Btn.png";
}

void TestRadioSettingForm::onlyTitleIsTranslated()
{
    TranslatedForm<Ui_RadioSettingForm> t(QStringLiteral("RadioSettingForm"));
    QVERIFY(t.installed);
    QCOMPARE(t.form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(t.ui.af_label->text(), QStringLiteral("AF"));

    // A language change touches nothing but the title.
    t.ui.af_label->setText(QStringLiteral("x"));
    t.ui.retranslateUi(&t.form);
    QCOMPARE(t.form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(t.ui.af_label->text(), QStringLiteral("x"));
    checkLookups(t.translator, QStringLiteral("RadioSettingForm"), {"Form"});
}

QTEST_MAIN(TestRadioSettingForm)
#include "tst_radiosettingform.moc"
