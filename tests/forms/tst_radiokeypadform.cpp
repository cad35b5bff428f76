#include "FormInspection.h"
#include "FormSuite.h"
#include "RecordingTranslator.h"
#include "ui_RadioKeypad.h"

#include <QtTest>

using namespace FormInspection;

namespace {

const QStringList kMembers = {"bkg", "KeypadFreqDispTxt", "Keypad_Clear", "Keypad_1", "Keypad_2", "Keypad_3",
                              "Keypad_4", "Keypad_5", "Keypad_6", "Keypad_7", "Keypad_8", "Keypad_9",
                              "Keypad_0", "Keypad_OK", "Keypad_Close", "txtFAM", "KeypadMask"};

const QStringList kStacking = {"KeypadMask", "bkg", "KeypadFreqDispTxt", "Keypad_Clear", "Keypad_1",
                               "Keypad_2", "Keypad_3", "Keypad_4", "Keypad_5", "Keypad_6", "Keypad_7",
                               "Keypad_8", "Keypad_9", "Keypad_0", "Keypad_OK", "Keypad_Close", "txtFAM"};

Members members(const Ui_RadioKeypad& ui)
{
    return {{"bkg", ui.bkg}, {"KeypadFreqDispTxt", ui.KeypadFreqDispTxt}, {"Keypad_Clear", ui.Keypad_Clear},
            {"Keypad_1", ui.Keypad_1}, {"Keypad_2", ui.Keypad_2}, {"Keypad_3", ui.Keypad_3},
            {"Keypad_4", ui.Keypad_4}, {"Keypad_5", ui.Keypad_5}, {"Keypad_6", ui.Keypad_6},
            {"Keypad_7", ui.Keypad_7}, {"Keypad_8", ui.Keypad_8}, {"Keypad_9", ui.Keypad_9},
            {"Keypad_0", ui.Keypad_0}, {"Keypad_OK", ui.Keypad_OK}, {"Keypad_Close", ui.Keypad_Close},
            {"txtFAM", ui.txtFAM}, {"KeypadMask", ui.KeypadMask}};
}

const QString kKeys = QStringLiteral(":/radioimages/keypad/");

using Form = SetUpForm<Ui_RadioKeypad>;

} // namespace

class TestRadioKeypadForm : public FormSuiteFor<Ui_RadioKeypad>
{
    Q_OBJECT

public:
    // Image paths: normal, pressed and disabled image of the 13 keys.
    TestRadioKeypadForm()
        : FormSuiteFor({QStringLiteral("RadioKeypad"), QStringLiteral("FrequencyPad"), QSize(1280, 720), kMembers,
                        kStacking, 13 * 3, QStringLiteral("radiokeypadform.png")},
                       members)
    {
    }

protected:
    void widgetRows() const override;
    void labelPixmapRows() const override;

private slots:
    void maskUnderPanel();
    void properties_data();
    void properties();
    void buttonIdsAreDistinct();
    void translatedTexts();
    void retranslateRestoresTexts();
};

void TestRadioKeypadForm::widgetRows() const
{
    addWidgetRow("bkg", "QLabel", 305, 92, 691, 611);
    addWidgetRow("KeypadFreqDispTxt", "QLabel", 466, 110, 301, 85);
    addWidgetRow("Keypad_Clear", "HvIconButton", 780, 98, 141, 98);
    addWidgetRow("Keypad_1", "HvIconButton", 350, 210, 185, 111);
    addWidgetRow("Keypad_2", "HvIconButton", 545, 210, 185, 111);
    addWidgetRow("Keypad_3", "HvIconButton", 740, 210, 185, 111);
    addWidgetRow("Keypad_4", "HvIconButton", 350, 330, 185, 111);
    addWidgetRow("Keypad_5", "HvIconButton", 545, 330, 185, 111);
    addWidgetRow("Keypad_6", "HvIconButton", 740, 330, 185, 111);
    addWidgetRow("Keypad_7", "HvIconButton", 350, 450, 185, 111);
    addWidgetRow("Keypad_8", "HvIconButton", 545, 450, 185, 111);
    addWidgetRow("Keypad_9", "HvIconButton", 740, 450, 186, 111);
    addWidgetRow("Keypad_0", "HvIconButton", 545, 570, 185, 111);
    addWidgetRow("Keypad_OK", "HvIconButton", 350, 570, 185, 111);
    addWidgetRow("Keypad_Close", "HvIconButton", 740, 570, 185, 111);
    addWidgetRow("txtFAM", "QLabel", 340, 110, 121, 85);
    addWidgetRow("KeypadMask", "QLabel", 0, 0, 1280, 720);
}

void TestRadioKeypadForm::maskUnderPanel()
{
    Form f;
    // The wallpaper mask lies under everything, the panel right above it.
    QCOMPARE(f.form.childAt(10, 10), static_cast<QWidget*>(f.ui.KeypadMask));
    QCOMPARE(f.form.childAt(320, 100), static_cast<QWidget*>(f.ui.bkg));
}

