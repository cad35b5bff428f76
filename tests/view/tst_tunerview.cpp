#include "LayoutTamper.h"
#include "RadioSetting.h"
#include "TunerView.h"

#include "AppData.h"
#include "AudioControl.h"
#include "BaseControl.h"
#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HostEvents.h"
#include "HvIconButton.h"
#include "HvRollingText.h"
#include "MOnOffButton.h"
#include "MRadioSlider.h"
#include "PlatformControl.h"
#include "SetupStrIdConst.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTranslator>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace {

const QString DefaultWallPaper = QStringLiteral(":/images/wallpaper/default.jpg");
const QString Placeholder = QStringLiteral("DSFDFDFDjgjg");  // rolling-text placeholder of the layout
const QColor White(255, 255, 255);
const QColor Grey(128, 128, 128);
const QColor Orange(255, 128, 0);

template <class T>
T* child(QObject& parent, const QString& name)
{
    return parent.findChild<T*>(name);
}

QLabel* label(QObject& view, const char* name) { return child<QLabel>(view, QLatin1String(name)); }
HvIconButton* button(QObject& view, const char* name) { return child<HvIconButton>(view, QLatin1String(name)); }
HvRollingText* rolling(QObject& view, const char* name) { return child<HvRollingText>(view, QLatin1String(name)); }

// What the controller does when it wires the screen.
void wirePresets(TunerView& view)
{
    view.presetButtons().clear();
    for (int i = 1; i <= 6; ++i)
        view.presetButtons().append(button(view, QStringLiteral("PS%1").arg(i).toLatin1().constData()));
}

QColor textColour(const QLabel* l)
{
    return l->palette().color(QPalette::WindowText);
}

QByteArray bytes8(const char* s, int len = -1)
{
    QByteArray b(s, len < 0 ? int(qstrlen(s)) : len);
    return b.leftJustified(8, ' ', true);
}

void click(QWidget* w)
{
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
}

void sendLanguageChange(QWidget* w)
{
    QEvent e(QEvent::LanguageChange);
    QCoreApplication::sendEvent(w, &e);
}

QString writeImage(const QTemporaryDir& dir, const QString& name, QSize size, QColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    const QString path = dir.filePath(name);
    return image.save(path, "PNG") ? path : QString();
}

QSize bkgSize(TunerView& view)
{
    return label(view, "bkg")->pixmap(Qt::ReturnByValue).size();
}

// Starts the AS/PS indicator with a short blink period; returns it.
QLabel* startFastBlink(TunerView& view, int isPS)
{
    TunerView::s_asPsBlinkMs = 20;
    view.StartAsPsDisp(static_cast<unsigned char>(isPS));
    return label(view, "AS_PS_DispLabel");
}

// Shows a band and frequency as the controller does, scale included.
void tuneTo(TunerView& view, unsigned char band, uint freq, unsigned char dxLoc)
{
    view.Tuner_UI_CurBand(band);
    view.checkFreqParam(band);
    view.Tuner_UI_Freq(freq);
    emit view.sigRadioCurFreqChanged(float(freq));
    view.Tuner_UI_DxLoc(dxLoc, band);
}

// Writes a render to $RADIO_TEST_OUTPUT/<fileName>; returns the path, or
// an empty one when it could not be written.
QString saveRender(const QImage& image, const QString& fileName)
{
    const QString dir = qEnvironmentVariable("RADIO_TEST_OUTPUT");
    const QString path = QDir(dir).filePath(fileName);
    return QDir().mkpath(dir) && image.save(path, "PNG") ? path : QString();
}

// The audio situations that decide whether the view mutes by itself:
// "ownMute" is set where the radio is heard, so that a mute the view takes
// matters and is given back.
void addAudioRows()
{
    QTest::addColumn<bool>("audio");
    QTest::addColumn<bool>("userMute");
    QTest::addColumn<bool>("ownMute");
    QTest::newRow("audio playing") << true << false << true;
    QTest::newRow("user muted") << true << true << false;
    QTest::newRow("no audio control") << false << false << false;
}

// Sets the audio control up as a row of addAudioRows() describes it.
void setUpAudio(bool audio, bool userMute)
{
    if (!audio)
        AudioControl::destroyInstance();
    else if (userMute)
        AudioControl::getInstance()->setMute(true, true);
}

// Starts the standby countdown and waits for it to run out; false when it
// did not within QTRY's usual five seconds.
bool standbyRunsOut(TunerView& view)
{
    QSignalSpy standby(&view, &TunerView::sigReqShowStandby);
    view.resetStandbyTimetSlot();
    return QTest::qWaitFor([&standby] { return standby.count() == 1; });
}

// Translates the programme-type names in the context they are looked up in.
class PtyTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        if (qstrcmp(context, "QObject") == 0 && qstrcmp(source, "News") == 0)
            return QStringLiteral("Nachrichten");
        return QString();
    }
};

// One CSV record, with quoted fields.
QStringList splitCsv(const QString& line)
{
    QStringList fields;
    QString field;
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < line.size() && line.at(i + 1) == QLatin1Char('"')) {
                field += c;
                ++i;
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char(',')) {
            fields << field;
            field.clear();
        } else {
            field += c;
        }
    }
    fields << field;
    return fields;
}

enum EventKind { MousePress, MouseRelease, KeyPress, KeyRelease, MouseMove, Enter };

std::unique_ptr<QEvent> makeEvent(int kind)
{
    const QPointF at(640, 360);
    switch (kind) {
    case MousePress:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton,
                                             Qt::NoModifier);
    case MouseRelease:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton,
                                             Qt::NoModifier);
    case KeyPress:
        return std::make_unique<QKeyEvent>(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    case KeyRelease:
        return std::make_unique<QKeyEvent>(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    case MouseMove:
        return std::make_unique<QMouseEvent>(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    default:
        return std::make_unique<QEvent>(QEvent::Enter);
    }
}

// One of the view's switch setters.
using SwitchSetter = void (TunerView::*)(bool);

} // namespace

Q_DECLARE_METATYPE(SwitchSetter)

class tst_TunerView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // Construction.
    void constructionState();

    // Frequency, band and scale.
    void frequencyText_data();
    void frequencyText();
    void bandDisplay_data();
    void bandDisplay();
    void curBandEqualsGenerally_data();
    void curBandEqualsGenerally();
    void bandOutOfRange_data();
    void bandOutOfRange();
    void bandHalvesKeepLastBandOfKind();
    void checkFreqParam_data();
    void checkFreqParam();
    void scaleWiring();
    void freqFromRadioSlider_data();
    void freqFromRadioSlider();
    void dxLoc_data();
    void dxLoc();
    void stereo_data();
    void stereo();

    // AS/PS indicator and auto search mute.
    void asPsBlinks_data();
    void asPsBlinks();
    void asPsSwitchShowsAtOnceAndRestarts();
    void stopAsPsClears();
    void autoSearchMute_data();
    void autoSearchMute();
    void autoSearchMuteTakenOnce();
    void autoSearchMuteReleasedByDestructor();
    void autoSearchEndedDoesNotMute();

    // Presets.
    void presetLabel_data();
    void presetLabel();
    void presetOnlyFirstSixEntries();
    void presetShortList();
    void curPreset_data();
    void curPreset();
    void curPresetAboveSixChangesNothing_data();
    void curPresetAboveSixChangesNothing();
    void curPresetShortList();
    void curPresetWithBandChangesNothing();
    void presetListDisp_data();
    void presetListDisp();

    // RDS.
    void psName_data();
    void psName();
    void psReadsEightBytesAndShows();
    void psFromRecordedLineups_data();
    void psFromRecordedLineups();
    void radioTextSetOnlyWhenChanged();
    void radioTextAfterClear();
    void radioTextDecoding_data();
    void radioTextDecoding();
    void radioTextKeepsVisibility();
    void ptyName_data();
    void ptyName();
    void ptyOutOfRangeChangesNothing_data();
    void ptyOutOfRangeChangesNothing();
    void ptyTranslatedInQObjectContext();
    void afColour_data();
    void afColour();
    void tatpColour_data();
    void tatpColour();
    void clearsHideAndEmpty();
    void missingDataKeepsDisplay();

    // Standby, start-up hard mute, events.
    void standbyStartsWhenShown();
    void standbyEvents_data();
    void standbyEvents();
    void standbyPressThenRelease();
    void standbyExpiry();
    void standbySlots();
    void startupHardMute_data();
    void startupHardMute();
    void startupHardMuteWithoutPlatformControl();
    void startupHardMuteReleasedByDestructor_data();
    void startupHardMuteReleasedByDestructor();
    void startupHardMuteNotReleasedAfterTick();
    void languageChangeRestoresAsPs_data();
    void languageChangeRestoresAsPs();
    void languageChangeWithoutBlink();
    void languageChangeShowsStereo();

    // Background.
    void wallpaperSource_data();
    void wallpaperSource();
    void wallpaperCacheUsedNotLoaded();
    void wallpaperLoadedOnceIntoCache();
    void wallpaperChangeEvent();
    void wallpaperWithoutHostServices();

    // Bottom strip.
    void temperature_data();
    void temperature();
    void temperatureWithoutBottomStrip();
    void bottomStrip();

    // Settings page.
    void setupButtonToggles();
    void hidingSlots_data();
    void hidingSlots();
    void settingCloseButtonHidesPage();
    void switchesRelayed_data();
    void switchesRelayed();
    void pageSignalsRelayed();
    void statusSettingForwarded_data();
    void statusSettingForwarded();

    // Layouts that lack optional widgets.
    void absentIndicators();
    void absentRollingTexts();
    void absentAsPsAndStereoLabels();
    void absentSlider();
    void absentSetupButton();
    void powerButtonWhenLayoutHasOne();

    void renderScreen();

private:
    std::unique_ptr<TunerView> makeView();

    int m_muteMs = 0;
    int m_standbyMs = 0;
    int m_blinkMs = 0;
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_TunerView::initTestCase()
{
    m_muteMs = TunerView::s_startupMuteMs;
    m_standbyMs = TunerView::s_standbyMs;
    m_blinkMs = TunerView::s_asPsBlinkMs;
    QCOMPARE(m_muteMs, 2000);
    QCOMPARE(m_standbyMs, 15000);
    QCOMPARE(m_blinkMs, 1000);
}

void tst_TunerView::init()
{
    TunerView::s_startupMuteMs = m_muteMs;
    TunerView::s_standbyMs = m_standbyMs;
    TunerView::s_asPsBlinkMs = m_blinkMs;
    DataDefault::resetDefaults();
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    DataSaveControl::setStoreFile(m_dir->filePath(QStringLiteral("settings.ini")));
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();
}

