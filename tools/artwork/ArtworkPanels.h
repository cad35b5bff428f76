#ifndef RADIO_ARTWORK_ARTWORKPANELS_H
#define RADIO_ARTWORK_ARTWORKPANELS_H

#include "ArtworkStyle.h"

#include <QPainterPath>
#include <QSize>
#include <QString>

class QPainter;

// One painter per kind of image. Each fills the whole canvas it is given;
// positions inside refer to where the widgets of the layouts sit on it.
namespace ArtworkPanels {

using ArtworkStyle::State;
using ArtworkStyle::Tone;

// Main screen
void screenBackground(QPainter& p, const QSize& size);
void wallpaper(QPainter& p, const QSize& size);
void presetColumn(QPainter& p, const QSize& size);
void presetPlate(QPainter& p, const QSize& size, State state);
void frequencyBar(QPainter& p, const QSize& size);
void pointer(QPainter& p, const QSize& size);
void bandTrack(QPainter& p, const QSize& size);
void bandSwitch(QPainter& p, const QSize& size, bool amSelected);
void bandKey(QPainter& p, const QSize& size, State state);
// A square bottom-row button with a glyph fitted to its centre.
void toolButton(QPainter& p, const QSize& size, State state,
                QPainterPath (*glyph)(const QRectF&), qreal glyphHeight);
// A round button with a glyph; seek and step keys.
void roundButton(QPainter& p, const QSize& size, State state, const QPainterPath& glyph);
void closeScreen(QPainter& p, const QSize& size);
void radioIcon(QPainter& p, const QSize& size);

// Keypad
void keypadPanel(QPainter& p, const QSize& size);
void inputWell(QPainter& p, const QSize& size);
void digitKey(QPainter& p, const QSize& size, State state, const QString& digit);
void plainKey(QPainter& p, const QSize& size, State state, Tone tone);
void backspaceKey(QPainter& p, const QSize& size, State state);

// Settings page
void settingsBackground(QPainter& p, const QSize& size);
void settingsRow(QPainter& p, const QSize& size);
void settingsBack(QPainter& p, const QSize& size, State state);

} // namespace ArtworkPanels

#endif
