// Throughput of the simulator's hot paths: RDS decoding, record encoding
// with its trace line, and command handling. Prints rates; asserts nothing.
//
//   bench_tunersim [LOG.spy|LOG.rds]

#include "ProtocolTrace.h"
#include "RadioCmdToMCU.h"
#include "RdsDecoder.h"
#include "RdsLog.h"
#include "StationList.h"
#include "TunerEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {

// A station sending PS and a 64-character radio text, A/B flipping every
// 200 groups.
QVector<RdsGroup> syntheticGroups(int count)
{
    const QByteArray ps("BENCH FM");
    const QByteArray rt = QByteArray("Benchmark radio text with umlauts \x91\x97\x99 and more words. ").leftJustified(64, '.');
    QVector<RdsGroup> groups;
    for (int i = 0; i < count; ++i) {
        RdsGroup g;
        g.valid = 0x0F;
        g.block[0] = 0xBEEF;
        const int ab = (i / 200) & 1;
        if (i % 2 == 0) {
            const int s = (i / 2) % 4;
            g.block[1] = uint16_t(0x0400 | s);
            g.block[3] = uint16_t(uint8_t(ps.at(2 * s)) << 8 | uint8_t(ps.at(2 * s + 1)));
        } else {
            const int s = (i / 2) % 16;
            g.block[1] = uint16_t(0x2400 | ab << 4 | s);
            g.block[2] = uint16_t(uint8_t(rt.at(4 * s)) << 8 | uint8_t(rt.at(4 * s + 1)));
            g.block[3] = uint16_t(uint8_t(rt.at(4 * s + 2)) << 8 | uint8_t(rt.at(4 * s + 3)));
        }
        groups.append(g);
    }
    return groups;
}

template <typename F>
void measure(const char* what, const char* unit, long count, F&& body)
{
    QElapsedTimer timer;
    timer.start();
    body();
    const double s = timer.nsecsElapsed() / 1e9;
    std::printf("%-34s %10ld %-8s in %8.3f s  = %12.0f %s/s\n", what, count, unit, s, count / s, unit);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);

    QVector<RdsGroup> groups;
    if (argc > 1) {
        RdsLog log;
        QString error;
        if (!log.load(QString::fromLocal8Bit(argv[1]), &error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        // Repeat the log to make the run long enough to time.
        while (groups.size() < 500000)
            groups += log.groups();
    } else {
        groups = syntheticGroups(500000);
    }
    long changes = 0;
    measure("RDS decoding", "groups", groups.size(), [&] {
        RdsDecoder decoder;
        QObject::connect(&decoder, &RdsDecoder::radioTextChanged, [&changes] { ++changes; });
        QObject::connect(&decoder, &RdsDecoder::psChanged, [&changes] { ++changes; });
        for (const RdsGroup& g : groups)
            decoder.feed(g);
    });
    std::printf("  (%ld PS/RT changes; real time is 11.4 groups/s)\n", changes);

    TunerEngine engine(StationList::builtIn(12, 1), 1);
    const long records = 200000;
    quint64 checksum = 0;
    measure("record encoding", "records", records, [&] {
        const QVector<uint32_t> kinds = TunerEngine::stateKinds();
        for (long i = 0; i < records; ++i) {
            const tag_RadioCmdFromMCU r = engine.record(kinds.at(int(i % kinds.size())));
            checksum += r.freq + r.signal + r.presetFreq[0];
        }
    });
    measure("record encoding + trace line", "records", records, [&] {
        const QVector<uint32_t> kinds = TunerEngine::stateKinds();
        for (long i = 0; i < records; ++i)
            checksum += uint(ProtocolTrace::recordLine(engine.record(kinds.at(int(i % kinds.size())))).size());
    });
    const long commands = 200000;
    measure("step commands", "commands", commands, [&] {
        for (long i = 0; i < commands; ++i)
            engine.handleCommand(i % 2 ? RC_STEP_UP : RC_STEP_DOWN, 0);
    });
    std::printf("  (checksum %llu)\n", static_cast<unsigned long long>(checksum));
    return 0;
}
