#ifndef HVAPPFRAMEWORK_MODULE_H
#define HVAPPFRAMEWORK_MODULE_H

#include <QObject>
#include <QPointer>
#include <QString>

namespace hvappframework {

// A host module as the module manager lists it: a name and the object that
// implements it.
class Module : public QObject
{
    Q_OBJECT
public:
    explicit Module(const QString& name, QObject* impl = nullptr);
    ~Module() override;

    QString getName() const { return m_name; }
    virtual QObject* getModuleImpl() const;

private:
    QString m_name;
    QPointer<QObject> m_impl;
};

} // namespace hvappframework

#endif
