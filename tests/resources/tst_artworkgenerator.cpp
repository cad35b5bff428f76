// radio-artwork regenerates the committed images.
#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <climits>

namespace {

// Gradients and antialiased edges come out of Qt's raster engine a few
// levels apart on different CPUs (AArch64 rounds differently from x86-64,
// up to 9 levels measured). A wrong colour, shape or position moves whole
// edges by far more, so the images must agree within this margin.
constexpr int RenderingMargin = 12;

// The largest difference in any channel of any pixel; INT_MAX when the
// sizes differ.
int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return INT_MAX;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto *pa = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const auto *pb = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            largest = std::max({largest, qAbs(qRed(pa[x]) - qRed(pb[x])), qAbs(qGreen(pa[x]) - qGreen(pb[x])),
                            qAbs(qBlue(pa[x]) - qBlue(pb[x])), qAbs(qAlpha(pa[x]) - qAlpha(pb[x]))});
        }
    }
    return largest;
}

} // namespace

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
        const int difference = largestDifference(QImage(it.filePath()).convertToFormat(QImage::Format_ARGB32),
                                                 committed.convertToFormat(QImage::Format_ARGB32));
        QVERIFY2(difference <= RenderingMargin,
                 qPrintable(QStringLiteral("%1 is stale (off by %2): rebuild the `artwork` target").arg(file).arg(difference)));
    }
    QCOMPARE(compared, 62);
}

QTEST_MAIN(tst_ArtworkGenerator)
#include "tst_artworkgenerator.moc"
