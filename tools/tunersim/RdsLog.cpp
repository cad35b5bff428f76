#include "RdsLog.h"

#include <QFile>
#include <QList>

namespace {

bool parseBlock(const QByteArray& token, uint16_t* value, bool* present)
{
    if (token == "----") {
        *value = 0;
        *present = false;
        return true;
    }
    if (token.size() != 4)
        return false;
    bool ok = false;
    const uint v = token.toUInt(&ok, 16);
    if (!ok)
        return false;
    *value = static_cast<uint16_t>(v);
    *present = true;
    return true;
}

} // namespace

bool RdsLog::load(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    m_path = path;
    parse(file.readAll());
    return true;
}

void RdsLog::parse(const QByteArray& text)
{
    m_groups.clear();
    m_rejected = 0;
    uint32_t tunedKHz = 0;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray& raw : lines) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('<'))
            continue;
        if (line.startsWith('%')) {
            // "% Freq 94000, date=..." opens a section tuned to 94000 kHz.
            const QList<QByteArray> words = line.mid(1).simplified().split(' ');
            if (words.size() >= 2 && words.at(0) == "Freq") {
                QByteArray number = words.at(1);
                if (number.endsWith(','))
                    number.chop(1);
                bool ok = false;
                const uint khz = number.toUInt(&ok);
                if (ok)
                    tunedKHz = khz;
                else
                    ++m_rejected;
            }
            continue;
        }
        if (!parseGroupLine(line, tunedKHz))
            ++m_rejected;
    }
}

bool RdsLog::parseGroupLine(const QByteArray& line, uint32_t tunedKHz)
{
    const QList<QByteArray> tokens = line.simplified().split(' ');
    if (tokens.size() < 4)
        return false;
    // Anything after the four blocks must be a timestamp.
    if (tokens.size() > 4 && !tokens.at(4).startsWith('@'))
        return false;
    RdsGroup group;
    group.tunedKHz = tunedKHz;
    for (int i = 0; i < 4; ++i) {
        bool present = false;
        if (!parseBlock(tokens.at(i), &group.block[i], &present))
            return false;
        if (present)
            group.valid |= static_cast<uint8_t>(1u << i);
    }
    m_groups.append(group);
    return true;
}

QVector<uint32_t> RdsLog::sectionFrequencies() const
{
    QVector<uint32_t> result;
    for (const RdsGroup& g : m_groups) {
        if (g.tunedKHz != 0 && !result.contains(g.tunedKHz))
            result.append(g.tunedKHz);
    }
    return result;
}

QVector<RdsGroup> RdsLog::groupsTunedTo(uint32_t khz) const
{
    QVector<RdsGroup> result;
    for (const RdsGroup& g : m_groups) {
        if (g.tunedKHz == khz)
            result.append(g);
    }
    return result.isEmpty() ? m_groups : result;
}