void tst_TunerView::cleanup()
{
    AppData::destroyInstance();
    BaseControl::destroyInstance();
    AudioControl::destroyInstance();
    PlatformControl::destroyInstance();
    DataSaveControl::setStoreFile(QString());
    DataDefault::resetDefaults();
    m_dir.reset();
}

std::unique_ptr<TunerView> tst_TunerView::makeView()
{
    auto view = std::make_unique<TunerView>();
    wirePresets(*view);
    return view;
}

// ---- Construction ----

void tst_TunerView::constructionState()
{
    QTest::ignoreMessage(QtDebugMsg, "RadioSetting================>created");
    TunerView view;
    QCOMPARE(view.geometry(), QRect(0, 0, 1280, 720));
    RadioSetting* page = view.settingPage();
    QVERIFY(page);
    QCOMPARE(page->parentWidget(), &view);
    QVERIFY(page->isHidden());
    QCOMPARE(page->size(), QSize(450, 720));

    for (const char* name : {"AFDisp", "TADisp", "TPDisp"})
        QVERIFY2(label(view, name)->isHidden(), name);
    for (const char* name : {"PSDisp", "PTYDisp", "RTDisp"})
        QVERIFY2(rolling(view, name)->text().isEmpty(), name);
    QCOMPARE(label(view, "AS_PS_DispLabel")->text(), QString());
    QCOMPARE(label(view, "STDispLabel")->text(), QString());

    // The controller fills the preset list, not the view.
    QVERIFY(view.presetButtons().isEmpty());
    QVERIFY(!view.isAsPsBlinking());
    QVERIFY(!view.isStandbyTimerRunning());
    QVERIFY(!view.holdsAsMute());
    QCOMPARE(int(view.signalLevel()), 0);
    // The layout's placeholders stay until the first updates.
    QCOMPARE(label(view, "FreqDisp")->text(), QStringLiteral("105.10"));
    QCOMPARE(button(view, "PS1")->displayText(), QStringLiteral("87.50 MHz"));
}

// ---- Frequency, band and scale ----

void tst_TunerView::frequencyText_data()
{
    QTest::addColumn<uint>("freq");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("unit");
    QTest::newRow("2000 is FM") << 2000u << "20.00" << "MHz";
    QTest::newRow("1999 is AM") << 1999u << "1999" << "kHz";
    QTest::newRow("0") << 0u << "0" << "kHz";
    QTest::newRow("10005") << 10005u << "100.05" << "MHz";
    QTest::newRow("65535") << 65535u << "655.35" << "MHz";
    QTest::newRow("largest") << 4294967295u << "42949672.95" << "MHz";
}

void tst_TunerView::frequencyText()
{
    QFETCH(uint, freq);
    QFETCH(QString, text);
    QFETCH(QString, unit);
    TunerView view;
    view.Tuner_UI_Freq(freq);
    QCOMPARE(label(view, "FreqDisp")->text(), text);
    QCOMPARE(label(view, "MKHz")->text(), unit);
}

void tst_TunerView::bandDisplay_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fmText");
    QTest::addColumn<QString>("amText");
    QTest::addColumn<bool>("switchDown");
    // From a fresh layout, whose halves read FM1 and AM1.
    QTest::newRow("FM1") << 0 << "FM1" << "FM1" << "AM1" << false;
    QTest::newRow("FM2") << 1 << "FM2" << "FM2" << "AM1" << false;
    QTest::newRow("FM3") << 2 << "FM3" << "FM3" << "AM1" << false;
    QTest::newRow("AM1") << 3 << "AM1" << "FM1" << "AM1" << true;
    QTest::newRow("AM2") << 4 << "AM2" << "FM1" << "AM2" << true;
}

void tst_TunerView::bandDisplay()
{
    QFETCH(int, band);
    QFETCH(QString, name);
    QFETCH(QString, fmText);
    QFETCH(QString, amText);
    QFETCH(bool, switchDown);
    TunerView view;
    // Start from the opposite switch state so that both directions count.
    button(view, "BandSwitch")->setIsDown(!switchDown);
    view.Tuner_UI_CurBand_Generally(static_cast<unsigned char>(band));
    QCOMPARE(label(view, "BandName")->text(), name);
    QCOMPARE(button(view, "FMicon")->displayText(), fmText);
    QCOMPARE(button(view, "AMicon")->displayText(), amText);
    QCOMPARE(button(view, "BandSwitch")->isDown(), switchDown);
    QVERIFY(!button(view, "FMicon")->isDown());
    QVERIFY(!button(view, "AMicon")->isDown());
}

void tst_TunerView::curBandEqualsGenerally_data()
{
    QTest::addColumn<int>("band");
    for (int band : {0, 4, 7})
        QTest::addRow("band %d", band) << band;
}

void tst_TunerView::curBandEqualsGenerally()
{
    QFETCH(int, band);
    TunerView a;
    TunerView b;
    a.Tuner_UI_CurBand(static_cast<unsigned char>(band));
    b.Tuner_UI_CurBand_Generally(static_cast<unsigned char>(band));
    QCOMPARE(label(a, "BandName")->text(), label(b, "BandName")->text());
    for (const char* name : {"FMicon", "AMicon", "BandSwitch"}) {
        QCOMPARE(button(a, name)->displayText(), button(b, name)->displayText());
        QCOMPARE(button(a, name)->isDown(), button(b, name)->isDown());
    }
}

void tst_TunerView::bandOutOfRange_data()
{
    QTest::addColumn<int>("band");
    QTest::newRow("5") << 5;
    QTest::newRow("255") << 255;
}

void tst_TunerView::bandOutOfRange()
{
    QFETCH(int, band);
    TunerView view;
    view.Tuner_UI_CurBand_Generally(4);
    QVERIFY(button(view, "BandSwitch")->isDown());
    button(view, "AMicon")->setIsDown(true);

    view.Tuner_UI_CurBand_Generally(static_cast<unsigned char>(band));
    QCOMPARE(label(view, "BandName")->text(), QStringLiteral("FM1"));
    QCOMPARE(button(view, "FMicon")->displayText(), QStringLiteral("FM1"));
    QVERIFY(button(view, "FMicon")->isDown());
    QVERIFY(!button(view, "AMicon")->isDown());
    QCOMPARE(button(view, "AMicon")->displayText(), QStringLiteral("AM2"));
    // The band switch itself is not touched.
    QVERIFY(button(view, "BandSwitch")->isDown());
}

void tst_TunerView::bandHalvesKeepLastBandOfKind()
{
    TunerView view;
    view.Tuner_UI_CurBand_Generally(4);
    view.Tuner_UI_CurBand_Generally(2);
    QCOMPARE(button(view, "AMicon")->displayText(), QStringLiteral("AM2"));
    QCOMPARE(button(view, "FMicon")->displayText(), QStringLiteral("FM3"));
    QCOMPARE(label(view, "BandName")->text(), QStringLiteral("FM3"));
    QVERIFY(!button(view, "BandSwitch")->isDown());
}

void tst_TunerView::checkFreqParam_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<bool>("isFM");
    QTest::addColumn<float>("min");
    QTest::addColumn<float>("max");
    QTest::addColumn<float>("step");
    QTest::newRow("region 12 FM1") << 12 << 0 << true << 87.5f << 108.0f << 0.05f;
    QTest::newRow("region 12 AM1") << 12 << 3 << false << 531.0f << 1629.0f << 1.0f;
    QTest::newRow("region 0 AM, 10 kHz step") << 0 << 3 << false << 530.0f << 1710.0f << 1.0f;
    QTest::newRow("region 9 FM") << 9 << 2 << true << 65.0f << 74.0f << 0.03f;
    QTest::newRow("band 200 is AM") << 12 << 200 << false << 531.0f << 1629.0f << 1.0f;
    // A region outside the table falls back to region 12.
    QTest::newRow("region 24 FM") << 24 << 0 << true << 87.5f << 108.0f << 0.05f;
    QTest::newRow("region -1 AM") << -1 << 3 << false << 531.0f << 1629.0f << 1.0f;
}

void tst_TunerView::checkFreqParam()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(bool, isFM);
    QFETCH(float, min);
    QFETCH(float, max);
    QFETCH(float, step);
    TunerView view;
    view.SetRadioRegion(region);
    QSignalSpy spy(&view, &TunerView::sigRadioFreqParamChanged);
    view.checkFreqParam(static_cast<unsigned char>(band));
    QCOMPARE(spy.count(), 1);
    const QList<QVariant> args = spy.takeFirst();
    QCOMPARE(args.at(0).toBool(), isFM);
    // Exact: the limits are divided in single precision.
    QCOMPARE(args.at(1).value<float>(), min);
    QCOMPARE(args.at(2).value<float>(), max);
    QCOMPARE(args.at(3).value<float>(), step);
}

void tst_TunerView::scaleWiring()
{
    TunerView view;
    auto* slider = child<MRadioSlider>(view, QStringLiteral("radioSlider"));
    QVERIFY(slider);
    QVERIFY(!slider->isFM());
    view.SetRadioRegion(12);
    view.checkFreqParam(0);
    QVERIFY(slider->isFM());
    QCOMPARE(slider->freqStart(), 87.5f);
    QCOMPARE(slider->freqEnd(), 108.0f);
    QCOMPARE(slider->freqStep(), 0.05f);
    view.checkFreqParam(3);
    QVERIFY(!slider->isFM());
    QCOMPARE(slider->freqStart(), 531.0f);
    QCOMPARE(slider->freqEnd(), 1629.0f);
    QCOMPARE(slider->freqStep(), 1.0f);

    // A region change waits for the next band change.
    view.SetRadioRegion(9);
    QCOMPARE(slider->freqStart(), 531.0f);
    view.checkFreqParam(1);
    QCOMPARE(slider->freqStart(), 65.0f);

    emit view.sigRadioCurFreqChanged(6800.0f);
    QCOMPARE(slider->curFreq(), 6800.0f);
    QSignalSpy sent(&view, &TunerView::sigFreqFromRadioSlider);
    emit slider->freqChangedSgl(9809.99f);
    QCOMPARE(sent.count(), 1);
    QCOMPARE(int(sent.at(0).at(0).value<unsigned short>()), 9809);
}

