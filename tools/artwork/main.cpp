// radio-artwork: paints every image of the radio screen with QPainter and
// writes them below an output root (the repository root regenerates the
// committed files).

#include "ArtworkCatalog.h"
#include "ArtworkWriter.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    // Fonts need a platform plugin; the generator never opens a window.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("radio-artwork"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Paints the radio screen's images."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("root"),
                                 QStringLiteral("Output root; images go to plugin/resources/radioimages/ and host/resources/ below it."));
    parser.process(app);
    const QStringList args = parser.positionalArguments();
    if (args.size() != 1) {
        QTextStream(stderr) << parser.helpText();
        return 2;
    }

    const ArtworkWriter writer(args.first());
    const QVector<ArtworkCatalog::Entry> entries = ArtworkCatalog::entries();
    int failed = 0;
    for (const ArtworkCatalog::Entry& entry : entries) {
        if (!writer.write(entry))
            ++failed;
    }
    QTextStream(stdout) << "radio-artwork: " << entries.size() - failed << " of " << entries.size()
                        << " images written to " << args.first() << '\n';
    return failed == 0 ? 0 : 1;
}
