// The controller between a fake tuner service and the host stand-ins. A row
// is a list of steps (status records in, touches, host calls, timer ticks)
// and what can be observed afterwards: the host's calls and the controller's
// signals in order, then the frames the service received, and the state of
// the screen. Steps before "--" only set the scene.
#include "TunerView.h"
#include "TunerViewImpl.h"

#include "ContextTranslator.h"
#include "FakeTunerService.h"
#include "ObjectTimers.h"
#include "ProtocolComm.h"

#include "ActivityManager.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseBar.h"
#include "BaseControl.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioModule.h"
#include "SetupEqView.h"
#include "SetupStrIdConst.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>
#include <thread>

namespace {

// "tune(9810,0,preset=1)", "presets(8750,9010)", "names(ROCK,,JAZZ)",
// "ps(RADIO 88)", "rt(text)", "pty(10,9)", "rds(0x8A)", "aux(1,2)" (words),
// "blocks(1,2)" (bytes): a record of that kind, positional values first;
// any field may be named, "cmd" included. Values are percent-encoded.
tag_RadioCmdFromMCU record(const QString& step)
{
    static const QHash<QString, QPair<uint, QString>> kinds{
        {"tune", {0, "freq band"}}, {"presets", {4, "presets"}}, {"pty", {5, "pty sel"}}, {"ps", {6, "psName"}},
        {"rt", {7, "rt"}}, {"names", {8, "names"}}, {"rds", {9, "rds"}}, {"aux", {35, "aux"}}, {"blocks", {36, "blocks"}}};
    // Byte offset and width; a negative width is a space-padded text.
    static const QHash<QString, QPair<int, int>> fields{
        {"cmd", {0, 4}}, {"freq", {4, 4}}, {"band", {8, 1}}, {"preset", {9, 1}}, {"dx", {10, 1}}, {"as", {11, 1}},
        {"stereo", {13, 1}}, {"ps", {14, 1}}, {"presets", {18, 2}}, {"psName", {56, -8}}, {"pty", {64, 1}},
        {"sel", {65, 1}}, {"rds", {67, 1}}, {"names", {68, -8}}, {"rt", {164, -64}}, {"aux", {236, 2}}, {"blocks", {296, 1}}};
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    const QString kind = step.section(QLatin1Char('('), 0, 0);
    const QStringList positional = kinds.value(kind).second.split(QLatin1Char(' '));
    const QStringList args = step.section(QLatin1Char('('), 1).chopped(1).split(QLatin1Char(','));
    r.cmd = kinds.value(kind).first;
    for (int i = 0; i < args.size(); ++i) {
        const bool named = args[i].contains(QLatin1Char('='));
        const QString key = named ? args[i].section(QLatin1Char('='), 0, 0) : positional.value(i, positional.last());
        const QByteArray value = QByteArray::fromPercentEncoding(args[i].section(QLatin1Char('='), named ? 1 : 0).toLatin1());
        const QPair<int, int> f = fields.value(key);
        char* at = reinterpret_cast<char*>(&r) + f.first + (named ? 0 : i - positional.indexOf(key)) * qAbs(f.second);
        const quint32 number = value.toUInt(nullptr, 0);
        if (f.second < 0)
            std::memset(at, f.first == 164 ? 0 : ' ', size_t(-f.second));
        std::memcpy(at, f.second < 0 ? value.constData() : reinterpret_cast<const char*>(&number),
                    size_t(f.second < 0 ? qMin(value.size(), -f.second) : f.second));
    }
    return r;
}

// Calls "Method(a,b)" on the object by name, converting each argument to
// the parameter's type; works for slots and signals alike.
bool invoke(QObject* target, const QString& call)
{
    const QByteArray name = call.section(QLatin1Char('('), 0, 0).toLatin1();
    const QString inner = call.section(QLatin1Char('('), 1).chopped(1);
    const QStringList args = inner.isEmpty() ? QStringList() : inner.split(QLatin1Char(','));
    for (int i = 0; target && i < target->metaObject()->methodCount(); ++i) {
        const QMetaMethod m = target->metaObject()->method(i);
        if (m.name() != name || m.parameterCount() != args.size())
            continue;
        QVariant values[2];
        QGenericArgument generic[2];
        const QList<QByteArray> typeNames = m.parameterTypes();
        for (int p = 0; p < args.size(); ++p) {
            const int type = m.parameterType(p);
            values[p] = type == QMetaType::QString ? QVariant(args[p])
                : type == QMetaType::Bool        ? QVariant(args[p] == QLatin1String("true"))
                                                 : QVariant(args[p].toLongLong());
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
            values[p].convert(QMetaType(type));
#else
            values[p].convert(type);
#endif
            generic[p] = QGenericArgument(typeNames[p].constData(), values[p].data());
        }
        return m.invoke(target, Qt::DirectConnection, generic[0], generic[1]);
    }
    return false;
}

} // namespace

class tst_TunerViewImpl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    // First: the screen is taken at every construction but the first one
    // that finds last-memory source 0.
    void takeScreenOncePerProcess();
    void behaviour_data();
    void behaviour();
    void floodWithControllersComingAndGoing();
    // The link's reader hands records to m_radio until it is joined.
    void cleanupTestCase() { ProtocolComm::DeleteInstance(); }

private:
    void create();
    void step(const QString& step);
    void log(const QString& line) { m_events << line; }
    QString observe(const QString& key) const;
    QStringList sentFrames();

    QTemporaryDir m_settings;
    FakeTunerService m_service;
    RadioModule m_radio;
    QSharedPointer<AuxinModulePlugin> m_auxin = QSharedPointer<AuxinModulePlugin>::create();
    ContextTranslator m_translator;
    TunerViewImpl* m_ctl = nullptr;
    QStringList m_events;
};

