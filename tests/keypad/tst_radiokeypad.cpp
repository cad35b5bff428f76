#include "RadioKeypad.h"

#include "AppData.h"
#include "HostEvents.h"
#include "HvIconButton.h"

#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QShowEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <climits>

namespace {

// Every message the code under test logs, passed on to QtTest's handler so
// that QTest::ignoreMessage keeps working.
QStringList s_log;
QtMessageHandler s_previousHandler = nullptr;

void recordMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    s_log << message;
    if (s_previousHandler)
        s_previousHandler(type, context, message);
}

int logCount(const QString& line)
{
    return s_log.count(line);
}

// A German-like catalogue for the keypad's own texts.
class KeypadTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char* = nullptr,
                      int = -1) const override
    {
        if (qstrcmp(context, "RadioKeypad") != 0)
            return QString();
        if (qstrcmp(sourceText, "FM:") == 0)
            return QStringLiteral("UKW:");
        if (qstrcmp(sourceText, "AM:") == 0)
            return QStringLiteral("MW:");
        if (qstrcmp(sourceText, "OK") == 0)
            return QStringLiteral("Gut");
        if (qstrcmp(sourceText, "BACK") == 0)
            return QStringLiteral("Zur\u00fcck");
        return QString();
    }
    bool isEmpty() const override { return false; }
};

const QColor WallPaperRed(200, 30, 30);
const QColor WallPaperBlue(30, 30, 200);

} // namespace

class tst_RadioKeypad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void construction();
    void keySequence_data();
    void keySequence();
    void confirm_data();
    void confirm();
    void enterPressedConfirms();
    void closeKey();
    void directInput_data();
    void directInput();
    void badKeys_data();
    void badKeys();
    void digitMask_data();
    void digitMask();
    void nextDigits_data();
    void nextDigits();
    void longPressClearsEntry_data();
    void longPressClearsEntry();
    void clearKeysOnEmptyEntry_data();
    void clearKeysOnEmptyEntry();
    void bandChange_data();
    void bandChange();
    void outOfRangeRegion_data();
    void outOfRangeRegion();
    void autoHide();
    void autoHideInterval_data();
    void autoHideInterval();
    void pressStopsReleaseRestarts_data();
    void pressStopsReleaseRestarts();
    void releaseWhileHidden_data();
    void releaseWhileHidden();
    void showEventWhileHiddenFiresOnce();
    void wallPaperChange_data();
    void wallPaperChange();
    void noAppData();
    void languageChange();
    void render();

private:
    RadioKeypad* makeKeypad(int region, int band);
    HvIconButton* button(const QString& name) const;
    QString display() const;
    QString prefix() const;
    QString offered() const;
    QColor maskColour() const;
    bool clickKey(QChar key);
    bool clickKeys(const QString& keys);

    QTemporaryDir m_dir;
    QString m_redPath;
    QString m_bluePath;
    QWidget* m_screen = nullptr;
    QPointer<RadioKeypad> m_keypad;
};

void tst_RadioKeypad::initTestCase()
{
    // The layout's underlay image is one of the host's; nothing else here
    // would pull libappframework in.
    Q_INIT_RESOURCE(hostimages);
    QVERIFY(m_dir.isValid());
    m_redPath = m_dir.filePath(QStringLiteral("red.png"));
    m_bluePath = m_dir.filePath(QStringLiteral("blue.png"));
    QImage image(1280, 720, QImage::Format_RGB32);
    image.fill(WallPaperRed);
    QVERIFY(image.save(m_redPath));
    image.fill(WallPaperBlue);
    QVERIFY(image.save(m_bluePath));
}

void tst_RadioKeypad::cleanupTestCase()
{
    AppData::destroyInstance();
}

void tst_RadioKeypad::init()
{
    AppData::createInstance()->setWallPaperPath(m_redPath);
    s_log.clear();
    s_previousHandler = qInstallMessageHandler(recordMessage);
    // The controller's screen: the keypad is a full-screen child of it.
    m_screen = new QWidget;
    m_screen->resize(1280, 720);
    m_screen->show();
}

void tst_RadioKeypad::cleanup()
{
    qInstallMessageHandler(s_previousHandler);
    delete m_screen;
    m_screen = nullptr;
}

// Creates and opens the keypad the way the controller does.
RadioKeypad* tst_RadioKeypad::makeKeypad(int region, int band)
{
    m_keypad = new RadioKeypad(m_screen);
    m_keypad->sltRadioRegionChanged(static_cast<unsigned char>(band), region);
    m_keypad->show();
    m_keypad->HandleKeypadInput(QString());
    return m_keypad;
}

HvIconButton* tst_RadioKeypad::button(const QString& name) const
{
    return m_keypad ? m_keypad->findChild<HvIconButton*>(name) : nullptr;
}

