#include "TourRunner.h"

#include "ConditionWait.h"
#include "HostState.h"
#include "HvIconButton.h"
#include "HvRollingText.h"
#include "MOnOffButton.h"
#include "RadioModule.h"
#include "SyntheticInput.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPixmap>
#include <QWidget>

#include <cstdio>

namespace {

// The start-up waits for the tuner's first records and the screen's
// start-up timers, so it gets more time than the other steps.
constexpr int StartupTimeoutFactor = 3;
// White: the colour of an indicator that is on.
const QColor IndicatorOn(255, 255, 255);

void report(const QString& text)
{
    // Standard error: standard output carries the radio link's record log.
    std::fputs(qPrintable(QStringLiteral("tour: %1\n").arg(text)), stderr);
}

} // namespace

TourRunner::TourRunner(QWidget* window, const QString& dir, int stepTimeoutMs)
    : m_window(window), m_dir(dir), m_timeout(stepTimeoutMs)
{
}

QWidget* TourRunner::find(const QString& name) const
{
    return SyntheticInput::findWidget(m_window, name);
}

QString TourRunner::labelText(const QString& name) const
{
    auto* label = qobject_cast<QLabel*>(find(name));
    return label ? label->text() : QString();
}

QString TourRunner::stationName() const
{
    auto* ps = qobject_cast<HvRollingText*>(find(QStringLiteral("PSDisp")));
    return ps ? ps->text().trimmed() : QString();
}

bool TourRunner::seekArrived() const
{
    // A seek shows the channels it passes, without a name, and keeps the
    // old name up until the first of them comes in: it has arrived when
    // another station's name is shown.
    const QString name = stationName();
    return labelText(QStringLiteral("FreqDisp")) != m_freqBefore && !name.isEmpty() && name != m_nameBefore;
}

bool TourRunner::presetLit(const QString& name) const
{
    auto* button = qobject_cast<HvIconButton*>(find(name));
    return button && button->isVisible() && button->isDown();
}

bool TourRunner::visible(const QString& name) const
{
    QWidget* w = find(name);
    return w && w->isVisible();
}

std::function<bool(QString*)> TourRunner::click(const QString& name)
{
    return [this, name](QString* why) {
        QWidget* w = find(name);
        if (!w || !w->isVisible()) {
            *why = QStringLiteral("%1 is not on the screen").arg(name);
            return false;
        }
        SyntheticInput::click(w);
        return true;
    };
}

std::function<bool(QString*)> TourRunner::longPress(const QString& name)
{
    return [this, name](QString* why) {
        QWidget* w = find(name);
        if (!w || !w->isVisible()) {
            *why = QStringLiteral("%1 is not on the screen").arg(name);
            return false;
        }
        SyntheticInput::longPress(w, SyntheticInput::longPressHold(w));
        return true;
    };
}