void tst_TunerViewImpl::initTestCase()
{
    QVERIFY(m_settings.isValid() && m_service.start());
    DataSaveControl::setStoreFile(m_settings.filePath(QStringLiteral("settings.ini")));
    BaseControl* host = BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();
    connect(host, &BaseControl::callRecorded, this, [this](const QString& c) { log("host " + c); });
    connect(host, &BaseControl::playpausebtnChangeSig, this, [this](int s) { log(QStringLiteral("playpause %1").arg(s)); });
    connect(hvappframework::ActivityManager::self().data(), &hvappframework::ActivityManager::switchRequested, this,
            [this](const QString& name, int param) { log(QStringLiteral("switch %1,%2").arg(name).arg(param)); });
    connect(m_auxin->getAuxinModule(), &AuxinModule::callRecorded, this, [this](const QString& c) { log("auxin " + c); });
    hvappframework::ModuleManager::self()->addModule(m_auxin);
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), &m_radio));
}

void tst_TunerViewImpl::init()
{
    if (AppData* appData = AppData::GetInstance()) {
        appData->setLastMemSrc(3);
        appData->setIsReversing(false);
    }
}

void tst_TunerViewImpl::cleanup()
{
    QCoreApplication::removeTranslator(&m_translator);
    delete m_ctl;
    m_ctl = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    sentFrames();
    m_events.clear();
}

void tst_TunerViewImpl::create()
{
    m_ctl = new TunerViewImpl(nullptr);
    TunerViewImpl* c = m_ctl;
    TunerView* view = c->tunerView();
    connect(c, &TunerViewImpl::sigRadioBandChanged, this, [this](uchar b) { log(QStringLiteral("band %1").arg(b)); });
    connect(c, &TunerViewImpl::sigRadioInfoChanged, this, [this] { log(QStringLiteral("info")); });
    connect(c, &TunerViewImpl::sigRadioFlagChanged, this, [this](uint f) { log("flag 0x" + QString::number(f, 16)); });
    connect(c, &TunerViewImpl::sigRadioInfoOK, this, [this] { log(QStringLiteral("infoOK")); });
    connect(c, &TunerViewImpl::sigResetStandbyTimer, this, [this] { log(QStringLiteral("resetStandby")); });
    connect(c, &TunerViewImpl::sigStopStandbyTimer, this, [this] { log(QStringLiteral("stopStandby")); });
    connect(c, &TunerViewImpl::sigRadioRegionChanged, this,
            [this](uchar b, int r) { log(QStringLiteral("region %1,%2").arg(b).arg(r)); });
    connect(view, &TunerView::sigRadioCurFreqChanged, this, [this](float f) { log(QStringLiteral("curFreq %1").arg(f)); });
    connect(view, &TunerView::sigRadioFreqParamChanged, this, [this](bool fm, float lo, float hi, float step) {
        log(QStringLiteral("scale %1 %2-%3/%4").arg(QLatin1String(fm ? "FM" : "AM")).arg(lo).arg(hi).arg(step));
    });
    connect(view, &QObject::destroyed, this, [this] { log(m_pTuner ? "view gone, tuner set" : "view gone"); });
}

QStringList tst_TunerViewImpl::sentFrames()
{
    RadioCmdToMCU marker{0xA5A5A5A5u, 0};
    ProtocolComm::GetInstance()->SendData(&marker, sizeof marker);
    for (size_t n = 1; m_service.waitForFrames(n) && m_service.frames().back().code != marker.code; ++n) {
    }
    QStringList frames;
    for (const RadioCmdToMCU& f : m_service.frames())
        frames << QStringLiteral("frame %1,%2").arg(f.code).arg(f.param);
    m_service.clearFrames();
    return frames.mid(0, frames.size() - 1);
}

void tst_TunerViewImpl::step(const QString& s)
{
    static const QRegularExpression isRecord(QStringLiteral("^(tune|presets|names|ps|rt|pty|rds|aux|blocks)\\("));
    const QString target = s.section(QLatin1Char('.'), 0, 0);
    const QString what = s.section(QLatin1Char('.'), 1);
    if (isRecord.match(s).hasMatch()) {
        // Through the queued hand-over, as from the link's reader.
        m_ctl->RecvedTunerMsg(record(s));
        QCoreApplication::sendPostedEvents(m_ctl, QEvent::MetaCall);
    } else if (s.startsWith(QLatin1String("wire:"))) {
        QVERIFY(m_service.writeRecord(record(s.mid(5))));
    } else if (s.startsWith(QLatin1String("quiet:"))) {
        const int before = m_events.size();
        step(s.mid(6));
        m_events = m_events.mid(0, before);
    } else if (s == QLatin1String("--")) {
        sentFrames();
        m_events.clear();
    } else if (target == QLatin1String("click") || target == QLatin1String("long")) {
        auto* button = m_ctl->findChild<HvIconButton*>(what);
        QVERIFY2(button, qPrintable(s));
        emit(target == QLatin1String("click") ? button->btnClicked(button->buttonID())
                                               : button->btnLongPress(button->buttonID()));
    } else if (target == QLatin1String("timer") || target == QLatin1String("viewtimer")) {
        QObject* owner = target == QLatin1String("timer") ? static_cast<QObject*>(m_ctl) : m_ctl->tunerView();
        if (!ObjectTimers::fire(owner, what.toInt()))
            log(QStringLiteral("no timer ") + what);
    } else if (s == QLatin1String("stop")) {
        m_ctl->onStop();
    } else if (s == QLatin1String("show") || s == QLatin1String("hide")) {
        m_ctl->setVisible(s == QLatin1String("show"));
    } else if (s == QLatin1String("reversing")) {
        AppData::GetInstance()->setIsReversing(true);
    } else if (s == QLatin1String("language")) {
        // The application passes the change on to its windows by posting.
        QCoreApplication::installTranslator(&m_translator);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    } else if (s == QLatin1String("recreate") || s == QLatin1String("destroy")) {
        delete m_ctl;
        m_ctl = nullptr;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (s == QLatin1String("recreate"))
            create();
    } else {
        const QHash<QString, QObject*> targets{{"ctl", m_ctl}, {"view", m_ctl->tunerView()}, {"bar", m_ctl->baseBar()},
                                               {"eq", m_ctl->eqView()}, {"host", BaseControl::getInstance()}};
        QVERIFY2(invoke(targets.value(target), what), qPrintable(s));
    }
}

