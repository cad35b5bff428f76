// Feeds arbitrary status records, with touches in between, to one
// controller and its display: every byte pattern must be taken without a
// crash, a hang or undefined behaviour (build with -DRADIO_SANITIZE=ON to
// have the sanitizers watch). A libFuzzer target with clang and
// -DRADIO_LIBFUZZER=ON, otherwise seeded inputs or the files given.
#include "TunerViewImpl.h"

#include <QApplication>
#include <QFile>

#include <cstring>
#include <random>

namespace {

void runInput(const uint8_t* data, size_t size)
{
    // The controller starts the tuner link, which with no service around
    // keeps retrying in the background.
    static TunerViewImpl* controller = new TunerViewImpl(nullptr);
    for (size_t pos = 0; pos < size; pos += sizeof(tag_RadioCmdFromMCU)) {
        tag_RadioCmdFromMCU r;
        std::memset(&r, 0, sizeof r);
        std::memcpy(&r, data + pos, std::min(sizeof r, size - pos));
        // Half of the records get a kind the controller reads.
        if (r.cmd & 0x80000000u)
            r.cmd %= 40;
        controller->HandleTunerMsgSlot(r);
        controller->KeypadButtonPressed(QString());
        controller->bandButtonPressed(QString::number(r.signal % 6));
        controller->PresetButtonPressed(QString::number(r.preset));
        controller->RadioRegionChangedSlot(int(int8_t(r.reserved17)));
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
    QApplication app(argc, argv);
    for (int i = 1; i < argc; ++i) {
        QFile file(QString::fromLocal8Bit(argv[i]));
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        runInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
    }
    std::mt19937 rng(20261123);
    for (int i = 0; argc == 1 && i < 400; ++i) {
        std::vector<uint8_t> bytes(rng() % (4 * sizeof(tag_RadioCmdFromMCU)));
        for (uint8_t& b : bytes)
            b = uint8_t(rng());
        runInput(bytes.data(), bytes.size());
    }
    return 0;
}
#endif
