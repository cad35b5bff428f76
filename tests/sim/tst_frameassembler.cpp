#include "FrameAssembler.h"

#include <QtTest>

namespace {

QByteArray frames(std::initializer_list<RadioCmdToMCU> list)
{
    QByteArray bytes;
    for (const RadioCmdToMCU& f : list)
        bytes.append(reinterpret_cast<const char*>(&f), sizeof f);
    return bytes;
}

} // namespace

class TestFrameAssembler : public QObject
{
    Q_OBJECT
private slots:
    void everySplitGivesTheSameFrames_data();
    void everySplitGivesTheSameFrames();
    void pendingBytesAndReset();
    void emptyAndNullInput();
};

void TestFrameAssembler::everySplitGivesTheSameFrames_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    for (int a = 0; a <= 24; a += 1)
        for (int b = a; b <= 24; b += 5)
            QTest::addRow("%d-%d", a, b) << a << b;
}

// Three frames written in three pieces cut anywhere.
void TestFrameAssembler::everySplitGivesTheSameFrames()
{
    QFETCH(int, first);
    QFETCH(int, second);
    const QByteArray bytes = frames({{RC_SEEK_UP, 0}, {RC_SET_FREQ, 9810}, {RC_PRESET_LONG, 0xDEADBEEF}});
    FrameAssembler assembler;
    QVector<RadioCmdToMCU> out;
    out += assembler.feed(bytes.constData(), first);
    out += assembler.feed(bytes.constData() + first, second - first);
    out += assembler.feed(bytes.constData() + second, bytes.size() - second);
    QCOMPARE(out.size(), 3);
    QCOMPARE(out.at(0).code, uint32_t(RC_SEEK_UP));
    QCOMPARE(out.at(1).code, uint32_t(RC_SET_FREQ));
    QCOMPARE(out.at(1).param, 9810u);
    QCOMPARE(out.at(2).code, uint32_t(RC_PRESET_LONG));
    QCOMPARE(out.at(2).param, 0xDEADBEEFu);
    QCOMPARE(assembler.pendingBytes(), 0);
}

void TestFrameAssembler::pendingBytesAndReset()
{
    const QByteArray bytes = frames({{RC_BAND, 4}, {RC_STEP_UP, 0}});
    FrameAssembler assembler;
    QCOMPARE(assembler.feed(bytes.constData(), 11).size(), 1);
    QCOMPARE(assembler.pendingBytes(), 3);
    assembler.reset();
    QCOMPARE(assembler.pendingBytes(), 0);
    // After a reset the next bytes start a new frame.
    const QVector<RadioCmdToMCU> out = assembler.feed(bytes.constData() + 8, 8);
    QCOMPARE(out.size(), 1);
    QCOMPARE(out.first().code, uint32_t(RC_STEP_UP));
}

void TestFrameAssembler::emptyAndNullInput()
{
    FrameAssembler assembler;
    QVERIFY(assembler.feed(nullptr, 8).isEmpty());
    QVERIFY(assembler.feed("abc", 0).isEmpty());
    QVERIFY(assembler.feed("abc", -5).isEmpty());
    QCOMPARE(assembler.pendingBytes(), 0);
}

QTEST_GUILESS_MAIN(TestFrameAssembler)
#include "tst_frameassembler.moc"
