#include "MRadioSlider.h"

#include <QBasicTimer>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QResizeEvent>
#include <QTimerEvent>
#include <QVector>
#include <cmath>

Q_LOGGING_CATEGORY(lcRadioSlider, "hu.widgets.radioslider")

namespace {

// Tick lengths upwards from the scale's baseline.
constexpr int MajorTick = 22;
constexpr int MediumTick = 15;
constexpr int MinorTick = 9;

const QColor FallbackPointer(255, 45, 45);

// Values are kept to a thousandth of a unit: enough for every band plan,
// and it strips the binary noise of float inputs such as 0.05f * 100.
double roundMilli(double v)
{
    return std::round(v * 1000.0) / 1000.0;
}

// 1, 2, 5, 10, 20, 50, ... in thousandths of a display unit.
QVector<qint64> niceSteps()
{
    QVector<qint64> steps;
    for (qint64 decade = 1; decade <= 1000000000LL; decade *= 10) {
        steps << decade << 2 * decade << 5 * decade;
    }
    return steps;
}

struct Tick
{
    qint64 milli; // display value in thousandths
    int kind;     // 0 minor, 1 medium, 2 major (labelled)
};

} // namespace

struct MRadioSlider::Private
{
    QString indicatePath;
    QPixmap indicatePix;
    QColor lineColor = QColor(255, 255, 255);
    int lineGap = 6;
    float freqStart = 87.5f;
    float freqEnd = 108.0f;
    float freqStep = 0.05f;
    float curFreq = 8750.0f;
    bool isFM = true;
    int marginY = 0;
    int textMarginY = 5;
    int scaleMarginY = -20;

    bool dragging = false;
    float dragFreq = 0;
    // A frequency sent to the tuner and not answered yet.
    bool awaiting = false;
    float requestedFreq = 0;
    QBasicTimer confirmTimer;

    // Ticks and labels change only with the range, the look or the size;
    // a moving pointer repaints its own strip over this picture.
    QPixmap scale;
    bool scaleValid = false;
    // scaleLeft() measures a label with the font: kept until the scale changes.
    int left = -1;

    void invalidateScale()
    {
        scaleValid = false;
        left = -1;
    }
};

MRadioSlider::MRadioSlider(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
}

MRadioSlider::~MRadioSlider()
{
    delete d;
}

QString MRadioSlider::indicatePix() const { return d->indicatePath; }

void MRadioSlider::setIndicatePix(const QString& path)
{
    d->indicatePath = path;
    d->indicatePix = path.isEmpty() ? QPixmap() : QPixmap(path);
    if (!path.isEmpty() && d->indicatePix.isNull())
        qCWarning(lcRadioSlider) << "pointer image not found, drawing a line:" << path;
    d->invalidateScale();
    update();
}

QColor MRadioSlider::lineColor() const { return d->lineColor; }

void MRadioSlider::setLineColor(const QColor& c)
{
    d->lineColor = c;
    d->invalidateScale();
    update();
}

int MRadioSlider::lineGap() const { return d->lineGap; }

void MRadioSlider::setLineGap(int px)
{
    if (px < 1) {
        qCWarning(lcRadioSlider) << "line gap must be at least 1 px, keeping" << d->lineGap
                                 << "instead of" << px;
        return;
    }
    d->lineGap = px;
    d->invalidateScale();
    update();
}

float MRadioSlider::freqStart() const { return d->freqStart; }

void MRadioSlider::setFreqStart(float f)
{
    if (!std::isfinite(f)) {
        qCWarning(lcRadioSlider) << "non-finite scale start ignored";
        return;
    }
    d->freqStart = f;
    d->invalidateScale();
    update();
}

float MRadioSlider::freqEnd() const { return d->freqEnd; }

void MRadioSlider::setFreqEnd(float f)
{
    if (!std::isfinite(f)) {
        qCWarning(lcRadioSlider) << "non-finite scale end ignored";
        return;
    }
    d->freqEnd = f;
    d->invalidateScale();
    update();
}

float MRadioSlider::freqStep() const { return d->freqStep; }

