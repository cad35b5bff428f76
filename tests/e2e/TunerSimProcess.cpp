#include "TunerSimProcess.h"

#include "ConditionWait.h"

#include <QRegularExpression>

namespace {

constexpr int StartTimeoutMs = 10000;
// Seeks, scans and searches move at this many times the real pace.
const QString TimeScale = QStringLiteral("4");

// The quoted 8-byte names of a trace line, unescaped enough for ASCII names.
QStringList quotedNames(const QString& line)
{
    QStringList names;
    static const QRegularExpression quoted(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    auto it = quoted.globalMatch(line);
    while (it.hasNext())
        names << it.next().captured(1).replace(QStringLiteral("\\\""), QStringLiteral("\"")).trimmed();
    return names;
}

} // namespace

TunerSimProcess::TunerSimProcess()
{
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, [this]() { readOutput(); });
}

TunerSimProcess::~TunerSimProcess()
{
    stop();
}

bool TunerSimProcess::start(const QString& program, const QStringList& extraArgs)
{
    m_lines.clear();
    m_buffer.clear();
    m_process.start(program, QStringList{QStringLiteral("--trace"), QStringLiteral("--time-scale"), TimeScale} + extraArgs);
    if (!m_process.waitForStarted(StartTimeoutMs))
        return false;
    return ConditionWait::until(
        [this]() {
            return m_process.state() == QProcess::Running && count(QStringLiteral("# listening on @")) > 0;
        },
        StartTimeoutMs);
}

void TunerSimProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(StartTimeoutMs)) {
        m_process.kill();
        m_process.waitForFinished(StartTimeoutMs);
    }
}

QString TunerSimProcess::standardError()
{
    return QString::fromUtf8(m_process.readAllStandardError());
}

void TunerSimProcess::readOutput()
{
    m_buffer += m_process.readAllStandardOutput();
    int newline;
    while ((newline = m_buffer.indexOf('\n')) >= 0) {
        m_lines << QString::fromUtf8(m_buffer.left(newline));
        m_buffer.remove(0, newline + 1);
    }
}

QString TunerSimProcess::lastLine(const QString& prefix) const
{
    for (auto it = m_lines.crbegin(); it != m_lines.crend(); ++it) {
        if (it->startsWith(prefix))
            return *it;
    }
    return QString();
}

int TunerSimProcess::count(const QString& prefix) const
{
    int n = 0;
    for (const QString& line : m_lines)
        n += line.startsWith(prefix) ? 1 : 0;
    return n;
}

QString TunerSimProcess::shownFrequency() const
{
    static const QRegularExpression freq(QStringLiteral(" freq=(\\d+) "));
    const QRegularExpressionMatch m = freq.match(lastLine(QStringLiteral("-> MCU_TUNE_INFO")));
    if (!m.hasMatch())
        return QString();
    const uint value = m.captured(1).toUInt();
    if (value > 1999)
        return QStringLiteral("%1.%2").arg(value / 100).arg(value % 100, 2, 10, QLatin1Char('0'));
    return QString::number(value);
}

QString TunerSimProcess::bandName() const
{
    static const QRegularExpression band(QStringLiteral(" band=\\d+ \\((\\w+)\\)"));
    return band.match(lastLine(QStringLiteral("-> MCU_TUNE_INFO"))).captured(1);
}

QString TunerSimProcess::tunedName() const
{
    const QString line = lastLine(QStringLiteral("-> MCU_TUNE_INFO"));
    return quotedNames(line.mid(line.indexOf(QLatin1String(" psName=")))).value(0);
}

QString TunerSimProcess::psName() const
{
    return quotedNames(lastLine(QStringLiteral("-> MCU_PS_NAME"))).value(0);
}

QStringList TunerSimProcess::presetNames() const
{
    return quotedNames(lastLine(QStringLiteral("-> MCU_PRESET_PS"))).mid(0, 6);
}

QStringList TunerSimProcess::rdsFlags() const
{
    static const QRegularExpression flags(QStringLiteral("\\[([^\\]]*)\\]"));
    return flags.match(lastLine(QStringLiteral("-> MCU_RDS_FLAGS"))).captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
