// Loads the built radio plugin as the head unit does and drives the activity.
#include "Activity.h"
#include "ActivityProperty.h"
#include "AppData.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "DataSaveControl.h"
#include "ImplicitRuleManager.h"
#include "ModuleManager.h"
#include "UIManager.h"

#include <QJsonObject>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QtTest>

class tst_RadioActivity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void plugin();
    void property();
    void lifecycle_data();
    void lifecycle();

private:
    QTemporaryDir m_settings;
    QPluginLoader m_loader{QStringLiteral(RADIO_PLUGIN_FILE)};
    hvappframework::Activity* m_activity = nullptr;
    QWidget m_layer;
    QSharedPointer<AuxinModulePlugin> m_auxin = QSharedPointer<AuxinModulePlugin>::create();
};

void tst_RadioActivity::initTestCase()
{
    QVERIFY(m_settings.isValid());
    DataSaveControl::setStoreFile(m_settings.filePath(QStringLiteral("settings.ini")));
    AppData::createInstance();
    BaseControl::createInstance();
    hvappframework::ModuleManager::self()->addModule(m_auxin);
    hvappframework::UIManager::setUIHerarchy(1, &m_layer);
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_activity = qobject_cast<hvappframework::Activity*>(m_loader.instance());
    QVERIFY(m_activity);
}

void tst_RadioActivity::cleanup()
{
    m_activity->onDestory();
}

void tst_RadioActivity::plugin()
{
    const QJsonObject meta = m_loader.metaData();
    QCOMPARE(meta.value(QStringLiteral("IID")).toString(), QStringLiteral("activity/0.1"));
    QCOMPARE(meta.value(QStringLiteral("className")).toString(), QStringLiteral("RadioActivity"));
    QVERIFY(meta.value(QStringLiteral("MetaData")).toObject().isEmpty());

    QObject* root = m_loader.instance();
    QCOMPARE(root->metaObject()->className(), "RadioActivity");
    QCOMPARE(root->qt_metacast("activity/0.1"), static_cast<void*>(m_activity));
    QCOMPARE(root->qt_metacast("hvappframework::Activity"), static_cast<void*>(m_activity));
    QVERIFY(static_cast<void*>(m_activity) != static_cast<void*>(root));
}

void tst_RadioActivity::property()
{
    const QSharedPointer<hvappframework::ActivityProperty> p = m_activity->getProperty();
    QCOMPARE(p, m_activity->getProperty());
    QCOMPARE(p->getName(), QStringLiteral("radio"));
    QCOMPARE(p->getDispString(), QStringLiteral("Radio"));
    QCOMPARE(p->getType(), 0);
    QCOMPARE(p->getPriority(), 4);
    QCOMPARE(p->getAnmType(), 0);
    QCOMPARE(p->getResumeType(), 1);
    QVERIFY(p->getCbk().isNull());
    QCOMPARE(p->getStringList(), QStringList{QStringLiteral(":/radioimages/01_radio")});
    const QSharedPointer<QStringList> modules = p->getDependModules();
    QCOMPARE(*modules, (QStringList{QStringLiteral("auxin"), QStringLiteral("radio")}));
    QVERIFY(modules != p->getDependModules());

    using hvappframework::ImplicitRule;
    QCOMPARE(hvappframework::ImplicitRuleManager::self()->rulesForModule(QStringLiteral("auxin")),
             (QList<ImplicitRule>{ImplicitRule(QStringLiteral("auxin"), 2, 1, QStringLiteral("radio"), 4, 0),
                                  ImplicitRule(QStringLiteral("auxin"), 3, 0, QStringLiteral("radio"), 2, 0)}));
}

void tst_RadioActivity::lifecycle_data()
{
    QTest::addColumn<QString>("calls");
    QTest::addColumn<int>("controllers");
    QTest::addColumn<QStringList>("audio");

    QTest::newRow("start and stop before create") << "start stop" << 0 << QStringList();
    QTest::newRow("create twice makes one controller") << "create create" << 1 << QStringList();
    QTest::newRow("stop hides") << "create start stop" << 1 << QStringList();
    QTest::newRow("start after stop switches the stream on") << "create stop start" << 1
                                                             << QStringList{"setAVInMode(0)", "streamOn()"};
    QTest::newRow("create after destroy makes a new controller")
        << "create destroy create" << 2
        << QStringList{"takeScreen()", "setVideoOnly(false)", "setAVInMode(0)", "setAudioOnly(true)",
                       "setAudioInChannel(1)", "streamOn()"};
    QTest::newRow("destroy twice") << "create destroy destroy" << 1 << QStringList();
}

// Every call answers 0; a controller lives under UI layer 1 and is shown
// unless the last call stopped it; the stream calls are those after the
// first create.
void tst_RadioActivity::lifecycle()
{
    QFETCH(QString, calls);
    QFETCH(int, controllers);
    QFETCH(QStringList, audio);

    int made = 0;
    QWidget* ui = nullptr;
    for (const QString& call : calls.split(QLatin1Char(' '))) {
        QWidget* before = ui;
        QCOMPARE(call == QLatin1String("create") ? m_activity->onCreat()
                 : call == QLatin1String("start") ? m_activity->onStart()
                 : call == QLatin1String("stop")  ? m_activity->onStop()
                                                  : m_activity->onDestory(),
                 0);
        ui = m_activity->getProperty()->getUiObj();
        if (ui && ui != before && made++ == 0)
            m_auxin->getAuxinModule()->clearCalls();
    }
    QCOMPARE(made, controllers);
    QCOMPARE(ui ? ui->parentWidget() : &m_layer, &m_layer);
    QCOMPARE(ui && !ui->isHidden(), ui && !calls.endsWith(QLatin1String("stop")));
    QCOMPARE(m_layer.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(), ui ? 1 : 0);
    QCOMPARE(m_auxin->getAuxinModule()->calls(), audio);
}

QTEST_MAIN(tst_RadioActivity)
#include "tst_radioactivity.moc"