void tst_TunerView::freqFromRadioSlider_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("sent");
    QTest::newRow("9809.99 truncated") << 9809.99f << 9809;
    QTest::newRow("0") << 0.0f << 0;
    QTest::newRow("65535") << 65535.0f << 65535;
    QTest::newRow("65536 wraps") << 65536.0f << 0;
    QTest::newRow("65537.5 wraps") << 65537.5f << 1;
    QTest::newRow("-1") << -1.0f << 0;
    QTest::newRow("NaN") << std::numeric_limits<float>::quiet_NaN() << 0;
    QTest::newRow("+inf") << std::numeric_limits<float>::infinity() << 0;
}

void tst_TunerView::freqFromRadioSlider()
{
    QFETCH(float, value);
    QFETCH(int, sent);
    TunerView view;
    QSignalSpy spy(&view, &TunerView::sigFreqFromRadioSlider);
    view.stopStandbyTimetSlot();
    view.FreqFromRadioSlider(value);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(int(spy.at(0).at(0).value<unsigned short>()), sent);
    // A move on the scale counts as activity.
    QVERIFY(view.isStandbyTimerRunning());
}

void tst_TunerView::dxLoc_data()
{
    QTest::addColumn<int>("dxLoc");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("loc");
    QTest::newRow("DX") << 0 << 0 << "DX" << false;
    QTest::newRow("LOC 255, AM") << 255 << 3 << "LOC" << true;
}

void tst_TunerView::dxLoc()
{
    QFETCH(int, dxLoc);
    QFETCH(int, band);
    QFETCH(QString, text);
    QFETCH(bool, loc);
    TunerView view;
    auto* locSwitch = child<MOnOffButton>(*view.settingPage(), QStringLiteral("LocOnOff"));
    locSwitch->setOnoffStatus(!loc);
    button(view, "DX_LOC")->setDisplayText(QStringLiteral("?"));
    QSignalSpy request(&view, &TunerView::sigLocStatusChange);
    view.Tuner_UI_DxLoc(static_cast<unsigned char>(dxLoc), static_cast<unsigned char>(band));
    QCOMPARE(button(view, "DX_LOC")->displayText(), text);
    QCOMPARE(locSwitch->onoffStatus(), loc);
    // The tuner's state is shown, not sent back as a request.
    QCOMPARE(request.count(), 0);
}

void tst_TunerView::stereo_data()
{
    QTest::addColumn<int>("stereo");
    QTest::addColumn<QString>("text");
    QTest::newRow("mono") << 0 << "";
    QTest::newRow("stereo") << 1 << "ST";
    QTest::newRow("stereo 200") << 200 << "ST";
}

void tst_TunerView::stereo()
{
    QFETCH(int, stereo);
    QFETCH(QString, text);
    TunerView view;
    label(view, "STDispLabel")->setText(QStringLiteral("?"));
    view.SetStDisp(static_cast<unsigned char>(stereo));
    QCOMPARE(label(view, "STDispLabel")->text(), text);
}

// ---- AS/PS indicator and auto search mute ----

void tst_TunerView::asPsBlinks_data()
{
    QTest::addColumn<int>("isPS");
    QTest::addColumn<QString>("text");
    QTest::newRow("auto search") << 0 << "AS";
    QTest::newRow("preset scan") << 1 << "PS";
}

void tst_TunerView::asPsBlinks()
{
    QFETCH(int, isPS);
    QFETCH(QString, text);
    TunerView view;
    QLabel* indicator = startFastBlink(view, isPS);
    QCOMPARE(indicator->text(), text);
    QVERIFY(view.isAsPsBlinking());
    QTRY_COMPARE(indicator->text(), QString());
    QTRY_COMPARE(indicator->text(), text);
    QTRY_COMPARE(indicator->text(), QString());
    QVERIFY(view.isAsPsBlinking());
}

void tst_TunerView::asPsSwitchShowsAtOnceAndRestarts()
{
    // A long first period: only a restarted timer can blink within the test.
    TunerView::s_asPsBlinkMs = 3600 * 1000;
    TunerView view;
    QLabel* indicator = label(view, "AS_PS_DispLabel");
    view.StartAsPsDisp(0);
    QCOMPARE(indicator->text(), QStringLiteral("AS"));

    TunerView::s_asPsBlinkMs = 20;
    view.StartAsPsDisp(1);
    QCOMPARE(indicator->text(), QStringLiteral("PS"));
    QTRY_COMPARE(indicator->text(), QString());
    QTRY_COMPARE(indicator->text(), QStringLiteral("PS"));

    // Back to auto search in the dark phase: "AS" at once.
    QTRY_COMPARE(indicator->text(), QString());
    view.StartAsPsDisp(0);
    QCOMPARE(indicator->text(), QStringLiteral("AS"));
}

void tst_TunerView::stopAsPsClears()
{
    TunerView view;
    QLabel* indicator = startFastBlink(view, 1);
    view.StopAsPsDisp();
    QCOMPARE(indicator->text(), QString());
    QVERIFY(!view.isAsPsBlinking());
    // Stopped for good: a restart from a later tick would show a text again.
    // The standby timer, four periods long, serves as the clock.
    TunerView::s_standbyMs = 80;
    QSignalSpy standby(&view, &TunerView::sigReqShowStandby);
    view.resetStandbyTimetSlot();
    QTRY_COMPARE(standby.count(), 1);
    QCOMPARE(indicator->text(), QString());
    // Stopping twice is harmless.
    view.StopAsPsDisp();
    QVERIFY(!view.isAsPsBlinking());
}

void tst_TunerView::autoSearchMute_data()
{
    addAudioRows();
}

void tst_TunerView::autoSearchMute()
{
    QFETCH(bool, audio);
    QFETCH(bool, userMute);
    QFETCH(bool, ownMute);
    setUpAudio(audio, userMute);
    TunerView view;
    if (audio)
        AudioControl::getInstance()->clearCalls();

    view.Tuner_UI_ASPSState(1, 0);
    QVERIFY(button(view, "AutoSearch")->isDown());
    QCOMPARE(view.holdsAsMute(), ownMute);
    if (audio) {
        QCOMPARE(AudioControl::getInstance()->calls(),
                 ownMute ? QStringList{QStringLiteral("setMute(true,false)")} : QStringList());
        QVERIFY(AudioControl::getInstance()->isMute());
        AudioControl::getInstance()->clearCalls();
    }

    view.StopAsPsDisp();
    QVERIFY(!view.holdsAsMute());
    if (audio) {
        // Only the view's own mute is given back; the user's stays.
        QCOMPARE(AudioControl::getInstance()->calls(),
                 ownMute ? QStringList{QStringLiteral("setMute(false,false)")} : QStringList());
        QCOMPARE(AudioControl::getInstance()->isMute(), userMute);
    }
}

void tst_TunerView::autoSearchMuteTakenOnce()
{
    TunerView view;
    AudioControl* audio = AudioControl::getInstance();
    audio->clearCalls();
    view.Tuner_UI_ASPSState(1, 0);
    view.Tuner_UI_ASPSState(1, 1);
    view.Tuner_UI_ASPSState(1, 0);
    QCOMPARE(audio->calls(), QStringList{QStringLiteral("setMute(true,false)")});
    view.StopAsPsDisp();
    view.StopAsPsDisp();
    QCOMPARE(audio->calls(),
             (QStringList{QStringLiteral("setMute(true,false)"), QStringLiteral("setMute(false,false)")}));
}

void tst_TunerView::autoSearchMuteReleasedByDestructor()
{
    AudioControl* audio = AudioControl::getInstance();
    {
        TunerView view;
        view.Tuner_UI_ASPSState(1, 0);
        QVERIFY(view.holdsAsMute());
        audio->clearCalls();
    }
    QCOMPARE(audio->calls(), QStringList{QStringLiteral("setMute(false,false)")});
    QVERIFY(!audio->isMute());

    // Without the mute held, destruction leaves the audio alone.
    {
        TunerView view;
        audio->setMute(true, true);
        audio->clearCalls();
    }
    QVERIFY(audio->calls().isEmpty());
    QVERIFY(audio->isMute());
}

void tst_TunerView::autoSearchEndedDoesNotMute()
{
    TunerView view;
    button(view, "AutoSearch")->setIsDown(true);
    AudioControl::getInstance()->clearCalls();
    view.Tuner_UI_ASPSState(0, 1);
    QVERIFY(!button(view, "AutoSearch")->isDown());
    QVERIFY(!view.holdsAsMute());
    QVERIFY(AudioControl::getInstance()->calls().isEmpty());
}

// ---- Presets ----

void tst_TunerView::presetLabel_data()
{
    QTest::addColumn<int>("freq");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("name") << 8750 << bytes8("RADIO 1 ") << "RADIO 1";
    QTest::newRow("eight spaces") << 8750 << bytes8("        ") << "87.50 MHz";
    QTest::newRow("eight zero bytes") << 531 << QByteArray(8, '\0') << "531 kHz";
    QTest::newRow("ABC and five zero bytes") << 9810 << bytes8("ABC\0\0\0\0\0", 8) << "ABC";
    QTest::newRow("inner spaces kept") << 9810 << bytes8("A B  C  ") << "A B  C";
    QTest::newRow("tilde") << 9810 << bytes8("AB~CD   ") << "AB CD";
    QTest::newRow("braces and bar only") << 10005 << bytes8("{|}{|}{|") << "100.05 MHz";
    QTest::newRow("DEL") << 9810 << bytes8("\x7fX      ") << "X";
    QTest::newRow("lower case z kept") << 9810 << bytes8("zzzzzzzz") << "zzzzzzzz";
    QTest::newRow("bytes above 0x7f") << 1602 << QByteArray("\x80\xa0\xc3\xa9\xff\xfe\xe4\xfc", 8) << "1602 kHz";
    QTest::newRow("2000") << 2000 << bytes8("") << "20.00 MHz";
    QTest::newRow("1999") << 1999 << bytes8("") << "1999 kHz";
    QTest::newRow("0") << 0 << bytes8("") << "0 kHz";
    QTest::newRow("65535") << 65535 << bytes8("") << "655.35 MHz";
}

void tst_TunerView::presetLabel()
{
    QFETCH(int, freq);
    QFETCH(QByteArray, name);
    QFETCH(QString, text);
    QCOMPARE(name.size(), 8);
    auto view = makeView();
    for (int slot = 0; slot < 6; ++slot) {
        unsigned short freqs[12] = {8750, 9010, 9810, 10610, 10800, 8750, 1, 2, 3, 4, 5, 6};
        QByteArray names = QByteArray(12 * 8, ' ');
        for (int i = 0; i < 6; ++i)
            names.replace(8 * i, 8, QByteArray("OTHER") + QByteArray::number(i) + "  ");
        freqs[slot] = static_cast<unsigned short>(freq);
        names.replace(8 * slot, 8, name);
        view->Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 0);
        for (int i = 0; i < 6; ++i) {
            const QString expected = i == slot ? text : QStringLiteral("OTHER%1").arg(i);
            QCOMPARE(view->presetButtons().at(i)->displayText(), expected);
        }
    }
}