QString tst_RadioKeypad::display() const
{
    const QLabel* label = m_keypad ? m_keypad->findChild<QLabel*>(QStringLiteral("KeypadFreqDispTxt")) : nullptr;
    return label ? label->text() : QStringLiteral("<no KeypadFreqDispTxt>");
}

QString tst_RadioKeypad::prefix() const
{
    const QLabel* label = m_keypad ? m_keypad->findChild<QLabel*>(QStringLiteral("txtFAM")) : nullptr;
    return label ? label->text() : QStringLiteral("<no txtFAM>");
}

// The digit keys that can be pressed, in ascending order.
QString tst_RadioKeypad::offered() const
{
    QString digits;
    for (int d = 0; d <= 9; ++d) {
        const HvIconButton* key = button(QStringLiteral("Keypad_%1").arg(d));
        if (!key)
            return QStringLiteral("<no Keypad_%1>").arg(d);
        if (!key->disableState())
            digits += QString::number(d);
    }
    return digits;
}

QColor tst_RadioKeypad::maskColour() const
{
    const QLabel* mask = m_keypad ? m_keypad->findChild<QLabel*>(QStringLiteral("KeypadMask")) : nullptr;
    if (!mask)
        return QColor();
    const QImage image = mask->pixmap(Qt::ReturnByValue).toImage();
    return image.isNull() ? QColor() : image.pixelColor(10, 10);
}

// '0'-'9' are the digit keys, '<' a tap on the clear key.
bool tst_RadioKeypad::clickKey(QChar key)
{
    const QString name = key == QLatin1Char('<') ? QStringLiteral("Keypad_Clear") : QStringLiteral("Keypad_") + key;
    HvIconButton* target = button(name);
    if (!target)
        return false;
    QTest::mouseClick(target, Qt::LeftButton);
    return true;
}

bool tst_RadioKeypad::clickKeys(const QString& keys)
{
    for (const QChar key : keys) {
        if (!clickKey(key))
            return false;
    }
    return true;
}

void tst_RadioKeypad::construction()
{
    m_keypad = new RadioKeypad(m_screen);
    QCOMPARE(m_keypad->size(), QSize(1280, 720));
    // The layout's placeholders stay until a band is set.
    QCOMPARE(display(), QStringLiteral("87.50"));
    QCOMPARE(prefix(), QStringLiteral("FM:"));
    QCOMPARE(offered(), QStringLiteral("0123456789"));
    QCOMPARE(m_keypad->autoHideInterval(), 15000);
    QVERIFY(!m_keypad->autoHideActive());
    QVERIFY(button(QStringLiteral("Keypad_Clear"))->supportLongPress());
    m_keypad->ChangePresetList(3);
    QCOMPARE(display(), QStringLiteral("87.50"));
    QCOMPARE(offered(), QStringLiteral("0123456789"));
}

