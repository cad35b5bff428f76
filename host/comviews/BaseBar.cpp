#include "BaseBar.h"

#include "HvIconButton.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QLoggingCategory>
#include <QPainter>
#include <QPainterPath>

Q_LOGGING_CATEGORY(lcBaseBar, "hu.views.basebar")

namespace {

struct ButtonSpec
{
    const char* id;
    const char* objectName;
    // Translated in the "BaseBar" context when marked for the catalogues.
    const char* text;
};

const ButtonSpec Buttons[] = {
    {"home", "homeBtn", QT_TRANSLATE_NOOP("BaseBar", "Home")},
    {"carplay", "carplayBtn", "CarPlay"},
    {"AndroidAuto", "androidAutoBtn", "Android Auto"},
};

const QColor Accent(0, 240, 251);
constexpr int IconBox = 24;
constexpr int IconLeft = 18;

void drawHomeIcon(QPainter& p, const QRectF& r)
{
    QPainterPath roof;
    roof.moveTo(r.left(), r.top() + r.height() * 0.48);
    roof.lineTo(r.center().x(), r.top());
    roof.lineTo(r.right(), r.top() + r.height() * 0.48);
    p.drawPath(roof);
    const QRectF body(r.left() + r.width() * 0.18, r.top() + r.height() * 0.42,
                      r.width() * 0.64, r.height() * 0.58);
    p.drawRect(body);
    p.drawRect(QRectF(body.center().x() - r.width() * 0.1, body.bottom() - body.height() * 0.55,
                      r.width() * 0.2, body.height() * 0.55));
}

void drawCarPlayIcon(QPainter& p, const QRectF& r)
{
    p.drawRoundedRect(r, r.width() * 0.24, r.height() * 0.24);
    QPainterPath play;
    play.moveTo(r.left() + r.width() * 0.38, r.top() + r.height() * 0.28);
    play.lineTo(r.left() + r.width() * 0.72, r.center().y());
    play.lineTo(r.left() + r.width() * 0.38, r.bottom() - r.height() * 0.28);
    play.closeSubpath();
    p.save();
    p.setBrush(p.pen().color());
    p.drawPath(play);
    p.restore();
}

void drawAndroidAutoIcon(QPainter& p, const QRectF& r)
{
    // A navigation arrow: the usual emblem of phone projection.
    QPainterPath arrow;
    arrow.moveTo(r.center().x(), r.top());
    arrow.lineTo(r.right(), r.bottom());
    arrow.lineTo(r.center().x(), r.bottom() - r.height() * 0.28);
    arrow.lineTo(r.left(), r.bottom());
    arrow.closeSubpath();
    p.drawPath(arrow);
}

} // namespace

BaseBar::BaseBar(QRect rect, QWidget* parent, int buttons)
    : QWidget(parent)
    , m_title(new QLabel(this))
{
    setGeometry(rect);
    setAttribute(Qt::WA_TranslucentBackground);

    m_title->setObjectName(QStringLiteral("barTitle"));
    QFont titleFont = font();
    titleFont.setPointSize(22);
    titleFont.setWeight(QFont::DemiBold);
    m_title->setFont(titleFont);
    QPalette pal = m_title->palette();
    pal.setColor(QPalette::WindowText, QColor(255, 255, 255));
    m_title->setPalette(pal);
    m_title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(40, 0, 20, 0);
    layout->setSpacing(14);
    layout->addWidget(m_title, 1);

    const int buttonHeight = qBound(32, rect.height() - 24, 56);
    for (int i = 0; i < 3; ++i) {
        if (!(buttons & (1 << i)))
            continue;
        const ButtonSpec& spec = Buttons[i];
        auto* button = new HvIconButton(this);
        button->setObjectName(QLatin1String(spec.objectName));
        button->setButtonID(QLatin1String(spec.id));
        button->setFontSize(15);
        button->setNormalTextColor(QColor(230, 234, 240));
        button->setPressTextColor(Accent);
        button->setTextAlign(Qt::AlignLeft | Qt::AlignVCenter);
        button->setTextLeftMargin(IconLeft + IconBox + 12);
        button->setFixedHeight(buttonHeight);
        connect(button, &HvIconButton::btnClicked, this, &BaseBar::btnClickedSig);
        layout->addWidget(button, 0, Qt::AlignVCenter);
        m_buttons.append(button);
        m_buttonTexts.append(spec.text);
    }
    retranslateUi();
}

BaseBar::~BaseBar() = default;

void BaseBar::setCurrentTitle(QString title, int type)
{
    if (type != 0)
        qCWarning(lcBaseBar) << "unknown title type, shown as plain:" << type;
    m_title->setText(title);
    update();
}

void BaseBar::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange)
        retranslateUi();
    QWidget::changeEvent(e);
}

// Each button is as wide as its text in the current language.
void BaseBar::retranslateUi()
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        HvIconButton* button = m_buttons.at(i);
        button->setDisplayText(QCoreApplication::translate("BaseBar", m_buttonTexts.at(i)));
        QFont textFont = button->font();
        textFont.setPointSize(button->fontSize());
        const int textWidth = QFontMetrics(textFont).horizontalAdvance(button->displayText());
        button->setFixedWidth(button->textLeftMargin() + textWidth + 22);
    }
}

QString BaseBar::currentTitle() const
{
    return m_title->text();
}

void BaseBar::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);

    QLinearGradient bg(0, 0, 0, height());
    bg.setColorAt(0, QColor(6, 10, 18, 238));
    bg.setColorAt(1, QColor(14, 20, 32, 210));
    p.fillRect(rect(), bg);

    // Hairline along the bottom edge, brightest in the middle.
    QLinearGradient line(0, 0, width(), 0);
    QColor edge = Accent;
    edge.setAlpha(0);
    QColor mid = Accent;
    mid.setAlpha(110);
    line.setColorAt(0, edge);
    line.setColorAt(0.5, mid);
    line.setColorAt(1, edge);
    p.fillRect(QRect(0, height() - 1, width(), 1), line);

    if (!m_title->text().isEmpty()) {
        const QRect t = m_title->geometry();
        p.setPen(Qt::NoPen);
        p.setBrush(Accent);
        p.drawRoundedRect(QRectF(t.left() - 16, height() / 2.0 - 14, 4, 28), 2, 2);
    }

    for (HvIconButton* button : qAsConst(m_buttons)) {
        if (!button->isVisible())
            continue;
        const QRectF r = QRectF(button->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
        const qreal radius = qMin(r.width(), r.height()) / 4.0;
        p.setPen(QPen(QColor(255, 255, 255, 40), 1));
        p.setBrush(QColor(255, 255, 255, 16));
        p.drawRoundedRect(r, radius, radius);

        const QRectF icon(r.left() + IconLeft, r.center().y() - IconBox / 2.0, IconBox, IconBox);
        p.setPen(QPen(button->isPressed() ? Accent : QColor(230, 234, 240), 2,
                      Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        const QString id = button->buttonID();
        if (id == QLatin1String("home"))
            drawHomeIcon(p, icon);
        else if (id == QLatin1String("carplay"))
            drawCarPlayIcon(p, icon);
        else
            drawAndroidAutoIcon(p, icon);
    }
}
