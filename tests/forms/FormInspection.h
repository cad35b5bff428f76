#ifndef FORMINSPECTION_H
#define FORMINSPECTION_H

#include <QColor>
#include <QImage>
#include <QString>
#include <QVariant>
#include <QVector>

class QLabel;
class QWidget;

// Helpers shared by the layout tests.
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

} // namespace FormInspection

#endif
