#include "HomeActivity.h"

#include "ActivityProperty.h"
#include "HomeScreen.h"
#include "UIManager.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcHome, "hu.shell.home")

HomeActivity::HomeActivity(HostInputs* inputs, QObject* parent) : QObject(parent), m_inputs(inputs)
{
    QStringList strings;
    m_property = QSharedPointer<hvappframework::ActivityProperty>::create(
        QStringLiteral("home"), 0, QSharedPointer<hvappframework::ActivityEventCbk>(), strings, 0, 0, 0);
}

HomeActivity::~HomeActivity()
{
    delete m_screen.data();
}

int HomeActivity::onCreat()
{
    if (m_screen)
        return 0;
    QWidget* layer = hvappframework::UIManager::getUIHerarchy(1);
    if (!layer)
        qCWarning(lcHome) << "no UI layer 1: the home screen opens as a window of its own";
    m_screen = new HomeScreen(m_inputs, layer);
    m_screen->hide();
    m_property->setUiObj(m_screen);
    return 0;
}

int HomeActivity::onDestory()
{
    delete m_screen.data();
    m_property->setUiObj(nullptr);
    return 0;
}

int HomeActivity::onStart()
{
    if (!m_screen)
        return 0;
    m_screen->show();
    m_screen->raise();
    m_screen->setFocus(Qt::OtherFocusReason);
    return 0;
}

int HomeActivity::onStop()
{
    if (m_screen)
        m_screen->hide();
    return 0;
}

QSharedPointer<hvappframework::ActivityProperty> HomeActivity::getProperty()
{
    return m_property;
}

HomeScreen* HomeActivity::screen() const
{
    return m_screen.data();
}
