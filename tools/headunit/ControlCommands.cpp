#include "ControlCommands.h"

#include "ActivityPluginLoader.h"

#include "HostInputs.h"
#include "LanguageSwitch.h"
#include "SyntheticInput.h"

#include <QFile>
#include <QWidget>

namespace {

QString ok(const QString& line, const QString& detail = QString())
{
    return detail.isEmpty() ? QStringLiteral("ok ") + line : QStringLiteral("ok %1 %2").arg(line, detail);
}

QString error(const QString& line, const QString& reason)
{
    return QStringLiteral("error %1: %2").arg(line, reason);
}

// "on" / "off" into *value; false for anything else.
bool onOff(const QString& word, bool* value)
{
    if (word == QLatin1String("on"))
        *value = true;
    else if (word == QLatin1String("off"))
        *value = false;
    else
        return false;
    return true;
}

QString widgetPath(QWidget* widget, QWidget* window)
{
    QStringList names;
    for (QWidget* w = widget; w && w != window; w = w->parentWidget())
        names.prepend(w->objectName().isEmpty() ? QLatin1String(w->metaObject()->className()) : w->objectName());
    return names.join(QLatin1Char('/'));
}

} // namespace

ControlCommands::ControlCommands(QWidget* window, HostInputs* inputs, DumpFn dump, const QString& defaultDumpFile,
                                 QObject* parent)
    : QObject(parent), m_window(window), m_inputs(inputs), m_dump(std::move(dump)), m_defaultDumpFile(defaultDumpFile)
{
}

QString ControlCommands::execute(const QString& rawLine)
{
    const QString line = rawLine.simplified();
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return error(line, QStringLiteral("empty command"));
    const QString& verb = words.first();

    if (verb == QLatin1String("click") || verb == QLatin1String("longpress")) {
        const bool isLong = verb == QLatin1String("longpress");
        if (words.size() != 2 && !(isLong && words.size() == 3))
            return error(line, isLong ? QStringLiteral("usage: longpress NAME [MS]") : QStringLiteral("usage: click NAME"));
        QWidget* target = SyntheticInput::findWidget(m_window, words.at(1));
        if (!target)
            return error(line, QStringLiteral("no widget named %1").arg(words.at(1)));
        if (!target->isVisible())
            return error(line, QStringLiteral("%1 is not visible").arg(words.at(1)));
        if (!isLong) {
            SyntheticInput::click(target);
            return ok(line);
        }
        int hold = SyntheticInput::longPressHold(target);
        if (words.size() == 3) {
            bool valid = false;
            hold = words.at(2).toInt(&valid);
            if (!valid || hold <= 0 || hold > 60000)
                return error(line, QStringLiteral("hold time must be 1 to 60000 ms"));
        }
        SyntheticInput::longPress(target, hold);
        return ok(line, QStringLiteral("held %1 ms").arg(hold));
    }
    if (verb == QLatin1String("tap")) {
        if (words.size() != 3 && words.size() != 4)
            return error(line, QStringLiteral("usage: tap X Y [MS]"));
        bool validX = false;
        bool validY = false;
        bool validHold = true;
        const QPoint pos(words.at(1).toInt(&validX), words.at(2).toInt(&validY));
        const int hold = words.size() == 4 ? words.at(3).toInt(&validHold) : 0;
        if (!validX || !validY || !validHold || hold < 0 || hold > 60000)
            return error(line, QStringLiteral("usage: tap X Y [MS], hold 0 to 60000 ms"));
        QWidget* under = m_window->childAt(pos);
        const QString path = under ? widgetPath(under, m_window) : QStringLiteral("(window)");
        if (!SyntheticInput::tap(m_window, pos, hold))
            return error(line, QStringLiteral("point outside the window, or no native window"));
        return ok(line, path);
    }
    if (verb == QLatin1String("host"))
        return host(words, line);
    if (verb == QLatin1String("activity")) {
        if (words.size() != 2)
            return error(line, QStringLiteral("usage: activity NAME"));
        return m_inputs->switchTo(words.at(1)) ? ok(line) : error(line, QStringLiteral("no such activity"));
    }
    if (verb == QLatin1String("dump")) {
        if (words.size() > 2)
            return error(line, QStringLiteral("usage: dump [FILE]"));
        const QString path = words.size() == 2 ? words.at(1) : m_defaultDumpFile;
        if (path.isEmpty())
            return error(line, QStringLiteral("no file: give one or start with --dump"));
        QString why;
        if (!m_dump || !m_dump(path, &why))
            return error(line, why.isEmpty() ? QStringLiteral("dump failed") : why);
        return words.size() == 2 ? ok(line) : ok(line, path);
    }
    if (verb == QLatin1String("capture"))
        return capture(words, line);
    if (verb == QLatin1String("quit")) {
        emit quitRequested();
        return ok(line);
    }
    return error(line, QStringLiteral("unknown command"));
}

