#include "HeadUnitProcess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <csignal>

namespace {

QJsonObject findNode(const QJsonObject& node, const QString& name)
{
    QJsonObject hidden;
    if (node.value("objectName").toString() == name) {
        if (node.value("visible").toBool())
            return node;
        hidden = node;
    }
    for (const QJsonValue& child : node.value("children").toArray()) {
        const QJsonObject found = findNode(child.toObject(), name);
        if (found.value("visible").toBool())
            return found;
        if (hidden.isEmpty())
            hidden = found;
    }
    return hidden;
}

} // namespace

bool HeadUnitProcess::start(const QStringList& args)
{
    QObject::connect(&process, &QProcess::readyReadStandardError, [this] { errors += process.readAllStandardError(); });
    QObject::connect(&process, &QProcess::readyReadStandardOutput, [this] {
        m_partial += process.readAllStandardOutput();
        int nl;
        while ((nl = m_partial.indexOf('\n')) >= 0) {
            if (m_partial.startsWith("control: "))
                m_answers << QString::fromUtf8(m_partial.mid(9, nl - 9));
            m_partial.remove(0, nl + 1);
        }
    });
    process.start(HEADUNIT_BIN, QStringList{"--dump", dir.filePath("dump.json"), "--control-stdin", "--settings",
                                            dir.filePath("settings.ini")} + args);
    return process.waitForStarted(15000) && !command("dump").isEmpty();
}

int HeadUnitProcess::stop()
{
    if (process.state() == QProcess::Running) {
        process.write("quit\n");
        process.closeWriteChannel();
        if (!process.waitForFinished(10000))
            process.kill();
        process.waitForFinished(10000);
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QString HeadUnitProcess::command(const QString& line, int timeoutMs)
{
    const int before = m_answers.size();
    process.write(line.toUtf8() + '\n');
    if (!QTest::qWaitFor([&] { return m_answers.size() > before || process.state() != QProcess::Running; }, timeoutMs))
        return QString();
    return m_answers.value(before);
}

QJsonObject HeadUnitProcess::snapshot()
{
    QJsonObject latest;
    const auto read = [&] {
        QFile file(dir.filePath("dump.json"));
        latest = file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
        return latest.value("sequence").toInt() > m_sequence;
    };
    read();
    m_sequence = qMax(m_sequence, latest.value("sequence").toInt());
    ::kill(pid_t(process.processId()), SIGUSR1);
    if (!QTest::qWaitFor(read, 5000))
        return QJsonObject();
    m_sequence = latest.value("sequence").toInt();
    return latest;
}

QString HeadUnitProcess::value(const QJsonObject& snapshot, const QString& path)
{
    QJsonValue v = path.contains('/') ? findNode(snapshot.value("window").toObject(), path.section('/', 0, 0))
                                      : QJsonValue(snapshot);
    for (const QString& key : path.section('/', -1).split('.', Qt::SkipEmptyParts))
        v = v.toObject().value(key);
    if (v.isObject())
        return QString::fromUtf8(QJsonDocument(v.toObject()).toJson(QJsonDocument::Compact));
    if (v.isArray())
        return QString::fromUtf8(QJsonDocument(v.toArray()).toJson(QJsonDocument::Compact));
    return v.toVariant().toString();
}