// "Name.property" of a child widget (by object or class name), with the
// pseudo properties "shown" and "colour"; or a value the host keeps.
QString tst_TunerViewImpl::observe(const QString& key) const
{
    const QString name = key.section(QLatin1Char('.'), 0, 0);
    const QString prop = key.section(QLatin1Char('.'), 1);
    const RadioInfo_t_ info = m_radio.radioInfo();
    const AppData* app = AppData::GetInstance();
    QStringList names;
    for (const auto& n : m_ctl->lastMsg().presetPsName)
        names << QString::fromLatin1(reinterpret_cast<const char*>(n), int(qstrnlen(reinterpret_cast<const char*>(n), 8)))
                     .trimmed();
    // The host's texts as the bytes it got, percent-encoded but for spaces.
    const auto bytes = [](const char* text, size_t size) {
        return QString::fromLatin1(QByteArray(text, int(qstrnlen(text, size))).toPercentEncoding(" "));
    };
    const QHash<QString, QString> values{
        {"host.freqText", bytes(info.freqText, sizeof info.freqText)},
        {"host.psText", bytes(info.psText, sizeof info.psText)},
        {"host.ptyText", bytes(info.ptyText, sizeof info.ptyText)},
        {"host.flag", QString::number(m_radio.radioFlag(), 16)},
        {"AppData.band", app ? QString::number(app->tunerBand()) : QString()},
        {"AppData.preset", app ? QString::number(app->tunerPreset()) : QString()},
        {"AppData.playState", app ? QString::number(app->playState()) : QString()},
        {"setting.scanType", DataSaveControl::readSettingData(SetupStrIdConst::setupRadioScanType, "-", {}).toString()},
        {"setting.antPower", DataSaveControl::readSettingData(SetupStrIdConst::setupRadioAntPower, "-", {}).toString()},
        {"timer.560", ObjectTimers::isRunning(m_ctl, 560) ? "running" : "stopped"},
        {"names", names.join(QLatin1Char('|'))},
        {"kept", QStringLiteral("%1,%2|%3,%4").arg(m_ctl->lastMsg().auxWords[0]).arg(m_ctl->lastMsg().auxWords[1])
                     .arg(m_ctl->lastMsg().auxBlocks[0][0]).arg(m_ctl->lastMsg().auxBlocks[0][1])}};
    if (values.contains(key))
        return values.value(key);
    QWidget* widget = nullptr;
    for (QWidget* w : m_ctl->findChildren<QWidget*>())
        if (w->objectName() == name || (!widget && QLatin1String(w->metaObject()->className()) == name))
            widget = w;
    if (!widget)
        return QStringLiteral("missing");
    if (prop == QLatin1String("shown"))
        return widget->isHidden() ? QStringLiteral("false") : QStringLiteral("true");
    if (prop == QLatin1String("cleared")) {
        // Painted over an opaque image, every pixel comes out transparent.
        QImage image(widget->size(), QImage::Format_ARGB32);
        image.fill(Qt::red);
        widget->render(&image);
        return image.pixelColor(0, 0).alpha() + image.pixelColor(widget->width() - 1, widget->height() - 1).alpha()
            ? QStringLiteral("false") : QStringLiteral("true");
    }
    if (prop == QLatin1String("colour"))
        return widget->palette().color(QPalette::WindowText).name();
    if (auto* bar = qobject_cast<BaseBar*>(widget))
        return bar->currentTitle();
    return widget->property(prop.toLatin1().constData()).toString();
}

void tst_TunerViewImpl::takeScreenOncePerProcess()
{
    AuxinModule* audio = m_auxin->getAuxinModule();
    const QStringList setUp{"setVideoOnly(false)", "setAVInMode(0)", "setAudioOnly(true)", "setAudioInChannel(1)",
                            "streamOn()"};
    // No host application data yet: not last-memory source 0.
    create();
    QCOMPARE(audio->calls(), QStringList{"takeScreen()"} + setUp);
    AppData::createInstance();
    for (const QStringList& expected : {setUp, QStringList{"takeScreen()"} + setUp}) {
        cleanup();
        AppData::GetInstance()->setLastMemSrc(0);
        audio->clearCalls();
        create();
        QCOMPARE(audio->calls(), expected);
    }
}

