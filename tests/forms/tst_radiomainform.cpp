#include "FormInspection.h"
#include "RecordingForm.h"
#include "RecordingTranslator.h"
#include "ui_RadioMain.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPair>
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

QVector<QPair<QString, QWidget*>> members(const Ui_RadioMain& ui)
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

QColor rgb(int r, int g, int b, int a = 255)
{
    return QColor(r, g, b, a);
}

QVariant font(int pointSize)
{
    QFont f;
    f.setPointSize(pointSize);
    return f;
}

QVariant align(Qt::Alignment a)
{
    return QVariant::fromValue(a);
}

const Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
const Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;
const Qt::Alignment kCentre = Qt::AlignHCenter | Qt::AlignVCenter;
const QString kImg = QStringLiteral(":/radioimages/");

} // namespace

class TestRadioMainForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void unnamedFormGetsFormName();
    void existingObjectNameIsKept();
    void widgets_data();
    void widgets();
    void membersInCreationOrder();
    void stackingOrder();
    void topWidgetAt_data();
    void topWidgetAt();
    void absentWidgets();
    void properties_data();
    void properties();
    void labelPalettes_data();
    void labelPalettes();
    void labelPixmaps_data();
    void labelPixmaps();
    void imagePathCount();
    void imagePathsResolve_data();
    void imagePathsResolve();
    void translatedTexts();
    void retranslateRestoresTexts();
    void render();
};

void TestRadioMainForm::initTestCase()
{
    // The host's own images (screen background, band keys) live in the host
    // framework library. Nothing here calls into it, so the linker would
    // drop it; asking for its collection by name keeps it and registers it.
    Q_INIT_RESOURCE(hostimages);
}

void TestRadioMainForm::unnamedFormGetsFormName()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("RadioMain"));
    QCOMPARE(form.size(), QSize(1280, 720));
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(form.stackingOrder().size(), 35);
}

void TestRadioMainForm::existingObjectNameIsKept()
{
    RecordingForm form;
    form.setObjectName(QStringLiteral("TunerMainScreen"));
    Ui_RadioMain ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("TunerMainScreen"));
    QCOMPARE(form.size(), QSize(1280, 720));
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(form.stackingOrder(), kStacking);
    QCOMPARE(ui.AS_PS_DispLabel->text(), QStringLiteral("AS"));
}

void TestRadioMainForm::widgets_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QRect>("geometry");

    auto row = [](const char* name, const char* cls, int x, int y, int w, int h) {
        QTest::newRow(name) << QString::fromLatin1(cls) << QRect(x, y, w, h);
    };
    row("bkg", "QLabel", 0, 0, 1280, 720);
    row("SeekDown", "HvIconButton", 444, 306, 98, 84);
    row("SeekUp", "HvIconButton", 1160, 306, 98, 84);
    row("PS1", "HvIconButton", 41, 113, 353, 95);
    row("PS2", "HvIconButton", 41, 209, 353, 95);
    row("PS3", "HvIconButton", 41, 304, 353, 95);
    row("PS4", "HvIconButton", 41, 399, 353, 95);
    row("PS5", "HvIconButton", 41, 494, 353, 95);
    row("PS6", "HvIconButton", 41, 589, 353, 95);
    row("ASPSBtn", "HvIconButton", 479, 600, 91, 69);
    row("DX_LOC", "HvIconButton", 560, 293, 80, 43);
    row("BandName", "QLabel", 560, 340, 80, 43);
    row("MKHz", "QLabel", 1060, 340, 80, 43);
    row("FreqDisp", "QLabel", 640, 255, 411, 131);
    row("label", "QLabel", 22, 84, 421, 621);
    row("StepDown", "HvIconButton", 452, 145, 59, 90);
    row("StepUp", "HvIconButton", 1204, 145, 59, 90);
    row("radioSlider", "MRadioSlider", 525, 150, 661, 91);
    row("label_2", "QLabel", 444, 90, 821, 191);
    row("AutoSearch", "HvIconButton", 1023, 0, 0, 0);
    row("AS_PS_DispLabel", "QLabel", 670, 100, 60, 45);
    row("Keyboard", "HvIconButton", 590, 600, 91, 69);
    row("AFDisp", "QLabel", 750, 100, 60, 45);
    row("STDispLabel", "QLabel", 990, 100, 60, 45);
    row("TPDisp", "QLabel", 830, 100, 60, 45);
    row("TADisp", "QLabel", 910, 100, 60, 45);
    row("RTDisp", "HvRollingText", 500, 470, 711, 51);
    row("EQBtn", "HvIconButton", 1030, 600, 91, 69);
    row("BandSwitch", "HvIconButton", 700, 604, 299, 69);
    row("AMicon", "HvIconButton", 852, 596, 141, 81);
    row("FMicon", "HvIconButton", 711, 596, 141, 81);
    row("fmambg", "HvBackgroundImage", 700, 605, 299, 69);
    row("setupBtn", "HvIconButton", 1140, 600, 91, 69);
    row("PSDisp", "HvRollingText", 500, 400, 711, 71);
    row("PTYDisp", "HvRollingText", 500, 520, 711, 51);
}

