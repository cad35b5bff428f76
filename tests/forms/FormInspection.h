#ifndef FORMINSPECTION_H
#define FORMINSPECTION_H

#include "RecordingForm.h"
#include "RecordingTranslator.h"

#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class QLabel;
class QWidget;

// Helpers shared by the layout tests. The check* functions report through
// QtTest and return on the first failure, so each is called last in a test.
namespace FormInspection {

// Type and value of a property as one comparable text; colours, fonts
// (point size only), sizes, alignments and floating-point values are
// normalised so that a mismatch prints readably. A type without a text
// form is described with kOpaque in place of its value, which compares
// equal for any two values: callers must reject it.
QString describe(const QVariant& value);
extern const QString kOpaque;

// Solid WindowText colours of a widget palette, Active/Inactive/Disabled.
struct TextColours
{
    QColor active;
    QColor inactive;
    QColor disabled;
};
TextColours windowTextColours(const QWidget* widget);

// A resource image and a label's pixmap converted to one format, so that
// they compare pixel by pixel.
QImage resourceImage(const QString& path);
QImage labelImage(const QLabel* label);

struct ImageUse
{
    QString widget;
    QString property;
    QString path;
};
// Every image path that the form's host widgets hold in their path
// properties (button images, slider pointer, background panel).
QVector<ImageUse> imagePaths(const QWidget* form);

// Renders the form into $RADIO_TEST_OUTPUT/<fileName>. Returns the path
// written, or an empty string with *error set.
QString saveRender(QWidget* form, const QString& fileName, QString* error);

// The given property of each named child of the form, as text; "missing"
// for a child that is not there, "no <property>" for one without it.
QStringList propertyTexts(const QWidget& form, const QStringList& names, const char* property);

// A form's Ui members, each with the object name the layout gives it.
using Members = QVector<QPair<QString, QWidget*>>;

// A form built by its layout.
struct BuiltForm
{
    virtual ~BuiltForm() = default;
    // What a language change does to the layout's texts.
    virtual void retranslate() = 0;

    RecordingForm form;
};

// A form built by its generated Ui class. The form carries objectName
// before set-up; an empty one leaves the naming to the layout.
template <class Ui>
struct SetUpForm : BuiltForm
{
    explicit SetUpForm(const QString& objectName = QString())
    {
        form.setObjectName(objectName);
        ui.setupUi(&form);
    }

    void retranslate() override { ui.retranslateUi(&form); }

    Ui ui;
};

// A form built with a RecordingTranslator installed. At the first lookup in
// `context` the widgets are built but nothing is translated yet: `before`
// holds the `property` of each widget in `watched` at that moment.
template <class Ui>
struct TranslatedForm
{
    explicit TranslatedForm(const QString& context, const QStringList& watched = QStringList(),
                            const char* property = "text")
    {
        translator.setHook([this, context, watched, property](const RecordingTranslator::Lookup& lookup) {
            if (lookup.context == context && before.isEmpty())
                before = propertyTexts(form, watched, property);
        });
        installed = QCoreApplication::installTranslator(&translator);
        ui.setupUi(&form);
        QCoreApplication::removeTranslator(&translator);
    }

    RecordingForm form;
    Ui ui;
    RecordingTranslator translator;
    bool installed = false;
    QStringList before;
};

// Table of points and the direct child of the form on top there.
void addTopWidgetColumns();
void checkTopWidgetRow(const QWidget& form);

// Table of widget properties, compared through describe().
void addPropertyColumns();
void addPropertyRow(const QString& widget, const char* property, const QVariant& expected);
void checkPropertyRow(const QWidget& form);

// Solid WindowText colours: `enabled` when active and inactive, `disabled`.
void checkTextColours(const QWidget* widget, const QColor& enabled, const QColor& disabled);

// Every lookup in `context` has neither a disambiguation nor a plural
// count, and their source texts are `sources`, in order.
void checkLookups(const RecordingTranslator& translator, const QString& context, const QStringList& sources);

} // namespace FormInspection

#endif
