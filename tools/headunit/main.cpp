#include "HeadUnitOptions.h"
#include "HeadUnitShell.h"
#include "UnixSignalNotifier.h"

#include <QApplication>

#include <csignal>
#include <cstdio>

int main(int argc, char* argv[])
{
    // A snapshot request (SIGUSR1) must never end the head unit, however
    // early it comes: catch it before anything else, answer it later.
    UnixSignalNotifier::catchSignal(SIGUSR1);

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("radio-headunit"));

    HeadUnitOptions options;
    QString error;
    if (!options.parse(QApplication::arguments(), &error)) {
        std::fprintf(stderr, "radio-headunit: %s\n\n%s", qPrintable(error), qPrintable(HeadUnitOptions::helpText()));
        return 64;
    }
    if (options.helpRequested) {
        std::fputs(qPrintable(HeadUnitOptions::helpText()), stdout);
        return 0;
    }

    HeadUnitShell shell(options);
    if (const int failure = shell.start())
        return failure;
    if (!options.tourDir.isEmpty())
        return shell.runTour();
    return QApplication::exec();
}
