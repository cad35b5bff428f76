#ifndef RDSLOG_H
#define RDSLOG_H

#include "RdsGroup.h"

#include <QByteArray>
#include <QString>
#include <QVector>

// Reader for the RDS Spy group logs: ".spy" (a header line, then
// "PPPP BBBB CCCC DDDD @date time") and ".rds" hexgroups ("% Freq <kHz>"
// section lines, then "PPPP BBBB CCCC DDDD @mmss"). "----" is a lost block.
class RdsLog
{
public:
    bool load(const QString& path, QString* error);
    // Never fails: lines that are neither groups, headers nor comments are
    // counted in rejectedLines() and skipped.
    void parse(const QByteArray& text);

    const QVector<RdsGroup>& groups() const { return m_groups; }
    int rejectedLines() const { return m_rejected; }
    QString path() const { return m_path; }

    // Receiver frequencies (kHz) named by "% Freq" sections, in file order.
    QVector<uint32_t> sectionFrequencies() const;
    // The groups recorded while tuned to `khz`; all groups when the log
    // names no such section.
    QVector<RdsGroup> groupsTunedTo(uint32_t khz) const;

    // On-air pace: 104 bits at 1187.5 bit/s.
    static constexpr double kGroupMs = 87.6;

private:
    bool parseGroupLine(const QByteArray& line, uint32_t tunedKHz);

    QVector<RdsGroup> m_groups;
    int m_rejected = 0;
    QString m_path;
};

#endif
