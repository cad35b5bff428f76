#include "FormInspection.h"
#include "RecordingForm.h"
#include "RecordingTranslator.h"
#include "ui_RadioSettingForm.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPair>
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

QVector<QPair<QString, QWidget*>> members(const Ui_RadioSettingForm& ui)
{
    return {{"bkg", ui.bkg},           {"label_1", ui.label_1},       {"label_2", ui.label_2},
            {"af_label", ui.af_label}, {"AFBtn", ui.AFBtn},           {"setup_close", ui.setup_close},
            {"ta_label", ui.ta_label}, {"TABtn", ui.TABtn},           {"REG_label", ui.REG_label},
            {"RegBtn", ui.RegBtn},     {"label_3", ui.label_3},       {"LocOnOff", ui.LocOnOff},
            {"label_4", ui.label_4},   {"LOC_label", ui.LOC_label},   {"SCAN_label", ui.SCAN_label},
            {"ScanBtn", ui.ScanBtn},   {"label_5", ui.label_5}};
}

const QString kSetup = QStringLiteral(":/radioimages/setupimages/");

} // namespace

class TestRadioSettingForm : public QObject
{
    Q_OBJECT

private slots:
    void unnamedFormGetsFormName();
    void existingObjectNameIsKept();
    void widgets_data();
    void widgets();
    void membersInCreationOrder();
    void stackingOrder();
    void rowsInStackingOrder_data();
    void rowsInStackingOrder();
    void scanRowBelowPage();
    void backgroundOverhang();
    void switchesStartOffAndEnabled_data();
    void switchesStartOffAndEnabled();
    void captions_data();
    void captions();
    void backButton();
    void labelPixmaps_data();
    void labelPixmaps();
    void onlyTitleIsTranslated();
    void render();
};

void TestRadioSettingForm::unnamedFormGetsFormName()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("RadioSettingForm"));
    QCOMPARE(form.size(), QSize(450, 720));
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(form.stackingOrder().size(), 17);
}

void TestRadioSettingForm::existingObjectNameIsKept()
{
    RecordingForm form;
    form.setObjectName(QStringLiteral("RadioSetting"));
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("RadioSetting"));
    QCOMPARE(form.size(), QSize(450, 720));
    QCOMPARE(form.stackingOrder(), kStacking);
}

void TestRadioSettingForm::widgets_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QRect>("geometry");

    auto row = [](const char* name, const char* cls, int x, int y, int w, int h) {
        QTest::newRow(name) << QString::fromLatin1(cls) << QRect(x, y, w, h);
    };
    row("bkg", "QLabel", -150, 0, 606, 720);
    row("label_1", "QLabel", 30, 110, 400, 77);
    row("label_2", "QLabel", 30, 195, 400, 77);
    row("af_label", "QLabel", 40, 105, 180, 77);
    row("AFBtn", "MOnOffButton", 310, 118, 104, 51);
    row("setup_close", "HvIconButton", 290, 600, 146, 100);
    row("ta_label", "QLabel", 40, 190, 180, 77);
    row("TABtn", "MOnOffButton", 310, 203, 104, 51);
    row("REG_label", "QLabel", 40, 280, 180, 77);
    row("RegBtn", "MOnOffButton", 310, 293, 104, 51);
    row("label_3", "QLabel", 30, 283, 400, 77);
    row("LocOnOff", "MOnOffButton", 310, 390, 104, 51);
    row("label_4", "QLabel", 30, 380, 400, 77);
    row("LOC_label", "QLabel", 40, 380, 180, 77);
    row("SCAN_label", "QLabel", 40, 830, 211, 77);
    row("ScanBtn", "MOnOffButton", 328, 840, 104, 51);
    row("label_5", "QLabel", 30, 830, 546, 77);
}

void TestRadioSettingForm::widgets()
{
    QFETCH(QString, className);
    QFETCH(QRect, geometry);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    const QList<QWidget*> found = form.findChildren<QWidget*>(name);
    QCOMPARE(found.size(), 1);
    QWidget* w = found.first();
    QCOMPARE(w->parentWidget(), static_cast<QWidget*>(&form));
    QCOMPARE(QString::fromLatin1(w->metaObject()->className()), className);
    QCOMPARE(w->geometry(), geometry);

    QWidget* member = nullptr;
    for (const auto& m : members(ui)) {
        if (m.first == name)
            member = m.second;
    }
    QCOMPARE(member, w);
}

void TestRadioSettingForm::membersInCreationOrder()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    QStringList memberNames;
    for (const auto& m : members(ui)) {
        QVERIFY2(m.second, qPrintable(m.first));
        QCOMPARE(m.second->objectName(), m.first);
        memberNames.append(m.first);
    }
    QCOMPARE(memberNames, kMembers);
    QCOMPARE(form.creationOrder(), kMembers);
}

void TestRadioSettingForm::stackingOrder()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);
    QCOMPARE(form.stackingOrder(), kStacking);
}

