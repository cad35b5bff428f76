#include "StationList.h"

#include "RadioCmdFromMCU.h"
#include "RdsCharset.h"
#include "RdsDecoder.h"

#include <QFile>
#include <QList>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace {

struct Identity {
    const char* ps;
    uint8_t pty;
    bool tp;
    const char* radioText;
};

// Fictitious programmes, one for most programme types.
const Identity kIdentities[] = {
    {"CITY FM ", 10, true, "CITY FM - the hits of today, all day long"},
    {"KLASSIK ", 14, false, "Mozart: Symphony No. 40 in G minor, K. 550"},
    {"NEWS 24 ", 1, true, "News every 20 minutes - traffic and weather on the hour"},
    {"ROCK 99 ", 11, true, "Now playing: Deep Purple - Smoke on the Water"},
    {"JAZZ FM ", 24, false, "Late night jazz with Miles, Coltrane and friends"},
    {"SPORT 1 ", 4, true, "Live: second half, 1-1 - full commentary"},
    {"COUNTRY ", 25, false, "Country roads, take me home - Country Radio"},
    {" OLDIES ", 27, true, "The greatest hits of the 60s, 70s and 80s"},
    {"TRAFFIC ", 3, true, "Traffic news: A7 northbound, 5 km queue after junction 12"},
    {"CULTURE ", 7, false, "Culture tonight: theatre, books and film reviews"},
    {"SCIENCE ", 8, false, "Science hour: why the sky is blue"},
    {"TALK 21 ", 9, true, "Call us now - your opinion counts"},
    {"EASY FM ", 12, false, "Easy listening for a relaxed drive"},
    {"LIGHT FM", 13, false, "Light classics and film music"},
    {"  FOLK  ", 28, false, "Folk and roots from the hills"},
    {"  DOCU  ", 29, false, "Documentary: the story of the coastal railway"},
    {" CAMPUS ", 5, false, "Learning languages: lesson 12"},
    {" STAGE  ", 6, false, "Radio play: The Lighthouse, part 3"},
    {"WEATHER ", 16, true, "Sunny spells, highs of 24 degrees, light winds"},
    {"FINANCE ", 17, false, "Markets: indices close higher, oil steady"},
    {"  KIDS  ", 18, false, "Story time for children"},
    {" GOSPEL ", 20, false, "Sunday service and gospel music"},
    {"PHONE IN", 21, true, "Phone-in: tell us about your holiday"},
    {" TRAVEL ", 22, true, "Travel tips: the best routes to the coast"},
    {"LEISURE ", 23, false, "Gardening and cooking with the weekend team"},
    {"NATIONAL", 26, false, "National music from every region"},
    {"POP 100 ", 10, true, "Top 40 countdown - number one at six"},
    {"HITRADIO", 10, true, "Non-stop hits - no talk, just music"},
};
constexpr int kIdentityCount = int(sizeof(kIdentities) / sizeof(kIdentities[0]));

// Levels: a third weak (only heard in DX), the rest medium or strong.
uint8_t drawSignal(QRandomGenerator& rng)
{
    const int kind = rng.bounded(10);
    if (kind < 3)
        return uint8_t(rng.bounded(25, 60));
    if (kind < 7)
        return uint8_t(rng.bounded(60, 120));
    return uint8_t(rng.bounded(120, 231));
}

uint32_t roundUp(uint32_t value, uint32_t step)
{
    return (value + step - 1) / step * step;
}

// One CSV line into fields: commas separate, double quotes enclose, ""
// inside quotes is one quote. `ok` is false for an unterminated quote.
QList<QByteArray> splitCsv(const QByteArray& line, bool* ok)
{
    QList<QByteArray> fields;
    QByteArray field;
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const char c = line.at(i);
        if (quoted) {
            if (c == '"' && i + 1 < line.size() && line.at(i + 1) == '"') {
                field.append('"');
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                field.append(c);
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.append(field);
            field.clear();
        } else {
            field.append(c);
        }
    }
    fields.append(field);
    *ok = !quoted;
    return fields;
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Radio text from a CSV field: UTF-8 with RDS codes written as \xNN or
// <NN>. 0x0D ends the text; other control codes are dropped.
QByteArray radioTextFromCsv(const QByteArray& field)
{
    QByteArray out;
    int i = 0;
    while (i < field.size()) {
        int code = -1;
        int length = 0;
        if (field.at(i) == '\\' && i + 3 < field.size() && field.at(i + 1) == 'x'
            && hexValue(field.at(i + 2)) >= 0 && hexValue(field.at(i + 3)) >= 0) {
            code = hexValue(field.at(i + 2)) * 16 + hexValue(field.at(i + 3));
            length = 4;
        } else if (field.at(i) == '<' && i + 3 < field.size() && field.at(i + 3) == '>'
                   && hexValue(field.at(i + 1)) >= 0 && hexValue(field.at(i + 2)) >= 0) {
            code = hexValue(field.at(i + 1)) * 16 + hexValue(field.at(i + 2));
            length = 4;
        }
        if (code < 0) {
            out.append(field.at(i));
            ++i;
            continue;
        }
        if (code == 0x0D)
            break;
        out.append(RdsCharset::utf8(uint8_t(code)));
        i += length;
    }
    while (out.endsWith(' '))
        out.chop(1);
    return RdsCharset::truncateUtf8(out, 64);
}

enum Column { ColFreq, ColPs, ColPty, ColTp, ColRt, ColSignal, ColumnCount };

int columnOf(const QByteArray& name)
{
    const QByteArray n = name.trimmed().toLower();
    if (n == "freq" || n == "frequency" || n == "freq_mhz" || n == "mhz")
        return ColFreq;
    if (n == "ps" || n == "name")
        return ColPs;
    if (n == "pty")
        return ColPty;
    if (n == "tp")
        return ColTp;
    if (n == "rt" || n == "radiotext" || n == "radio_text" || n == "text")
        return ColRt;
    if (n == "signal" || n == "level")
        return ColSignal;
    return -1;
}

bool parseFlag(const QByteArray& text, bool* value)
{
    const QByteArray t = text.trimmed().toLower();
    if (t.isEmpty() || t == "0" || t == "no" || t == "false") {
        *value = false;
        return true;
    }
    if (t == "1" || t == "yes" || t == "true") {
        *value = true;
        return true;
    }
    return false;
}

QString formatFrequency(uint32_t freq)
{
    if (isFmFrequency(freq))
        return QStringLiteral("%1.%2 MHz").arg(freq / 100).arg(freq % 100, 2, 10, QChar('0'));
    return QStringLiteral("%1 kHz").arg(freq);
}

} // namespace