void tst_TunerViewImpl::behaviour_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("effects");
    QTest::addColumn<QStringList>("state");
    auto row = [](const char* name, const QStringList& steps, const QStringList& effects,
                  const QStringList& state = QStringList()) { QTest::newRow(name) << steps << effects << state; };
    const QStringList fm1{"tune(9810,0)", "presets()", "--"};
    const QStringList fm2{"tune(9000,1)", "presets()", "--"};
    const QStringList am2{"tune(999,4)", "presets()", "--"};
    const QStringList rds{"tune(9810,0,preset=1)", "presets()", "names(N1,N2,N3,N4,N5,N6,N7,N8,N9,N10,N11,N12)",
                          "ps(RADIO 88)", "pty(10,0)", "rds(0x04)", "--"};
    const QString tuneInfo = QStringLiteral("info");
    const QStringList quiet{tuneInfo, "flag 0x0"};

    // Start-up.
    row("construction: region 12, audio, one list request", {},
        {"host setRadioRegion(12)", "auxin takeScreen()", "auxin setVideoOnly(false)", "auxin setAVInMode(0)",
         "auxin setAudioOnly(true)", "auxin setAudioInChannel(1)", "auxin streamOn()", "frame 255,0"},
        {"TunerView.shown=false", "BaseBar.shown=false", "BaseBar.title=Radio", "timer.560=running",
         "RadioEmptyView.cleared=true"});
    row("a tick before the lists shows the screen and asks again", {"--", "timer.560"}, {"frame 255,0"},
        {"TunerView.shown=true", "BaseBar.shown=true", "timer.560=running"});
    row("a tick with the tune info alone asks again", {"tune(9810,0)", "--", "timer.560"}, {"frame 255,0"});
    row("the tick after both lists stops asking", {"tune(9810,0)", "presets()", "--", "timer.560", "timer.560"},
        {"no timer 560"}, {"timer.560=stopped"});
    row("tune info, then presets: the screen is filled once", {"--", "tune(9810,0)", "presets()"},
        {"curFreq 9810", tuneInfo, "flag 0x0", "scale FM 87.5-108/0.05", "curFreq 9810", "infoOK"},
        {"TunerView.shown=true", "BaseBar.shown=true"});
    row("presets, then tune info", {"--", "presets()", "tune(9810,0)"},
        {"curFreq 9810", tuneInfo, "scale FM 87.5-108/0.05", "curFreq 9810", "infoOK", "flag 0x0"});
    row("the screen is filled only once", fm1 + QStringList{"tune(9830,0)", "presets()"}, {"curFreq 9830", tuneInfo, "flag 0x0"});
    row("tune info alone leaves the screen hidden", {"--", "tune(9810,0)"}, {"curFreq 9810", tuneInfo, "flag 0x0"},
        {"TunerView.shown=false"});
    row("records over the socket reach the screen",
        {"--", "wire:presets(9810)", "wire:tune(10510,1,stereo=1)", "wire:names(RADIO 1)", "wire:ps(RADIO 1)",
         "wire:rt(Now playing)", "wire:pty(10,0)", "wire:rds(0x0E)"},
        {}, {"FreqDisp.text=105.10", "BandName.text=FM2", "PS1.displayText=RADIO 1", "RTDisp.text=Now playing",
             "PTYDisp.text=Pop M", "host.freqText=FM2  105.10 MHz", "TunerView.shown=true", "host.flag=d"});
    // Kinds that are only kept, each from its own kind.
    row("aux words and blocks kept", fm1 + QStringList{"aux(7,65535)", "blocks(5,255)", "quiet:tune(9810,0,aux=1,blocks=1)"},
        {}, {"kept=7,65535|5,255"});

    // Tune info.
    row("FM1 87.50 on preset 2", {"--", "tune(8750,0,preset=2)"}, {"curFreq 8750", tuneInfo, "flag 0x0"},
        {"FreqDisp.text=87.50", "MKHz.text=MHz", "BandName.text=FM1", "host.freqText=FM1  87.50 MHz",
         "AppData.band=0", "AppData.preset=2", "PS2.isDown=true"});
    row("FM2 100.05", {"--", "tune(10005,1)"}, {"band 1", "scale FM 87.5-108/0.05", "curFreq 10005", tuneInfo, "flag 0x0"},
        {"host.freqText=FM2  100.05 MHz", "FreqDisp.text=100.05"});
    row("AM1 531", {"--", "tune(531,3)"}, {"band 3", "scale AM 531-1629/1", "curFreq 531", tuneInfo, "flag 0x0"},
        {"host.freqText=AM1  531 kHz", "FreqDisp.text=531", "MKHz.text=kHz", "BandName.text=AM1"});
    row("1999 is AM", {"--", "tune(1999,4)"}, {"band 4", "scale AM 531-1629/1", "curFreq 1999", tuneInfo, "flag 0x0"},
        {"host.freqText=AM2  1999 kHz", "MKHz.text=kHz"});
    row("AM on an FM band: the band counts below zero, cut to the host's field", {"--", "tune(999,0)"},
        {"curFreq 999", tuneInfo, "flag 0x0"}, {"host.freqText=AM4294967294  999 k"});
    row("2000 is FM whatever the band", {"--", "tune(2000,4)"},
        {"band 4", "scale AM 531-1629/1", "curFreq 2000", tuneInfo, "flag 0x0"},
        {"host.freqText=FM5  20.00 MHz", "FreqDisp.text=20.00", "MKHz.text=MHz"});
    row("stereo on FM", {"--", "tune(9810,0,stereo=1)"}, {"curFreq 9810", tuneInfo, "flag 0x1"},
        {"STDispLabel.text=ST", "host.flag=1"});
    row("no stereo on AM", {"--", "tune(999,3,stereo=1)"}, {"band 3", "scale AM 531-1629/1", "curFreq 999", tuneInfo, "flag 0x0"},
        {"STDispLabel.text=", "host.flag=0"});
    row("the same tune info again refreshes and keeps the host's texts", rds + QStringList{"tune(9810,0,preset=1)"},
        quiet, {"host.psText=RADIO 88", "host.ptyText=Pop M"});
    row("a new frequency clears the host's PS and PTY texts", rds + QStringList{"tune(9830,0,preset=1)"},
        {"curFreq 9830", tuneInfo, "flag 0x0"},
        {"host.psText=", "host.ptyText=", "host.freqText=FM1  98.30 MHz", "PSDisp.text=RADIO 88",
         "AFDisp.shown=true", "names=N1|N2|N3|N4|N5|N6|N7|N8|N9|N10|N11|N12"});
    row("a new preset clears them too", rds + QStringList{"tune(9810,0,preset=2)"}, quiet,
        {"host.psText=", "host.ptyText=", "PS2.isDown=true"});
    row("FM to AM clears RDS and the first six preset names", rds + QStringList{"tune(999,3)"},
        {"band 3", "scale AM 531-1629/1", "curFreq 999", tuneInfo, "flag 0x0"},
        {"AFDisp.shown=false", "PSDisp.text=", "PTYDisp.text=", "host.psText=", "names=||||||N7|N8|N9|N10|N11|N12"});
    row("FM1 to FM2 keeps the RDS display", rds + QStringList{"tune(9810,1,preset=1)"},
        {"band 1", "scale FM 87.5-108/0.05", tuneInfo, "flag 0x0"},
        {"AFDisp.shown=true", "PSDisp.text=RADIO 88", "host.psText=", "names=||||||N7|N8|N9|N10|N11|N12"});
    row("AM to FM keeps the RDS display", {"tune(999,3)", "presets()", "rds(0x04)", "ps(RADIO 88)", "--", "tune(9810,0)"},
        {"band 0", "scale FM 87.5-108/0.05", "curFreq 9810", tuneInfo, "flag 0x0"},
        {"AFDisp.shown=true", "PSDisp.text=RADIO 88"});
    row("a new controller starts from an empty record",
        {"tune(999,4,preset=3,dx=1,stereo=1)", "presets()", "names(A,B,C,D,E,F,G,H,I,J,K,L)", "recreate", "--",
         "tune(8750,0)"},
        {"curFreq 8750", tuneInfo, "flag 0x0"}, {"names=|||||||||||"});

    // AS/PS from tune info.
    row("AS blinks off after a second", fm1 + QStringList{"tune(9810,0,as=1)", "viewtimer.1000"}, quiet,
        {"AS_PS_DispLabel.text="});
    row("and on again", fm1 + QStringList{"tune(9810,0,as=1)", "viewtimer.1000", "viewtimer.1000"}, quiet,
        {"AS_PS_DispLabel.text=AS"});
    row("preset scan blinks PS", fm1 + QStringList{"tune(9810,0,ps=1)", "viewtimer.1000", "viewtimer.1000"}, quiet,
        {"AS_PS_DispLabel.text=PS"});
    row("auto search wins over preset scan", fm1 + QStringList{"tune(9810,0,as=1,ps=1)"}, quiet,
        {"AS_PS_DispLabel.text=AS", "AutoSearch.isDown=true"});
    row("the end of the search stops the blink",
        fm1 + QStringList{"tune(9810,0,as=1)", "tune(9810,0)", "viewtimer.1000"}, quiet + quiet + QStringList{"no timer 1000"},
        {"AS_PS_DispLabel.text="});

    // The other kinds.
    row("RDS flags 8A: TA on, TP and TA flagged", fm1 + QStringList{"rds(0x8A)"}, {"flag 0xe"},
        {"TADisp.colour=#ff8000", "TPDisp.colour=#ff8000", "TABtn.onoffStatus=true", "AFBtn.onoffStatus=false"});
    row("RDS flags 04: AF only", fm1 + QStringList{"rds(0x04)"}, {"flag 0x0"},
        {"AFDisp.colour=#ffffff", "AFBtn.onoffStatus=true", "TADisp.colour=#808080"});
    row("RDS flags 40: REG", fm1 + QStringList{"rds(0x40)"}, {"flag 0x10"}, {"RegBtn.onoffStatus=true"});
    row("RDS flags 31: no meaning", fm1 + QStringList{"rds(0x31)"}, {"flag 0x0"}, {"AFBtn.onoffStatus=false"});
    row("RDS flags keep the stereo bit", {"tune(9810,0,stereo=1)", "presets()", "--", "rds(0xFF)"}, {"flag 0x1f"});
    row("programme type", fm1 + QStringList{"pty(10,9)"}, {tuneInfo}, {"host.ptyText=Pop M", "PTYDisp.text=Pop M"});
    row("programme type 0 is empty", fm1 + QStringList{"pty(10,9)", "pty(0,0)"}, {tuneInfo, tuneInfo},
        {"host.ptyText=", "PTYDisp.text="});
    row("programme type 32 is ignored", fm1 + QStringList{"pty(1,5)", "pty(32,9)"}, {tuneInfo},
        {"host.ptyText=News", "PTYDisp.text=News"});
    row("programme-service name of eight letters", fm1 + QStringList{"ps(ABCDEFGH,pty=7)"}, {tuneInfo},
        {"host.psText=ABCDEFGH", "PSDisp.text=ABCDEFGH"});
    row("radio text", fm1 + QStringList{"rt(Now playing)"}, {}, {"RTDisp.text=Now playing"});
    // Bytes beyond ASCII, Latin-1 and UTF-8: the same on every Qt.
    row("PS bytes beyond ASCII", fm1 + QStringList{"ps(%E9T%C3%A9)"}, {tuneInfo},
        {"host.psText=%E9T%C3%A9    ", "PSDisp.text= T      "});
    row("radio text in UTF-8 and Latin-1", fm1 + QStringList{"rt(D%C3%A9j%C3%A0 caf%E9 %C5%99)"}, {},
        {"RTDisp.text=D\u00e9j\u00e0 caf\ufffd \u0159"});
    row("preset names beyond ASCII", fm1 + QStringList{"presets(8750)", "names(R%C3%A4DIO,%E9%E9)"}, {},
        {"PS1.displayText=R  DIO", "PS2.displayText=0 kHz"});
    row("preset frequencies and names", fm1 + QStringList{"presets(8750,9010,9810)", "names(,,JAZZ)"}, {},
        {"PS1.displayText=87.50 MHz", "PS3.displayText=JAZZ"});
    row("preset frequencies alone", fm1 + QStringList{"presets(9010)"}, {}, {"PS1.displayText=90.10 MHz"});
    row("kinds the screen does not read",
        fm1 + QStringList{"tune(12345,4,preset=3,cmd=1)", "tune(12345,4,cmd=3)", "tune(12345,4,cmd=10)",
                          "tune(12345,4,cmd=25)", "tune(12345,4,cmd=27)", "tune(12345,4,cmd=32)",
                          "tune(12345,4,cmd=37)", "tune(12345,4,cmd=0xFFFFFFFF)"},
        {}, {"FreqDisp.text=98.10", "BandName.text=FM1", "AppData.band=0", "AppData.preset=0"});

    // Touches and host keys that go to the tuner, one frame each (or none)
    // on FM2.
    const QStringList keys{
        "click.SeekUp 5,0", "long.SeekUp 5,0", "click.SeekDown 6,0", "long.SeekDown 6,0",
        "host.handle_infopagenextbtn(n) 5,0", "host.handle_infopageprevbtn(p) 6,0", "click.StepUp 7,0",
        "click.StepDown 8,0", "click.AutoSearch 3,0", "long.ASPSBtn 3,0", "click.ASPSBtn 9,0", "ctl.PSPressed(x) 4,0",
        "ctl.NextStationPressed(x) 22,0", "ctl.PrevStationPressed(x) 21,0", "ctl.favorButtonPressed(x) 20,0",
        "ctl.speechCommandSlot_fromBase(1) 3,0", "ctl.speechCommandSlot_fromBase(2)", "ctl.StereoBtnClickedSlot(x)",
        "ctl.bandIncDecButtonPressed2(x)", "ctl.PresetButtonPressed(x)", "ctl.PresetButtonLongPressed(x)",
        "click.DX_LOC 12,1", "view.sigLocStatusChange(Loc,true) 12,1", "view.sigLocStatusChange(Loc,false) 12,0",
        "view.sigAFStatusChange(AF,true) 10,1", "view.sigAFStatusChange(AF,false) 10,0",
        "view.sigTAStatusChange(TA,true) 11,1", "view.sigTAStatusChange(TA,false) 11,0",
        "view.sigRegStatusChange(REG,true) 14,1", "view.sigRegStatusChange(REG,false) 14,0",
        "ctl.TABtnClickedSlot(TA) 11,1", "view.sigSelectedPTYChanged(7) 13,7", "view.sigPTYSeekClicked(x) 18,0",
        "ctl.FreqFromKeypad(8750) 17,8750", "view.sigFreqFromRadioSlider(1602) 17,1602",
        "ctl.FreqFromFavorList(74565) 17,9029", "ctl.ListRadioviewPresetButtonPressed(2,false) 0,3",
        "ctl.ListRadioviewPresetButtonPressed(2,true) 1,3", "ctl.ListKapadPresetButtonPressed(2,false) 0,3",
        "ctl.ListKapadPresetButtonPressed(5,true) 1,6", "view.changeBandSig(0) 2,1", "view.changeBandSig(4) 2,5",
        "view.changeBandSig(-1)", "view.changeBandSig(5)"};
    for (const QString& key : keys) {
        const QString frame = key.section(QLatin1Char(' '), 1);
        QTest::newRow(qPrintable(key)) << fm2 + QStringList{key.section(QLatin1Char(' '), 0, 0)}
                                       << (frame.isEmpty() ? QStringList() : QStringList{"frame " + frame}) << QStringList();
    }
    row("DX_LOC on LOC asks for DX", {"tune(9000,1,dx=1)", "presets()", "--", "click.DX_LOC"}, {"frame 12,0"});
    row("TA key with TA on", {"tune(9000,1)", "presets()", "rds(0x08)", "--", "ctl.TABtnClickedSlot(TA)"}, {"frame 11,0"});
    row("step keys seek once the scan type is switched on",
        fm2 + QStringList{"view.sigScanStatusChange(Scan,true)", "click.StepUp", "click.StepDown",
                          "ctl.ScanTypeSwitchSlot(x)", "click.StepUp"},
        {"frame 5,0", "frame 6,0", "frame 7,0"}, {"setting.scanType=false"});
    row("a new controller reads the stored scan type",
        fm2 + QStringList{"view.sigScanStatusChange(Scan,true)", "recreate", "--", "click.StepUp"}, {"frame 5,0"},
        {"setting.scanType=true", "ScanBtn.onoffStatus=true"});
    row("the scan type switched off again",
        fm2 + QStringList{"view.sigScanStatusChange(Scan,true)", "recreate", "--", "ctl.ScanTypeChangedSlot(Scan,false)",
                          "click.StepUp"},
        {"frame 7,0"}, {"setting.scanType=false"});
    for (int b = 0; b <= 4; ++b) {
        const bool am = b > 2;
        const int place = am ? b - 3 : b;
        const QString tune = am ? QStringLiteral("tune(999,%1)").arg(b) : QStringLiteral("tune(9810,%1)").arg(b);
        const QString other = am ? QStringLiteral("tune(9000,1)") : QStringLiteral("tune(999,4)");
        const int next = am ? (b == 3 ? 5 : 4) : (b + 1) % 3 + 1;
        QTest::addRow("preset keys on band %d", b)
            << QStringList{tune, "presets()", "--", "click.PS3", "long.PS6"}
            << QStringList{QStringLiteral("frame 0,%1").arg(place * 6 + 3), QStringLiteral("frame 1,%1").arg(place * 6 + 6)}
            << QStringList();
        QTest::addRow("band keys on band %d", b)
            << QStringList{other, "presets()", tune, "--", "click.FMicon", "click.AMicon", "click.BandSwitch",
                           "ctl.bandButtonPressed(4)", "ctl.bandButtonPressed(3)", "ctl.bandButtonPressed(5)",
                           "ctl.bandIncDecButtonPressed(Add)", "ctl.bandIncDecButtonPressed(Dec)",
                           "ctl.bandIncDecButtonPressed(ID_band2)", "ctl.bandIncDecButtonPressed(ID_band0)",
                           "ctl.bandIncDecButtonPressed(ID_band7)",
                           "ctl.bandIncDecButtonPressed(add)"}
            << QStringList{QStringLiteral("frame 2,%1").arg(am ? 2 : next), QStringLiteral("frame 2,%1").arg(am ? next : 5),
                           QStringLiteral("frame 2,%1").arg(am ? 1 : 4), "frame 2,0", QStringLiteral("frame 2,%1").arg(next),
                           QStringLiteral("frame 2,%1").arg(am ? next : (b + 2) % 3 + 1), "frame 2,3", "frame 2,1",
                           QStringLiteral("frame 2,%1").arg(b + 1)}
            << QStringList();
    }

    // The host's FM and AM keys remember bands of their own.
    row("host FM and AM keys",
        {"--", "quiet:tune(9000,0)", "host.FMAMChangedSig(1)", "quiet:tune(999,3)", "host.FMAMChangedSig(1)",
         "quiet:tune(9000,2)", "host.FMAMChangedSig(1)", "quiet:tune(999,4)", "host.FMAMChangedSig(1)",
         "quiet:tune(9000,0)", "host.FMAMChangedSig(2)", "quiet:tune(999,3)", "host.FMAMChangedSig(2)",
         "quiet:tune(9000,1)", "host.FMAMChangedSig(2)", "quiet:tune(999,4)", "host.FMAMChangedSig(2)",
         "host.FMAMChangedSig(3)"},
        {"frame 2,2", "frame 2,2", "frame 2,1", "frame 2,1", "frame 2,4", "frame 2,5", "frame 2,5",
         "frame 2,4"});

    // Touches and calls that stay with the host.
    row("bar: home", fm2 + QStringList{"bar.btnClickedSig(home)"}, {"switch home,0"});
    row("bar: carplay", fm2 + QStringList{"bar.btnClickedSig(carplay)"}, {"host sendUserEvent(carplay,7,true,true)"});
    row("bar: AndroidAuto", fm2 + QStringList{"bar.btnClickedSig(AndroidAuto)"},
        {"host sendUserEvent(androidauto,6,true,true)", "host showDeviceSelectDialog(AndroidAuto,1)"});
    row("bar: ids compare exactly",
        fm2 + QStringList{"bar.btnClickedSig(Home)", "bar.btnClickedSig(CARPLAY)", "bar.btnClickedSig(androidauto)"}, {});
    row("DAB key", fm2 + QStringList{"ctl.DABBtnClickedSlot(dab)"}, {"host sendMcuKeyPressedSignal(195,0)"});
    row("power key, then start", fm2 + QStringList{"view.sigOnPowerBtnClicked(power)", "ctl.RadioOnStartSlot()"},
        {"auxin streamOff()", "switch home,0", "auxin setAVInMode(0)", "auxin streamOn()", "resetStandby"});
    row("antenna power off", fm2 + QStringList{"view.sigAntPowerStatusChange(ant,false)"},
        {"host SendDataToMcu(12,182,0)"}, {"setting.antPower=0"});
    row("antenna power on", fm2 + QStringList{"view.sigAntPowerStatusChange(ant,true)"},
        {"host SendDataToMcu(12,182,1)"}, {"setting.antPower=1"});
    row("start while playing", fm2 + QStringList{"ctl.RadioOnStartSlot()"}, {"resetStandby"});
    row("stop leaves the stream alone", fm2 + QStringList{"stop"}, {});
    row("stop, then start", fm2 + QStringList{"stop", "ctl.RadioOnStartSlot()"},
        {"auxin setAVInMode(0)", "auxin streamOn()", "resetStandby"});
    row("stream off", fm2 + QStringList{"ctl.TunerAudioStreamOnOffSlot(1)"}, {"auxin streamOff()", "playpause 2"},
        {"AppData.playState=2"});
    row("stream off, then start", fm2 + QStringList{"ctl.TunerAudioStreamOnOffSlot(1)", "ctl.RadioOnStartSlot()"},
        {"auxin streamOff()", "playpause 2", "auxin setAVInMode(0)", "auxin streamOn()", "resetStandby"});
    row("start while reversing keeps the AV mode",
        fm2 + QStringList{"reversing", "ctl.TunerAudioStreamOnOffSlot(1)", "ctl.RadioOnStartSlot()"},
        {"auxin streamOff()", "playpause 2", "auxin streamOn()", "resetStandby"});
    row("stream on for 0 and 2", fm2 + QStringList{"ctl.TunerAudioStreamOnOffSlot(0)", "ctl.TunerAudioStreamOnOffSlot(2)"},
        {"auxin streamOn()", "playpause 1", "auxin streamOn()", "playpause 1"}, {"AppData.playState=1"});
    row("closing an equaliser that is not open", fm2 + QStringList{"ctl.RadioexitEqSlot()"}, {"resetStandby"});
    row("equaliser opens", fm2 + QStringList{"click.EQBtn"}, {"stopStandby"}, {"SetupEqView.shown=true"});
    row("equaliser closes", fm2 + QStringList{"click.EQBtn", "eq.exitEqSig()"}, {"stopStandby", "resetStandby"},
        {"SetupEqView.shown=false"});
    row("keypad opens knowing band and region", am2 + QStringList{"click.Keyboard"}, {"region 4,12"},
        {"RadioKeypad.shown=true", "txtFAM.text=AM:"});
    row("keypad is made once and reopens on the first digit", am2 + QStringList{"click.Keyboard", "click.Keypad_Close",
        "click.Keyboard"}, {"region 4,12"}, {"RadioKeypad.shown=true", "Keypad_0.disableState=true", "Keypad_1.disableState=false"});
    row("hiding the screen hides the keypad", am2 + QStringList{"show", "click.Keyboard", "hide"}, {"region 4,12"},
        {"RadioKeypad.shown=false"});
    row("hiding the screen makes no keypad", am2 + QStringList{"show", "hide"}, {}, {"RadioKeypad.shown=missing"});
    row("keypad entry tunes",
        fm2 + QStringList{"click.Keyboard", "click.Keypad_1", "click.Keypad_0", "click.Keypad_5", "click.Keypad_1",
                          "click.Keypad_OK"},
        {"region 1,12", "frame 17,10510"}, {"RadioKeypad.shown=false"});
    row("region change reaches the scale at the next band change",
        {"tune(999,3)", "presets()", "--", "host.sigRadioRegionChanged(9)", "tune(6800,0)"},
        {"region 3,9", "band 0", "scale FM 65-74/0.03", "curFreq 6800", tuneInfo, "flag 0x0"});
    row("a region outside the table scales like region 12",
        fm1 + QStringList{"host.sigRadioRegionChanged(99)", "tune(999,3)"},
        {"region 0,99", "band 3", "scale AM 531-1629/1", "curFreq 999", tuneInfo, "flag 0x0"});
    row("language change re-titles the bar", fm2 + QStringList{"language"}, {}, {"BaseBar.title=TunerViewImpl|Radio"});
    row("destruction clears the tuner before the children go", fm2 + QStringList{"destroy"}, {"view gone"});
}

