#include "ViewFixture.h"

#include "ContextTranslator.h"
#include "ObjectTimers.h"
#include "RadioSetting.h"

#include "HostEvents.h"
#include "HvRollingText.h"
#include "MRadioSlider.h"
#include "SetupStrIdConst.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTranslator>

using namespace ViewFixture;

namespace {

QByteArray fields(const QList<QByteArray>& entries)
{
    QByteArray all;
    for (const QByteArray& e : entries)
        all += e.leftJustified(8, ' ', true);
    return all;
}

// Leaves non-zero bytes where the next call's locals will lie, so that a
// name read past its eight bytes shows.
Q_NEVER_INLINE void dirtyStack()
{
    volatile char junk[4096];
    for (volatile char& c : junk)
        c = 'X';
}

// Gives every settings page built while it is installed the DX/LOC label
// that some layouts have.
class DxLabelAdder : public QObject
{
    bool eventFilter(QObject* watched, QEvent* e) override
    {
        if (e->type() == QEvent::ChildAdded && !m_adding && qobject_cast<RadioSetting*>(watched)
            && !watched->findChild<QLabel*>(QStringLiteral("loc_dx_disp_label"))) {
            m_adding = true;
            (new QLabel(QStringLiteral("DX"), static_cast<QWidget*>(watched)))->setObjectName(QStringLiteral("loc_dx_disp_label"));
            m_adding = false;
        }
        return false;
    }
    bool m_adding = false;
};

const char* const PtyNames[32] = {"",        "News",     "Affairs", "Info",     "Sports",   "Educate", "Drama",
                                  "Culture", "Science",  "Varied",  "Pop M",    "Rock M",   "Easy M",  "Light M",
                                  "Classics", "Other M", "Weather", "Finance",  "Children", "Social",  "Religion",
                                  "Phone In", "Travel",  "Leisure", "Jazz",     "Country",  "Nation M", "Oldies",
                                  "Folk M",  "Document", "Test",    "Alarm"};

} // namespace

class tst_TunerView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void screen_data();
    void screen();
    void presets_data();
    void presets();
    void background_data();
    void background();
    void temperature_data();
    void temperature();

private:
    void makeView(const Host& host = Host(), int presetCount = 6);
    void run(const QString& op, const QString& arg);
    QString observe(const QString& what, const QString& attribute);

    QTemporaryDir m_dir;
    TunerView* m_view = nullptr;
    QList<QSignalSpy*> m_spies;
    ContextTranslator m_translator;
};

void tst_TunerView::init()
{
    QVERIFY(m_dir.isValid());
    makeView();
}

void tst_TunerView::cleanup()
{
    QCoreApplication::removeTranslator(&m_translator);
    qDeleteAll(m_spies);
    m_spies.clear();
    delete m_view;
    m_view = nullptr;
}

void tst_TunerView::makeView(const Host& host, int presetCount)
{
    cleanup();
    resetHost(m_dir, host);
    m_view = ViewFixture::makeView(presetCount);
    for (const char* signal : {SIGNAL(sigRadioFreqParamChanged(bool, float, float, float)),
                               SIGNAL(sigFreqFromRadioSlider(unsigned short)), SIGNAL(sigReqShowStandby()),
                               SIGNAL(sigReqExitStandby()), SIGNAL(sigOnPowerBtnClicked(QString)),
                               SIGNAL(sigAFStatusChange(QString, bool)), SIGNAL(sigTAStatusChange(QString, bool)),
                               SIGNAL(sigRegStatusChange(QString, bool)), SIGNAL(sigScanStatusChange(QString, bool)),
                               SIGNAL(sigLocStatusChange(QString, bool)), SIGNAL(sigPTYSeekClicked(QString))})
        m_spies << new QSignalSpy(m_view, signal);
}

