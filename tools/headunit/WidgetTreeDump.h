#ifndef WIDGETTREEDUMP_H
#define WIDGETTREEDUMP_H

#include <QJsonObject>
#include <QString>

class QWidget;

// JSON picture of a widget tree: for each widget its class, object name,
// geometry in the coordinates of `window`, visibility, enabled state,
// place in the stacking order among its siblings, the state a person sees
// (texts, button states, switch and scale values) and its child widgets.
// The format is described in tools/headunit/README.md.
class WidgetTreeDump
{
public:
    // The tree rooted at widget; positions relative to window.
    static QJsonObject widgetTree(QWidget* widget, QWidget* window);
    // Writes the document to a temporary file next to path and renames it
    // over path, so a reader never sees a half-written file.
    static bool writeFile(const QString& path, const QJsonObject& document, QString* error);
};

#endif
