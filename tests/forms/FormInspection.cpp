#include "FormInspection.h"

#include <QDir>
#include <QFont>
#include <QLabel>
#include <QMetaProperty>
#include <QPixmap>
#include <QSize>
#include <QWidget>

namespace FormInspection {

const QString kOpaque = QStringLiteral("<no text form>");

QString describe(const QVariant& value)
{
    if (!value.isValid())
        return QStringLiteral("invalid");
    const int type = value.userType();
    if (type == QMetaType::QColor) {
        const QColor c = value.value<QColor>();
        return QStringLiteral("QColor(%1,%2,%3,%4)").arg(c.red()).arg(c.green()).arg(c.blue()).arg(c.alpha());
    }
    if (type == QMetaType::QFont)
        return QStringLiteral("QFont(pt=%1)").arg(value.value<QFont>().pointSize());
    if (type == qMetaTypeId<Qt::Alignment>())
        return QStringLiteral("Alignment(0x%1)").arg(int(value.value<Qt::Alignment>()), 0, 16);
    if (type == QMetaType::QSize) {
        const QSize z = value.toSize();
        return QStringLiteral("QSize(%1x%2)").arg(z.width()).arg(z.height());
    }
    if (type == QMetaType::Float || type == QMetaType::Double)
        return QStringLiteral("%1(%2)").arg(QString::fromLatin1(value.typeName())).arg(value.toDouble(), 0, 'f', 3);
    if (!value.canConvert<QString>())
        return QStringLiteral("%1(%2)").arg(QString::fromLatin1(value.typeName()), kOpaque);
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(value.typeName()), value.toString());
}

TextColours windowTextColours(const QWidget* widget)
{
    const QPalette& p = widget->palette();
    return {p.color(QPalette::Active, QPalette::WindowText), p.color(QPalette::Inactive, QPalette::WindowText),
            p.color(QPalette::Disabled, QPalette::WindowText)};
}

QImage resourceImage(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage labelImage(const QLabel* label)
{
    return label->pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QVector<ImageUse> imagePaths(const QWidget* form)
{
    static const char* const pathProperties[] = {"normalImage", "pressImage", "disableImage", "indicatePix",
                                                 "pixmap"};
    QVector<ImageUse> uses;
    for (const QWidget* w : form->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QMetaObject* mo = w->metaObject();
        for (const char* name : pathProperties) {
            const int index = mo->indexOfProperty(name);
            if (index < 0 || mo->property(index).userType() != QMetaType::QString)
                continue;
            const QString path = w->property(name).toString();
            if (!path.isEmpty())
                uses.append({w->objectName(), QString::fromLatin1(name), path});
        }
    }
    return uses;
}

QString saveRender(QWidget* form, const QString& fileName, QString* error)
{
    const QString dir = qEnvironmentVariable("RADIO_TEST_OUTPUT");
    if (dir.isEmpty()) {
        *error = QStringLiteral("RADIO_TEST_OUTPUT is not set");
        return QString();
    }
    if (!QDir().mkpath(dir)) {
        *error = QStringLiteral("cannot create %1").arg(dir);
        return QString();
    }
    const QString path = QDir(dir).filePath(fileName);
    if (!form->grab().save(path, "PNG")) {
        *error = QStringLiteral("cannot write %1").arg(path);
        return QString();
    }
    return path;
}

} // namespace FormInspection
