#ifndef SETUPEQVIEW_H
#define SETUPEQVIEW_H

#include <QRect>
#include <QWidget>

class QSlider;

// The head unit's equaliser page: band sliders, a reset and an exit.
// Leaving it emits exitEqSig(). Gains are kept in the settings store.
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

private:
    QList<QSlider*> m_sliders;
};

#endif