// One step of a screen script: the controller's display calls, touches,
// timers running out and host events.
void tst_TunerView::run(const QString& op, const QString& arg)
{
    const int n = arg.toInt();
    const auto u8 = static_cast<unsigned char>(n);
    QByteArray bytes = QByteArray::fromPercentEncoding(arg.toLatin1()) + QByteArray(64, '\0');
    auto* data = reinterpret_cast<unsigned char*>(bytes.data());
    const QPoint spot(5, 5);
    if (op == QLatin1String("freq")) m_view->Tuner_UI_Freq(arg.toUInt());
    else if (op == QLatin1String("band")) m_view->Tuner_UI_CurBand(u8);
    else if (op == QLatin1String("region")) m_view->SetRadioRegion(n);
    else if (op == QLatin1String("param")) m_view->checkFreqParam(u8);
    else if (op == QLatin1String("pointer")) emit m_view->sigRadioCurFreqChanged(arg.toFloat());
    else if (op == QLatin1String("drag")) emit find<MRadioSlider>(m_view, QStringLiteral("radioSlider"))->freqChangedSgl(arg.toFloat());
    else if (op == QLatin1String("dx")) m_view->Tuner_UI_DxLoc(u8, 0);
    else if (op == QLatin1String("st")) m_view->SetStDisp(u8);
    else if (op == QLatin1String("start")) m_view->StartAsPsDisp(u8);
    else if (op == QLatin1String("stop")) m_view->StopAsPsDisp();
    else if (op == QLatin1String("search")) m_view->Tuner_UI_ASPSState(u8, 0);
    else if (op == QLatin1String("preset")) m_view->Tuner_UI_CurPreset(u8);
    else if (op == QLatin1String("pty")) m_view->PTYDisp(arg.toUInt());
    else if (op == QLatin1String("psname")) m_view->PSDisp(data);
    else if (op == QLatin1String("rt")) m_view->RTDisp(data);
    else if (op == QLatin1String("af")) m_view->AFStatusDisp(n);
    else if (op == QLatin1String("tatp")) m_view->TATPStatusDisp(arg.at(0) == QLatin1Char('1'), arg.at(1) == QLatin1Char('1'), arg.at(2) == QLatin1Char('1'));
    else if (op == QLatin1String("clear")) m_view->ClearRDSDisp();
    else if (op == QLatin1String("hide")) find(m_view, arg)->hide();
    else if (op == QLatin1String("down")) button(m_view, arg)->setIsDown(true);
    else if (op == QLatin1String("write")) find<HvRollingText>(m_view, arg)->setText(QStringLiteral("X"));
    else if (op == QLatin1String("fire")) QVERIFY2(ObjectTimers::fire(m_view, n), qPrintable(arg));
    else if (op == QLatin1String("show")) m_view->show();
    else if (op == QLatin1String("press")) QTest::mousePress(m_view, Qt::LeftButton, {}, spot);
    else if (op == QLatin1String("release")) QTest::mouseRelease(m_view, Qt::LeftButton, {}, spot);
    else if (op == QLatin1String("keydown")) QTest::keyPress(m_view, Qt::Key_A);
    else if (op == QLatin1String("keyup")) QTest::keyRelease(m_view, Qt::Key_A);
    else if (op == QLatin1String("standbystop")) m_view->stopStandbyTimetSlot();
    else if (op == QLatin1String("standbyreset")) m_view->resetStandbyTimetSlot();
    else if (op == QLatin1String("standbyexit")) m_view->reqExitStandbySlot();
    else if (op == QLatin1String("power")) m_view->OnPowerBtnClicked(arg);
    else if (op == QLatin1String("click")) QTest::mouseClick(button(m_view, arg), Qt::LeftButton, {}, QPoint(5, 5));
    else if (op == QLatin1String("info")) m_view->InfoBtnClicked(QString());
    else if (op == QLatin1String("list")) m_view->PresetListBtnClicked(QString());
    else if (op == QLatin1String("scale")) m_view->ScaleBtnClicked(QString());
    else if (op == QLatin1String("touch")) QTest::mouseClick(find(m_view, arg), Qt::LeftButton, {}, QPoint(20, 20));
    else if (op == QLatin1String("locslot")) find<RadioSetting>(m_view, QStringLiteral("RadioSettingForm"))->LocStatusChangeSlot(arg);
    else if (op == QLatin1String("switchable")) find<RadioSetting>(m_view, QStringLiteral("RadioSettingForm"))->updateButtonStates(n);
    else if (op == QLatin1String("ptyseek")) emit find<RadioSetting>(m_view, QStringLiteral("RadioSettingForm"))->sigPTYSeekBtnClicked(arg);
    else if (op == QLatin1String("setting")) {
        m_view->AFStatusSetting(arg.contains(QLatin1Char('a')));
        m_view->TAStatusSetting(arg.contains(QLatin1Char('t')));
        m_view->REGStatusSetting(arg.contains(QLatin1Char('r')));
        m_view->ScanTypeSetting(arg.contains(QLatin1Char('s')));
    }
    else if (op == QLatin1String("language")) {
        QEvent e(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_view, &e);
    }
    else if (op == QLatin1String("platformappears")) PlatformControl::createInstance()->setHardMute(true);
    else if (op == QLatin1String("wallpaper")) AppData::GetInstance()->setWallPaperPath(writeImage(m_dir, arg + QStringLiteral(".png"), QColor(arg)));
    else if (op == QLatin1String("event")) {
        QEvent e(arg == QLatin1String("wallpaper") ? static_cast<QEvent::Type>(WallPaperChange) : QEvent::User);
        QCoreApplication::sendEvent(m_view, &e);
    }
    else if (op == QLatin1String("translated")) QCoreApplication::installTranslator(&m_translator);
    else if (op == QLatin1String("destroy")) { delete m_view; m_view = nullptr; }
    else QFAIL(qPrintable(QStringLiteral("unknown step ") + op));
}

