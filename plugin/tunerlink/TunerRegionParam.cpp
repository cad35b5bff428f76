#include "TunerRegionParam.h"

#include <cstdio>

const uint32_t TunerRegionParam[TUNER_REGION_COUNT][6] = {
    {8790, 10790, 20, 530, 1710, 10},  // 0
    {8750, 10790, 20, 530, 1710, 10},  // 1
    {8750, 10800, 5, 531, 1602, 9},    // 2
    {8750, 10800, 5, 531, 1602, 9},    // 3
    {7600, 10800, 10, 522, 1629, 9},   // 4
    {7600, 9000, 10, 522, 1629, 9},    // 5
    {8750, 10800, 10, 531, 1629, 9},   // 6
    {8810, 10790, 20, 531, 1611, 9},   // 7
    {8790, 10790, 20, 530, 1710, 10},  // 8
    {6500, 7400, 3, 522, 1629, 9},     // 9
    {8750, 10800, 10, 531, 1602, 9},   // 10
    {8750, 10790, 20, 530, 1710, 10},  // 11
    {8750, 10800, 5, 531, 1629, 9},    // 12
    {8750, 10800, 5, 522, 1611, 9},    // 13
    {8750, 10800, 10, 522, 1620, 9},   // 14
    {7600, 10800, 10, 530, 1710, 10},  // 15
    {8750, 10800, 10, 530, 1710, 10},  // 16
    {8750, 10800, 10, 522, 1629, 9},   // 17
    {8750, 10800, 5, 522, 1620, 9},    // 18
    {8750, 10800, 10, 520, 1620, 10},  // 19
    {8750, 10800, 5, 522, 1629, 9},    // 20
    {7610, 10800, 10, 530, 1710, 10},  // 21
    {8750, 10800, 5, 531, 1629, 9},    // 22
    {8750, 10800, 10, 531, 1602, 9},   // 23
};

bool isValidTunerRegion(int region)
{
    return region >= 0 && region < TUNER_REGION_COUNT;
}

const uint32_t* tunerRegionRow(int region)
{
    if (!isValidTunerRegion(region)) {
        fprintf(stderr, "Tuner region %d out of range, using region %d\n", region, TUNER_DEFAULT_REGION);
        return TunerRegionParam[TUNER_DEFAULT_REGION];
    }
    return TunerRegionParam[region];
}

TunerRegion tunerRegion(int region)
{
    const uint32_t* r = tunerRegionRow(region);
    return TunerRegion{r[FM_MIN], r[FM_MAX], r[FM_STEP], r[AM_MIN], r[AM_MAX], r[AM_STEP]};
}
