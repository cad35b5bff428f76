#include "CaptureFile.h"
#include "CaptureReplay.h"
#include "ProtocolTrace.h"
#include "RdsLog.h"
#include "SimOptions.h"
#include "StationList.h"
#include "TunerEngine.h"
#include "TunerServer.h"

#include <QCoreApplication>

#include <cstdio>
#include <functional>

namespace {

void printLine(FILE* stream, const QString& line)
{
    std::fputs(line.toUtf8().constData(), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

// Plays the capture instead of running the tuner; exits 0 once it is out.
int replay(QCoreApplication& app, const SimOptions& options, const std::function<void(const QString&)>& report)
{
    CaptureFile capture;
    QString error;
    if (!capture.load(options.replayFile, &error)) {
        printLine(stderr, QStringLiteral("radio-tunersim: %1").arg(error));
        return 1;
    }
    TunerServer server(nullptr);
    server.setLogSink(report);
    if (options.trace)
        server.setTraceSink([](const QString& line) { printLine(stdout, line); });
    CaptureReplay player(&server, capture.records(), options.replaySpeed);
    QObject::connect(&player, &CaptureReplay::finished, &app, [&] {
        report(QStringLiteral("capture played: %1 records").arg(player.played()));
        app.exit(0);
    });
    if (!server.listen(options.name, &error)) {
        printLine(stderr, QStringLiteral("radio-tunersim: %1").arg(error));
        return 1;
    }
    report(QStringLiteral("%1: %2 status records over %3 s, %4 command frames left out; speed %5")
               .arg(options.replayFile).arg(capture.records().size())
               .arg(capture.records().last().timeUs / 1e6, 0, 'f', 3).arg(capture.frames()).arg(options.replaySpeed));
    if (capture.reordered() > 0)
        report(QStringLiteral("%1 records are stamped before the record ahead of them: sent without a pause")
                   .arg(capture.reordered()));
    return app.exec();
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("radio-tunersim"));

    SimOptions options;
    if (!options.parse(app.arguments())) {
        printLine(stderr, QStringLiteral("radio-tunersim: %1 (see --help)").arg(options.errorText()));
        return 2;
    }
    if (options.helpRequested()) {
        std::fputs(SimOptions::helpText().toUtf8().constData(), stdout);
        return 0;
    }
    // With --trace the log joins the trace on standard output, so that
    // one stream keeps the order; otherwise it goes to standard error.
    auto report = [&options](const QString& line) {
        if (options.trace)
            printLine(stdout, QStringLiteral("# ") + line);
        else
            printLine(stderr, line);
    };
    if (!options.replayFile.isEmpty())
        return replay(app, options, report);

    StationList stations(options.region);
    if (options.lineupFile.isEmpty()) {
        stations = StationList::builtIn(options.region, options.seed);
    } else {
        QStringList warnings;
        QString error;
        if (!stations.loadCsv(options.lineupFile, options.seed, &warnings, &error)) {
            printLine(stderr, QStringLiteral("radio-tunersim: %1").arg(error));
            return 1;
        }
        for (const QString& w : warnings)
            report(QStringLiteral("%1: %2").arg(options.lineupFile, w));
    }

    for (const auto& rds : options.rdsLogs) {
        const uint32_t freq = StationList::parseFrequency(rds.first.toUtf8());
        auto log = QSharedPointer<RdsLog>::create();
        QString error;
        if (!log->load(rds.second, &error)) {
            printLine(stderr, QStringLiteral("radio-tunersim: %1").arg(error));
            return 1;
        }
        if (!stations.attachRdsLog(freq, log)) {
            printLine(stderr, QStringLiteral("radio-tunersim: --rds %1: not an FM frequency of region %2")
                                  .arg(rds.first).arg(options.region));
            return 1;
        }
        const uint32_t channel = stations.plan().snap(freq);
        const QVector<uint32_t> sections = log->sectionFrequencies();
        if (!sections.isEmpty() && !sections.contains(channel * 10))
            report(QStringLiteral("%1 was recorded on other frequencies; replaying all of it on %2")
                       .arg(rds.second, ProtocolTrace::frequencyText(channel)));
        if (log->rejectedLines() > 0)
            report(QStringLiteral("%1: %2 lines are no RDS groups, skipped").arg(rds.second).arg(log->rejectedLines()));
        report(QStringLiteral("%1: %2 groups on %3").arg(rds.second).arg(log->groups().size())
                   .arg(ProtocolTrace::frequencyText(channel)));
    }

    TunerEngine engine(stations, options.seed);
    engine.setTimeScale(options.timeScale);
    engine.setRdsSpeed(options.rdsSpeed);

    TunerServer server(&engine);
    server.setLogSink(report);
    if (options.trace)
        server.setTraceSink([](const QString& line) { printLine(stdout, line); });
    QString error;
    if (!server.listen(options.name, &error)) {
        printLine(stderr, QStringLiteral("radio-tunersim: %1").arg(error));
        return 1;
    }
    report(QStringLiteral("region %1, %2 stations, seed %3").arg(engine.region()).arg(stations.count()).arg(options.seed));
    return app.exec();
}