// "Name" is a widget's text, "Name.attribute" one of its properties or
// "shown"/"colour"; "timer" the running object timers of the view by
// interval, "signal" the arguments of the spied signal's last emission
// and its count; "mute"/"hardmute" the host's audio and hard mute.
QString tst_TunerView::observe(const QString& what, const QString& attribute)
{
    if (what == QLatin1String("mute"))
        return QString::number(AudioControl::getInstance()->isMute());
    if (what == QLatin1String("hardmute"))
        return QString::number(PlatformControl::getInstance()->isHardMute());
    if (what == QLatin1String("homeBg"))
        return BaseControl::getInstance()->getBackupPixmap(what)->toImage().pixelColor(1, 1).name();
    if (what == QLatin1String("timer"))
        return QString::number(ObjectTimers::isRunning(m_view, attribute.toInt()));
    if (what == QLatin1String("presets")) {
        QString bits;
        for (int i = 1; i <= 6; ++i)
            bits += button(m_view, QStringLiteral("PS%1").arg(i))->property(attribute.toLatin1()).toBool() ? '1' : '0';
        return bits;
    }
    for (QSignalSpy* spy : m_spies) {
        const QByteArray signal = spy->signal();
        if (signal.mid(signal.startsWith('2') ? 1 : 0).startsWith(what.toLatin1() + '(')) {
            QStringList args;
            for (const QVariant& v : spy->isEmpty() ? QList<QVariant>() : spy->last())
                args << (v.userType() == QMetaType::Float ? QString::number(v.toFloat()) : v.toString());
            return QStringLiteral("%1:%2").arg(spy->count()).arg(args.join(QLatin1Char(',')));
        }
    }
    QWidget* w = find(m_view, what);
    if (!w)
        return QStringLiteral("<no ") + what + QLatin1Char('>');
    if (attribute == QLatin1String("shown"))
        return QString::number(!w->isHidden());
    if (attribute == QLatin1String("visible"))
        return QString::number(w->isVisible());
    if (attribute == QLatin1String("colour"))
        return textColour(w).name();
    if (attribute == QLatin1String("pixel"))
        return pixelOf(qobject_cast<QLabel*>(w)).name();
    if (!attribute.isEmpty())
        return w->property(attribute.toLatin1()).toString();
    const QVariant text = w->property("displayText");
    return text.isValid() ? text.toString() : w->property("text").toString();
}

