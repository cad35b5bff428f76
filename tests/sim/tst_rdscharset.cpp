#include "RdsCharset.h"

#include <QtTest>

class TestRdsCharset : public QObject
{
    Q_OBJECT
private slots:
    void codes_data();
    void codes();
    void everyCodeRoundTrips();
    void controlCodesAreDropped();
    void psFromUtf8_data();
    void psFromUtf8();
    void truncateNeverCutsACharacter_data();
    void truncateNeverCutsACharacter();
};

void TestRdsCharset::codes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("expected");
    QTest::newRow("letter") << 0x41 << QStringLiteral("A");
    QTest::newRow("currency sign, not dollar") << 0x24 << QStringLiteral("\u00A4");
    QTest::newRow("dollar") << 0xAB << QStringLiteral("$");
    QTest::newRow("a umlaut") << 0x91 << QStringLiteral("\u00E4");
    QTest::newRow("c caron") << 0xDB << QStringLiteral("\u010D");
    QTest::newRow("unused 0x7F") << 0x7F << QString();
}

void TestRdsCharset::codes()
{
    QFETCH(int, code);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromUtf8(RdsCharset::utf8(uint8_t(code))), expected);
}

void TestRdsCharset::everyCodeRoundTrips()
{
    int mapped = 0;
    for (int code = 0x20; code <= 0xFF; ++code) {
        const QString c = QString::fromUtf8(RdsCharset::utf8(uint8_t(code)));
        if (c.isEmpty())
            continue;
        ++mapped;
        QCOMPARE(c.size(), 1);
        QCOMPARE(RdsCharset::codeOf(c.at(0)), code);
    }
    QCOMPARE(mapped, 0xFF - 0x20 + 1 - 2);
}

void TestRdsCharset::controlCodesAreDropped()
{
    QCOMPARE(RdsCharset::toUtf8(QByteArray("A\x0A" "B\x1F" "C", 5)), QByteArray("ABC"));
}

void TestRdsCharset::psFromUtf8_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("short padded") << QByteArray("POP") << QByteArray("POP     ");
    QTest::newRow("leading spaces kept") << QByteArray("  FAJN  ") << QByteArray("  FAJN  ");
    QTest::newRow("long cut") << QByteArray("LONGER THAN EIGHT") << QByteArray("LONGER T");
    QTest::newRow("umlaut to RDS code") << QByteArray("GR\xC3\x9CN") << QByteArray("GR\xD9N    ");
    QTest::newRow("outside the set") << QByteArray("A\xE2\x98\x83" "B") << QByteArray("A B     ");
}

void TestRdsCharset::psFromUtf8()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(RdsCharset::psFromUtf8(text), expected);
}

void TestRdsCharset::truncateNeverCutsACharacter_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("max");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("fits") << QByteArray("abc") << 3 << QByteArray("abc");
    QTest::newRow("ascii cut") << QByteArray("abcdef") << 4 << QByteArray("abcd");
    QTest::newRow("two-byte char at the edge") << QByteArray("abc\xC3\xA4") << 4 << QByteArray("abc");
    QTest::newRow("three-byte char at the edge") << QByteArray("ab\xE2\x82\xAC") << 4 << QByteArray("ab");
}

void TestRdsCharset::truncateNeverCutsACharacter()
{
    QFETCH(QByteArray, text);
    QFETCH(int, max);
    QFETCH(QByteArray, expected);
    QCOMPARE(RdsCharset::truncateUtf8(text, max), expected);
}

QTEST_GUILESS_MAIN(TestRdsCharset)
#include "tst_rdscharset.moc"
