#ifndef HOSTINPUTPANEL_H
#define HOSTINPUTPANEL_H

#include <QWidget>

#include <QList>
#include <QPair>

class HostInputs;
class QAbstractButton;
class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSpinBox;

// Buttons for the host inputs, with the keyboard shortcuts listed below
// them. The check boxes follow the host state when a shortcut changes it;
// the texts follow the display language.
class HostInputPanel : public QWidget
{
    Q_OBJECT
public:
    HostInputPanel(HostInputs* inputs, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    QPushButton* addButton(const char* objectName, const char* text);
    void syncFromHost();
    void retranslateUi();

    HostInputs* m_inputs;
    QSpinBox* m_region;
    QDoubleSpinBox* m_temperature;
    QCheckBox* m_reversing;
    QCheckBox* m_mute;
    // Buttons and check boxes with their untranslated text.
    QList<QPair<QAbstractButton*, const char*>> m_texts;
    QLabel* m_title;
    QLabel* m_legend[2];
    QPushButton* m_language;
};

#endif