void tst_TunerView::screen_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected");

    auto row = [](const char* name, const char* host, const char* steps, const char* expected) {
        QTest::newRow(name) << QString::fromLatin1(host) << QString::fromLatin1(steps) << QString::fromUtf8(expected);
    };
    // Frequency and unit.
    row("87.50 after AM", "", "freq:1999 freq:8750", "FreqDisp=87.50 MKHz=MHz");
    row("100.05", "", "freq:10005", "FreqDisp=100.05");
    row("lowest fm", "", "freq:2000", "FreqDisp=20.00 MKHz=MHz");
    row("highest am", "", "freq:1999", "FreqDisp=1999 MKHz=kHz");
    row("zero", "", "freq:0", "FreqDisp=0 MKHz=kHz");
    // Band name and the two halves of the band switch.
    row("FM1", "", "band:3 band:0", "BandName=FM1 FMicon=FM1 AMicon=AM1 BandSwitch.isDown=false");
    row("FM2", "", "band:4 band:1", "BandName=FM2 FMicon=FM2 AMicon=AM2 BandSwitch.isDown=false");
    row("AM1", "", "band:1 band:3", "BandName=AM1 FMicon=FM2 AMicon=AM1 BandSwitch.isDown=true");
    row("AM2 then FM3 keeps AM2", "", "band:4 band:2", "BandName=FM3 AMicon=AM2");
    row("unknown band", "", "band:4 down:AMicon band:7",
        "BandName=FM1 FMicon=FM1 FMicon.isDown=true AMicon.isDown=false BandSwitch.isDown=true");
    // The scale takes the band's range from the region table.
    row("region 12 FM", "", "param:0", "sigRadioFreqParamChanged=1:true,87.5,108,0.05 radioSlider.isFM=true");
    row("region 12 AM", "", "param:3", "sigRadioFreqParamChanged=1:false,531,1629,1 radioSlider.isFM=false");
    row("9 kHz AM steps 1", "", "region:4 param:4", "sigRadioFreqParamChanged=1:false,522,1629,1");
    row("region 1 FM3", "", "region:1 param:2", "sigRadioFreqParamChanged=1:true,87.5,107.9,0.2");
    row("region alone emits nothing", "", "region:9", "sigRadioFreqParamChanged=0:");
    row("region 9 FM2", "", "region:9 param:1", "sigRadioFreqParamChanged=1:true,65,74,0.03");
    row("pointer", "", "param:0 pointer:9810", "radioSlider.curFreq=9810");
    // A drag on the scale asks for its frequency, truncated to 16 bits.
    row("drag", "", "drag:8750", "sigFreqFromRadioSlider=1:8750");
    row("drag truncates", "", "drag:9809.99", "sigFreqFromRadioSlider=1:9809");
    row("drag negative", "", "drag:-3", "sigFreqFromRadioSlider=1:0");
    row("drag wraps", "", "drag:65537.5", "sigFreqFromRadioSlider=1:1");
    row("drag restarts standby", "", "show standbystop drag:9000", "timer:15000=1");
    // DX/LOC both ways, with the settings page's switch.
    row("DX", "", "dx:0", "DX_LOC=DX LocOnOff.onoffStatus=false");
    row("LOC", "", "dx:5", "DX_LOC=LOC LocOnOff.onoffStatus=true");
    row("LOC back to DX", "", "dx:1 dx:0", "DX_LOC=DX LocOnOff.onoffStatus=false");
    // Stereo.
    row("stereo", "", "st:1", "STDispLabel=ST");
    row("mono", "", "st:1 st:0", "STDispLabel=");
    row("language change shows ST", "", "st:0 language", "STDispLabel=ST");
    // AS/PS indicator, its blink and the auto search mute.
    row("AS", "", "start:0", "AS_PS_DispLabel=AS timer:1000=1");
    row("PS", "", "start:1", "AS_PS_DispLabel=PS");
    row("dark phase", "", "start:0 fire:1000", "AS_PS_DispLabel= timer:1000=1");
    row("lit again", "", "start:0 fire:1000 fire:1000", "AS_PS_DispLabel=AS");
    row("PS at once", "", "start:0 fire:1000 start:1", "AS_PS_DispLabel=PS timer:1000=1");
    row("stopped in dark phase", "", "start:0 fire:1000 stop", "AS_PS_DispLabel= timer:1000=0");
    row("auto search mutes", "", "start:0 search:1", "mute=1 AutoSearch.isDown=true");
    row("search ends, mute kept", "", "start:0 search:1 search:0", "mute=1 AutoSearch.isDown=false");
    row("stop unmutes", "", "start:0 search:1 search:1 stop", "mute=0 AS_PS_DispLabel= timer:1000=0");
    row("user mute left alone", "usermute", "start:0 search:1 stop", "mute=1");
    row("no audio control", "noaudio", "start:0 search:1 stop", "AutoSearch.isDown=true AS_PS_DispLabel=");
    row("destroyed while muted", "", "start:0 search:1 destroy", "mute=0");
    row("language change in dark phase", "", "start:0 fire:1000 language", "AS_PS_DispLabel=AS");
    row("language change PS", "", "start:1 fire:1000 language", "AS_PS_DispLabel=PS");
    row("language change, no blink", "", "language", "AS_PS_DispLabel=");
    row("language change after the blink", "", "start:0 stop language", "AS_PS_DispLabel=");
    // The current preset's button is pressed and locked; the lock stays.
    row("PS1", "", "preset:1", "presets.isDown=100000 presets.isLock=100000");
    row("PS6", "", "preset:6", "presets.isDown=000001 presets.isLock=000001");
    row("lock stays", "", "preset:2 preset:5", "presets.isDown=000010 presets.isLock=010010");
    row("none releases all", "", "preset:3 preset:0", "presets.isDown=000000 presets.isLock=001000");
    row("7 changes nothing", "", "preset:4 preset:7", "presets.isDown=000100 presets.isLock=000100");
    // Programme type: every name, letter by letter.
    for (uint code = 0; code < 32; ++code) {
        QTest::addRow("pty %u %s", code, PtyNames[code])
            << QString() << QStringLiteral("pty:1 hide:PTYDisp pty:%1").arg(code)
            << QStringLiteral("PTYDisp=%1 PTYDisp.shown=1").arg(QString::fromLatin1(PtyNames[code]).replace(' ', "%20"));
    }
    row("pty translated", "", "translated pty:31", "PTYDisp=QObject|Alarm");
    row("pty 32 changes nothing", "", "pty:1 hide:PTYDisp pty:32", "PTYDisp=News PTYDisp.shown=0");
    // Programme service name: eight bytes, filtered, not trimmed.
    row("ps", "", "hide:PSDisp psname:RADIO%201%20", "PSDisp=RADIO%201%20 PSDisp.shown=1");
    row("ps zero bytes", "", "psname:%00%00%00%00%00%00%00%00", "PSDisp=%20%20%20%20%20%20%20%20");
    row("ps filter", "", "psname:AB~CD%E9z{", "PSDisp=AB%20CD%20z%20");
    row("ps eight bytes only", "", "psname:ABCDEFGHIJ", "PSDisp=ABCDEFGH");
    // Radio text: set only when it changes; a clear does not forget it.
    row("rt", "", "hide:RTDisp rt:Hello", "RTDisp=Hello RTDisp.shown=0");
    row("rt utf-8", "", "rt:%C3%A4%C3%B6", "RTDisp=äö");
    row("rt repeat not set again", "", "rt:Hello write:RTDisp rt:Hello", "RTDisp=X");
    row("rt new text", "", "rt:Hello write:RTDisp rt:World", "RTDisp=World");
    row("rt same after clear stays away", "", "rt:Hello clear rt:Hello", "RTDisp=");
    row("rt different after clear", "", "rt:Hello clear rt:World", "RTDisp=World");
    // AF, TA and TP indicators.
    row("indicators hidden at start", "", "", "AFDisp.shown=0 TADisp.shown=0 TPDisp.shown=0");
    row("AF on", "", "af:1", "AFDisp.colour=#ffffff AFDisp.shown=1 TADisp.shown=0");
    row("AF off", "", "af:0", "AFDisp.colour=#808080 AFDisp.shown=1");
    row("TA off", "", "tatp:011", "TADisp.colour=#808080 TPDisp.colour=#808080 TADisp.shown=1 TPDisp.shown=1");
    row("TA on", "", "tatp:100", "TADisp.colour=#ffffff TPDisp.colour=#ffffff AFDisp.shown=0");
    row("TP flagged", "", "tatp:101", "TADisp.colour=#ffffff TPDisp.colour=#ff8000");
    row("TA flagged", "", "tatp:110", "TADisp.colour=#ff8000 TPDisp.colour=#ffffff");
    row("clear", "", "af:1 tatp:111 pty:3 psname:RADIO rt:Hi clear",
        "AFDisp.shown=0 TADisp.shown=0 TPDisp.shown=0 PTYDisp= PSDisp= RTDisp=");
    // Standby countdown.
    row("standby idle while hidden", "", "", "timer:15000=0");
    row("standby counts when shown", "", "show", "timer:15000=1 sigReqShowStandby=0:");
    row("standby runs out once", "", "show fire:15000", "timer:15000=0 sigReqShowStandby=1:");
    row("finger down holds it", "", "show press", "timer:15000=0");
    row("finger up restarts", "", "show press release", "timer:15000=1");
    row("key down alone", "", "show keydown", "timer:15000=0");
    row("key up restarts", "", "show keydown keyup", "timer:15000=1");
    row("standby stopped", "", "show standbystop", "timer:15000=0");
    row("standby restarted", "", "standbyreset", "timer:15000=1");
    row("leaving standby", "", "show fire:15000 standbyexit", "timer:15000=1 sigReqExitStandby=1:");
    row("power button", "", "power:pwr", "sigOnPowerBtnClicked=1:pwr");
    // Start-up hard mute.
    row("hard mute at start", "", "", "hardmute=1 timer:2000=1");
    row("released after 2 s", "", "fire:2000", "hardmute=0 timer:2000=0");
    row("kept under a user mute", "usermute", "fire:2000", "hardmute=1 timer:2000=0");
    row("kept without audio control", "noaudio", "fire:2000", "hardmute=1");
    row("released when destroyed early", "", "destroy", "hardmute=0");
    row("kept when destroyed under a user mute", "usermute", "destroy", "hardmute=1");
    row("no platform at start", "noplatform", "platformappears fire:2000", "hardmute=1");
    // A wallpaper change replaces the background, not the host's cached copy.
    row("other event keeps the background", "", "wallpaper:blue event:user", "bkg.pixel=#000080");
    row("wallpaper change", "", "wallpaper:blue event:wallpaper", "bkg.pixel=#0000ff homeBg=#000080");
    // Settings page: toggled by the setup button, closed by the rest.
    row("page hidden at start", "", "show", "RadioSettingForm.visible=0");
    row("setup opens", "", "show click:setupBtn", "RadioSettingForm.visible=1");
    row("setup closes", "", "show click:setupBtn click:setupBtn", "RadioSettingForm.visible=0");
    row("page back button", "", "show click:setupBtn click:setup_close", "RadioSettingForm.visible=0");
    row("info closes", "", "show click:setupBtn info", "RadioSettingForm.visible=0");
    row("preset list closes", "", "show click:setupBtn list", "RadioSettingForm.visible=0");
    row("scale closes", "", "show click:setupBtn scale", "RadioSettingForm.visible=0");
    row("info while hidden", "", "show info", "RadioSettingForm.visible=0");
    // The page's switches are relayed and set through the view.
    row("AF touched", "", "show click:setupBtn touch:AFBtn", "sigAFStatusChange=1:AFBtn,true AFBtn.onoffStatus=true");
    row("TA touched", "", "show click:setupBtn touch:TABtn", "sigTAStatusChange=1:TABtn,true");
    row("REG touched", "", "show click:setupBtn touch:RegBtn", "sigRegStatusChange=1:RegBtn,true");
    row("scan touched below the page", "", "show click:setupBtn touch:ScanBtn", "sigScanStatusChange=1:ScanBtn,true");
    row("LOC touched", "", "show click:setupBtn touch:LocOnOff touch:LocOnOff", "sigLocStatusChange=2:LocOnOff,false");
    row("PTY seek relayed", "", "ptyseek:PTYSeekBtn", "sigPTYSeekClicked=1:PTYSeekBtn");
    row("DX/LOC toggle needs its label", "", "locslot:x locslot:x", "sigLocStatusChange=0: LocOnOff.onoffStatus=false");
    row("DX/LOC toggle to LOC", "dxlabel", "locslot:x", "sigLocStatusChange=1:x,true loc_dx_disp_label=LOC");
    row("DX/LOC toggle back to DX", "dxlabel", "locslot:x locslot:y", "sigLocStatusChange=2:y,false loc_dx_disp_label=DX");
    row("LOC from the tuner on the label", "dxlabel", "dx:1", "loc_dx_disp_label=LOC");
    row("DX from the tuner on the label", "dxlabel", "dx:1 dx:0", "loc_dx_disp_label=DX");
    row("settings on", "", "setting:atrs",
        "AFBtn.onoffStatus=true TABtn.onoffStatus=true RegBtn.onoffStatus=true ScanBtn.onoffStatus=true");
    row("page follows the language", "", "translated language", "RadioSettingForm.windowTitle=RadioSettingForm|Form");
    row("host greys the switches out", "", "switchable:0",
        "AFBtn.btnDisable=true TABtn.btnDisable=true RegBtn.btnDisable=true ScanBtn.btnDisable=true LocOnOff.btnDisable=true");
    row("settings off", "", "setting:atrs setting:",
        "AFBtn.onoffStatus=false TABtn.onoffStatus=false RegBtn.onoffStatus=false ScanBtn.onoffStatus=false");
}

