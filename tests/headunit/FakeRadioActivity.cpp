#include "FakeRadioActivity.h"

#include "ActivityProperty.h"
#include "UIManager.h"

FakeRadioActivity::FakeRadioActivity()
{
    QStringList strings{QStringLiteral(":/radioimages/01_radio")};
    m_property = QSharedPointer<hvappframework::ActivityProperty>::create(
        QStringLiteral("radio"), 0, QSharedPointer<hvappframework::ActivityEventCbk>(), strings, 4, 0, 1);
}

FakeRadioActivity::~FakeRadioActivity()
{
    delete m_controller;
}

int FakeRadioActivity::onCreat()
{
    lifecycle << QStringLiteral("onCreat");
    if (!m_controller) {
        m_controller = new FakeRadioController(hvappframework::UIManager::getUIHerarchy(1));
        m_controller->setObjectName(QStringLiteral("FakeRadio"));
        m_property->setUiObj(m_controller);
    }
    return 0;
}

int FakeRadioActivity::onDestory()
{
    lifecycle << QStringLiteral("onDestory");
    delete m_controller;
    m_controller = nullptr;
    m_property->setUiObj(nullptr);
    return 0;
}

int FakeRadioActivity::onStart()
{
    lifecycle << QStringLiteral("onStart");
    if (m_controller)
        m_controller->show();
    return 0;
}

int FakeRadioActivity::onStop()
{
    lifecycle << QStringLiteral("onStop");
    if (m_controller)
        m_controller->hide();
    return 0;
}

QSharedPointer<hvappframework::ActivityProperty> FakeRadioActivity::getProperty()
{
    return m_property;
}
