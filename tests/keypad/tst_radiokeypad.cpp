#include "RadioKeypad.h"

#include "AppData.h"
#include "HostEvents.h"
#include "HvIconButton.h"
#include "ObjectTimers.h"

#include <QImage>
#include <QRegularExpression>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int AutoHideMs = 15000;

} // namespace

class tst_RadioKeypad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void keys_data();
    void keys();
    void trail_data();
    void trail();
    void wallPaper();
    void dimmedKeys();

private:
    HvIconButton* key(const QString& name) const { return m_keypad->findChild<HvIconButton*>(name); }
    QString text(const char* label) const { return m_keypad->findChild<QLabel*>(QLatin1String(label))->text(); }
    QString offered() const;
    void play(const QString& keys);

    QTemporaryDir m_dir;
    RadioKeypad* m_keypad = nullptr;
};

void tst_RadioKeypad::initTestCase()
{
    AppData::createInstance();
    QVERIFY(m_dir.isValid());
}

void tst_RadioKeypad::init()
{
    m_keypad = new RadioKeypad;
    m_keypad->show();
}

void tst_RadioKeypad::cleanup()
{
    delete m_keypad;
    m_keypad = nullptr;
}

// The digit keys that can still be pressed, ascending.
QString tst_RadioKeypad::offered() const
{
    QString digits;
    for (int d = 0; d <= 9; ++d) {
        if (!key(QStringLiteral("Keypad_%1").arg(d))->disableState())
            digits += QString::number(d);
    }
    return digits;
}

// Digits are taps on their keys (a greyed key ignores the tap); "*d" hands
// digit d to the pad as if a key had sent it, '"' the next two characters
// as one key; '<' taps the clear key, '#'
// holds it; 'K' taps OK, 'E' is the enter key, 'C' the close key; 'a'/'f'
// switch to AM1/FM1; the rest are the auto-hide steps of keys_data().
void tst_RadioKeypad::play(const QString& keys)
{
    for (int i = 0; i < keys.size(); ++i) {
        const QChar c = keys.at(i);
        if (c.isDigit())
            QTest::mouseClick(key(QStringLiteral("Keypad_") + c), Qt::LeftButton);
        else if (c == QLatin1Char('*'))
            m_keypad->RadioKeypadPressed(keys.at(++i));
        else if (c == QLatin1Char('"'))
            m_keypad->RadioKeypadPressed(keys.mid(++i, 2)), ++i;
        else if (c == QLatin1Char('<'))
            QTest::mouseClick(key(QStringLiteral("Keypad_Clear")), Qt::LeftButton);
        else if (c == QLatin1Char('#'))
            emit key(QStringLiteral("Keypad_Clear"))->btnLongPress(QStringLiteral("FreqClear"));
        else if (c == QLatin1Char('K'))
            QTest::mouseClick(key(QStringLiteral("Keypad_OK")), Qt::LeftButton);
        else if (c == QLatin1Char('E'))
            m_keypad->enterPressed();
        else if (c == QLatin1Char('C'))
            QTest::mouseClick(key(QStringLiteral("Keypad_Close")), Qt::LeftButton);
        else if (c == QLatin1Char('a') || c == QLatin1Char('f'))
            m_keypad->sltRadioBandChanged(c == QLatin1Char('a') ? 3 : 0);
        else if (c == QLatin1Char('p'))
            QTest::mousePress(m_keypad, Qt::LeftButton, {}, QPoint(20, 20));
        else if (c == QLatin1Char('r'))
            QTest::mouseRelease(m_keypad, Qt::LeftButton, {}, QPoint(20, 20));
        else if (c == QLatin1Char('k'))
            QTest::keyPress(m_keypad, Qt::Key_A);
        else if (c == QLatin1Char('u'))
            QTest::keyRelease(m_keypad, Qt::Key_A);
        else if (c == QLatin1Char('h') || c == QLatin1Char('s'))
            m_keypad->setVisible(c == QLatin1Char('s'));
        else if (c == QLatin1Char('F'))
            QVERIFY(ObjectTimers::fire(m_keypad, AutoHideMs));
    }
}

