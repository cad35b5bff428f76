#include "RadioActivity.h"
#include "RadioProperty.h"

#include "TunerViewImpl.h"

#include "ImplicitRule.h"
#include "ImplicitRuleManager.h"
#include "UIManager.h"

RadioActivity::RadioActivity() : QObject(nullptr)
{
    QSharedPointer<hvappframework::ActivityEventCbk> cbk;
    const QString name = QStringLiteral("radio");
    QStringList strings{QStringLiteral(":/radioimages/01_radio")};
    m_pProperty = QSharedPointer<RadioProperty>(new RadioProperty(name, 0, cbk, strings, 4, 0, 1));
    registerImplicitRule();
}

RadioActivity::~RadioActivity() = default;

void RadioActivity::registerImplicitRule()
{
    QSharedPointer<hvappframework::ImplicitRuleManager> manager = hvappframework::ImplicitRuleManager::self();
    hvappframework::ImplicitRule rule1(QStringLiteral("auxin"), 2, 1, QStringLiteral("radio"), 4, 0);
    hvappframework::ImplicitRule rule2(QStringLiteral("auxin"), 3, 0, QStringLiteral("radio"), 2, 0);
    manager->registerRule(rule1);
    manager->registerRule(rule2);
}

int RadioActivity::onCreat()
{
    QWidget* ui = m_pProperty->getUiObj();
    if (!ui) {
        TunerViewImpl* controller = new TunerViewImpl(hvappframework::UIManager::getUIHerarchy(1));
        m_pProperty->setUiObj(controller);
        connect(this, SIGNAL(sigOnStart()), controller, SLOT(RadioOnStartSlot()));
        ui = controller;
    }
    ui->show();
    return 0;
}

int RadioActivity::onStart()
{
    if (QWidget* ui = m_pProperty->getUiObj()) {
        ui->show();
        emit sigOnStart();
        ui->setFocus(Qt::OtherFocusReason);
    }
    return 0;
}

int RadioActivity::onStop()
{
    if (QWidget* ui = m_pProperty->getUiObj()) {
        if (TunerViewImpl* controller = qobject_cast<TunerViewImpl*>(ui))
            controller->onStop();
        ui->hide();
    }
    return 0;
}

int RadioActivity::onDestory()
{
    delete m_pProperty->getUiObj();
    m_pProperty->setUiObj(nullptr);
    return 0;
}

QSharedPointer<hvappframework::ActivityProperty> RadioActivity::getProperty()
{
    return m_pProperty;
}
