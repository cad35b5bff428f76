#include "HeadUnitProcess.h"

#include "ConditionWait.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>

namespace {

constexpr int StartTimeoutMs = 15000;
constexpr int StopTimeoutMs = 10000;

void collect(const QJsonObject& node, const QString& name, QList<QJsonObject>* found)
{
    if (node.value(QStringLiteral("objectName")).toString() == name)
        found->append(node);
    for (const QJsonValue& child : node.value(QStringLiteral("children")).toArray())
        collect(child.toObject(), name, found);
}

} // namespace

HeadUnitProcess::HeadUnitProcess()
{
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, [this]() { readOutput(); });
    QObject::connect(&m_process, &QProcess::readyReadStandardError,
                     [this]() { m_stderr += m_process.readAllStandardError(); });
}

HeadUnitProcess::~HeadUnitProcess()
{
    if (m_process.state() != QProcess::NotRunning)
        stop();
}

QString HeadUnitProcess::dumpFile() const
{
    return m_dir.filePath(QStringLiteral("dump.json"));
}

bool HeadUnitProcess::start(const QString& program, const QStringList& extraArgs)
{
    const QStringList args = QStringList{QStringLiteral("--dump"), dumpFile(), QStringLiteral("--control-stdin"),
                                         QStringLiteral("--settings"), m_dir.filePath(QStringLiteral("settings.ini"))}
        + extraArgs;
    m_process.start(program, args);
    if (!m_process.waitForStarted(StartTimeoutMs))
        return false;
    // The shell reads its control channel once the screen is up: the first
    // answer says it is ready.
    return !command(QStringLiteral("dump"), StartTimeoutMs).isEmpty();
}

int HeadUnitProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    m_process.write("quit\n");
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(StopTimeoutMs)) {
        m_process.kill();
        m_process.waitForFinished(StopTimeoutMs);
        return -1;
    }
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void HeadUnitProcess::readOutput()
{
    m_stdoutBuffer += m_process.readAllStandardOutput();
    int newline;
    while ((newline = m_stdoutBuffer.indexOf('\n')) >= 0) {
        const QByteArray line = m_stdoutBuffer.left(newline);
        m_stdoutBuffer.remove(0, newline + 1);
        if (line.startsWith("control: "))
            m_answers.append(QString::fromUtf8(line.mid(9)));
    }
}

QString HeadUnitProcess::standardError()
{
    m_stderr += m_process.readAllStandardError();
    return QString::fromUtf8(m_stderr);
}

QString HeadUnitProcess::command(const QString& line, int timeoutMs)
{
    if (m_process.state() != QProcess::Running)
        return QString();
    const int before = m_answers.size();
    m_process.write(line.toUtf8() + '\n');
    if (!ConditionWait::until([&]() { return m_answers.size() > before || m_process.state() != QProcess::Running; },
                              timeoutMs))
        return QString();
    return m_answers.value(before);
}

QJsonObject HeadUnitProcess::snapshot(int timeoutMs)
{
    if (m_process.state() != QProcess::Running)
        return QJsonObject();
    // "dump" commands write the same file: the next snapshot is the one
    // after whatever the file holds now.
    {
        QFile current(dumpFile());
        if (current.open(QIODevice::ReadOnly)) {
            const int sequence =
                QJsonDocument::fromJson(current.readAll()).object().value(QStringLiteral("sequence")).toInt();
            m_lastSequence = qMax(m_lastSequence, sequence);
        }
    }
    ::kill(pid_t(m_process.processId()), SIGUSR1);
    QJsonObject latest;
    const bool fresh = ConditionWait::until(
        [&]() {
            QFile file(dumpFile());
            if (!file.open(QIODevice::ReadOnly))
                return false;
            const QJsonObject doc = QJsonDocument::fromJson(file.readAll()).object();
            if (doc.value(QStringLiteral("sequence")).toInt() <= m_lastSequence)
                return false;
            latest = doc;
            return true;
        },
        timeoutMs, 10);
    if (!fresh)
        return QJsonObject();
    m_lastSequence = latest.value(QStringLiteral("sequence")).toInt();
    return latest;
}

QJsonObject HeadUnitProcess::findNode(const QJsonObject& snapshot, const QString& name)
{
    QList<QJsonObject> found;
    collect(snapshot.value(QStringLiteral("window")).toObject(), name, &found);
    for (const QJsonObject& node : found) {
        if (node.value(QStringLiteral("visible")).toBool())
            return node;
    }
    return found.value(0);
}

QJsonObject HeadUnitProcess::state(const QJsonObject& snapshot, const QString& name)
{
    return findNode(snapshot, name).value(QStringLiteral("state")).toObject();
}

bool HeadUnitProcess::isVisible(const QJsonObject& snapshot, const QString& name)
{
    return findNode(snapshot, name).value(QStringLiteral("visible")).toBool();
}
