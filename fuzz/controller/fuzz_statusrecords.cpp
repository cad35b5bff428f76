// Feeds arbitrary status records to the controller and its display. Every
// byte pattern must be taken without a crash, a hang or undefined behaviour
// (build with -DRADIO_SANITIZE=ON to have the sanitizers watch).
//
// With libFuzzer (clang -fsanitize=fuzzer) the entry point below is driven
// by the fuzzer; otherwise main() runs a fixed number of seeded inputs, or
// the files given on the command line.
#include "TunerView.h"
#include "TunerViewImpl.h"

#include <QApplication>
#include <QFile>
#include <QLabel>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>

namespace {

TunerViewImpl* controller()
{
    static TunerViewImpl* c = [] {
        // The controller starts the tuner link; with no service around it
        // just keeps retrying in the background.
        TunerViewImpl* ctl = new TunerViewImpl(nullptr);
        ctl->show();
        return ctl;
    }();
    return c;
}

// One input is a run of records; each is taken from the input bytes, with
// the kind folded into the interpreted range half of the time so that the
// decoders see most of the traffic.
void runInput(const uint8_t* data, size_t size)
{
    TunerViewImpl* ctl = controller();
    size_t pos = 0;
    while (pos < size) {
        tag_RadioCmdFromMCU r;
        std::memset(&r, 0, sizeof r);
        const size_t n = std::min(sizeof r, size - pos);
        std::memcpy(&r, data + pos, n);
        pos += n;
        if (r.cmd & 0x80000000u)
            r.cmd %= 40;
        ctl->HandleTunerMsgSlot(r);
        ctl->KeypadButtonPressed(QString());
        ctl->bandButtonPressed(QString::number(r.signal % 6));
        ctl->PresetButtonPressed(QString::number(r.preset));
        ctl->RadioRegionChangedSlot(int(int8_t(r.reserved17)));
    }
    QCoreApplication::processEvents();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    runInput(data, size);
    return 0;
}

#ifndef RADIO_LIBFUZZER
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    if (argc > 1) {
        for (int i = 1; i < argc; ++i) {
            QFile f(QString::fromLocal8Bit(argv[i]));
            if (!f.open(QIODevice::ReadOnly))
                continue;
            const QByteArray bytes = f.readAll();
            runInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
        }
        return 0;
    }
    std::mt19937 rng(20261123);
    const int inputs = 400;
    for (int i = 0; i < inputs; ++i) {
        std::vector<uint8_t> bytes(rng() % (4 * sizeof(tag_RadioCmdFromMCU)));
        for (uint8_t& b : bytes)
            b = uint8_t(rng());
        runInput(bytes.data(), bytes.size());
    }
    std::printf("fuzz_statusrecords: %d inputs, last frequency shown %s\n", inputs,
                qPrintable(controller()->findChild<QLabel*>(QStringLiteral("FreqDisp"))->text()));
    delete controller();
    return 0;
}
#endif