void TestRadioSettingForm::rowsInStackingOrder_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("top");

    // Each row: caption and switch above the row image, all above the page
    // background.
    QTest::newRow("page background") << QPoint(5, 5) << "bkg";
    QTest::newRow("AF row image") << QPoint(250, 180) << "label_1";
    QTest::newRow("AF caption") << QPoint(60, 140) << "af_label";
    QTest::newRow("AF switch") << QPoint(360, 140) << "AFBtn";
    QTest::newRow("TA row image") << QPoint(250, 265) << "label_2";
    QTest::newRow("TA caption") << QPoint(60, 230) << "ta_label";
    QTest::newRow("TA switch") << QPoint(360, 230) << "TABtn";
    QTest::newRow("REG caption over row image") << QPoint(60, 300) << "REG_label";
    QTest::newRow("REG switch") << QPoint(360, 320) << "RegBtn";
    QTest::newRow("LOC caption") << QPoint(60, 420) << "LOC_label";
    QTest::newRow("LOC switch") << QPoint(360, 410) << "LocOnOff";
    QTest::newRow("LOC row image") << QPoint(250, 450) << "label_4";
    QTest::newRow("back button") << QPoint(360, 650) << "setup_close";
}

void TestRadioSettingForm::rowsInStackingOrder()
{
    QFETCH(QPoint, point);
    QFETCH(QString, top);

    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    QWidget* hit = form.childAt(point);
    while (hit && hit->parentWidget() != &form)
        hit = hit->parentWidget();
    QVERIFY(hit);
    QCOMPARE(hit->objectName(), top);
}

void TestRadioSettingForm::scanRowBelowPage()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    for (QWidget* w : {static_cast<QWidget*>(ui.SCAN_label), static_cast<QWidget*>(ui.ScanBtn),
                       static_cast<QWidget*>(ui.label_5)}) {
        QVERIFY2(!form.rect().intersects(w->geometry()), qPrintable(w->objectName()));
    }
    QCOMPARE(form.findChild<MOnOffButton*>(QStringLiteral("ScanBtn")), ui.ScanBtn);
}

void TestRadioSettingForm::backgroundOverhang()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);
    // The page covers the image from its 150th column on.
    const QRect shown = QRect(ui.bkg->mapFrom(&form, QPoint(0, 0)), form.size()).intersected(ui.bkg->rect());
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

    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    MOnOffButton* s = form.findChild<MOnOffButton*>(name);
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

    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(label->text(), text);
    QCOMPARE(label->font().pointSize(), 28);
    QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
    const TextColours c = windowTextColours(label);
    QCOMPARE(c.active, QColor(255, 255, 255));
    QCOMPARE(c.inactive, QColor(255, 255, 255));
    QCOMPARE(c.disabled, QColor(159, 158, 158));
}

void TestRadioSettingForm::backButton()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    QCOMPARE(ui.setup_close->normalImage(), kSetup + "BACK-N.png");
    QCOMPARE(ui.setup_close->pressImage(), kSetup + "BACK-P.png");
    QCOMPARE(ui.setup_close->buttonID(), QString());
    QVERIFY2(!QImage(ui.setup_close->normalImage()).isNull(), "normal image missing");
    QVERIFY2(!QImage(ui.setup_close->pressImage()).isNull(), "pressed image missing");
}

void TestRadioSettingForm::labelPixmaps_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/setupbg.png");
    for (const char* row : {"label_1", "label_2", "label_3", "label_4", "label_5"})
        QTest::newRow(row) << kSetup + "Btn.png";
}

void TestRadioSettingForm::labelPixmaps()
{
    QFETCH(QString, path);

    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    const QImage expected = resourceImage(path);
    QVERIFY2(!expected.isNull(), qPrintable(path + " is not a loadable resource image"));
    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(label->text(), QString());
    QCOMPARE(labelImage(label), expected);
}

void TestRadioSettingForm::onlyTitleIsTranslated()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    RecordingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    ui.setupUi(&form);
    QCoreApplication::removeTranslator(&translator);

    QStringList sources;
    for (const auto& l : translator.lookups(QStringLiteral("RadioSettingForm"))) {
        sources << l.source;
        QVERIFY(!l.hasDisambiguation);
        QCOMPARE(l.n, -1);
    }
    QCOMPARE(sources, QStringList({"Form"}));
    QCOMPARE(form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(ui.af_label->text(), QStringLiteral("AF"));

    // A language change touches nothing but the title.
    ui.af_label->setText(QStringLiteral("x"));
    ui.retranslateUi(&form);
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(ui.af_label->text(), QStringLiteral("x"));
}

void TestRadioSettingForm::render()
{
    RecordingForm form;
    Ui_RadioSettingForm ui;
    ui.setupUi(&form);

    QString error;
    const QString path = saveRender(&form, QStringLiteral("radiosettingform.png"), &error);
    if (path.isEmpty() && error.startsWith(QStringLiteral("RADIO_TEST_OUTPUT")))
        QSKIP(qPrintable(error));
    QVERIFY2(!path.isEmpty(), qPrintable(error));
    QCOMPARE(QImage(path).size(), QSize(450, 720));
}

QTEST_MAIN(TestRadioSettingForm)
#include "tst_radiosettingform.moc"
