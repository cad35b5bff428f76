#ifndef MONOFFBUTTON_H
#define MONOFFBUTTON_H

#include <QColor>
#include <QString>
#include <QWidget>

// Sliding on/off switch. A tap (or a drag of the knob across the middle)
// toggles it and emits onoffStatusChanged(buttonID, on), where buttonID
// falls back to the object name when none is set. setOnoffStatus() only
// sets the state: it never emits, so a state reported by the tuner does
// not travel back as a user request.
class MOnOffButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool onoffStatus READ onoffStatus WRITE setOnoffStatus)
    Q_PROPERTY(QColor onColor READ onColor WRITE setOnColor)
    Q_PROPERTY(bool btnDisable READ btnDisable WRITE setBtnDisable)
    Q_PROPERTY(QString buttonID READ buttonID WRITE setButtonID)

public:
    explicit MOnOffButton(QWidget* parent = nullptr);
    ~MOnOffButton() override;

    bool onoffStatus() const;
    void setOnoffStatus(bool on);
    QColor onColor() const;
    void setOnColor(const QColor& c);
    // A disabled switch is greyed and ignores touches.
    bool btnDisable() const;
    void setBtnDisable(bool disable);
    QString buttonID() const;
    void setButtonID(const QString& id);

    // Painted knob position: 0 at the off end, 1 at the on end.
    qreal knobPosition() const;

signals:
    void onoffStatusChanged(QString id, bool on);

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void timerEvent(QTimerEvent* e) override;

private:
    QRectF trackRect() const;
    qreal knobTravel() const;
    void animateKnob();

    struct Private;
    Private* d;
};

#endif
