#ifndef BASEVIEW_H
#define BASEVIEW_H

#include <QString>
#include <QWidget>

// Base of every full-screen view of the head unit: covers the system view
// rectangle and carries the view name.
class BaseView : public QWidget
{
    Q_OBJECT
public:
    BaseView(QString name, QWidget* parent = nullptr);
    ~BaseView() override;

    QString viewName() const { return m_name; }

private:
    QString m_name;
};

#endif
