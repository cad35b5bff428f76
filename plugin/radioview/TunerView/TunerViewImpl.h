#ifndef TUNERVIEWIMPL_H
#define TUNERVIEWIMPL_H

#include "BaseView.h"
#include "RadioCmdMetaType.h"
#include "RadioInfo.h"

#include <atomic>

class AuxinModule;
class BaseBar;
class ProtocolComm;
class RadioEmptyView;
class RadioKeypad;
class SetupEqView;
class TunerView;

// The radio screen's controller and root view. It owns the display, the
// system bar, the keypad and the equaliser page; it is the only object that
// talks to the tuner link: status records come in through RecvedTunerMsg
// (reader thread) and are handled on the GUI thread, user actions go out as
// tuner commands. It also routes the radio's audio through the host.
class TunerViewImpl : public BaseView
{
    Q_OBJECT
public:
    explicit TunerViewImpl(QWidget* parent = nullptr);
    ~TunerViewImpl() override;

    void initWidget();
    // Reader thread: hands the record to the GUI thread.
    void RecvedTunerMsg(tag_RadioCmdFromMCU msg);
    // The activity stops the screen.
    void onStop();

    // Read-outs for the host and for tests.
    TunerView* tunerView() const { return m_pTunerView; }
    BaseBar* baseBar() const { return m_pBaseBar; }
    RadioKeypad* keypad() const { return m_pKeypad; }
    SetupEqView* eqView() const { return m_pEqView; }
    const tag_RadioCmdFromMCU& lastMsg() const { return m_lastMsg; }
    int radioRegion() const { return m_radioRegion; }
    bool isRadioStopped() const { return m_bRadioStopped; }
    bool scanType() const { return m_bScanType; }
    bool isViewShown() const { return m_bViewShown; }
    bool isRequestTimerRunning() const { return m_requestTimerId != 0; }
    RadioInfo_t_ radioInfo() const { return m_radioInfo; }
    unsigned int radioFlag() const { return m_radioFlag; }

signals:
    void sglRecvedTunerMsg(RadioCmdFromMCU_T msg);
    void sigRadioInfoChanged(RadioInfo_t_ info);
    void sigRadioFlagChanged(unsigned int flag);
    void sigRadioBandChanged(unsigned char band);
    void sigRadioInfoOK();
    void sigResetStandbyTimer();
    void sigStopStandbyTimer();
    void sigFavorDispChanged(bool);
    void sigReqinitFavorList(bool);
    void sigBandInfoChanged(bool);
    void sigRadioRegionChanged(unsigned char band, int region);

public slots:
    void HandleTunerMsgSlot(const RadioCmdFromMCU_T& record);
    void controlBarPressed(QString id);
    void SeekUpPressed(QString id);
    void SeekDownPressed(QString id);
    void AutoSearch(QString id);
    void PSPressed(QString id);
    void ScanPressed(QString id);
    void StepUpPressed(QString id);
    void StepDownPressed(QString id);
    void NextStationPressed(QString id);
    void PrevStationPressed(QString id);
    void PresetButtonPressed(QString id);
    void StereoBtnClickedSlot(QString id);
    void PresetButtonLongPressed(QString id);
    void ListRadioviewPresetButtonPressed(unsigned char index, bool longPress);
    void ListKapadPresetButtonPressed(unsigned char index, bool longPress);
    void bandButtonPressed(QString id);
    void bandIncDecButtonPressed(QString id);
    void bandIncDecButtonPressed2(QString id);
    void dxLocButtonPressed(QString id);
    void favorButtonPressed(QString id);
    void KeypadButtonPressed(QString id);
    void RadioEqBtnClickedSlot();
    void RadioexitEqSlot();
    void FreqFromKeypad(unsigned short freq);
    void FreqFromFavorList(unsigned int freq);
    void FreqFromRadioSlider(unsigned short freq);
    void OnPowerBtnClicked(QString id);
    void ChangeList(unsigned char list);
    void showRadioViewSlot();
    void switchSource(QString source);
    void RadioOnStartSlot();
    void exitRadioStandbySlot();
    void showRadioStandbySlot();
    void showFavorListSlot(QString id);
    void hideFavorListSlot(QString id);
    void showSmallSwitchView(QString id);
    void showBigSwitchView();
    void updateFavorBtn(unsigned int freq);
    void updateFavorBtnStatus(unsigned int freq);
    void AFStatusChangedSlot(QString id, bool on);
    void TAStatusChangedSlot(QString id, bool on);
    void AntPowerStatusChangedSlot(QString id, bool on);
    void REGStatusChangedSlot(QString id, bool on);
    void ScanTypeChangedSlot(QString id, bool on);
    void ScanTypeSwitchSlot(QString id);
    void LocStatusChangedSlot(QString id, bool on);
    void TABtnClickedSlot(QString id);
    void DABBtnClickedSlot(QString id);
    void RadioRegionChangedSlot(int region);
    void PTYSelectedChangedSlot(int pty);
    void PTYSeekClickedSlot(QString id);
    void RadioPlaybtnStateSlot(int state);
    void speechCommandSlot_fromBase(int command);
    void exitKeypadSlot();
    void changeBandSlot(int band);
    void FMAMChangedSlot(int which);
    void TunerAudioStreamOnOffSlot(int state);

protected:
    void timerEvent(QTimerEvent* e) override;
    void hideEvent(QHideEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void handleRecord(const RadioCmdFromMCU_T& record);
    void handleWaitingRecords();
    // msg is the slot's own copy of the record.
    void handleTuneInfo(tag_RadioCmdFromMCU& msg);
    void handleRdsFlags(const tag_RadioCmdFromMCU& msg);
    void sendBand(unsigned char band);
    int presetNumber(const QString& id, bool* ok) const;
    void saveScanType();

    BaseBar* m_pBaseBar = nullptr;
    TunerView* m_pTunerView = nullptr;
    RadioKeypad* m_pKeypad = nullptr;
    SetupEqView* m_pEqView = nullptr;
    RadioEmptyView* m_pEmptyView = nullptr;
    ProtocolComm* m_pProtocolComm = nullptr;
    tag_RadioCmdFromMCU m_lastMsg;
    unsigned char m_lastFmBand = 0;
    unsigned char m_lastAmBand = 3;
    bool m_bInfoReceived = false;
    bool m_bPresetReceived = false;
    bool m_bViewShown = false;
    bool m_bRadioStopped = false;
    bool m_bScanType = false;
    AuxinModule* auxinModule = nullptr;
    RadioInfo_t_ m_radioInfo;
    unsigned int m_radioFlag = 0;
    int m_radioRegion = 12;
    int m_requestTimerId = 0;
    quint64 m_recordsHandled = 0;
    bool m_bDraining = false;
    // Set once sglRecvedTunerMsg reaches HandleTunerMsgSlot; read by the
    // reader thread.
    std::atomic<bool> m_bHandOverWired{false};
};

#endif
