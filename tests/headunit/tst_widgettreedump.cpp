#include "WidgetTreeDump.h"

#include "HvIconButton.h"
#include "HvRollingText.h"
#include "MOnOffButton.h"
#include "MRadioSlider.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// The node of the named widget anywhere in the tree.
QJsonObject findNode(const QJsonObject& node, const QString& name)
{
    if (node.value(QStringLiteral("objectName")).toString() == name)
        return node;
    for (const QJsonValue& child : node.value(QStringLiteral("children")).toArray()) {
        const QJsonObject found = findNode(child.toObject(), name);
        if (!found.isEmpty())
            return found;
    }
    return QJsonObject();
}

QRect geometryOf(const QJsonObject& node)
{
    const QJsonObject g = node.value(QStringLiteral("geometry")).toObject();
    return QRect(g.value(QStringLiteral("x")).toInt(), g.value(QStringLiteral("y")).toInt(),
                 g.value(QStringLiteral("width")).toInt(), g.value(QStringLiteral("height")).toInt());
}

} // namespace

class TestWidgetTreeDump : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void geometryIsInWindowCoordinates_data();
    void geometryIsInWindowCoordinates();
    void stackFollowsRaiseOrder();
    void visibilityIsWhatIsShown();
    void stateByClass_data();
    void stateByClass();
    void labelTextColourFollowsPalette();
    void separateWindowsAreLeftOut();
    void nullWidgetGivesEmptyObject();
    void writeReplacesTheFileWhole();
    void writeToUnwritablePlaceFails();

private:
    QWidget* m_window = nullptr;
};

void TestWidgetTreeDump::init()
{
    m_window = new QWidget;
    m_window->setObjectName(QStringLiteral("Window"));
    m_window->setWindowTitle(QStringLiteral("Head unit"));
    m_window->resize(1280, 720);

    auto* view = new QWidget(m_window);
    view->setObjectName(QStringLiteral("View"));
    view->setGeometry(0, 0, 1280, 720);
    auto* panel = new QWidget(view);
    panel->setObjectName(QStringLiteral("Panel"));
    panel->setGeometry(40, 30, 600, 400);
    auto* label = new QLabel(QStringLiteral("87.50"), panel);
    label->setObjectName(QStringLiteral("Freq"));
    label->setGeometry(10, 20, 200, 40);

    auto* button = new HvIconButton(view);
    button->setObjectName(QStringLiteral("Seek"));
    button->setGeometry(1160, 306, 98, 84);
    button->setButtonID(QStringLiteral("up"));
    button->setDisplayText(QStringLiteral(">>"));
    button->setIsDown(true);
    button->setDisableState(true);

    auto* onOff = new MOnOffButton(view);
    onOff->setObjectName(QStringLiteral("AF"));
    onOff->setGeometry(310, 118, 104, 51);
    onOff->setOnoffStatus(true);

    auto* rolling = new HvRollingText(view);
    rolling->setObjectName(QStringLiteral("PS"));
    rolling->setGeometry(500, 400, 711, 71);
    rolling->setText(QStringLiteral("NEWS 24"));

    auto* slider = new MRadioSlider(view);
    slider->setObjectName(QStringLiteral("Scale"));
    slider->setGeometry(525, 150, 661, 91);
    slider->setIsFM(true);
    slider->setFreqStart(87.5f);
    slider->setFreqEnd(108.0f);
    slider->setFreqStep(0.05f);
    slider->setCurFreq(9010.0f);

    auto* push = new QPushButton(QStringLiteral("Set"), view);
    push->setObjectName(QStringLiteral("Push"));
    push->setCheckable(true);
    push->setChecked(true);
    push->setGeometry(10, 600, 80, 30);

    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void TestWidgetTreeDump::cleanup()
{
    delete m_window;
    m_window = nullptr;
}

void TestWidgetTreeDump::geometryIsInWindowCoordinates_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("grandchild adds the parents' offsets") << "Freq" << QRect(50, 50, 200, 40);
    QTest::newRow("layout coordinates of a button") << "Seek" << QRect(1160, 306, 98, 84);
}

void TestWidgetTreeDump::geometryIsInWindowCoordinates()
{
    QFETCH(QString, name);
    QFETCH(QRect, expected);
    const QJsonObject tree = WidgetTreeDump::widgetTree(m_window, m_window);
    const QJsonObject node = findNode(tree, name);
    QVERIFY2(!node.isEmpty(), qPrintable(name));
    QCOMPARE(geometryOf(node), expected);
}

void TestWidgetTreeDump::stackFollowsRaiseOrder()
{
    auto* view = m_window->findChild<QWidget*>(QStringLiteral("View"));
    auto* panel = m_window->findChild<QWidget*>(QStringLiteral("Panel"));
    panel->raise();
    const QJsonObject tree = WidgetTreeDump::widgetTree(view, m_window);
    const QJsonArray children = tree.value(QStringLiteral("children")).toArray();
    QStringList order;
    for (int i = 0; i < children.size(); ++i) {
        const QJsonObject child = children.at(i).toObject();
        QCOMPARE(child.value(QStringLiteral("stack")).toInt(), i);
        order.append(child.value(QStringLiteral("objectName")).toString());
    }
    QCOMPARE(order, (QStringList{"Seek", "AF", "PS", "Scale", "Push", "Panel"}));
    // A subtree's root carries its own place among its siblings.
    QCOMPARE(WidgetTreeDump::widgetTree(panel, m_window).value(QStringLiteral("stack")).toInt(), 5);
}

