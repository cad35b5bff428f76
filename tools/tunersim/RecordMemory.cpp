#include "RecordMemory.h"

#include <cstddef>
#include <cstring>

namespace {

struct Span {
    size_t offset;
    size_t size;
};

// The bytes each kind carries. Kind 0 also brings the station name along,
// but the screen reads it only with a new frequency, so a name change
// alone is not a new tuning state.
Span spanOf(uint32_t kind)
{
    switch (kind) {
    case MCU_TUNE_INFO: return {offsetof(tag_RadioCmdFromMCU, freq), 12};
    case MCU_PRESET_FREQ: return {offsetof(tag_RadioCmdFromMCU, presetFreq), 24};
    case MCU_PTY: return {offsetof(tag_RadioCmdFromMCU, pty), 2};
    case MCU_PS_NAME: return {offsetof(tag_RadioCmdFromMCU, psName), 8};
    case MCU_RADIO_TEXT: return {offsetof(tag_RadioCmdFromMCU, radioText), 65};
    case MCU_PRESET_PS: return {offsetof(tag_RadioCmdFromMCU, presetPsName), 96};
    case MCU_RDS_FLAGS: return {offsetof(tag_RadioCmdFromMCU, rdsWord), 2};
    case MCU_STATION_PIC: return {offsetof(tag_RadioCmdFromMCU, stationPic), 4};
    case MCU_FAVOURITE: return {offsetof(tag_RadioCmdFromMCU, favourite), 12};
    case MCU_SIGNAL: return {offsetof(tag_RadioCmdFromMCU, signal), 1};
    case MCU_AUX_WORDS: return {offsetof(tag_RadioCmdFromMCU, auxWords), 60};
    case MCU_AUX_BLOCKS: return {offsetof(tag_RadioCmdFromMCU, auxBlocks), 288};
    default: return {0, sizeof(tag_RadioCmdFromMCU)};
    }
}

} // namespace

bool RecordMemory::sameContent(const tag_RadioCmdFromMCU& a, const tag_RadioCmdFromMCU& b)
{
    if (a.cmd != b.cmd)
        return false;
    const Span span = spanOf(a.cmd);
    const auto* pa = reinterpret_cast<const unsigned char*>(&a);
    const auto* pb = reinterpret_cast<const unsigned char*>(&b);
    return std::memcmp(pa + span.offset, pb + span.offset, span.size) == 0;
}

bool RecordMemory::isNew(const tag_RadioCmdFromMCU& record) const
{
    auto it = m_last.constFind(record.cmd);
    return it == m_last.constEnd() || !sameContent(*it, record);
}

void RecordMemory::remember(const tag_RadioCmdFromMCU& record)
{
    m_last.insert(record.cmd, record);
}

const tag_RadioCmdFromMCU* RecordMemory::last(uint32_t kind) const
{
    auto it = m_last.constFind(kind);
    return it == m_last.constEnd() ? nullptr : &*it;
}
