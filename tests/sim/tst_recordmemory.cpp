#include "RecordMemory.h"

#include <QtTest>

#include <cstring>

namespace {

tag_RadioCmdFromMCU blank(uint32_t kind)
{
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    r.cmd = kind;
    return r;
}

} // namespace

class TestRecordMemory : public QObject
{
    Q_OBJECT
private slots:
    void onlyTheKindsFieldsCount_data();
    void onlyTheKindsFieldsCount();
    void rememberAndForget();
};

void TestRecordMemory::onlyTheKindsFieldsCount_data()
{
    QTest::addColumn<uint32_t>("kind");
    QTest::addColumn<int>("byte");
    QTest::addColumn<bool>("matters");
    QTest::newRow("tune info freq") << uint32_t(MCU_TUNE_INFO) << 4 << true;
    QTest::newRow("tune info scan") << uint32_t(MCU_TUNE_INFO) << 15 << true;
    QTest::newRow("tune info name") << uint32_t(MCU_TUNE_INFO) << 56 << false;
    QTest::newRow("tune info signal") << uint32_t(MCU_TUNE_INFO) << 16 << false;
    QTest::newRow("signal") << uint32_t(MCU_SIGNAL) << 16 << true;
    QTest::newRow("signal ignores freq") << uint32_t(MCU_SIGNAL) << 4 << false;
    QTest::newRow("ps first") << uint32_t(MCU_PS_NAME) << 56 << true;
    QTest::newRow("ps last") << uint32_t(MCU_PS_NAME) << 63 << true;
    QTest::newRow("ps ignores pty") << uint32_t(MCU_PS_NAME) << 64 << false;
    QTest::newRow("pty selected") << uint32_t(MCU_PTY) << 65 << true;
    QTest::newRow("flags") << uint32_t(MCU_RDS_FLAGS) << 67 << true;
    QTest::newRow("text end") << uint32_t(MCU_RADIO_TEXT) << 228 << true;
    QTest::newRow("text ignores 229") << uint32_t(MCU_RADIO_TEXT) << 229 << false;
    QTest::newRow("preset freq last") << uint32_t(MCU_PRESET_FREQ) << 41 << true;
    QTest::newRow("preset names last") << uint32_t(MCU_PRESET_PS) << 163 << true;
    QTest::newRow("favourite") << uint32_t(MCU_FAVOURITE) << 53 << true;
    QTest::newRow("unknown kind: every byte") << 99u << 300 << true;
}

void TestRecordMemory::onlyTheKindsFieldsCount()
{
    QFETCH(uint32_t, kind);
    QFETCH(int, byte);
    QFETCH(bool, matters);
    const tag_RadioCmdFromMCU a = blank(kind);
    tag_RadioCmdFromMCU b = a;
    reinterpret_cast<unsigned char*>(&b)[byte] = 0x5A;
    QCOMPARE(RecordMemory::sameContent(a, b), !matters);
    RecordMemory memory;
    memory.remember(a);
    QCOMPARE(memory.isNew(b), matters);
}

void TestRecordMemory::rememberAndForget()
{
    RecordMemory memory;
    tag_RadioCmdFromMCU ps = blank(MCU_PS_NAME);
    QVERIFY(memory.isNew(ps));
    memory.remember(ps);
    QVERIFY(!memory.isNew(ps));
    QVERIFY(memory.knows(MCU_PS_NAME));
    // Same bytes, other kind: not the same record.
    QVERIFY(!RecordMemory::sameContent(ps, blank(MCU_PTY)));
    memory.forget(MCU_PS_NAME);
    QVERIFY(memory.isNew(ps));
    memory.remember(ps);
    memory.clear();
    QVERIFY(!memory.knows(MCU_PS_NAME));
    QVERIFY(!memory.last(MCU_PS_NAME));
}

QTEST_GUILESS_MAIN(TestRecordMemory)
#include "tst_recordmemory.moc"
