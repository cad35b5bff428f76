#include "RadioSetting.h"
#include "ui_RadioSettingForm.h"

#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "MOnOffButton.h"
#include "SetupStrIdConst.h"
#include "UIManager.h"

#include <QEvent>
#include <QLabel>

RadioSetting::RadioSetting(QWidget* parent) : QWidget(parent), ui(new Ui_RadioSettingForm)
{
    setGeometry(hvappframework::UIManager::getSystemViewRect());
    ui->setupUi(this);

    m_pAFBtn = findChild<MOnOffButton*>(QStringLiteral("AFBtn"));
    m_pTABtn = findChild<MOnOffButton*>(QStringLiteral("TABtn"));
    m_pRegBtn = findChild<MOnOffButton*>(QStringLiteral("RegBtn"));
    m_pScanBtn = findChild<MOnOffButton*>(QStringLiteral("ScanBtn"));
    m_pLocBtn = findChild<MOnOffButton*>(QStringLiteral("LocOnOff"));
    m_pAsLeftBtn = findChild<HvIconButton*>(QStringLiteral("as_left_btn"));
    m_pAsRightBtn = findChild<HvIconButton*>(QStringLiteral("as_right_btn"));
    m_pLocDxLeftBtn = findChild<HvIconButton*>(QStringLiteral("loc_dx_left_btn"));
    m_pLocDxRightBtn = findChild<HvIconButton*>(QStringLiteral("loc_dx_right_btn"));
    m_pLocDxDispLabel = findChild<QLabel*>(QStringLiteral("loc_dx_disp_label"));

    initConRadioSetting();
}

RadioSetting::~RadioSetting()
{
    delete ui;
    ui = nullptr;
}

void RadioSetting::initConRadioSetting()
{
    const struct {
        MOnOffButton* button;
        const char* signal;
    } switches[] = {
        {m_pAFBtn, SIGNAL(sigAFStatusChange(QString, bool))},
        {m_pTABtn, SIGNAL(sigTAStatusChange(QString, bool))},
        {m_pRegBtn, SIGNAL(sigRegStatusChange(QString, bool))},
        {m_pScanBtn, SIGNAL(sigScanStatusChange(QString, bool))},
        {m_pLocBtn, SIGNAL(sigLocStatusChange(QString, bool))},
    };
    for (const auto& s : switches)
        if (s.button)
            connect(s.button, SIGNAL(onoffStatusChanged(QString, bool)), this, s.signal);

    connect(ui->setup_close, SIGNAL(btnClicked(QString)), this, SIGNAL(sigReqExitRadioSetting(QString)));

    m_pPTYBtn = findChild<HvIconButton*>(QStringLiteral("PTYBtn"));
    if (m_pPTYBtn)
        connect(m_pPTYBtn, SIGNAL(btnClicked(QString)), this, SIGNAL(sigPTYBtnClicked(QString)));
    m_pPTYSeekBtn = findChild<HvIconButton*>(QStringLiteral("PTYSeekBtn"));
    if (m_pPTYSeekBtn)
        connect(m_pPTYSeekBtn, SIGNAL(btnClicked(QString)), this, SIGNAL(sigPTYSeekBtnClicked(QString)));
    for (HvIconButton* b : {m_pAsLeftBtn, m_pAsRightBtn})
        if (b)
            connect(b, SIGNAL(btnClicked(QString)), this, SIGNAL(sigAsBtnClicked(QString)));
    for (HvIconButton* b : {m_pLocDxLeftBtn, m_pLocDxRightBtn})
        if (b)
            connect(b, SIGNAL(btnClicked(QString)), this, SLOT(LocStatusChangeSlot(QString)));
}

void RadioSetting::initRDSsetting()
{
    const struct {
        MOnOffButton* button;
        const QString& key;
    } stored[] = {{m_pTABtn, SetupStrIdConst::setupTA}, {m_pAFBtn, SetupStrIdConst::setupAF}};
    for (const auto& s : stored) {
        if (!s.button)
            continue;
        const QVariant fallback(DataDefault::getDefault(s.key).toBool());
        s.button->setOnoffStatus(DataSaveControl::readSettingData(s.key, fallback, QString()).toBool());
    }
}

void RadioSetting::AFStatusSetting(bool on)
{
    if (m_pAFBtn)
        m_pAFBtn->setOnoffStatus(on);
}

void RadioSetting::TAStatusSetting(bool on)
{
    if (m_pTABtn)
        m_pTABtn->setOnoffStatus(on);
}

void RadioSetting::REGStatusSetting(bool on)
{
    if (m_pRegBtn)
        m_pRegBtn->setOnoffStatus(on);
}

void RadioSetting::ScanStatusSetting(bool on)
{
    if (m_pScanBtn)
        m_pScanBtn->setOnoffStatus(on);
}

void RadioSetting::LocStatusSetting(bool loc)
{
    if (m_pLocBtn)
        m_pLocBtn->setOnoffStatus(loc);
    if (m_pLocDxDispLabel)
        m_pLocDxDispLabel->setText(loc ? QStringLiteral("LOC") : QStringLiteral("DX"));
}

void RadioSetting::LocStatusChangeSlot(QString id)
{
    if (!m_pLocDxDispLabel)
        return;
    if (m_pLocDxDispLabel->text() == QLatin1String("DX")) {
        m_pLocDxDispLabel->setText(QStringLiteral("LOC"));
        emit sigLocStatusChange(id, true);
    } else {
        m_pLocDxDispLabel->setText(QStringLiteral("DX"));
        emit sigLocStatusChange(id, false);
    }
}

void RadioSetting::AFStatusChangeSlot(QString) {}
void RadioSetting::TAStatusChangeSlot(QString) {}
void RadioSetting::RegStatusChangeSlot(QString) {}
void RadioSetting::ScanStatusChangeSlot(QString) {}
void RadioSetting::AntPowerStatusChangeSlot(QString) {}
void RadioSetting::SelectedPTYTitleChangeSlot(int) {}
void RadioSetting::bottonClickedSlot(QString) {}

// Nothing in the radio screen calls this; a host that does can grey the
// switches out while the tuner cannot take requests.
void RadioSetting::updateButtonStates(bool enable)
{
    for (MOnOffButton* b : {m_pAFBtn, m_pTABtn, m_pRegBtn, m_pScanBtn, m_pLocBtn})
        if (b)
            b->setBtnDisable(!enable);
}

void RadioSetting::hideLabelWait() {}
void RadioSetting::showLabelWait() {}
void RadioSetting::starLabelWait() {}
void RadioSetting::stopLableWait() {}

void RadioSetting::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        return;
    }
    QWidget::changeEvent(e);
}
