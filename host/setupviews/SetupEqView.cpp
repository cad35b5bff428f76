#include "SetupEqView.h"

#include "DataSaveControl.h"
#include "HvIconButton.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QLoggingCategory>
#include <QPainter>
#include <QPainterPath>
#include <QSlider>
#include <QVBoxLayout>

Q_LOGGING_CATEGORY(lcSetupEq, "hu.views.setupeq")

namespace {

constexpr int MinGain = -12;
constexpr int MaxGain = 12;
constexpr int HandleSize = 30;

const char* const BandNames[] = {"60 Hz", "250 Hz", "1 kHz", "4 kHz", "12 kHz"};
constexpr int Bands = int(sizeof(BandNames) / sizeof(BandNames[0]));

const QColor Accent(0, 240, 251);
const QColor Accent2(20, 80, 255);

const QString StoreGroup = QStringLiteral("eq");

QString storeKey(int band)
{
    return QStringLiteral("band%1").arg(band);
}

QString gainText(int dB)
{
    return dB > 0 ? QStringLiteral("+%1 dB").arg(dB) : QStringLiteral("%1 dB").arg(dB);
}

QLabel* makeLabel(QWidget* parent, int pointSize, const QColor& color, Qt::Alignment align)
{
    auto* label = new QLabel(parent);
    QFont f = label->font();
    f.setPointSize(pointSize);
    label->setFont(f);
    QPalette pal = label->palette();
    pal.setColor(QPalette::WindowText, color);
    label->setPalette(pal);
    label->setAlignment(align);
    return label;
}

HvIconButton* makeButton(QWidget* parent, const QString& name, const QString& text)
{
    auto* button = new HvIconButton(parent);
    button->setObjectName(name);
    button->setButtonID(name);
    button->setDisplayText(text);
    button->setFontSize(18);
    button->setNormalTextColor(QColor(235, 238, 244));
    button->setPressTextColor(Accent);
    button->setFixedSize(150, 56);
    return button;
}

const QString SliderStyle = QStringLiteral(
    "QSlider { background: transparent; }"
    "QSlider::groove:vertical { background: rgba(255,255,255,28); width: 6px; border-radius: 3px; }"
    "QSlider::sub-page:vertical { background: rgba(255,255,255,28); width: 6px; border-radius: 3px; }"
    "QSlider::add-page:vertical { background: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
    " stop:0 rgb(0,240,251), stop:1 rgb(20,80,255)); width: 6px; border-radius: 3px; }"
    "QSlider::handle:vertical { background: qradialgradient(cx:0.4, cy:0.35, radius:0.8,"
    " fx:0.4, fy:0.35, stop:0 #ffffff, stop:1 #d6dbe3); border: 3px solid rgb(0,240,251);"
    " width: 24px; height: 24px; margin: 0 -12px; border-radius: 15px; }");

} // namespace

