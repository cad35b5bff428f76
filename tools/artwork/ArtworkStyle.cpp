#include "ArtworkStyle.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRadialGradient>

#include <algorithm>

namespace ArtworkStyle {

QColor cyan() { return QColor(0, 240, 251); }
QColor blue() { return QColor(20, 80, 255); }
QColor orange() { return QColor(255, 123, 2); }
QColor ink() { return QColor(222, 230, 240); }

QFont font(int pixelSize, QFont::Weight weight)
{
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPixelSize(pixelSize);
    f.setWeight(weight);
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setStyleStrategy(QFont::PreferAntialias);
    return f;
}

namespace {

// One box pass along rows (horizontal) or columns, on premultiplied pixels;
// pixels outside the image count as transparent.
void boxPass(const QImage& src, QImage& dst, int radius, bool horizontal)
{
    const int w = src.width();
    const int h = src.height();
    const int lines = horizontal ? h : w;
    const int length = horizontal ? w : h;
    const int window = 2 * radius + 1;
    auto at = [&](const QImage& img, int line, int i) -> QRgb {
        return horizontal ? reinterpret_cast<const QRgb*>(img.constScanLine(line))[i]
                          : reinterpret_cast<const QRgb*>(img.constScanLine(i))[line];
    };
    for (int line = 0; line < lines; ++line) {
        int sum[4] = {0, 0, 0, 0};
        auto add = [&](int i, int sign) {
            if (i < 0 || i >= length)
                return;
            const QRgb c = at(src, line, i);
            sum[0] += sign * qAlpha(c);
            sum[1] += sign * qRed(c);
            sum[2] += sign * qGreen(c);
            sum[3] += sign * qBlue(c);
        };
        for (int i = -radius; i <= radius; ++i)
            add(i, 1);
        for (int i = 0; i < length; ++i) {
            const QRgb out = qRgba(sum[1] / window, sum[2] / window, sum[3] / window, sum[0] / window);
            if (horizontal)
                reinterpret_cast<QRgb*>(dst.scanLine(line))[i] = out;
            else
                reinterpret_cast<QRgb*>(dst.scanLine(i))[line] = out;
            add(i - radius, -1);
            add(i + radius + 1, 1);
        }
    }
}

} // namespace

QImage blurred(const QImage& image, int radius)
{
    QImage a = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (radius < 1)
        return a;
    QImage b(a.size(), QImage::Format_ARGB32_Premultiplied);
    const int passRadius = std::max(1, radius / 2);
    for (int pass = 0; pass < 3; ++pass) {
        boxPass(a, b, passRadius, true);
        boxPass(b, a, passRadius, false);
    }
    return a;
}

void glow(QPainter& p, const QPainterPath& path, const QColor& colour, int radius)
{
    QImage layer(p.device()->width(), p.device()->height(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    {
        QPainter lp(&layer);
        lp.setRenderHint(QPainter::Antialiasing);
        lp.setTransform(p.transform());
        lp.fillPath(path, colour);
    }
    p.save();
    p.resetTransform();
    p.drawImage(0, 0, blurred(layer, radius));
    p.restore();
}

QPainterPath stroked(const QPainterPath& path, qreal width, Qt::PenCapStyle cap, Qt::PenJoinStyle join)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(cap);
    stroker.setJoinStyle(join);
    return stroker.createStroke(path).simplified();
}

QPainterPath rounded(const QPainterPath& path, qreal amount)
{
    return path.united(stroked(path, amount, Qt::RoundCap, Qt::RoundJoin)).simplified();
}

void plate(QPainter& p, const QRectF& rect, qreal radius, State state, Tone tone)
{
    const bool pressed = state == State::Pressed;
    QPainterPath body;
    body.addRoundedRect(rect, radius, radius);

    glow(p, body.translated(0, pressed ? 1 : 2.5), QColor(0, 0, 0, pressed ? 140 : 190), pressed ? 3 : 5);
    if (pressed)
        glow(p, body, QColor(255, 123, 2, 120), 6);

    QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
    if (tone == Tone::Accent && !pressed) {
        fill.setColorAt(0, QColor(36, 92, 220));
        fill.setColorAt(0.5, QColor(18, 54, 168));
        fill.setColorAt(1, QColor(10, 30, 104));
    } else if (tone == Tone::Accent) {
        fill.setColorAt(0, QColor(6, 14, 48));
        fill.setColorAt(1, QColor(14, 32, 92));
    } else if (!pressed) {
        fill.setColorAt(0, QColor(50, 58, 72));
        fill.setColorAt(0.5, QColor(28, 33, 43));
        fill.setColorAt(1, QColor(17, 20, 27));
    } else {
        fill.setColorAt(0, QColor(14, 16, 21));
        fill.setColorAt(1, QColor(34, 30, 30));
    }
    p.fillPath(body, fill);

    p.save();
    p.setClipPath(body);
    if (pressed) {
        // Warm light rising from the lower edge, as if lit from below.
        QRadialGradient warm(QPointF(rect.center().x(), rect.bottom() + rect.height() * 0.15),
                             std::max(rect.width(), rect.height()) * 0.75);
        // Weaker on blue plates, where orange would turn the body purple.
        const int warmth = tone == Tone::Accent ? 40 : 120;
        warm.setColorAt(0, QColor(255, 123, 2, warmth));
        warm.setColorAt(0.6, QColor(255, 123, 2, warmth / 4));
        warm.setColorAt(1, QColor(255, 123, 2, 0));
        p.fillRect(rect, warm);
    }
    const QRectF sheenRect(rect.left(), rect.top(), rect.width(), rect.height() * 0.5);
    QLinearGradient sheen(sheenRect.topLeft(), sheenRect.bottomLeft());
    sheen.setColorAt(0, QColor(255, 255, 255, pressed ? 14 : 44));
    sheen.setColorAt(1, QColor(255, 255, 255, pressed ? 0 : 8));
    QPainterPath sheenPath;
    sheenPath.addRoundedRect(sheenRect.adjusted(1, 1, -1, 0), radius - 1, radius - 1);
    p.fillPath(sheenPath, sheen);
    p.restore();

    QLinearGradient rim(rect.topLeft(), rect.bottomLeft());
    if (pressed) {
        rim.setColorAt(0, QColor(255, 150, 50, 150));
        rim.setColorAt(1, QColor(255, 123, 2, 255));
    } else if (tone == Tone::Accent) {
        rim.setColorAt(0, QColor(120, 230, 255, 190));
        rim.setColorAt(1, QColor(0, 20, 80, 220));
    } else {
        rim.setColorAt(0, QColor(255, 255, 255, 84));
        rim.setColorAt(0.5, QColor(255, 255, 255, 22));
        rim.setColorAt(1, QColor(0, 0, 0, 140));
    }
    p.setPen(QPen(QBrush(rim), 1.2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(rect.adjusted(0.6, 0.6, -0.6, -0.6), radius - 0.6, radius - 0.6);
}

void well(QPainter& p, const QRectF& rect, qreal radius)
{
    QPainterPath body;
    body.addRoundedRect(rect, radius, radius);
    QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
    fill.setColorAt(0, QColor(2, 3, 6, 235));
    fill.setColorAt(1, QColor(10, 13, 19, 235));
    p.fillPath(body, fill);

    // Inner shadow along the upper edge: the well is sunk into the panel.
    p.save();
    p.setClipPath(body);
    QPainterPath outside;
    outside.addRect(rect.adjusted(-20, -20, 20, 20));
    outside = outside.subtracted(body);
    glow(p, outside.translated(0, 3), QColor(0, 0, 0, 230), 6);
    p.restore();

    QLinearGradient rim(rect.topLeft(), rect.bottomLeft());
    rim.setColorAt(0, QColor(0, 0, 0, 160));
    rim.setColorAt(1, QColor(255, 255, 255, 46));
    p.setPen(QPen(QBrush(rim), 1.2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(rect.adjusted(0.6, 0.6, -0.6, -0.6), radius - 0.6, radius - 0.6);
}

void panel(QPainter& p, const QRectF& rect, qreal radius, int opacity)
{
    QPainterPath body;
    body.addRoundedRect(rect, radius, radius);
    QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
    fill.setColorAt(0, QColor(24, 31, 43, opacity));
    fill.setColorAt(1, QColor(8, 11, 16, opacity));
    p.fillPath(body, fill);

    // Soft sheen over the upper part of the glass, without a visible edge.
    const qreal sheenHeight = std::min(rect.height() * 0.4, 160.0);
    QLinearGradient sheen(rect.topLeft(), QPointF(rect.left(), rect.top() + sheenHeight));
    sheen.setColorAt(0, QColor(255, 255, 255, 18));
    sheen.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillPath(body, sheen);

    QLinearGradient rim(rect.topLeft(), rect.bottomLeft());
    rim.setColorAt(0, QColor(255, 255, 255, 58));
    rim.setColorAt(0.3, QColor(255, 255, 255, 20));
    rim.setColorAt(1, QColor(255, 255, 255, 10));
    p.setPen(QPen(QBrush(rim), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

void icon(QPainter& p, const QPainterPath& shape, State state)
{
    const QRectF box = shape.boundingRect();
    if (state == State::Pressed) {
        glow(p, shape, QColor(255, 123, 2, 230), 8);
        QLinearGradient fill(box.topLeft(), box.bottomLeft());
        fill.setColorAt(0, QColor(255, 190, 110));
        fill.setColorAt(1, orange());
        p.fillPath(shape, fill);
        return;
    }
    glow(p, shape.translated(0, 1.5), QColor(0, 0, 0, 200), 3);
    QLinearGradient fill(box.topLeft(), box.bottomLeft());
    fill.setColorAt(0, QColor(248, 251, 255));
    fill.setColorAt(1, QColor(176, 190, 208));
    p.fillPath(shape, fill);
}

void hairline(QPainter& p, qreal x1, qreal x2, qreal y, const QColor& colour)
{
    QLinearGradient line(QPointF(x1, y), QPointF(x2, y));
    QColor clear = colour;
    clear.setAlpha(0);
    line.setColorAt(0, clear);
    line.setColorAt(0.5, colour);
    line.setColorAt(1, clear);
    p.fillRect(QRectF(x1, y, x2 - x1, 1), line);
}

} // namespace ArtworkStyle
