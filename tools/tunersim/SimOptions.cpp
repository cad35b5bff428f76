#include "SimOptions.h"

#include <QCommandLineParser>

#include <cmath>

namespace {

bool positiveNumber(const QString& text, double* value)
{
    bool ok = false;
    const double v = text.toDouble(&ok);
    if (!ok || !std::isfinite(v) || v <= 0.0)
        return false;
    *value = v;
    return true;
}

struct OptionSet
{
    QCommandLineOption name{QStringLiteral("name"),
                            QStringLiteral("Listen on the abstract UNIX address @<name> (default kestrelhub)."),
                            QStringLiteral("name")};
    QCommandLineOption region{QStringLiteral("region"),
                              QStringLiteral("Region <n> 0-23 of the band table (default 12)."),
                              QStringLiteral("n")};
    QCommandLineOption seed{QStringLiteral("seed"),
                            QStringLiteral("Seed <n> of the built-in line-up (default 1)."),
                            QStringLiteral("n")};
    QCommandLineOption lineup{QStringLiteral("lineup"),
                              QStringLiteral("Stations from CSV: freq,ps,pty,tp,rt,signal (a header line may name "
                                             "and reorder the columns; 96.7 = MHz, 9670 = FM in 10 kHz, 999 = AM in kHz)."),
                              QStringLiteral("file.csv")};
    QCommandLineOption rds{QStringLiteral("rds"),
                           QStringLiteral("Replay an RDS Spy log (.spy or .rds) on <freq>; repeatable."),
                           QStringLiteral("freq=file")};
    QCommandLineOption rdsSpeed{QStringLiteral("rds-speed"),
                                QStringLiteral("Replay RDS groups <x> times faster (default 1)."),
                                QStringLiteral("x")};
    QCommandLineOption timeScale{QStringLiteral("time-scale"),
                                 QStringLiteral("Run every timer <x> times faster (default 1)."),
                                 QStringLiteral("x")};
    QCommandLineOption replay{QStringLiteral("replay"),
                              QStringLiteral("Instead of a tuner, play the status records of a capture of the link "
                                             "(pcapng or pcap, link type 147) to the screen that connects, then exit."),
                              QStringLiteral("file")};
    QCommandLineOption replaySpeed{QStringLiteral("replay-speed"),
                                   QStringLiteral("Play the capture <x> times faster (default 1)."),
                                   QStringLiteral("x")};
    QCommandLineOption trace{QStringLiteral("trace"),
                             QStringLiteral("Print each frame received and record sent.")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};

    void addTo(QCommandLineParser& parser) const
    {
        parser.setApplicationDescription(QStringLiteral(
            "Simulated tuner service for the radio screen: listens on the abstract UNIX\n"
            "address @NAME, reads 8-byte command frames, sends 584-byte status records."));
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.addOptions({name, region, seed, lineup, rds, rdsSpeed, timeScale, replay, replaySpeed, trace, help});
    }
};

} // namespace

QString SimOptions::helpText()
{
    OptionSet set;
    QCommandLineParser parser;
    set.addTo(parser);
    return parser.helpText() + QStringLiteral(
        "\n"
        "Seek and scan stop on signals of 25 and more (100 in LOC). Auto search\n"
        "stores the six strongest stations of the band sorted by frequency and\n"
        "tunes to preset 1; unused keys get the band's lowest channel. Scan and\n"
        "preset scan stay 5 s on each station until the next command.\n"
        "\n"
        "A replay sends the capture's records at their recorded spacing from the\n"
        "moment a screen connects; the screen's frames are traced, not obeyed. A\n"
        "screen that goes away stops the replay, the next one continues it.\n");
}

bool SimOptions::parse(const QStringList& arguments)
{
    m_error.clear();
    m_help = false;
    OptionSet set;
    QCommandLineParser parser;
    set.addTo(parser);
    const auto fail = [this](const QString& error) {
        m_error = error;
        return false;
    };
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        return fail(unknown.isEmpty() ? parser.errorText() : QStringLiteral("unknown option --%1").arg(unknown.first()));
    }
    if (!parser.positionalArguments().isEmpty())
        return fail(QStringLiteral("unexpected argument %1").arg(parser.positionalArguments().first()));
    m_help = parser.isSet(set.help);
    if (m_help)
        return true;
    trace = parser.isSet(set.trace);

    bool ok = false;
    if (parser.isSet(set.name)) {
        name = parser.value(set.name);
        // sun_path holds 108 bytes, one of them the leading NUL.
        if (name.isEmpty() || name.toUtf8().size() > 107)
            return fail(QStringLiteral("--name must be 1-107 bytes"));
    }
    if (parser.isSet(set.region)) {
        region = parser.value(set.region).toInt(&ok);
        if (!ok || region < 0 || region > 23)
            return fail(QStringLiteral("--region must be 0-23, not %1").arg(parser.value(set.region)));
    }
    if (parser.isSet(set.seed)) {
        seed = parser.value(set.seed).toUInt(&ok);
        if (!ok)
            return fail(QStringLiteral("--seed must be an unsigned number, not %1").arg(parser.value(set.seed)));
    }
    lineupFile = parser.value(set.lineup);
    for (const QString& value : parser.values(set.rds)) {
        const int eq = value.indexOf(QLatin1Char('='));
        if (eq <= 0 || eq == value.size() - 1)
            return fail(QStringLiteral("--rds needs FREQ=FILE, not %1").arg(value));
        rdsLogs.append(qMakePair(value.left(eq), value.mid(eq + 1)));
    }
    const QList<QPair<const QCommandLineOption*, double*>> numbers = {
        {&set.rdsSpeed, &rdsSpeed}, {&set.timeScale, &timeScale}, {&set.replaySpeed, &replaySpeed}};
    for (const auto& number : numbers) {
        if (parser.isSet(*number.first) && !positiveNumber(parser.value(*number.first), number.second))
            return fail(QStringLiteral("--%1 must be a positive number, not %2")
                            .arg(number.first->names().first(), parser.value(*number.first)));
    }

    if (!parser.isSet(set.replay))
        return true;
    replayFile = parser.value(set.replay);
    if (replayFile.isEmpty())
        return fail(QStringLiteral("--replay needs a file"));
    // The capture decides what the tuner says: the tuner's own options would be silently void.
    for (const QCommandLineOption* tuner : {&set.region, &set.seed, &set.lineup, &set.rds, &set.rdsSpeed, &set.timeScale}) {
        if (parser.isSet(*tuner))
            return fail(QStringLiteral("--%1 does not go with --replay").arg(tuner->names().first()));
    }
    return true;
}