void tst_TunerView::presetOnlyFirstSixEntries()
{
    auto view = makeView();
    // Two further buttons: what entries 6 and 7 hold must not reach them.
    HvIconButton extra1(view.get());
    HvIconButton extra2(view.get());
    extra1.setDisplayText(QStringLiteral("keep"));
    extra2.setDisplayText(QStringLiteral("keep"));
    view->presetButtons() << &extra1 << &extra2;
    unsigned short freqs[12] = {8750, 9010, 9810, 10610, 10800, 531, 9999, 9999, 9999, 9999, 9999, 9999};
    QByteArray names(12 * 8, 'X');
    names.replace(0, 48, QByteArray(48, ' '));
    view->Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 99);
    const QStringList expected{"87.50 MHz", "90.10 MHz", "98.10 MHz", "106.10 MHz", "108.00 MHz", "531 kHz"};
    for (int i = 0; i < 6; ++i)
        QCOMPARE(view->presetButtons().at(i)->displayText(), expected.at(i));
    QCOMPARE(extra1.displayText(), QStringLiteral("keep"));
    QCOMPARE(extra2.displayText(), QStringLiteral("keep"));
}

void tst_TunerView::presetShortList()
{
    TunerView view;
    view.presetButtons() << button(view, "PS1") << button(view, "PS2") << button(view, "PS3");
    unsigned short freqs[6] = {8750, 9010, 9810, 10610, 10800, 531};
    QByteArray names(48, ' ');
    view.Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 0);
    QCOMPARE(button(view, "PS3")->displayText(), QStringLiteral("98.10 MHz"));
    // Buttons outside the list keep the layout's placeholders.
    QCOMPARE(button(view, "PS4")->displayText(), QStringLiteral("106.10 MHz"));
    QCOMPARE(button(view, "PS6")->displayText(), QStringLiteral("87.50 MHz"));

    view.presetButtons().clear();
    view.Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 0);
    QCOMPARE(button(view, "PS1")->displayText(), QStringLiteral("87.50 MHz"));
}

void tst_TunerView::curPreset_data()
{
    QTest::addColumn<int>("preset");
    for (int p : {0, 1, 6})
        QTest::addRow("preset %d", p) << p;
}

void tst_TunerView::curPreset()
{
    QFETCH(int, preset);
    auto view = makeView();
    const auto& buttons = view->presetButtons();
    for (HvIconButton* b : buttons)
        b->setIsDown(true);
    view->Tuner_UI_CurPreset(static_cast<unsigned char>(preset));
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(buttons.at(i)->isDown(), i == preset - 1);
        QCOMPARE(buttons.at(i)->isLock(), i == preset - 1);
    }
}

void tst_TunerView::curPresetAboveSixChangesNothing_data()
{
    QTest::addColumn<int>("preset");
    QTest::newRow("7") << 7;
    QTest::newRow("255") << 255;
}

void tst_TunerView::curPresetAboveSixChangesNothing()
{
    QFETCH(int, preset);
    auto view = makeView();
    view->Tuner_UI_CurPreset(3);
    view->presetButtons().at(4)->setIsDown(true);
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(
                                         QStringLiteral("^Tuner_UI_CurPreset \\d+ =========>curPreset %1$").arg(preset)));
    view->Tuner_UI_CurPreset(static_cast<unsigned char>(preset));
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(view->presetButtons().at(i)->isDown(), i == 2 || i == 4);
        QCOMPARE(view->presetButtons().at(i)->isLock(), i == 2);
    }
}

void tst_TunerView::curPresetShortList()
{
    TunerView view;
    view.presetButtons() << button(view, "PS1") << button(view, "PS2");
    button(view, "PS5")->setIsDown(true);
    view.Tuner_UI_CurPreset(5);
    QVERIFY(!button(view, "PS1")->isDown());
    QVERIFY(!button(view, "PS2")->isDown());
    // Not in the list: left alone.
    QVERIFY(button(view, "PS5")->isDown());
    QVERIFY(!button(view, "PS5")->isLock());
    view.Tuner_UI_CurPreset(2);
    QVERIFY(button(view, "PS2")->isDown());
    view.presetButtons().clear();
    view.Tuner_UI_CurPreset(1);
    QVERIFY(!button(view, "PS1")->isDown());
}

void tst_TunerView::curPresetWithBandChangesNothing()
{
    auto view = makeView();
    view->Tuner_UI_CurPreset(2);
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression(QStringLiteral("^Tuner_UI_CurPreset \\d+ curBand 3 =========>curPreset 5$")));
    view->Tuner_UI_CurPreset(3, 5);
    view->Tuner_UI_CurPreset(0, 0);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(view->presetButtons().at(i)->isDown(), i == 1);
}

void tst_TunerView::presetListDisp_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QStringList>("texts");
    QStringList fm;
    QStringList am;
    for (int i = 0; i < 18; ++i) {
        fm << QStringLiteral("%1.%2").arg(87 + i).arg(i % 2 ? QStringLiteral("05") : QStringLiteral("50"));
        am << (i < 12 ? QString::number(531 + 9 * i) : QString());
    }
    QTest::newRow("FM1") << 0 << fm;
    QTest::newRow("AM2") << 4 << am;
}

void tst_TunerView::presetListDisp()
{
    QFETCH(int, band);
    QFETCH(QStringList, texts);
    TunerView view;
    std::vector<std::unique_ptr<HvIconButton>> list;
    for (int i = 0; i < 18; ++i) {
        list.emplace_back(new HvIconButton(&view));
        list.back()->setDisplayText(QStringLiteral("old"));
        view.presetButtons() << list.back().get();
    }
    unsigned short freqs[36];
    for (int i = 0; i < 18; ++i) {
        freqs[i] = static_cast<unsigned short>((87 + i) * 100 + (i % 2 ? 5 : 50));
        freqs[18 + i] = static_cast<unsigned short>(531 + 9 * i);
    }
    view.Tuner_UI_PresetListDisp(static_cast<unsigned char>(band), freqs, nullptr);
    for (int i = 0; i < 18; ++i)
        QCOMPARE(list[i]->displayText(), texts.at(i));
}

// ---- RDS ----

void tst_TunerView::psName_data()
{
    QTest::addColumn<QByteArray>("ps");
    QTest::addColumn<QString>("text");
    QTest::newRow("RADIO 1") << bytes8("RADIO 1 ") << "RADIO 1 ";
    QTest::newRow("eight zero bytes") << QByteArray(8, '\0') << "        ";
    QTest::newRow("tilde") << bytes8("AB~CD~EF") << "AB CD EF";
    QTest::newRow("braces, bar, DEL") << bytes8("{a|b}c\x7f ") << " a b c  ";
    QTest::newRow("z kept") << bytes8("zzzz{{{{") << "zzzz    ";
    QTest::newRow("high bytes") << QByteArray("\x80\xff\xe9" "ABC\xc3\xa9", 8) << "   ABC  ";
}

void tst_TunerView::psName()
{
    QFETCH(QByteArray, ps);
    QFETCH(QString, text);
    TunerView view;
    view.PSDisp(reinterpret_cast<unsigned char*>(ps.data()));
    QCOMPARE(rolling(view, "PSDisp")->text(), text);
    QCOMPARE(ps.size(), 8);
}

void tst_TunerView::psReadsEightBytesAndShows()
{
    TunerView view;
    HvRollingText* ps = rolling(view, "PSDisp");
    ps->hide();
    unsigned char record[16];
    std::memcpy(record, "ABCDEFGHIJKLMNOP", 16);
    view.PSDisp(record);
    QCOMPARE(ps->text(), QStringLiteral("ABCDEFGH"));
    QVERIFY(!ps->isHidden());
    // The caller's bytes are not rewritten by the filter.
    unsigned char tilde[8] = {'~', 'A', 0, 'B', ' ', ' ', ' ', ' '};
    view.PSDisp(tilde);
    QCOMPARE(ps->text(), QStringLiteral(" A B    "));
    QCOMPARE(tilde[0], static_cast<unsigned char>('~'));
    QCOMPARE(tilde[2], static_cast<unsigned char>(0));
}

void tst_TunerView::psFromRecordedLineups_data()
{
    QTest::addColumn<int>("freq");
    QTest::addColumn<QString>("ps");
    const QString dir = qEnvironmentVariable("RADIO_SHARED_DATA");
    QFile file(dir + QStringLiteral("/rds/lineups.csv"));
    if (dir.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        QSKIP("recorded RDS line-ups not available");
    QTextStream in(&file);
    const QStringList header = splitCsv(in.readLine());
    const int freqCol = header.indexOf(QStringLiteral("freq_mhz"));
    const int psCol = header.indexOf(QStringLiteral("ps"));
    QVERIFY(freqCol >= 0 && psCol >= 0);
    int rows = 0;
    while (!in.atEnd()) {
        const QStringList f = splitCsv(in.readLine());
        if (f.size() <= qMax(freqCol, psCol))
            continue;
        const QString ps = f.at(psCol);
        if (ps.size() > 8)
            continue;
        const int freq = qRound(f.at(freqCol).toDouble() * 100);
        QTest::addRow("%s %s", qPrintable(f.at(freqCol)), qPrintable(ps)) << freq << ps;
        ++rows;
    }
    QVERIFY(rows > 0);
}

void tst_TunerView::psFromRecordedLineups()
{
    QFETCH(int, freq);
    QFETCH(QString, ps);
    QByteArray bytes = ps.toLatin1().leftJustified(8, ' ');
    bool plain = true;
    for (char c : bytes)
        plain = plain && c >= 0x20 && c <= 0x7A;
    if (!plain)
        QSKIP("name outside the displayable range");

    auto view = makeView();
    view->PSDisp(reinterpret_cast<unsigned char*>(bytes.data()));
    QCOMPARE(rolling(*view, "PSDisp")->text(), QString::fromLatin1(bytes));

    // The same name stored on a preset labels the button, trimmed.
    unsigned short freqs[6] = {static_cast<unsigned short>(freq), 8750, 8750, 8750, 8750, 8750};
    QByteArray names = bytes + QByteArray(40, ' ');
    view->Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 0);
    const QString expected = ps.trimmed().isEmpty()
        ? QStringLiteral("%1.%2 MHz").arg(freq / 100).arg(freq % 100, 2, 10, QLatin1Char('0'))
        : ps.trimmed();
    QCOMPARE(button(*view, "PS1")->displayText(), expected);
}

