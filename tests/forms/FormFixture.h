#pragma once
#include "ContextTranslator.h"
// What the layout suites share: one table per form of its widgets' class,
// geometry, place in the stacking order and settings, read back from the
// built form.
#include <QCoreApplication>
#include <QLabel>
#include <QTest>

// The host's images (backgrounds, band keys) that the layouts name.
inline void initHostImages()
{
    Q_INIT_RESOURCE(hostimages);
}

namespace FormFixture {

// A widget's class, geometry and place in the stacking order (1 lowest).
inline void widget(const char* name, const char* className, int x, int y, int w, int h, int stack)
{
    QTest::addRow("%s place", name) << QString::fromLatin1(name)
                                     << QStringLiteral("class=%1;geometry=%2,%3,%4,%5;stack=%6")
                                            .arg(QLatin1String(className)).arg(x).arg(y).arg(w).arg(h).arg(stack);
}

// Expected settings of one widget as "attribute=value;...", or "absent".
inline void addSettingColumns()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
}

inline void setting(const QString& name, const QString& expected)
{
    QTest::newRow(qPrintable(name)) << name << expected;
}

// "pixmap" is the label's image size, "font" the point size, "palette" the
// text colour in the active and the disabled group, "align" the alignment;
// anything else is a property of the widget.
inline QString observe(const QWidget* w, const QString& attribute)
{
    const auto* label = qobject_cast<const QLabel*>(w);
    if (attribute == QLatin1String("pixmap") && label) {
        const QSize s = label->pixmap(Qt::ReturnByValue).size();
        return QStringLiteral("%1x%2").arg(s.width()).arg(s.height());
    }
    if (attribute == QLatin1String("class"))
        return QString::fromLatin1(w->metaObject()->className());
    if (attribute == QLatin1String("geometry"))
        return QStringLiteral("%1,%2,%3,%4").arg(w->x()).arg(w->y()).arg(w->width()).arg(w->height());
    if (attribute == QLatin1String("stack"))
        return QString::number(w->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).indexOf(const_cast<QWidget*>(w)) + 1);
    if (attribute == QLatin1String("size"))
        return QStringLiteral("%1x%2").arg(w->width()).arg(w->height());
    if (attribute == QLatin1String("font"))
        return QString::number(w->font().pointSize());
    if (attribute == QLatin1String("palette")) {
        const QPalette p = w->palette();
        return p.color(QPalette::Active, QPalette::WindowText).name() + QLatin1Char('/')
            + p.color(QPalette::Disabled, QPalette::WindowText).name();
    }
    if (attribute == QLatin1String("align") && label)
        return QString::number(int(label->alignment()), 16);
    const QVariant v = w->property(attribute.toLatin1());
    return v.canConvert<QColor>() && v.userType() == QMetaType::QColor ? v.value<QColor>().name(QColor::HexArgb)
                                                                        : v.toString();
}

inline void checkSetting(QWidget* form)
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    auto* w = name == form->objectName() ? form : form->findChild<QWidget*>(name);
    if (expected == QLatin1String("absent")) {
        QVERIFY(!w);
        return;
    }
    QVERIFY2(w, qPrintable(name));
    for (const QString& item : expected.split(QLatin1Char(';'))) {
        const QString attribute = item.section(QLatin1Char('='), 0, 0);
        QCOMPARE(attribute + QLatin1Char('=') + observe(w, attribute), item);
    }
}

// A form built under a translator that shows every translated text as
// "context|source".
template <class Ui>
struct BuiltForm {
    explicit BuiltForm(const QString& presetName = QString())
    {
        initHostImages();
        form.setObjectName(presetName);
        QCoreApplication::installTranslator(&translator);
        ui.setupUi(&form);
        QCoreApplication::removeTranslator(&translator);
    }
    ContextTranslator translator;
    QWidget form;
    Ui ui;
};


} // namespace FormFixture