void tst_RadioKeypad::keys_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("digits");
    QTest::addColumn<int>("emitted");  // -1: nothing
    QTest::addColumn<bool>("counting");

    auto row = [](const char* name, int region, int band, const char* keys, const char* display, const char* digits,
                  int emitted = -1, bool counting = true) {
        QTest::newRow(name) << region << band << QString::fromLatin1(keys) << QString::fromLatin1(display)
                            << QString::fromLatin1(digits) << emitted << counting;
    };
    const char* all = "0123456789";
    // Region 6: FM 87.50-108.00 MHz in 100 kHz steps; 12: 50 kHz steps;
    // 1: 87.50-107.90 MHz in 200 kHz steps; 9: 65.00-74.00 MHz in 30 kHz
    // steps; 4: AM 522-1629 kHz in 9 kHz steps.
    row("fm keys that are not one digit", 6, 0, "*:*/\"10", "", "189");
    row("fm 1 then a two-digit key", 6, 0, "1\"05", "1", "0");
    row("fm no sixth digit", 12, 0, "87505", "87.50", "");
    row("backspace empty", 6, 0, "<", "", "189");
    row("hold clear", 6, 0, "87#", "", "189");
    row("hold clear, then type", 6, 0, "87#8", "8", "789");
    row("hold clear empty", 6, 0, "#", "", "189");
    row("band change discards", 6, 0, "87a", "", "156789");
    row("back to fm", 6, 3, "53f8", "8", "789");
    // OK turns the entry into tuner units and closes the pad.
    row("ok 87.5", 6, 0, "875K", "", all, 8750, false);
    row("ok 87. is below the band", 6, 0, "87K", "", all, -1, false);
    row("ok 87.50", 12, 0, "8750K", "", all, 8750, false);
    row("ok 87.55", 12, 0, "8755K", "", all, 8755, false);
    row("ok 105.", 6, 0, "105K", "", all, 10500, false);
    row("enter 105.1", 6, 0, "1051E", "", all, 10510, false);
    row("ok 65.03", 9, 0, "6503K", "", all, 6503, false);
    row("ok nothing typed", 6, 0, "K", "", all, -1, false);
    row("ok am 531", 4, 3, "531K", "", all, 531, false);
    row("ok am 1629", 4, 3, "1629K", "", all, 1629, false);
    row("ok am two digits", 4, 3, "53K", "", all, -1, false);
    row("ok am 100 below the band", 4, 3, "100K", "", all, -1, false);
    row("ok 76. at the bottom", 5, 0, "76K", "", all, 7600, false);
    row("ok 90. at the top", 5, 0, "90K", "", all, 9000, false);
    row("ok 91. above the band", 5, 0, "9*1K", "", all, -1, false);
    row("ok 108.0", 6, 0, "1080K", "", all, 10800, false);
    row("ok 108.00", 12, 0, "10800K", "", all, 10800, false);
    row("ok 10 has no point", 6, 0, "10K", "", all, -1, false);
    row("close key", 6, 0, "875C", "", all, -1, false);
    // Auto-hide: 'p'/'r' finger down/up on the pad, 'k'/'u' key down/up,
    // 'h' hide, 's' show, 'F' the 15 s pass.
    row("hides after 15 s", 6, 0, "87F", "", all, -1, false);
    row("finger down stops it", 6, 0, "87p", "87.", "56789", -1, false);
    row("finger up restarts", 6, 0, "87pr", "87.", "56789", -1, true);
    row("two releases leave one timer", 6, 0, "87rrF", "", all, -1, false);
    row("key down stops it", 6, 0, "87k", "87.", "56789", -1, false);
    row("key up restarts", 6, 0, "87ku", "87.", "56789", -1, true);
    row("hidden", 6, 0, "87h", "87.", "56789", -1, false);
    row("release while hidden", 6, 0, "87hr", "87.", "56789", -1, false);
    row("shown again", 6, 0, "87hs", "87.", "56789", -1, true);
}