StationList::StationList(int region)
    : m_plan(region)
{
}

StationList StationList::builtIn(int region, quint32 seed)
{
    StationList list(region);
    const BandPlan& plan = list.m_plan;
    QRandomGenerator rng(seed ^ (0x9E3779B9u * uint32_t(plan.region() + 1)));

    int order[kIdentityCount];
    for (int i = 0; i < kIdentityCount; ++i)
        order[i] = i;
    for (int i = kIdentityCount - 1; i > 0; --i)
        std::swap(order[i], order[rng.bounded(i + 1)]);

    // FM: 0.3 to 1.1 MHz apart, so even the narrow 65-74 MHz plan has
    // more than six stations.
    const uint32_t fmStep = plan.step(true);
    uint32_t f = plan.min(true) + roundUp(uint32_t(rng.bounded(10, 60)), fmStep);
    for (int n = 0; f <= plan.max(true); ++n) {
        const Identity& id = kIdentities[order[n % kIdentityCount]];
        Station s;
        s.freq = f;
        s.ps = QByteArray(id.ps, 8);
        s.pty = id.pty;
        s.tp = id.tp;
        s.radioText = QByteArray(id.radioText);
        s.signal = drawSignal(rng);
        s.mono = rng.bounded(10) == 0;
        if (s.tp && rng.bounded(3) == 0) {
            s.taPeriodMs = 1000 * rng.bounded(45, 121);
            s.taLengthMs = 1000 * rng.bounded(8, 21);
        }
        list.m_stations.append(s);
        f += roundUp(uint32_t(rng.bounded(30, 111)), fmStep);
    }

    // AM: no RDS, three to twelve channels apart.
    const uint32_t amStep = plan.step(false);
    f = plan.min(false) + amStep * uint32_t(rng.bounded(0, 4));
    while (f <= plan.max(false)) {
        Station s;
        s.freq = f;
        s.ps = QByteArray(8, ' ');
        s.signal = drawSignal(rng);
        s.mono = true;
        list.m_stations.append(s);
        f += amStep * uint32_t(rng.bounded(3, 13));
    }
    std::sort(list.m_stations.begin(), list.m_stations.end(),
              [](const Station& a, const Station& b) { return a.freq < b.freq; });
    return list;
}

uint32_t StationList::parseFrequency(const QByteArray& text)
{
    QByteArray t = text.trimmed();
    if (t.contains('.') || t.contains(',')) {
        t.replace(',', '.');
        bool ok = false;
        const double mhz = t.toDouble(&ok);
        if (!ok || !(mhz > 0.0) || mhz >= 655.0)
            return 0;
        return uint32_t(std::lround(mhz * 100.0));
    }
    bool ok = false;
    const uint value = t.toUInt(&ok);
    return ok && value <= 0xFFFF ? value : 0;
}

bool StationList::loadCsv(const QString& path, quint32 seed, QStringList* warnings, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    loadCsvText(file.readAll(), seed, warnings);
    return true;
}

