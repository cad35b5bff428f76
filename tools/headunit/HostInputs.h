#ifndef HOSTINPUTS_H
#define HOSTINPUTS_H

#include <QObject>
#include <QString>

class LanguageSwitch;

// The host-side inputs a person can trigger: region, FM/AM and next/prev
// keys, the audio stream request, the power key, reversing, temperature,
// mute, the display language and the activity switch. The home screen's panel, the keyboard
// shortcuts and the control channel all go through here. Each input is
// announced with applied() in words.
class HostInputs : public QObject
{
    Q_OBJECT
public:
    static constexpr int RegionCount = 24;

    explicit HostInputs(QObject* parent = nullptr);

    // The display language the language inputs change; none by default.
    void setLanguageSwitch(LanguageSwitch* languages) { m_languages = languages; }
    LanguageSwitch* languageSwitch() const { return m_languages; }

public slots:
    // Records the region in BaseControl, then emits its region signal.
    // A region outside 0-23 is refused (logged, false).
    bool setRegion(int region);
    // Next or previous region, wrapping within 0-23.
    void stepRegion(int delta);
    // BaseControl::FMAMChangedSig(1) and (2).
    void fmKey();
    void amKey();
    // BaseControl's info-page next / previous signals.
    void nextKey();
    void prevKey();
    // Asks the radio controller to switch its audio stream on or off
    // (its TunerAudioStreamOnOffSlot: 1 is off, 0 on). False when there is
    // no radio controller.
    bool requestStream(bool on);
    // Requests the opposite of the audio input's current stream state.
    bool toggleStream();
    // The radio's power key (OnPowerBtnClicked): stream off, then home.
    bool powerKey();
    void setReversing(bool reversing);
    void toggleReversing();
    void setTemperature(double celsius);
    // From no reading, starts at 20 degrees.
    void stepTemperature(double delta);
    void setMute(bool mute);
    void toggleMute();
    // ActivityManager::switchActivity(name, 0); false for an unknown name.
    bool switchTo(const QString& activity);
    // Switches the display language ("en", "de", "fr", "cs"); false for
    // an unknown one, a missing catalogue or no language switch.
    bool setLanguage(const QString& code);
    // The next language of the head unit's list, wrapping.
    bool nextLanguage();

signals:
    void applied(const QString& what);

private:
    LanguageSwitch* m_languages = nullptr;
};

#endif
