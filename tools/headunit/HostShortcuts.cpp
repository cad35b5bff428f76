#include "HostShortcuts.h"

#include "HostInputs.h"

#include <QApplication>
#include <QCoreApplication>
#include <QShortcut>
#include <QWidget>

#include <functional>

namespace {

constexpr double TemperatureStep = 1.0;

struct Action
{
    QKeySequence keys;
    const char* description;
    std::function<void(HostInputs*)> run;
};

const QList<Action>& actions()
{
    static const QList<Action> list{
        {QKeySequence(Qt::Key_F1), QT_TRANSLATE_NOOP("HostShortcuts", "Home screen"),
         [](HostInputs* in) { in->switchTo(QStringLiteral("home")); }},
        {QKeySequence(Qt::Key_F2), QT_TRANSLATE_NOOP("HostShortcuts", "Radio screen"),
         [](HostInputs* in) { in->switchTo(QStringLiteral("radio")); }},
        {QKeySequence(Qt::Key_F3), QT_TRANSLATE_NOOP("HostShortcuts", "FM key"), [](HostInputs* in) { in->fmKey(); }},
        {QKeySequence(Qt::Key_F4), QT_TRANSLATE_NOOP("HostShortcuts", "AM key"), [](HostInputs* in) { in->amKey(); }},
        {QKeySequence(Qt::Key_F5), QT_TRANSLATE_NOOP("HostShortcuts", "Previous key"),
         [](HostInputs* in) { in->prevKey(); }},
        {QKeySequence(Qt::Key_F6), QT_TRANSLATE_NOOP("HostShortcuts", "Next key"),
         [](HostInputs* in) { in->nextKey(); }},
        {QKeySequence(Qt::Key_F7), QT_TRANSLATE_NOOP("HostShortcuts", "Audio stream on/off"),
         [](HostInputs* in) { in->toggleStream(); }},
        {QKeySequence(Qt::Key_F8), QT_TRANSLATE_NOOP("HostShortcuts", "Region -1"),
         [](HostInputs* in) { in->stepRegion(-1); }},
        {QKeySequence(Qt::Key_F9), QT_TRANSLATE_NOOP("HostShortcuts", "Region +1"),
         [](HostInputs* in) { in->stepRegion(1); }},
        {QKeySequence(Qt::Key_F10), QT_TRANSLATE_NOOP("HostShortcuts", "Reversing on/off"),
         [](HostInputs* in) { in->toggleReversing(); }},
        {QKeySequence(Qt::Key_F11), QT_TRANSLATE_NOOP("HostShortcuts", "Temperature -1 °C"),
         [](HostInputs* in) { in->stepTemperature(-TemperatureStep); }},
        {QKeySequence(Qt::Key_F12), QT_TRANSLATE_NOOP("HostShortcuts", "Temperature +1 °C"),
         [](HostInputs* in) { in->stepTemperature(TemperatureStep); }},
        {QKeySequence(Qt::CTRL | Qt::Key_M), QT_TRANSLATE_NOOP("HostShortcuts", "Mute on/off"),
         [](HostInputs* in) { in->toggleMute(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_P), QT_TRANSLATE_NOOP("HostShortcuts", "Power key"),
         [](HostInputs* in) { in->powerKey(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_L), QT_TRANSLATE_NOOP("HostShortcuts", "Next language"),
         [](HostInputs* in) { in->nextLanguage(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_Q), QT_TRANSLATE_NOOP("HostShortcuts", "Quit"),
         [](HostInputs*) { QApplication::quit(); }},
    };
    return list;
}

} // namespace

HostShortcuts::HostShortcuts(QWidget* window, HostInputs* inputs) : QObject(window)
{
    for (const Action& action : actions()) {
        auto* shortcut = new QShortcut(action.keys, window);
        shortcut->setContext(Qt::ApplicationShortcut);
        const auto run = action.run;
        connect(shortcut, &QShortcut::activated, inputs, [run, inputs]() { run(inputs); });
    }
}

QList<HostShortcuts::Binding> HostShortcuts::bindings()
{
    QList<Binding> list;
    for (const Action& action : actions())
        list.append({action.keys, QCoreApplication::translate("HostShortcuts", action.description)});
    return list;
}
