// The head unit switching its display language live, on the real radio
// screen against the simulator: a Czech FM station, an FM station replaying
// a real station's RDS log (when the shared data is there), an AM station.
#include "ControlCommands.h"
#include "HeadUnitOptions.h"
#include "HeadUnitShell.h"
#include "HeadUnitWindow.h"
#include "HostInputs.h"
#include "HvIconButton.h"
#include "HvRollingText.h"
#include "LanguageSwitch.h"
#include "PtyNames.h"
#include "SyntheticInput.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

const char* const LineUp = "freq,ps,pty,tp,rt,signal\n"
                           "88.0,R-VLTAVA,16,0,\\xCBesk\\xF5 rozhlas Vltava: Dvo\\xDA\\x80k a Jan\\x80\\xDBek,70\n"
                           "95.0,,0,0,,60\n"
                           "999,,0,0,,60\n";
// Bayern 1, 2019: its radio text carries an RDS-coded o-umlaut.
const char* const RealLog = "walczakp-rds-spy-logs/Germany/D311_-_2019-05-04_15-05-13.spy";
const int Timeout = 20000;

QString translated(const char* context, const char* text)
{
    return QCoreApplication::translate(context, text);
}

// What follows the language at once: widget, context, English text.
const char* const Translated[][3] = {
    {"barTitle", "TunerViewImpl", "Radio"}, {"PTYDisp", "QObject", "Weather"},   {"txtFAM", "RadioKeypad", "FM:"},
    {"Keypad_OK", "RadioKeypad", "OK"},    {"Keypad_Close", "RadioKeypad", "BACK"}, {"homeBtn", "BaseBar", "Home"},
    {"HomeTitle", "HomeScreen", "Home"},   {"RadioTile", "QObject", "Radio"},
};

} // namespace

class tst_LanguageSwitch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void followsLanguage_data();
    void followsLanguage();
    void radioTextDiacritics_data();
    void radioTextDiacritics();

private:
    QWidget* widget(const QString& name) const { return SyntheticInput::findWidget(m_shell->window(), name); }
    QString text(const QString& name) const;
    // Switches at once: only the posted LanguageChange events are
    // delivered, no timer runs.
    void switchTo(const QString& language);

    QTemporaryDir m_dir;
    QProcess m_sim;
    HeadUnitShell* m_shell = nullptr;
    bool m_realLog = false;
};

QString tst_LanguageSwitch::text(const QString& name) const
{
    QWidget* w = widget(name);
    if (auto* label = qobject_cast<QLabel*>(w))
        return label->text();
    if (auto* button = qobject_cast<HvIconButton*>(w))
        return button->displayText();
    if (auto* rolling = qobject_cast<HvRollingText*>(w))
        return rolling->text();
    return w ? w->property("text").toString() : QStringLiteral("<no %1>").arg(name);
}

void tst_LanguageSwitch::switchTo(const QString& language)
{
    QVERIFY(m_shell->languages()->setLanguage(language));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
}

void tst_LanguageSwitch::initTestCase()
{
    QFile lineUp(m_dir.filePath(QStringLiteral("lineup.csv")));
    QVERIFY(lineUp.open(QIODevice::WriteOnly) && lineUp.write(LineUp) > 0 && lineUp.flush());
    QStringList args{QStringLiteral("--lineup"), lineUp.fileName(), QStringLiteral("--rds-speed"), QStringLiteral("20")};
    const QString log = qEnvironmentVariable("RADIO_SHARED_DATA") + QStringLiteral("/rds/") + QLatin1String(RealLog);
    m_realLog = QFile::exists(log);
    if (m_realLog)
        args << QStringLiteral("--rds") << QStringLiteral("95.0=") + log;
    m_sim.start(QStringLiteral(TUNERSIM_BIN), args);
    QVERIFY(m_sim.waitForStarted());
    const auto listening = []() {
        QFile sockets(QStringLiteral("/proc/net/unix"));
        return sockets.open(QIODevice::ReadOnly) && sockets.readAll().contains(" @kestrelhub\n");
    };
    QTRY_VERIFY_WITH_TIMEOUT(listening(), Timeout);

    HeadUnitOptions options;
    QString error;
    const QStringList line{QStringLiteral("hu"), QStringLiteral("--lang"), QStringLiteral("en"),
                           QStringLiteral("--settings"), m_dir.filePath(QStringLiteral("settings.ini"))};
    QVERIFY2(options.parse(line, &error), qPrintable(error));
    m_shell = new HeadUnitShell(options, this);
    QCOMPARE(m_shell->start(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("PSDisp")), QStringLiteral("R-VLTAVA"), Timeout);
    // The keypad and the home screen exist from their first use on.
    SyntheticInput::click(widget(QStringLiteral("Keyboard")));
    QTRY_VERIFY(widget(QStringLiteral("Keypad_OK"))->isVisible());
    SyntheticInput::click(widget(QStringLiteral("Keypad_Close")));
    QVERIFY(m_shell->inputs()->switchTo(QStringLiteral("home")));
    QVERIFY(m_shell->inputs()->switchTo(QStringLiteral("radio")));
}

