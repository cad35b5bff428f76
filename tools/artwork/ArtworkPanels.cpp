#include "ArtworkPanels.h"

#include "ArtworkIcons.h"

#include <QFontMetricsF>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace ArtworkPanels {

using namespace ArtworkStyle;

namespace {

QColor withAlpha(QColor c, int alpha)
{
    c.setAlpha(alpha);
    return c;
}

// Text as a shape centred on a point, so that it can be lit like an icon.
QPainterPath textShape(const QString& text, const QFont& f, QPointF centre)
{
    QPainterPath path;
    path.addText(0, 0, f, text);
    const QRectF box = path.boundingRect();
    return path.translated(centre - box.center());
}

// Horizontal light line with a soft halo, as on the edges of lit glass.
void lightLine(QPainter& p, qreal x1, qreal x2, qreal y, const QColor& colour, int halo)
{
    QPainterPath line;
    line.addRect(QRectF(x1, y - 1, x2 - x1, 2));
    QLinearGradient fade(QPointF(x1, y), QPointF(x2, y));
    fade.setColorAt(0, withAlpha(colour, 0));
    fade.setColorAt(0.5, colour);
    fade.setColorAt(1, withAlpha(colour, 0));
    glow(p, line, withAlpha(colour, colour.alpha() / 2), halo);
    p.fillPath(line, fade);
}

// Vertical counterpart of lightLine.
void lightColumn(QPainter& p, qreal x, qreal y1, qreal y2, const QColor& colour, int halo)
{
    QPainterPath line;
    line.addRect(QRectF(x - 1, y1, 2, y2 - y1));
    QLinearGradient fade(QPointF(x, y1), QPointF(x, y2));
    fade.setColorAt(0, withAlpha(colour, 0));
    fade.setColorAt(0.5, colour);
    fade.setColorAt(1, withAlpha(colour, 0));
    glow(p, line, withAlpha(colour, colour.alpha() / 2), halo);
    p.fillPath(line, fade);
}

void vignette(QPainter& p, const QSize& size, int strength)
{
    const QPointF c(size.width() / 2.0, size.height() / 2.0);
    QRadialGradient shade(c, std::hypot(c.x(), c.y()));
    shade.setColorAt(0, QColor(0, 0, 0, 0));
    shade.setColorAt(0.6, QColor(0, 0, 0, 0));
    shade.setColorAt(1, QColor(0, 0, 0, strength));
    p.fillRect(QRect(QPoint(0, 0), size), shade);
}

} // namespace