QList<TourRunner::Step> TourRunner::steps()
{
    const auto afOn = [this]() {
        auto* af = qobject_cast<QLabel*>(find(QStringLiteral("AFDisp")));
        return af && af->isVisible() && af->palette().color(af->foregroundRole()) == IndicatorOn;
    };
    // Digits for 101.1 MHz: on the FM grid of every region that reaches it.
    const QStringList keypadDigits{QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("1")};

    return {
        {QStringLiteral("startup"), [](QString*) { return true; },
         [this]() {
             const RadioModule* radio = HostState::radioModule();
             return radio && radio->radioInfo().freqText[0] != '\0' && visible(QStringLiteral("FreqDisp"))
                 && visible(QStringLiteral("PS1"));
         }},
        {QStringLiteral("seek-up"),
         [this](QString* why) {
             m_freqBefore = labelText(QStringLiteral("FreqDisp"));
             m_nameBefore = stationName();
             return click(QStringLiteral("SeekUp"))(why);
         },
         [this]() { return seekArrived(); }},
        {QStringLiteral("preset-2"), click(QStringLiteral("PS2")),
         [this]() { return presetLit(QStringLiteral("PS2")); }},
        {QStringLiteral("seek-down"),
         [this](QString* why) {
             m_freqBefore = labelText(QStringLiteral("FreqDisp"));
             m_nameBefore = stationName();
             return click(QStringLiteral("SeekDown"))(why);
         },
         [this]() { return seekArrived(); }},
        {QStringLiteral("store-preset-5"),
         [this](QString* why) {
             m_storedFreq = labelText(QStringLiteral("FreqDisp"));
             return longPress(QStringLiteral("PS5"))(why);
         },
         [this]() { return presetLit(QStringLiteral("PS5")) && labelText(QStringLiteral("FreqDisp")) == m_storedFreq; }},
        {QStringLiteral("keypad-open"), click(QStringLiteral("Keyboard")),
         [this]() { return visible(QStringLiteral("Keypad_OK")); }},
        {QStringLiteral("keypad-digits"),
         [this, keypadDigits](QString* why) {
             for (const QString& digit : keypadDigits) {
                 auto* key = qobject_cast<HvIconButton*>(find(QStringLiteral("Keypad_") + digit));
                 if (!key || !key->isVisible() || key->disableState()) {
                     *why = QStringLiteral("key %1 is not offered").arg(digit);
                     return false;
                 }
                 SyntheticInput::click(key);
             }
             return true;
         },
         [this]() { return labelText(QStringLiteral("KeypadFreqDispTxt")) == QLatin1String("101.1"); }},
        {QStringLiteral("keypad-ok"), click(QStringLiteral("Keypad_OK")),
         [this]() {
             return !visible(QStringLiteral("Keypad_OK"))
                 && labelText(QStringLiteral("FreqDisp")).startsWith(QLatin1String("101.1"));
         }},
        {QStringLiteral("settings"), click(QStringLiteral("setupBtn")),
         [this]() { return visible(QStringLiteral("AFBtn")); }},
        {QStringLiteral("af-switch"),
         [this, afOn](QString* why) {
             m_afBefore = afOn();
             return click(QStringLiteral("AFBtn"))(why);
         },
         [this, afOn]() {
             auto* sw = qobject_cast<MOnOffButton*>(find(QStringLiteral("AFBtn")));
             return sw && sw->onoffStatus() != m_afBefore && afOn() != m_afBefore;
         }},
        {QStringLiteral("settings-closed"), click(QStringLiteral("setup_close")),
         [this]() { return !visible(QStringLiteral("AFBtn")); }},
        {QStringLiteral("band-am"), click(QStringLiteral("AMicon")),
         [this]() { return labelText(QStringLiteral("BandName")).startsWith(QLatin1String("AM")); }},
        {QStringLiteral("band-fm"), click(QStringLiteral("FMicon")),
         [this]() { return labelText(QStringLiteral("BandName")).startsWith(QLatin1String("FM")); }},
        {QStringLiteral("home"), click(QStringLiteral("homeBtn")),
         [this]() { return visible(QStringLiteral("HomeScreen")) && !visible(QStringLiteral("FreqDisp")); }},
        {QStringLiteral("radio-again"), click(QStringLiteral("RadioTile")),
         [this]() { return visible(QStringLiteral("FreqDisp")) && !visible(QStringLiteral("HomeScreen")); }},
    };
}

int TourRunner::run()
{
    if (!QDir().mkpath(m_dir)) {
        report(QStringLiteral("cannot create %1").arg(m_dir));
        return 1;
    }
    int failed = 0;
    int number = 0;
    for (const Step& step : steps()) {
        ++number;
        const QString file =
            QDir(m_dir).filePath(QStringLiteral("%1-%2.png").arg(number, 2, 10, QLatin1Char('0')).arg(step.name));
        QElapsedTimer clock;
        clock.start();
        QString why;
        bool worked = step.act(&why);
        if (worked) {
            const int timeout = number == 1 ? m_timeout * StartupTimeoutFactor : m_timeout;
            worked = ConditionWait::until(step.done, timeout);
            if (!worked)
                why = QStringLiteral("the screen did not show the result within %1 ms").arg(timeout);
        }
        if (!worked)
            ++failed;
        const bool saved = m_window->grab().save(file);
        if (saved)
            m_saved.append(file);
        report(QStringLiteral("%1-%2 %3 after %4 ms%5%6")
                   .arg(number, 2, 10, QLatin1Char('0'))
                   .arg(step.name, worked ? QStringLiteral("ok") : QStringLiteral("FAILED"))
                   .arg(clock.elapsed())
                   .arg(why.isEmpty() ? QString() : QStringLiteral(": ") + why)
                   .arg(saved ? QString() : QStringLiteral(" (screenshot not saved)")));
    }
    report(QStringLiteral("%1 of %2 steps worked; screenshots in %3")
               .arg(number - failed)
               .arg(number)
               .arg(QDir(m_dir).absolutePath()));
    return failed;
}
