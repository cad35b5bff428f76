// The host's stand-in images, as registered by libappframework, side by side
// with the radio collection under the shared ":/radioimages/" prefix; and a
// contact sheet of every image both provide.

#include "UIManager.h"

#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QtTest>

class tst_HostImages : public QObject
{
    Q_OBJECT

private slots:
    void hostImage_data();
    void hostImage();
    void backgroundCoversSystemView();
    void collectionsShareThePrefix();
    void contactSheet();
};

void tst_HostImages::hostImage_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("BK") << QStringLiteral(":/radioimages/BK.png") << QSize(1280, 720) << QByteArray("png");
    QTest::newRow("Key_N") << QStringLiteral(":/radioimages2/VELMAR_1024_600/Key_N.png") << QSize(141, 81)
                           << QByteArray("png");
    QTest::newRow("Key_P") << QStringLiteral(":/radioimages2/VELMAR_1024_600/Key_P.png") << QSize(141, 81)
                           << QByteArray("png");
    QTest::newRow("wallpaper") << QStringLiteral(":/images/wallpaper/default.jpg") << QSize(1280, 720)
                               << QByteArray("jpeg");
    QTest::newRow("closeScreen") << QStringLiteral(":/images/closeScreen.png") << QSize(90, 66)
                                 << QByteArray("png");
    // No file name extension: the reader must recognise the data itself.
    QTest::newRow("activity icon") << QStringLiteral(":/radioimages/01_radio") << QSize(128, 128)
                                   << QByteArray("png");
}

void tst_HostImages::hostImage()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QFETCH(QByteArray, format);
    QImageReader reader(path);
    QCOMPARE(reader.format(), format);
    const QPixmap pixmap(path);
    QVERIFY2(!pixmap.isNull(), qPrintable(path));
    QCOMPARE(pixmap.size(), size);
}

void tst_HostImages::backgroundCoversSystemView()
{
    const QRect screen = hvappframework::UIManager::getSystemViewRect();
    QCOMPARE(QImage(QStringLiteral(":/radioimages/BK.png")).size(), screen.size());
    QCOMPARE(QImage(QStringLiteral(":/images/wallpaper/default.jpg")).size(), screen.size());
    // The keypad shows BK.png as its underlay: it must be fully opaque.
    const QImage bk = QImage(QStringLiteral(":/radioimages/BK.png")).convertToFormat(QImage::Format_ARGB32);
    int minAlpha = 255;
    for (int y = 0; y < bk.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(bk.constScanLine(y));
        for (int x = 0; x < bk.width(); ++x)
            minAlpha = std::min(minAlpha, qAlpha(line[x]));
    }
    QCOMPARE(minAlpha, 255);
}

void tst_HostImages::collectionsShareThePrefix()
{
    const QStringList names = QDir(QStringLiteral(":/radioimages")).entryList(QDir::Files);
    QVERIFY(names.contains(QStringLiteral("BK.png")));
    QVERIFY(names.contains(QStringLiteral("01_radio")));
    QVERIFY(names.contains(QStringLiteral("FM-P.png")));
    QVERIFY(names.contains(QStringLiteral("setupbg.png")));
    QCOMPARE(QPixmap(QStringLiteral(":/radioimages/FM-P.png")).size(), QSize(299, 69));
}

void tst_HostImages::contactSheet()
{
    QStringList paths;
    for (const QString& root : {QStringLiteral(":/radioimages"), QStringLiteral(":/radioimages2"),
                                QStringLiteral(":/images")}) {
        QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            paths << it.next();
    }
    paths.sort();
    // 56 of the collection and 6 of the host.
    QCOMPARE(paths.size(), 62);

    const QString outDir = qEnvironmentVariable("RADIO_TEST_OUTPUT");
    if (outDir.isEmpty())
        QSKIP("RADIO_TEST_OUTPUT is not set");

    // Large images at half size; rows are packed left to right.
    const int width = 1700;
    const int gap = 16;
    const int caption = 30;
    const int minCell = 200;
    struct Cell {
        QString path;
        QSize size;
        QImage image;
        QPoint at;
    };
    QVector<Cell> cells;
    int x = gap;
    int y = gap;
    int rowHeight = 0;
    for (const QString& path : paths) {
        QImage image(path);
        QVERIFY2(!image.isNull(), qPrintable(path));
        const QSize shown = image.width() > 700 ? image.size() / 2 : image.size();
        const int cellWidth = std::max(shown.width(), minCell);
        if (x + cellWidth > width - gap) {
            x = gap;
            y += rowHeight + caption + gap;
            rowHeight = 0;
        }
        cells.append({path, image.size(), image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), QPoint(x, y)});
        x += cellWidth + gap;
        rowHeight = std::max(rowHeight, shown.height());
    }
    const int height = y + rowHeight + caption + gap;

    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(QColor(52, 56, 62));
    QPainter p(&sheet);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(11);
    p.setFont(font);
    const QFontMetrics metrics(font);
    for (const Cell& cell : cells) {
        const QRect area(cell.at, cell.image.size());
        // A checkerboard under each image shows its transparent parts.
        for (int cy = area.top(); cy <= area.bottom(); cy += 8) {
            for (int cx = area.left(); cx <= area.right(); cx += 8) {
                const bool dark = ((cx - area.left()) / 8 + (cy - area.top()) / 8) % 2;
                p.fillRect(QRect(cx, cy, 8, 8).intersected(area), dark ? QColor(44, 47, 52) : QColor(62, 66, 72));
            }
        }
        p.drawImage(cell.at, cell.image);
        p.setPen(QColor(220, 224, 230));
        const int textWidth = std::max(cell.image.width(), minCell);
        const int base = cell.at.y() + cell.image.height() + 13;
        p.drawText(QPoint(cell.at.x(), base), metrics.elidedText(cell.path, Qt::ElideLeft, textWidth));
        p.setPen(QColor(150, 156, 166));
        p.drawText(QPoint(cell.at.x(), base + 13), QStringLiteral("%1 x %2").arg(cell.size.width()).arg(cell.size.height()));
    }
    p.end();

    const QString file = QDir(outDir).filePath(QStringLiteral("artwork-contact-sheet.png"));
    QVERIFY(sheet.save(file));
    QCOMPARE(QImage(file).size(), sheet.size());
}

QTEST_MAIN(tst_HostImages)
#include "tst_hostimages.moc"
