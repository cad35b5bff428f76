#include "HeadUnitShell.h"

#include "ActivityManager.h"
#include "ActivityPluginLoader.h"
#include "AppData.h"
#include "AudioControl.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "ControlChannel.h"
#include "ControlCommands.h"
#include "DataSaveControl.h"
#include "HeadUnitWindow.h"
#include "HomeActivity.h"
#include "HostInputs.h"
#include "HostShortcuts.h"
#include "HostState.h"
#include "LanguageSwitch.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioModule.h"
#include "TourRunner.h"
#include "UIManager.h"
#include "UnixSignalNotifier.h"
#include "WidgetTreeDump.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>

#include <csignal>
#include <cstdio>
#include <unistd.h>

Q_LOGGING_CATEGORY(lcShell, "hu.shell")

namespace {

constexpr int ExitNoRadio = 2;
const char* const DumpFormat = "radio-headunit-dump/1";

} // namespace

HeadUnitShell::HeadUnitShell(const HeadUnitOptions& options, QObject* parent) : QObject(parent), m_options(options) {}

HeadUnitShell::~HeadUnitShell()
{
    // A snapshot asked for after the event loop ended, while the window
    // still stands.
    if (m_dumpSignal && m_dumpSignal->takePending())
        dumpOnSignal();
    // Screens go first, while the activities and the plugin code that
    // built them are still there. The activities stay registered: the
    // plugins are not unloaded.
    auto manager = hvappframework::ActivityManager::self();
    for (const QString& name : manager->activityNames()) {
        if (hvappframework::Activity* activity = manager->activity(name))
            activity->onDestory();
    }
    manager->unregisterActivity(QStringLiteral("home"));
    delete m_home;
    m_window.reset();
}

void HeadUnitShell::createHost()
{
    AppData::createInstance();
    BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();

    const QFileInfo settings(m_options.settingsFile);
    if (!QDir().mkpath(settings.absolutePath()))
        qCWarning(lcShell) << "cannot create the settings folder" << settings.absolutePath();
    DataSaveControl::setStoreFile(settings.absoluteFilePath());

    // The radio module lives as long as the process: the tuner link's
    // reader thread hands records to it whenever no radio screen exists,
    // up to the very end.
    auto* radioModule = new RadioModule;
    auto modules = hvappframework::ModuleManager::self();
    modules->addModule(QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), radioModule));
    modules->addModule(QSharedPointer<AuxinModulePlugin>::create());
}

int HeadUnitShell::start()
{
    createHost();

    // The catalogues go in before any screen exists, so every screen is
    // built in its language; a missing one leaves English.
    m_languages = new LanguageSwitch(LanguageSwitch::defaultCatalogueDir(), this);
    m_languages->setLanguage(m_options.language.isEmpty() ? LanguageSwitch::languageFor(QLocale())
                                                          : m_options.language);

    m_window = std::make_unique<HeadUnitWindow>();
    hvappframework::UIManager::setUIHerarchy(1, m_window->systemView());
    m_inputs = new HostInputs(this);
    m_inputs->setLanguageSwitch(m_languages);

    auto manager = hvappframework::ActivityManager::self();
    m_home = new HomeActivity(m_inputs);
    manager->registerActivity(QStringLiteral("home"), m_home);

    m_plugins = std::make_unique<ActivityPluginLoader>();
    const QStringList loaded = m_plugins->loadFolder(m_options.pluginDir);
    if (!loaded.contains(QStringLiteral("radio"))) {
        qCCritical(lcShell).noquote() << QStringLiteral("no \"radio\" activity was loaded from %1; activities loaded: %2")
                                             .arg(QDir::toNativeSeparators(m_options.pluginDir),
                                                  loaded.isEmpty() ? QStringLiteral("none") : loaded.join(", "));
        return ExitNoRadio;
    }

    if (m_options.frameless) {
        m_window->setWindowFlag(Qt::FramelessWindowHint);
        m_window->move(0, 0);
    }
    manager->switchActivity(QStringLiteral("radio"), 0);
    if (m_options.fullscreen) {
        m_window->releaseFixedSize();
        m_window->showFullScreen();
    } else {
        m_window->show();
    }
    if (m_options.region >= 0)
        m_inputs->setRegion(m_options.region);

    m_shortcuts = new HostShortcuts(m_window.get(), m_inputs);

    // SIGUSR1 has been caught since main() began; what came before the
    // window existed is answered on the event loop's first turn.
    m_dumpSignal = new UnixSignalNotifier(SIGUSR1, this);
    connect(m_dumpSignal, &UnixSignalNotifier::activated, this, &HeadUnitShell::dumpOnSignal);
    if (m_options.controlStdin) {
        m_commands = new ControlCommands(
            m_window.get(), m_inputs, [this](const QString& path, QString* error) { return writeDump(path, error); },
            m_options.dumpFile, this);
        m_commands->setPlugins(m_plugins.get());
        connect(m_commands, &ControlCommands::quitRequested, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        m_control = new ControlChannel(STDIN_FILENO, m_commands, stdout, this);
    }
    return 0;
}

int HeadUnitShell::runTour()
{
    TourRunner tour(m_window.get(), m_options.tourDir);
    return tour.run() == 0 ? 0 : 1;
}

QJsonObject HeadUnitShell::dumpDocument()
{
    const QPoint origin = m_window->mapToGlobal(QPoint(0, 0));
    QJsonObject host = HostState::snapshot();
    host.insert(QStringLiteral("language"), m_languages->language());
    return QJsonObject{
        {QStringLiteral("format"), QLatin1String(DumpFormat)},
        {QStringLiteral("sequence"), ++m_dumpCount},
        {QStringLiteral("pid"), qint64(QCoreApplication::applicationPid())},
        {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
        {QStringLiteral("screenOrigin"), QJsonObject{{QStringLiteral("x"), origin.x()}, {QStringLiteral("y"), origin.y()}}},
        {QStringLiteral("host"), host},
        {QStringLiteral("window"), WidgetTreeDump::widgetTree(m_window.get(), m_window.get())},
    };
}

bool HeadUnitShell::writeDump(const QString& path, QString* error)
{
    return WidgetTreeDump::writeFile(path, dumpDocument(), error);
}

void HeadUnitShell::dumpOnSignal()
{
    if (m_options.dumpFile.isEmpty()) {
        qCInfo(lcShell) << "SIGUSR1 ignored: no snapshot file (--dump FILE)";
        return;
    }
    QString error;
    if (!writeDump(m_options.dumpFile, &error))
        qCWarning(lcShell).noquote() << QStringLiteral("cannot write the snapshot to %1: %2").arg(m_options.dumpFile, error);
}
