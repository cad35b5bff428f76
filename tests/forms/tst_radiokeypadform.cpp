#include "FormInspection.h"
#include "RecordingForm.h"
#include "RecordingTranslator.h"
#include "ui_RadioKeypad.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPair>
#include <QtTest>

using namespace FormInspection;

namespace {

const QStringList kMembers = {"bkg", "KeypadFreqDispTxt", "Keypad_Clear", "Keypad_1", "Keypad_2", "Keypad_3",
                              "Keypad_4", "Keypad_5", "Keypad_6", "Keypad_7", "Keypad_8", "Keypad_9",
                              "Keypad_0", "Keypad_OK", "Keypad_Close", "txtFAM", "KeypadMask"};

const QStringList kStacking = {"KeypadMask", "bkg", "KeypadFreqDispTxt", "Keypad_Clear", "Keypad_1",
                               "Keypad_2", "Keypad_3", "Keypad_4", "Keypad_5", "Keypad_6", "Keypad_7",
                               "Keypad_8", "Keypad_9", "Keypad_0", "Keypad_OK", "Keypad_Close", "txtFAM"};

QVector<QPair<QString, QWidget*>> members(const Ui_RadioKeypad& ui)
{
    return {{"bkg", ui.bkg}, {"KeypadFreqDispTxt", ui.KeypadFreqDispTxt}, {"Keypad_Clear", ui.Keypad_Clear},
            {"Keypad_1", ui.Keypad_1}, {"Keypad_2", ui.Keypad_2}, {"Keypad_3", ui.Keypad_3},
            {"Keypad_4", ui.Keypad_4}, {"Keypad_5", ui.Keypad_5}, {"Keypad_6", ui.Keypad_6},
            {"Keypad_7", ui.Keypad_7}, {"Keypad_8", ui.Keypad_8}, {"Keypad_9", ui.Keypad_9},
            {"Keypad_0", ui.Keypad_0}, {"Keypad_OK", ui.Keypad_OK}, {"Keypad_Close", ui.Keypad_Close},
            {"txtFAM", ui.txtFAM}, {"KeypadMask", ui.KeypadMask}};
}

QVariant font(int pointSize)
{
    QFont f;
    f.setPointSize(pointSize);
    return f;
}

const QString kKeys = QStringLiteral(":/radioimages/keypad/");
const QColor kText(230, 230, 230);

} // namespace

class TestRadioKeypadForm : public QObject
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
    void digitGrid();
    void properties_data();
    void properties();
    void labelStyles_data();
    void labelStyles();
    void labelPixmaps_data();
    void labelPixmaps();
    void imagePathCount();
    void imagePathsResolve_data();
    void imagePathsResolve();
    void buttonIdsAreDistinct();
    void translatedTexts();
    void retranslateRestoresTexts();
    void render();
};

void TestRadioKeypadForm::initTestCase()
{
    // The host's own images (screen background, band keys) live in the host
    // framework library. Nothing here calls into it, so the linker would
    // drop it; asking for its collection by name keeps it and registers it.
    Q_INIT_RESOURCE(hostimages);
}

void TestRadioKeypadForm::unnamedFormGetsFormName()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("RadioKeypad"));
    QCOMPARE(form.size(), QSize(1280, 720));
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(form.stackingOrder().size(), 17);
}

void TestRadioKeypadForm::existingObjectNameIsKept()
{
    RecordingForm form;
    form.setObjectName(QStringLiteral("FrequencyPad"));
    Ui_RadioKeypad ui;
    ui.setupUi(&form);
    QCOMPARE(form.objectName(), QStringLiteral("FrequencyPad"));
    QCOMPARE(form.size(), QSize(1280, 720));
    QCOMPARE(form.stackingOrder(), kStacking);
    QCOMPARE(ui.Keypad_OK->displayText(), QStringLiteral("OK"));
}

