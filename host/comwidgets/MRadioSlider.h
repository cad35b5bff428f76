#ifndef MRADIOSLIDER_H
#define MRADIOSLIDER_H

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

// Tuning scale with ticks, labels and a pointer image. Drag or tap to tune.
//
// Units: the range and step are given in display units (FM in MHz, AM in
// kHz), the current frequency and freqChangedSgl in tuner units (FM in
// 10 kHz, AM in kHz). With isFM the scale multiplies by 100 on the way in
// and divides on the way out. A user position snaps to the nearest step
// from freqStart and is clamped to the range; freqChangedSgl is emitted
// once when the finger is lifted (only if the value differs from curFreq),
// and the pointer follows the finger while dragging. After the drag the
// pointer waits at the requested frequency for the tuner's answer: the next
// curFreq takes it over, and without one it returns to curFreq after
// ConfirmMs. curFreq itself only ever comes from outside.
//
// Dynamic property "scaleMode": 1 draws the ticks only; any other value
// (or none) draws the ticks with their labels.
class MRadioSlider : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString indicatePix READ indicatePix WRITE setIndicatePix)
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor)
    Q_PROPERTY(int lineGap READ lineGap WRITE setLineGap)
    Q_PROPERTY(float freqStart READ freqStart WRITE setFreqStart)
    Q_PROPERTY(float freqEnd READ freqEnd WRITE setFreqEnd)
    Q_PROPERTY(float freqStep READ freqStep WRITE setFreqStep)
    Q_PROPERTY(float curFreq READ curFreq WRITE setCurFreq)
    Q_PROPERTY(bool isFM READ isFM WRITE setIsFM)
    Q_PROPERTY(int marginY READ marginY WRITE setMarginY)
    Q_PROPERTY(int textMarginY READ textMarginY WRITE setTextMarginY)
    Q_PROPERTY(int scaleMarginY READ scaleMarginY WRITE setScaleMarginY)

public:
    static const int ConfirmMs = 1500;

    explicit MRadioSlider(QWidget* parent = nullptr);
    ~MRadioSlider() override;

    QString indicatePix() const;
    void setIndicatePix(const QString& path);
    QColor lineColor() const;
    void setLineColor(const QColor& c);
    // Pixels between two minor ticks (minimum; widened to fit the range).
    int lineGap() const;
    void setLineGap(int px);
    float freqStart() const;
    void setFreqStart(float f);
    float freqEnd() const;
    void setFreqEnd(float f);
    float freqStep() const;
    void setFreqStep(float f);
    // Tuner units.
    float curFreq() const;
    void setCurFreq(float f);
    bool isFM() const;
    void setIsFM(bool fm);
    int marginY() const;
    void setMarginY(int px);
    int textMarginY() const;
    void setTextMarginY(int px);
    int scaleMarginY() const;
    void setScaleMarginY(int px);

    // Tuner-unit frequency at a widget x position, snapped and clamped.
    float freqAtX(int x) const;
    // Widget x position of a tuner-unit frequency.
    int xForFreq(float f) const;
    // Horizontal extent of the scale: x of freqStart and of freqEnd.
    int scaleLeft() const;
    int scaleRight() const;
    // Where the pointer is drawn: the finger's snapped position while
    // dragging, the requested frequency while its answer is awaited, else
    // curFreq.
    int pointerX() const;
    bool isDragging() const;

public slots:
    void freqParamChangedSlot(bool isFM, float freqMin, float freqMax, float freqStep);
    void curFreqChangedSlot(float freq);

signals:
    void freqChangedSgl(float freq);

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void timerEvent(QTimerEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    bool event(QEvent* e) override;

private:
    double unitFactor() const;
    double lowTuner() const;
    double highTuner() const;
    double snapTuner(double v) const;
    QString labelText(qint64 milli) const;
    void paintScale(QPainter& p) const;
    void paintPointer(QPainter& p) const;
    // The strip the pointer covers at x, and its repaint after a move.
    QRect pointerRect(int x) const;
    void updatePointer(int oldX);

    struct Private;
    Private* d;
};

#endif
