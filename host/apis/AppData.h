#ifndef APPDATA_H
#define APPDATA_H

#include <QObject>
#include <QString>

// The head unit's application data shared between activities. Created by
// the host application; GetInstance() is null until then.
class AppData : public QObject
{
    Q_OBJECT
public:
    // Reading of getCurTemperature() when no sensor value is available.
    static constexpr float NoTemperature = -257.0f;

    static AppData* GetInstance();
    static AppData* createInstance();
    static void destroyInstance();

    void setTunerBand(int band);
    int tunerBand() const { return m_tunerBand; }
    void setTunerPreset(int preset);
    int tunerPreset() const { return m_tunerPreset; }
    // 1 playing, 2 paused.
    void setPlayState(int state);
    int playState() const { return m_playState; }
    void setWallPaperPath(const QString& path);
    QString wallPaperPath() const { return m_wallPaperPath; }
    void setCurTemperature(float celsius);
    float getCurTemperature() const { return m_temperature; }
    void setIsReversing(bool reversing);
    bool getIsReversing() const { return m_reversing; }
    void setLastMemSrc(int src);
    int getLastMemSrc() const { return m_lastMemSrc; }

signals:
    void tunerBandChanged(int band);
    void tunerPresetChanged(int preset);
    void playStateChanged(int state);
    void wallPaperPathChanged(const QString& path);
    void temperatureChanged(float celsius);
    void reversingChanged(bool reversing);

private:
    AppData() = default;
    int m_tunerBand = 0;
    int m_tunerPreset = 0;
    int m_playState = 0;
    QString m_wallPaperPath;
    float m_temperature = NoTemperature;
    bool m_reversing = false;
    int m_lastMemSrc = 0;
};

#endif
