#ifndef HOSTSHORTCUTS_H
#define HOSTSHORTCUTS_H

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>

class HostInputs;
class QWidget;

// Keyboard shortcuts for the host inputs, active in the whole application
// (the radio screen included). Function keys and Ctrl combinations only,
// so no text a widget takes is stolen.
class HostShortcuts : public QObject
{
    Q_OBJECT
public:
    struct Binding
    {
        QKeySequence keys;
        QString description;
    };

    HostShortcuts(QWidget* window, HostInputs* inputs);

    // Every binding, in the order of the legend, described in the current
    // language.
    static QList<Binding> bindings();
};

#endif
