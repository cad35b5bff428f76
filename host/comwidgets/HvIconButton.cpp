#include "HvIconButton.h"

#include <QEvent>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QTouchEvent>

Q_LOGGING_CATEGORY(lcIconButton, "hu.widgets.iconbutton")

namespace {

QPixmap loadImage(const QString& path)
{
    if (path.isEmpty())
        return QPixmap();
    QPixmap pix(path);
    if (pix.isNull())
        qCWarning(lcIconButton) << "image not found, painting none:" << path;
    return pix;
}

} // namespace

struct HvIconButton::Private
{
    QString normalPath;
    QString pressPath;
    QString disablePath;
    QPixmap normalPix;
    QPixmap pressPix;
    QPixmap disablePix;

    QString text;
    int fontSize = 0;
    QColor normalTextColor = QColor(255, 255, 255);
    QColor pressTextColor = QColor(0, 240, 251);
    QColor disableTextColor = QColor(255, 255, 255, 100);
    Qt::Alignment textAlign = Qt::AlignCenter;
    int textLeftMargin = 0;
    int textTopMargin = 0;
    int textWidth = 0;
    int textHeight = 0;

    QString id;
    bool down = false;
    bool lock = false;
    bool disabled = false;
    int disableMode = 0;
    int showMode = 0;
    bool supportLongPress = false;
    int longPressThreshold = HvIconButton::DefaultLongPressThreshold;

    // Touch in progress: finger down on the button, and still over it.
    bool pressed = false;
    bool inside = false;
    bool longPressFired = false;
    QTimer longPressTimer;
    QTimer repeatTimer;
};

HvIconButton::HvIconButton(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    d->longPressTimer.setSingleShot(true);
    d->repeatTimer.setSingleShot(true);
    connect(&d->longPressTimer, &QTimer::timeout, this, [this] {
        if (!d->pressed || !d->inside)
            return;
        d->longPressFired = true;
        const QPointer<HvIconButton> self(this);
        emit btnLongPress(d->id);
        if (self)
            scheduleRepeat();
    });
    connect(&d->repeatTimer, &QTimer::timeout, this, [this] {
        if (!d->pressed || !d->inside)
            return;
        const QPointer<HvIconButton> self(this);
        emit btnLongPress(d->id);
        if (self)
            scheduleRepeat();
    });
}

HvIconButton::~HvIconButton()
{
    delete d;
}

QString HvIconButton::normalImage() const { return d->normalPath; }

void HvIconButton::setNormalImage(const QString& path)
{
    if (path == d->normalPath && !d->normalPix.isNull())
        return;
    d->normalPath = path;
    d->normalPix = loadImage(path);
    updateGeometry();
    update();
}

QString HvIconButton::pressImage() const { return d->pressPath; }

void HvIconButton::setPressImage(const QString& path)
{
    if (path == d->pressPath && !d->pressPix.isNull())
        return;
    d->pressPath = path;
    d->pressPix = loadImage(path);
    update();
}

QString HvIconButton::disableImage() const { return d->disablePath; }

void HvIconButton::setDisableImage(const QString& path)
{
    if (path == d->disablePath && !d->disablePix.isNull())
        return;
    d->disablePath = path;
    d->disablePix = loadImage(path);
    update();
}

QString HvIconButton::displayText() const { return d->text; }

void HvIconButton::setDisplayText(const QString& text)
{
    if (d->text == text)
        return;
    d->text = text;
    updateGeometry();
    update();
}

int HvIconButton::fontSize() const { return d->fontSize; }

void HvIconButton::setFontSize(int pointSize)
{
    if (pointSize < 0) {
        qCWarning(lcIconButton) << "negative font size ignored:" << pointSize;
        return;
    }
    d->fontSize = pointSize;
    updateGeometry();
    update();
}

QColor HvIconButton::normalTextColor() const { return d->normalTextColor; }

void HvIconButton::setNormalTextColor(const QColor& c)
{
    if (d->normalTextColor == c)
        return;
    d->normalTextColor = c;
    update();
}

QColor HvIconButton::pressTextColor() const { return d->pressTextColor; }

void HvIconButton::setPressTextColor(const QColor& c)
{
    if (d->pressTextColor == c)
        return;
    d->pressTextColor = c;
    update();
}

