#include "RdsDecoder.h"
#include "RdsLog.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

namespace {

RdsGroup group(uint16_t a, uint16_t b, uint16_t c, uint16_t d, uint8_t valid = 0x0F)
{
    RdsGroup g;
    g.block[0] = a;
    g.block[1] = b;
    g.block[2] = c;
    g.block[3] = d;
    g.valid = valid;
    return g;
}

constexpr uint16_t kPi = 0x2A2A;

// Block B of a group: type, version, TP, PTY, then the five low bits.
uint16_t blockB(int type, bool versionB, bool tp, int pty, int low)
{
    return uint16_t(type << 12 | (versionB ? 1 : 0) << 11 | (tp ? 1 : 0) << 10 | pty << 5 | low);
}

// One complete cycle of 0A groups carrying `ps`.
QVector<RdsGroup> psCycle(const QByteArray& ps, bool tp = false, int pty = 0, bool ta = false)
{
    QVector<RdsGroup> groups;
    for (int s = 0; s < 4; ++s) {
        const uint16_t d = uint16_t(uint8_t(ps.at(2 * s)) << 8 | uint8_t(ps.at(2 * s + 1)));
        groups << group(kPi, blockB(0, false, tp, pty, (ta ? 0x10 : 0) | s), 0xE0CD, d);
    }
    return groups;
}

// One cycle of 2A groups carrying `text` (padded to whole segments).
QVector<RdsGroup> rtCycle(QByteArray text, int ab, int segments = -1)
{
    while (text.size() % 4)
        text.append(' ');
    const int count = segments < 0 ? text.size() / 4 : segments;
    QVector<RdsGroup> groups;
    for (int s = 0; s < count; ++s) {
        const auto c = [&](int i) { return uint16_t(uint8_t(text.at(4 * s + i))); };
        groups << group(kPi, blockB(2, false, false, 0, (ab << 4) | s), uint16_t(c(0) << 8 | c(1)), uint16_t(c(2) << 8 | c(3)));
    }
    return groups;
}

void feedAll(RdsDecoder& decoder, const QVector<RdsGroup>& groups, int times = 1)
{
    for (int t = 0; t < times; ++t) {
        for (const RdsGroup& g : groups)
            decoder.feed(g);
    }
}

QString sharedRds()
{
    const QByteArray root = qgetenv("RADIO_SHARED_DATA");
    return root.isEmpty() ? QString() : QString::fromLocal8Bit(root) + QStringLiteral("/rds");
}

struct Report {
    QString pi;
    QByteArray ps;
    int pty = -1;
    int tp = -1;
    QByteArray lastRt;
    QList<QByteArray> psHistory;
};

// The values an RDS Spy report gives for its station.
Report readReport(const QString& path)
{
    Report r;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return r;
    const QList<QByteArray> lines = file.readAll().split('\n');
    bool inRtHistory = false;
    bool inPsHistory = false;
    for (QByteArray line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.startsWith("PI   = "))
            r.pi = QString::fromLatin1(line.mid(7, 4));
        else if (line.startsWith("PS   = "))
            r.ps = line.mid(7, 8).leftJustified(8, ' ');
        else if (line.startsWith("TP   = "))
            r.tp = line.mid(7, 1).toInt();
        else if (line.startsWith("PTY  = ")) {
            const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("\\((\\d+)\\)\\s*$")).match(QString::fromLatin1(line));
            if (m.hasMatch())
                r.pty = m.captured(1).toInt();
        } else if (line.startsWith("RT History:")) {
            inRtHistory = true;
        } else if (line.startsWith("PS History:")) {
            inPsHistory = true;
        } else if (inRtHistory || inPsHistory) {
            if (line.trimmed().isEmpty() || line.startsWith("---")) {
                inRtHistory = inPsHistory = false;
            } else if (inPsHistory) {
                // "hh:mm:ss: NAME    "
                r.psHistory << line.mid(10, 8).leftJustified(8, ' ');
            } else {
                // "hh:mm:ss text", trailing blanks not part of the text
                QByteArray text = line.mid(9);
                while (text.endsWith(' '))
                    text.chop(1);
                r.lastRt = text;
            }
        }
    }
    return r;
}

} // namespace

class TestRdsDecoder : public QObject
{
    Q_OBJECT
private slots:
    void psNeedsEverySegmentTwice();
    void psFollowsAChangedName();
    void lostBlockDLeavesSegmentOpen();
    void foreignPiIsDropped();
    void radioTextEndsAtCarriageReturn_data();
    void radioTextEndsAtCarriageReturn();
    void abFlagStartsANewText();
    void radioTextWithoutTerminatorCompletesAfterRestart();
    void versionBRadioText();
    void radioTextConvertsCharacterSet();
    void ptyTpTaNeedTwoEqualReadings();
    void singleWrongBlockDoesNotChangePty();
    void realLogMatchesReport_data();
    void realLogMatchesReport();
};