void MRadioSlider::setFreqStep(float f)
{
    if (!std::isfinite(f) || f <= 0) {
        qCWarning(lcRadioSlider) << "scale step must be positive, keeping" << d->freqStep
                                 << "instead of" << f;
        return;
    }
    d->freqStep = f;
    d->invalidateScale();
    update();
}

float MRadioSlider::curFreq() const { return d->curFreq; }

void MRadioSlider::setCurFreq(float f)
{
    if (!std::isfinite(f)) {
        qCWarning(lcRadioSlider) << "non-finite frequency ignored";
        return;
    }
    const int oldX = pointerX();
    d->curFreq = f;
    d->awaiting = false;
    d->confirmTimer.stop();
    updatePointer(oldX);
}

bool MRadioSlider::isFM() const { return d->isFM; }

void MRadioSlider::setIsFM(bool fm)
{
    d->isFM = fm;
    d->invalidateScale();
    update();
}

int MRadioSlider::marginY() const { return d->marginY; }

void MRadioSlider::setMarginY(int px)
{
    d->marginY = px;
    d->invalidateScale();
    update();
}

int MRadioSlider::textMarginY() const { return d->textMarginY; }

void MRadioSlider::setTextMarginY(int px)
{
    d->textMarginY = px;
    d->invalidateScale();
    update();
}

int MRadioSlider::scaleMarginY() const { return d->scaleMarginY; }

void MRadioSlider::setScaleMarginY(int px)
{
    d->scaleMarginY = px;
    d->invalidateScale();
    update();
}

void MRadioSlider::freqParamChangedSlot(bool isFM, float freqMin, float freqMax, float freqStep)
{
    if (!std::isfinite(freqMin) || !std::isfinite(freqMax) || !std::isfinite(freqStep)
        || freqMax <= freqMin || freqStep <= 0) {
        qCWarning(lcRadioSlider) << "invalid band range ignored:" << isFM << freqMin << freqMax
                                 << freqStep;
        return;
    }
    if (d->isFM == isFM && d->freqStart == freqMin && d->freqEnd == freqMax && d->freqStep == freqStep)
        return;
    d->isFM = isFM;
    d->freqStart = freqMin;
    d->freqEnd = freqMax;
    d->freqStep = freqStep;
    d->invalidateScale();
    update();
}

void MRadioSlider::curFreqChangedSlot(float freq)
{
    setCurFreq(freq);
}

double MRadioSlider::unitFactor() const
{
    return d->isFM ? 100.0 : 1.0;
}

double MRadioSlider::lowTuner() const
{
    return roundMilli(qMin(d->freqStart, d->freqEnd) * unitFactor());
}

double MRadioSlider::highTuner() const
{
    return roundMilli(qMax(d->freqStart, d->freqEnd) * unitFactor());
}

double MRadioSlider::snapTuner(double v) const
{
    const double lo = lowTuner();
    const double hi = highTuner();
    const double step = roundMilli(double(d->freqStep) * unitFactor());
    if (step <= 0)
        return lo;
    const qint64 last = qint64(std::floor((hi - lo) / step + 1e-6));
    const qint64 index = qBound<qint64>(0, qRound64((qBound(lo, v, hi) - lo) / step), last);
    return roundMilli(lo + index * step);
}

QString MRadioSlider::labelText(qint64 milli) const
{
    if (milli % 1000 == 0)
        return QString::number(milli / 1000);
    const int decimals = milli % 100 == 0 ? 1 : (milli % 10 == 0 ? 2 : 3);
    return QString::number(milli / 1000.0, 'f', decimals);
}

int MRadioSlider::scaleLeft() const
{
    if (d->left < 0) {
        const QFontMetrics fm(font());
        const int label = fm.horizontalAdvance(labelText(qint64(std::round(highTuner() / unitFactor() * 1000))));
        const int pointer = d->indicatePix.isNull() ? 6 : d->indicatePix.width() / 2;
        d->left = qMax(qMax(12, pointer), label / 2 + 4);
    }
    return d->left;
}

int MRadioSlider::scaleRight() const
{
    return qMax(scaleLeft(), width() - 1 - scaleLeft());
}