void tst_RadioKeypad::keySequence_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("firstOffered");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QStringList>("displays");
    QTest::addColumn<QStringList>("offers");

    // FM 8750-10800, 100 kHz grid.
    QTest::newRow("step 10: 87.5 is complete, disabled 0 not typed")
        << 6 << 0 << "189" << "8750" << QStringList{"8", "87.", "87.5", "87.5"}
        << QStringList{"789", "56789", "", ""};
    QTest::newRow("step 10: 1 offers only 0, clicked 5 rejected, 105.1")
        << 6 << 0 << "189" << "15051" << QStringList{"1", "1", "10", "105.", "105.1"}
        << QStringList{"0", "0", "012345678", "0123456789", ""};
    // FM 8750-10800, 50 kHz grid.
    QTest::newRow("step 5: hundredths 0 and 5, 87.55")
        << 12 << 0 << "189" << "8755" << QStringList{"8", "87.", "87.5", "87.55"}
        << QStringList{"789", "56789", "05", ""};
    QTest::newRow("step 5: 87.50 then clicked 3 rejected")
        << 12 << 0 << "189" << "87503" << QStringList{"8", "87.", "87.5", "87.50", "87.50"}
        << QStringList{"789", "56789", "05", "", ""};
    // FM 8750-10790, 200 kHz grid.
    QTest::newRow("step 20: tenths 5 7 9, 87.5 complete")
        << 1 << 0 << "189" << "8757" << QStringList{"8", "87.", "87.5", "87.5"}
        << QStringList{"789", "579", "", ""};
    QTest::newRow("step 20: after 105. odd tenths only")
        << 1 << 0 << "189" << "1051" << QStringList{"1", "10", "105.", "105.1"}
        << QStringList{"0", "01234567", "13579", ""};
    QTest::newRow("step 20: after 107.9 only 0")
        << 1 << 0 << "189" << "10790" << QStringList{"1", "10", "107.", "107.9", "107.90"}
        << QStringList{"0", "01234567", "13579", "0", ""};
    // FM 8790-10790, 200 kHz grid from 87.9.
    QTest::newRow("region 0: 87. offers only 9")
        << 0 << 0 << "189" << "8759" << QStringList{"8", "87.", "87.", "87.9"}
        << QStringList{"789", "9", "9", ""};
    // FM 8810-10790, 200 kHz grid from 88.1.
    QTest::newRow("region 7: 88. offers odd tenths")
        << 7 << 0 << "189" << "881" << QStringList{"8", "88.", "88.1"} << QStringList{"89", "13579", ""};
    // FM 6500-7400, 30 kHz grid.
    QTest::newRow("step 3: 65.03")
        << 9 << 0 << "67" << "6503" << QStringList{"6", "65.", "65.0", "65.03"}
        << QStringList{"56789", "0123456789", "0369", ""};
    // FM 7600-9000 and 7600-10800, 100 kHz grid.
    QTest::newRow("region 5: 90.0")
        << 5 << 1 << "789" << "900" << QStringList{"9", "90.", "90.0"} << QStringList{"0", "0", ""};
    QTest::newRow("region 4: first digits 1 7 8 9")
        << 4 << 0 << "1789" << "76" << QStringList{"7", "76."} << QStringList{"6789", "0123456789"};
    // AM 522-1629, 9 kHz grid.
    QTest::newRow("AM step 9: 531, clicked 2 rejected")
        << 4 << 3 << "156789" << "5321" << QStringList{"5", "53", "53", "531"}
        << QStringList{"23456789", "1", "1", ""};
    QTest::newRow("AM step 9: 1629")
        << 4 << 4 << "156789" << "1629" << QStringList{"1", "16", "162", "1629"}
        << QStringList{"0123456", "012", "09", ""};
    QTest::newRow("AM step 9: 100 offers 8")
        << 4 << 3 << "156789" << "100" << QStringList{"1", "10", "100"}
        << QStringList{"0123456", "0123456789", "8"};
    // AM 530-1710 and 520-1620, 10 kHz grid.
    QTest::newRow("AM step 10: 1710")
        << 0 << 3 << "156789" << "1710" << QStringList{"1", "17", "171", "1710"}
        << QStringList{"01234567", "01", "0", ""};
    QTest::newRow("AM step 10: 53 offers 0")
        << 0 << 4 << "156789" << "530" << QStringList{"5", "53", "530"}
        << QStringList{"3456789", "0", ""};
    // Backspace.
    QTest::newRow("backspace 87.5 -> 87. -> 8 -> empty, then nothing")
        << 6 << 0 << "189" << "875<<<<" << QStringList{"8", "87.", "87.5", "87.", "8", "", ""}
        << QStringList{"789", "56789", "", "56789", "789", "189", "189"};
    QTest::newRow("backspace 65.03 -> 65.0")
        << 9 << 0 << "67" << "6503<" << QStringList{"6", "65.", "65.0", "65.03", "65.0"}
        << QStringList{"56789", "0123456789", "0369", "", "0369"};
}

void tst_RadioKeypad::keySequence()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, firstOffered);
    QFETCH(QString, keys);
    QFETCH(QStringList, displays);
    QFETCH(QStringList, offers);
    QCOMPARE(displays.size(), keys.size());
    QCOMPARE(offers.size(), keys.size());

    makeKeypad(region, band);
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), firstOffered);
    for (int i = 0; i < keys.size(); ++i) {
        QVERIFY(clickKey(keys.at(i)));
        const QByteArray step = QStringLiteral("after key %1 of \"%2\"").arg(i + 1).arg(keys).toUtf8();
        QVERIFY2(display() == displays.at(i),
                 step + ": display \"" + display().toUtf8() + "\", expected \"" + displays.at(i).toUtf8() + '"');
        QVERIFY2(offered() == offers.at(i),
                 step + ": offered \"" + offered().toUtf8() + "\", expected \"" + offers.at(i).toUtf8() + '"');
    }
    QVERIFY(m_keypad->isVisible());
}

void tst_RadioKeypad::confirm_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("expected"); // -1: nothing emitted

    QTest::newRow("87.5 step 10") << 6 << 0 << "875" << 8750;
    QTest::newRow("87.55 step 5") << 12 << 0 << "8755" << 8755;
    QTest::newRow("105. is 105.00") << 6 << 0 << "105" << 10500;
    QTest::newRow("108. top of band") << 6 << 0 << "108" << 10800;
    QTest::newRow("87. below band") << 6 << 0 << "87" << -1;
    QTest::newRow("8 has no point") << 6 << 0 << "8" << -1;
    QTest::newRow("nothing typed") << 6 << 0 << "" << -1;
    QTest::newRow("107.90 step 20") << 1 << 0 << "10790" << 10790;
    QTest::newRow("87.9 region 0") << 0 << 0 << "879" << 8790;
    QTest::newRow("65.03 step 3") << 9 << 0 << "6503" << 6503;
    QTest::newRow("74.00 top of band step 3") << 9 << 0 << "7400" << 7400;
    QTest::newRow("76. region 4") << 4 << 0 << "76" << 7600;
    QTest::newRow("AM 53 too short") << 4 << 3 << "53" << -1;
    QTest::newRow("AM 531") << 4 << 3 << "531" << 531;
    QTest::newRow("AM 100 below band") << 4 << 3 << "100" << -1;
    QTest::newRow("AM 1710 step 10") << 0 << 3 << "1710" << 1710;
    QTest::newRow("AM 520 region 19") << 19 << 3 << "520" << 520;
}

