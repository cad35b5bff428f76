// How fast the controller turns status records into screen updates, through
// the same queued hand-over the reader thread uses. Prints records per
// second for a mix of kinds; no pass/fail threshold.
#include "TunerViewImpl.h"
#include "TunerHandle.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    TunerViewImpl ctl(nullptr);
    ctl.show();

    const uint32_t kinds[] = {MCU_TUNE_INFO, MCU_PS_NAME, MCU_RADIO_TEXT, MCU_RDS_FLAGS, MCU_PTY, MCU_SIGNAL};
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 20000;
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < rounds; ++i) {
        r.cmd = kinds[i % 6];
        r.freq = 8750 + uint32_t(i % 400) * 5;
        r.pty = uint8_t(i % 32);
        r.rdsFlags = uint8_t(i);
        std::snprintf(reinterpret_cast<char*>(r.psName), sizeof r.psName, "PS%05d", i % 100000);
        std::snprintf(reinterpret_cast<char*>(r.radioText), sizeof r.radioText, "Radio text number %d", i);
        m_pTuner.deliver(r);
        if (i % 64 == 63)
            QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    const double seconds = clock.nsecsElapsed() / 1e9;
    std::printf("bench_statusdispatch: %d records in %.3f s, %.0f records/s\n", rounds, seconds, rounds / seconds);
    return 0;
}