void TestWidgetTreeDump::visibilityIsWhatIsShown()
{
    auto* panel = m_window->findChild<QWidget*>(QStringLiteral("Panel"));
    panel->hide();
    const QJsonObject tree = WidgetTreeDump::widgetTree(m_window, m_window);
    QCOMPARE(findNode(tree, QStringLiteral("Panel")).value(QStringLiteral("visible")).toBool(), false);
    // A child of a hidden parent is not visible either, though not hidden itself.
    QCOMPARE(findNode(tree, QStringLiteral("Freq")).value(QStringLiteral("visible")).toBool(), false);
    QCOMPARE(findNode(tree, QStringLiteral("Seek")).value(QStringLiteral("visible")).toBool(), true);

    m_window->findChild<QWidget*>(QStringLiteral("Push"))->setEnabled(false);
    const QJsonObject after = WidgetTreeDump::widgetTree(m_window, m_window);
    QCOMPARE(findNode(after, QStringLiteral("Push")).value(QStringLiteral("enabled")).toBool(), false);
    QCOMPARE(findNode(after, QStringLiteral("Seek")).value(QStringLiteral("enabled")).toBool(), true);
}

void TestWidgetTreeDump::stateByClass_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QVariantMap>("expected");
    QTest::newRow("window title") << "Window" << "QWidget"
                                  << QVariantMap{{"windowTitle", "Head unit"}};
    QTest::newRow("label") << "Freq" << "QLabel" << QVariantMap{{"text", "87.50"}, {"hasPixmap", false}};
    QTest::newRow("icon button") << "Seek" << "HvIconButton"
                                 << QVariantMap{{"displayText", ">>"}, {"buttonID", "up"}, {"isDown", true},
                                                {"isLock", false}, {"disableState", true}};
    QTest::newRow("on/off switch") << "AF" << "MOnOffButton"
                                   << QVariantMap{{"onoffStatus", true}, {"btnDisable", false}};
    QTest::newRow("rolling text") << "PS" << "HvRollingText" << QVariantMap{{"text", "NEWS 24"}};
    QTest::newRow("scale") << "Scale" << "MRadioSlider"
                           << QVariantMap{{"isFM", true}, {"freqStart", 87.5}, {"freqEnd", 108.0}, {"curFreq", 9010.0}};
    QTest::newRow("push button") << "Push" << "QPushButton" << QVariantMap{{"text", "Set"}, {"checked", true}};
}

void TestWidgetTreeDump::stateByClass()
{
    QFETCH(QString, name);
    QFETCH(QString, className);
    QFETCH(QVariantMap, expected);
    const QJsonObject node = findNode(WidgetTreeDump::widgetTree(m_window, m_window), name);
    QCOMPARE(node.value(QStringLiteral("class")).toString(), className);
    const QJsonObject state = node.value(QStringLiteral("state")).toObject();
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        QVERIFY2(state.contains(it.key()), qPrintable(it.key()));
        QCOMPARE(state.value(it.key()).toVariant(), it.value());
    }
}

void TestWidgetTreeDump::labelTextColourFollowsPalette()
{
    auto* label = m_window->findChild<QLabel*>(QStringLiteral("Freq"));
    QPalette grey;
    grey.setColor(QPalette::WindowText, QColor(128, 128, 128));
    label->setPalette(grey);
    QCOMPARE(findNode(WidgetTreeDump::widgetTree(m_window, m_window), QStringLiteral("Freq"))
                 .value(QStringLiteral("state")).toObject().value(QStringLiteral("textColor")).toString(),
             QStringLiteral("#ff808080"));
}

void TestWidgetTreeDump::separateWindowsAreLeftOut()
{
    auto* dialog = new QWidget(m_window, Qt::Window);
    dialog->setObjectName(QStringLiteral("Dialog"));
    dialog->show();
    QVERIFY(findNode(WidgetTreeDump::widgetTree(m_window, m_window), QStringLiteral("Dialog")).isEmpty());
}

void TestWidgetTreeDump::nullWidgetGivesEmptyObject()
{
    QVERIFY(WidgetTreeDump::widgetTree(nullptr, m_window).isEmpty());
    QVERIFY(WidgetTreeDump::widgetTree(m_window, nullptr).isEmpty());
}

void TestWidgetTreeDump::writeReplacesTheFileWhole()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("dump.json"));
    {
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(100000, 'x'));
    }
    const QJsonObject document{{QStringLiteral("window"), WidgetTreeDump::widgetTree(m_window, m_window)}};
    QString error;
    QVERIFY2(WidgetTreeDump::writeFile(path, document, &error), qPrintable(error));

    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QJsonParseError parse;
    const QJsonDocument read = QJsonDocument::fromJson(written.readAll(), &parse);
    QCOMPARE(parse.error, QJsonParseError::NoError);
    QCOMPARE(read.object(), document);
    // Nothing but the file itself is left in the folder.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("dump.json")});
}

void TestWidgetTreeDump::writeToUnwritablePlaceFails()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QString error;
    QVERIFY(!WidgetTreeDump::writeFile(dir.filePath(QStringLiteral("no/such/folder/dump.json")), QJsonObject(), &error));
    QVERIFY(!error.isEmpty());
}

QTEST_MAIN(TestWidgetTreeDump)
#include "tst_widgettreedump.moc"
