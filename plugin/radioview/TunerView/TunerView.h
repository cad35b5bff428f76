#ifndef TUNERVIEW_H
#define TUNERVIEW_H

#include <QList>
#include <QString>
#include <QWidget>

class HvIconButton;
class HvRollingText;
class QLabel;
class RadioSetting;
class Ui_RadioMain;

// Opaque: only named by an operation the radio screen leaves empty.
struct RDS_PS_LIST;

// The main radio screen as a display: frequency, band, scale, presets, RDS
// texts and indicators. It never talks to the tuner; the controller
// (TunerViewImpl) calls its operations and listens to its signals.
class TunerView : public QWidget
{
    Q_OBJECT
    friend class TunerViewImpl;

public:
    explicit TunerView(QWidget* parent = nullptr);
    ~TunerView() override;

    // Frequency, band and scale.
    void Tuner_UI_Freq(unsigned int freq);
    void Tuner_UI_CurBand(unsigned char band);
    void Tuner_UI_CurBand_Generally(unsigned char band);
    void checkFreqParam(unsigned char band);
    void Tuner_UI_DxLoc(unsigned char dxLoc, unsigned char band);
    void SetStDisp(unsigned char stereo);
    void Tuner_UI_ASPSState(unsigned char asState, unsigned char psState);
    void StartAsPsDisp(unsigned char isPS);
    void StopAsPsDisp();
    void Tuner_UI_ScanState(unsigned char scanState);

    // Presets.
    void Tuner_UI_PresetDisp(unsigned short* freqs, unsigned char* names, int);
    void Tuner_UI_CurPreset(unsigned char curPreset);
    void Tuner_UI_CurPreset(unsigned char curBand, unsigned char curPreset);
    void Tuner_UI_PresetListDisp(unsigned char band, unsigned short* freqs, unsigned char*);

    // RDS.
    void PSDisp(unsigned char* ps);
    void RTDisp(unsigned char* rt);
    void PTYDisp(unsigned int pty);
    void AFStatusDisp(bool afOn);
    void TATPStatusDisp(bool ta, bool taIndicator, bool tpIndicator);
    void ClearAFDisp();
    void ClearTADisp();
    void ClearTPDisp();
    void ClearPTYDisp();
    void ClearPSDisp();
    void ClearRTDisp();
    void ClearRDSDisp();

    // Settings page and other operations of the view.
    void InitBottomWidget();
    void SetRadioRegion(int region);
    void SetRadioSignalDisp(unsigned char level);
    void AFStatusSetting(bool on);
    void TAStatusSetting(bool on);
    void REGStatusSetting(bool on);
    void ScanTypeSetting(bool on);
    void Tuner_UI_FavorDisp(unsigned char* favourites);
    void Tuner_UI_PlayInfoDisp(unsigned int freq, unsigned char* ps);
    void Tuner_UI_PresetListPSNameDisp(unsigned char band, unsigned short* freqs, RDS_PS_LIST const* names);
    void Tuner_UI_PresetListviewDisp(unsigned char band, unsigned short* freqs, unsigned char* names, unsigned int);
    void Tuner_ChangeList(unsigned char list);
    void Tuner_UI_CurBand2(unsigned char band);
    void Tuner_UI_SwitchScaleCurBand(unsigned char band);
    void setPTYseekTip(unsigned char tip);
    void EnableBtn();
    void DisableBtn();
    void setScanType(bool seek);
    void PTYBtnStatusDisp(unsigned int pty);
    void hideRDSBtn();
    void showRDSBtn();
    void SetSelectedPTY(int pty);
    void SetRadioStationPic(unsigned int pic);