void tst_RadioKeypad::confirm()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, keys);
    QFETCH(int, expected);

    makeKeypad(region, band);
    QSignalSpy spy(m_keypad.data(), SIGNAL(FreqInputOK(unsigned short)));
    QVERIFY(clickKeys(keys));
    QVERIFY(button(QStringLiteral("Keypad_OK")));
    QTest::mouseClick(button(QStringLiteral("Keypad_OK")), Qt::LeftButton);

    if (expected < 0) {
        QCOMPARE(spy.count(), 0);
    } else {
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), expected);
    }
    QVERIFY(m_keypad->isHidden());
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), QStringLiteral("0123456789"));
}

void tst_RadioKeypad::enterPressedConfirms()
{
    makeKeypad(6, 0);
    QSignalSpy spy(m_keypad.data(), SIGNAL(FreqInputOK(unsigned short)));
    QVERIFY(clickKeys(QStringLiteral("1051")));
    m_keypad->enterPressed();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 10510);
    QVERIFY(m_keypad->isHidden());
}

void tst_RadioKeypad::closeKey()
{
    makeKeypad(12, 0);
    QSignalSpy spy(m_keypad.data(), SIGNAL(FreqInputOK(unsigned short)));
    QVERIFY(clickKeys(QStringLiteral("875")));
    QVERIFY(button(QStringLiteral("Keypad_Close")));
    QTest::mouseClick(button(QStringLiteral("Keypad_Close")), Qt::LeftButton);
    QCOMPARE(spy.count(), 0);
    QVERIFY(m_keypad->isHidden());
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), QStringLiteral("0123456789"));

    // Opened again, the entry starts afresh.
    m_keypad->show();
    m_keypad->HandleKeypadInput(QString());
    QCOMPARE(offered(), QStringLiteral("189"));
    QVERIFY(clickKeys(QStringLiteral("9")));
    QCOMPARE(display(), QStringLiteral("9"));
}

void tst_RadioKeypad::directInput_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expectedDisplay");
    QTest::addColumn<QString>("expectedOffered");

    // The grid is kept by the key mask only; the bounds still apply.
    QTest::newRow("off-grid tenth within bounds accepted") << 1 << 0 << "87" << "6" << "87.6" << "";
    QTest::newRow("hundredths on a 100 kHz grid accepted") << 6 << 0 << "875" << "0" << "87.50" << "";
    QTest::newRow("1 then 5 rejected") << 6 << 0 << "1" << "5" << "1" << "0";
    QTest::newRow("first digit 2 rejected") << 6 << 0 << "" << "2" << "" << "189";
    QTest::newRow("above band maximum rejected") << 6 << 0 << "108" << "1" << "108." << "0";
    QTest::newRow("below 87.5 rejected") << 6 << 0 << "87" << "4" << "87." << "56789";
    // FM max / 10000 is 0 in region 9, so the first-digit bound lets 0 pass;
    // no digit can follow it.
    QTest::newRow("region 9: first digit 0 passes the bounds") << 9 << 0 << "" << "0" << "0" << "";
    QTest::newRow("AM off-grid digit accepted") << 4 << 3 << "53" << "2" << "532" << "";
    QTest::newRow("AM first digit 2 rejected") << 4 << 3 << "" << "2" << "" << "156789";
    QTest::newRow("AM 163 rejected") << 4 << 3 << "16" << "3" << "16" << "012";
    QTest::newRow("empty key re-evaluates") << 6 << 0 << "87" << "" << "87." << "56789";
}

void tst_RadioKeypad::directInput()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, keys);
    QFETCH(QString, key);
    QFETCH(QString, expectedDisplay);
    QFETCH(QString, expectedOffered);

    makeKeypad(region, band);
    QVERIFY(clickKeys(keys));
    m_keypad->HandleKeypadInput(key);
    QCOMPARE(display(), expectedDisplay);
    QCOMPARE(offered(), expectedOffered);

    // The same digit through the key dispatch behaves alike.
    makeKeypad(region, band);
    QVERIFY(clickKeys(keys));
    if (!key.isEmpty()) {
        m_keypad->RadioKeypadPressed(key);
        QCOMPARE(display(), expectedDisplay);
        QCOMPARE(offered(), expectedOffered);
    }
}

