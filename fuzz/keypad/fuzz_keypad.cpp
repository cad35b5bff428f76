// Key sequences on the frequency keypad across every region and band. A
// click reaches a key only while it is enabled, as on the screen; whatever
// the sequence, OK hands on a frequency inside the band and the display
// holds one point and five digits at most. One byte per step, modulo 20:
// 0-9 the digits, 10 clear, 11 clear held, 12 OK, 13 close, 14 shown again,
// 15 the next byte as a key, 16 band (next byte), 17 region -1 to 24 and
// band (next two), 18-19 the entry evaluated again.
#include "FuzzApplication.h"
#include "FuzzCheck.h"
#include "RadioKeypad.h"
#include "TunerRegionParam.h"

#include <QLabel>


extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzzApplication();
    static RadioKeypad* keypad = new RadioKeypad;
    static int region;
    static int band;
    static const QMetaObject::Connection accepted = QObject::connect(keypad, &RadioKeypad::FreqInputOK, [](unsigned short f) {
        const TunerRegion r = tunerRegion(region);
        check(band <= 2 ? f >= r.fmMin && f <= r.fmMax : f >= r.amMin && f <= r.amMax, "frequency inside the band");
    });
    const auto click = [](const QString& name) {
        QWidget* key = keypad->findChild<QWidget*>(name);
        if (key->isVisible())
            fuzzClick(key, key->rect().center());
    };
    keypad->sltRadioRegionChanged(band = 0, region = TUNER_DEFAULT_REGION);
    keypad->show();
    for (size_t i = 0; i < size; ++i) {
        const int step = data[i] % 20;
        const auto arg = [&] { return ++i < size ? data[i] : uint8_t(0); };
        if (step < 10)
            click(QStringLiteral("Keypad_%1").arg(step));
        else if (step == 10 || step == 12 || step == 13)
            click(QLatin1String(step == 10 ? "Keypad_Clear" : step == 12 ? "Keypad_OK" : "Keypad_Close"));
        else if (step == 11) {
            // What the clear key emits once held past its threshold.
            QWidget* clear = keypad->findChild<QWidget*>(QStringLiteral("Keypad_Clear"));
            QMetaObject::invokeMethod(clear, "btnLongPress", Q_ARG(QString, clear->property("buttonID").toString()));
        } else if (step == 14)
            keypad->show();
        else if (step == 15)
            keypad->HandleKeypadInput(QString(QChar(arg())));
        else if (step == 16)
            keypad->sltRadioBandChanged(uint8_t(band = arg() % 6));
        else if (step == 17) {
            region = arg() % 26 - 1;
            keypad->sltRadioRegionChanged(uint8_t(band = arg() % 6), region);
        } else
            keypad->HandleKeypadInput(QString());
        const QString shown = keypad->findChild<QLabel*>(QStringLiteral("KeypadFreqDispTxt"))->text();
        check(shown.count(QLatin1Char('.')) <= 1 && shown.size() - shown.count(QLatin1Char('.')) <= 5,
              "one point and five digits at most");
    }
    QCoreApplication::processEvents();
    return 0;
}