void tst_TunerViewImpl::behaviour()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, effects);
    QFETCH(QStringList, state);

    create();
    for (const QString& s : steps) {
        step(s);
        if (QTest::currentTestFailed())
            return;
    }
    m_events << sentFrames();
    QCOMPARE(m_events, effects);
    for (const QString& expected : state)
        QTRY_COMPARE(observe(expected.section(QLatin1Char('='), 0, 0)), expected.section(QLatin1Char('='), 1));
}

// The service writes tune-info records as fast as the link takes them while
// controllers are built and destroyed: nothing deadlocks, a controller sees
// its records in arrival order, and none stays counted once they are gone.
void tst_TunerViewImpl::floodWithControllersComingAndGoing()
{
    const int total = 20000;
    std::atomic<bool> writing{true};
    std::atomic<int> written{0};
    std::thread writer([&] {
        for (int i = 0; i < total && writing && m_service.writeRecord(record(QStringLiteral("tune(%1,0)").arg(9000 + i)));
             written = ++i) {
        }
    });
    for (int cycle = 0; cycle < 8; ++cycle) {
        create();
        // Until this thread takes its records up, the reader stops at the limit.
        QElapsedTimer clock;
        for (clock.start(); cycle == 0 && m_pTuner.queuedCount() < TunerHandle::MaxQueued && clock.elapsed() < 10000;)
            std::this_thread::yield();
        QVERIFY(cycle > 0 || m_pTuner.queuedCount() == TunerHandle::MaxQueued);
        float last = 0;
        int handled = 0;
        bool inOrder = true;
        connect(m_ctl->tunerView(), &TunerView::sigRadioCurFreqChanged, this, [&](float f) {
            inOrder = inOrder && f > last;
            last = f;
            ++handled;
        });
        QVERIFY(QTest::qWaitFor([&] { return handled >= 100 * (1 + cycle % 3) || written == total; }));
        QVERIFY(inOrder);
        QVERIFY(m_pTuner.queuedCount() <= TunerHandle::MaxQueued);
        delete m_ctl;
        m_ctl = nullptr;
        QCOMPARE(m_pTuner.queuedCount(), 0);
    }
    writing = false;
    writer.join();
    m_events.clear();
}

QTEST_MAIN(tst_TunerViewImpl)
#include "tst_tunerviewimpl.moc"
