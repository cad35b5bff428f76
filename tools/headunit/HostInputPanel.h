#ifndef HOSTINPUTPANEL_H
#define HOSTINPUTPANEL_H

#include <QWidget>

class HostInputs;
class QCheckBox;
class QDoubleSpinBox;
class QSpinBox;

// Buttons for the host inputs, with the keyboard shortcuts listed below
// them. The check boxes follow the host state when a shortcut changes it.
class HostInputPanel : public QWidget
{
    Q_OBJECT
public:
    HostInputPanel(HostInputs* inputs, QWidget* parent = nullptr);

private:
    void syncFromHost();

    HostInputs* m_inputs;
    QSpinBox* m_region;
    QDoubleSpinBox* m_temperature;
    QCheckBox* m_reversing;
    QCheckBox* m_mute;
};

#endif
