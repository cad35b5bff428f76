// Key sequences on the frequency keypad across every region and band: a
// click reaches a key only while it is enabled, as on the screen, and
// whatever the sequence, OK hands on a frequency inside the band and the
// display holds at most one point and five digits.
//
// Input: one byte per step, its value modulo 20: 0-9 the digit keys,
// 10 clear, 11 clear held, 12 OK, 13 close, 14 the pad shown again,
// 15 HandleKeypadInput with the next byte as key, 16 band (next byte),
// 17 region and band (next two bytes, the region -1 to 24), 18 and 19 the
// current entry evaluated again.
#include "FuzzApplication.h"
#include "RadioKeypad.h"
#include "TunerRegionParam.h"

#include <QLabel>
#include <QtTest>

#include <cstdio>
#include <cstdlib>

namespace {

void check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }
}

struct Pad {
    RadioKeypad keypad;
    int region = TUNER_DEFAULT_REGION;
    unsigned char band = 0;
    Pad()
    {
        QObject::connect(&keypad, &RadioKeypad::FreqInputOK, [this](unsigned short freq) {
            const TunerRegion r = tunerRegion(region);
            const bool fm = band <= 2;
            check(freq >= (fm ? r.fmMin : r.amMin) && freq <= (fm ? r.fmMax : r.amMax), "frequency inside the band");
        });
    }
    void click(const char* name)
    {
        QWidget* key = keypad.findChild<QWidget*>(QLatin1String(name));
        if (key && key->isVisible())
            QTest::mouseClick(key, Qt::LeftButton, Qt::NoModifier, key->rect().center());
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzzApplication();
    static Pad* pad = new Pad;
    RadioKeypad& keypad = pad->keypad;
    pad->region = TUNER_DEFAULT_REGION;
    pad->band = 0;
    keypad.sltRadioRegionChanged(0, pad->region);
    keypad.show();
    static const char* const digits[] = {"Keypad_0", "Keypad_1", "Keypad_2", "Keypad_3", "Keypad_4",
                                         "Keypad_5", "Keypad_6", "Keypad_7", "Keypad_8", "Keypad_9"};
    for (size_t i = 0; i < size; ++i) {
        const int step = data[i] % 20;
        const auto arg = [&] { return ++i < size ? data[i] : uint8_t(0); };
        if (step < 10) {
            pad->click(digits[step]);
        } else if (step == 10) {
            pad->click("Keypad_Clear");
        } else if (step == 11) {
            // What the clear key emits once held past its threshold.
            QWidget* clear = keypad.findChild<QWidget*>(QStringLiteral("Keypad_Clear"));
            QMetaObject::invokeMethod(clear, "btnLongPress", Q_ARG(QString, clear->property("buttonID").toString()));
        } else if (step == 12) {
            pad->click("Keypad_OK");
        } else if (step == 13) {
            pad->click("Keypad_Close");
        } else if (step == 14) {
            keypad.show();
        } else if (step == 15) {
            keypad.HandleKeypadInput(QString(QChar(arg())));
        } else if (step == 16) {
            pad->band = arg() % 6;
            keypad.sltRadioBandChanged(pad->band);
        } else if (step == 17) {
            pad->region = arg() % 26 - 1;
            pad->band = arg() % 6;
            keypad.sltRadioRegionChanged(pad->band, pad->region);
        } else {
            keypad.HandleKeypadInput(QString());
        }
        const QString shown = keypad.findChild<QLabel*>(QStringLiteral("KeypadFreqDispTxt"))->text();
        check(shown.count(QLatin1Char('.')) <= 1 && shown.size() - shown.count(QLatin1Char('.')) <= 5,
              "one point and five digits at most");
    }
    return 0;
}
