// radio-artwork against the images committed to the repository: it writes
// the same set of files, each at the same size and with the same pixels, so
// the committed artwork can always be regenerated from the painter code.

#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_ArtworkGenerator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void writesTheCommittedSetOfFiles();
    void matchesCommittedImage_data();
    void matchesCommittedImage();
    void rejectsMissingRoot();
    void reportsUnwritableRoot();

private:
    // Image files below the resource folders of a tree, relative to its root.
    static QStringList imageFiles(const QString& root);

    QTemporaryDir m_out;
};

namespace {

const QString kTool = QStringLiteral(RADIO_ARTWORK_TOOL);
const QString kSource = QStringLiteral(RADIO_SOURCE_DIR);

struct Run {
    int exitCode = -1;
    QString output;
};

Run runTool(const QStringList& args)
{
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(kTool, args);
    Run run;
    if (!tool.waitForStarted() || !tool.waitForFinished(120000) || tool.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = tool.exitCode();
    run.output = QString::fromLocal8Bit(tool.readAll());
    return run;
}

} // namespace

QStringList tst_ArtworkGenerator::imageFiles(const QString& root)
{
    QStringList files;
    for (const QString& folder : {QStringLiteral("plugin/resources"), QStringLiteral("host/resources")}) {
        const QDir base(root);
        QDirIterator it(base.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            // Build files live beside the images; only images are compared.
            if (QImageReader(path).canRead())
                files << base.relativeFilePath(path);
        }
    }
    files.sort();
    return files;
}

void tst_ArtworkGenerator::initTestCase()
{
    QVERIFY2(QFileInfo(kTool).isExecutable(), qPrintable(kTool));
    QVERIFY(m_out.isValid());
    const Run run = runTool({m_out.path()});
    QVERIFY2(run.exitCode == 0, qPrintable(run.output));
    QVERIFY2(run.output.contains(QLatin1String("62 of 62 images written")), qPrintable(run.output));
}

void tst_ArtworkGenerator::writesTheCommittedSetOfFiles()
{
    const QStringList committed = imageFiles(kSource);
    const QStringList generated = imageFiles(m_out.path());
    QCOMPARE(generated.size(), 62);
    QCOMPARE(committed, generated);
}

void tst_ArtworkGenerator::matchesCommittedImage_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& file : imageFiles(m_out.path()))
        QTest::newRow(qPrintable(file)) << file;
}

void tst_ArtworkGenerator::matchesCommittedImage()
{
    QFETCH(QString, file);
    const QImage generated(QDir(m_out.path()).filePath(file));
    const QImage committed(QDir(kSource).filePath(file));
    QVERIFY2(!generated.isNull(), qPrintable(file));
    QVERIFY2(!committed.isNull(), qPrintable(file));
    QCOMPARE(generated.size(), committed.size());
    QVERIFY2(generated.convertToFormat(QImage::Format_ARGB32) == committed.convertToFormat(QImage::Format_ARGB32),
             "committed image is stale: rebuild the `artwork` target");
}

void tst_ArtworkGenerator::rejectsMissingRoot()
{
    const Run run = runTool({});
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.output.contains(QLatin1String("Usage:")), qPrintable(run.output));
}

void tst_ArtworkGenerator::reportsUnwritableRoot()
{
    // A regular file where the output root should be: no folder can be made.
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString blocker = dir.filePath(QStringLiteral("root"));
    QFile file(blocker);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();

    const Run run = runTool({blocker});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.output.contains(QLatin1String("cannot create folder")), qPrintable(run.output));
    QVERIFY2(run.output.contains(QLatin1String("0 of 62 images written")), qPrintable(run.output));
}

QTEST_MAIN(tst_ArtworkGenerator)
#include "tst_artworkgenerator.moc"