SetupEqView::SetupEqView(QRect rect, QWidget* parent)
    : QWidget(parent)
{
    setGeometry(rect);

    m_title = makeLabel(this, 28, QColor(255, 255, 255), Qt::AlignLeft | Qt::AlignVCenter);
    m_title->setObjectName(QStringLiteral("eqTitle"));
    QFont titleFont = m_title->font();
    titleFont.setWeight(QFont::DemiBold);
    m_title->setFont(titleFont);

    m_resetBtn = makeButton(this, QStringLiteral("eqResetBtn"), QString());
    m_exitBtn = makeButton(this, QStringLiteral("eqExitBtn"), QString());
    retranslateUi();
    connect(m_resetBtn, &HvIconButton::btnClicked, this, [this] {
        for (int band = 0; band < bandCount(); ++band)
            setGain(band, 0);
    });
    connect(m_exitBtn, &HvIconButton::btnClicked, this, &SetupEqView::exitEqSig);

    auto* header = new QHBoxLayout;
    header->setSpacing(16);
    header->addWidget(m_title, 1);
    header->addWidget(m_resetBtn);
    header->addWidget(m_exitBtn);

    m_bandArea = new QWidget(this);
    m_bandArea->setObjectName(QStringLiteral("eqBands"));
    auto* grid = new QGridLayout(m_bandArea);
    grid->setContentsMargins(ScaleColumn, 18, 24, 18);
    grid->setVerticalSpacing(10);
    for (int band = 0; band < Bands; ++band) {
        auto* value = makeLabel(m_bandArea, 18, Accent, Qt::AlignCenter);
        auto* slider = new QSlider(Qt::Vertical, m_bandArea);
        slider->setObjectName(QStringLiteral("eqBand%1").arg(band));
        slider->setRange(MinGain, MaxGain);
        slider->setPageStep(3);
        slider->setStyleSheet(SliderStyle);
        slider->setMinimumHeight(200);
        slider->setFixedWidth(HandleSize + 16);
        auto* name = makeLabel(m_bandArea, 16, QColor(190, 198, 210), Qt::AlignCenter);
        name->setText(QLatin1String(BandNames[band]));

        bool ok = false;
        const QVariant stored = DataSaveControl::readSettingData(storeKey(band), 0, StoreGroup);
        int dB = stored.toInt(&ok);
        if (!ok || dB < MinGain || dB > MaxGain) {
            qCWarning(lcSetupEq) << "stored gain of band" << band << "unusable, using 0 dB:" << stored;
            dB = 0;
        }
        slider->setValue(dB);
        value->setText(gainText(dB));

        connect(slider, &QSlider::valueChanged, this, [this, band, value](int v) {
            value->setText(gainText(v));
            DataSaveControl::saveSettingData(storeKey(band), v, StoreGroup);
            update();
            emit gainChanged(band, v);
        });

        grid->addWidget(value, 0, band);
        grid->addWidget(slider, 1, band, Qt::AlignHCenter);
        grid->addWidget(name, 2, band);
        grid->setColumnStretch(band, 1);
        m_sliders.append(slider);
    }
    grid->setRowStretch(1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(56, 28, 56, 40);
    layout->setSpacing(24);
    layout->addLayout(header);
    layout->addWidget(m_bandArea, 1);
}

SetupEqView::~SetupEqView() = default;

int SetupEqView::bandCount() const
{
    return m_sliders.size();
}

int SetupEqView::gain(int band) const
{
    if (band < 0 || band >= m_sliders.size()) {
        qCWarning(lcSetupEq) << "no such band:" << band;
        return 0;
    }
    return m_sliders.at(band)->value();
}

void SetupEqView::setGain(int band, int dB)
{
    if (band < 0 || band >= m_sliders.size()) {
        qCWarning(lcSetupEq) << "no such band, gain ignored:" << band;
        return;
    }
    if (dB < MinGain || dB > MaxGain) {
        qCWarning(lcSetupEq) << "gain out of range, clamped:" << dB;
        dB = qBound(MinGain, dB, MaxGain);
    }
    m_sliders.at(band)->setValue(dB);
}

QPointF SetupEqView::handleCentre(int band) const
{
    const QSlider* slider = m_sliders.at(band);
    const QRect g = slider->geometry().translated(m_bandArea->pos());
    const qreal travel = g.height() - HandleSize;
    const qreal t = qreal(MaxGain - slider->value()) / (MaxGain - MinGain);
    return QPointF(g.center().x() + 0.5, g.top() + HandleSize / 2.0 + t * travel);
}

void SetupEqView::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);

    QLinearGradient bg(0, 0, 0, height());
    bg.setColorAt(0, QColor(16, 22, 34));
    bg.setColorAt(1, QColor(5, 7, 12));
    p.fillRect(rect(), bg);

    // Panel behind the bands.
    const QRectF panel = QRectF(m_bandArea->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
    p.setPen(QPen(QColor(255, 255, 255, 26), 1));
    p.setBrush(QColor(255, 255, 255, 10));
    p.drawRoundedRect(panel, 18, 18);

    // Buttons have no images here: give them a frame.
    for (const HvIconButton* button : {m_resetBtn, m_exitBtn}) {
        const QRectF r = QRectF(button->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
        const qreal radius = qMin(r.width(), r.height()) / 4.0;
        p.setPen(QPen(button == m_exitBtn ? QColor(0, 240, 251, 150) : QColor(255, 255, 255, 60), 1.2));
        p.setBrush(QColor(255, 255, 255, 14));
        p.drawRoundedRect(r, radius, radius);
    }

    if (m_sliders.isEmpty())
        return;

    // dB grid lines with their scale on the left.
    const QRect first = m_sliders.first()->geometry().translated(m_bandArea->pos());
    const qreal top = first.top() + HandleSize / 2.0;
    const qreal travel = first.height() - HandleSize;
    QFont small = font();
    small.setPointSize(12);
    p.setFont(small);
    for (int dB = MaxGain; dB >= MinGain; dB -= 6) {
        const qreal y = top + qreal(MaxGain - dB) / (MaxGain - MinGain) * travel;
        p.setPen(QPen(QColor(255, 255, 255, dB == 0 ? 60 : 22), 1, dB == 0 ? Qt::SolidLine : Qt::DashLine));
        p.drawLine(QPointF(panel.left() + ScaleColumn - 8, y), QPointF(panel.right() - 16, y));
        p.setPen(QColor(150, 160, 175));
        p.drawText(QRectF(panel.left() + 8, y - 12, ScaleColumn - 22, 24),
                   Qt::AlignRight | Qt::AlignVCenter, dB > 0 ? QStringLiteral("+%1").arg(dB) : QString::number(dB));
    }

    // Response curve through the handles, filled towards the 0 dB line.
    QVector<QPointF> pts;
    for (int band = 0; band < m_sliders.size(); ++band)
        pts << handleCentre(band);
    QPainterPath curve(pts.first());
    for (int i = 1; i < pts.size(); ++i) {
        const qreal mx = (pts[i - 1].x() + pts[i].x()) / 2;
        curve.cubicTo(QPointF(mx, pts[i - 1].y()), QPointF(mx, pts[i].y()), pts[i]);
    }
    const qreal zeroY = top + travel / 2.0;
    QPainterPath fill = curve;
    fill.lineTo(pts.last().x(), zeroY);
    fill.lineTo(pts.first().x(), zeroY);
    fill.closeSubpath();
    QLinearGradient fg(0, top, 0, top + travel);
    fg.setColorAt(0, QColor(0, 240, 251, 70));
    fg.setColorAt(0.5, QColor(0, 240, 251, 8));
    fg.setColorAt(1, QColor(20, 80, 255, 70));
    p.setPen(Qt::NoPen);
    p.setBrush(fg);
    p.drawPath(fill);
    QLinearGradient stroke(pts.first(), pts.last());
    stroke.setColorAt(0, Accent);
    stroke.setColorAt(1, Accent2.lighter(150));
    p.setPen(QPen(QBrush(stroke), 2.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(curve);
}

void SetupEqView::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange)
        retranslateUi();
    QWidget::changeEvent(e);
}

void SetupEqView::retranslateUi()
{
    m_title->setText(tr("Equalizer"));
    m_resetBtn->setDisplayText(tr("Reset"));
    m_exitBtn->setDisplayText(tr("Back"));
}
