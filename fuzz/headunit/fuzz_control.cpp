// The shell's control channel against the running head unit and its radio
// screen: any bytes, in pieces of any size, get one answer per command,
// "ok ..." or "error ...", and the shell stays. Side effects stay in the
// target: snapshots go to a scratch folder, holds are dropped (a long press
// becomes a click, a tap loses its hold) and quit ends only the input.
#include "ControlChannel.h"
#include "ControlCommands.h"
#include "FuzzApplication.h"
#include "FuzzCheck.h"
#include "HeadUnitShell.h"
#include "HeadUnitWindow.h"
#include "HostInputs.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzzApplication();
    static QTemporaryDir scratch;
    static bool quit;
    static HeadUnitShell* shell = [] {
        HeadUnitOptions options;
        options.pluginDir = HeadUnitOptions::defaultPluginDir();
        options.settingsFile = scratch.filePath(QStringLiteral("settings.ini"));
        options.language = QStringLiteral("en");
        auto* s = new HeadUnitShell(options);
        check(s->start() == 0, "the shell starts with the radio screen");
        return s;
    }();
    static ControlCommands* commands = [] {
        auto* c = new ControlCommands(shell->window(), shell->inputs(), [](const QString& path, QString* error) {
            return shell->writeDump(scratch.filePath(QStringLiteral("dump-%1.json").arg(qHash(path) % 4)), error);
        }, QStringLiteral("default.json"));
        QObject::connect(c, &ControlCommands::quitRequested, [] { quit = true; });
        return c;
    }();
    quit = false;
    shell->inputs()->switchTo(QStringLiteral("radio"));

    QByteArray input;
    for (const QByteArray& line : QByteArray(reinterpret_cast<const char*>(data), int(size)).split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() >= 2 && words[0] == "longpress")
            input += "click " + words[1] + '\n';
        else
            input += (words.size() == 4 && words[0] == "tap" ? "tap " + words[1] + ' ' + words[2] : line) + '\n';
    }
    input.chop(1);
    int fds[2];
    char* answers = nullptr;
    size_t answersSize = 0;
    FILE* out = open_memstream(&answers, &answersSize);
    check(pipe2(fds, O_CLOEXEC) == 0 && out, "a pipe and a memory stream");
    {
        ControlChannel channel(fds[0], commands, out);
        const int piece = 1 + int(size % 97);
        for (int at = 0; at < input.size() && !quit; at += piece) {
            check(write(fds[1], input.constData() + at, size_t(std::min(piece, int(input.size()) - at))) > 0, "a write");
            QCoreApplication::processEvents();
        }
        close(fds[1]);
        while (!channel.atEnd())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    close(fds[0]);
    std::fclose(out);
    for (const QByteArray& line : QByteArray(answers, int(answersSize)).split('\n'))
        check(line.isEmpty() || line.startsWith("control: ok ") || line.startsWith("control: error "), "ok or error");
    std::free(answers);
    check(shell->window()->isVisible(), "the shell's window stays");
    return 0;
}
