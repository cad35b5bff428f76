// RDS groups in, what the radio shows out: programme service name, radio
// text in UTF-8, PTY, TP and TA; checked on built groups and on recorded
// logs against the RDS Spy report of the same session.
#include "RdsDecoder.h"
#include "RdsLog.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

using Groups = QVector<RdsGroup>;
Q_DECLARE_METATYPE(Groups)

namespace {

uint16_t pair(const QByteArray& text, int at)
{
    return uint16_t(uint8_t(text.at(at)) << 8 | uint8_t(text.at(at + 1)));
}

// Groups of PI 2A2A: 0A carrying `name`, or 2A (2B) carrying `text`, `times` over.
Groups groups(int type, QByteArray text, int times = 2, int low = 0, int pty = 0, bool tp = false, bool versionB = false)
{
    const int width = type == 0 || versionB ? 2 : 4;
    while (text.size() % width)
        text.append(' ');
    Groups result;
    for (int t = 0; t < times; ++t) {
        for (int s = 0; s < text.size() / width; ++s) {
            RdsGroup g;
            g.block[0] = 0x2A2A;
            g.block[1] = uint16_t(type << 12 | versionB << 11 | tp << 10 | pty << 5 | low | s);
            g.block[2] = type == 0 ? 0xE0CD : versionB ? 0x2A2A : pair(text, width * s);
            g.block[3] = pair(text, width * s + width - 2);
            g.valid = 0x0F;
            result << g;
        }
    }
    return result;
}

Groups ps(const QByteArray& name, int times = 2, int pty = 0, bool tp = false, bool ta = false)
{
    return groups(0, name, times, ta ? 0x10 : 0, pty, tp);
}

Groups rt(const QByteArray& text, int ab, int times = 2, bool versionB = false)
{
    return groups(2, text, times, ab << 4, 0, false, versionB);
}

Groups damaged(Groups groups, int index, uint8_t valid, uint16_t pi = 0x2A2A)
{
    groups[index].valid = valid;
    groups[index].block[0] = pi;
    return groups;
}

} // namespace

class TestRdsDecoder : public QObject
{
    Q_OBJECT
private slots:
    void decodes_data();
    void decodes();
    void recordedLogMatchesItsReport_data();
    void recordedLogMatchesItsReport();
};

// "PS|radio text|PTY|TP|TA" after the groups.
void TestRdsDecoder::decodes_data()
{
    QTest::addColumn<Groups>("groups");
    QTest::addColumn<QString>("expected");
    QTest::newRow("PS seen once is not trusted") << ps("VYSOCINA", 1) << "||0|0|0";
    QTest::newRow("PS seen twice") << ps("VYSOCINA") << "VYSOCINA||0|0|0";
    QTest::newRow("PS follows a new name") << ps("NEWS    ") + ps("WEATHER ") << "WEATHER ||0|0|0";
    const Groups lost = damaged(ps("ABCDEFGH", 1), 2, 0x07);
    QTest::newRow("lost block D leaves the segment open") << lost + lost + lost << "||0|0|0";
    QTest::newRow("two groups of a foreign PI are dropped") << ps("HOME    ") + damaged(ps("OTHER   ", 1), 0, 0x0F, 0x1234).mid(0, 2) + ps("HOME    ", 1)
                                                            << "HOME    ||0|0|0";
    QTest::newRow("text ends at CR") << rt("Hello world\r", 0) << "|Hello world|0|0|0";
    QTest::newRow("CR mid-segment") << rt("ABCDE\rxy", 0) << "|ABCDE|0|0|0";
    QTest::newRow("trailing spaces trimmed") << rt("Padded     \r", 0) << "|Padded|0|0|0";
    QTest::newRow("full 64") << rt(QByteArray(64, 'x'), 0) << "|" + QString(64, 'x') + "|0|0|0";
    QTest::newRow("A/B flag starts a new text") << rt("First text, rather long one\r", 0) + rt("Second\r", 1) << "|Second|0|0|0";
    QTest::newRow("no terminator: complete when repeated") << rt("Station sends only what it needs", 0, 3)
                                                           << "|Station sends only what it needs|0|0|0";
    QTest::newRow("version B") << rt("2B text\r", 0, 2, true) << "|2B text|0|0|0";
    QTest::newRow("RDS character set to UTF-8") << rt("Gr\x99n \x91\x97\xD7\r", 0) << QString::fromUtf8("|Grün äöÖ|0|0|0");
    QTest::newRow("PTY, TP, TA need two readings") << ps("TRAFFIC ", 1, 3, true, true).mid(0, 1) << "||-1|0|0";
    QTest::newRow("PTY, TP, TA") << ps("TRAFFIC ", 1, 3, true, true).mid(0, 2) << "||3|1|1";
    QTest::newRow("TA ends") << ps("TRAFFIC ", 1, 3, true, true) + ps("TRAFFIC ", 1, 3, true) << "TRAFFIC ||3|1|0";
    QTest::newRow("one odd PTY changes nothing") << ps("POP     ", 2, 10) + ps("POP     ", 1, 21).mid(0, 1) + ps("POP     ", 1, 10)
                                                 << "POP     ||10|0|0";
}

