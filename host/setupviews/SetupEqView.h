#ifndef SETUPEQVIEW_H
#define SETUPEQVIEW_H

#include <QRect>
#include <QWidget>

class HvIconButton;
class QLabel;
class QSlider;

// The head unit's equaliser page: band sliders, a reset and an exit.
// Leaving it emits exitEqSig(). Gains are kept in the settings store
// under "eq/band0" .. "eq/band4".
class SetupEqView : public QWidget
{
    Q_OBJECT
public:
    SetupEqView(QRect rect, QWidget* parent = nullptr);
    ~SetupEqView() override;

    int bandCount() const;
    int gain(int band) const;  // dB, -12 .. +12
    void setGain(int band, int dB);

signals:
    void exitEqSig();
    void gainChanged(int band, int dB);

protected:
    void paintEvent(QPaintEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void retranslateUi();
    // Room left of the bands for the dB scale.
    static constexpr int ScaleColumn = 64;

    QPointF handleCentre(int band) const;

    QList<QSlider*> m_sliders;
    QLabel* m_title = nullptr;
    QWidget* m_bandArea = nullptr;
    HvIconButton* m_resetBtn = nullptr;
    HvIconButton* m_exitBtn = nullptr;
};

#endif