void tst_RadioKeypad::keys()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, keys);
    QFETCH(int, emitted);
    QFETCH(bool, counting);

    m_keypad->sltRadioRegionChanged(band, region);
    QSignalSpy spy(m_keypad, SIGNAL(FreqInputOK(unsigned short)));
    play(keys);
    QTEST(text("KeypadFreqDispTxt"), "display");
    QTEST(offered(), "digits");
    QCOMPARE(text("txtFAM"), keys.contains(QLatin1Char('a')) || (band > 2 && !keys.contains(QLatin1Char('f')))
                                 ? QStringLiteral("AM:") : QStringLiteral("FM:"));
    QCOMPARE(spy.count(), emitted < 0 ? 0 : 1);
    if (emitted >= 0)
        QCOMPARE(spy.at(0).at(0).value<unsigned short>(), static_cast<unsigned short>(emitted));
    // OK, enter, close and the timer close the pad; a hide lasts until a show.
    QCOMPARE(m_keypad->isVisible(), !keys.contains(QRegularExpression(QStringLiteral("[KECF]$|h[^s]*$"))));
    QCOMPARE(ObjectTimers::isRunning(m_keypad, AutoHideMs), counting);
}

// After each step (keys as in play(), then ':') the display and the digits
// offered next; runs to the top of each band plan, one step below it, and
// both sides of every bound a digit is checked against.
void tst_RadioKeypad::trail_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("trail");
    auto row = [](const char* name, int region, int band, const char* trail) {
        QTest::newRow(name) << region << band << QString::fromLatin1(trail);
    };
    // Regions: 6 FM 87.50-108.00 step 100 kHz, 5 FM 76.00-90.00 step
    // 100 kHz, 12 step 50 kHz, 1 FM 87.50-107.90 step 200 kHz, 9 FM
    // 65.00-74.00 step 30 kHz, 4 FM from 76.00; AM 4 522-1629 step 9,
    // 2 531-1602, 7 531-1611, 14 522-1620, 0 530-1710 step 10, 19 520-1620.
    row("fm 100 kHz to the top and one step below", 6, 0, ":/189 1:1/0 0:10/012345678 8:108./0 0:108.0/ <:108./0 "
        "<:10/012345678 7:107./0123456789 9:107.9/");
    row("fm bottom of the band", 6, 0, "*7:/189 8:8/789 *6:8/789 7:87./56789 *4:87./56789 5:87.5/");
    row("fm 1 and 10 take only what fits", 6, 0, "1:1/0 *1:1/0 *5:1/0 0:10/012345678 *9:10/012345678 8:108./0 "
        "*1:108./0");
    row("fm 100 kHz band ending at 90.0", 5, 0, ":/789 *1:/789 9:9/0 0:90./0 0:90.0/ <:90./0 <:9/0 <:/789 "
        "8:8/0123456789 9:89./0123456789 9:89.9/");
    row("fm leading zeros", 5, 0, "*0:0/ *0:00/ *0:000./ *0:000.0/ *0:000.0/");
    row("fm 50 kHz to the top and one step below", 12, 0, "1:1/0 0:10/012345678 8:108./0 0:108.0/0 *1:108.0/0 "
        "0:108.00/ <:108.0/0 <:108./0 <:10/012345678 7:107./0123456789 9:107.9/05 5:107.95/");
    row("fm 200 kHz to the top and one step below", 1, 0, "1:1/0 0:10/01234567 *8:10/01234567 7:107./13579 9:107.9/0 "
        "0:107.90/ <:107.9/0 <:107./13579 7:107.7/");
    row("fm 200 kHz bottom", 1, 0, "8:8/789 7:87./579 5:87.5/");
    row("fm 30 kHz to the top and one step below", 9, 0, ":/67 7:7/01234 4:74./0 0:74.0/0 0:74.00/ <:74.0/0 <:74./0 "
        "<:7/01234 3:73./0123456789 9:73.9/147 7:73.97/");
    row("fm from 76 MHz first digits", 4, 0, ":/1789");
    row("am 9 kHz 1629, bottom 522", 4, 3, ":/156789 *4:/156789 *0:/156789 1:1/0123456 *7:1/0123456 6:16/012 "
        "*3:16/012 2:162/09 9:1629/ <:162/09 0:1620/ <:162/09 <:16/012 <:1/0123456 <:/156789 5:5/23456789 "
        "*1:5/23456789 2:52/2 *1:52/2 2:522/");
    row("am 9 kHz top 1602", 2, 3, "1:1/0123456 6:16/0 0:160/2 2:1602/ <:160/2 <:16/0 <:1/0123456 5:15/0123456789 "
        "9:159/3 3:1593/");
    row("am 9 kHz top 1611", 7, 3, "1:1/0123456 6:16/01 1:161/1 1:1611/ <:161/1 <:16/01 0:160/2 2:1602/");
    row("am 9 kHz top 1620", 14, 3, "1:1/0123456 6:16/012 2:162/0 0:1620/ <:162/0 <:16/012 1:161/1 1:1611/");
    row("am 10 kHz top 1710", 0, 3, "1:1/01234567 7:17/01 1:171/0 0:1710/ <:171/0 <:17/01 0:170/0 0:1700/");
    row("am 10 kHz top 1620", 19, 3, "1:1/0123456 6:16/012 2:162/0 0:1620/ <:162/0 <:16/012 1:161/0 0:1610/");
}