void TestRadioKeypadForm::widgets_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QRect>("geometry");

    auto row = [](const char* name, const char* cls, int x, int y, int w, int h) {
        QTest::newRow(name) << QString::fromLatin1(cls) << QRect(x, y, w, h);
    };
    row("bkg", "QLabel", 305, 92, 691, 611);
    row("KeypadFreqDispTxt", "QLabel", 466, 110, 301, 85);
    row("Keypad_Clear", "HvIconButton", 780, 98, 141, 98);
    row("Keypad_1", "HvIconButton", 350, 210, 185, 111);
    row("Keypad_2", "HvIconButton", 545, 210, 185, 111);
    row("Keypad_3", "HvIconButton", 740, 210, 185, 111);
    row("Keypad_4", "HvIconButton", 350, 330, 185, 111);
    row("Keypad_5", "HvIconButton", 545, 330, 185, 111);
    row("Keypad_6", "HvIconButton", 740, 330, 185, 111);
    row("Keypad_7", "HvIconButton", 350, 450, 185, 111);
    row("Keypad_8", "HvIconButton", 545, 450, 185, 111);
    row("Keypad_9", "HvIconButton", 740, 450, 186, 111);
    row("Keypad_0", "HvIconButton", 545, 570, 185, 111);
    row("Keypad_OK", "HvIconButton", 350, 570, 185, 111);
    row("Keypad_Close", "HvIconButton", 740, 570, 185, 111);
    row("txtFAM", "QLabel", 340, 110, 121, 85);
    row("KeypadMask", "QLabel", 0, 0, 1280, 720);
}

void TestRadioKeypadForm::widgets()
{
    QFETCH(QString, className);
    QFETCH(QRect, geometry);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    RecordingForm form;
    Ui_RadioKeypad ui;
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

void TestRadioKeypadForm::membersInCreationOrder()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
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

void TestRadioKeypadForm::stackingOrder()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);
    QCOMPARE(form.stackingOrder(), kStacking);
    // The wallpaper mask lies under everything, the panel right above it.
    QCOMPARE(form.childAt(10, 10), static_cast<QWidget*>(ui.KeypadMask));
    QCOMPARE(form.childAt(320, 100), static_cast<QWidget*>(ui.bkg));
}

void TestRadioKeypadForm::digitGrid()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    // Rows of three keys, top to bottom, as a phone pad: 1 2 3 / 4 5 6 /
    // 7 8 9 / OK 0 BACK. Keys must neither overlap nor leave the panel.
    const QList<QList<QWidget*>> rows = {{ui.Keypad_1, ui.Keypad_2, ui.Keypad_3},
                                         {ui.Keypad_4, ui.Keypad_5, ui.Keypad_6},
                                         {ui.Keypad_7, ui.Keypad_8, ui.Keypad_9},
                                         {ui.Keypad_OK, ui.Keypad_0, ui.Keypad_Close}};
    const int columns[] = {350, 545, 740};
    const int tops[] = {210, 330, 450, 570};
    QList<QRect> placed;
    for (int r = 0; r < rows.size(); ++r) {
        for (int c = 0; c < 3; ++c) {
            const QRect g = rows[r][c]->geometry();
            QCOMPARE(g.topLeft(), QPoint(columns[c], tops[r]));
            QVERIFY2(ui.bkg->geometry().contains(g), qPrintable(rows[r][c]->objectName()));
            for (const QRect& other : placed)
                QVERIFY2(!other.intersects(g), qPrintable(rows[r][c]->objectName()));
            placed.append(g);
        }
    }
}