void tst_TunerView::screen()
{
    QFETCH(QString, host);
    QFETCH(QString, steps);
    QFETCH(QString, expected);
    DxLabelAdder dxLabel;
    if (host == QLatin1String("dxlabel"))
        qApp->installEventFilter(&dxLabel);
    if (!host.isEmpty())
        makeView({host != QLatin1String("noplatform"), host != QLatin1String("noaudio"), host == QLatin1String("usermute")});
    qApp->removeEventFilter(&dxLabel);
    if (steps.startsWith(QLatin1String("pty:")))
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("^========================pty: \\d+$")));
    for (const QString& step : steps.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        run(step.section(QLatin1Char(':'), 0, 0), step.section(QLatin1Char(':'), 1));
        if (QTest::currentTestFailed())
            return;
    }
    for (const QString& check : expected.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString key = check.section(QLatin1Char('='), 0, 0);
        const QString value = QString::fromUtf8(QByteArray::fromPercentEncoding(check.section(QLatin1Char('='), 1).toUtf8()));
        if (!m_view && key != QLatin1String("mute") && key != QLatin1String("hardmute"))
            QFAIL("the view is gone");
        const QString what = key.section(QLatin1Char('.'), 0, 0).section(QLatin1Char(':'), 0, 0);
        const QString attribute = key.section(QRegularExpression(QStringLiteral("[.:]")), 1);
        const QString actual = key + QLatin1Char('=') + observe(what, attribute);
        QCOMPARE(actual, key + QLatin1Char('=') + value);
    }
}