void TestRadioMainForm::widgets()
{
    QFETCH(QString, className);
    QFETCH(QRect, geometry);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    RecordingForm form;
    Ui_RadioMain ui;
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

void TestRadioMainForm::membersInCreationOrder()
{
    RecordingForm form;
    Ui_RadioMain ui;
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

void TestRadioMainForm::stackingOrder()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);
    QCOMPARE(form.stackingOrder(), kStacking);
}

void TestRadioMainForm::topWidgetAt_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("top");

    QTest::newRow("background corner") << QPoint(5, 5) << "bkg";
    QTest::newRow("preset column margin") << QPoint(30, 90) << "label";
    QTest::newRow("first preset over its column") << QPoint(100, 150) << "PS1";
    QTest::newRow("bar background over AF indicator") << QPoint(780, 120) << "label_2";
    QTest::newRow("bar background over AS/PS indicator") << QPoint(700, 120) << "label_2";
    QTest::newRow("scale over bar background") << QPoint(600, 190) << "radioSlider";
    QTest::newRow("step down over bar background") << QPoint(480, 190) << "StepDown";
    QTest::newRow("step up over scale edge") << QPoint(1230, 190) << "StepUp";
    QTest::newRow("DX/LOC over frequency") << QPoint(600, 310) << "DX_LOC";
    QTest::newRow("frequency") << QPoint(1000, 300) << "FreqDisp";
    QTest::newRow("FM half over band switch") << QPoint(720, 640) << "FMicon";
    QTest::newRow("AM half over band switch") << QPoint(900, 640) << "AMicon";
    QTest::newRow("band switch rim over its background") << QPoint(702, 606) << "BandSwitch";
    QTest::newRow("settings button") << QPoint(1180, 630) << "setupBtn";
}

void TestRadioMainForm::topWidgetAt()
{
    QFETCH(QPoint, point);
    QFETCH(QString, top);

    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    QWidget* hit = form.childAt(point);
    while (hit && hit->parentWidget() != &form)
        hit = hit->parentWidget();
    QVERIFY(hit);
    QCOMPARE(hit->objectName(), top);
}

void TestRadioMainForm::absentWidgets()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);
    QVERIFY(!form.findChild<QObject*>(QStringLiteral("PowerBtn")));
    QVERIFY(!form.findChild<QObject*>(QStringLiteral("dabBtn")));
    // The zero-sized scan widget exists but covers no pixel.
    QVERIFY(ui.AutoSearch->rect().isEmpty());
    QCOMPARE(form.childAt(1023, 0), static_cast<QWidget*>(ui.bkg));
}

