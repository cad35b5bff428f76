#include "HostInputPanel.h"

#include "AppData.h"
#include "AudioControl.h"
#include "BaseControl.h"
#include "HostInputs.h"
#include "HostShortcuts.h"
#include "LanguageSwitch.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

HostInputPanel::HostInputPanel(HostInputs* inputs, QWidget* parent)
    : QWidget(parent), m_inputs(inputs), m_region(new QSpinBox(this)), m_temperature(new QDoubleSpinBox(this)),
      m_reversing(new QCheckBox(this)), m_mute(new QCheckBox(this)), m_title(new QLabel(this)),
      m_legend{new QLabel(this), new QLabel(this)}
{
    setObjectName(QStringLiteral("HostPanel"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 12, 16, 12);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(10);

    m_title->setObjectName(QStringLiteral("HostPanelTitle"));
    grid->addWidget(m_title, 0, 0, 1, 2);

    m_region->setObjectName(QStringLiteral("RegionSpin"));
    m_region->setRange(0, HostInputs::RegionCount - 1);
    auto* setRegion = addButton("RegionSet", QT_TR_NOOP("Set region"));
    grid->addWidget(m_region, 1, 0);
    grid->addWidget(setRegion, 1, 1);
    connect(setRegion, &QPushButton::clicked, this, [this]() { m_inputs->setRegion(m_region->value()); });

    auto* fm = addButton("FmKey", QT_TR_NOOP("FM key"));
    auto* am = addButton("AmKey", QT_TR_NOOP("AM key"));
    auto* prev = addButton("PrevKey", QT_TR_NOOP("Previous"));
    auto* next = addButton("NextKey", QT_TR_NOOP("Next"));
    auto* streamOn = addButton("StreamOn", QT_TR_NOOP("Stream on"));
    auto* streamOff = addButton("StreamOff", QT_TR_NOOP("Stream off"));
    auto* power = addButton("PowerKey", QT_TR_NOOP("Power key"));
    m_language = addButton("LanguageKey", nullptr);
    grid->addWidget(fm, 2, 0);
    grid->addWidget(am, 2, 1);
    grid->addWidget(prev, 3, 0);
    grid->addWidget(next, 3, 1);
    grid->addWidget(streamOn, 4, 0);
    grid->addWidget(streamOff, 4, 1);
    grid->addWidget(power, 5, 0);
    grid->addWidget(m_language, 5, 1);
    connect(fm, &QPushButton::clicked, inputs, &HostInputs::fmKey);
    connect(am, &QPushButton::clicked, inputs, &HostInputs::amKey);
    connect(prev, &QPushButton::clicked, inputs, &HostInputs::prevKey);
    connect(next, &QPushButton::clicked, inputs, &HostInputs::nextKey);
    connect(streamOn, &QPushButton::clicked, this, [this]() { m_inputs->requestStream(true); });
    connect(streamOff, &QPushButton::clicked, this, [this]() { m_inputs->requestStream(false); });
    connect(power, &QPushButton::clicked, inputs, &HostInputs::powerKey);
    connect(m_language, &QPushButton::clicked, inputs, &HostInputs::nextLanguage);

    m_temperature->setObjectName(QStringLiteral("TemperatureSpin"));
    m_temperature->setRange(-40.0, 85.0);
    m_temperature->setDecimals(1);
    m_temperature->setSuffix(QStringLiteral(" °C"));
    m_temperature->setValue(20.0);
    auto* setTemperature = addButton("TemperatureSet", QT_TR_NOOP("Set temperature"));
    grid->addWidget(m_temperature, 6, 0);
    grid->addWidget(setTemperature, 6, 1);
    connect(setTemperature, &QPushButton::clicked, this, [this]() { m_inputs->setTemperature(m_temperature->value()); });

    m_reversing->setObjectName(QStringLiteral("ReversingCheck"));
    m_mute->setObjectName(QStringLiteral("MuteCheck"));
    m_reversing->setFocusPolicy(Qt::NoFocus);
    m_mute->setFocusPolicy(Qt::NoFocus);
    m_texts.append({m_reversing, QT_TR_NOOP("Reversing")});
    m_texts.append({m_mute, QT_TR_NOOP("Mute")});
    grid->addWidget(m_reversing, 7, 0);
    grid->addWidget(m_mute, 7, 1);
    connect(m_reversing, &QCheckBox::toggled, inputs, &HostInputs::setReversing);
    connect(m_mute, &QCheckBox::toggled, inputs, &HostInputs::setMute);

    QFont small = font();
    small.setPointSize(11);
    for (int c = 0; c < 2; ++c) {
        m_legend[c]->setObjectName(QStringLiteral("ShortcutLegend%1").arg(c + 1));
        m_legend[c]->setFont(small);
        m_legend[c]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(m_legend[c], 8, c);
    }
    grid->setRowStretch(9, 1);

    if (AppData* data = AppData::GetInstance())
        connect(data, &AppData::reversingChanged, this, &HostInputPanel::syncFromHost);
    if (AudioControl* audio = AudioControl::getInstance())
        connect(audio, &AudioControl::muteChanged, this, &HostInputPanel::syncFromHost);
    if (BaseControl* control = BaseControl::getInstance()) {
        // Only a region report moves the spin box: a value being chosen
        // survives the radio's other host calls.
        connect(control, &BaseControl::callRecorded, this, [this](const QString& call) {
            if (call.startsWith(QLatin1String("setRadioRegion(")))
                syncFromHost();
        });
    }
    syncFromHost();
    retranslateUi();
}

QPushButton* HostInputPanel::addButton(const char* objectName, const char* text)
{
    auto* button = new QPushButton(this);
    button->setObjectName(QLatin1String(objectName));
    button->setFocusPolicy(Qt::NoFocus);
    if (text)
        m_texts.append({button, text});
    return button;
}

void HostInputPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
    QWidget::changeEvent(event);
}

