#include "ArtworkIcons.h"

#include "ArtworkStyle.h"

#include <QPolygonF>
#include <QTransform>
#include <QtMath>

#include <algorithm>

using ArtworkStyle::rounded;
using ArtworkStyle::stroked;

namespace ArtworkIcons {

namespace {

// Maps a glyph drawn in a design frame of w x h units into the box, centred
// and scaled uniformly; mirror flips it left to right.
QPainterPath fit(const QPainterPath& design, qreal w, qreal h, const QRectF& box, bool mirror = false)
{
    const qreal scale = std::min(box.width() / w, box.height() / h);
    QTransform t;
    t.translate(box.center().x(), box.center().y());
    t.scale(mirror ? -scale : scale, scale);
    t.translate(-w / 2, -h / 2);
    return t.map(design);
}

QPainterPath polygon(std::initializer_list<QPointF> points, bool closed = true)
{
    QPainterPath path;
    const QPolygonF poly(points);
    path.addPolygon(poly);
    if (closed)
        path.closeSubpath();
    return path;
}

QPainterPath line(QPointF a, QPointF b)
{
    QPainterPath path(a);
    path.lineTo(b);
    return path;
}

QPainterPath circle(QPointF centre, qreal r)
{
    QPainterPath path;
    path.addEllipse(centre, r, r);
    return path;
}

QPointF onCircle(QPointF centre, qreal r, qreal degrees)
{
    const qreal a = qDegreesToRadians(degrees);
    return QPointF(centre.x() + r * qCos(a), centre.y() - r * qSin(a));
}

} // namespace

QPainterPath seek(const QRectF& box, bool forward)
{
    QPainterPath shape = rounded(polygon({{6, 8}, {46, 35}, {6, 62}}), 8);
    shape = shape.united(rounded(polygon({{44, 8}, {84, 35}, {44, 62}}), 8));
    QPainterPath bar;
    bar.addRoundedRect(QRectF(86, 4, 11, 62), 4, 4);
    return fit(shape.united(bar).simplified(), 100, 70, box, !forward);
}

QPainterPath chevron(const QRectF& box, bool right)
{
    const QPainterPath path = polygon({{18, 10}, {46, 50}, {18, 90}}, false);
    return fit(stroked(path, 13), 64, 100, box, !right);
}

QPainterPath scan(const QRectF& box)
{
    const QPointF c(50, 50);
    const qreal r = 38;
    const QRectF ring(c.x() - r, c.y() - r, 2 * r, 2 * r);
    const qreal start = 75;
    const qreal sweep = 285;
    QPainterPath arc;
    arc.arcMoveTo(ring, start);
    arc.arcTo(ring, start, sweep);
    QPainterPath shape = stroked(arc, 8.5, Qt::FlatCap);

    // Arrow head at the end of the arc, pointing along its direction.
    const qreal end = start + sweep;
    const QPointF tip = onCircle(c, r, end);
    const qreal a = qDegreesToRadians(end);
    const QPointF along(-qSin(a), -qCos(a));
    const QPointF out(qCos(a), -qSin(a));
    shape = shape.united(rounded(polygon({tip + along * 15, tip + out * 13, tip - out * 13}), 3));

    shape = shape.united(circle(c, 7.5));
    const QRectF wave(c.x() - 19, c.y() - 19, 38, 38);
    QPainterPath waves;
    waves.arcMoveTo(wave, -42);
    waves.arcTo(wave, -42, 84);
    waves.arcMoveTo(wave, 138);
    waves.arcTo(wave, 138, 84);
    shape = shape.united(stroked(waves, 6));
    return fit(shape.simplified(), 100, 100, box);
}

QPainterPath equaliser(const QRectF& box)
{
    QPainterPath shape;
    const qreal xs[] = {18, 50, 82};
    const qreal knobs[] = {62, 28, 50};
    for (int i = 0; i < 3; ++i) {
        shape = shape.united(stroked(line({xs[i], 8}, {xs[i], 92}), 6));
        QPainterPath knob;
        knob.addRoundedRect(QRectF(xs[i] - 12, knobs[i] - 8, 24, 16), 5, 5);
        shape = shape.united(knob);
    }
    return fit(shape.simplified(), 100, 100, box);
}

QPainterPath keypad(const QRectF& box)
{
    QPainterPath shape;
    auto key = [&](int col, int row) {
        shape.addRoundedRect(QRectF(col * 27, row * 27, 18, 18), 5, 5);
    };
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col)
            key(col, row);
    }
    key(1, 3);
    return fit(shape, 72, 99, box);
}