float MRadioSlider::freqAtX(int x) const
{
    const int left = scaleLeft();
    const int span = scaleRight() - left;
    const double lo = lowTuner();
    const double hi = highTuner();
    if (span <= 0)
        return float(snapTuner(lo));
    const double t = double(x - left) / span;
    return float(snapTuner(lo + t * (hi - lo)));
}

int MRadioSlider::xForFreq(float f) const
{
    const int left = scaleLeft();
    const int span = scaleRight() - left;
    const double lo = lowTuner();
    const double hi = highTuner();
    if (hi <= lo)
        return left + span / 2;
    const double v = std::isfinite(f) ? qBound(lo, double(f), hi) : lo;
    return left + int(std::lround((v - lo) / (hi - lo) * span));
}

int MRadioSlider::pointerX() const
{
    if (d->dragging)
        return xForFreq(d->dragFreq);
    return xForFreq(d->awaiting ? d->requestedFreq : d->curFreq);
}

bool MRadioSlider::isDragging() const { return d->dragging; }

void MRadioSlider::mousePressEvent(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton) {
        e->ignore();
        return;
    }
    const int oldX = pointerX();
    d->dragging = true;
    d->dragFreq = freqAtX(e->pos().x());
    updatePointer(oldX);
}

void MRadioSlider::mouseMoveEvent(QMouseEvent* e)
{
    if (!d->dragging)
        return;
    const float f = freqAtX(e->pos().x());
    if (f == d->dragFreq)
        return;
    const int oldX = pointerX();
    d->dragFreq = f;
    updatePointer(oldX);
}

void MRadioSlider::mouseReleaseEvent(QMouseEvent* e)
{
    if (!d->dragging || e->button() != Qt::LeftButton)
        return;
    const int oldX = pointerX();
    d->dragging = false;
    const float f = freqAtX(e->pos().x());
    d->awaiting = f != d->curFreq;
    d->requestedFreq = f;
    if (d->awaiting)
        d->confirmTimer.start(ConfirmMs, Qt::CoarseTimer, this);
    else
        d->confirmTimer.stop();
    updatePointer(oldX);
    if (d->awaiting)
        emit freqChangedSgl(f);
}

// The tuner did not take the requested frequency: show the current one.
void MRadioSlider::timerEvent(QTimerEvent* e)
{
    if (e->timerId() != d->confirmTimer.timerId()) {
        QWidget::timerEvent(e);
        return;
    }
    const int oldX = pointerX();
    d->confirmTimer.stop();
    d->awaiting = false;
    updatePointer(oldX);
}

void MRadioSlider::resizeEvent(QResizeEvent* e)
{
    d->invalidateScale();
    QWidget::resizeEvent(e);
}

bool MRadioSlider::event(QEvent* e)
{
    // The labels' font and the "scaleMode" property shape the scale.
    if (e->type() == QEvent::FontChange || e->type() == QEvent::DynamicPropertyChange)
        d->invalidateScale();
    return QWidget::event(e);
}

QRect MRadioSlider::pointerRect(int x) const
{
    // The fallback needle with its glow and cap reaches 8 px to each side.
    const int half = d->indicatePix.isNull() ? 8 : int(std::ceil(d->indicatePix.width() / d->indicatePix.devicePixelRatio() / 2.0));
    return QRect(x - half - 2, 0, 2 * half + 5, height());
}

void MRadioSlider::updatePointer(int oldX)
{
    update(pointerRect(oldX));
    update(pointerRect(pointerX()));
}

void MRadioSlider::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    if (!d->scaleValid || d->scale.size() != size() * ratio) {
        d->scale = QPixmap(size() * ratio);
        d->scale.setDevicePixelRatio(ratio);
        d->scale.fill(Qt::transparent);
        QPainter scalePainter(&d->scale);
        paintScale(scalePainter);
        d->scaleValid = true;
    }
    QPainter p(this);
    p.drawPixmap(0, 0, d->scale);
    p.setRenderHint(QPainter::Antialiasing);
    paintPointer(p);
}

