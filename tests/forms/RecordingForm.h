#ifndef RECORDINGFORM_H
#define RECORDINGFORM_H

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

// Form widget that notes its child widgets in the order they are attached,
// which is the creation order; raise() reorders children() afterwards, so
// the creation order cannot be read back from there.
class RecordingForm : public QWidget
{
public:
    explicit RecordingForm(QWidget* parent = nullptr);

    // Object names of the attached child widgets, in attachment order.
    QStringList creationOrder() const;
    // Object names of the direct child widgets in children() order, which
    // is the stacking order, lowest first.
    QStringList stackingOrder() const;

protected:
    void childEvent(QChildEvent* e) override;

private:
    QVector<QPointer<QObject>> m_added;
};

#endif