void TestRadioMainForm::properties_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("expected");

    auto row = [](const QString& w, const char* p, const QVariant& v) {
        QTest::addRow("%s.%s", qPrintable(w), p) << w << QString::fromLatin1(p) << v;
    };

    const QStringList presetTexts = {"87.50 MHz", "90.10 MHz", "98.10 MHz", "106.10 MHz", "108.00 MHz",
                                     "87.50 MHz"};
    for (int i = 0; i < 6; ++i) {
        const QString ps = QStringLiteral("PS%1").arg(i + 1);
        row(ps, "font", font(28));
        row(ps, "disableMode", 0);
        row(ps, "normalImage", kImg + "preset-N.png");
        row(ps, "pressImage", kImg + "preset-P.png");
        row(ps, "disableState", false);
        row(ps, "supportLongPress", true);
        row(ps, "timerInterval2", 864000000);
        row(ps, "buttonID", QString::number(i + 1));
        row(ps, "displayText", presetTexts.at(i));
        row(ps, "normalTextColor", rgb(230, 230, 230));
        row(ps, "pressTextColor", rgb(230, 230, 230));
        row(ps, "disableTextColor", rgb(230, 230, 230, 154));
        row(ps, "textLeftMargin", 0);
        row(ps, "textWidth", 0);
    }

    const QList<QPair<QString, QString>> arrows = {
        {"SeekDown", "prev"}, {"SeekUp", "next"}, {"StepDown", "left"}, {"StepUp", "right"}};
    for (const auto& a : arrows) {
        row(a.first, "normalImage", kImg + a.second + "-N.png");
        row(a.first, "pressImage", kImg + a.second + "-P.png");
        row(a.first, "disableImage", kImg + a.second + "-N.png");
        row(a.first, "supportLongPress", false);
        row(a.first, "pressTextColor", rgb(255, 255, 255));
        row(a.first, "buttonID", QString());
    }

    row("ASPSBtn", "font", font(40));
    row("ASPSBtn", "normalImage", kImg + "scan-N.png");
    row("ASPSBtn", "pressImage", kImg + "scan-P.png");
    row("ASPSBtn", "supportLongPress", true);
    row("ASPSBtn", "timerInterval2", 864000000);
    row("ASPSBtn", "normalTextColor", rgb(120, 120, 120));
    row("ASPSBtn", "pressTextColor", rgb(0, 240, 251));
    row("ASPSBtn", "displayText", QString());

    const QList<QPair<QString, QString>> bottom = {{"Keyboard", "keypad"}, {"EQBtn", "EQ"}, {"setupBtn", "setting"}};
    for (const auto& b : bottom) {
        row(b.first, "font", font(20));
        row(b.first, "normalImage", kImg + b.second + "-N.png");
        row(b.first, "pressImage", kImg + b.second + "-P.png");
        row(b.first, "buttonID", QStringLiteral("HvIconButton_ID"));
        row(b.first, "displayText", QString());
        row(b.first, "normalTextColor", rgb(120, 120, 120));
        row(b.first, "pressTextColor", rgb(255, 123, 2));
        row(b.first, "textTopMargin", 60);
        row(b.first, "textHeight", 20);
    }

    row("BandSwitch", "normalImage", kImg + "FM-P.png");
    row("BandSwitch", "pressImage", kImg + "AM-P.png");
    row("BandSwitch", "buttonID", QStringLiteral("ID_band"));

    const QString key = QStringLiteral(":/radioimages2/VELMAR_1024_600/Key_");
    row("FMicon", "minimumSize", QSize(103, 80));
    row("AMicon", "minimumSize", QSize(100, 80));
    for (const char* icon : {"FMicon", "AMicon"}) {
        row(icon, "font", font(26));
        row(icon, "showMode", 1);
        row(icon, "normalImage", key + "N.png");
        row(icon, "pressImage", key + "P.png");
        row(icon, "pressTextColor", rgb(255, 255, 255));
    }
    row("FMicon", "buttonID", QStringLiteral("1"));
    row("FMicon", "displayText", QStringLiteral("FM1"));
    row("AMicon", "buttonID", QStringLiteral("2"));
    row("AMicon", "displayText", QStringLiteral("AM1"));

    row("AutoSearch", "minimumSize", QSize(0, 0));
    row("AutoSearch", "font", font(40));
    row("AutoSearch", "normalTextColor", rgb(120, 120, 120));
    row("AutoSearch", "pressTextColor", rgb(0, 240, 251));
    row("AutoSearch", "displayText", QString());

    row("DX_LOC", "minimumSize", QSize(0, 0));
    row("DX_LOC", "font", font(28));
    row("DX_LOC", "displayText", QStringLiteral("DX"));
    row("DX_LOC", "normalTextColor", rgb(255, 255, 255));
    row("DX_LOC", "pressTextColor", rgb(255, 255, 255));
    row("DX_LOC", "textAlign", align(kLeft));

    row("BandName", "font", font(28));
    row("BandName", "text", QStringLiteral("FM3"));
    row("BandName", "alignment", align(kLeft));
    row("MKHz", "font", font(28));
    row("MKHz", "text", QStringLiteral("MHz"));
    row("MKHz", "alignment", align(kRight));
    row("FreqDisp", "font", font(90));
    row("FreqDisp", "text", QStringLiteral("105.10"));
    row("FreqDisp", "alignment", align(kCentre));
    row("AS_PS_DispLabel", "font", font(28));
    row("AS_PS_DispLabel", "text", QStringLiteral("AS"));
    row("AFDisp", "font", font(30));
    row("AFDisp", "text", QStringLiteral("AF"));
    row("STDispLabel", "font", font(30));
    row("STDispLabel", "text", QStringLiteral("ST"));
    row("TPDisp", "font", font(30));
    row("TPDisp", "text", QStringLiteral("TP"));
    row("TADisp", "font", font(30));
    row("TADisp", "text", QStringLiteral("TA"));
    for (const char* l : {"bkg", "label", "label_2"})
        row(l, "text", QString());

    row("fmambg", "pixmap", kImg + "FM-AM-BG.png");
    row("fmambg", "fitPixmapSize", false);

    row("RTDisp", "text", QStringLiteral("DSFDFDFDjgjg"));
    row("RTDisp", "fontSize", 40);
    row("PSDisp", "text", QStringLiteral("DSFDFDFDjgjg"));
    row("PSDisp", "fontSize", 65);
    row("PTYDisp", "text", QStringLiteral("DSFDFDFDjgjg"));
    row("PTYDisp", "fontSize", 40);

    row("radioSlider", "indicatePix", kImg + "pointer.png");
    row("radioSlider", "lineColor", rgb(255, 255, 255));
    row("radioSlider", "font", font(16));
    row("radioSlider", "lineGap", 6);
    row("radioSlider", "freqStart", 522.0f);
    row("radioSlider", "freqEnd", 1629.0f);
    row("radioSlider", "freqStep", 1.0f);
    row("radioSlider", "curFreq", 600.0f);
    row("radioSlider", "isFM", false);
    row("radioSlider", "marginY", 0);
    row("radioSlider", "scaleMode", 2);
    row("radioSlider", "textMarginY", 5);
    row("radioSlider", "scaleMarginY", -20);
}