    // Read-outs of the view's own state.
    int radioRegion() const { return m_regionIndex; }
    unsigned char signalLevel() const { return m_signalLevel; }
    bool isStandbyTimerRunning() const { return m_standbyTimerId != 0; }
    bool isAsPsBlinking() const { return m_asPsTimerId != 0; }
    bool holdsHardMute() const { return m_bHardMute != 0; }
    bool holdsAsMute() const { return m_bAsMute != 0; }
    RadioSetting* settingPage() const { return m_pRadioSetting; }
    QList<HvIconButton*>& presetButtons() { return m_presetBtnList; }

signals:
    void sigRadioCurFreqChanged(float usfreq);
    void sigRadioFreqParamChanged(bool isFM, float freqMin, float freqMax, float freqStep);
    void sigFreqFromRadioSlider(unsigned short);
    void sigOnPowerBtnClicked(QString id);
    void sigReqShowStandby();
    void sigReqExitStandby();
    void sigAFStatusChange(QString id, bool status);
    void sigTAStatusChange(QString id, bool status);
    void sigRegStatusChange(QString id, bool status);
    void sigScanStatusChange(QString id, bool status);
    void sigLocStatusChange(QString id, bool status);
    void sigAntPowerStatusChange(QString id, bool status);
    void sigNextPresetList(QString);
    void sigPrevPresetList(QString);
    void sigSelPresetList(QString);
    void sigSeekDownClicked(QString);
    void sigSeekUpClicked(QString);
    void sigSeekDownLongPressed(QString);
    void sigSeekUpLongPressed(QString);
    void sigNextStation(QString id);
    void sigPrevStation(QString id);
    void sigSelectedPTYChanged(int);
    void sigPTYSeekClicked(QString);
    void sigAsBtnClicked(QString);
    void sigKeypadBtnClicked(QString);
    void sigReqExitKeypad();
    void changeBandSig(int band);
    void sigBandSwitch(QString id);
    void sigBandAM1();

public slots:
    void FreqFromRadioSlider(float freq);
    void OnPowerBtnClicked(QString id);
    void reqExitStandbySlot();
    void resetStandbyTimetSlot();
    void stopStandbyTimetSlot();
    void FavorDispSlot(bool flag);
    void SetupBtnClickedSlot(QString id);
    void ExitRadioSettingSlot(QString id);
    void InfoBtnClicked(QString id);
    void PresetListBtnClicked(QString id);
    void PresetListBtnLongClicked(QString id);
    void ScaleBtnClicked(QString id);
    void SelectedPTYChangeSlot(int index);
    void PTYBtnClicked(QString id);
    void reqHidePTYListSlot();
    void PTYSelectBtnClickedSlot(QString id);
    void hidePTYtableViewSlot();
    void TAbtnclickSlot(QString id);
    void AFbtnclickSlot(QString id);
    void btnClickedSlot(QString id);
    void updateTemperSlot();

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;
    void timerEvent(QTimerEvent* e) override;
    void customEvent(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void restartTimer(int& id, int ms);
    void stopTimer(int& id);
    void hideSettingPage();
    void releaseHardMute();
    void setIndicator(QLabel* label, const QColor& colour);
    void setBackground(const QPixmap& pixmap);

    Ui_RadioMain* m_pUi;
    HvIconButton* m_pSetupBtn = nullptr;
    RadioSetting* m_pRadioSetting = nullptr;
    QList<HvIconButton*> m_presetBtnList;
    int m_standbyTimerId = 0;
    QLabel* m_pTADisp = nullptr;
    QLabel* m_pTPDisp = nullptr;
    QLabel* m_pAFDisp = nullptr;
    HvRollingText* m_pPSDisp = nullptr;
    HvRollingText* m_pPTYDisp = nullptr;
    QString m_strRadioText;
    QLabel* m_pAsPsLabel = nullptr;
    QLabel* m_pStLabel = nullptr;
    HvRollingText* m_pRTDisp = nullptr;
    int m_regionIndex = 12;
    int m_asPsTimerId = 0;
    bool m_bPsBlink = false;
    unsigned char m_signalLevel = 0;
    int m_muteTimerId = 0;
    int m_bHardMute = 0;
    int m_bAsMute = 0;
    HvIconButton* m_pTemperBtn = nullptr;
    // Programme-type code on show (0: none): a language change names it
    // again in the new language.
    unsigned int m_ptyShown = 0;
};

#endif