void tst_RadioKeypad::badKeys_data()
{
    QTest::addColumn<bool>("throughDispatch");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("warning");

    const QString notOneDigit = QStringLiteral("not one digit");
    const QString unknownId = QStringLiteral("unknown key id");
    QTest::newRow("two digits") << false << "12" << notOneDigit;
    QTest::newRow("negative") << false << "-1" << notOneDigit;
    QTest::newRow("fullwidth five") << false << QString(QChar(0xFF15)) << notOneDigit;
    QTest::newRow("dispatch: two digits") << true << "12" << notOneDigit;
    QTest::newRow("dispatch: letters") << true << "ID_band" << unknownId;
    QTest::newRow("dispatch: empty id") << true << "" << unknownId;
}

void tst_RadioKeypad::badKeys()
{
    QFETCH(bool, throughDispatch);
    QFETCH(QString, key);
    QFETCH(QString, warning);

    makeKeypad(6, 0);
    QSignalSpy spy(m_keypad.data(), SIGNAL(FreqInputOK(unsigned short)));
    QVERIFY(clickKeys(QStringLiteral("87")));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(warning)));
    if (throughDispatch)
        m_keypad->RadioKeypadPressed(key);
    else
        m_keypad->HandleKeypadInput(key);
    QCOMPARE(display(), QStringLiteral("87."));
    QCOMPARE(offered(), QStringLiteral("56789"));
    QVERIFY(m_keypad->isVisible());
    QCOMPARE(spy.count(), 0);
}

void tst_RadioKeypad::digitMask_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<QString>("expectedOffered");

    QTest::newRow("none") << 0 << "0123456789";
    QTest::newRow("all") << 0x3FF << "";
    QTest::newRow("digit 0") << 0x001 << "123456789";
    QTest::newRow("even digits") << 0x155 << "13579";
    QTest::newRow("bits above 9 ignored") << 0x7C00 << "0123456789";
}

void tst_RadioKeypad::digitMask()
{
    QFETCH(int, mask);
    QFETCH(QString, expectedOffered);

    makeKeypad(6, 0);
    m_keypad->DisableSpecificNums(mask);
    QCOMPARE(offered(), expectedOffered);
    m_keypad->EnableAllKeypadNums();
    QCOMPARE(offered(), QStringLiteral("0123456789"));
}

void tst_RadioKeypad::nextDigits_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("nextMax");
    QTest::addColumn<int>("nextMin");
    QTest::addColumn<QString>("expectedOffered");

    QTest::newRow("step 5 after 875") << 12 << 0 << 875 << 10800 << 8750 << "05";
    QTest::newRow("step 10 after 875") << 6 << 0 << 875 << 10800 << 8750 << "";
    QTest::newRow("window only, below the band") << 6 << 0 << 3 << 35 << 32 << "2345";
    QTest::newRow("AM step 9 after 53") << 4 << 3 << 53 << 1629 << 522 << "1";
    QTest::newRow("huge value") << 6 << 0 << INT_MAX << 10800 << 0 << "";
    QTest::newRow("empty window") << 6 << 0 << 875 << 0 << 10800 << "";
}

void tst_RadioKeypad::nextDigits()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(int, value);
    QFETCH(int, nextMax);
    QFETCH(int, nextMin);
    QFETCH(QString, expectedOffered);

    makeKeypad(region, band);
    m_keypad->DisableSomeKeypadNums(value, nextMax, nextMin);
    QCOMPARE(offered(), expectedOffered);
}

void tst_RadioKeypad::longPressClearsEntry_data()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("firstOffered");

    QTest::newRow("FM 87.5") << 6 << 0 << "875" << "189";
    QTest::newRow("AM 53") << 4 << 3 << "53" << "156789";
}

void tst_RadioKeypad::longPressClearsEntry()
{
    QFETCH(int, region);
    QFETCH(int, band);
    QFETCH(QString, keys);
    QFETCH(QString, firstOffered);

    makeKeypad(region, band);
    QVERIFY(clickKeys(keys));
    QVERIFY(!display().isEmpty());

    HvIconButton* clear = button(QStringLiteral("Keypad_Clear"));
    QVERIFY(clear);
    clear->setLongPressThreshold(30);
    QSignalSpy clicks(clear, SIGNAL(btnClicked(QString)));
    QSignalSpy longPresses(clear, SIGNAL(btnLongPress(QString)));

    QTest::mousePress(clear, Qt::LeftButton);
    QTRY_COMPARE(longPresses.count(), 1);
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), firstOffered);
    QTest::mouseRelease(clear, Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(logCount(QStringLiteral("clearAllFreq id = FreqClear")), 1);

    // The pad stays open and takes a new entry.
    QVERIFY(m_keypad->isVisible());
    QVERIFY(clickKey(firstOffered.at(0)));
    QCOMPARE(display(), QString(firstOffered.at(0)));
}

void tst_RadioKeypad::clearKeysOnEmptyEntry_data()
{
    QTest::addColumn<bool>("longPress");

    QTest::newRow("tap") << false;
    QTest::newRow("long press") << true;
}