void TestRadioMainForm::properties()
{
    QFETCH(QString, widget);
    QFETCH(QString, property);
    QFETCH(QVariant, expected);

    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    QWidget* w = form.findChild<QWidget*>(widget);
    QVERIFY(w);
    QVERIFY(!describe(expected).contains(kOpaque));
    QCOMPARE(describe(w->property(property.toLatin1().constData())), describe(expected));
}

void TestRadioMainForm::labelPalettes_data()
{
    QTest::addColumn<QColor>("enabled");
    QTest::addColumn<QColor>("disabled");

    for (const char* name : {"BandName", "MKHz", "FreqDisp"})
        QTest::newRow(name) << rgb(255, 255, 255) << rgb(118, 116, 108);
    for (const char* name : {"AS_PS_DispLabel", "AFDisp", "STDispLabel", "TPDisp", "TADisp"})
        QTest::newRow(name) << rgb(255, 255, 255) << rgb(159, 158, 158);
}

void TestRadioMainForm::labelPalettes()
{
    QFETCH(QColor, enabled);
    QFETCH(QColor, disabled);

    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    const TextColours c = windowTextColours(label);
    QCOMPARE(c.active, enabled);
    QCOMPARE(c.inactive, enabled);
    QCOMPARE(c.disabled, disabled);
    QCOMPARE(label->palette().brush(QPalette::Active, QPalette::WindowText).style(), Qt::SolidPattern);
    QCOMPARE(label->palette().brush(QPalette::Disabled, QPalette::WindowText).style(), Qt::SolidPattern);
}

void TestRadioMainForm::labelPixmaps_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/BK.png");
    QTest::newRow("label") << QStringLiteral(":/radioimages/presetbg.png");
    QTest::newRow("label_2") << QStringLiteral(":/radioimages/freqbarbg.png");
}

void TestRadioMainForm::labelPixmaps()
{
    QFETCH(QString, path);

    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    const QImage expected = resourceImage(path);
    QVERIFY2(!expected.isNull(), qPrintable(path + " is not a loadable resource image"));
    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    // The translation step clears the label text afterwards; the image must
    // survive it, and again on a later language change.
    QCOMPARE(labelImage(label), expected);
    ui.retranslateUi(&form);
    QCOMPARE(labelImage(label), expected);
}

