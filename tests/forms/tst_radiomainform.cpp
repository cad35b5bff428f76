#include "FormFixture.h"
#include "ui_RadioMain.h"

using namespace FormFixture;

class tst_RadioMainForm : public QObject
{
    Q_OBJECT

private slots:
    void settings_data();
    void settings() { checkSetting(&m_built.form); }

private:
    BuiltForm<Ui_RadioMain> m_built{QStringLiteral("TunerMainScreen")};
};

void tst_RadioMainForm::settings_data()
{
    addSettingColumns();
    widget("bkg", "QLabel", 0, 0, 1280, 720, 1);
    widget("fmambg", "HvBackgroundImage", 700, 605, 299, 69, 2);
    widget("SeekDown", "HvIconButton", 444, 306, 98, 84, 3);
    widget("SeekUp", "HvIconButton", 1160, 306, 98, 84, 4);
    widget("ASPSBtn", "HvIconButton", 479, 600, 91, 69, 5);
    widget("DX_LOC", "HvIconButton", 560, 293, 80, 43, 6);
    widget("BandName", "QLabel", 560, 340, 80, 43, 7);
    widget("MKHz", "QLabel", 1060, 340, 80, 43, 8);
    widget("FreqDisp", "QLabel", 640, 255, 411, 131, 9);
    widget("label", "QLabel", 22, 84, 421, 621, 10);
    widget("PS1", "HvIconButton", 41, 113, 353, 95, 11);
    widget("PS4", "HvIconButton", 41, 399, 353, 95, 12);
    widget("PS5", "HvIconButton", 41, 494, 353, 95, 13);
    widget("PS6", "HvIconButton", 41, 589, 353, 95, 14);
    widget("PS2", "HvIconButton", 41, 209, 353, 95, 15);
    widget("PS3", "HvIconButton", 41, 304, 353, 95, 16);
    widget("AutoSearch", "HvIconButton", 1023, 0, 0, 0, 17);
    widget("AS_PS_DispLabel", "QLabel", 670, 100, 60, 45, 18);
    widget("AFDisp", "QLabel", 750, 100, 60, 45, 19);
    widget("STDispLabel", "QLabel", 990, 100, 60, 45, 20);
    widget("TPDisp", "QLabel", 830, 100, 60, 45, 21);
    widget("TADisp", "QLabel", 910, 100, 60, 45, 22);
    widget("RTDisp", "HvRollingText", 500, 470, 711, 51, 23);
    widget("Keyboard", "HvIconButton", 590, 600, 91, 69, 24);
    widget("EQBtn", "HvIconButton", 1030, 600, 91, 69, 25);
    widget("BandSwitch", "HvIconButton", 700, 604, 299, 69, 26);
    widget("AMicon", "HvIconButton", 852, 596, 141, 81, 27);
    widget("FMicon", "HvIconButton", 711, 596, 141, 81, 28);
    widget("setupBtn", "HvIconButton", 1140, 600, 91, 69, 29);
    widget("PSDisp", "HvRollingText", 500, 400, 711, 71, 30);
    widget("PTYDisp", "HvRollingText", 500, 520, 711, 51, 31);
    widget("label_2", "QLabel", 444, 90, 821, 191, 32);
    widget("radioSlider", "MRadioSlider", 525, 150, 661, 91, 33);
    widget("StepDown", "HvIconButton", 452, 145, 59, 90, 34);
    widget("StepUp", "HvIconButton", 1204, 145, 59, 90, 35);
    const QString img = QStringLiteral(":/radioimages/");
    setting(QStringLiteral("TunerMainScreen"), QStringLiteral("size=1280x720;windowTitle=RadioMain|Form"));
    const QStringList presets = {"87.50 MHz", "90.10 MHz", "98.10 MHz", "106.10 MHz", "108.00 MHz", "87.50 MHz"};
    for (int i = 1; i <= 6; ++i) {
        setting(QStringLiteral("PS%1").arg(i),
                QStringLiteral("buttonID=%1;displayText=%2;font=28;normalImage=%3preset-N.png;pressImage=%3preset-P.png;"
                               "disableState=false;supportLongPress=true;timerInterval2=864000000;disableMode=0;"
                               "normalTextColor=#ffe6e6e6;disableTextColor=#9ae6e6e6")
                    .arg(i).arg(presets.at(i - 1), img));
    }
    const QStringList arrows = {"SeekDown=prev", "SeekUp=next", "StepDown=left", "StepUp=right"};
    for (const QString& a : arrows) {
        setting(a.section(QLatin1Char('='), 0, 0),
                QStringLiteral("normalImage=%1%2-N.png;pressImage=%1%2-P.png;disableImage=%1%2-N.png;"
                               "supportLongPress=false;buttonID=")
                    .arg(img, a.section(QLatin1Char('='), 1)));
    }
    setting(QStringLiteral("ASPSBtn"), QStringLiteral("font=40;normalImage=%1scan-N.png;pressImage=%1scan-P.png;"
                                                      "supportLongPress=true;timerInterval2=864000000;displayText=").arg(img));
    for (const QString& b : {QStringLiteral("Keyboard=keypad"), QStringLiteral("EQBtn=EQ"), QStringLiteral("setupBtn=setting")})
        setting(b.section(QLatin1Char('='), 0, 0),
                QStringLiteral("font=20;normalImage=%1%2-N.png;pressImage=%1%2-P.png;buttonID=HvIconButton_ID;"
                               "displayText=;textTopMargin=60;textHeight=20")
                    .arg(img, b.section(QLatin1Char('='), 1)));
    setting(QStringLiteral("BandSwitch"), QStringLiteral("normalImage=%1FM-P.png;pressImage=%1AM-P.png;buttonID=ID_band").arg(img));
    const QString key = QStringLiteral(":/radioimages2/VELMAR_1024_600/Key_");
    setting(QStringLiteral("FMicon"), QStringLiteral("buttonID=1;displayText=FM1;font=26;showMode=1;normalImage=%1N.png;pressImage=%1P.png").arg(key));
    setting(QStringLiteral("AMicon"), QStringLiteral("buttonID=2;displayText=AM1;font=26;showMode=1;normalImage=%1N.png;pressImage=%1P.png").arg(key));
    setting(QStringLiteral("AutoSearch"), QStringLiteral("font=40;displayText="));
    setting(QStringLiteral("DX_LOC"), QStringLiteral("displayText=DX;font=28"));
    setting(QStringLiteral("bkg"), QStringLiteral("pixmap=1280x720;text="));
    setting(QStringLiteral("label"), QStringLiteral("pixmap=404x614"));
    setting(QStringLiteral("label_2"), QStringLiteral("pixmap=813x149"));
    setting(QStringLiteral("BandName"), QStringLiteral("text=FM3;font=28;align=81;palette=#ffffff/#76746c"));
    setting(QStringLiteral("MKHz"), QStringLiteral("text=MHz;font=28;align=82;palette=#ffffff/#76746c"));
    setting(QStringLiteral("FreqDisp"), QStringLiteral("text=105.10;font=90;align=84;palette=#ffffff/#76746c"));
    setting(QStringLiteral("AS_PS_DispLabel"), QStringLiteral("text=RadioMain|AS;font=28;palette=#ffffff/#9f9e9e"));
    setting(QStringLiteral("STDispLabel"), QStringLiteral("text=RadioMain|ST;font=30;palette=#ffffff/#9f9e9e"));
    for (const char* name : {"AFDisp=AF", "TPDisp=TP", "TADisp=TA"})
        setting(QString::fromLatin1(name).section(QLatin1Char('='), 0, 0),
                QStringLiteral("text=%1;font=30").arg(QString::fromLatin1(name).section(QLatin1Char('='), 1)));
    setting(QStringLiteral("fmambg"), QStringLiteral("pixmap=%1FM-AM-BG.png;fitPixmapSize=false").arg(img));
    setting(QStringLiteral("RTDisp"), QStringLiteral("text=DSFDFDFDjgjg;fontSize=40"));
    setting(QStringLiteral("PSDisp"), QStringLiteral("text=DSFDFDFDjgjg;fontSize=65"));
    setting(QStringLiteral("PTYDisp"), QStringLiteral("text=DSFDFDFDjgjg;fontSize=40"));
    setting(QStringLiteral("radioSlider"),
            QStringLiteral("indicatePix=%1pointer.png;lineColor=#ffffffff;font=16;lineGap=6;freqStart=522;freqEnd=1629;"
                           "freqStep=1;curFreq=600;isFM=false;marginY=0;scaleMode=2;textMarginY=5;scaleMarginY=-20").arg(img));
    setting(QStringLiteral("PowerBtn"), QStringLiteral("absent"));
    setting(QStringLiteral("dabBtn"), QStringLiteral("absent"));
}

QTEST_MAIN(tst_RadioMainForm)
#include "tst_radiomainform.moc"