void TestRdsDecoder::psNeedsEverySegmentTwice()
{
    RdsDecoder decoder;
    QSignalSpy spy(&decoder, &RdsDecoder::psChanged);
    feedAll(decoder, psCycle("VYSOCINA"));
    QCOMPARE(spy.count(), 0);
    QVERIFY(decoder.ps().isEmpty());
    feedAll(decoder, psCycle("VYSOCINA"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArray("VYSOCINA"));
    feedAll(decoder, psCycle("VYSOCINA"), 3);
    QCOMPARE(spy.count(), 1);
}

void TestRdsDecoder::psFollowsAChangedName()
{
    RdsDecoder decoder;
    feedAll(decoder, psCycle("NEWS    "), 2);
    QSignalSpy spy(&decoder, &RdsDecoder::psChanged);
    feedAll(decoder, psCycle("WEATHER "), 2);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(decoder.ps(), QByteArray("WEATHER "));
}

void TestRdsDecoder::lostBlockDLeavesSegmentOpen()
{
    RdsDecoder decoder;
    QVector<RdsGroup> damaged = psCycle("ABCDEFGH");
    damaged[2].valid = 0x07;   // block D of segment 2 lost
    feedAll(decoder, damaged, 4);
    QVERIFY(decoder.ps().isEmpty());
    feedAll(decoder, psCycle("ABCDEFGH"), 2);
    QCOMPARE(decoder.ps(), QByteArray("ABCDEFGH"));
}

void TestRdsDecoder::foreignPiIsDropped()
{
    RdsDecoder decoder;
    feedAll(decoder, psCycle("HOME    "), 2);
    QCOMPARE(decoder.pi(), kPi);
    QVector<RdsGroup> other = psCycle("OTHER   ");
    for (RdsGroup& g : other)
        g.block[0] = 0x1234;
    // Two groups from another PI are not enough to believe in a retune.
    decoder.feed(other.at(0));
    decoder.feed(other.at(1));
    feedAll(decoder, psCycle("HOME    "));
    QCOMPARE(decoder.pi(), kPi);
    QCOMPARE(decoder.ps(), QByteArray("HOME    "));
}

void TestRdsDecoder::radioTextEndsAtCarriageReturn_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("terminated") << QByteArray("Hello world\r") << QByteArray("Hello world");
    QTest::newRow("terminator mid-segment") << QByteArray("ABCDE\rxy") << QByteArray("ABCDE");
    QTest::newRow("trailing spaces trimmed") << QByteArray("Padded     \r") << QByteArray("Padded");
    QTest::newRow("full 64") << QByteArray(64, 'x') << QByteArray(64, 'x');
}

void TestRdsDecoder::radioTextEndsAtCarriageReturn()
{
    QFETCH(QByteArray, sent);
    QFETCH(QByteArray, expected);
    RdsDecoder decoder;
    QSignalSpy spy(&decoder, &RdsDecoder::radioTextChanged);
    feedAll(decoder, rtCycle(sent, 0), 2);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(decoder.radioText(), expected);
}

void TestRdsDecoder::abFlagStartsANewText()
{
    RdsDecoder decoder;
    feedAll(decoder, rtCycle("First text, rather long one\r", 0), 2);
    QCOMPARE(decoder.radioText(), QByteArray("First text, rather long one"));
    // A shorter text with the other flag: nothing of the first may remain.
    feedAll(decoder, rtCycle("Second\r", 1), 2);
    QCOMPARE(decoder.radioText(), QByteArray("Second"));
}

void TestRdsDecoder::radioTextWithoutTerminatorCompletesAfterRestart()
{
    RdsDecoder decoder;
    // Eight segments, no 0x0D, no padding to 64: complete once repeated.
    const QByteArray text("Station sends only what it needs");
    feedAll(decoder, rtCycle(text, 0, 8), 1);
    QVERIFY(decoder.radioText().isEmpty());
    feedAll(decoder, rtCycle(text, 0, 8), 2);
    QCOMPARE(decoder.radioText(), text.left(32));
}

void TestRdsDecoder::versionBRadioText()
{
    RdsDecoder decoder;
    const QByteArray text("2B text\r");
    QVector<RdsGroup> groups;
    for (int s = 0; s < text.size() / 2; ++s) {
        const uint16_t d = uint16_t(uint8_t(text.at(2 * s)) << 8 | uint8_t(text.at(2 * s + 1)));
        // Version B repeats the PI in block C.
        groups << group(kPi, blockB(2, true, false, 0, s), kPi, d);
    }
    feedAll(decoder, groups, 2);
    QCOMPARE(decoder.radioText(), QByteArray("2B text"));
}

