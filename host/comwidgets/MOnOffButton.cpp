#include "MOnOffButton.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

namespace {

constexpr int FrameMs = 16;
// Full travel of the knob takes this long.
constexpr qreal TravelMs = 140.0;
// A finger that moves less than this is a tap, not a drag.
constexpr int DragThreshold = 6;

const QColor OffColor(88, 92, 102);

QColor mix(const QColor& a, const QColor& b, qreal t)
{
    return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * t,
                            a.greenF() + (b.greenF() - a.greenF()) * t,
                            a.blueF() + (b.blueF() - a.blueF()) * t,
                            a.alphaF() + (b.alphaF() - a.alphaF()) * t);
}

} // namespace

struct MOnOffButton::Private
{
    bool on = false;
    QColor onColor = QColor(20, 80, 255);
    bool disabled = false;
    QString id;

    // Knob position, 0 = off end, 1 = on end; animates towards `on`.
    qreal knob = 0;
    int timerId = 0;

    bool pressed = false;
    bool dragging = false;
    int pressX = 0;
    qreal pressKnob = 0;
};

MOnOffButton::MOnOffButton(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
}

MOnOffButton::~MOnOffButton()
{
    delete d;
}

bool MOnOffButton::onoffStatus() const { return d->on; }

void MOnOffButton::setOnoffStatus(bool on)
{
    if (d->on == on)
        return;
    d->on = on;
    d->pressed = false;
    d->dragging = false;
    animateKnob();
}

QColor MOnOffButton::onColor() const { return d->onColor; }

void MOnOffButton::setOnColor(const QColor& c)
{
    d->onColor = c;
    update();
}

bool MOnOffButton::btnDisable() const { return d->disabled; }

void MOnOffButton::setBtnDisable(bool disable)
{
    d->disabled = disable;
    if (disable && d->pressed) {
        d->pressed = false;
        d->dragging = false;
        animateKnob();
    }
    update();
}

QString MOnOffButton::buttonID() const { return d->id; }

void MOnOffButton::setButtonID(const QString& id) { d->id = id; }

qreal MOnOffButton::knobPosition() const { return d->knob; }

QRectF MOnOffButton::trackRect() const
{
    // Keep a 2:1 pill centred in whatever box the layout gives.
    const QRectF box = QRectF(rect()).adjusted(2, 2, -2, -2);
    qreal h = qMin(box.height(), box.width() / 2.0);
    qreal w = qMin(box.width(), h * 2.05);
    QRectF r(0, 0, w, h);
    r.moveCenter(box.center());
    return r;
}

qreal MOnOffButton::knobTravel() const
{
    const QRectF t = trackRect();
    return t.width() - t.height();
}

void MOnOffButton::animateKnob()
{
    if (!isVisible()) {
        d->knob = d->on ? 1.0 : 0.0;
        update();
        return;
    }
    if (d->timerId == 0)
        d->timerId = startTimer(FrameMs, Qt::PreciseTimer);
}

void MOnOffButton::timerEvent(QTimerEvent* e)
{
    if (e->timerId() != d->timerId) {
        QWidget::timerEvent(e);
        return;
    }
    const qreal target = d->on ? 1.0 : 0.0;
    const qreal stepSize = FrameMs / TravelMs;
    if (qAbs(target - d->knob) <= stepSize) {
        d->knob = target;
        killTimer(d->timerId);
        d->timerId = 0;
    } else {
        d->knob += target > d->knob ? stepSize : -stepSize;
    }
    update();
}

void MOnOffButton::mousePressEvent(QMouseEvent* e)
{
    if (d->disabled || e->button() != Qt::LeftButton) {
        e->ignore();
        return;
    }
    d->pressed = true;
    d->dragging = false;
    d->pressX = e->pos().x();
    d->pressKnob = d->knob;
    update();
}

void MOnOffButton::mouseMoveEvent(QMouseEvent* e)
{
    if (!d->pressed)
        return;
    const int dx = e->pos().x() - d->pressX;
    if (!d->dragging && qAbs(dx) < DragThreshold)
        return;
    d->dragging = true;
    if (d->timerId != 0) {
        killTimer(d->timerId);
        d->timerId = 0;
    }
    const qreal travel = qMax<qreal>(1.0, knobTravel());
    d->knob = qBound<qreal>(0.0, d->pressKnob + dx / travel, 1.0);
    update();
}

void MOnOffButton::mouseReleaseEvent(QMouseEvent* e)
{
    if (!d->pressed || e->button() != Qt::LeftButton)
        return;
    const bool dragged = d->dragging;
    d->pressed = false;
    d->dragging = false;

    bool next = d->on;
    if (dragged)
        next = d->knob > 0.5;
    else if (rect().contains(e->pos()))
        next = !d->on;

    const bool changed = next != d->on;
    d->on = next;
    animateKnob();
    update();
    if (changed)
        emit onoffStatusChanged(d->id.isEmpty() ? objectName() : d->id, next);
}

void MOnOffButton::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (d->disabled)
        p.setOpacity(0.4);

    const QRectF track = trackRect();
    const qreal radius = track.height() / 2.0;
    const qreal t = d->knob;

    // Track: off grey blending into the on colour as the knob travels.
    const QColor base = mix(OffColor, d->onColor, t);
    QLinearGradient fill(track.topLeft(), track.bottomLeft());
    fill.setColorAt(0, base.lighter(118));
    fill.setColorAt(1, base.darker(112));
    p.setPen(QPen(QColor(0, 0, 0, 90), 1));
    p.setBrush(fill);
    p.drawRoundedRect(track, radius, radius);

    // Soft glow of the on colour while on.
    if (t > 0) {
        QColor glow = d->onColor.lighter(140);
        glow.setAlphaF(0.35 * t);
        p.setPen(QPen(glow, 1.5));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(track.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
    }

    // Knob with a small drop shadow.
    const qreal inset = qMax<qreal>(2.0, track.height() * 0.08);
    const qreal knobD = track.height() - 2 * inset;
    const qreal knobX = track.left() + inset + t * knobTravel();
    const QRectF knob(knobX, track.top() + inset, knobD, knobD);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 70));
    p.drawEllipse(knob.translated(0, 1.5));
    QRadialGradient kg(knob.center() - QPointF(knobD * 0.15, knobD * 0.2), knobD * 0.7);
    kg.setColorAt(0, QColor(255, 255, 255));
    kg.setColorAt(1, d->pressed ? QColor(200, 206, 214) : QColor(226, 230, 236));
    p.setBrush(kg);
    p.drawEllipse(knob);
}
