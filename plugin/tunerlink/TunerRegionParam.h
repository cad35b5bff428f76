#ifndef TUNERREGIONPARAM_H
#define TUNERREGIONPARAM_H

#include <cstdint>

// Band limits and steps per country region: FM in 10 kHz units, AM in kHz.
// Row index is the region number the host reports.
enum TunerRegionColumn { FM_MIN = 0, FM_MAX, FM_STEP, AM_MIN, AM_MAX, AM_STEP };

constexpr int TUNER_REGION_COUNT = 24;
// The region used until the host reports one, and the row that stands in
// for a region number outside the table.
constexpr int TUNER_DEFAULT_REGION = 12;

extern const uint32_t TunerRegionParam[TUNER_REGION_COUNT][6];

struct TunerRegion {
    uint32_t fmMin, fmMax, fmStep;
    uint32_t amMin, amMax, amStep;
};

bool isValidTunerRegion(int region);

// The one lookup every user goes through: a region outside 0-23 is logged
// and answered with the row of region 12.
const uint32_t* tunerRegionRow(int region);
TunerRegion tunerRegion(int region);

#endif
