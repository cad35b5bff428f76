// Loads the built radio plugin exactly as the head unit does and drives the
// activity through its lifecycle.
#include "Activity.h"
#include "ActivityProperty.h"
#include "ImplicitRuleManager.h"
#include "ModuleManager.h"
#include "UIManager.h"
#include "AppData.h"
#include "AuxinModule.h"
#include "BaseControl.h"
#include "DataSaveControl.h"

#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_RadioActivity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void metadata();
    void rootIsActivity();
    void property();
    void implicitRules();
    void startBeforeCreateDoesNothing();
    void lifecycle();
    void createTwiceMakesOneController();
    void stopStopsTheStreamFlagOnly();

private:
    QWidget* controller() const { return m_activity->getProperty()->getUiObj(); }

    QTemporaryDir m_settingsDir;
    QPluginLoader m_loader{QStringLiteral(RADIO_PLUGIN_FILE)};
    QObject* m_root = nullptr;
    hvappframework::Activity* m_activity = nullptr;
    QWidget m_layer;
    QSharedPointer<AuxinModulePlugin> m_auxin;
};

void tst_RadioActivity::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    DataSaveControl::setStoreFile(m_settingsDir.filePath(QStringLiteral("settings.ini")));
    AppData::createInstance();
    BaseControl::createInstance();
    m_auxin = QSharedPointer<AuxinModulePlugin>::create();
    hvappframework::ModuleManager::self()->addModule(m_auxin);
    m_layer.resize(1280, 720);
    hvappframework::UIManager::setUIHerarchy(1, &m_layer);

    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_root = m_loader.instance();
    QVERIFY(m_root);
    m_activity = qobject_cast<hvappframework::Activity*>(m_root);
    QVERIFY(m_activity);
}

void tst_RadioActivity::cleanupTestCase()
{
    m_activity->onDestory();
    hvappframework::ModuleManager::self()->removeModule(QStringLiteral("auxin"));
}

void tst_RadioActivity::metadata()
{
    const QJsonObject meta = m_loader.metaData();
    QCOMPARE(meta.value(QStringLiteral("IID")).toString(), QStringLiteral("activity/0.1"));
    QCOMPARE(meta.value(QStringLiteral("className")).toString(), QStringLiteral("RadioActivity"));
    QVERIFY(meta.value(QStringLiteral("MetaData")).toObject().isEmpty());
}

void tst_RadioActivity::rootIsActivity()
{
    QCOMPARE(m_root->metaObject()->className(), "RadioActivity");
    void* byIid = m_root->qt_metacast("activity/0.1");
    void* byName = m_root->qt_metacast("hvappframework::Activity");
    QVERIFY(byIid);
    QCOMPARE(byIid, byName);
    QVERIFY(byIid != static_cast<void*>(m_root));
    QCOMPARE(m_root->qt_metacast("RadioActivity"), static_cast<void*>(m_root));
    // The loader hands out one root object for the life of the plugin.
    QCOMPARE(m_loader.instance(), m_root);
}

void tst_RadioActivity::property()
{
    QSharedPointer<hvappframework::ActivityProperty> p = m_activity->getProperty();
    QVERIFY(p);
    QCOMPARE(p, m_activity->getProperty());
    QCOMPARE(p->getName(), QStringLiteral("radio"));
    QCOMPARE(p->getDispString(), QStringLiteral("Radio"));
    QCOMPARE(p->getType(), 0);
    QCOMPARE(p->getPriority(), 4);
    QCOMPARE(p->getAnmType(), 0);
    QCOMPARE(p->getResumeType(), 1);
    QVERIFY(p->getCbk().isNull());
    QCOMPARE(p->getStringList(), QStringList{QStringLiteral(":/radioimages/01_radio")});

    QSharedPointer<QStringList> first = p->getDependModules();
    QSharedPointer<QStringList> second = p->getDependModules();
    QCOMPARE(*first, (QStringList{QStringLiteral("auxin"), QStringLiteral("radio")}));
    QVERIFY(first.data() != second.data());
}

void tst_RadioActivity::implicitRules()
{
    const QList<hvappframework::ImplicitRule> rules =
        hvappframework::ImplicitRuleManager::self()->rulesForModule(QStringLiteral("auxin"));
    QCOMPARE(rules.size(), 2);
    QCOMPARE(rules.at(0), hvappframework::ImplicitRule(QStringLiteral("auxin"), 2, 1, QStringLiteral("radio"), 4, 0));
    QCOMPARE(rules.at(1), hvappframework::ImplicitRule(QStringLiteral("auxin"), 3, 0, QStringLiteral("radio"), 2, 0));
}

void tst_RadioActivity::startBeforeCreateDoesNothing()
{
    QCOMPARE(m_activity->onStart(), 0);
    QCOMPARE(m_activity->onStop(), 0);
    QVERIFY(!controller());
}

void tst_RadioActivity::lifecycle()
{
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(m_activity->onCreat(), 0);
        QPointer<QWidget> ui = controller();
        QVERIFY(ui);
        QCOMPARE(ui->metaObject()->className(), "TunerViewImpl");
        QCOMPARE(ui->parentWidget(), &m_layer);
        QVERIFY(ui->isVisible() || !m_layer.isVisible());
        QVERIFY(!ui->isHidden());

        QCOMPARE(m_activity->onStart(), 0);
        QVERIFY(!ui->isHidden());
        QCOMPARE(m_activity->onStop(), 0);
        QVERIFY(ui->isHidden());
        QCOMPARE(m_activity->onStart(), 0);
        QVERIFY(!ui->isHidden());

        QCOMPARE(m_activity->onDestory(), 0);
        QVERIFY(ui.isNull());
        QVERIFY(!controller());
        QCOMPARE(m_activity->onDestory(), 0);
    }
}

void tst_RadioActivity::createTwiceMakesOneController()
{
    QCOMPARE(m_activity->onCreat(), 0);
    QWidget* first = controller();
    QCOMPARE(m_activity->onCreat(), 0);
    QCOMPARE(controller(), first);
    QCOMPARE(m_layer.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
    m_activity->onDestory();
}

// Stopping marks the radio stopped without touching the stream; the next
// start switches the stream on again.
void tst_RadioActivity::stopStopsTheStreamFlagOnly()
{
    AuxinModule* audio = m_auxin->getAuxinModule();
    m_activity->onCreat();
    audio->clearCalls();
    m_activity->onStop();
    QVERIFY(audio->calls().isEmpty());
    m_activity->onStart();
    QCOMPARE(audio->calls(), (QStringList{QStringLiteral("setAVInMode(0)"), QStringLiteral("streamOn()")}));
    m_activity->onDestory();
}

QTEST_MAIN(tst_RadioActivity)
#include "tst_radioactivity.moc"
