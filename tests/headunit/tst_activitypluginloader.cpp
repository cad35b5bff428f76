#include "ActivityPluginLoader.h"

#include "Activity.h"
#include "ActivityManager.h"
#include "ActivityProperty.h"
#include "UIManager.h"

#include "PluginFolder.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

using hvappframework::ActivityManager;

class TestActivityPluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void acceptsActivityAndRegistersItByName();
    void folderLoadsGoodAndSkipsBad();
    void secondActivityOfTheSameNameIsRejected();
    void missingFolderIsReported();
    void nonLibraryFilesAreIgnored();

private:
    // A fresh folder holding links to the given plugin files.
    QString folderWith(const QStringList& plugins);
    QTemporaryDir m_dir;
};

void TestActivityPluginLoader::init()
{
    ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
}

void TestActivityPluginLoader::cleanup()
{
    ActivityManager::self()->unregisterActivity(QStringLiteral("radio"));
}

QString TestActivityPluginLoader::folderWith(const QStringList& plugins)
{
    return pluginFolder(m_dir, plugins);
}

void TestActivityPluginLoader::acceptsActivityAndRegistersItByName()
{
    ActivityPluginLoader loader;
    QCOMPARE(loader.loadFile(QStringLiteral(HU_FIXTURE_ACTIVITY)), QStringLiteral("radio"));
    QVERIFY(loader.messages().isEmpty());
    hvappframework::Activity* activity = ActivityManager::self()->activity(QStringLiteral("radio"));
    QVERIFY(activity);
    QCOMPARE(activity->getProperty()->getName(), QStringLiteral("radio"));

    // The registered object is the plugin's live activity: the framework
    // can create it under layer 1.
    QWidget layer;
    hvappframework::UIManager::setUIHerarchy(1, &layer);
    QCOMPARE(activity->onCreat(), 0);
    QVERIFY(layer.findChild<QWidget*>(QStringLiteral("FixtureScreen")));
    activity->onDestory();
    hvappframework::UIManager::setUIHerarchy(1, nullptr);
}

void TestActivityPluginLoader::folderLoadsGoodAndSkipsBad()
{
    const QString folder = folderWith({QStringLiteral(HU_FIXTURE_WRONGIID), QStringLiteral(HU_FIXTURE_ACTIVITY),
                                       QStringLiteral(HU_FIXTURE_NOTACTIVITY)});
    ActivityPluginLoader loader;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("rejecting .*wrongiid")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("rejecting .*notactivity")));
    QCOMPARE(loader.loadFolder(folder), QStringList{QStringLiteral("radio")});
    QCOMPARE(loader.messages().size(), 2);
}

void TestActivityPluginLoader::secondActivityOfTheSameNameIsRejected()
{
    ActivityPluginLoader loader;
    QCOMPARE(loader.loadFile(QStringLiteral(HU_FIXTURE_ACTIVITY)), QStringLiteral("radio"));
    hvappframework::Activity* first = ActivityManager::self()->activity(QStringLiteral("radio"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("already registered")));
    QCOMPARE(loader.loadFile(QStringLiteral(HU_FIXTURE_ACTIVITY)), QString());
    QCOMPARE(ActivityManager::self()->activity(QStringLiteral("radio")), first);
}

void TestActivityPluginLoader::missingFolderIsReported()
{
    ActivityPluginLoader loader;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("does not exist")));
    QCOMPARE(loader.loadFolder(m_dir.filePath(QStringLiteral("nowhere"))), QStringList());
    QCOMPARE(loader.messages().size(), 1);
}

void TestActivityPluginLoader::nonLibraryFilesAreIgnored()
{
    const QString folder = folderWith({QStringLiteral(HU_FIXTURE_ACTIVITY)});
    QFile text(QDir(folder).filePath(QStringLiteral("README.txt")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("not a plugin\n");
    text.close();
    // A file named like a library that is none: reported, then skipped.
    QFile fake(QDir(folder).filePath(QStringLiteral("libfake.so")));
    QVERIFY(fake.open(QIODevice::WriteOnly));
    fake.write("not a library either\n");
    fake.close();

    ActivityPluginLoader loader;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("skipping .*libfake.so: not a Qt plugin")));
    QCOMPARE(loader.loadFolder(folder), QStringList{QStringLiteral("radio")});
    QCOMPARE(loader.messages().size(), 1);
}

QTEST_MAIN(TestActivityPluginLoader)
#include "tst_activitypluginloader.moc"