void screenBackground(QPainter& p, const QSize& size)
{
    const QRectF all(QPointF(0, 0), size);
    QLinearGradient base(all.topLeft(), all.bottomLeft());
    base.setColorAt(0, QColor(16, 22, 33));
    base.setColorAt(0.55, QColor(9, 12, 19));
    base.setColorAt(1, QColor(4, 5, 9));
    p.fillRect(all, base);

    // Cool light behind the tuning area, a faint cyan rising from the lower right.
    QRadialGradient tuner(QPointF(860, 300), 640);
    tuner.setColorAt(0, withAlpha(blue(), 58));
    tuner.setColorAt(1, withAlpha(blue(), 0));
    p.fillRect(all, tuner);
    QRadialGradient floor(QPointF(1180, 780), 540);
    floor.setColorAt(0, withAlpha(cyan(), 26));
    floor.setColorAt(1, withAlpha(cyan(), 0));
    p.fillRect(all, floor);

    // Two slanted reflections, as on the cover glass of the display.
    const struct { qreal x; qreal width; int alpha; } streaks[] = {{520, 170, 9}, {730, 54, 7}};
    for (const auto& s : streaks) {
        QPainterPath band;
        band.moveTo(s.x + 260, 0);
        band.lineTo(s.x + 260 + s.width, 0);
        band.lineTo(s.x + s.width, size.height());
        band.lineTo(s.x, size.height());
        band.closeSubpath();
        QLinearGradient fade(QPointF(0, 0), QPointF(0, size.height()));
        fade.setColorAt(0, QColor(255, 255, 255, s.alpha));
        fade.setColorAt(1, QColor(255, 255, 255, 0));
        p.fillPath(band, fade);
    }

    // Edge of the host's system bar.
    hairline(p, 0, size.width(), 80, QColor(120, 200, 255, 60));

    // Dock behind the bottom row of buttons.
    const QRectF dock(462, 590, 786, 94);
    QPainterPath dockPath;
    dockPath.addRoundedRect(dock, 22, 22);
    QLinearGradient dockFill(dock.topLeft(), dock.bottomLeft());
    dockFill.setColorAt(0, QColor(255, 255, 255, 12));
    dockFill.setColorAt(1, QColor(255, 255, 255, 3));
    p.fillPath(dockPath, dockFill);
    p.setPen(QPen(QColor(255, 255, 255, 22), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(dock.adjusted(0.5, 0.5, -0.5, -0.5), 21.5, 21.5);
    hairline(p, dock.left() + 40, dock.right() - 40, dock.top(), withAlpha(cyan(), 70));

    vignette(p, size, 150);
}

void wallpaper(QPainter& p, const QSize& size)
{
    const QRectF all(QPointF(0, 0), size);
    QLinearGradient base(all.topLeft(), all.bottomRight());
    base.setColorAt(0, QColor(8, 16, 38));
    base.setColorAt(1, QColor(2, 4, 12));
    p.fillRect(all, base);
    QRadialGradient light(QPointF(880, 240), 720);
    light.setColorAt(0, withAlpha(blue(), 80));
    light.setColorAt(1, withAlpha(blue(), 0));
    p.fillRect(all, light);

    // A silk ribbon of fine curves, drawn once sharp and once blurred.
    QImage ribbon(size, QImage::Format_ARGB32_Premultiplied);
    ribbon.fill(Qt::transparent);
    {
        QPainter rp(&ribbon);
        rp.setRenderHint(QPainter::Antialiasing);
        const int strands = 48;
        for (int i = 0; i < strands; ++i) {
            const qreal t = qreal(i) / (strands - 1);
            QPainterPath curve(QPointF(-80, 600 - 60 * t));
            curve.cubicTo(QPointF(380, 250 + 150 * t), QPointF(860, 780 - 220 * t),
                          QPointF(1360, 290 + 110 * t));
            const QColor c(int(cyan().red() * (1 - t) + blue().red() * t),
                           int(cyan().green() * (1 - t) + blue().green() * t),
                           int(cyan().blue() * (1 - t) + blue().blue() * t),
                           int(28 + 50 * (1 - std::abs(t - 0.5) * 2)));
            rp.setPen(QPen(c, 1.3));
            rp.drawPath(curve);
        }
    }
    p.drawImage(0, 0, blurred(ribbon, 12));
    p.drawImage(0, 0, ribbon);
    vignette(p, size, 170);
}

void presetColumn(QPainter& p, const QSize& size)
{
    const QRectF body(0.5, 0.5, 391, size.height() - 1);
    panel(p, body, 18, 170);
    hairline(p, body.left() + 30, body.right() - 30, body.top() + 0.5, withAlpha(cyan(), 110));
    lightColumn(p, size.width() - 3, 40, size.height() - 40, withAlpha(cyan(), 90), 4);
}

void presetPlate(QPainter& p, const QSize& size, State state)
{
    const QRectF body(5, 5, size.width() - 10, size.height() - 10);
    plate(p, body, 14, state);
    // Slot marker on the left: cyan at rest, orange while pressed.
    QPainterPath marker;
    marker.addRoundedRect(QRectF(body.left() + 12, body.center().y() - 17, 4, 34), 2, 2);
    const QColor c = state == State::Pressed ? orange() : withAlpha(cyan(), 170);
    glow(p, marker, withAlpha(c, 150), 5);
    p.fillPath(marker, c);
}

void frequencyBar(QPainter& p, const QSize& size)
{
    // The top 36 rows stay clear: the AF/TP/TA/ST indicators show through.
    const QRectF body(1, 38, size.width() - 2, size.height() - 39);
    QPainterPath shadow;
    shadow.addRoundedRect(body.translated(0, 3), 18, 18);
    glow(p, shadow, QColor(0, 0, 0, 170), 6);
    panel(p, body, 18, 215);
    hairline(p, body.left() + 60, body.right() - 60, body.top() + 0.5, withAlpha(cyan(), 120));

    // Window of the tuning scale.
    const QRectF scale(76, 46, 672, 94);
    well(p, scale, 12);
    QLinearGradient floorLight(scale.bottomLeft(), scale.topLeft());
    floorLight.setColorAt(0, withAlpha(blue(), 50));
    floorLight.setColorAt(0.45, withAlpha(blue(), 0));
    QPainterPath inner;
    inner.addRoundedRect(scale.adjusted(1, 1, -1, -1), 11, 11);
    p.fillPath(inner, floorLight);
    hairline(p, scale.left() + 20, scale.right() - 20, scale.bottom() - 2, withAlpha(cyan(), 110));
}

void pointer(QPainter& p, const QSize& size)
{
    const qreal w = size.width();
    const qreal h = size.height();
    QLinearGradient halo(QPointF(0, 0), QPointF(w, 0));
    halo.setColorAt(0, QColor(255, 60, 20, 0));
    halo.setColorAt(0.5, QColor(255, 70, 20, 150));
    halo.setColorAt(1, QColor(255, 60, 20, 0));
    p.fillRect(QRectF(0, 0, w, h), halo);

    QLinearGradient core(QPointF(0, 0), QPointF(0, h));
    core.setColorAt(0, QColor(255, 220, 170));
    core.setColorAt(0.15, QColor(255, 110, 40));
    core.setColorAt(0.85, QColor(255, 60, 24));
    core.setColorAt(1, QColor(255, 150, 90));
    p.fillRect(QRectF(w / 2 - 1, 1, 2, h - 2), core);

    // Fade both tips so the needle ends softly.
    QLinearGradient tips(QPointF(0, 0), QPointF(0, h));
    tips.setColorAt(0, QColor(0, 0, 0, 40));
    tips.setColorAt(0.06, QColor(0, 0, 0, 255));
    tips.setColorAt(0.94, QColor(0, 0, 0, 255));
    tips.setColorAt(1, QColor(0, 0, 0, 40));
    p.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    p.fillRect(QRectF(0, 0, w, h), tips);
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void bandTrack(QPainter& p, const QSize& size)
{
    const QRectF track(2, 3, size.width() - 4, size.height() - 6);
    well(p, track, 15);
    const qreal mid = size.width() / 2.0;
    QLinearGradient divider(QPointF(mid, track.top()), QPointF(mid, track.bottom()));
    divider.setColorAt(0, QColor(255, 255, 255, 0));
    divider.setColorAt(0.5, QColor(255, 255, 255, 48));
    divider.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillRect(QRectF(mid - 0.5, track.top() + 8, 1, track.height() - 16), divider);
}

void bandSwitch(QPainter& p, const QSize& size, bool amSelected)
{
    bandTrack(p, size);
    const qreal half = size.width() / 2.0;
    const QRectF segment = amSelected ? QRectF(half + 2, 7, half - 8, size.height() - 14)
                                      : QRectF(6, 7, half - 8, size.height() - 14);
    plate(p, segment, 12, State::Normal, Tone::Accent);
    lightLine(p, segment.left() + 14, segment.right() - 14, segment.bottom() - 3, cyan(), 4);
}

void bandKey(QPainter& p, const QSize& size, State state)
{
    // At rest the key is clear: the band switch underneath shows the band.
    if (state == State::Normal)
        return;
    // Both keys sit 9 rows above the switch and cover one half of it each.
    const QRectF area(2, 16, size.width() - 4, 55);
    QPainterPath shape;
    shape.addRoundedRect(area, 12, 12);
    glow(p, shape, withAlpha(orange(), 130), 6);
    QRadialGradient fill(QPointF(area.center().x(), area.bottom()), area.width() * 0.7);
    fill.setColorAt(0, withAlpha(orange(), 150));
    fill.setColorAt(1, withAlpha(orange(), 40));
    p.fillPath(shape, fill);
    p.setPen(QPen(withAlpha(orange(), 235), 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(area.adjusted(0.75, 0.75, -0.75, -0.75), 11, 11);
}

void toolButton(QPainter& p, const QSize& size, State state,
                QPainterPath (*glyph)(const QRectF&), qreal glyphHeight)
{
    const QRectF body(5, 4, size.width() - 10, size.height() - 10);
    plate(p, body, 14, state);
    const QRectF box(body.center().x() - 20, body.center().y() - glyphHeight / 2, 40, glyphHeight);
    icon(p, glyph(box), state);
}

void roundButton(QPainter& p, const QSize& size, State state, const QPainterPath& glyph)
{
    const qreal d = std::min(size.width(), size.height()) - 11;
    const QRectF body(size.width() / 2.0 - d / 2, size.height() / 2.0 - d / 2 - 1, d, d);
    plate(p, body, d / 2, state);
    icon(p, glyph, state);
}

void closeScreen(QPainter& p, const QSize& size)
{
    const QRectF body(5, 4, size.width() - 10, size.height() - 10);
    plate(p, body, 14, State::Normal);
    icon(p, ArtworkIcons::screenOff(QRectF(body.center().x() - 22, body.center().y() - 17, 44, 34)),
         State::Normal);
}

void radioIcon(QPainter& p, const QSize& size)
{
    const QRectF tile(6, 5, size.width() - 12, size.height() - 12);
    QPainterPath shape;
    shape.addRoundedRect(tile, 28, 28);
    glow(p, shape.translated(0, 3), QColor(0, 0, 0, 170), 5);
    QLinearGradient fill(tile.topLeft(), tile.bottomRight());
    fill.setColorAt(0, QColor(30, 96, 240));
    fill.setColorAt(0.55, QColor(14, 44, 150));
    fill.setColorAt(1, QColor(6, 16, 60));
    p.fillPath(shape, fill);
    p.save();
    p.setClipPath(shape);
    QRadialGradient shine(QPointF(tile.left() + tile.width() * 0.3, tile.top()), tile.width() * 0.9);
    shine.setColorAt(0, QColor(255, 255, 255, 60));
    shine.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillRect(tile, shine);
    p.restore();
    p.setPen(QPen(withAlpha(cyan(), 150), 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(tile.adjusted(0.75, 0.75, -0.75, -0.75), 27, 27);

    const QPainterPath glyph = ArtworkIcons::radio(tile.adjusted(20, 18, -20, -22));
    glow(p, glyph, withAlpha(cyan(), 170), 7);
    QLinearGradient ink(glyph.boundingRect().topLeft(), glyph.boundingRect().bottomLeft());
    ink.setColorAt(0, Qt::white);
    ink.setColorAt(1, QColor(190, 240, 255));
    p.fillPath(glyph, ink);
}

void keypadPanel(QPainter& p, const QSize& size)
{
    // The label showing this image is 7 rows shorter, cutting 3 at the top.
    const QRectF body(1, 5, size.width() - 2, size.height() - 11);
    panel(p, body, 24, 238);
    hairline(p, body.left() + 50, body.right() - 50, body.top() + 0.5, withAlpha(cyan(), 120));
    p.save();
    p.translate(23, 16);
    inputWell(p, QSize(626, 88));
    p.restore();
    hairline(p, body.left() + 30, body.right() - 30, 114, QColor(255, 255, 255, 34));
}

void inputWell(QPainter& p, const QSize& size)
{
    const QRectF body(1, 1, size.width() - 2, size.height() - 2);
    well(p, body, 14);
    lightLine(p, body.left() + 24, body.right() - 24, body.bottom() - 3, withAlpha(cyan(), 200), 4);
}

void digitKey(QPainter& p, const QSize& size, State state, const QString& digit)
{
    const QRectF body(5, 5, size.width() - 10, size.height() - 10);
    plate(p, body, 16, state);
    icon(p, textShape(digit, font(54, QFont::Light), body.center()), state);
}

void plainKey(QPainter& p, const QSize& size, State state, Tone tone)
{
    plate(p, QRectF(5, 5, size.width() - 10, size.height() - 10), 16, state, tone);
}

void backspaceKey(QPainter& p, const QSize& size, State state)
{
    const QPointF c(size.width() / 2.0, size.height() / 2.0);
    if (state == State::Pressed) {
        QRadialGradient halo(c, 44);
        halo.setColorAt(0, withAlpha(orange(), 90));
        halo.setColorAt(1, withAlpha(orange(), 0));
        p.fillRect(QRectF(QPointF(0, 0), size), halo);
    }
    icon(p, ArtworkIcons::backspace(QRectF(c.x() - 30, c.y() - 21, 60, 42)), state);
}

void settingsBackground(QPainter& p, const QSize& size)
{
    const QRectF all(QPointF(0, 0), size);
    QLinearGradient base(all.topLeft(), all.bottomLeft());
    base.setColorAt(0, QColor(19, 25, 36));
    base.setColorAt(1, QColor(6, 8, 12));
    p.fillRect(all, base);
    QRadialGradient light(QPointF(size.width() - 40, 0), 460);
    light.setColorAt(0, withAlpha(blue(), 46));
    light.setColorAt(1, withAlpha(blue(), 0));
    p.fillRect(all, light);

    // Opaque: the page covers the preset column. It is placed 150 pixels to
    // the left, so its visible edge is there.
    lightColumn(p, 151, 0, size.height(), withAlpha(cyan(), 170), 6);
    hairline(p, 170, size.width() - 10, 88, QColor(255, 255, 255, 40));
    hairline(p, 170, size.width() - 10, 580, QColor(255, 255, 255, 28));
}

void settingsRow(QPainter& p, const QSize& size)
{
    // Rows are shown through 400-pixel labels; the plate ends there.
    const QRectF body(1, 3, 398, size.height() - 6);
    QPainterPath shape;
    shape.addRoundedRect(body, 14, 14);
    glow(p, shape.translated(0, 2), QColor(0, 0, 0, 150), 4);
    QLinearGradient fill(body.topLeft(), body.bottomLeft());
    fill.setColorAt(0, QColor(44, 53, 68, 235));
    fill.setColorAt(1, QColor(24, 29, 38, 235));
    p.fillPath(shape, fill);
    QLinearGradient rim(body.topLeft(), body.bottomLeft());
    rim.setColorAt(0, QColor(255, 255, 255, 60));
    rim.setColorAt(1, QColor(255, 255, 255, 10));
    p.setPen(QPen(QBrush(rim), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), 13.5, 13.5);
}

void settingsBack(QPainter& p, const QSize& size, State state)
{
    const QRectF body(6, 8, size.width() - 12, size.height() - 18);
    plate(p, body, 16, state);
    const QFont f = font(21, QFont::Bold);
    const qreal textWidth = QFontMetricsF(f).horizontalAdvance(QStringLiteral("BACK"));
    const qreal arrowWidth = 34;
    const qreal gap = 10;
    const qreal left = body.center().x() - (arrowWidth + gap + textWidth) / 2;
    QPainterPath shape = ArtworkIcons::back(QRectF(left, body.center().y() - 13, arrowWidth, 26));
    shape.addPath(textShape(QStringLiteral("BACK"), f,
                            QPointF(left + arrowWidth + gap + textWidth / 2, body.center().y())));
    icon(p, shape, state);
}

} // namespace ArtworkPanels