void tst_TunerView::presets_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("listBand");  // -1: the main screen's six keys, else an 18-key list of that band
    QTest::addColumn<QList<int>>("freqs");
    QTest::addColumn<QByteArray>("names");
    QTest::addColumn<QStringList>("labels");

    const QByteArray blank = fields({"", "", "", "", "", ""});
    QTest::newRow("frequencies") << 6 << -1 << QList<int>{8750, 531, 2000, 1999, 0, 10510} << blank
                                 << QStringList{"87.50 MHz", "531 kHz", "20.00 MHz", "1999 kHz", "0 kHz", "105.10 MHz"};
    QTest::newRow("names") << 6 << -1 << QList<int>{8750, 9010, 9810, 10610, 10800, 8750}
                           << fields({QByteArray("ABC\0\0\0\0\0", 8), "  ABC   ", QByteArray(8, '\0'), "!ROCK FM",
                                      "ABCDEFGH", "az{|}~\x7f\xe9"})
                           << QStringList{"ABC", "ABC", "98.10 MHz", "!ROCK FM", "ABCDEFGH", "az"};
    QTest::newRow("filtered bytes") << 6 << -1 << QList<int>{8750, 9010, 9810, 10610, 10800, 531}
                                    << fields({"\x1f" "A B\x1f", "a\x80\xff" "b", " ", "Z{Z", "\x01\x02", "{|}~\x7f\x80\xff\x01"})
                                    << QStringList{"A B", "a  b", "98.10 MHz", "Z Z", "108.00 MHz", "531 kHz"};
    QTest::newRow("layout lacks PS5 and PS6") << 4 << -1 << QList<int>{9010, 9010, 9010, 9010, 9010, 9010} << blank
                                              << QStringList{"90.10 MHz", "90.10 MHz", "90.10 MHz", "90.10 MHz",
                                                             "108.00 MHz", "87.50 MHz"};
    // The list takes FM from entries 0-17, AM from 18-29; its last six AM keys
    // stay empty; a 19th key is not the list's.
    QList<int> all;
    for (int i = 0; i < 36; ++i)
        all << (i < 6 ? QList<int>{8750, 531, 2000, 1999, 0, 10510}.at(i) : i < 18 ? 9000 + i : 1000 + i);
    QTest::newRow("fm list") << 19 << 2 << all << blank
                             << QStringList{"87.50", "531", "20.00", "1999", "0", "105.10", "90.06", "90.07", "90.08", "90.09",
                                            "90.10", "90.11", "90.12", "90.13", "90.14", "90.15", "90.16", "90.17", ""};
    QTest::newRow("am list") << 18 << 3 << all << blank
                             << QStringList{"1018", "1019", "1020", "1021", "1022", "1023", "1024", "1025", "1026",
                                            "1027", "1028", "1029", "", "", "", "", "", ""};
}

