#ifndef RADIOSETTING_H
#define RADIOSETTING_H

#include <QString>
#include <QWidget>

class HvIconButton;
class MOnOffButton;
class QLabel;
class Ui_RadioSettingForm;

// The radio's settings panel: AF, TA, REG, LOC and scan-type switches and
// a back button. It keeps no settings logic: each switch change is relayed
// as a signal of the page, and the display sets the switches to what the
// tuner reports.
class RadioSetting : public QWidget
{
    Q_OBJECT
public:
    explicit RadioSetting(QWidget* parent = nullptr);
    ~RadioSetting() override;

    void AFStatusSetting(bool on);
    void TAStatusSetting(bool on);
    void REGStatusSetting(bool on);
    void ScanStatusSetting(bool on);
    void LocStatusSetting(bool loc);

    void initConRadioSetting();
    void initRDSsetting();

    void hideLabelWait();
    void showLabelWait();
    void starLabelWait();
    void stopLableWait();

signals:
    void sigReqExitRadioSetting(QString id);
    void sigAFStatusChange(QString id, bool status);
    void sigTAStatusChange(QString id, bool status);
    void sigRegStatusChange(QString id, bool status);
    void sigScanStatusChange(QString id, bool status);
    void sigLocStatusChange(QString id, bool status);
    void sigPTYBtnClicked(QString id);
    void sigPTYSeekBtnClicked(QString id);
    void sigAsBtnClicked(QString id);
    void sigAntPowerStatusChange(QString id, bool status);

public slots:
    void AFStatusChangeSlot(QString id);
    void TAStatusChangeSlot(QString id);
    void RegStatusChangeSlot(QString id);
    void ScanStatusChangeSlot(QString id);
    void LocStatusChangeSlot(QString id);
    void AntPowerStatusChangeSlot(QString id);
    void SelectedPTYTitleChangeSlot(int index);
    void bottonClickedSlot(QString id);
    void updateButtonStates(bool enable);

protected:
    void changeEvent(QEvent* e) override;

private:
    MOnOffButton* m_pAFBtn = nullptr;
    MOnOffButton* m_pTABtn = nullptr;
    MOnOffButton* m_pRegBtn = nullptr;
    MOnOffButton* m_pScanBtn = nullptr;
    MOnOffButton* m_pLocBtn = nullptr;
    HvIconButton* m_pPTYBtn = nullptr;
    HvIconButton* m_pPTYSeekBtn = nullptr;
    HvIconButton* m_pAsLeftBtn = nullptr;
    HvIconButton* m_pAsRightBtn = nullptr;
    HvIconButton* m_pLocDxLeftBtn = nullptr;
    HvIconButton* m_pLocDxRightBtn = nullptr;
    QLabel* m_pLocDxDispLabel = nullptr;
    Ui_RadioSettingForm* ui;
};

#endif
