#ifndef HVICONBUTTON_H
#define HVICONBUTTON_H

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

class QTimer;

// Image button of the head unit. Paints its normal, pressed or disabled
// image with an optional display text on top, and reports a tap as
// btnClicked(buttonID). With long press supported, holding it longer than
// longPressThreshold emits btnLongPress(buttonID) instead of the click;
// while still held, btnLongPress repeats every "timerInterval2" ms (dynamic
// property; unset or <= 0 means no repeat).
class HvIconButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString normalImage READ normalImage WRITE setNormalImage)
    Q_PROPERTY(QString pressImage READ pressImage WRITE setPressImage)
    Q_PROPERTY(QString disableImage READ disableImage WRITE setDisableImage)
    Q_PROPERTY(QString displayText READ displayText WRITE setDisplayText)
    Q_PROPERTY(int fontSize READ fontSize WRITE setFontSize)
    Q_PROPERTY(QColor normalTextColor READ normalTextColor WRITE setNormalTextColor)
    Q_PROPERTY(QColor pressTextColor READ pressTextColor WRITE setPressTextColor)
    Q_PROPERTY(QColor disableTextColor READ disableTextColor WRITE setDisableTextColor)
    Q_PROPERTY(Qt::Alignment textAlign READ textAlign WRITE setTextAlign)
    Q_PROPERTY(int textLeftMargin READ textLeftMargin WRITE setTextLeftMargin)
    Q_PROPERTY(int textTopMargin READ textTopMargin WRITE setTextTopMargin)
    Q_PROPERTY(int textWidth READ textWidth WRITE setTextWidth)
    Q_PROPERTY(int textHeight READ textHeight WRITE setTextHeight)
    Q_PROPERTY(QString buttonID READ buttonID WRITE setButtonID)
    Q_PROPERTY(bool isDown READ isDown WRITE setIsDown)
    Q_PROPERTY(bool isLock READ isLock WRITE setIsLock)
    Q_PROPERTY(bool disableState READ disableState WRITE setDisableState)
    Q_PROPERTY(int disableMode READ disableMode WRITE setDisableMode)
    Q_PROPERTY(int showMode READ showMode WRITE setShowMode)
    Q_PROPERTY(bool supportLongPress READ supportLongPress WRITE setSupportLongPress)
    Q_PROPERTY(int longPressThreshold READ longPressThreshold WRITE setLongPressThreshold)

public:
    // Default hold time before a press counts as a long press.
    static constexpr int DefaultLongPressThreshold = 800;

    explicit HvIconButton(QWidget* parent = nullptr);
    ~HvIconButton() override;

    QString normalImage() const;
    void setNormalImage(const QString& path);
    QString pressImage() const;
    void setPressImage(const QString& path);
    QString disableImage() const;
    void setDisableImage(const QString& path);

    QString displayText() const;
    void setDisplayText(const QString& text);
    int fontSize() const;
    void setFontSize(int pointSize);
    QColor normalTextColor() const;
    void setNormalTextColor(const QColor& c);
    QColor pressTextColor() const;
    void setPressTextColor(const QColor& c);
    QColor disableTextColor() const;
    void setDisableTextColor(const QColor& c);
    Qt::Alignment textAlign() const;
    void setTextAlign(Qt::Alignment align);
    int textLeftMargin() const;
    void setTextLeftMargin(int px);
    int textTopMargin() const;
    void setTextTopMargin(int px);
    // Width/height of the text box; 0 means the rest of the button.
    int textWidth() const;
    void setTextWidth(int px);
    int textHeight() const;
    void setTextHeight(int px);

    QString buttonID() const;
    void setButtonID(const QString& id);

    // Latched down state, shown with the pressed image.
    bool isDown() const;
    void setIsDown(bool down);
    // A locked button keeps its latched state through touches: a tap on it
    // still emits, but does not release it; only setIsDown(false) does.
    bool isLock() const;
    void setIsLock(bool lock);
    // Disabled: shown by the disable mode, ignores touches.
    bool disableState() const;
    void setDisableState(bool disabled);
    // 0: paint the disable image (normal image when none is set);
    // 1: paint the normal image dimmed.
    int disableMode() const;
    void setDisableMode(int mode);
    // 0: image at its own size, centred; 1: image scaled to the button.
    int showMode() const;
    void setShowMode(int mode);

    bool supportLongPress() const;
    void setSupportLongPress(bool support);
    int longPressThreshold() const;
    void setLongPressThreshold(int ms);

    // True while a finger is down on the button and still over it.
    bool isPressed() const;
    QSize sizeHint() const override;

signals:
    void btnClicked(QString id);
    void btnLongPress(QString id);

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    bool event(QEvent* e) override;

private:
    QFont textFont() const;
    void pressAt(const QPoint& pos);
    void moveTo(const QPoint& pos);
    void releaseAt(const QPoint& pos);
    void cancelPress();
    void scheduleRepeat();

    struct Private;
    Private* d;
};

#endif