void tst_TunerView::radioTextSetOnlyWhenChanged()
{
    TunerView view;
    HvRollingText* rt = rolling(view, "RTDisp");
    QByteArray text("Now playing: song");
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QStringLiteral("Now playing: song"));
    // Someone else writes the widget; a repeated text must not overwrite it.
    rt->setText(QStringLiteral("marker"));
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QStringLiteral("marker"));
    QByteArray other("Next: news");
    view.RTDisp(reinterpret_cast<unsigned char*>(other.data()));
    QCOMPARE(rt->text(), QStringLiteral("Next: news"));
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QStringLiteral("Now playing: song"));
}

void tst_TunerView::radioTextAfterClear()
{
    TunerView view;
    HvRollingText* rt = rolling(view, "RTDisp");
    QByteArray text("Traffic on A1");
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    view.ClearRDSDisp();
    QCOMPARE(rt->text(), QString());
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QString());
    view.ClearRTDisp();
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QString());
    QByteArray other("Traffic on A2");
    view.RTDisp(reinterpret_cast<unsigned char*>(other.data()));
    QCOMPARE(rt->text(), QStringLiteral("Traffic on A2"));
}

void tst_TunerView::radioTextDecoding_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xbc\xc3\x9f" "e aus M\xc3\xbcnchen") << QString::fromUtf8("Grüße aus München");
    QTest::newRow("no filter") << QByteArray("{~|}") << "{~|}";
    QTest::newRow("stops at NUL") << QByteArray("AB\0CD", 5) << "AB";
    QTest::newRow("64 characters") << QByteArray(64, 'r') << QString(64, QLatin1Char('r'));
    // A record without its NUL: at most the 65 bytes of the field are read.
    QTest::newRow("unterminated 65") << QByteArray(65, 's') + QByteArray(8, 'X') << QString(65, QLatin1Char('s'));
}

void tst_TunerView::radioTextDecoding()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, text);
    TunerView view;
    QByteArray buffer = record;
    if (buffer.size() < 65)
        buffer.append(QByteArray(65 - buffer.size(), '\0'));
    view.RTDisp(reinterpret_cast<unsigned char*>(buffer.data()));
    QCOMPARE(rolling(view, "RTDisp")->text(), text);
}

void tst_TunerView::radioTextKeepsVisibility()
{
    TunerView view;
    HvRollingText* rt = rolling(view, "RTDisp");
    rt->hide();
    QByteArray text("hidden text");
    view.RTDisp(reinterpret_cast<unsigned char*>(text.data()));
    QCOMPARE(rt->text(), QStringLiteral("hidden text"));
    QVERIFY(rt->isHidden());
}

void tst_TunerView::ptyName_data()
{
    QTest::addColumn<uint>("pty");
    QTest::addColumn<QString>("name");
    QTest::newRow("0 empty") << 0u << "";
    QTest::newRow("1") << 1u << "News";
    QTest::newRow("16") << 16u << "Weather";
    QTest::newRow("31 last") << 31u << "Alarm";
}

void tst_TunerView::ptyName()
{
    QFETCH(uint, pty);
    QFETCH(QString, name);
    TunerView view;
    HvRollingText* w = rolling(view, "PTYDisp");
    w->setText(QStringLiteral("before"));
    w->hide();
    view.PTYDisp(pty);
    QCOMPARE(w->text(), name);
    // Shown even when the name is empty.
    QVERIFY(!w->isHidden());
}

void tst_TunerView::ptyOutOfRangeChangesNothing_data()
{
    QTest::addColumn<uint>("pty");
    QTest::newRow("32") << 32u;
    QTest::newRow("max") << 4294967295u;
}

void tst_TunerView::ptyOutOfRangeChangesNothing()
{
    QFETCH(uint, pty);
    TunerView view;
    HvRollingText* w = rolling(view, "PTYDisp");
    view.PTYDisp(10);
    w->hide();
    // Logged even when ignored.
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("========================pty: %1").arg(pty)));
    view.PTYDisp(pty);
    QCOMPARE(w->text(), QStringLiteral("Pop M"));
    QVERIFY(w->isHidden());
}

void tst_TunerView::ptyTranslatedInQObjectContext()
{
    TunerView view;
    PtyTranslator translator;
    QCoreApplication::installTranslator(&translator);
    view.PTYDisp(1);
    const QString translated = rolling(view, "PTYDisp")->text();
    view.PTYDisp(2);
    const QString untranslated = rolling(view, "PTYDisp")->text();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(translated, QStringLiteral("Nachrichten"));
    QCOMPARE(untranslated, QStringLiteral("Affairs"));
}

void tst_TunerView::afColour_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("on") << true << White;
    QTest::newRow("off") << false << Grey;
}

void tst_TunerView::afColour()
{
    QFETCH(bool, on);
    QFETCH(QColor, colour);
    TunerView view;
    QLabel* af = label(view, "AFDisp");
    view.AFStatusDisp(!on);
    view.ClearAFDisp();
    QVERIFY(af->isHidden());
    view.AFStatusDisp(on);
    QCOMPARE(textColour(af), colour);
    for (auto group : {QPalette::Active, QPalette::Inactive})
        QCOMPARE(af->palette().color(group, QPalette::WindowText), colour);
    QVERIFY(!af->isHidden());
    QCOMPARE(af->text(), QStringLiteral("AF"));
    // The TA and TP indicators are not touched.
    QVERIFY(label(view, "TADisp")->isHidden());
    QVERIFY(label(view, "TPDisp")->isHidden());
}

void tst_TunerView::tatpColour_data()
{
    QTest::addColumn<bool>("ta");
    QTest::addColumn<bool>("taInd");
    QTest::addColumn<bool>("tpInd");
    QTest::addColumn<QColor>("taColour");
    QTest::addColumn<QColor>("tpColour");
    QTest::newRow("TA off, both flagged") << false << true << true << Grey << Grey;
    QTest::newRow("TA on") << true << false << false << White << White;
    QTest::newRow("TA on, TA flagged") << true << true << false << Orange << White;
    QTest::newRow("TA on, TP flagged") << true << false << true << White << Orange;
}

void tst_TunerView::tatpColour()
{
    QFETCH(bool, ta);
    QFETCH(bool, taInd);
    QFETCH(bool, tpInd);
    QFETCH(QColor, taColour);
    QFETCH(QColor, tpColour);
    TunerView view;
    QLabel* taLabel = label(view, "TADisp");
    QLabel* tpLabel = label(view, "TPDisp");
    // Paint the opposite first so a left-over colour cannot pass.
    view.TATPStatusDisp(!ta, !taInd, !tpInd);
    view.ClearTADisp();
    view.ClearTPDisp();
    view.TATPStatusDisp(ta, taInd, tpInd);
    QCOMPARE(textColour(taLabel), taColour);
    QCOMPARE(textColour(tpLabel), tpColour);
    QVERIFY(!taLabel->isHidden());
    QVERIFY(!tpLabel->isHidden());
    QVERIFY(label(view, "AFDisp")->isHidden());
}

void tst_TunerView::clearsHideAndEmpty()
{
    TunerView view;
    QByteArray ps = bytes8("RADIO 1 ");
    QByteArray rt("some text");
    const auto fill = [&] {
        view.PSDisp(reinterpret_cast<unsigned char*>(ps.data()));
        view.RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
        view.PTYDisp(4);
        view.AFStatusDisp(true);
        view.TATPStatusDisp(true, true, true);
    };
    const auto shown = [&view] {
        QStringList s;
        for (const char* name : {"AFDisp", "TADisp", "TPDisp"})
            if (!label(view, name)->isHidden())
                s << QLatin1String(name);
        for (const char* name : {"PSDisp", "PTYDisp", "RTDisp"})
            if (!rolling(view, name)->text().isEmpty())
                s << QLatin1String(name);
        return s;
    };
    // Each clear touches its own indicator only.
    const QStringList all{"AFDisp", "TADisp", "TPDisp", "PSDisp", "PTYDisp", "RTDisp"};
    const QList<void (TunerView::*)()> clears{&TunerView::ClearAFDisp,  &TunerView::ClearTADisp,
                                               &TunerView::ClearTPDisp,  &TunerView::ClearPSDisp,
                                               &TunerView::ClearPTYDisp, &TunerView::ClearRTDisp};
    for (int i = 0; i < clears.size(); ++i) {
        rt.append('+');
        fill();
        QCOMPARE(shown(), all);
        (view.*clears.at(i))();
        QStringList rest = all;
        rest.removeAt(i);
        QCOMPARE(shown(), rest);
    }
    rt.append('+');
    fill();
    view.ClearRDSDisp();
    QCOMPARE(shown(), QStringList());
    // Clearing empties the texts, it does not hide their widgets.
    QVERIFY(!rolling(view, "PSDisp")->isHidden());
}

void tst_TunerView::missingDataKeepsDisplay()
{
    auto view = makeView();
    QByteArray ps = bytes8("RADIO 1 ");
    QByteArray rt("text");
    view->PSDisp(reinterpret_cast<unsigned char*>(ps.data()));
    view->RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
    unsigned short freqs[36] = {9000};
    QByteArray names(96, ' ');

    QTest::ignoreMessage(QtWarningMsg, "PSDisp: no programme service name, text kept");
    view->PSDisp(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "RTDisp: no radio text, text kept");
    view->RTDisp(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "Tuner_UI_PresetDisp: no preset data, labels kept");
    view->Tuner_UI_PresetDisp(nullptr, reinterpret_cast<unsigned char*>(names.data()), 0);
    QTest::ignoreMessage(QtWarningMsg, "Tuner_UI_PresetDisp: no preset data, labels kept");
    view->Tuner_UI_PresetDisp(freqs, nullptr, 0);
    QTest::ignoreMessage(QtWarningMsg, "Tuner_UI_PresetListDisp: no preset frequencies, labels kept");
    view->Tuner_UI_PresetListDisp(0, nullptr, nullptr);

    QCOMPARE(rolling(*view, "PSDisp")->text(), QStringLiteral("RADIO 1 "));
    QCOMPARE(rolling(*view, "RTDisp")->text(), QStringLiteral("text"));
    QCOMPARE(button(*view, "PS1")->displayText(), QStringLiteral("87.50 MHz"));
    // The last radio text is still remembered.
    view->ClearRTDisp();
    view->RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
    QCOMPARE(rolling(*view, "RTDisp")->text(), QString());
}