void tst_LanguageSwitch::cleanupTestCase()
{
    delete m_shell;
    m_sim.terminate();
    m_sim.waitForFinished();
}

void tst_LanguageSwitch::followsLanguage_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("pty");  // the station's programme type as shown
    // In this order: each input switches from the language the row before
    // left, the home screen's button and Ctrl+L to the next one.
    QTest::newRow("de by control command") << "control" << "de" << "Wetter";
    QTest::newRow("fr by host input") << "input" << "fr" << QStringLiteral("Météo");
    QTest::newRow("cs by home screen button") << "button" << "cs" << QStringLiteral("Počasí");
    QTest::newRow("back to en by Ctrl+L") << "shortcut" << "en" << "Weather";
}

void tst_LanguageSwitch::followsLanguage()
{
    QFETCH(QString, input);
    QFETCH(QString, language);
    const QStringList fixed = QStringLiteral("AFDisp TADisp TPDisp BandName MKHz FMicon AMicon af_label ta_label "
                                             "REG_label LOC_label FreqDisp carplayBtn").split(QLatin1Char(' '));
    QStringList before;
    for (const QString& name : fixed)
        before << text(name);

    if (input == QLatin1String("control")) {
        ControlCommands commands(m_shell->window(), m_shell->inputs(), nullptr, QString());
        QCOMPARE(commands.execute(QStringLiteral("host language ") + language),
                 QStringLiteral("ok host language ") + language);
    } else if (input == QLatin1String("input")) {
        QVERIFY(m_shell->inputs()->setLanguage(language));
    } else if (input == QLatin1String("button")) {
        QVERIFY(m_shell->inputs()->switchTo(QStringLiteral("home")));
        qobject_cast<QPushButton*>(widget(QStringLiteral("LanguageKey")))->click();
        QVERIFY(m_shell->inputs()->switchTo(QStringLiteral("radio")));
    } else {
        QTest::keyClick(m_shell->window(), Qt::Key_L, Qt::ControlModifier);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);

    QCOMPARE(m_shell->languages()->language(), language);
    QCOMPARE(m_shell->dumpDocument()[QStringLiteral("host")].toObject()[QStringLiteral("language")].toString(), language);
    for (const auto& t : Translated)
        QCOMPARE(text(QLatin1String(t[0])), translated(t[1], t[2]));
    // The catalogue is in effect: these two differ from English in each.
    QTEST(text(QStringLiteral("PTYDisp")), "pty");
    QCOMPARE(text(QStringLiteral("txtFAM")) == QLatin1String("FM:"), language == QLatin1String("en"));
    QVERIFY(text(QStringLiteral("LanguageKey")).endsWith(LanguageSwitch::nativeName(language)));
    for (int i = 0; i < fixed.size(); ++i)
        QCOMPARE(text(fixed.at(i)), before.at(i));
    for (const QString& name : PTY_NAMES)
        QVERIFY2(translated("QObject", name.toUtf8().constData()).size() <= 8, qPrintable(name));
}

void tst_LanguageSwitch::radioTextDiacritics_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Czech station") << "PS1" << QStringLiteral("Český rozhlas Vltava: Dvořák a Janáček");
    QTest::newRow("real station's log") << "PS2" << QStringLiteral("Kostenloses Hörertelefon");
}

void tst_LanguageSwitch::radioTextDiacritics()
{
    QFETCH(QString, preset);
    QFETCH(QString, expected);
    if (preset == QLatin1String("PS2") && !m_realLog)
        QSKIP("no RDS logs under RADIO_SHARED_DATA");
    switchTo(QStringLiteral("cs"));
    SyntheticInput::click(widget(preset));
    QTRY_VERIFY_WITH_TIMEOUT(text(QStringLiteral("RTDisp")).startsWith(expected), Timeout);
    switchTo(QStringLiteral("en"));
}

QTEST_MAIN(tst_LanguageSwitch)
#include "tst_languageswitch.moc"