void tst_RadioKeypad::clearKeysOnEmptyEntry()
{
    QFETCH(bool, longPress);

    makeKeypad(6, 0);
    // Any re-evaluation would put the first-digit mask back; with nothing
    // typed the clear key must leave the keys alone.
    m_keypad->EnableAllKeypadNums();
    HvIconButton* clear = button(QStringLiteral("Keypad_Clear"));
    QVERIFY(clear);
    if (longPress) {
        clear->setLongPressThreshold(30);
        QSignalSpy longPresses(clear, SIGNAL(btnLongPress(QString)));
        QTest::mousePress(clear, Qt::LeftButton);
        QTRY_COMPARE(longPresses.count(), 1);
        QTest::mouseRelease(clear, Qt::LeftButton);
        QCOMPARE(logCount(QStringLiteral("clearAllFreq id = FreqClear")), 1);
    } else {
        QSignalSpy clicks(clear, SIGNAL(btnClicked(QString)));
        QTest::mouseClick(clear, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), QStringLiteral("0123456789"));
    QVERIFY(m_keypad->isVisible());
}

void tst_RadioKeypad::bandChange_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("expectedPrefix");
    QTest::addColumn<QString>("firstOffered");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("expectedDisplay");

    // Region 4: FM 7600-10800, AM 522-1629.
    QTest::newRow("FM1") << 0 << "FM:" << "1789" << "76" << "76.";
    QTest::newRow("AM1") << 3 << "AM:" << "156789" << "531" << "531";
    QTest::newRow("band 255 is AM") << 255 << "AM:" << "156789" << "1" << "1";
}

void tst_RadioKeypad::bandChange()
{
    QFETCH(int, band);
    QFETCH(QString, expectedPrefix);
    QFETCH(QString, firstOffered);
    QFETCH(QString, keys);
    QFETCH(QString, expectedDisplay);

    for (const int startBand : {1, 3}) {
        makeKeypad(4, startBand);
        QVERIFY(clickKeys(QStringLiteral("9")));
        QCOMPARE(display(), QStringLiteral("9"));

        m_keypad->sltRadioBandChanged(static_cast<unsigned char>(band));
        QCOMPARE(display(), QString());
        QCOMPARE(prefix(), expectedPrefix);
        QCOMPARE(offered(), firstOffered);
        QVERIFY(clickKeys(keys));
        QCOMPARE(display(), expectedDisplay);
    }
}

void tst_RadioKeypad::outOfRangeRegion_data()
{
    QTest::addColumn<int>("region");

    QTest::newRow("24") << 24;
    QTest::newRow("-1") << -1;
}

void tst_RadioKeypad::outOfRangeRegion()
{
    QFETCH(int, region);

    // Falls back to region 12: FM 50 kHz grid, AM from 531 kHz.
    makeKeypad(region, 0);
    QCOMPARE(offered(), QStringLiteral("189"));
    QVERIFY(clickKeys(QStringLiteral("875")));
    QCOMPARE(offered(), QStringLiteral("05"));
    m_keypad->sltRadioBandChanged(3);
    QVERIFY(clickKeys(QStringLiteral("53")));
    QCOMPARE(offered(), QStringLiteral("1"));
}

void tst_RadioKeypad::autoHide()
{
    m_keypad = new RadioKeypad(m_screen);
    m_keypad->setAutoHideInterval(50);
    m_keypad->sltRadioRegionChanged(0, 6);
    QSignalSpy spy(m_keypad.data(), SIGNAL(FreqInputOK(unsigned short)));
    m_keypad->show();
    m_keypad->HandleKeypadInput(QString());
    QVERIFY(m_keypad->autoHideActive());
    QVERIFY(clickKeys(QStringLiteral("875")));

    QTRY_VERIFY(m_keypad->isHidden());
    QVERIFY(!m_keypad->autoHideActive());
    QCOMPARE(spy.count(), 0);
    QCOMPARE(display(), QString());
    QCOMPARE(offered(), QStringLiteral("0123456789"));

    // Shown again, the timer runs again.
    m_keypad->show();
    QVERIFY(m_keypad->autoHideActive());
    QTRY_VERIFY(m_keypad->isHidden());
    QCOMPARE(logCount(QStringLiteral("timerEvent hide keypad")), 2);
}

void tst_RadioKeypad::autoHideInterval_data()
{
    QTest::addColumn<int>("requested");
    QTest::addColumn<int>("expected");
    QTest::addColumn<bool>("refused");

    QTest::newRow("1 ms") << 1 << 1 << false;
    QTest::newRow("zero") << 0 << 15000 << true;
    QTest::newRow("negative") << -5 << 15000 << true;
}

void tst_RadioKeypad::autoHideInterval()
{
    QFETCH(int, requested);
    QFETCH(int, expected);
    QFETCH(bool, refused);

    m_keypad = new RadioKeypad(m_screen);
    if (refused)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("auto-hide interval must be positive")));
    QVERIFY(m_keypad->setProperty("autoHideInterval", requested));
    QCOMPARE(m_keypad->autoHideInterval(), expected);
    QCOMPARE(m_keypad->property("autoHideInterval").toInt(), expected);
}