// ---- Standby, start-up hard mute, events ----

void tst_TunerView::standbyStartsWhenShown()
{
    TunerView view;
    QVERIFY(!view.isStandbyTimerRunning());
    view.show();
    QVERIFY(view.isStandbyTimerRunning());
    view.hide();
    view.stopStandbyTimetSlot();
    view.show();
    QVERIFY(view.isStandbyTimerRunning());
}

void tst_TunerView::standbyEvents_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("runningBefore");
    QTest::addColumn<bool>("runningAfter");
    QTest::newRow("key press stops") << int(KeyPress) << true << false;
    QTest::newRow("mouse release starts") << int(MouseRelease) << false << true;
    QTest::newRow("key release starts") << int(KeyRelease) << false << true;
    QTest::newRow("mouse release restarts") << int(MouseRelease) << true << true;
    QTest::newRow("press when stopped") << int(MousePress) << false << false;
    QTest::newRow("move keeps running") << int(MouseMove) << true << true;
    QTest::newRow("enter keeps stopped") << int(Enter) << false << false;
}

void tst_TunerView::standbyEvents()
{
    QFETCH(int, kind);
    QFETCH(bool, runningBefore);
    QFETCH(bool, runningAfter);
    TunerView view;
    if (runningBefore)
        view.resetStandbyTimetSlot();
    QCOMPARE(view.isStandbyTimerRunning(), runningBefore);
    std::unique_ptr<QEvent> e = makeEvent(kind);
    QVERIFY(e->isAccepted());
    QCoreApplication::sendEvent(&view, e.get());
    QCOMPARE(view.isStandbyTimerRunning(), runningAfter);
    // The view watches but never consumes: the event reached the widget,
    // whose default handlers leave mouse and key events ignored.
    if (kind != Enter)
        QVERIFY(!e->isAccepted());
}

void tst_TunerView::standbyPressThenRelease()
{
    TunerView::s_standbyMs = 30;
    TunerView view;
    QSignalSpy standby(&view, &TunerView::sigReqShowStandby);
    view.show();
    auto press = makeEvent(MousePress);
    QCoreApplication::sendEvent(&view, press.get());
    QVERIFY(!view.isStandbyTimerRunning());
    // A held finger keeps the standby off; the short AS/PS blink is the clock.
    TunerView::s_asPsBlinkMs = 30;
    view.StartAsPsDisp(0);
    QTRY_COMPARE(label(view, "AS_PS_DispLabel")->text(), QString());
    QTRY_COMPARE(label(view, "AS_PS_DispLabel")->text(), QStringLiteral("AS"));
    QCOMPARE(standby.count(), 0);

    auto release = makeEvent(MouseRelease);
    QCoreApplication::sendEvent(&view, release.get());
    QVERIFY(view.isStandbyTimerRunning());
    QTRY_COMPARE(standby.count(), 1);
}

void tst_TunerView::standbyExpiry()
{
    TunerView::s_standbyMs = 20;
    TunerView view;
    QSignalSpy standby(&view, &TunerView::sigReqShowStandby);
    view.show();
    QTRY_COMPARE(standby.count(), 1);
    // Once: the countdown stays stopped until activity starts it again.
    QVERIFY(!view.isStandbyTimerRunning());
    auto release = makeEvent(KeyRelease);
    QCoreApplication::sendEvent(&view, release.get());
    QTRY_COMPARE(standby.count(), 2);
    QVERIFY(!view.isStandbyTimerRunning());
}

void tst_TunerView::standbySlots()
{
    TunerView view;
    QSignalSpy exitStandby(&view, &TunerView::sigReqExitStandby);
    view.resetStandbyTimetSlot();
    QVERIFY(view.isStandbyTimerRunning());
    view.stopStandbyTimetSlot();
    QVERIFY(!view.isStandbyTimerRunning());
    QCOMPARE(exitStandby.count(), 0);
    view.reqExitStandbySlot();
    QVERIFY(view.isStandbyTimerRunning());
    QCOMPARE(exitStandby.count(), 1);
}

void tst_TunerView::startupHardMute_data()
{
    addAudioRows();
}

void tst_TunerView::startupHardMute()
{
    QFETCH(bool, audio);
    QFETCH(bool, userMute);
    QFETCH(bool, ownMute);
    setUpAudio(audio, userMute);
    TunerView::s_startupMuteMs = 10;
    TunerView::s_standbyMs = 200;
    TunerView view;
    QVERIFY(view.holdsHardMute());
    PlatformControl* pc = PlatformControl::getInstance();
    const QStringList atStart{QStringLiteral("setHardMute(true)")};
    QCOMPARE(pc->calls(), atStart);
    QVERIFY(pc->isHardMute());

    // The longer standby countdown runs out after the start-up one. The
    // hard mute is given back only where the radio is heard.
    QVERIFY(standbyRunsOut(view));
    QVERIFY(!view.holdsHardMute());
    QCOMPARE(pc->calls(), ownMute ? atStart + QStringList{QStringLiteral("setHardMute(false)")} : atStart);
    QCOMPARE(pc->isHardMute(), !ownMute);
    if (audio)
        QCOMPARE(AudioControl::getInstance()->isMute(), userMute);
}

void tst_TunerView::startupHardMuteWithoutPlatformControl()
{
    PlatformControl::destroyInstance();
    TunerView::s_startupMuteMs = 10;
    TunerView::s_standbyMs = 200;
    TunerView view;
    QVERIFY(!view.holdsHardMute());
    // Appears later: shows what the expiry does when the view holds nothing.
    PlatformControl* pc = PlatformControl::createInstance();
    QVERIFY(standbyRunsOut(view));
    QVERIFY(!view.holdsHardMute());
    QCOMPARE(pc->calls(), QStringList());
    QVERIFY(!pc->isHardMute());
    QVERIFY(!AudioControl::getInstance()->isMute());
}

void tst_TunerView::startupHardMuteReleasedByDestructor_data()
{
    addAudioRows();
}

void tst_TunerView::startupHardMuteReleasedByDestructor()
{
    QFETCH(bool, audio);
    QFETCH(bool, userMute);
    QFETCH(bool, ownMute);
    setUpAudio(audio, userMute);
    PlatformControl* pc = PlatformControl::getInstance();
    {
        TunerView view;
        QVERIFY(view.holdsHardMute());
        pc->clearCalls();
    }
    QCOMPARE(pc->calls(), ownMute ? QStringList{QStringLiteral("setHardMute(false)")} : QStringList());
    QCOMPARE(pc->isHardMute(), !ownMute);
}

void tst_TunerView::startupHardMuteNotReleasedAfterTick()
{
    AudioControl::getInstance()->setMute(true, true);
    TunerView::s_startupMuteMs = 10;
    PlatformControl* pc = PlatformControl::getInstance();
    {
        TunerView view;
        QTRY_VERIFY(!view.holdsHardMute());
        // The user unmutes after the start-up period: the view has let go
        // of the hard mute for good, also when it is destroyed.
        AudioControl::getInstance()->setMute(false, true);
    }
    QCOMPARE(pc->calls(), QStringList{QStringLiteral("setHardMute(true)")});
    QVERIFY(pc->isHardMute());
}

void tst_TunerView::languageChangeRestoresAsPs_data()
{
    asPsBlinks_data();
}

void tst_TunerView::languageChangeRestoresAsPs()
{
    QFETCH(int, isPS);
    QFETCH(QString, text);
    TunerView view;
    QLabel* indicator = startFastBlink(view, isPS);
    QTRY_COMPARE(indicator->text(), QString());  // dark phase
    sendLanguageChange(&view);
    QCOMPARE(indicator->text(), text);
    // The blink goes on from there.
    QTRY_COMPARE(indicator->text(), QString());
    QVERIFY(view.isAsPsBlinking());
}

void tst_TunerView::languageChangeWithoutBlink()
{
    TunerView view;
    QLabel* indicator = label(view, "AS_PS_DispLabel");
    sendLanguageChange(&view);
    QCOMPARE(indicator->text(), QString());
    view.StartAsPsDisp(1);
    view.StopAsPsDisp();
    sendLanguageChange(&view);
    QCOMPARE(indicator->text(), QString());
    // The layout's own texts come back with the translation.
    button(view, "AutoSearch")->setDisplayText(QStringLiteral("x"));
    sendLanguageChange(&view);
    QCOMPARE(button(view, "AutoSearch")->displayText(), QString());
}

void tst_TunerView::languageChangeShowsStereo()
{
    TunerView view;
    QLabel* st = label(view, "STDispLabel");
    view.SetStDisp(0);
    QCOMPARE(st->text(), QString());
    sendLanguageChange(&view);
    QCOMPARE(st->text(), QStringLiteral("ST"));
    view.SetStDisp(0);
    QCOMPARE(st->text(), QString());
}

// ---- Background ----

void tst_TunerView::wallpaperSource_data()
{
    QTest::addColumn<QString>("appDataPath");  // "" = none
    QTest::addColumn<QVariant>("stored");      // invalid = nothing stored
    QTest::addColumn<QVariant>("factory");     // invalid = host default
    QTest::addColumn<QString>("used");
    QTest::addColumn<bool>("storedInAppData");
    const QVariant none;
    QTest::newRow("path already known") << "@a" << QVariant(QStringLiteral("@b")) << none << "@a" << false;
    QTest::newRow("stored setting") << "" << QVariant(QStringLiteral("@b")) << none << "@b" << true;
    QTest::newRow("host default") << "" << none << QVariant(QStringLiteral("@c")) << "@c" << true;
    QTest::newRow("empty setting, empty default") << "" << none << QVariant(QString()) << DefaultWallPaper << true;
    QTest::newRow("stored empty beats default") << "" << QVariant(QString()) << QVariant(QStringLiteral("@c"))
                                                << DefaultWallPaper << true;
    QTest::newRow("factory default") << "" << none << none << DefaultWallPaper << true;
}

