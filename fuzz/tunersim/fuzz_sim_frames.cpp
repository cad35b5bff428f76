// Arbitrary bytes from a screen: cut into frames in pieces the bytes
// themselves size, each frame played raw and with its code folded onto the
// used range; the tuner's state must stay consistent throughout.
#include "FrameAssembler.h"
#include "FuzzCheck.h"
#include "RadioCmdToMCU.h"
#include "TunerEngine.h"

#include <QCoreApplication>

#include <cstring>

namespace {

void checkState(const TunerEngine& engine)
{
    const BandPlan& plan = engine.stations().plan();
    const tag_RadioCmdFromMCU info = engine.record(MCU_TUNE_INFO);
    check(info.band <= 4 && info.preset <= 6, "band 0-4, preset 0-6");
    check(plan.isChannel(info.freq) && isFmFrequency(info.freq) == !isAmBand(info.band), "frequency on the band's grid");
    check(!info.preset || engine.presetFrequency(info.band, info.preset) == info.freq, "preset key matches frequency");
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
    // The first byte picks the region and the line-up.
    TunerEngine engine(StationList::builtIn(size ? data[0] % 24 : 12, size ? data[0] : 0), 1);
    engine.setTimeScale(100000);
    engine.setRdsSpeed(100);
    FrameAssembler assembler;
    for (size_t pos = 1, piece; pos < size; pos += piece) {
        piece = std::min<size_t>(size - pos, 1 + data[pos] % 13);
        for (const RadioCmdToMCU& frame : assembler.feed(reinterpret_cast<const char*>(data + pos), int(piece))) {
            engine.handleCommand(frame.code, frame.param);
            checkState(engine);
            engine.handleCommand(frame.code % 24 == 23 ? 255 : frame.code % 24, frame.param % 12000);
            checkState(engine);
        }
    }
    // Seeks, scans and searches move on a step.
    QCoreApplication::processEvents();
    checkState(engine);
    return 0;
}