void TestRdsDecoder::radioTextConvertsCharacterSet()
{
    RdsDecoder decoder;
    // "Gr\x99n" is Grün in the RDS set (0x99 = ü), not Latin-1.
    feedAll(decoder, rtCycle(QByteArray("Gr\x99n \x91\x97\xD7\r"), 0), 2);
    QCOMPARE(QString::fromUtf8(decoder.radioText()), QString::fromUtf8("Grün äöÖ"));
}

void TestRdsDecoder::ptyTpTaNeedTwoEqualReadings()
{
    RdsDecoder decoder;
    QSignalSpy pty(&decoder, &RdsDecoder::ptyChanged);
    QSignalSpy tp(&decoder, &RdsDecoder::tpChanged);
    QSignalSpy ta(&decoder, &RdsDecoder::taChanged);
    const QVector<RdsGroup> groups = psCycle("TRAFFIC ", true, 3, true);
    decoder.feed(groups.at(0));
    QCOMPARE(pty.count(), 0);
    QCOMPARE(decoder.pty(), -1);
    decoder.feed(groups.at(1));
    QCOMPARE(pty.count(), 1);
    QCOMPARE(decoder.pty(), 3);
    QVERIFY(decoder.tp());
    QVERIFY(decoder.ta());
    QCOMPARE(tp.count(), 1);
    QCOMPARE(ta.count(), 1);
    feedAll(decoder, psCycle("TRAFFIC ", true, 3, false), 1);
    QVERIFY(!decoder.ta());
    QCOMPARE(ta.count(), 2);
}

void TestRdsDecoder::singleWrongBlockDoesNotChangePty()
{
    RdsDecoder decoder;
    feedAll(decoder, psCycle("POP     ", false, 10), 2);
    QCOMPARE(decoder.pty(), 10);
    RdsGroup wrong = psCycle("POP     ", false, 21).at(0);
    decoder.feed(wrong);
    feedAll(decoder, psCycle("POP     ", false, 10));
    QCOMPARE(decoder.pty(), 10);
}

// Each Czech log decoded in full against the RDS Spy report written at
// the end of the same session.
void TestRdsDecoder::realLogMatchesReport_data()
{
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("report");
    const QString dir = sharedRds() + QStringLiteral("/walczakp-rds-spy-logs/Czech_Republic");
    const QStringList reports = QDir(dir).entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    if (reports.isEmpty()) {
        QTest::newRow("no shared data") << QString() << QString();
        return;
    }
    const QStringList logs = QDir(dir).entryList({QStringLiteral("*.spy")}, QDir::Files, QDir::Name);
    for (const QString& report : reports) {
        // The report's log: same PI, the latest one started before it.
        QString match;
        for (const QString& log : logs) {
            if (log.left(4) == report.left(4) && log < report)
                match = log;
        }
        if (!match.isEmpty())
            QTest::newRow(qPrintable(match)) << dir + QLatin1Char('/') + match << dir + QLatin1Char('/') + report;
    }
}

void TestRdsDecoder::realLogMatchesReport()
{
    QFETCH(QString, log);
    QFETCH(QString, report);
    if (log.isEmpty())
        QSKIP("RDS logs not present under RADIO_SHARED_DATA");
    RdsLog groups;
    QString error;
    QVERIFY2(groups.load(log, &error), qPrintable(error));
    const Report expected = readReport(report);
    QVERIFY(!expected.pi.isEmpty());

    RdsDecoder decoder;
    QList<QByteArray> texts;
    QList<QByteArray> names;
    connect(&decoder, &RdsDecoder::radioTextChanged, [&texts](const QByteArray& t) { texts << t; });
    connect(&decoder, &RdsDecoder::psChanged, [&names](const QByteArray& ps) { names << ps; });
    for (const RdsGroup& g : groups.groups())
        decoder.feed(g);

    QCOMPARE(QString::number(decoder.pi(), 16).toUpper(), expected.pi);
    QCOMPARE(decoder.pty(), expected.pty);
    QCOMPARE(int(decoder.tp()), expected.tp);
    // The station's name was found, and no name was published that RDS Spy
    // never saw (its history, empty for a name that never changed, also
    // keeps the garbage it let through).
    QVERIFY2(names.contains(expected.ps), qPrintable(QString::fromLatin1(expected.ps)));
    for (const QByteArray& name : names)
        QVERIFY2(name == expected.ps || expected.psHistory.contains(name), qPrintable(QString::fromLatin1(name)));
    if (!expected.lastRt.isEmpty())
        QVERIFY2(texts.contains(expected.lastRt),
                 qPrintable(QStringLiteral("\"%1\" not among %2 decoded texts, last \"%3\"")
                                .arg(QString::fromLatin1(expected.lastRt)).arg(texts.size())
                                .arg(QString::fromUtf8(texts.value(texts.size() - 1)))));
}

QTEST_GUILESS_MAIN(TestRdsDecoder)
#include "tst_rdsdecoder.moc"
