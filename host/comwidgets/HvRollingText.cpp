#include "HvRollingText.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QImage>
#include <QLinearGradient>
#include <QLoggingCategory>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>
#include <cmath>

Q_LOGGING_CATEGORY(lcRollingText, "hu.widgets.rollingtext")

namespace {

// Frame period of the scroll: 12.5 frames a second move the text by an even
// 4 px a frame at the default 50 px/s. Each frame is a repaint, a flush and
// a round trip to the display server, so the wakeups count more than the
// pixels: 80 ms has 40 % of the wakeups of the 33 frames a second it had.
constexpr int FrameMs = 80;
// Width of the faded band at either edge while scrolling.
constexpr int FadeWidth = 24;

QImage transparentImage(const QSize& size, qreal dpr)
{
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

struct HvRollingText::Private
{
    QString text;
    int fontSize = 0;
    QColor color = QColor(255, 255, 255);
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int speed = 50;

    // The text's width; measured at once while shown, otherwise when first
    // asked for.
    mutable int textWidth = 0;
    mutable bool measured = true;
    // Where a standing text is drawn, once a partial repaint asks; a repaint
    // that misses it (a scrolling neighbour's frame grazing the edge) draws
    // nothing.
    QRect textRect;
    qreal offset = 0;
    int timerId = 0;
    QElapsedTimer clock;
    // While scrolling, a frame only moves the text rendered once (strip);
    // the layer fades it at one edge at a time with the fade's alpha.
    QImage strip;
    QImage fade;
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
    relayout();
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
    return measuredWidth() > width();
}

int HvRollingText::measuredWidth() const
{
    if (!d->measured) {
        d->textWidth = d->text.isEmpty() ? 0 : QFontMetrics(textFont()).horizontalAdvance(d->text);
        d->measured = true;
    }
    return d->textWidth;
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
    d->textRect = QRect();
    d->strip = QImage();
    update();
    // A hidden text is measured when it is shown or asked about, so texts
    // replaced while hidden are never laid out.
    d->measured = false;
    if (isVisible())
        settle();
}

void HvRollingText::settle()
{
    if (!isRolling())
        d->offset = 0;
    updateTimer();
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
    const qreal period = measuredWidth() + gap();
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
    settle();
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

void HvRollingText::paintEvent(QPaintEvent* e)
{
    if (d->text.isEmpty())
        return;
    const QFont f = textFont();

    if (!isRolling()) {
        // Laid out only for a repaint of part of the widget, not per text.
        if (!e->rect().contains(rect())) {
            if (d->textRect.isNull())
                d->textRect = QFontMetrics(f).boundingRect(rect(), int(d->alignment) | Qt::TextSingleLine, d->text)
                                  .adjusted(-2, -2, 2, 2);
            if (!e->region().intersects(d->textRect))
                return;
        }
        QPainter p(this);
        p.setRenderHint(QPainter::TextAntialiasing);
        p.setFont(f);
        p.setPen(d->color);
        p.drawText(rect(), int(d->alignment) | Qt::TextSingleLine, d->text);
        return;
    }

    // Both copies of the loop, faded at the edges so the text slides in and
    // out instead of being cut off. Frames move the text by whole pixels;
    // the text itself is drawn only when it changes.
    const qreal dpr = devicePixelRatioF();
    const int fade = qMin(FadeWidth, width() / 4);
    if (d->strip.isNull()) {
        d->strip = transparentImage(QSize(d->textWidth + 1, height()), dpr);
        QPainter sp(&d->strip);
        sp.setRenderHint(QPainter::TextAntialiasing);
        sp.setFont(f);
        sp.setPen(d->color);
        const int flags = int(Qt::AlignLeft | (d->alignment & Qt::AlignVertical_Mask)) | Qt::TextSingleLine;
        sp.drawText(QRectF(0, 0, d->textWidth + 1, height()), flags, d->text);
    }
    if (d->fade.size() != size() * dpr) {
        d->fade = transparentImage(size(), dpr);
        QLinearGradient g(0, 0, width(), 0);
        const qreal edge = qreal(fade) / qMax(1, width());
        g.setColorAt(0, Qt::transparent);
        g.setColorAt(edge, Qt::black);
        g.setColorAt(1 - edge, Qt::black);
        g.setColorAt(1, Qt::transparent);
        QPainter(&d->fade).fillRect(rect(), g);
        d->layer = transparentImage(QSize(fade, height()), dpr);
    }
    const int x = -int(d->offset);
    const int next = x + d->textWidth + gap();
    QPainter p(this);
    // Between the faded bands the text is opaque: drawn straight.
    p.setClipRect(fade, 0, width() - 2 * fade, height());
    p.drawImage(x, 0, d->strip);
    p.drawImage(next, 0, d->strip);
    p.setClipping(false);
    for (const int band : {0, width() - fade}) {
        d->layer.fill(Qt::transparent);
        QPainter lp(&d->layer);
        lp.translate(-band, 0);
        lp.drawImage(x, 0, d->strip);
        lp.drawImage(next, 0, d->strip);
        lp.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        lp.drawImage(0, 0, d->fade);
        lp.end();
        p.drawImage(band, 0, d->layer);
    }
}
