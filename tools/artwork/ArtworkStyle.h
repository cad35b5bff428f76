#ifndef RADIO_ARTWORK_ARTWORKSTYLE_H
#define RADIO_ARTWORK_ARTWORKSTYLE_H

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QRectF>

class QImage;
class QPainter;

// Colours and drawing primitives shared by every image, so that plates,
// glows and icons look alike across the main screen, keypad and settings.
namespace ArtworkStyle {

enum class State { Normal, Pressed };
enum class Tone { Neutral, Accent };

QColor cyan();
QColor blue();
QColor orange();
// Light blue-grey of icons and digits at rest.
QColor ink();

// DejaVu Sans at a pixel size, unhinted: the same glyphs on every machine.
QFont font(int pixelSize, QFont::Weight weight = QFont::Normal);

// Three box passes, close to a Gaussian of the given radius.
QImage blurred(const QImage& image, int radius);

// Soft light (or shadow) of the path's shape, drawn under the caller's
// transform on the painter's whole device.
void glow(QPainter& p, const QPainterPath& path, const QColor& colour, int radius);

// Outline of a stroked path, for icons that are drawn as lines.
QPainterPath stroked(const QPainterPath& path, qreal width,
                     Qt::PenCapStyle cap = Qt::RoundCap,
                     Qt::PenJoinStyle join = Qt::RoundJoin);
// The polygon with its corners rounded by the given amount.
QPainterPath rounded(const QPainterPath& path, qreal amount);

// A raised button plate: drop shadow, body gradient, glass sheen, rim.
// Pressed plates sink and take an orange rim light.
void plate(QPainter& p, const QRectF& rect, qreal radius, State state, Tone tone = Tone::Neutral);
// A recessed well, as behind displays and switches.
void well(QPainter& p, const QRectF& rect, qreal radius);
// A translucent dark glass panel with a thin rim.
void panel(QPainter& p, const QRectF& rect, qreal radius, int opacity);
// A glyph filled in ink at rest, orange with a glow when pressed.
void icon(QPainter& p, const QPainterPath& shape, State state);
// A horizontal hairline that fades out towards both ends.
void hairline(QPainter& p, qreal x1, qreal x2, qreal y, const QColor& colour);

} // namespace ArtworkStyle

#endif