void TestRadioKeypadForm::properties_data()
{
    addPropertyColumns();

    addPropertyRow("Keypad_Clear", "normalImage", kKeys + "backspace-N.png");
    addPropertyRow("Keypad_Clear", "pressImage", kKeys + "backspace-P.png");
    addPropertyRow("Keypad_Clear", "disableImage", kKeys + "backspace-N.png");
    addPropertyRow("Keypad_Clear", "buttonID", QStringLiteral("FreqClear"));
    addPropertyRow("Keypad_Clear", "displayText", QString());

    for (char d = '0'; d <= '9'; ++d) {
        const QString digit(QLatin1Char{d});
        const QString key = QStringLiteral("Keypad_") + digit;
        addPropertyRow(key, "normalImage", kKeys + digit + "-N.png");
        addPropertyRow(key, "pressImage", kKeys + digit + "-P.png");
        addPropertyRow(key, "disableImage", kKeys + digit + "-N.png");
        addPropertyRow(key, "buttonID", digit);
    }

    addPropertyRow("Keypad_OK", "normalImage", kKeys + "OK-N.png");
    addPropertyRow("Keypad_OK", "pressImage", kKeys + "OK-P.png");
    addPropertyRow("Keypad_OK", "disableImage", kKeys + "OK-N.png");
    addPropertyRow("Keypad_OK", "buttonID", QStringLiteral("FreqOK"));
    addPropertyRow("Keypad_OK", "displayText", QStringLiteral("OK"));

    addPropertyRow("Keypad_Close", "normalImage", kKeys + "BACK-N.png");
    addPropertyRow("Keypad_Close", "pressImage", kKeys + "BACK-P.png");
    addPropertyRow("Keypad_Close", "disableImage", kKeys + "BACK-N.png");
    addPropertyRow("Keypad_Close", "buttonID", QString());
    addPropertyRow("Keypad_Close", "displayText", QStringLiteral("BACK"));

    addPropertyRow("KeypadFreqDispTxt", "text", QStringLiteral("87.50"));
    addPropertyRow("txtFAM", "text", QStringLiteral("FM:"));
    addPropertyRow("bkg", "text", QString());
    addPropertyRow("KeypadMask", "text", QString());
}

void TestRadioKeypadForm::properties()
{
    Form f;
    checkPropertyRow(f.form);
}

void TestRadioKeypadForm::labelPixmapRows() const
{
    QTest::newRow("bkg") << QStringLiteral(":/radioimages/keypadbg.png");
    QTest::newRow("KeypadMask") << QStringLiteral(":/radioimages/BK.png");
}

void TestRadioKeypadForm::buttonIdsAreDistinct()
{
    Form f;
    // The keypad logic tells keys apart by ID alone.
    QStringList ids;
    for (HvIconButton* b : f.form.findChildren<HvIconButton*>()) {
        if (b != f.ui.Keypad_Close)
            ids << b->buttonID();
    }
    ids.sort();
    QCOMPARE(ids, QStringList({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "FreqClear", "FreqOK"}));
}

void TestRadioKeypadForm::translatedTexts()
{
    TranslatedForm<Ui_RadioKeypad> t(QStringLiteral("RadioKeypad"), {"Keypad_OK", "Keypad_Close"}, "displayText");
    QVERIFY(t.installed);
    QCOMPARE(t.before, QStringList({"", ""}));

    QCOMPARE(t.form.windowTitle(), RecordingTranslator::marked("Form"));
    QCOMPARE(t.ui.Keypad_OK->displayText(), RecordingTranslator::marked("OK"));
    QCOMPARE(t.ui.Keypad_Close->displayText(), RecordingTranslator::marked("BACK"));
    // Placeholders that the keypad logic overwrites are fixed texts.
    QCOMPARE(t.ui.KeypadFreqDispTxt->text(), QStringLiteral("87.50"));
    QCOMPARE(t.ui.txtFAM->text(), QStringLiteral("FM:"));
    checkLookups(t.translator, QStringLiteral("RadioKeypad"), {"Form", "OK", "BACK"});
}

void TestRadioKeypadForm::retranslateRestoresTexts()
{
    Form f;
    f.form.setWindowTitle(QStringLiteral("x"));
    f.ui.Keypad_OK->setDisplayText(QStringLiteral("x"));
    f.ui.Keypad_Close->setDisplayText(QString());
    f.ui.KeypadMask->setText(QStringLiteral("mask"));
    f.ui.txtFAM->setText(QStringLiteral("AM:"));
    f.ui.KeypadFreqDispTxt->clear();

    f.ui.retranslateUi(&f.form);

    QCOMPARE(f.form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(f.ui.Keypad_OK->displayText(), QStringLiteral("OK"));
    QCOMPARE(f.ui.Keypad_Close->displayText(), QStringLiteral("BACK"));
    QCOMPARE(f.ui.KeypadMask->text(), QString());
    // The band prefix and the entry belong to the keypad logic.
    QCOMPARE(f.ui.txtFAM->text(), QStringLiteral("AM:"));
    QCOMPARE(f.ui.KeypadFreqDispTxt->text(), QString());
}

QTEST_MAIN(TestRadioKeypadForm)
#include "tst_radiokeypadform.moc"
