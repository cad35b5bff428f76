#include "HomeScreen.h"

#include "Activity.h"
#include "ActivityManager.h"
#include "ActivityProperty.h"
#include "HostInputPanel.h"
#include "HostInputs.h"
#include "HostStatusPanel.h"
#include "HvIconButton.h"
#include "UIManager.h"

#include <QEvent>
#include <QLabel>

const char* const HomeScreen::DefaultRadioIcon = ":/radioimages/01_radio";

namespace {

const QRect TitleRect(0, 0, 1280, 80);
const QRect TileRect(60, 150, 260, 300);
const QRect StatusRect(350, 96, 460, 610);
const QRect PanelRect(830, 96, 420, 610);

// The radio activity's own icon and name, as it registered them.
void radioIdentity(QString* icon, QString* name)
{
    *icon = QLatin1String(HomeScreen::DefaultRadioIcon);
    *name = QObject::tr("Radio");
    hvappframework::Activity* radio = hvappframework::ActivityManager::self()->activity(QStringLiteral("radio"));
    const QSharedPointer<hvappframework::ActivityProperty> property =
        radio ? radio->getProperty() : QSharedPointer<hvappframework::ActivityProperty>();
    if (!property)
        return;
    if (!property->getStringList().isEmpty() && !property->getStringList().first().isEmpty())
        *icon = property->getStringList().first();
    if (!property->getDispString().isEmpty())
        *name = property->getDispString();
}

} // namespace

HomeScreen::HomeScreen(HostInputs* inputs, QWidget* parent)
    : QWidget(parent), m_title(new QLabel(this)), m_radioTile(new HvIconButton(this)),
      m_status(new HostStatusPanel(this))
{
    setObjectName(QStringLiteral("HomeScreen"));
    setGeometry(hvappframework::UIManager::getSystemViewRect());
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(16, 24, 32));
    colours.setColor(QPalette::WindowText, QColor(230, 230, 230));
    colours.setColor(QPalette::Text, QColor(230, 230, 230));
    colours.setColor(QPalette::Base, QColor(32, 44, 56));
    colours.setColor(QPalette::Button, QColor(40, 56, 72));
    colours.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    setPalette(colours);
    setAutoFillBackground(true);
    QFont body = font();
    body.setPointSize(13);
    setFont(body);

    m_title->setObjectName(QStringLiteral("HomeTitle"));
    m_title->setGeometry(TitleRect);
    m_title->setAlignment(Qt::AlignCenter);
    QFont titleFont = m_title->font();
    titleFont.setPointSize(28);
    m_title->setFont(titleFont);

    QString icon;
    QString name;
    radioIdentity(&icon, &name);
    m_radioTile->setObjectName(QStringLiteral("RadioTile"));
    m_radioTile->setGeometry(TileRect);
    m_radioTile->setNormalImage(icon);
    m_radioTile->setPressImage(icon);
    m_radioTile->setButtonID(QStringLiteral("radio"));
    m_radioTile->setFontSize(26);
    m_radioTile->setTextTopMargin(TileRect.height() - 60);
    m_radioTile->setTextHeight(50);
    connect(m_radioTile, &HvIconButton::btnClicked, inputs, [inputs]() { inputs->switchTo(QStringLiteral("radio")); });

    m_status->setGeometry(StatusRect);
    connect(inputs, &HostInputs::applied, m_status, &HostStatusPanel::showInput);

    auto* panel = new HostInputPanel(inputs, this);
    panel->setGeometry(PanelRect);
    retranslateUi();
}

void HomeScreen::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
    QWidget::changeEvent(event);
}

void HomeScreen::retranslateUi()
{
    m_title->setText(tr("Home"));
    // The radio names itself in the current language.
    QString icon;
    QString name;
    radioIdentity(&icon, &name);
    m_radioTile->setDisplayText(name);
}
