#ifndef BASEBAR_H
#define BASEBAR_H

#include <QRect>
#include <QString>
#include <QWidget>

class HvIconButton;
class QLabel;

// The system bar along the top of the screen: a title and the system
// buttons "home", "carplay" and "AndroidAuto". A tap emits
// btnClickedSig(id) with the button's ID. "Home" follows the display
// language; the two phone-projection names are brands.
class BaseBar : public QWidget
{
    Q_OBJECT
public:
    // buttons: bit mask of the buttons to show (bit 0 home, 1 carplay,
    // 2 AndroidAuto); 0xFFFF shows all.
    BaseBar(QRect rect, QWidget* parent = nullptr, int buttons = 0xFFFF);
    ~BaseBar() override;

    // type: 0 plain title.
    void setCurrentTitle(QString title, int type);
    QString currentTitle() const;

signals:
    void btnClickedSig(QString id);

protected:
    void paintEvent(QPaintEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void retranslateUi();

    QLabel* m_title;
    QList<HvIconButton*> m_buttons;
    // The untranslated text of each button, in the same order.
    QList<const char*> m_buttonTexts;
};

#endif
