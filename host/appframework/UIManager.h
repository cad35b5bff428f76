#ifndef HVAPPFRAMEWORK_UIMANAGER_H
#define HVAPPFRAMEWORK_UIMANAGER_H

#include <QRect>

class QWidget;

namespace hvappframework {

// Screen geometry and UI layers of the head unit.
class UIManager
{
public:
    // The whole screen: 0, 0, 1280, 720.
    static QRect getSystemViewRect();
    // The system bar: along the top edge, above the first row of the
    // radio screen (which starts at y = 84).
    static QRect getSystemBarRect();
    // Parent widget of a UI layer (1 = activities), null when the shell
    // has not set one up.
    static QWidget* getUIHerarchy(int layer);
    static void setUIHerarchy(int layer, QWidget* widget);
};

} // namespace hvappframework

#endif