QColor HvIconButton::disableTextColor() const { return d->disableTextColor; }

void HvIconButton::setDisableTextColor(const QColor& c)
{
    if (d->disableTextColor == c)
        return;
    d->disableTextColor = c;
    update();
}

Qt::Alignment HvIconButton::textAlign() const { return d->textAlign; }

void HvIconButton::setTextAlign(Qt::Alignment align)
{
    d->textAlign = align;
    update();
}

int HvIconButton::textLeftMargin() const { return d->textLeftMargin; }

void HvIconButton::setTextLeftMargin(int px)
{
    d->textLeftMargin = px;
    update();
}

int HvIconButton::textTopMargin() const { return d->textTopMargin; }

void HvIconButton::setTextTopMargin(int px)
{
    d->textTopMargin = px;
    update();
}

int HvIconButton::textWidth() const { return d->textWidth; }

void HvIconButton::setTextWidth(int px)
{
    d->textWidth = qMax(0, px);
    update();
}

int HvIconButton::textHeight() const { return d->textHeight; }

void HvIconButton::setTextHeight(int px)
{
    d->textHeight = qMax(0, px);
    update();
}

QString HvIconButton::buttonID() const { return d->id; }

void HvIconButton::setButtonID(const QString& id) { d->id = id; }

bool HvIconButton::isDown() const { return d->down; }

void HvIconButton::setIsDown(bool down)
{
    if (d->down == down)
        return;
    d->down = down;
    update();
}

bool HvIconButton::isLock() const { return d->lock; }

void HvIconButton::setIsLock(bool lock) { d->lock = lock; }

bool HvIconButton::disableState() const { return d->disabled; }

void HvIconButton::setDisableState(bool disabled)
{
    if (d->disabled == disabled)
        return;
    d->disabled = disabled;
    if (disabled)
        cancelPress();
    update();
}

int HvIconButton::disableMode() const { return d->disableMode; }

void HvIconButton::setDisableMode(int mode)
{
    if (mode != 0 && mode != 1) {
        qCWarning(lcIconButton) << "unknown disable mode, using 0:" << mode;
        mode = 0;
    }
    d->disableMode = mode;
    update();
}

int HvIconButton::showMode() const { return d->showMode; }

void HvIconButton::setShowMode(int mode)
{
    if (mode != 0 && mode != 1) {
        qCWarning(lcIconButton) << "unknown show mode, using 0:" << mode;
        mode = 0;
    }
    d->showMode = mode;
    update();
}

bool HvIconButton::supportLongPress() const { return d->supportLongPress; }

void HvIconButton::setSupportLongPress(bool support)
{
    d->supportLongPress = support;
    if (!support) {
        d->longPressTimer.stop();
        d->repeatTimer.stop();
    }
}

int HvIconButton::longPressThreshold() const { return d->longPressThreshold; }

void HvIconButton::setLongPressThreshold(int ms)
{
    if (ms <= 0) {
        qCWarning(lcIconButton) << "long press threshold must be positive, keeping"
                                << d->longPressThreshold << "instead of" << ms;
        return;
    }
    d->longPressThreshold = ms;
}

bool HvIconButton::isPressed() const { return d->pressed && d->inside; }

QSize HvIconButton::sizeHint() const
{
    if (!d->normalPix.isNull())
        return d->normalPix.size() / d->normalPix.devicePixelRatio();
    const QFontMetrics fm(textFont());
    return QSize(fm.horizontalAdvance(d->text) + 2 * fm.height(), 2 * fm.height());
}

QFont HvIconButton::textFont() const
{
    QFont f = font();
    if (d->fontSize > 0)
        f.setPointSize(d->fontSize);
    return f;
}

void HvIconButton::pressAt(const QPoint& pos)
{
    if (d->disabled || !rect().contains(pos))
        return;
    d->pressed = true;
    d->inside = true;
    d->longPressFired = false;
    if (d->supportLongPress)
        d->longPressTimer.start(d->longPressThreshold);
    update();
}