void TestRadioKeypadForm::properties_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("expected");

    auto row = [](const QString& w, const char* p, const QVariant& v) {
        QTest::addRow("%s.%s", qPrintable(w), p) << w << QString::fromLatin1(p) << v;
    };

    row("Keypad_Clear", "normalImage", kKeys + "backspace-N.png");
    row("Keypad_Clear", "pressImage", kKeys + "backspace-P.png");
    row("Keypad_Clear", "disableImage", kKeys + "backspace-N.png");
    row("Keypad_Clear", "buttonID", QStringLiteral("FreqClear"));
    row("Keypad_Clear", "displayText", QString());

    for (char d = '0'; d <= '9'; ++d) {
        const QString digit(QLatin1Char{d});
        const QString key = QStringLiteral("Keypad_") + digit;
        row(key, "normalImage", kKeys + digit + "-N.png");
        row(key, "pressImage", kKeys + digit + "-P.png");
        row(key, "disableImage", kKeys + digit + "-N.png");
        row(key, "buttonID", digit);
    }

    row("Keypad_OK", "font", font(36));
    row("Keypad_OK", "normalImage", kKeys + "OK-N.png");
    row("Keypad_OK", "pressImage", kKeys + "OK-P.png");
    row("Keypad_OK", "disableImage", kKeys + "OK-N.png");
    row("Keypad_OK", "buttonID", QStringLiteral("FreqOK"));
    row("Keypad_OK", "normalTextColor", kText);
    row("Keypad_OK", "pressTextColor", kText);
    row("Keypad_OK", "disableTextColor", QColor(255, 255, 255));
    row("Keypad_OK", "displayText", QStringLiteral("OK"));

    row("Keypad_Close", "font", font(36));
    row("Keypad_Close", "normalImage", kKeys + "BACK-N.png");
    row("Keypad_Close", "pressImage", kKeys + "BACK-P.png");
    row("Keypad_Close", "disableImage", kKeys + "BACK-N.png");
    row("Keypad_Close", "buttonID", QString());
    row("Keypad_Close", "normalTextColor", kText);
    row("Keypad_Close", "pressTextColor", kText);
    row("Keypad_Close", "disableTextColor", kText);
    row("Keypad_Close", "displayText", QStringLiteral("BACK"));

    row("bkg", "text", QString());
    row("KeypadMask", "text", QString());
}

void TestRadioKeypadForm::properties()
{
    QFETCH(QString, widget);
    QFETCH(QString, property);
    QFETCH(QVariant, expected);

    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    QWidget* w = form.findChild<QWidget*>(widget);
    QVERIFY(w);
    QVERIFY(!describe(expected).contains(kOpaque));
    QCOMPARE(describe(w->property(property.toLatin1().constData())), describe(expected));
}

void TestRadioKeypadForm::labelStyles_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("alignment");

    QTest::newRow("KeypadFreqDispTxt") << QStringLiteral("87.50") << int(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("txtFAM") << QStringLiteral("FM:") << int(Qt::AlignHCenter | Qt::AlignVCenter);
}

void TestRadioKeypadForm::labelStyles()
{
    QFETCH(QString, text);
    QFETCH(int, alignment);

    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(label->text(), text);
    QCOMPARE(int(label->alignment()), alignment);
    QCOMPARE(label->font().pointSize(), 35);
    const TextColours c = windowTextColours(label);
    QCOMPARE(c.active, kText);
    QCOMPARE(c.inactive, kText);
    QCOMPARE(c.disabled, QColor(159, 158, 158));
}

void TestRadioKeypadForm::labelPixmaps_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/keypadbg.png");
    QTest::newRow("KeypadMask") << QStringLiteral(":/radioimages/BK.png");
}

void TestRadioKeypadForm::labelPixmaps()
{
    QFETCH(QString, path);

    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    const QImage expected = resourceImage(path);
    QVERIFY2(!expected.isNull(), qPrintable(path + " is not a loadable resource image"));
    QLabel* label = form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(labelImage(label), expected);
    ui.retranslateUi(&form);
    QCOMPARE(labelImage(label), expected);
}

void TestRadioKeypadForm::imagePathCount()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);
    // Normal, pressed and disabled image of the 13 keys.
    QCOMPARE(imagePaths(&form).size(), 13 * 3);
}

void TestRadioKeypadForm::imagePathsResolve_data()
{
    QTest::addColumn<QString>("path");

    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);
    const QVector<ImageUse> uses = imagePaths(&form);
    for (const ImageUse& use : uses)
        QTest::addRow("%s.%s", qPrintable(use.widget), qPrintable(use.property)) << use.path;
}