QPainterPath gear(const QRectF& box)
{
    const QPointF c(50, 50);
    const qreal outer = 46;
    const qreal root = 35;
    QPolygonF teeth;
    for (int i = 0; i < 8; ++i) {
        const qreal a = i * 45.0;
        teeth << onCircle(c, root, a - 15) << onCircle(c, outer, a - 9)
              << onCircle(c, outer, a + 9) << onCircle(c, root, a + 15);
    }
    QPainterPath wheel;
    wheel.addPolygon(teeth);
    wheel.closeSubpath();
    wheel = rounded(wheel, 4).united(circle(c, root + 1));
    return fit(wheel.subtracted(circle(c, 15)).simplified(), 100, 100, box);
}

QPainterPath backspace(const QRectF& box)
{
    QPainterPath shape = stroked(polygon({{5, 35}, {31, 6}, {95, 6}, {95, 64}, {31, 64}}), 7);
    shape = shape.united(stroked(line({50, 22}, {74, 48}), 7));
    shape = shape.united(stroked(line({74, 22}, {50, 48}), 7));
    return fit(shape.simplified(), 100, 70, box);
}

QPainterPath back(const QRectF& box)
{
    QPainterPath path(QPointF(18, 24));
    path.lineTo(58, 24);
    path.arcTo(QRectF(36, 24, 44, 44), 90, -180);
    path.lineTo(30, 68);
    QPainterPath shape = stroked(path, 11);
    shape = shape.united(stroked(polygon({{36, 6}, {16, 24}, {36, 42}}, false), 11));
    return fit(shape.simplified(), 100, 76, box);
}

QPainterPath screenOff(const QRectF& box)
{
    QPainterPath frame;
    frame.addRoundedRect(QRectF(6, 4, 88, 56), 7, 7);
    QPainterPath shape = stroked(frame, 6);
    shape = shape.united(stroked(line({50, 62}, {50, 72}), 6, Qt::FlatCap));
    shape = shape.united(stroked(line({32, 74}, {68, 74}), 6));
    const QRectF dial(36, 19, 28, 28);
    QPainterPath power;
    power.arcMoveTo(dial, 122);
    power.arcTo(dial, 122, 296);
    shape = shape.united(stroked(power, 5));
    shape = shape.united(stroked(line({50, 14}, {50, 31}), 5));
    return fit(shape.simplified(), 100, 78, box);
}

QPainterPath radio(const QRectF& box)
{
    QPainterPath body;
    body.addRoundedRect(QRectF(8, 38, 84, 54), 11, 11);
    QPainterPath shape = stroked(body, 6);
    shape = shape.united(stroked(circle({33, 65}, 14), 5));
    shape = shape.united(circle({33, 65}, 5));
    QPainterPath display;
    display.addRoundedRect(QRectF(56, 51, 26, 11), 3, 3);
    shape = shape.united(display);
    shape = shape.united(circle({61, 77}, 4.5));
    shape = shape.united(circle({77, 77}, 4.5));
    shape = shape.united(stroked(line({24, 38}, {72, 12}), 5));
    shape = shape.united(circle({74, 11}, 5));
    return fit(shape.simplified(), 100, 100, box);
}

} // namespace ArtworkIcons