void MRadioSlider::paintScale(QPainter& p) const
{
    p.setFont(font());
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);

    const int left = scaleLeft();
    const int right = scaleRight();
    const int span = right - left;
    const int baseY = d->marginY + height() + d->scaleMarginY;
    const double loD = lowTuner() / unitFactor();
    const double hiD = highTuner() / unitFactor();

    // Baseline.
    QColor baseColor = d->lineColor;
    baseColor.setAlphaF(baseColor.alphaF() * 0.35);
    p.setPen(QPen(baseColor, 1));
    p.drawLine(QPointF(left, baseY + 0.5), QPointF(right, baseY + 0.5));

    if (span > 0 && hiD > loD) {
        const double pxPerUnit = span / (hiD - loD);
        const qint64 loM = qint64(std::round(loD * 1000));
        const qint64 hiM = qint64(std::round(hiD * 1000));
        const QVector<qint64> steps = niceSteps();

        qint64 minor = steps.last();
        for (qint64 s : steps) {
            if (s / 1000.0 * pxPerUnit >= d->lineGap) {
                minor = s;
                break;
            }
        }
        const QFontMetrics fm(font());
        const int labelRoom = fm.horizontalAdvance(labelText(hiM)) + 14;
        qint64 major = steps.last();
        for (qint64 s : steps) {
            if (s >= 4 * minor && s % minor == 0 && s / 1000.0 * pxPerUnit >= labelRoom) {
                major = s;
                break;
            }
        }
        const qint64 medium = (major / 2 > minor && (major / 2) % minor == 0) ? major / 2 : 0;

        QVector<Tick> ticks;
        const qint64 first = (loM + minor - 1) / minor;
        const qint64 last = hiM / minor;
        for (qint64 n = first; n <= last; ++n) {
            const qint64 v = n * minor;
            const int kind = v % major == 0 ? 2 : (medium && v % medium == 0 ? 1 : 0);
            ticks.append({v, kind});
        }

        const bool labels = property("scaleMode").toInt() != 1;
        QColor tickColor = d->lineColor;
        const qreal alpha = tickColor.alphaF();
        for (const Tick& t : ticks) {
            const qreal x = left + (t.milli / 1000.0 - loD) * pxPerUnit;
            const int len = t.kind == 2 ? MajorTick : (t.kind == 1 ? MediumTick : MinorTick);
            tickColor.setAlphaF(alpha * (t.kind == 2 ? 1.0 : (t.kind == 1 ? 0.75 : 0.5)));
            p.setPen(QPen(tickColor, t.kind == 2 ? 2.0 : 1.2, Qt::SolidLine, Qt::FlatCap));
            p.drawLine(QPointF(x, baseY), QPointF(x, baseY - len));
            if (labels && t.kind == 2) {
                const QString text = labelText(t.milli);
                const int w = fm.horizontalAdvance(text);
                const int bottom = baseY - MajorTick - d->textMarginY;
                tickColor.setAlphaF(alpha * 0.9);
                p.setPen(tickColor);
                p.drawText(QRect(int(x) - w, bottom - fm.height(), 2 * w, fm.height()),
                           Qt::AlignHCenter | Qt::AlignBottom, text);
            }
        }
    }

}

void MRadioSlider::paintPointer(QPainter& p) const
{
    const int baseY = d->marginY + height() + d->scaleMarginY;
    const int px = pointerX();
    if (!d->indicatePix.isNull()) {
        const QSize size = d->indicatePix.size() / d->indicatePix.devicePixelRatio();
        QRect r(QPoint(), size);
        r.moveCenter(QPoint(px, d->marginY + height() / 2));
        p.drawPixmap(r, d->indicatePix);
        return;
    }

    // No pointer image: a red needle with a soft glow and a cap on top.
    const qreal top = d->marginY + 8;
    const qreal bottom = qMin<qreal>(height() - 1, baseY + 8);
    QColor glow = FallbackPointer;
    glow.setAlpha(d->dragging ? 110 : 70);
    p.setPen(QPen(glow, 8, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(px, top), QPointF(px, bottom));
    p.setPen(QPen(FallbackPointer, 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(px, top), QPointF(px, bottom));
    QPainterPath cap;
    cap.moveTo(px - 7, top - 6);
    cap.lineTo(px + 7, top - 6);
    cap.lineTo(px, top + 2);
    cap.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(FallbackPointer);
    p.drawPath(cap);
}
