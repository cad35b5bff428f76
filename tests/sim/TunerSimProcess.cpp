#include "TunerSimProcess.h"

#include <QRegularExpression>
#include <QTest>

TunerSimProcess::TunerSimProcess()
{
    QObject::connect(&process, &QProcess::readyReadStandardOutput, [this] {
        m_partial += process.readAllStandardOutput();
        int nl;
        while ((nl = m_partial.indexOf('\n')) >= 0) {
            lines << QString::fromUtf8(m_partial.left(nl));
            m_partial.remove(0, nl + 1);
        }
    });
}

bool TunerSimProcess::start(const QStringList& args)
{
    lines.clear();
    process.start(QStringLiteral(RADIO_TUNERSIM_BIN), QStringList{"--trace"} + args);
    return process.waitForStarted(10000) && waitFor("# listening on @", 1, 10000);
}

void TunerSimProcess::stop()
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (!process.waitForFinished(10000))
        process.kill();
    process.waitForFinished(10000);
}

bool TunerSimProcess::waitFor(const QString& prefix, int nth, int timeoutMs)
{
    return QTest::qWaitFor([&] { return count(prefix) >= nth || process.state() == QProcess::NotRunning; }, timeoutMs)
        && count(prefix) >= nth;
}

QString TunerSimProcess::lastLine(const QString& prefix) const
{
    for (auto it = lines.crbegin(); it != lines.crend(); ++it) {
        if (it->startsWith(prefix))
            return *it;
    }
    return QString();
}

int TunerSimProcess::count(const QString& prefix) const
{
    return int(std::count_if(lines.cbegin(), lines.cend(), [&](const QString& l) { return l.startsWith(prefix); }));
}

QString TunerSimProcess::capture(const QString& prefix, const QString& pattern) const
{
    return QRegularExpression(pattern).match(lastLine(prefix)).captured(1);
}

QStringList TunerSimProcess::names(const QString& prefix) const
{
    static const QRegularExpression quoted(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QStringList result;
    auto it = quoted.globalMatch(lastLine(prefix));
    while (it.hasNext())
        result << it.next().captured(1).trimmed();
    return result;
}
