#ifndef FORMSUITE_H
#define FORMSUITE_H

#include "FormInspection.h"

#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

// The tests that every layout passes, as test slots that the suite of one
// layout inherits through FormSuiteFor<Ui>: the form's name and frame, each
// widget's class, geometry and Ui member, creation and stacking order, the
// label images, the image paths of the host widgets, and a render. The
// layout's suite supplies the expected values and adds its own tests.
class FormSuite : public QObject
{
    Q_OBJECT

public:
    struct Layout
    {
        QString formName;     // the name the layout gives an unnamed form
        QString givenName;    // a name the host sets before set-up, which stays
        QSize size;
        QStringList members;  // the Ui members, which are the children in creation order
        QStringList stacking; // the children in stacking order, lowest first
        int imagePaths;       // image paths that the host widgets hold
        QString renderFile;   // under $RADIO_TEST_OUTPUT
    };

protected:
    explicit FormSuite(Layout layout);

    virtual std::unique_ptr<FormInspection::BuiltForm> build(const QString& objectName) const = 0;
    virtual FormInspection::Members membersOf(const FormInspection::BuiltForm& built) const = 0;
    // Rows of the per-widget table, each added with addWidgetRow().
    virtual void widgetRows() const = 0;
    // Rows of the label image table: tagged by the label, a QString path.
    virtual void labelPixmapRows() const = 0;

    static void addWidgetRow(const char* name, const char* className, int x, int y, int w, int h);

private slots:
    void initTestCase();
    void unnamedFormGetsFormName();
    void existingObjectNameIsKept();
    void widgets_data();
    void widgets();
    void membersInCreationOrder();
    void labelPixmaps_data();
    void labelPixmaps();
    void imagePathCount();
    void imagePathsResolve_data();
    void imagePathsResolve();
    void render();

private:
    void checkFrame(const QString& objectName) const;

    const Layout m_layout;
};

// A FormSuite for the layout whose generated set-up class is Ui.
template <class Ui>
class FormSuiteFor : public FormSuite
{
protected:
    using MemberList = FormInspection::Members (*)(const Ui&);

    FormSuiteFor(Layout layout, MemberList members)
        : FormSuite(std::move(layout))
        , m_members(members)
    {
    }

    std::unique_ptr<FormInspection::BuiltForm> build(const QString& objectName) const override
    {
        return std::make_unique<FormInspection::SetUpForm<Ui>>(objectName);
    }

    FormInspection::Members membersOf(const FormInspection::BuiltForm& built) const override
    {
        return m_members(static_cast<const FormInspection::SetUpForm<Ui>&>(built).ui);
    }

private:
    const MemberList m_members;
};

#endif
