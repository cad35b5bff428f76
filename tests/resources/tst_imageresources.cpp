// The `radio` image collection on its own: only its object library is
// linked, so nothing but its static initializer can have registered it.
#include <QDirIterator>
#include <QImageReader>
#include <QResource>
#include <QtTest>

extern int qCleanupResources_radio();
extern int qInitResources_radio();

class tst_ImageResources : public QObject
{
    Q_OBJECT

private slots:
    void collection_data();
    void collection();
    void nothingElse();
    void unregisterAndRegisterAgain();
};

void tst_ImageResources::collection_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("compressed");
    const QList<QPair<QStringList, QSize>> images = {
        {{"FM-P", "AM-P", "FM-AM-BG"}, {299, 69}},
        {{"scan-N", "scan-P", "EQ-N", "EQ-P", "keypad-N", "keypad-P", "setting-N", "setting-P", "prev-N", "prev-P",
          "next-N", "next-P"}, {72, 69}},
        {{"left-N", "left-P", "right-N", "right-P"}, {53, 52}},
        {{"preset-N", "preset-P"}, {353, 95}},
        {{"presetbg"}, {404, 614}}, {{"freqbarbg"}, {813, 149}}, {{"pointer"}, {6, 121}},
        {{"keypadbg"}, {672, 618}}, {{"setupbg"}, {606, 720}}, {{"setupimages/Btn"}, {546, 77}},
        {{"setupimages/BACK-N", "setupimages/BACK-P"}, {146, 100}},
        {{"keypad/0-N", "keypad/1-N", "keypad/2-N", "keypad/3-N", "keypad/4-N", "keypad/5-N", "keypad/6-N",
          "keypad/7-N", "keypad/8-N", "keypad/0-P", "keypad/1-P", "keypad/2-P", "keypad/3-P", "keypad/4-P",
          "keypad/5-P", "keypad/6-P", "keypad/7-P", "keypad/8-P", "keypad/OK-N", "keypad/OK-P", "keypad/BACK-N",
          "keypad/BACK-P"}, {185, 111}},
        {{"keypad/9-N", "keypad/9-P"}, {186, 111}},
        {{"keypad/backspace-N", "keypad/backspace-P"}, {97, 98}},
        {{"keypad/input"}, {626, 88}},
    };
    for (const auto& group : images) {
        for (const QString& name : group.first)
            QTest::newRow(qPrintable(name)) << QStringLiteral(":/radioimages/%1.png").arg(name) << group.second
                                            << (name == QLatin1String("setupbg"));
    }
}

void tst_ImageResources::collection()
{
    QFETCH(QString, path);
    QImageReader reader(path);
    QCOMPARE(reader.format(), QByteArray("png"));
    QTEST(reader.size(), "size");
    QVERIFY2(!reader.read().isNull(), qPrintable(path));
    QFETCH(bool, compressed);
    QCOMPARE(QResource(path).compressionAlgorithm(), compressed ? QResource::ZlibCompression : QResource::NoCompression);
}

void tst_ImageResources::nothingElse()
{
    int count = 0;
    QDirIterator it(QStringLiteral(":/radioimages"), QDir::Files, QDirIterator::Subdirectories);
    for (; it.hasNext(); it.next())
        ++count;
    QCOMPARE(count, 56);
    // Paths the host provides are not in the collection.
    for (const char* path : {":/radioimages/BK.png", ":/images/wallpaper/default.jpg", ":/images/closeScreen.png"})
        QVERIFY2(QPixmap(QLatin1String(path)).isNull(), path);
}

void tst_ImageResources::unregisterAndRegisterAgain()
{
    QCOMPARE(qCleanupResources_radio(), 1);
    QVERIFY(!QFile::exists(QStringLiteral(":/radioimages/FM-P.png")));
    QCOMPARE(qInitResources_radio(), 1);
    QCOMPARE(QImageReader(QStringLiteral(":/radioimages/FM-P.png")).size(), QSize(299, 69));
}

QTEST_MAIN(tst_ImageResources)
#include "tst_imageresources.moc"
