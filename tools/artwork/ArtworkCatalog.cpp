#include "ArtworkCatalog.h"

#include "ArtworkIcons.h"
#include "ArtworkPanels.h"

#include <QPainter>

namespace ArtworkCatalog {

namespace {

using ArtworkStyle::State;
using ArtworkStyle::Tone;
using namespace ArtworkPanels;

const QString kPlugin = QStringLiteral("plugin/resources/radioimages/");
const QString kHost = QStringLiteral("host/resources/");

const QSize kTool(72, 69);
const QSize kStep(53, 52);
const QSize kKey(185, 111);

struct Variant {
    const char* suffix;
    State state;
};
const Variant kVariants[] = {{"-N", State::Normal}, {"-P", State::Pressed}};

} // namespace

QVector<Entry> entries()
{
    QVector<Entry> list;
    auto add = [&](const QString& file, QSize size, std::function<void(QPainter&, const QSize&)> paint,
                   const char* format = "PNG", int quality = 0) {
        list.append({file, size, std::move(paint), format, quality});
    };

    // Main screen
    add(kPlugin + "FM-P.png", {299, 69}, [](QPainter& p, const QSize& s) { bandSwitch(p, s, false); });
    add(kPlugin + "AM-P.png", {299, 69}, [](QPainter& p, const QSize& s) { bandSwitch(p, s, true); });
    add(kPlugin + "FM-AM-BG.png", {299, 69}, bandTrack);

    const struct {
        const char* name;
        QPainterPath (*glyph)(const QRectF&);
        qreal height;
    } tools[] = {
        {"scan", ArtworkIcons::scan, 34},
        {"EQ", ArtworkIcons::equaliser, 32},
        {"keypad", ArtworkIcons::keypad, 34},
        {"setting", ArtworkIcons::gear, 34},
    };
    for (const auto& tool : tools) {
        for (const Variant& v : kVariants) {
            const auto glyph = tool.glyph;
            const qreal height = tool.height;
            const State state = v.state;
            add(kPlugin + tool.name + v.suffix + ".png", kTool, [=](QPainter& p, const QSize& s) {
                toolButton(p, s, state, glyph, height);
            });
        }
    }

    const struct {
        const char* name;
        QSize size;
        bool seek;
        bool forward;
    } arrows[] = {
        {"prev", kTool, true, false},
        {"next", kTool, true, true},
        {"left", kStep, false, false},
        {"right", kStep, false, true},
    };
    for (const auto& arrow : arrows) {
        for (const Variant& v : kVariants) {
            const bool seek = arrow.seek;
            const bool forward = arrow.forward;
            const State state = v.state;
            add(kPlugin + arrow.name + v.suffix + ".png", arrow.size, [=](QPainter& p, const QSize& s) {
                const QPointF c(s.width() / 2.0 + (forward ? 1 : -1), s.height() / 2.0 - 1);
                const QPainterPath glyph = seek
                    ? ArtworkIcons::seek(QRectF(c.x() - 15, c.y() - 11, 30, 22), forward)
                    : ArtworkIcons::chevron(QRectF(c.x() - 9, c.y() - 12, 18, 24), forward);
                roundButton(p, s, state, glyph);
            });
        }
    }

    for (const Variant& v : kVariants) {
        const State state = v.state;
        add(kPlugin + "preset" + v.suffix + ".png", {353, 95},
            [=](QPainter& p, const QSize& s) { presetPlate(p, s, state); });
    }
    add(kPlugin + "presetbg.png", {404, 614}, presetColumn);
    add(kPlugin + "freqbarbg.png", {813, 149}, frequencyBar);
    add(kPlugin + "pointer.png", {6, 121}, pointer);

    // Keypad
    add(kPlugin + "keypadbg.png", {672, 618}, keypadPanel);
    for (int digit = 0; digit <= 9; ++digit) {
        // The right column is one pixel wider for the nine key.
        const QSize size(digit == 9 ? 186 : 185, 111);
        for (const Variant& v : kVariants) {
            const State state = v.state;
            const QString text = QString::number(digit);
            add(kPlugin + "keypad/" + text + v.suffix + ".png", size,
                [=](QPainter& p, const QSize& s) { digitKey(p, s, state, text); });
        }
    }
    // OK and BACK carry their captions as widget text, so the plates are bare.
    for (const Variant& v : kVariants) {
        const State state = v.state;
        add(kPlugin + "keypad/OK" + v.suffix + ".png", kKey,
            [=](QPainter& p, const QSize& s) { plainKey(p, s, state, Tone::Accent); });
        add(kPlugin + "keypad/BACK" + v.suffix + ".png", kKey,
            [=](QPainter& p, const QSize& s) { plainKey(p, s, state, Tone::Neutral); });
        add(kPlugin + "keypad/backspace" + v.suffix + ".png", {97, 98},
            [=](QPainter& p, const QSize& s) { backspaceKey(p, s, state); });
    }
    add(kPlugin + "keypad/input.png", {626, 88}, inputWell);

    // Settings page. The background is the one image the collection keeps
    // zlib-compressed; stored without deflate here, rcc's compression pays.
    add(kPlugin + "setupbg.png", {606, 720}, settingsBackground, "PNG", 100);
    add(kPlugin + "setupimages/Btn.png", {546, 77}, settingsRow);
    for (const Variant& v : kVariants) {
        const State state = v.state;
        add(kPlugin + "setupimages/BACK" + v.suffix + ".png", {146, 100},
            [=](QPainter& p, const QSize& s) { settingsBack(p, s, state); });
    }

    // Host images that the screen loads from the host's own collection.
    add(kHost + "radioimages/BK.png", {1280, 720}, screenBackground);
    for (const Variant& v : kVariants) {
        const State state = v.state;
        add(kHost + "radioimages2/VELMAR_1024_600/Key" + QString(v.suffix).replace('-', '_') + ".png", {141, 81},
            [=](QPainter& p, const QSize& s) { bandKey(p, s, state); });
    }
    add(kHost + "images/wallpaper/default.jpg", {1280, 720}, wallpaper, "JPG", 90);
    add(kHost + "images/closeScreen.png", {90, 66}, closeScreen);
    add(kHost + "radioimages/01_radio", {128, 128}, radioIcon);
    return list;
}

} // namespace ArtworkCatalog