void StationList::loadCsvText(const QByteArray& text, quint32 seed, QStringList* warnings)
{
    auto warn = [warnings](int line, const QString& what) {
        if (warnings)
            warnings->append(QStringLiteral("line %1: %2").arg(line).arg(what));
    };
    int columns[ColumnCount] = {0, 1, 2, 3, 4, 5};
    bool headerDone = false;
    const QList<QByteArray> lines = text.split('\n');
    for (int n = 0; n < lines.size(); ++n) {
        QByteArray line = lines.at(n);
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty() || line.trimmed().startsWith('#'))
            continue;
        bool ok = false;
        const QList<QByteArray> fields = splitCsv(line, &ok);
        const int lineNo = n + 1;
        if (!ok) {
            warn(lineNo, QStringLiteral("unterminated quote, line skipped"));
            continue;
        }
        if (!headerDone) {
            headerDone = true;
            if (parseFrequency(fields.at(0)) == 0) {
                std::fill(std::begin(columns), std::end(columns), -1);
                for (int i = 0; i < fields.size(); ++i) {
                    const int c = columnOf(fields.at(i));
                    if (c >= 0 && columns[c] < 0)
                        columns[c] = i;
                }
                if (columns[ColFreq] < 0) {
                    warn(lineNo, QStringLiteral("header names no frequency column, nothing loaded"));
                    return;
                }
                continue;
            }
        }
        auto field = [&](int column) {
            const int i = columns[column];
            return i >= 0 && i < fields.size() ? fields.at(i) : QByteArray();
        };

        const uint32_t raw = parseFrequency(field(ColFreq));
        if (raw == 0) {
            warn(lineNo, QStringLiteral("no frequency in \"%1\", line skipped").arg(QString::fromUtf8(field(ColFreq))));
            continue;
        }
        if (!m_plan.contains(raw)) {
            warn(lineNo, QStringLiteral("%1 is outside the band plan of region %2, line skipped")
                             .arg(formatFrequency(raw)).arg(m_plan.region()));
            continue;
        }
        Station s;
        s.freq = m_plan.snap(raw);
        if (s.freq != raw)
            warn(lineNo, QStringLiteral("%1 moved to the channel %2").arg(formatFrequency(raw), formatFrequency(s.freq)));
        s.ps = RdsCharset::psFromUtf8(field(ColPs));
        s.radioText = radioTextFromCsv(field(ColRt));
        s.mono = !isFmFrequency(s.freq);

        const QByteArray pty = field(ColPty).trimmed();
        const uint ptyValue = pty.toUInt(&ok);
        if (!pty.isEmpty() && (!ok || ptyValue > 31))
            warn(lineNo, QStringLiteral("PTY \"%1\" is not 0-31, using 0").arg(QString::fromUtf8(pty)));
        else
            s.pty = uint8_t(ptyValue);

        if (!parseFlag(field(ColTp), &s.tp))
            warn(lineNo, QStringLiteral("TP \"%1\" is not 0 or 1, using 0").arg(QString::fromUtf8(field(ColTp))));

        const QByteArray signal = field(ColSignal).trimmed();
        const uint signalValue = signal.toUInt(&ok);
        if (!signal.isEmpty() && ok && signalValue <= 255) {
            s.signal = uint8_t(signalValue);
        } else {
            if (!signal.isEmpty())
                warn(lineNo, QStringLiteral("signal \"%1\" is not 0-255, drawing one").arg(QString::fromUtf8(signal)));
            QRandomGenerator rng(seed ^ s.freq);
            s.signal = uint8_t(rng.bounded(60, 231));
        }
        if (at(s.freq))
            warn(lineNo, QStringLiteral("a second station on %1 replaces the first").arg(formatFrequency(s.freq)));
        insert(s);
    }
}

bool StationList::attachRdsLog(uint32_t freq, const QSharedPointer<const RdsLog>& log)
{
    if (!isFmFrequency(freq) || !m_plan.contains(freq) || !log)
        return false;
    const uint32_t channel = m_plan.snap(freq);
    if (Station* existing = find(channel)) {
        existing->rdsLog = log;
        return true;
    }
    RdsDecoder decoder;
    for (const RdsGroup& group : log->groupsTunedTo(channel * 10))
        decoder.feed(group);
    Station s;
    s.freq = channel;
    s.ps = decoder.ps().isEmpty() ? QByteArray(8, ' ') : decoder.ps();
    s.pty = uint8_t(qMax(0, decoder.pty()));
    s.tp = decoder.tp();
    s.signal = 150;
    s.rdsLog = log;
    insert(s);
    return true;
}

void StationList::insert(const Station& station)
{
    auto it = std::lower_bound(m_stations.begin(), m_stations.end(), station.freq,
                               [](const Station& s, uint32_t f) { return s.freq < f; });
    if (it != m_stations.end() && it->freq == station.freq)
        *it = station;
    else
        m_stations.insert(it, station);
}

const Station* StationList::at(uint32_t freq) const
{
    auto it = std::lower_bound(m_stations.cbegin(), m_stations.cend(), freq,
                               [](const Station& s, uint32_t f) { return s.freq < f; });
    return it != m_stations.cend() && it->freq == freq ? &*it : nullptr;
}

Station* StationList::find(uint32_t freq)
{
    auto it = std::lower_bound(m_stations.begin(), m_stations.end(), freq,
                               [](const Station& s, uint32_t f) { return s.freq < f; });
    return it != m_stations.end() && it->freq == freq ? &*it : nullptr;
}

QVector<Station> StationList::waveRange(bool fm) const
{
    QVector<Station> result;
    for (const Station& s : m_stations) {
        if (isFmFrequency(s.freq) == fm)
            result.append(s);
    }
    return result;
}
