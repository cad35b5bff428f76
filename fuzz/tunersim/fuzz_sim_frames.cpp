// Arbitrary bytes from a screen: the frame reassembler cuts them into
// frames, the engine takes each one; its state must stay consistent.

#include "FrameAssembler.h"
#include "RadioCmdToMCU.h"
#include "StationList.h"
#include "TunerEngine.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }
}

void checkState(const TunerEngine& engine)
{
    const BandPlan& plan = engine.stations().plan();
    const tag_RadioCmdFromMCU info = engine.record(MCU_TUNE_INFO);
    check(info.band <= 4, "band 0-4");
    check(plan.isChannel(info.freq), "frequency on the grid");
    check(isFmFrequency(info.freq) == !isAmBand(info.band), "frequency in the band's wave range");
    check(info.preset <= 6, "preset 0-6");
    if (info.preset)
        check(engine.presetFrequency(info.band, info.preset) == info.freq, "preset key matches frequency");
    const tag_RadioCmdFromMCU presets = engine.record(MCU_PRESET_FREQ);
    for (int k = 0; k < 6; ++k)
        check(plan.isChannel(presets.presetFreq[k]), "presets on the grid");
    const tag_RadioCmdFromMCU text = engine.record(MCU_RADIO_TEXT);
    check(std::memchr(text.radioText, 0, sizeof text.radioText) != nullptr, "radio text terminated");
    check(engine.record(MCU_PTY).pty <= 31 && engine.record(MCU_PTY).selectedPty <= 31, "PTY 0-31");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_sim_frames";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);

    // The first byte picks region and seed, the rest is the byte stream,
    // fed in pieces whose sizes the stream itself gives.
    const int region = size ? data[0] % 24 : 12;
    TunerEngine engine(StationList::builtIn(region, size ? data[0] : 0), 1);
    engine.setTimeScale(100000);
    engine.setRdsSpeed(100);
    FrameAssembler assembler;
    size_t pos = size ? 1 : 0;
    while (pos < size) {
        const size_t piece = std::min<size_t>(size - pos, 1 + data[pos] % 13);
        for (const RadioCmdToMCU& frame : assembler.feed(reinterpret_cast<const char*>(data + pos), int(piece))) {
            engine.handleCommand(frame.code, frame.param);
            checkState(engine);
            // Most raw codes are unknown: also play the frame with its
            // code folded onto the used range, so every command is reached.
            const uint32_t folded = frame.code % 24 == 23 ? 255 : frame.code % 24;
            engine.handleCommand(folded, frame.param % 12000);
            checkState(engine);
        }
        pos += piece;
    }
    // Let seeks, scans and searches move on a little.
    QEventLoop loop;
    QTimer::singleShot(2, &loop, &QEventLoop::quit);
    loop.exec();
    checkState(engine);
    return 0;
}
