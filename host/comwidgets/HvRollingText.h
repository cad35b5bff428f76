#ifndef HVROLLINGTEXT_H
#define HVROLLINGTEXT_H

#include <QColor>
#include <QString>
#include <QWidget>

// One line of text. When it is wider than the widget it scrolls smoothly
// from right to left in a loop (marquee); otherwise it stands still,
// aligned by `alignment`.
class HvRollingText : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    // Text height in pixels, so a line sized to its widget fits whatever
    // the screen density.
    Q_PROPERTY(int fontSize READ fontSize WRITE setFontSize)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    // Scroll speed in pixels per second.
    Q_PROPERTY(int speed READ speed WRITE setSpeed)

public:
    explicit HvRollingText(QWidget* parent = nullptr);
    ~HvRollingText() override;

    QString text() const;
    int fontSize() const;
    void setFontSize(int pixels);
    QColor textColor() const;
    void setTextColor(const QColor& c);
    Qt::Alignment alignment() const;
    void setAlignment(Qt::Alignment a);
    int speed() const;
    void setSpeed(int pixelsPerSecond);

    // True while the text is too wide and scrolls.
    bool isRolling() const;
    // Current horizontal offset of the text in pixels (0 when still).
    int scrollOffset() const;
    // True while the frame timer runs (only when visible and rolling).
    bool isTimerRunning() const;

public slots:
    void setText(const QString& text);

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;
    void timerEvent(QTimerEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    QFont textFont() const;
    int gap() const;
    int measuredWidth() const;
    void relayout();
    void settle();
    void updateTimer();

    struct Private;
    Private* d;
};

#endif
