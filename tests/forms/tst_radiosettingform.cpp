#include "FormFixture.h"
#include "ui_RadioSettingForm.h"

using namespace FormFixture;

class tst_RadioSettingForm : public QObject
{
    Q_OBJECT

private slots:
    void settings_data();
    void settings() { checkSetting(&m_built.form); }

private:
    BuiltForm<Ui_RadioSettingForm> m_built;
};

// The SCAN row lies below the 720-pixel page; the background overhangs
// the page's left edge by 150 pixels.
void tst_RadioSettingForm::settings_data()
{
    addSettingColumns();
    widget("bkg", "QLabel", -150, 0, 606, 720, 1);
    widget("label_5", "QLabel", 30, 830, 546, 77, 2);
    widget("label_1", "QLabel", 30, 110, 400, 77, 3);
    widget("label_2", "QLabel", 30, 195, 400, 77, 4);
    widget("af_label", "QLabel", 40, 105, 180, 77, 5);
    widget("AFBtn", "MOnOffButton", 310, 118, 104, 51, 6);
    widget("setup_close", "HvIconButton", 290, 600, 146, 100, 7);
    widget("ta_label", "QLabel", 40, 190, 180, 77, 8);
    widget("TABtn", "MOnOffButton", 310, 203, 104, 51, 9);
    widget("label_3", "QLabel", 30, 283, 400, 77, 10);
    widget("RegBtn", "MOnOffButton", 310, 293, 104, 51, 11);
    widget("REG_label", "QLabel", 40, 280, 180, 77, 12);
    widget("label_4", "QLabel", 30, 380, 400, 77, 13);
    widget("LOC_label", "QLabel", 40, 380, 180, 77, 14);
    widget("LocOnOff", "MOnOffButton", 310, 390, 104, 51, 15);
    widget("SCAN_label", "QLabel", 40, 830, 211, 77, 16);
    widget("ScanBtn", "MOnOffButton", 328, 840, 104, 51, 17);
    setting(QStringLiteral("RadioSettingForm"), QStringLiteral("size=450x720;windowTitle=RadioSettingForm|Form"));
    setting(QStringLiteral("bkg"), QStringLiteral("pixmap=606x720;text="));
    for (int row = 1; row <= 5; ++row)
        setting(QStringLiteral("label_%1").arg(row), QStringLiteral("pixmap=546x77;text="));
    for (const char* caption : {"af_label=AF", "ta_label=TA", "REG_label=REG", "LOC_label=LOC", "SCAN_label=SCAN"})
        setting(QString::fromLatin1(caption).section(QLatin1Char('='), 0, 0),
                QStringLiteral("text=%1;font=28;palette=#ffffff/#9f9e9e").arg(QString::fromLatin1(caption).section(QLatin1Char('='), 1)));
    for (const char* name : {"AFBtn", "TABtn", "RegBtn", "LocOnOff", "ScanBtn"})
        setting(QString::fromLatin1(name), QStringLiteral("onoffStatus=false;btnDisable=false;onColor=#ff1450ff"));
    setting(QStringLiteral("setup_close"), QStringLiteral("buttonID=;normalImage=:/radioimages/setupimages/BACK-N.png;"
                                                          "pressImage=:/radioimages/setupimages/BACK-P.png"));
}

QTEST_MAIN(tst_RadioSettingForm)
#include "tst_radiosettingform.moc"