void TestRadioKeypadForm::imagePathsResolve()
{
    QFETCH(QString, path);
    QVERIFY2(!QImage(path).isNull(), qPrintable(path));
}

void TestRadioKeypadForm::buttonIdsAreDistinct()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    // The keypad logic tells keys apart by ID alone.
    QStringList ids;
    for (HvIconButton* b : form.findChildren<HvIconButton*>()) {
        if (b != ui.Keypad_Close)
            ids << b->buttonID();
    }
    ids.sort();
    QCOMPARE(ids, QStringList({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "FreqClear", "FreqOK"}));
}

void TestRadioKeypadForm::translatedTexts()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    RecordingTranslator translator;
    QStringList textsBeforeTranslation;
    // Snapshot at the layout's first lookup: the widgets are built, nothing
    // translated yet.
    translator.setHook([&](const RecordingTranslator::Lookup& lookup) {
        if (lookup.context != QLatin1String("RadioKeypad") || !textsBeforeTranslation.isEmpty())
            return;
        for (const char* name : {"Keypad_OK", "Keypad_Close"}) {
            HvIconButton* b = form.findChild<HvIconButton*>(QString::fromLatin1(name));
            textsBeforeTranslation << (b ? b->displayText() : QStringLiteral("missing"));
        }
    });
    QVERIFY(QCoreApplication::installTranslator(&translator));
    ui.setupUi(&form);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(textsBeforeTranslation, QStringList({"", ""}));

    QStringList sources;
    for (const auto& l : translator.lookups(QStringLiteral("RadioKeypad"))) {
        sources << l.source;
        QVERIFY(!l.hasDisambiguation);
        QCOMPARE(l.n, -1);
    }
    QCOMPARE(sources, QStringList({"Form", "OK", "BACK"}));

    QCOMPARE(form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(ui.Keypad_OK->displayText(), RecordingTranslator::marked("OK"));
    QCOMPARE(ui.Keypad_Close->displayText(), RecordingTranslator::marked("BACK"));
    // Placeholders that the keypad logic overwrites are fixed texts.
    QCOMPARE(ui.KeypadFreqDispTxt->text(), QStringLiteral("87.50"));
    QCOMPARE(ui.txtFAM->text(), QStringLiteral("FM:"));
}

void TestRadioKeypadForm::retranslateRestoresTexts()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    form.setWindowTitle(QStringLiteral("x"));
    ui.Keypad_OK->setDisplayText(QStringLiteral("x"));
    ui.Keypad_Close->setDisplayText(QString());
    ui.KeypadMask->setText(QStringLiteral("mask"));
    ui.txtFAM->setText(QStringLiteral("AM:"));
    ui.KeypadFreqDispTxt->clear();

    ui.retranslateUi(&form);

    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(ui.Keypad_OK->displayText(), QStringLiteral("OK"));
    QCOMPARE(ui.Keypad_Close->displayText(), QStringLiteral("BACK"));
    QCOMPARE(ui.KeypadMask->text(), QString());
    // The band prefix and the entry belong to the keypad logic.
    QCOMPARE(ui.txtFAM->text(), QStringLiteral("AM:"));
    QCOMPARE(ui.KeypadFreqDispTxt->text(), QString());
}

void TestRadioKeypadForm::render()
{
    RecordingForm form;
    Ui_RadioKeypad ui;
    ui.setupUi(&form);

    QString error;
    const QString path = saveRender(&form, QStringLiteral("radiokeypadform.png"), &error);
    if (path.isEmpty() && error.startsWith(QStringLiteral("RADIO_TEST_OUTPUT")))
        QSKIP(qPrintable(error));
    QVERIFY2(!path.isEmpty(), qPrintable(error));
    QCOMPARE(QImage(path).size(), QSize(1280, 720));
}

QTEST_MAIN(TestRadioKeypadForm)
#include "tst_radiokeypadform.moc"
