#include "FormSuite.h"

#include <QLabel>
#include <QRect>
#include <QTest>

using namespace FormInspection;

namespace {

// Every text of the form's children, "name.property=value", in stacking order.
QStringList childTexts(const RecordingForm& form)
{
    QStringList texts;
    for (const QString& name : form.stackingOrder()) {
        const QWidget* w = form.findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
        for (const char* property : {"text", "displayText"}) {
            const QVariant value = w->property(property);
            if (value.isValid())
                texts << QStringLiteral("%1.%2=%3").arg(name, QLatin1String(property), value.toString());
        }
    }
    return texts;
}

} // namespace

FormSuite::FormSuite(Layout layout)
    : m_layout(std::move(layout))
{
}

void FormSuite::addWidgetRow(const char* name, const char* className, int x, int y, int w, int h)
{
    QTest::newRow(name) << QString::fromLatin1(className) << QRect(x, y, w, h);
}

void FormSuite::initTestCase()
{
    // The host's own images (screen background, band keys) live in the host
    // framework library. Nothing here calls into it, so the linker would
    // drop it; asking for its collection by name keeps it and registers it.
    Q_INIT_RESOURCE(hostimages);
}

void FormSuite::checkFrame(const QString& objectName) const
{
    const auto built = build(objectName);
    const RecordingForm& form = built->form;
    QCOMPARE(form.objectName(), objectName.isEmpty() ? m_layout.formName : objectName);
    QCOMPARE(form.size(), m_layout.size);
    QCOMPARE(form.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(form.stackingOrder(), m_layout.stacking);
}

void FormSuite::unnamedFormGetsFormName()
{
    checkFrame(QString());
}

void FormSuite::existingObjectNameIsKept()
{
    QVERIFY(!m_layout.givenName.isEmpty());
    QVERIFY(m_layout.givenName != m_layout.formName);
    // Set-up runs through its translation step for a form the host named:
    // the widgets hold the same texts as on an unnamed form.
    const QStringList texts = childTexts(build(QString())->form);
    QVERIFY(!texts.isEmpty());
    QCOMPARE(childTexts(build(m_layout.givenName)->form), texts);
    checkFrame(m_layout.givenName);
}

void FormSuite::widgets_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QRect>("geometry");
    widgetRows();
}

void FormSuite::widgets()
{
    QFETCH(QString, className);
    QFETCH(QRect, geometry);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const auto built = build(QString());

    const QList<QWidget*> found = built->form.findChildren<QWidget*>(name);
    QCOMPARE(found.size(), 1);
    QWidget* w = found.first();
    QCOMPARE(w->parentWidget(), static_cast<QWidget*>(&built->form));
    QCOMPARE(QString::fromLatin1(w->metaObject()->className()), className);
    QCOMPARE(w->geometry(), geometry);

    QWidget* member = nullptr;
    for (const auto& m : membersOf(*built)) {
        if (m.first == name)
            member = m.second;
    }
    QCOMPARE(member, w);
}

void FormSuite::membersInCreationOrder()
{
    const auto built = build(QString());
    QStringList memberNames;
    for (const auto& m : membersOf(*built)) {
        QVERIFY2(m.second, qPrintable(m.first));
        QCOMPARE(m.second->objectName(), m.first);
        memberNames.append(m.first);
    }
    QCOMPARE(memberNames, m_layout.members);
    QCOMPARE(built->form.creationOrder(), m_layout.members);
}

void FormSuite::labelPixmaps_data()
{
    QTest::addColumn<QString>("path");
    labelPixmapRows();
}

void FormSuite::labelPixmaps()
{
    QFETCH(QString, path);
    const QImage expected = resourceImage(path);
    QVERIFY2(!expected.isNull(), qPrintable(path + " is not a loadable resource image"));
    const auto built = build(QString());
    const QLabel* label = built->form.findChild<QLabel*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(label);
    QCOMPARE(label->text(), QString());
    QCOMPARE(labelImage(label), expected);
    // Translation rewrites the layout's texts, at set-up after the images
    // and again on every language change: the image must survive it.
    built->retranslate();
    QCOMPARE(labelImage(label), expected);
}

void FormSuite::imagePathCount()
{
    QCOMPARE(imagePaths(&build(QString())->form).size(), m_layout.imagePaths);
}

void FormSuite::imagePathsResolve_data()
{
    QTest::addColumn<QString>("path");
    const auto built = build(QString());
    for (const ImageUse& use : imagePaths(&built->form))
        QTest::addRow("%s.%s", qPrintable(use.widget), qPrintable(use.property)) << use.path;
}

void FormSuite::imagePathsResolve()
{
    QFETCH(QString, path);
    QVERIFY2(!QImage(path).isNull(), qPrintable(path));
}

void FormSuite::render()
{
    const auto built = build(QString());
    QString error;
    const QString path = saveRender(&built->form, m_layout.renderFile, &error);
    if (path.isEmpty() && error.startsWith(QStringLiteral("RADIO_TEST_OUTPUT")))
        QSKIP(qPrintable(error));
    QVERIFY2(!path.isEmpty(), qPrintable(error));
    QCOMPARE(QImage(path).size(), m_layout.size);
}