void tst_TunerView::wallpaperSource()
{
    QFETCH(QString, appDataPath);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, factory);
    QFETCH(QString, used);
    QFETCH(bool, storedInAppData);
    // "@x" stands for an image file of its own size.
    QHash<QString, QString> files;
    QHash<QString, QSize> sizes{{QStringLiteral("@a"), QSize(11, 13)},
                                {QStringLiteral("@b"), QSize(17, 5)},
                                {QStringLiteral("@c"), QSize(3, 19)}};
    for (auto it = sizes.cbegin(); it != sizes.cend(); ++it)
        files.insert(it.key(), writeImage(*m_dir, it.key().mid(1) + QStringLiteral(".png"), it.value(), Qt::red));
    const auto resolve = [&files](const QString& s) { return files.value(s, s); };

    AppData* app = AppData::GetInstance();
    if (!appDataPath.isEmpty())
        app->setWallPaperPath(resolve(appDataPath));
    if (stored.isValid())
        DataSaveControl::saveSettingData(SetupStrIdConst::setupWallPaper, resolve(stored.toString()), QString());
    if (factory.isValid())
        DataDefault::setDefault(SetupStrIdConst::setupWallPaper, resolve(factory.toString()));

    QSignalSpy pathChanged(app, &AppData::wallPaperPathChanged);
    TunerView view;
    QCOMPARE(app->wallPaperPath(), resolve(used));
    QCOMPARE(pathChanged.count(), storedInAppData ? 1 : 0);

    const QSize expected = sizes.value(used, QPixmap(used).size());
    QCOMPARE(bkgSize(view), expected);
    QSharedPointer<QPixmap> cached = BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg"));
    QVERIFY(cached);
    QCOMPARE(cached->size(), expected);
}

void tst_TunerView::wallpaperCacheUsedNotLoaded()
{
    const QString file = writeImage(*m_dir, QStringLiteral("wall.png"), QSize(11, 13), Qt::red);
    AppData::GetInstance()->setWallPaperPath(file);
    QPixmap pm(7, 3);
    pm.fill(Qt::green);
    auto cached = QSharedPointer<QPixmap>::create(pm);
    BaseControl::getInstance()->setBackupPixmap(cached, QStringLiteral("homeBg"));

    TunerView view;
    const QPixmap shown = label(view, "bkg")->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.size(), QSize(7, 3));
    QCOMPARE(shown.toImage().pixelColor(0, 0), QColor(Qt::green));
    QCOMPARE(BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg")), cached);
}

void tst_TunerView::wallpaperLoadedOnceIntoCache()
{
    const QString file = writeImage(*m_dir, QStringLiteral("wall.png"), QSize(11, 13), Qt::red);
    AppData::GetInstance()->setWallPaperPath(file);
    QSharedPointer<QPixmap> first;
    {
        TunerView view;
        first = BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg"));
        QVERIFY(first);
        QCOMPARE(first->size(), QSize(11, 13));
    }
    // The file changes; a second view still shows what the cache holds.
    QVERIFY(!writeImage(*m_dir, QStringLiteral("wall.png"), QSize(5, 5), Qt::blue).isEmpty());
    TunerView view;
    QCOMPARE(bkgSize(view), QSize(11, 13));
    QCOMPARE(BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg")), first);
}

void tst_TunerView::wallpaperChangeEvent()
{
    const QString file = writeImage(*m_dir, QStringLiteral("wall.png"), QSize(11, 13), Qt::red);
    const QString next = writeImage(*m_dir, QStringLiteral("next.png"), QSize(5, 9), Qt::blue);
    AppData::GetInstance()->setWallPaperPath(file);
    TunerView view;
    QSharedPointer<QPixmap> cached = BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg"));

    AppData::GetInstance()->setWallPaperPath(next);
    QEvent other{QEvent::Type(WallPaperChange + 1)};
    QCoreApplication::sendEvent(&view, &other);
    QCOMPARE(bkgSize(view), QSize(11, 13));
    QCoreApplication::postEvent(&view, new QEvent(QEvent::Type(WallPaperChange)));
    QTRY_COMPARE(bkgSize(view), QSize(5, 9));
    QCOMPARE(BaseControl::getInstance()->getBackupPixmap(QStringLiteral("homeBg")), cached);
    QCOMPARE(cached->size(), QSize(11, 13));

    // A path that does not load leaves a blank background.
    AppData::GetInstance()->setWallPaperPath(m_dir->filePath(QStringLiteral("missing.png")));
    QEvent change{QEvent::Type(WallPaperChange)};
    QCoreApplication::sendEvent(&view, &change);
    QVERIFY(label(view, "bkg")->pixmap(Qt::ReturnByValue).isNull());
}

void tst_TunerView::wallpaperWithoutHostServices()
{
    const QString file = writeImage(*m_dir, QStringLiteral("wall.png"), QSize(11, 13), Qt::red);
    DataSaveControl::saveSettingData(SetupStrIdConst::setupWallPaper, file, QString());
    AppData::destroyInstance();
    BaseControl::destroyInstance();
    TunerView view;
    // Straight from the stored setting, with nowhere to keep path or pixmap.
    QCOMPARE(bkgSize(view), QSize(11, 13));
    QEvent change{QEvent::Type(WallPaperChange)};
    QCoreApplication::sendEvent(&view, &change);
    QCOMPARE(bkgSize(view), QSize(11, 13));
}

// ---- Bottom strip ----

namespace {

HvIconButton* temperatureButton(TunerView& view)
{
    for (HvIconButton* b : view.findChildren<HvIconButton*>(QString(), Qt::FindDirectChildrenOnly))
        if (b->geometry() == QRect(0, 535, 111, 60))
            return b;
    return nullptr;
}

} // namespace

void tst_TunerView::temperature_data()
{
    QTest::addColumn<QVariant>("storedCelsius");  // invalid = nothing stored
    QTest::addColumn<QVariant>("defaultCelsius"); // invalid = host default (Celsius)
    QTest::addColumn<float>("reading");
    QTest::addColumn<QString>("text");
    const QVariant none;
    const QVariant yes(true);
    const QVariant no(false);
    QTest::newRow("no reading, C") << yes << none << -257.0f << QString::fromUtf8("---°C");
    QTest::newRow("no reading, F") << no << none << -257.0f << QString::fromUtf8("---°F");
    QTest::newRow("-256.9 C") << yes << none << -256.9f << QString::fromUtf8("-256.9°C");
    QTest::newRow("-256.9 F") << no << none << -256.9f << QString::fromUtf8("-430.4°F");
    QTest::newRow("21.46 C") << yes << none << 21.46f << QString::fromUtf8("21.5°C");
    QTest::newRow("host default is C") << none << none << 21.46f << QString::fromUtf8("21.5°C");
    QTest::newRow("default F") << none << no << 20.0f << QString::fromUtf8("68.0°F");
    QTest::newRow("stored beats default") << yes << no << 20.0f << QString::fromUtf8("20.0°C");
}

void tst_TunerView::temperature()
{
    QFETCH(QVariant, storedCelsius);
    QFETCH(QVariant, defaultCelsius);
    QFETCH(float, reading);
    QFETCH(QString, text);
    if (storedCelsius.isValid())
        DataSaveControl::saveSettingData(SetupStrIdConst::setupTemperature, storedCelsius, QString());
    if (defaultCelsius.isValid())
        DataDefault::setDefault(SetupStrIdConst::setupTemperature, defaultCelsius);
    AppData::GetInstance()->setCurTemperature(reading);
    TunerView view;
    view.InitBottomWidget();
    HvIconButton* temper = temperatureButton(view);
    QVERIFY(temper);
    QCOMPARE(temper->displayText(), text);

    // A later reading shows after the next refresh.
    AppData::GetInstance()->setCurTemperature(-257.0f);
    QCOMPARE(temper->displayText(), text);
    view.updateTemperSlot();
    QVERIFY(temper->displayText().startsWith(QStringLiteral("---")));
}

void tst_TunerView::temperatureWithoutBottomStrip()
{
    TunerView view;
    const int buttons = view.findChildren<HvIconButton*>().size();
    view.updateTemperSlot();
    QCOMPARE(view.findChildren<HvIconButton*>().size(), buttons);
    QVERIFY(!temperatureButton(view));

    // No application data: no reading.
    AppData::destroyInstance();
    view.InitBottomWidget();
    QCOMPARE(temperatureButton(view)->displayText(), QString::fromUtf8("---°C"));
}

void tst_TunerView::bottomStrip()
{
    TunerView view;
    view.InitBottomWidget();
    HvIconButton* close = nullptr;
    for (HvIconButton* b : view.findChildren<HvIconButton*>(QString(), Qt::FindDirectChildrenOnly))
        if (b->buttonID() == QLatin1String("closescreen_ID"))
            close = b;
    QVERIFY(close);
    QCOMPARE(close->geometry(), QRect(925, 534, 90, 66));

    HvIconButton* temper = temperatureButton(view);
    QVERIFY(temper);
    QVERIFY(temper->disableState());

    // The close button does nothing in the view.
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy clicked(close, &HvIconButton::btnClicked);
    click(close);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(view.isVisible());
    QVERIFY(view.settingPage()->isHidden());
}

// ---- Settings page ----

void tst_TunerView::setupButtonToggles()
{
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    RadioSetting* page = view.settingPage();
    HvIconButton* setup = button(view, "setupBtn");
    click(setup);
    QVERIFY(page->isVisible());
    click(setup);
    QVERIFY(!page->isVisible());
}

void tst_TunerView::hidingSlots_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<bool>("shown");
    for (const char* slot : {"InfoBtnClicked", "PresetListBtnClicked", "ScaleBtnClicked", "ExitRadioSettingSlot"}) {
        QTest::addRow("%s, page shown", slot) << QString::fromLatin1(slot) << true;
        QTest::addRow("%s, page hidden", slot) << QString::fromLatin1(slot) << false;
    }
}

void tst_TunerView::hidingSlots()
{
    QFETCH(QString, slot);
    QFETCH(bool, shown);
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    RadioSetting* page = view.settingPage();
    page->setVisible(shown);
    QVERIFY(QMetaObject::invokeMethod(&view, slot.toLatin1().constData(), Q_ARG(QString, QStringLiteral("id"))));
    QVERIFY(!page->isVisible());
    QVERIFY(view.isVisible());
}

void tst_TunerView::settingCloseButtonHidesPage()
{
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    RadioSetting* page = view.settingPage();
    click(button(view, "setupBtn"));
    QVERIFY(page->isVisible());
    click(child<HvIconButton>(*page, QStringLiteral("setup_close")));
    QVERIFY(!page->isVisible());
}

