#include "AppData.h"

static AppData* s_appData = nullptr;

AppData* AppData::GetInstance() { return s_appData; }

AppData* AppData::createInstance()
{
    if (!s_appData)
        s_appData = new AppData;
    return s_appData;
}

void AppData::destroyInstance()
{
    delete s_appData;
    s_appData = nullptr;
}

void AppData::setTunerBand(int band)
{
    m_tunerBand = band;
    emit tunerBandChanged(band);
}

void AppData::setTunerPreset(int preset)
{
    m_tunerPreset = preset;
    emit tunerPresetChanged(preset);
}

void AppData::setPlayState(int state)
{
    m_playState = state;
    emit playStateChanged(state);
}

void AppData::setWallPaperPath(const QString& path)
{
    m_wallPaperPath = path;
    emit wallPaperPathChanged(path);
}

void AppData::setCurTemperature(float celsius)
{
    m_temperature = celsius;
    emit temperatureChanged(celsius);
}

void AppData::setIsReversing(bool reversing)
{
    m_reversing = reversing;
    emit reversingChanged(reversing);
}

void AppData::setLastMemSrc(int src)
{
    m_lastMemSrc = src;
}