void tst_TunerView::presets()
{
    QFETCH(int, count);
    QFETCH(int, listBand);
    QFETCH(QList<int>, freqs);
    QFETCH(QByteArray, names);
    QFETCH(QStringList, labels);
    makeView(Host(), count);
    unsigned short f[36] = {};
    for (int i = 0; i < freqs.size(); ++i)
        f[i] = static_cast<unsigned short>(freqs.at(i));
    names += QByteArray(30 * 8, 'Q');
    dirtyStack();
    if (listBand < 0)
        m_view->Tuner_UI_PresetDisp(f, reinterpret_cast<unsigned char*>(names.data()), 0);
    else
        m_view->Tuner_UI_PresetListDisp(listBand, f, nullptr);
    for (int i = 0; i < labels.size(); ++i)
        QCOMPARE(button(m_view, QStringLiteral("PS%1").arg(i + 1))->displayText(), labels.at(i));
    // Marking the current preset leaves the keys after the sixth alone.
    HvIconButton* last = button(m_view, QStringLiteral("PS%1").arg(qMin(count, 7)));
    last->setIsDown(true);
    m_view->Tuner_UI_CurPreset(1);
    QCOMPARE(last->isDown(), count > 6);
}

void tst_TunerView::background_data()
{
    QTest::addColumn<QString>("appPath");  // colour names of image files, empty for none
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("factory");
    QTest::addColumn<QString>("cached");
    QTest::addColumn<QString>("shown");  // colour, or empty for the built-in image
    QTest::addColumn<QString>("pathAfter");
    QTest::newRow("host path") << "red" << "blue" << "" << "" << "red" << "red";
    QTest::newRow("stored setting") << "" << "blue" << "green" << "" << "blue" << "blue";
    QTest::newRow("factory default") << "" << "" << "green" << "" << "green" << "green";
    QTest::newRow("built-in") << "" << "" << "" << "" << "" << "";
    QTest::newRow("host cache wins") << "red" << "" << "" << "yellow" << "yellow" << "red";
}

