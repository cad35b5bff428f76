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

    // The head unit drives a fixed 1280 x 720 panel whose layouts give fonts
    // in points, drawn at 100 dpi, and coordinates in device pixels. Pin
    // both, so that neither the display's DPI nor the Qt major moves a text
    // or a button: Qt 6 would take 96 dpi and scale the window on a high-DPI
    // display. Values the user sets win.
    if (!qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "100");
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (!qEnvironmentVariableIsSet("QT_ENABLE_HIGHDPI_SCALING"))
        qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
#endif

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
