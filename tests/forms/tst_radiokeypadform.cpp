#include "FormFixture.h"
#include "ui_RadioKeypad.h"

using namespace FormFixture;

class tst_RadioKeypadForm : public QObject
{
    Q_OBJECT

private slots:
    void settings_data();
    void settings() { checkSetting(&m_built.form); }

private:
    BuiltForm<Ui_RadioKeypad> m_built;
};

void tst_RadioKeypadForm::settings_data()
{
    addSettingColumns();
    widget("KeypadMask", "QLabel", 0, 0, 1280, 720, 1);
    widget("bkg", "QLabel", 305, 92, 691, 611, 2);
    widget("KeypadFreqDispTxt", "QLabel", 466, 110, 301, 85, 3);
    widget("Keypad_Clear", "HvIconButton", 780, 98, 141, 98, 4);
    const int x[] = {545, 350, 545, 740, 350, 545, 740, 350, 545, 740};
    const int y[] = {570, 210, 210, 210, 330, 330, 330, 450, 450, 450};
    for (int d = 1; d <= 10; ++d) {
        const QByteArray name = "Keypad_" + QByteArray::number(d % 10);
        widget(name.constData(), "HvIconButton", x[d % 10], y[d % 10], d == 9 ? 186 : 185, 111, 4 + d);
    }
    widget("Keypad_OK", "HvIconButton", 350, 570, 185, 111, 15);
    widget("Keypad_Close", "HvIconButton", 740, 570, 185, 111, 16);
    widget("txtFAM", "QLabel", 340, 110, 121, 85, 17);
    const QString img = QStringLiteral(":/radioimages/keypad/");
    setting(QStringLiteral("RadioKeypad"), QStringLiteral("size=1280x720;windowTitle=RadioKeypad|Form"));
    for (int d = 0; d <= 9; ++d) {
        setting(QStringLiteral("Keypad_%1").arg(d),
                QStringLiteral("buttonID=%1;normalImage=%2%1-N.png;pressImage=%2%1-P.png;disableImage=%2%1-N.png").arg(QString::number(d), img));
    }
    setting(QStringLiteral("Keypad_Clear"), QStringLiteral("buttonID=FreqClear;displayText=;normalImage=%1backspace-N.png;"
                                                           "pressImage=%1backspace-P.png;disableImage=%1backspace-N.png").arg(img));
    setting(QStringLiteral("Keypad_OK"), QStringLiteral("buttonID=FreqOK;displayText=RadioKeypad|OK;font=36;normalImage=%1OK-N.png;"
                                                        "pressImage=%1OK-P.png;normalTextColor=#ffe6e6e6;disableTextColor=#ffffffff").arg(img));
    setting(QStringLiteral("Keypad_Close"), QStringLiteral("buttonID=;displayText=RadioKeypad|BACK;font=36;normalImage=%1BACK-N.png;"
                                                           "pressImage=%1BACK-P.png;disableTextColor=#ffe6e6e6").arg(img));
    setting(QStringLiteral("KeypadFreqDispTxt"), QStringLiteral("text=87.50;font=35;align=81;palette=#e6e6e6/#9f9e9e"));
    setting(QStringLiteral("txtFAM"), QStringLiteral("text=FM:;font=35;align=84;palette=#e6e6e6/#9f9e9e"));
    setting(QStringLiteral("bkg"), QStringLiteral("pixmap=672x618;text="));
    setting(QStringLiteral("KeypadMask"), QStringLiteral("pixmap=1280x720"));
}

QTEST_MAIN(tst_RadioKeypadForm)
#include "tst_radiokeypadform.moc"
