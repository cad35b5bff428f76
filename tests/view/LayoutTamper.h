#ifndef LAYOUTTAMPER_H
#define LAYOUTTAMPER_H

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>

class QWidget;

// Lets a test give a widget class a layout that lacks some named children
// or holds extra ones, although the class builds its layout and looks its
// children up inside its own constructor.
//
// While a tamper object lives it watches, application-wide, the children
// added to objects of the host class:
//  - a child that takes one of the withheld names gets "<name>_absent"
//    instead, so a look-up by that name finds nothing, as with a layout
//    that does not have the widget;
//  - the first time a host object gets a child, every registered extra is
//    created as a further child, as if the layout provided it.
class LayoutTamper : public QObject
{
    Q_OBJECT
public:
    using Factory = std::function<QWidget*(QWidget* host)>;

    explicit LayoutTamper(const char* hostClass);
    ~LayoutTamper() override;

    void withhold(const QString& objectName);
    void addExtra(Factory factory);

    static QString absentName(const QString& objectName);

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    QByteArray m_hostClass;
    QSet<QString> m_withheld;
    QVector<Factory> m_extras;
    QSet<QObject*> m_equipped;
    bool m_creating = false;
};

#endif