void tst_RadioKeypad::pressStopsReleaseRestarts_data()
{
    QTest::addColumn<QString>("target"); // object name, or empty for a key
    QTest::newRow("mouse on the panel") << "bkg";
    QTest::newRow("mouse on the underlay") << "KeypadMask";
    QTest::newRow("key") << "";
}

void tst_RadioKeypad::pressStopsReleaseRestarts()
{
    QFETCH(QString, target);

    makeKeypad(6, 0);
    QVERIFY(m_keypad->autoHideActive());
    QWidget* widget = target.isEmpty() ? m_keypad.data() : m_keypad->findChild<QWidget*>(target);
    QVERIFY(widget);
    const auto press = [&] {
        if (target.isEmpty())
            QTest::keyPress(widget, Qt::Key_5);
        else
            QTest::mousePress(widget, Qt::LeftButton);
    };
    const auto release = [&] {
        if (target.isEmpty())
            QTest::keyRelease(widget, Qt::Key_5);
        else
            QTest::mouseRelease(widget, Qt::LeftButton);
    };

    press();
    QVERIFY(!m_keypad->autoHideActive());
    QCOMPARE(logCount(QStringLiteral("eventFilter kill autohide timer")), 1);
    // A second press with no timer running has nothing to stop.
    press();
    QCOMPARE(logCount(QStringLiteral("eventFilter kill autohide timer")), 1);
    QVERIFY(m_keypad->isVisible());

    // The release starts the timer afresh with the interval now in force.
    m_keypad->setAutoHideInterval(30);
    release();
    QVERIFY(m_keypad->autoHideActive());
    QCOMPARE(logCount(QStringLiteral("eventFilter start autohide timer")), 1);
    QTRY_VERIFY(m_keypad->isHidden());
    QVERIFY(!m_keypad->autoHideActive());
}

void tst_RadioKeypad::releaseWhileHidden_data()
{
    QTest::addColumn<bool>("screenHidden"); // else the pad itself is closed
    QTest::addColumn<bool>("key");

    QTest::newRow("closed pad, mouse") << false << false;
    QTest::newRow("closed pad, key") << false << true;
    QTest::newRow("hidden screen, mouse") << true << false;
}

void tst_RadioKeypad::releaseWhileHidden()
{
    QFETCH(bool, screenHidden);
    QFETCH(bool, key);

    makeKeypad(6, 0);
    if (screenHidden)
        m_screen->hide();
    else
        m_keypad->RadioCloseKeypad();
    QVERIFY(!m_keypad->isVisible());
    QVERIFY(!m_keypad->autoHideActive());
    QCOMPARE(logCount(QStringLiteral("hideEvent kill autohide timer")), 1);

    if (key) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_5, Qt::NoModifier, QStringLiteral("5"));
        QCoreApplication::sendEvent(m_keypad, &release);
    } else {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(600, 400), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QCoreApplication::sendEvent(m_keypad, &release);
    }
    QCOMPARE(logCount(QStringLiteral("eventFilter start autohide timer")), 1);
    QVERIFY(!m_keypad->autoHideActive());

    if (screenHidden) {
        // Back on screen, the pad runs its timer again.
        m_screen->show();
        QVERIFY(m_keypad->isVisible());
        QVERIFY(m_keypad->autoHideActive());
    }
}

void tst_RadioKeypad::showEventWhileHiddenFiresOnce()
{
    // A show event reaching a closed pad starts the timer, and closing an
    // already closed pad sends no hide event: the timer must still stop.
    makeKeypad(6, 0);
    m_keypad->RadioCloseKeypad();
    m_keypad->setAutoHideInterval(20);
    QShowEvent show;
    QCoreApplication::sendEvent(m_keypad, &show);
    QVERIFY(m_keypad->autoHideActive());
    QTRY_VERIFY(!m_keypad->autoHideActive());
    QCOMPARE(logCount(QStringLiteral("timerEvent hide keypad")), 1);
    QVERIFY(m_keypad->isHidden());
}

void tst_RadioKeypad::wallPaperChange_data()
{
    QTest::addColumn<bool>("wallPaperEvent"); // else another user event
    QTest::addColumn<QString>("newPath");
    QTest::addColumn<QColor>("expected");
    QTest::addColumn<QString>("warning");

    QTest::newRow("new wallpaper") << true << "blue" << WallPaperBlue << "";
    QTest::newRow("unloadable wallpaper keeps the old one")
        << true << "missing" << WallPaperRed << "not loadable";
    QTest::newRow("empty path keeps the old one") << true << "" << WallPaperRed << "not loadable";
    QTest::newRow("other event ignored") << false << "blue" << WallPaperRed << "";
}