QString ControlCommands::host(const QStringList& words, const QString& line)
{
    const QString what = words.value(1);
    const QString arg = words.value(2);
    const int count = words.size();
    bool flag = false;
    if (what == QLatin1String("region") && count == 3) {
        bool valid = false;
        const int region = arg.toInt(&valid);
        if (!valid || !m_inputs->setRegion(region))
            return error(line, QStringLiteral("region must be 0 to %1").arg(HostInputs::RegionCount - 1));
        return ok(line);
    }
    if (count == 2 && what == QLatin1String("fm")) {
        m_inputs->fmKey();
        return ok(line);
    }
    if (count == 2 && what == QLatin1String("am")) {
        m_inputs->amKey();
        return ok(line);
    }
    if (count == 2 && what == QLatin1String("next")) {
        m_inputs->nextKey();
        return ok(line);
    }
    if (count == 2 && what == QLatin1String("prev")) {
        m_inputs->prevKey();
        return ok(line);
    }
    if (count == 3 && what == QLatin1String("stream") && onOff(arg, &flag))
        return m_inputs->requestStream(flag) ? ok(line) : error(line, QStringLiteral("no radio screen"));
    if (count == 2 && what == QLatin1String("power"))
        return m_inputs->powerKey() ? ok(line) : error(line, QStringLiteral("no radio screen"));
    if (count == 3 && what == QLatin1String("reversing") && onOff(arg, &flag)) {
        m_inputs->setReversing(flag);
        return ok(line);
    }
    if (count == 3 && what == QLatin1String("mute") && onOff(arg, &flag)) {
        m_inputs->setMute(flag);
        return ok(line);
    }
    if (count == 3 && what == QLatin1String("temperature")) {
        bool valid = false;
        const double celsius = arg.toDouble(&valid);
        if (!valid || celsius < -60.0 || celsius > 120.0)
            return error(line, QStringLiteral("temperature must be -60 to 120"));
        m_inputs->setTemperature(celsius);
        return ok(line);
    }
    if (count == 3 && what == QLatin1String("language")) {
        if (!LanguageSwitch::languages().contains(arg))
            return error(line, QStringLiteral("language must be one of %1")
                                   .arg(LanguageSwitch::languages().join(QLatin1Char(' '))));
        return m_inputs->setLanguage(arg) ? ok(line) : error(line, QStringLiteral("no catalogue for %1").arg(arg));
    }
    return error(line, QStringLiteral("usage: host region N | fm | am | next | prev | stream on|off | power | "
                                      "reversing on|off | temperature C | mute on|off | language en|de|fr|cs"));
}

// The link's capture is reached by the C names the radio plugin exports.
QString ControlCommands::capture(const QStringList& words, const QString& line)
{
    const bool start = words.size() == 3 && words.at(1) == QLatin1String("start");
    if (!start && !(words.size() == 2 && words.at(1) == QLatin1String("stop")))
        return error(line, QStringLiteral("usage: capture start FILE | capture stop"));
    const QFunctionPointer fn =
        m_plugins ? m_plugins->resolve(start ? "radio_link_capture_start" : "radio_link_capture_stop") : nullptr;
    if (!fn)
        return error(line, QStringLiteral("no radio link"));
    if (!start) {
        reinterpret_cast<void (*)()>(fn)();
        return ok(line);
    }
    const QByteArray path = QFile::encodeName(words.at(2));
    if (reinterpret_cast<int (*)(const char*)>(fn)(path.constData()) != 0)
        return error(line, QStringLiteral("cannot write %1").arg(words.at(2)));
    return ok(line);
}
