// The shell's control channel, one command per line, against the running
// head unit with the radio screen: any bytes, in any pieces, get one answer
// line per command, "ok ..." or "error ...", and leave the shell running.
// Side effects stay in the target: snapshots go to a scratch folder, holds
// are dropped (a long press becomes a click, a tap's hold goes), and quit
// ends only the input.
#include "ControlChannel.h"
#include "ControlCommands.h"
#include "FuzzApplication.h"
#include "HeadUnitShell.h"
#include "HeadUnitWindow.h"
#include "HostInputs.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

void check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }
}

struct Rig {
    QTemporaryDir scratch;
    HeadUnitShell* shell = nullptr;
    ControlCommands* commands = nullptr;
    bool quit = false;

    Rig()
    {
        HeadUnitOptions options;
        options.pluginDir = HeadUnitOptions::defaultPluginDir();
        options.settingsFile = scratch.filePath(QStringLiteral("settings.ini"));
        options.language = QStringLiteral("en");
        shell = new HeadUnitShell(options);
        check(shell->start() == 0, "the shell starts with the radio screen");
        const auto dump = [this](const QString& path, QString* error) {
            return shell->writeDump(scratch.filePath(QStringLiteral("dump-%1.json").arg(qHash(path) % 4)), error);
        };
        commands = new ControlCommands(shell->window(), shell->inputs(), dump, QStringLiteral("default.json"));
        QObject::connect(commands, &ControlCommands::quitRequested, [this] { quit = true; });
    }
};

// The line without what would wait in real time.
QByteArray withoutHolds(const QByteArray& line)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.first() == "longpress" && words.size() >= 2)
        return "click " + words.at(1);
    if (words.first() == "tap" && words.size() == 4)
        return "tap " + words.at(1) + ' ' + words.at(2);
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzzApplication();
    static Rig* rig = new Rig;
    rig->quit = false;
    rig->shell->inputs()->switchTo(QStringLiteral("radio"));

    QByteArray input;
    for (const QByteArray& line : QByteArray(reinterpret_cast<const char*>(data), int(size)).split('\n'))
        input += withoutHolds(line) + '\n';
    input.chop(1);

    int pipeFds[2];
    check(pipe2(pipeFds, O_CLOEXEC) == 0, "a pipe");
    char* answers = nullptr;
    size_t answersSize = 0;
    FILE* out = open_memstream(&answers, &answersSize);
    {
        ControlChannel channel(pipeFds[0], rig->commands, out);
        // Pieces of a size the input sets, so lines arrive cut anywhere.
        const int piece = 1 + int(size % 97);
        for (int at = 0; at < input.size() && !rig->quit; at += piece) {
            const int n = std::min(piece, int(input.size()) - at);
            check(write(pipeFds[1], input.constData() + at, size_t(n)) == n, "the pipe takes the input");
            QCoreApplication::processEvents();
        }
        close(pipeFds[1]);
        while (!channel.atEnd())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    close(pipeFds[0]);
    std::fclose(out);
    for (const QByteArray& line : QByteArray(answers, int(answersSize)).split('\n'))
        check(line.isEmpty() || line.startsWith("control: ok ") || line.startsWith("control: error "),
              "every answer is ok or error");
    std::free(answers);
    check(rig->shell->window()->isVisible(), "the shell's window stays");
    return 0;
}