void TestRadioMainForm::imagePathCount()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);
    // Presets, arrows, bottom row, band switch, its two halves, scale
    // pointer and band switch background.
    QCOMPARE(imagePaths(&form).size(), 12 + 12 + 8 + 2 + 4 + 1 + 1);
}

void TestRadioMainForm::imagePathsResolve_data()
{
    QTest::addColumn<QString>("path");

    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);
    const QVector<ImageUse> uses = imagePaths(&form);
    for (const ImageUse& use : uses)
        QTest::addRow("%s.%s", qPrintable(use.widget), qPrintable(use.property)) << use.path;
}

void TestRadioMainForm::imagePathsResolve()
{
    QFETCH(QString, path);
    QVERIFY2(!QImage(path).isNull(), qPrintable(path));
}

void TestRadioMainForm::translatedTexts()
{
    RecordingForm form;
    Ui_RadioMain ui;
    RecordingTranslator translator;
    QStringList textsBeforeTranslation;
    // Snapshot at the layout's first lookup: the widgets are built, nothing
    // translated yet.
    translator.setHook([&](const RecordingTranslator::Lookup& lookup) {
        if (lookup.context != QLatin1String("RadioMain") || !textsBeforeTranslation.isEmpty())
            return;
        for (const char* name : {"AS_PS_DispLabel", "STDispLabel", "bkg", "label", "label_2"}) {
            QLabel* l = form.findChild<QLabel*>(QString::fromLatin1(name));
            textsBeforeTranslation << (l ? l->text() : QStringLiteral("missing"));
        }
    });
    QVERIFY(QCoreApplication::installTranslator(&translator));
    ui.setupUi(&form);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(textsBeforeTranslation, QStringList({"", "", "", "", ""}));

    const QVector<RecordingTranslator::Lookup> lookups = translator.lookups(QStringLiteral("RadioMain"));
    QStringList sources;
    for (const auto& l : lookups) {
        sources << l.source;
        QVERIFY(!l.hasDisambiguation);
        QCOMPARE(l.n, -1);
    }
    QCOMPARE(sources, QStringList({"Form", "AS", "ST"}));

    QCOMPARE(form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(ui.AS_PS_DispLabel->text(), RecordingTranslator::marked("AS"));
    QCOMPARE(ui.STDispLabel->text(), RecordingTranslator::marked("ST"));
    // Fixed texts bypass translation.
    QCOMPARE(ui.AFDisp->text(), QStringLiteral("AF"));
    QCOMPARE(ui.FreqDisp->text(), QStringLiteral("105.10"));
    QCOMPARE(ui.DX_LOC->displayText(), QStringLiteral("DX"));
    QCOMPARE(ui.PS1->displayText(), QStringLiteral("87.50 MHz"));
}

void TestRadioMainForm::retranslateRestoresTexts()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    form.setWindowTitle(QStringLiteral("x"));
    ui.AS_PS_DispLabel->setText(QStringLiteral("PS"));
    ui.STDispLabel->clear();
    ui.ASPSBtn->setDisplayText(QStringLiteral("scan"));
    ui.AutoSearch->setDisplayText(QStringLiteral("auto"));
    ui.label_2->setText(QStringLiteral("bar"));
    ui.FreqDisp->setText(QStringLiteral("98.10"));

    ui.retranslateUi(&form);

    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(ui.AS_PS_DispLabel->text(), QStringLiteral("AS"));
    QCOMPARE(ui.STDispLabel->text(), QStringLiteral("ST"));
    QCOMPARE(ui.ASPSBtn->displayText(), QString());
    QCOMPARE(ui.AutoSearch->displayText(), QString());
    QCOMPARE(ui.label_2->text(), QString());
    // Set-up texts belong to the display logic once set: not touched.
    QCOMPARE(ui.FreqDisp->text(), QStringLiteral("98.10"));
}

void TestRadioMainForm::render()
{
    RecordingForm form;
    Ui_RadioMain ui;
    ui.setupUi(&form);

    QString error;
    const QString path = saveRender(&form, QStringLiteral("radiomainform.png"), &error);
    if (path.isEmpty() && error.startsWith(QStringLiteral("RADIO_TEST_OUTPUT")))
        QSKIP(qPrintable(error));
    QVERIFY2(!path.isEmpty(), qPrintable(error));
    QCOMPARE(QImage(path).size(), QSize(1280, 720));
}

QTEST_MAIN(TestRadioMainForm)
#include "tst_radiomainform.moc"
