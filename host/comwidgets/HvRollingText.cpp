#include "HvRollingText.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QImage>
#include <QLinearGradient>
#include <QLoggingCategory>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>

Q_LOGGING_CATEGORY(lcRollingText, "hu.widgets.rollingtext")

namespace {

// Frame period of the scroll: 25 frames per second, the rate of broadcast
// video, moves a line of text steadily for the eye (2 px a frame at the
// default 50 px/s) at a quarter fewer wakeups than 33.
constexpr int FrameMs = 40;
// Width of the faded band at either edge while scrolling.
constexpr int FadeWidth = 24;

} // namespace

struct HvRollingText::Private
{
    QString text;
    int fontSize = 0;
    QColor color = QColor(255, 255, 255);
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int speed = 50;

    int textWidth = 0;
    qreal offset = 0;
    int timerId = 0;
    QElapsedTimer clock;
    // While scrolling, a frame only moves the text rendered once (strip)
    // in the layer whose edges it fades.
    QImage strip;
    QImage layer;
};

HvRollingText::HvRollingText(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
}

HvRollingText::~HvRollingText()
{
    delete d;
}

QString HvRollingText::text() const { return d->text; }

void HvRollingText::setText(const QString& text)
{
    if (d->text == text)
        return;
    d->text = text;
    d->offset = 0;
    relayout();
}

int HvRollingText::fontSize() const { return d->fontSize; }

void HvRollingText::setFontSize(int pixels)
{
    if (pixels < 0) {
        qCWarning(lcRollingText) << "negative font size ignored:" << pixels;
        return;
    }
    d->fontSize = pixels;
    relayout();
}

QColor HvRollingText::textColor() const { return d->color; }

void HvRollingText::setTextColor(const QColor& c)
{
    if (d->color == c)
        return;
    d->color = c;
    d->strip = QImage();
    update();
}

Qt::Alignment HvRollingText::alignment() const { return d->alignment; }

void HvRollingText::setAlignment(Qt::Alignment a)
{
    if (d->alignment == a)
        return;
    d->alignment = a;
    d->strip = QImage();
    update();
}

int HvRollingText::speed() const { return d->speed; }

void HvRollingText::setSpeed(int pixelsPerSecond)
{
    if (pixelsPerSecond <= 0) {
        qCWarning(lcRollingText) << "scroll speed must be positive, keeping" << d->speed
                                 << "instead of" << pixelsPerSecond;
        return;
    }
    d->speed = pixelsPerSecond;
}

bool HvRollingText::isRolling() const
{
    return d->textWidth > width();
}

int HvRollingText::scrollOffset() const
{
    return isRolling() ? int(d->offset) : 0;
}

bool HvRollingText::isTimerRunning() const
{
    return d->timerId != 0;
}

QFont HvRollingText::textFont() const
{
    QFont f = font();
    if (d->fontSize > 0)
        f.setPixelSize(d->fontSize);
    return f;
}

int HvRollingText::gap() const
{
    return qMax(48, width() / 3);
}

void HvRollingText::relayout()
{
    d->textWidth = QFontMetrics(textFont()).horizontalAdvance(d->text);
    d->strip = QImage();
    if (!isRolling())
        d->offset = 0;
    updateTimer();
    update();
}

void HvRollingText::updateTimer()
{
    const bool wanted = isVisible() && isRolling();
    if (wanted && d->timerId == 0) {
        d->timerId = startTimer(FrameMs, Qt::PreciseTimer);
        d->clock.start();
    } else if (!wanted && d->timerId != 0) {
        killTimer(d->timerId);
        d->timerId = 0;
    }
}

void HvRollingText::timerEvent(QTimerEvent* e)
{
    if (e->timerId() != d->timerId) {
        QWidget::timerEvent(e);
        return;
    }
    const qreal dt = d->clock.restart() / 1000.0;
    const qreal period = d->textWidth + gap();
    d->offset = std::fmod(d->offset + d->speed * dt, period);
    update();
}

void HvRollingText::resizeEvent(QResizeEvent* e)
{
    QWidget::resizeEvent(e);
    relayout();
}

void HvRollingText::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    updateTimer();
}

void HvRollingText::hideEvent(QHideEvent* e)
{
    QWidget::hideEvent(e);
    updateTimer();
}

void HvRollingText::changeEvent(QEvent* e)
{
    QWidget::changeEvent(e);
    if (e->type() == QEvent::FontChange)
        relayout();
}

void HvRollingText::paintEvent(QPaintEvent*)
{
    if (d->text.isEmpty())
        return;
    const QFont f = textFont();

    if (!isRolling()) {
        QPainter p(this);
        p.setRenderHint(QPainter::TextAntialiasing);
        p.setFont(f);
        p.setPen(d->color);
        p.drawText(rect(), int(d->alignment) | Qt::TextSingleLine, d->text);
        return;
    }

    // Both copies of the loop go into a layer whose edges are then faded,
    // so the text slides in and out instead of being cut off. Frames move
    // the text by whole pixels; the text itself is drawn only when it
    // changes.
    const qreal dpr = devicePixelRatioF();
    if (d->strip.isNull()) {
        d->strip = QImage(QSize(d->textWidth + 1, height()) * dpr, QImage::Format_ARGB32_Premultiplied);
        d->strip.setDevicePixelRatio(dpr);
        d->strip.fill(Qt::transparent);
        QPainter sp(&d->strip);
        sp.setRenderHint(QPainter::TextAntialiasing);
        sp.setFont(f);
        sp.setPen(d->color);
        const int flags = int(Qt::AlignLeft | (d->alignment & Qt::AlignVertical_Mask)) | Qt::TextSingleLine;
        sp.drawText(QRectF(0, 0, d->textWidth + 1, height()), flags, d->text);
    }
    if (d->layer.size() != size() * dpr) {
        d->layer = QImage(size() * dpr, QImage::Format_ARGB32_Premultiplied);
        d->layer.setDevicePixelRatio(dpr);
    }
    d->layer.fill(Qt::transparent);
    {
        QPainter lp(&d->layer);
        const int x = -int(d->offset);
        lp.drawImage(x, 0, d->strip);
        lp.drawImage(x + d->textWidth + gap(), 0, d->strip);
        const int fade = qMin(FadeWidth, width() / 4);
        QLinearGradient g(0, 0, width(), 0);
        const qreal edge = qreal(fade) / qMax(1, width());
        g.setColorAt(0, Qt::transparent);
        g.setColorAt(edge, Qt::black);
        g.setColorAt(1 - edge, Qt::black);
        g.setColorAt(1, Qt::transparent);
        lp.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        lp.fillRect(rect(), g);
    }
    QPainter p(this);
    p.drawImage(0, 0, d->layer);
}
