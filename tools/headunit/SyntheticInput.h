#ifndef SYNTHETICINPUT_H
#define SYNTHETICINPUT_H

#include <QPoint>
#include <QString>

class QWidget;

// Touches made by software: left-button mouse events, as a finger on the
// head unit's touch screen produces them.
class SyntheticInput
{
public:
    // The widget named `name` under root (root itself included): the first
    // visible one, else the first one found; null when there is none.
    static QWidget* findWidget(QWidget* root, const QString& name);

    // Press and release at the widget's centre, sent to the widget itself.
    static void click(QWidget* widget);
    // Press, keep the button down for holdMs with the event loop running,
    // then release.
    static void longPress(QWidget* widget, int holdMs);
    // How long longPress() holds a widget: past its long-press threshold.
    static int longPressHold(QWidget* widget);

    // Press and release at a point of the window's client area, delivered
    // through the window like a pointer device's events: the widget under
    // the point receives them. Returns false when the window has no native
    // window yet or the point is outside it.
    static bool tap(QWidget* window, const QPoint& pos, int holdMs = 0);

private:
    static void send(QWidget* widget, int type, const QPoint& pos);
};

#endif
