#include "HeadUnitOptions.h"

#include "LanguageSwitch.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {

constexpr int RegionCount = 24;

struct OptionSet
{
    QCommandLineOption plugins{QStringLiteral("plugins"),
                               QStringLiteral("Load activity plugins from <dir> (default: the build's activities folder)."),
                               QStringLiteral("dir")};
    QCommandLineOption settings{QStringLiteral("settings"),
                                QStringLiteral("Keep the head unit's settings in <file> (default: XDG config headunit/settings.ini)."),
                                QStringLiteral("file")};
    QCommandLineOption dump{QStringLiteral("dump"),
                            QStringLiteral("On SIGUSR1 write a JSON snapshot of the widget tree to <file>."),
                            QStringLiteral("file")};
    QCommandLineOption tour{QStringLiteral("tour"),
                            QStringLiteral("Run the scripted session, save a screenshot per step into <dir>, then exit."),
                            QStringLiteral("dir")};
    QCommandLineOption control{QStringLiteral("control-stdin"),
                               QStringLiteral("Read control commands (click, longpress, tap, host, dump ...) from standard input.")};
    QCommandLineOption frameless{QStringLiteral("frameless"),
                                 QStringLiteral("Open the 1280x720 window without decorations at the screen's top-left corner.")};
    QCommandLineOption fullscreen{QStringLiteral("fullscreen"),
                                  QStringLiteral("Open full screen; the 1280x720 head-unit area sits at the top-left corner.")};
    QCommandLineOption region{QStringLiteral("region"),
                              QStringLiteral("Report host region <n> (0-23) once the radio has started."),
                              QStringLiteral("n")};
    QCommandLineOption lang{QStringLiteral("lang"),
                            QStringLiteral("Display language <code>: en, de, fr or cs (default: the locale's, else en)."),
                            QStringLiteral("code")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};

    void addTo(QCommandLineParser& parser) const
    {
        parser.setApplicationDescription(QStringLiteral("Head-unit shell that runs the radio screen activity."));
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.addOptions({plugins, settings, dump, tour, control, frameless, fullscreen, region, lang, help});
    }
};

} // namespace

bool HeadUnitOptions::parse(const QStringList& args, QString* error)
{
    OptionSet set;
    QCommandLineParser parser;
    set.addTo(parser);
    if (!parser.parse(args)) {
        *error = parser.errorText();
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        *error = QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first());
        return false;
    }
    helpRequested = parser.isSet(set.help);
    pluginDir = parser.isSet(set.plugins) ? parser.value(set.plugins) : defaultPluginDir();
    settingsFile = parser.isSet(set.settings) ? parser.value(set.settings) : defaultSettingsFile();
    dumpFile = parser.value(set.dump);
    tourDir = parser.value(set.tour);
    controlStdin = parser.isSet(set.control);
    frameless = parser.isSet(set.frameless);
    fullscreen = parser.isSet(set.fullscreen);
    if (parser.isSet(set.plugins) && pluginDir.isEmpty()) {
        *error = QStringLiteral("--plugins needs a folder");
        return false;
    }
    if (parser.isSet(set.settings) && settingsFile.isEmpty()) {
        *error = QStringLiteral("--settings needs a file name");
        return false;
    }
    if (parser.isSet(set.dump) && dumpFile.isEmpty()) {
        *error = QStringLiteral("--dump needs a file name");
        return false;
    }
    if (parser.isSet(set.tour) && tourDir.isEmpty()) {
        *error = QStringLiteral("--tour needs a folder");
        return false;
    }
    if (frameless && fullscreen) {
        *error = QStringLiteral("--frameless and --fullscreen exclude each other");
        return false;
    }
    region = -1;
    if (parser.isSet(set.region)) {
        bool ok = false;
        const int n = parser.value(set.region).toInt(&ok);
        if (!ok || n < 0 || n >= RegionCount) {
            *error = QStringLiteral("--region takes a number from 0 to %1, not \"%2\"")
                         .arg(RegionCount - 1)
                         .arg(parser.value(set.region));
            return false;
        }
        region = n;
    }
    language = parser.value(set.lang);
    if (parser.isSet(set.lang) && !LanguageSwitch::languages().contains(language)) {
        *error = QStringLiteral("--lang takes one of %1, not \"%2\"")
                     .arg(LanguageSwitch::languages().join(QLatin1String(", ")), language);
        return false;
    }
    return true;
}

QString HeadUnitOptions::helpText()
{
    OptionSet set;
    QCommandLineParser parser;
    set.addTo(parser);
    return parser.helpText();
}

QString HeadUnitOptions::defaultPluginDir()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(RADIO_PLUGIN_SUBDIR));
}

QString HeadUnitOptions::defaultSettingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/headunit/settings.ini");
}
