#include "HvBackgroundImage.h"
#include "WidgetRender.h"

#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

class TestHvBackgroundImage : public QObject
{
    Q_OBJECT

private slots:
    void fitOrNatural_data();
    void fitOrNatural();
    void loadsFromPath();
    void missingPathPaintsNothing();
    void render();
};

namespace {

QPixmap redSquare()
{
    QPixmap pix(20, 20);
    pix.fill(QColor(255, 0, 0));
    return pix;
}

} // namespace

void TestHvBackgroundImage::fitOrNatural_data()
{
    QTest::addColumn<bool>("fit");
    QTest::addColumn<QPoint>("probe");
    QTest::addColumn<bool>("red");
    QTest::newRow("fit, bottom-right") << true << QPoint(95, 45) << true;
    QTest::newRow("natural, last image pixel") << false << QPoint(19, 19) << true;
    QTest::newRow("natural, past the image") << false << QPoint(25, 25) << false;
}

void TestHvBackgroundImage::fitOrNatural()
{
    QFETCH(bool, fit);
    QFETCH(QPoint, probe);
    QFETCH(bool, red);
    HvBackgroundImage w;
    w.resize(100, 50);
    w.setPixmap(redSquare());
    w.setFitPixmapSize(fit);
    QVERIFY(w.pixmapPath().isEmpty());
    const QColor got = renderOnBackdrop(&w).pixelColor(probe);
    QCOMPARE(got == QColor(255, 0, 0), red);
}

void TestHvBackgroundImage::loadsFromPath()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("bg.png"));
    QVERIFY(redSquare().save(path));
    HvBackgroundImage w;
    w.resize(40, 40);
    w.setPixmap(path);
    QCOMPARE(w.pixmapPath(), path);
    QCOMPARE(w.pixmap().size(), QSize(20, 20));
    QCOMPARE(renderOnBackdrop(&w).pixelColor(35, 35), QColor(255, 0, 0));
}

void TestHvBackgroundImage::missingPathPaintsNothing()
{
    HvBackgroundImage w;
    w.resize(40, 40);
    w.setPixmap(redSquare());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("image not found.*FM-AM-BG-missing.png"));
    w.setPixmap(QStringLiteral(":/radioimages/FM-AM-BG-missing.png"));
    QVERIFY(w.pixmap().isNull());
    QCOMPARE(w.pixmapPath(), QStringLiteral(":/radioimages/FM-AM-BG-missing.png"));
    QCOMPARE(renderOnBackdrop(&w).pixelColor(5, 5), QColor(10, 14, 22));
}

void TestHvBackgroundImage::render()
{
    QPixmap pill(299, 69);
    pill.fill(Qt::transparent);
    {
        QPainter p(&pill);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(255, 255, 255, 60), 2));
        p.setBrush(QColor(255, 255, 255, 20));
        p.drawRoundedRect(QRectF(1, 1, 297, 67), 20, 20);
    }
    HvBackgroundImage w;
    w.resize(319, 89);
    w.setPixmap(pill);
    w.setFitPixmapSize(false);
    QVERIFY(saveRender(&w, QStringLiteral("hvbackgroundimage")));
}

QTEST_MAIN(TestHvBackgroundImage)
#include "tst_hvbackgroundimage.moc"