void tst_RadioKeypad::trail()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, trail);
    m_keypad->sltRadioRegionChanged(band, region);
    for (const QString& step : trail.split(QLatin1Char(' '))) {
        play(step.section(QLatin1Char(':'), 0, 0));
        QCOMPARE(step.section(QLatin1Char(':'), 0, 0) + QLatin1Char(':') + text("KeypadFreqDispTxt") + QLatin1Char('/') + offered(), step);
    }
}

// A digit that cannot follow stays visible but dimmed.
void tst_RadioKeypad::dimmedKeys()
{
    m_keypad->sltRadioRegionChanged(0, 6);
    HvIconButton* zero = key(QStringLiteral("Keypad_0"));
    const QImage greyed = zero->grab().toImage();
    play(QStringLiteral("1"));
    const QImage lit = zero->grab().toImage();
    QVERIFY(greyed != lit);
    QVERIFY(greyed.pixelColor(greyed.rect().center()).alpha() > 0);
}

void tst_RadioKeypad::wallPaper()
{
    auto useWallPaper = [this](const QColor& fill) {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(fill);
        const QString path = m_dir.filePath(fill.name() + QStringLiteral(".png"));
        QVERIFY(image.save(path));
        AppData::GetInstance()->setWallPaperPath(path);
    };
    auto mask = [this] {
        return m_keypad->findChild<QLabel*>(QStringLiteral("KeypadMask"))->pixmap(Qt::ReturnByValue).toImage().pixelColor(1, 1);
    };
    useWallPaper(Qt::red);
    cleanup();
    init();
    QCOMPARE(mask(), QColor(Qt::red));
    useWallPaper(Qt::blue);
    QCOMPARE(mask(), QColor(Qt::red));
    QEvent change(static_cast<QEvent::Type>(WallPaperChange));
    QCoreApplication::sendEvent(m_keypad, &change);
    QCOMPARE(mask(), QColor(Qt::blue));
}

QTEST_MAIN(tst_RadioKeypad)
#include "tst_radiokeypad.moc"