void tst_TunerView::switchesRelayed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("AF") << "AFBtn" << QByteArray(SIGNAL(sigAFStatusChange(QString, bool)));
    QTest::newRow("TA") << "TABtn" << QByteArray(SIGNAL(sigTAStatusChange(QString, bool)));
    QTest::newRow("REG") << "RegBtn" << QByteArray(SIGNAL(sigRegStatusChange(QString, bool)));
    QTest::newRow("scan") << "ScanBtn" << QByteArray(SIGNAL(sigScanStatusChange(QString, bool)));
    QTest::newRow("LOC") << "LocOnOff" << QByteArray(SIGNAL(sigLocStatusChange(QString, bool)));
}

void tst_TunerView::switchesRelayed()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, signal);
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.SetupBtnClickedSlot(QString());
    auto* sw = child<MOnOffButton>(*view.settingPage(), name);
    QVERIFY(sw);
    QSignalSpy spy(&view, signal.constData());
    QSignalSpy others(&view, &TunerView::sigAntPowerStatusChange);
    click(sw);
    click(sw);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0), (QList<QVariant>{name, true}));
    QCOMPARE(spy.at(1), (QList<QVariant>{name, false}));
    QCOMPARE(others.count(), 0);
}

void tst_TunerView::pageSignalsRelayed()
{
    TunerView view;
    RadioSetting* page = view.settingPage();
    QSignalSpy ptySeek(&view, &TunerView::sigPTYSeekClicked);
    QSignalSpy as(&view, &TunerView::sigAsBtnClicked);
    QSignalSpy antenna(&view, &TunerView::sigAntPowerStatusChange);
    QSignalSpy ptyList(&view, &TunerView::sigSelectedPTYChanged);
    emit page->sigPTYSeekBtnClicked(QStringLiteral("seek"));
    emit page->sigAsBtnClicked(QStringLiteral("as"));
    emit page->sigAntPowerStatusChange(QStringLiteral("ant"), true);
    emit page->sigPTYBtnClicked(QStringLiteral("pty"));
    QCOMPARE(ptySeek.count(), 1);
    QCOMPARE(ptySeek.at(0).at(0).toString(), QStringLiteral("seek"));
    QCOMPARE(as.count(), 1);
    QCOMPARE(as.at(0).at(0).toString(), QStringLiteral("as"));
    QCOMPARE(antenna.count(), 1);
    QCOMPARE(antenna.at(0), (QList<QVariant>{QStringLiteral("ant"), true}));
    QCOMPARE(ptyList.count(), 0);
}

void tst_TunerView::statusSettingForwarded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<SwitchSetter>("setter");
    QTest::newRow("AF") << "AFBtn" << &TunerView::AFStatusSetting;
    QTest::newRow("TA") << "TABtn" << &TunerView::TAStatusSetting;
    QTest::newRow("REG") << "RegBtn" << &TunerView::REGStatusSetting;
    QTest::newRow("scan type") << "ScanBtn" << &TunerView::ScanTypeSetting;
}

void tst_TunerView::statusSettingForwarded()
{
    QFETCH(QString, name);
    QFETCH(SwitchSetter, setter);
    TunerView view;
    auto* sw = child<MOnOffButton>(*view.settingPage(), name);
    (view.*setter)(true);
    QVERIFY(sw->onoffStatus());
    for (MOnOffButton* other : view.settingPage()->findChildren<MOnOffButton*>())
        QCOMPARE(other->onoffStatus(), other == sw);
    (view.*setter)(false);
    QVERIFY(!sw->onoffStatus());
}

// ---- Layouts that lack optional widgets ----

void tst_TunerView::absentIndicators()
{
    LayoutTamper tamper("TunerView");
    for (const char* name : {"AFDisp", "TADisp", "TPDisp"})
        tamper.withhold(QLatin1String(name));
    TunerView view;
    QLabel* af = child<QLabel>(view, LayoutTamper::absentName(QStringLiteral("AFDisp")));
    QLabel* ta = child<QLabel>(view, LayoutTamper::absentName(QStringLiteral("TADisp")));
    QVERIFY(af && ta);
    // Not found, so not hidden at construction either.
    QVERIFY(!af->isHidden());
    const QColor before = textColour(af);
    view.AFStatusDisp(false);
    view.TATPStatusDisp(true, true, true);
    QCOMPARE(textColour(af), before);
    QCOMPARE(textColour(ta), before);
    view.ClearRDSDisp();
    view.ClearAFDisp();
    view.ClearTADisp();
    view.ClearTPDisp();
    QVERIFY(!af->isHidden());
    QVERIFY(!ta->isHidden());
}

void tst_TunerView::absentRollingTexts()
{
    LayoutTamper tamper("TunerView");
    for (const char* name : {"PSDisp", "PTYDisp", "RTDisp"})
        tamper.withhold(QLatin1String(name));
    TunerView view;
    const QList<HvRollingText*> orphans{child<HvRollingText>(view, LayoutTamper::absentName(QStringLiteral("PSDisp"))),
                                        child<HvRollingText>(view, LayoutTamper::absentName(QStringLiteral("PTYDisp"))),
                                        child<HvRollingText>(view, LayoutTamper::absentName(QStringLiteral("RTDisp")))};
    QByteArray ps = bytes8("RADIO 1 ");
    QByteArray rt("radio text");
    view.PSDisp(reinterpret_cast<unsigned char*>(ps.data()));
    view.RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
    view.PTYDisp(10);
    view.ClearRDSDisp();
    view.RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
    for (HvRollingText* w : orphans) {
        QVERIFY(w);
        QCOMPARE(w->text(), Placeholder);
    }
}

void tst_TunerView::absentAsPsAndStereoLabels()
{
    LayoutTamper tamper("TunerView");
    tamper.withhold(QStringLiteral("AS_PS_DispLabel"));
    tamper.withhold(QStringLiteral("STDispLabel"));
    TunerView::s_asPsBlinkMs = 10;
    TunerView::s_standbyMs = 60;
    TunerView view;
    QLabel* asps = child<QLabel>(view, LayoutTamper::absentName(QStringLiteral("AS_PS_DispLabel")));
    QLabel* st = child<QLabel>(view, LayoutTamper::absentName(QStringLiteral("STDispLabel")));
    QVERIFY(asps && st);
    // Never cleared by the view: the layout's translated texts stay.
    QCOMPARE(asps->text(), QStringLiteral("AS"));
    QCOMPARE(st->text(), QStringLiteral("ST"));

    view.StartAsPsDisp(1);
    QVERIFY(view.isAsPsBlinking());
    QSignalSpy standby(&view, &TunerView::sigReqShowStandby);
    view.resetStandbyTimetSlot();
    QTRY_COMPARE(standby.count(), 1);  // several blink ticks have passed
    sendLanguageChange(&view);
    view.SetStDisp(0);
    view.StopAsPsDisp();
    QVERIFY(!view.isAsPsBlinking());
    QCOMPARE(asps->text(), QStringLiteral("AS"));
    QCOMPARE(st->text(), QStringLiteral("ST"));
}

void tst_TunerView::absentSlider()
{
    LayoutTamper tamper("TunerView");
    tamper.withhold(QStringLiteral("radioSlider"));
    TunerView view;
    auto* slider = child<MRadioSlider>(view, LayoutTamper::absentName(QStringLiteral("radioSlider")));
    QVERIFY(slider);
    QSignalSpy params(&view, &TunerView::sigRadioFreqParamChanged);
    QSignalSpy sent(&view, &TunerView::sigFreqFromRadioSlider);
    view.checkFreqParam(0);
    QCOMPARE(params.count(), 1);
    emit view.sigRadioCurFreqChanged(9810.0f);
    // Not connected: the scale keeps the layout's AM set-up.
    QVERIFY(!slider->isFM());
    QCOMPARE(slider->freqStart(), 522.0f);
    QCOMPARE(slider->curFreq(), 600.0f);
    emit slider->freqChangedSgl(900.0f);
    QCOMPARE(sent.count(), 0);
    view.FreqFromRadioSlider(9810.0f);
    QCOMPARE(sent.count(), 1);
}

void tst_TunerView::absentSetupButton()
{
    LayoutTamper tamper("TunerView");
    tamper.withhold(QStringLiteral("setupBtn"));
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    auto* setup = child<HvIconButton>(view, LayoutTamper::absentName(QStringLiteral("setupBtn")));
    QVERIFY(setup);
    click(setup);
    QVERIFY(!view.settingPage()->isVisible());
    view.SetupBtnClickedSlot(QString());
    QVERIFY(view.settingPage()->isVisible());
}

void tst_TunerView::powerButtonWhenLayoutHasOne()
{
    LayoutTamper tamper("TunerView");
    tamper.addExtra([](QWidget* host) {
        auto* power = new HvIconButton(host);
        power->setObjectName(QStringLiteral("PowerBtn"));
        power->setButtonID(QStringLiteral("power"));
        power->setGeometry(0, 0, 80, 80);
        return power;
    });
    TunerView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    auto* power = button(view, "PowerBtn");
    QVERIFY(power);
    power->raise();
    QSignalSpy spy(&view, &TunerView::sigOnPowerBtnClicked);
    click(power);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("power"));
}

// ---- The screen as a person sees it ----

void tst_TunerView::renderScreen()
{
    if (qEnvironmentVariableIsEmpty("RADIO_TEST_OUTPUT"))
        QSKIP("RADIO_TEST_OUTPUT not set");
    auto view = makeView();
    view->SetRadioRegion(12);
    tuneTo(*view, 0, 10510, 0);
    unsigned short freqs[12] = {8750, 9010, 9810, 10160, 10510, 10800};
    QByteArray names = bytes8("RADIO 1 ") + bytes8("") + bytes8("JAZZ FM ") + QByteArray(8, '\0')
        + bytes8("  ROCK  ") + bytes8("NEWS 24 ") + QByteArray(48, ' ');
    view->Tuner_UI_PresetDisp(freqs, reinterpret_cast<unsigned char*>(names.data()), 0);
    view->Tuner_UI_CurPreset(5);
    QByteArray ps = bytes8("RADIO 1 ");
    view->PSDisp(reinterpret_cast<unsigned char*>(ps.data()));
    QByteArray rt("Now playing: The Band - A Song");
    view->RTDisp(reinterpret_cast<unsigned char*>(rt.data()));
    view->PTYDisp(10);
    view->AFStatusDisp(true);
    view->TATPStatusDisp(true, false, true);
    view->SetStDisp(1);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));

    const QImage image = view->grab().toImage();
    QCOMPARE(image.size(), QSize(1280, 720));
    const QString path = saveRender(image, QStringLiteral("tunerview.png"));
    QVERIFY(!path.isEmpty());
    QVERIFY(!QImage(path).isNull());
}

QTEST_MAIN(tst_TunerView)
#include "tst_tunerview.moc"
