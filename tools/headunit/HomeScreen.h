#ifndef HOMESCREEN_H
#define HOMESCREEN_H

#include <QWidget>

class HostInputs;
class HostStatusPanel;
class HvIconButton;
class QLabel;

// The head unit's home screen: a tile that starts the radio, the host's
// view of the radio (HostStatusPanel) and the host inputs (HostInputPanel).
// Fills the system view. Follows the display language.
class HomeScreen : public QWidget
{
    Q_OBJECT
public:
    // Icon of the radio tile when the radio activity names none.
    static const char* const DefaultRadioIcon;

    HomeScreen(HostInputs* inputs, QWidget* parent = nullptr);

    HvIconButton* radioTile() const { return m_radioTile; }
    HostStatusPanel* statusPanel() const { return m_status; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslateUi();

    QLabel* m_title;
    HvIconButton* m_radioTile;
    HostStatusPanel* m_status;
};

#endif