void TestRdsDecoder::decodes()
{
    QFETCH(Groups, groups);
    QFETCH(QString, expected);
    RdsDecoder decoder;
    for (const RdsGroup& g : groups)
        decoder.feed(g);
    QCOMPARE(QStringLiteral("%1|%2|%3|%4|%5").arg(QString::fromLatin1(decoder.ps()), QString::fromUtf8(decoder.radioText()))
                 .arg(decoder.pty()).arg(decoder.tp()).arg(decoder.ta()), expected);
}

// Each Czech log against the report RDS Spy wrote after it: same PI, PTY
// and TP, the station's name found and no name RDS Spy never saw, and
// the last radio text among the decoded ones.
void TestRdsDecoder::recordedLogMatchesItsReport_data()
{
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("report");
    const QDir dir(qEnvironmentVariable("RADIO_SHARED_DATA") + "/rds/walczakp-rds-spy-logs/Czech_Republic");
    const QStringList logs = dir.entryList({"*.spy"}, QDir::Files, QDir::Name);
    for (const QString& report : dir.entryList({"*.txt"}, QDir::Files, QDir::Name)) {
        QString match;
        for (const QString& log : logs)
            match = log.left(4) == report.left(4) && log < report ? log : match;
        if (!match.isEmpty())
            QTest::newRow(qPrintable(match)) << dir.filePath(match) << dir.filePath(report);
    }
    if (logs.isEmpty())
        QTest::newRow("no shared data") << QString() << QString();
}

void TestRdsDecoder::recordedLogMatchesItsReport()
{
    QFETCH(QString, log);
    QFETCH(QString, report);
    if (log.isEmpty())
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    RdsLog groups;
    QString error;
    QVERIFY2(groups.load(log, &error) && groups.rejectedLines() == 0, qPrintable(error));
    RdsDecoder decoder;
    QList<QByteArray> texts, names;
    connect(&decoder, &RdsDecoder::radioTextChanged, [&](const QByteArray& t) { texts << t; });
    connect(&decoder, &RdsDecoder::psChanged, [&](const QByteArray& n) { names << n; });
    for (const RdsGroup& g : groups.groups())
        decoder.feed(g);
    QFile file(report);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(file.readAll()).remove('\r');
    const auto field = [&](const char* key) {
        return QRegularExpression(QStringLiteral("^%1 += (.*)$").arg(key), QRegularExpression::MultilineOption).match(text).captured(1);
    };
    QCOMPARE(QString::number(decoder.pi(), 16).toUpper(), field("PI").left(4));
    QCOMPARE(QStringLiteral("(%1)").arg(decoder.pty()), field("PTY").section(' ', -1));
    QCOMPARE(int(decoder.tp()), field("TP").left(1).toInt());
    const QByteArray name = field("PS").left(8).leftJustified(8, ' ').toLatin1();
    QVERIFY2(names.contains(name), name.constData());
    for (const QByteArray& n : names)
        QVERIFY2(n == name || text.section("PS History:", 1).section("\n\n", 0, 0).contains(": " + QString::fromLatin1(n)), n.constData());
    const QString lastRt = text.section("RT History:", 1).section("\n\n", 0, 0).section('\n', -1).mid(9).remove(QRegularExpression(" +$"));
    QVERIFY2(lastRt.isEmpty() || texts.contains(lastRt.toLatin1()), qPrintable(lastRt));
}

QTEST_GUILESS_MAIN(TestRdsDecoder)
#include "tst_rdsdecoder.moc"
