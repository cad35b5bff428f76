// radio-artwork regenerates exactly the committed images, pixel for pixel.
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
    void run_data();
    void run();
};

void tst_ArtworkGenerator::run_data()
{
    QTest::addColumn<QString>("root");  // "out": a fresh folder; "file": a plain file in the way
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("said");
    QTest::newRow("writes all") << "out" << 0 << "62 of 62 images written";
    QTest::newRow("no root") << "" << 2 << "Usage:";
    QTest::newRow("root is a file") << "file" << 1 << "0 of 62 images written";
}

void tst_ArtworkGenerator::run()
{
    QFETCH(QString, root);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString target = dir.filePath(QStringLiteral("root"));
    if (root == QLatin1String("file")) {
        QFile blocker(target);
        QVERIFY(blocker.open(QIODevice::WriteOnly));
    }
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(QStringLiteral(RADIO_ARTWORK_TOOL), root.isEmpty() ? QStringList() : QStringList{target});
    QVERIFY(tool.waitForFinished(120000));
    const QString output = QString::fromLocal8Bit(tool.readAll());
    QTEST(tool.exitCode(), "exitCode");
    QFETCH(QString, said);
    QVERIFY2(output.contains(said), qPrintable(output));
    if (root != QLatin1String("out"))
        return;
    int compared = 0;
    for (QDirIterator it(target, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = QDir(target).relativeFilePath(it.next());
        if (!QImageReader(it.filePath()).canRead())
            continue;
        ++compared;
        const QImage committed(QStringLiteral(RADIO_SOURCE_DIR "/") + file);
        QVERIFY2(!committed.isNull(), qPrintable(file));
        QVERIFY2(QImage(it.filePath()).convertToFormat(QImage::Format_ARGB32) == committed.convertToFormat(QImage::Format_ARGB32),
                 qPrintable(file + QStringLiteral(" is stale: rebuild the `artwork` target")));
    }
    QCOMPARE(compared, 62);
}

QTEST_MAIN(tst_ArtworkGenerator)
#include "tst_artworkgenerator.moc"
