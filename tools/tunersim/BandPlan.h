#ifndef BANDPLAN_H
#define BANDPLAN_H

#include "TunerRegionParam.h"

#include <cstdint>

// The channel grid of one region: FM and AM limits and steps from the
// shared region table, in record units (FM 10 kHz, AM kHz).
class BandPlan
{
public:
    explicit BandPlan(int region = TUNER_DEFAULT_REGION);

    int region() const { return m_region; }
    uint32_t min(bool fm) const { return fm ? m_row.fmMin : m_row.amMin; }
    uint32_t max(bool fm) const { return fm ? m_row.fmMax : m_row.amMax; }
    uint32_t step(bool fm) const { return fm ? m_row.fmStep : m_row.amStep; }

    // Within the limits of the wave range the value belongs to (above 1999 FM).
    bool contains(uint32_t freq) const;
    bool isChannel(uint32_t freq) const;
    // The channel nearest to an in-range value (ties go down); 0 when out of range.
    uint32_t snap(uint32_t freq) const;
    // The neighbouring channel, wrapping from one band edge to the other.
    uint32_t next(uint32_t freq, int direction) const;
    // The channel `channels` steps away, going round the band.
    uint32_t advance(uint32_t freq, int channels) const;
    int channelCount(bool fm) const;
    // Channels from `from` to `to` moving in `direction`, wrapping; 0 for the same channel.
    int distance(uint32_t from, uint32_t to, int direction) const;

private:
    int m_region;
    TunerRegion m_row;
};

#endif