void tst_RadioKeypad::wallPaperChange()
{
    QFETCH(bool, wallPaperEvent);
    QFETCH(QString, newPath);
    QFETCH(QColor, expected);
    QFETCH(QString, warning);

    makeKeypad(6, 0);
    QCOMPARE(maskColour(), WallPaperRed);
    if (newPath == QLatin1String("blue"))
        newPath = m_bluePath;
    else if (newPath == QLatin1String("missing"))
        newPath = m_dir.filePath(QStringLiteral("missing.png"));
    AppData::GetInstance()->setWallPaperPath(newPath);
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));

    const int type = wallPaperEvent ? WallPaperChange : WallPaperChange + 1;
    QEvent event(static_cast<QEvent::Type>(type));
    QCoreApplication::sendEvent(m_keypad, &event);
    QCOMPARE(maskColour(), expected);

    // The host posts it; a posted event lands the same way.
    AppData::GetInstance()->setWallPaperPath(m_bluePath);
    QCoreApplication::postEvent(m_keypad, new QEvent(QEvent::Type(WallPaperChange)));
    QTRY_COMPARE(maskColour(), WallPaperBlue);
}

void tst_RadioKeypad::noAppData()
{
    AppData::destroyInstance();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no host AppData")));
    makeKeypad(6, 0);
    const QImage layoutMask(QStringLiteral(":/radioimages/BK.png"));
    QVERIFY2(!layoutMask.isNull(), "host image :/radioimages/BK.png missing");
    const QLabel* mask = m_keypad->findChild<QLabel*>(QStringLiteral("KeypadMask"));
    QVERIFY(mask);
    QCOMPARE(mask->pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_ARGB32),
             layoutMask.convertToFormat(QImage::Format_ARGB32));

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no host AppData")));
    QEvent event(static_cast<QEvent::Type>(WallPaperChange));
    QCoreApplication::sendEvent(m_keypad, &event);
    QCOMPARE(mask->pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_ARGB32),
             layoutMask.convertToFormat(QImage::Format_ARGB32));
}

void tst_RadioKeypad::languageChange()
{
    makeKeypad(6, 0);
    HvIconButton* ok = button(QStringLiteral("Keypad_OK"));
    HvIconButton* back = button(QStringLiteral("Keypad_Close"));
    QVERIFY(ok && back);
    QCOMPARE(ok->displayText(), QStringLiteral("OK"));
    QVERIFY(clickKeys(QStringLiteral("87")));

    KeypadTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(ok->displayText(), QStringLiteral("Gut"));
    QCOMPARE(back->displayText(), QStringLiteral("Zur\u00fcck"));
    // A language change leaves the entry alone.
    QCOMPARE(display(), QStringLiteral("87."));
    QCOMPARE(offered(), QStringLiteral("56789"));

    m_keypad->sltRadioBandChanged(3);
    QCOMPARE(prefix(), QStringLiteral("MW:"));
    m_keypad->sltRadioBandChanged(0);
    QCOMPARE(prefix(), QStringLiteral("UKW:"));

    QVERIFY(QCoreApplication::removeTranslator(&translator));
    QTRY_COMPARE(ok->displayText(), QStringLiteral("OK"));
}

void tst_RadioKeypad::render()
{
    const QString outputDir = qEnvironmentVariable("RADIO_TEST_OUTPUT");
    if (outputDir.isEmpty())
        QSKIP("RADIO_TEST_OUTPUT not set");

    makeKeypad(12, 0);
    QVERIFY(clickKeys(QStringLiteral("1051")));
    QCOMPARE(display(), QStringLiteral("105.1"));
    QCOMPARE(prefix(), QStringLiteral("FM:"));
    QCOMPARE(offered(), QStringLiteral("05"));

    const QImage image = m_keypad->grab().toImage();
    QCOMPARE(image.size(), QSize(1280, 720));
    // Outside the panel the underlay shows the wallpaper.
    QCOMPARE(image.pixelColor(20, 20), WallPaperRed);
    QVERIFY(QDir().mkpath(outputDir));
    const QString file = QDir(outputDir).filePath(QStringLiteral("radiokeypad_105_1.png"));
    QVERIFY(image.save(file));
    qInfo().noquote() << "keypad rendered to" << file;

    // A digit that cannot follow is drawn dimmer than when it can.
    const auto brightness = [](const QImage& key) {
        qint64 sum = 0;
        for (int y = 0; y < key.height(); ++y) {
            for (int x = 0; x < key.width(); ++x)
                sum += qGray(key.pixel(x, y));
        }
        return sum;
    };
    HvIconButton* one = button(QStringLiteral("Keypad_1"));
    QVERIFY(one && one->disableState());
    const QImage disabledKey = image.copy(one->geometry());
    m_keypad->EnableAllKeypadNums();
    const QImage enabledKey = m_keypad->grab().toImage().copy(one->geometry());
    QVERIFY(brightness(disabledKey) < brightness(enabledKey));
}

QTEST_MAIN(tst_RadioKeypad)
#include "tst_radiokeypad.moc"