void HvIconButton::moveTo(const QPoint& pos)
{
    if (!d->pressed)
        return;
    const bool inside = rect().contains(pos);
    if (inside == d->inside)
        return;
    d->inside = inside;
    // Leaving the button gives up the hold; coming back starts it afresh.
    d->longPressTimer.stop();
    d->repeatTimer.stop();
    if (inside && d->supportLongPress && !d->longPressFired)
        d->longPressTimer.start(d->longPressThreshold);
    update();
}

void HvIconButton::releaseAt(const QPoint& pos)
{
    if (!d->pressed)
        return;
    const bool inside = rect().contains(pos);
    const bool wasLong = d->longPressFired;
    cancelPress();
    if (!inside)
        return;
    if (!d->lock)
        d->down = false;
    update();
    if (!wasLong)
        emit btnClicked(d->id);
}

void HvIconButton::cancelPress()
{
    d->longPressTimer.stop();
    d->repeatTimer.stop();
    if (!d->pressed)
        return;
    d->pressed = false;
    d->inside = false;
    d->longPressFired = false;
    update();
}

void HvIconButton::scheduleRepeat()
{
    const int interval = property("timerInterval2").toInt();
    if (interval > 0 && d->pressed && d->inside)
        d->repeatTimer.start(interval);
}

void HvIconButton::mousePressEvent(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton) {
        e->ignore();
        return;
    }
    pressAt(e->pos());
}

void HvIconButton::mouseMoveEvent(QMouseEvent* e)
{
    moveTo(e->pos());
}

void HvIconButton::mouseReleaseEvent(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton) {
        e->ignore();
        return;
    }
    releaseAt(e->pos());
}

bool HvIconButton::event(QEvent* e)
{
    switch (e->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        const auto* te = static_cast<QTouchEvent*>(e);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        const auto& points = te->points();
        const auto position = [](const QEventPoint& p) { return p.position().toPoint(); };
#else
        const auto& points = te->touchPoints();
        const auto position = [](const QTouchEvent::TouchPoint& p) { return p.pos().toPoint(); };
#endif
        if (points.isEmpty())
            return true;
        const QPoint pos = position(points.first());
        if (e->type() == QEvent::TouchBegin)
            pressAt(pos);
        else if (e->type() == QEvent::TouchUpdate)
            moveTo(pos);
        else
            releaseAt(pos);
        e->accept();
        return true;
    }
    case QEvent::TouchCancel:
        cancelPress();
        e->accept();
        return true;
    case QEvent::Hide:
    case QEvent::EnabledChange:
        cancelPress();
        break;
    default:
        break;
    }
    return QWidget::event(e);
}

void HvIconButton::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);

    const bool showPressed = !d->disabled && (isPressed() || d->down);

    QPixmap pix = d->normalPix;
    qreal opacity = 1.0;
    if (d->disabled) {
        if (d->disableMode == 0 && !d->disablePix.isNull())
            pix = d->disablePix;
        else if (d->disableMode == 1)
            opacity = 0.4;
    } else if (showPressed && !d->pressPix.isNull()) {
        pix = d->pressPix;
    }

    if (!pix.isNull()) {
        p.setOpacity(opacity);
        if (d->showMode == 1) {
            p.drawPixmap(rect(), pix);
        } else {
            const QSize size = pix.size() / pix.devicePixelRatio();
            QRect r(QPoint(), size);
            r.moveCenter(rect().center());
            p.drawPixmap(r, pix);
        }
        p.setOpacity(1.0);
    }

    // Without a pressed image a touch still needs visible feedback.
    if (showPressed && d->pressPix.isNull()) {
        const qreal radius = qMin(width(), height()) / 4.0;
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 240, 251, 48));
        p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    }

    if (d->text.isEmpty())
        return;
    const int w = d->textWidth > 0 ? d->textWidth : width() - d->textLeftMargin;
    const int h = d->textHeight > 0 ? d->textHeight : height() - d->textTopMargin;
    const QRect textRect(d->textLeftMargin, d->textTopMargin, w, h);
    if (textRect.isEmpty())
        return;
    QColor color = d->normalTextColor;
    if (d->disabled)
        color = d->disableTextColor;
    else if (showPressed)
        color = d->pressTextColor;
    p.setFont(textFont());
    p.setPen(color);
    const QString shown = p.fontMetrics().elidedText(d->text, Qt::ElideRight, textRect.width());
    p.drawText(textRect, int(d->textAlign), shown);
}