void HostInputPanel::retranslateUi()
{
    m_title->setText(tr("Host inputs"));
    m_region->setPrefix(tr("Region "));
    for (const auto& text : qAsConst(m_texts))
        text.first->setText(tr(text.second));
    // Named in the language it is: whoever cannot read the current one
    // still finds their own on the way round.
    const LanguageSwitch* languages = m_inputs->languageSwitch();
    m_language->setText(tr("Language: %1").arg(LanguageSwitch::nativeName(languages ? languages->language() : QString())));
    m_language->setEnabled(languages != nullptr);

    // The shortcuts in two columns, filled top to bottom.
    const QList<HostShortcuts::Binding> bindings = HostShortcuts::bindings();
    const int perColumn = (bindings.size() + 1) / 2;
    QStringList columns[2];
    for (int i = 0; i < bindings.size(); ++i) {
        columns[i / perColumn].append(QStringLiteral("%1  %2").arg(
            bindings.at(i).keys.toString(QKeySequence::NativeText), bindings.at(i).description));
    }
    for (int c = 0; c < 2; ++c)
        m_legend[c]->setText(columns[c].join(QLatin1Char('\n')));
}

void HostInputPanel::syncFromHost()
{
    if (const AppData* data = AppData::GetInstance()) {
        const QSignalBlocker block(m_reversing);
        m_reversing->setChecked(data->getIsReversing());
    }
    if (const AudioControl* audio = AudioControl::getInstance()) {
        const QSignalBlocker block(m_mute);
        m_mute->setChecked(audio->isMute());
    }
    if (const BaseControl* control = BaseControl::getInstance()) {
        if (control->radioRegion() >= 0 && control->radioRegion() < HostInputs::RegionCount) {
            const QSignalBlocker block(m_region);
            m_region->setValue(control->radioRegion());
        }
    }
}
