#include "FormInspection.h"

#include <QDir>
#include <QFont>
#include <QLabel>
#include <QMetaProperty>
#include <QPixmap>
#include <QSize>
#include <QTest>
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

QStringList propertyTexts(const QWidget& form, const QStringList& names, const char* property)
{
    QStringList texts;
    for (const QString& name : names) {
        const QWidget* w = form.findChild<QWidget*>(name);
        if (!w) {
            texts << QStringLiteral("missing");
            continue;
        }
        const QVariant value = w->property(property);
        texts << (value.isValid() ? value.toString() : QStringLiteral("no %1").arg(QString::fromLatin1(property)));
    }
    return texts;
}

void addTopWidgetColumns()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("top");
}

void checkTopWidgetRow(const QWidget& form)
{
    QFETCH(QPoint, point);
    QFETCH(QString, top);
    const QWidget* hit = form.childAt(point);
    while (hit && hit->parentWidget() != &form)
        hit = hit->parentWidget();
    QVERIFY(hit);
    QCOMPARE(hit->objectName(), top);
}

void addPropertyColumns()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("expected");
}

void addPropertyRow(const QString& widget, const char* property, const QVariant& expected)
{
    QTest::addRow("%s.%s", qPrintable(widget), property) << widget << QString::fromLatin1(property) << expected;
}

void checkPropertyRow(const QWidget& form)
{
    QFETCH(QString, widget);
    QFETCH(QString, property);
    QFETCH(QVariant, expected);
    const QWidget* w = form.findChild<QWidget*>(widget);
    QVERIFY(w);
    QVERIFY(!describe(expected).contains(kOpaque));
    QCOMPARE(describe(w->property(property.toLatin1().constData())), describe(expected));
}

void checkTextColours(const QWidget* widget, const QColor& enabled, const QColor& disabled)
{
    const TextColours c = windowTextColours(widget);
    QCOMPARE(c.active, enabled);
    QCOMPARE(c.inactive, enabled);
    QCOMPARE(c.disabled, disabled);
    QCOMPARE(widget->palette().brush(QPalette::Active, QPalette::WindowText).style(), Qt::SolidPattern);
    QCOMPARE(widget->palette().brush(QPalette::Disabled, QPalette::WindowText).style(), Qt::SolidPattern);
}

void checkLookups(const RecordingTranslator& translator, const QString& context, const QStringList& sources)
{
    QStringList looked;
    for (const auto& l : translator.lookups(context)) {
        looked << l.source;
        QVERIFY(!l.hasDisambiguation);
        QCOMPARE(l.n, -1);
    }
    QCOMPARE(looked, sources);
}

} // namespace FormInspection
