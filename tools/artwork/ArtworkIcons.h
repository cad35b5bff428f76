#ifndef RADIO_ARTWORK_ARTWORKICONS_H
#define RADIO_ARTWORK_ARTWORKICONS_H

#include <QPainterPath>
#include <QRectF>

// Icon glyphs as fillable shapes, each fitted into the given box (centred,
// proportions kept), so the same glyph serves any button size.
namespace ArtworkIcons {

// Seek: two arrow heads and an end bar (forward points right).
QPainterPath seek(const QRectF& box, bool forward);
// Step: a single chevron.
QPainterPath chevron(const QRectF& box, bool right);
// Scan: a circling arrow around a broadcasting dot.
QPainterPath scan(const QRectF& box);
// Equaliser: three slider tracks with their knobs.
QPainterPath equaliser(const QRectF& box);
// Keypad: a dial pad of 3 x 4 keys.
QPainterPath keypad(const QRectF& box);
// Settings: a gear wheel.
QPainterPath gear(const QRectF& box);
// Backspace: an arrow-shaped key with a cross.
QPainterPath backspace(const QRectF& box);
// Back: a return arrow bending back to the left.
QPainterPath back(const QRectF& box);
// Screen off: a display with a power sign.
QPainterPath screenOff(const QRectF& box);
// Radio: a receiver with antenna and speaker grille.
QPainterPath radio(const QRectF& box);

} // namespace ArtworkIcons

#endif