void tst_TunerView::background()
{
    QFETCH(QString, cached);
    QFETCH(QString, shown);
    QFETCH(QString, pathAfter);
    auto file = [this](const QString& colour) {
        return colour.isEmpty() ? QString() : writeImage(m_dir, colour + QStringLiteral(".png"), QColor(colour));
    };
    cleanup();
    resetHost(m_dir);
    QFETCH(QString, appPath);
    QFETCH(QString, stored);
    AppData::GetInstance()->setWallPaperPath(file(appPath));
    QFETCH(QString, factory);
    if (!stored.isEmpty())
        DataSaveControl::saveSettingData(SetupStrIdConst::setupWallPaper, file(stored), QString());
    DataDefault::setDefault(SetupStrIdConst::setupWallPaper, file(factory));
    if (!cached.isEmpty())
        BaseControl::getInstance()->setBackupPixmap(QSharedPointer<QPixmap>::create(file(cached)), QStringLiteral("homeBg"));
    m_view = ViewFixture::makeView();

    const QString builtin = QStringLiteral(":/images/wallpaper/default.jpg");
    const QString path = AppData::GetInstance()->wallPaperPath();
    QCOMPARE(path, pathAfter.isEmpty() ? builtin : file(pathAfter));
    const QImage image(builtin);
    QVERIFY(!image.isNull());
    const QColor expected = shown.isEmpty() ? image.pixelColor(image.width() / 2, image.height() / 2) : QColor(shown);
    QCOMPARE(pixelOf(label(m_view, "bkg")), expected);
}

void tst_TunerView::temperature_data()
{
    QTest::addColumn<bool>("celsius");
    QTest::addColumn<float>("reading");
    QTest::addColumn<QString>("shown");
    QTest::newRow("celsius") << true << 21.46f << QString::fromUtf8("21.5\u00b0C");
    QTest::newRow("fahrenheit") << false << 20.0f << QString::fromUtf8("68.0\u00b0F");
    QTest::newRow("no reading C") << true << -257.0f << QString::fromUtf8("---\u00b0C");
    QTest::newRow("no reading F") << false << -257.0f << QString::fromUtf8("---\u00b0F");
    QTest::newRow("just above no reading") << true << -256.9f << QString::fromUtf8("-256.9\u00b0C");
}

// The bottom strip: a close-screen key and a temperature read-out.
void tst_TunerView::temperature()
{
    QFETCH(bool, celsius);
    QFETCH(float, reading);
    DataSaveControl::saveSettingData(SetupStrIdConst::setupTemperature, celsius, QString());
    AppData::GetInstance()->setCurTemperature(reading);
    m_view->InitBottomWidget();
    const QList<HvIconButton*> own = m_view->findChildren<HvIconButton*>(QString(), Qt::FindDirectChildrenOnly);
    HvIconButton* close = own.at(own.size() - 2);
    HvIconButton* temper = own.last();
    QCOMPARE(close->geometry(), QRect(925, 534, 90, 66));
    QCOMPARE(close->buttonID(), QStringLiteral("closescreen_ID"));
    QCOMPARE(close->normalImage() + close->pressImage(), QStringLiteral(":/images/closeScreen.png:/images/closeScreen.png"));
    QCOMPARE(temper->geometry(), QRect(0, 535, 111, 60));
    QCOMPARE(temper->fontSize(), 30);
    QVERIFY(temper->disableState());
    QCOMPARE(temper->disableTextColor(), QColor(Qt::white));
    QTEST(temper->displayText(), "shown");
}

QTEST_MAIN(tst_TunerView)
#include "tst_tunerview.moc"
