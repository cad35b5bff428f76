#include "BandPlan.h"

#include "RadioCmdFromMCU.h"

BandPlan::BandPlan(int region)
    : m_region(isValidTunerRegion(region) ? region : TUNER_DEFAULT_REGION)
    , m_row(tunerRegion(m_region))
{
}

bool BandPlan::contains(uint32_t freq) const
{
    const bool fm = isFmFrequency(freq);
    return freq >= min(fm) && freq <= max(fm);
}

bool BandPlan::isChannel(uint32_t freq) const
{
    const bool fm = isFmFrequency(freq);
    return contains(freq) && (freq - min(fm)) % step(fm) == 0;
}

uint32_t BandPlan::snap(uint32_t freq) const
{
    if (!contains(freq))
        return 0;
    const bool fm = isFmFrequency(freq);
    const uint32_t offset = freq - min(fm);
    uint32_t index = offset / step(fm);
    if (offset % step(fm) * 2 > step(fm))
        ++index;
    const uint32_t snapped = min(fm) + index * step(fm);
    return snapped > max(fm) ? snapped - step(fm) : snapped;
}

uint32_t BandPlan::next(uint32_t freq, int direction) const
{
    const bool fm = isFmFrequency(freq);
    if (direction > 0)
        return freq + step(fm) > max(fm) ? min(fm) : freq + step(fm);
    return freq < min(fm) + step(fm) ? max(fm) : freq - step(fm);
}

uint32_t BandPlan::advance(uint32_t freq, int channels) const
{
    const bool fm = isFmFrequency(freq);
    const int count = channelCount(fm);
    const int index = int((freq - min(fm)) / step(fm));
    const int target = ((index + channels) % count + count) % count;
    return min(fm) + uint32_t(target) * step(fm);
}

int BandPlan::channelCount(bool fm) const
{
    return int((max(fm) - min(fm)) / step(fm)) + 1;
}

int BandPlan::distance(uint32_t from, uint32_t to, int direction) const
{
    const bool fm = isFmFrequency(from);
    const int count = channelCount(fm);
    const int a = int((from - min(fm)) / step(fm));
    const int b = int((to - min(fm)) / step(fm));
    const int forward = ((b - a) % count + count) % count;
    return direction > 0 ? forward : (count - forward) % count;
}
