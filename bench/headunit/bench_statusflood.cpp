// The head unit under a flood of status records: the real shell and the real
// radio plugin run in this process, a peer process stands in for the tuner
// service and writes valid records as fast as the link takes them (a mix of
// kinds 0, 4, 5, 6, 7, 8, 9 whose values keep changing; the tune-info records
// change band, DX/LOC and stereo as they go).
//
// Prints the records/s the GUI thread handled, resident memory (at the start
// of the flood, peak and final), and the worst time a snapshot request
// (SIGUSR1, as a user of the shell sends it) waited for its answer.
//
// Usage: bench_statusflood [records, default 1000000] [time limit s, default 900]
// Binds @kestrelhub and /tmp/_tnlk: run it alone (or in its own namespace).
// The link's log (standard output) goes to a file in a temporary folder.

#include "HeadUnitOptions.h"
#include "HeadUnitShell.h"
#include "HostState.h"
#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"

#include <QApplication>
#include <QEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pthread.h>
#include <time.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point t)
{
    return std::chrono::duration<double>(Clock::now() - t).count();
}

// ---- The peer: a tuner service that only floods ----

tag_RadioCmdFromMCU floodRecord(uint64_t i)
{
    static const uint32_t kinds[] = {MCU_TUNE_INFO, MCU_PRESET_FREQ, MCU_PTY,     MCU_PS_NAME,
                                     MCU_RADIO_TEXT, MCU_PRESET_PS,  MCU_RDS_FLAGS};
    tag_RadioCmdFromMCU r;
    std::memset(&r, 0, sizeof r);
    r.cmd = kinds[i % 7];
    const uint64_t round = i / 7;
    switch (r.cmd) {
    case MCU_TUNE_INFO:
        r.band = uint8_t(round % 5);
        r.freq = isAmBand(r.band) ? 531 + uint32_t(round % 1099) : 8750 + uint32_t(round % 400) * 5;
        r.preset = uint8_t(round % 7);
        r.dxLoc = uint8_t((round / 3) & 1);
        r.stereo = uint8_t((round / 2) & 1);
        break;
    case MCU_PRESET_FREQ:
        for (int k = 0; k < 12; ++k)
            r.presetFreq[k] = uint16_t(8750 + ((round + uint64_t(k)) % 400) * 5);
        break;
    case MCU_PTY:
        r.pty = uint8_t(round % 32);
        r.selectedPty = uint8_t((round + 1) % 32);
        break;
    case MCU_PS_NAME: {
        char name[9];
        std::snprintf(name, sizeof name, "PS%06u", unsigned(round % 1000000));
        std::memcpy(r.psName, name, 8);
        break;
    }
    case MCU_RADIO_TEXT:
        std::snprintf(reinterpret_cast<char*>(r.radioText), sizeof r.radioText, "Radio text of record %llu",
                      static_cast<unsigned long long>(i));
        break;
    case MCU_PRESET_PS:
        for (int k = 0; k < 12; ++k) {
            char name[9];
            std::snprintf(name, sizeof name, "P%d%06u", k % 10, unsigned((round + uint64_t(k)) % 1000000));
            std::memcpy(r.presetPsName[k], name, 8);
        }
        break;
    case MCU_RDS_FLAGS:
        r.rdsFlags = uint8_t(round * 37);
        break;
    }
    return r;
}

// Reads whatever command frames are waiting; counts list requests.
void drainFrames(int fd, int* listRequests)
{
    RadioCmdToMCU frame;
    while (recv(fd, &frame, sizeof frame, MSG_DONTWAIT) == ssize_t(sizeof frame)) {
        if (frame.code == RC_REQUEST_LIST)
            ++*listRequests;
    }
}

// Child process. Starts writing after the second list request: that one
// comes from the controller's request timer, so the controller is fully
// wired by then.
int runPeer(int listenFd, uint64_t records)
{
    const int fd = accept(listenFd, nullptr, nullptr);
    if (fd < 0)
        return 1;
    int listRequests = 0;
    while (listRequests < 2) {
        RadioCmdToMCU frame;
        if (recv(fd, &frame, sizeof frame, MSG_WAITALL) != ssize_t(sizeof frame))
            return 1;
        if (frame.code == RC_REQUEST_LIST)
            ++listRequests;
    }
    const Clock::time_point start = Clock::now();
    for (uint64_t i = 0; i < records; ++i) {
        const tag_RadioCmdFromMCU r = floodRecord(i);
        if (send(fd, &r, sizeof r, MSG_NOSIGNAL) != ssize_t(sizeof r))
            return 1;
        if (i % 1024 == 0)
            drainFrames(fd, &listRequests);
    }
    const double seconds = secondsSince(start);
    std::fprintf(stderr, "peer: wrote %llu records in %.1f s (%.0f records/s)\n",
                 static_cast<unsigned long long>(records), seconds, records / seconds);
    // Stays connected until the head unit goes away.
    char sink[64];
    while (recv(fd, sink, sizeof sink, 0) > 0) {
    }
    return 0;
}

int listenAsService()
{
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, "\0kestrelhub", 11);
    if (fd < 0 || bind(fd, reinterpret_cast<sockaddr*>(&addr), 13) != 0 || listen(fd, 1) != 0) {
        std::perror("cannot listen on @kestrelhub");
        return -1;
    }
    return fd;
}

// ---- Measurements in the head unit ----

double threadCpuSeconds(pthread_t thread)
{
    clockid_t clock;
    timespec t{};
    if (pthread_getcpuclockid(thread, &clock) != 0 || clock_gettime(clock, &t) != 0)
        return 0;
    return t.tv_sec + t.tv_nsec / 1e9;
}

long residentKiB(const char* key)
{
    FILE* f = std::fopen("/proc/self/status", "r");
    if (!f)
        return -1;
    char line[256];
    long value = -1;
    const size_t keyLen = std::strlen(key);
    while (std::fgets(line, sizeof line, f)) {
        if (std::strncmp(line, key, keyLen) == 0) {
            value = std::atol(line + keyLen);
            break;
        }
    }
    std::fclose(f);
    return value;
}

// Counts the queued record hand-overs as the GUI thread delivers them to
// the controller.
class HandledCounter : public QObject
{
public:
    std::atomic<uint64_t> handled{0};
    std::atomic<int64_t> firstNs{0};
    std::atomic<int64_t> lastNs{0};

    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::MetaCall) {
            const int64_t now = Clock::now().time_since_epoch().count();
            if (handled.fetch_add(1) == 0)
                firstNs = now;
            lastNs = now;
        }
        return false;
    }
};

// Sends SIGUSR1 to this process every 50 ms and waits for the snapshot file
// to be replaced; keeps the longest wait (also one still running) and the
// resident memory seen meanwhile.
class SnapshotProbe
{
public:
    explicit SnapshotProbe(const QByteArray& dumpFile) : m_dumpFile(dumpFile) {}

    void start() { m_thread = std::thread([this] { run(); }); }
    void stop()
    {
        m_stop = true;
        m_thread.join();
    }
    double worstMs() const { return m_worstMs; }
    int answered() const { return m_answered; }
    long peakRssKiB() const { return m_peakRss; }

private:
    ino_t dumpInode() const
    {
        struct stat st;
        return stat(m_dumpFile.constData(), &st) == 0 ? st.st_ino : 0;
    }
    void sampleRss()
    {
        m_peakRss = std::max(m_peakRss.load(), residentKiB("VmRSS:"));
    }
    void run()
    {
        while (!m_stop) {
            const ino_t before = dumpInode();
            const Clock::time_point asked = Clock::now();
            kill(getpid(), SIGUSR1);
            while (!m_stop && dumpInode() == before) {
                m_worstMs = std::max(m_worstMs.load(), secondsSince(asked) * 1000.0);
                sampleRss();
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            if (m_stop)
                break;
            m_worstMs = std::max(m_worstMs.load(), secondsSince(asked) * 1000.0);
            ++m_answered;
            sampleRss();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    }

    QByteArray m_dumpFile;
    std::thread m_thread;
    std::atomic<bool> m_stop{false};
    std::atomic<double> m_worstMs{0};
    std::atomic<int> m_answered{0};
    std::atomic<long> m_peakRss{0};
};

} // namespace

int main(int argc, char** argv)
{
    const uint64_t records = argc > 1 ? std::max<uint64_t>(1, std::strtoull(argv[1], nullptr, 10)) : 1000000;
    const int limitSeconds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 900;

    // The peer is forked before any thread exists.
    const int listenFd = listenAsService();
    if (listenFd < 0)
        return 1;
    const pid_t peer = fork();
    if (peer == 0)
        _exit(runPeer(listenFd, records));
    close(listenFd);

    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString logFile = dir.filePath(QStringLiteral("link.log"));
    const int logFd = open(QFile::encodeName(logFile).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (logFd < 0 || dup2(logFd, STDOUT_FILENO) < 0)
        return 1;
    close(logFd);

    HeadUnitOptions options;
    options.pluginDir = HeadUnitOptions::defaultPluginDir();
    options.settingsFile = dir.filePath(QStringLiteral("settings.ini"));
    options.dumpFile = dir.filePath(QStringLiteral("dump.json"));
    HeadUnitShell shell(options);
    if (const int failure = shell.start())
        return failure;
    QObject* controller = HostState::radioController();
    if (!controller) {
        std::fprintf(stderr, "no radio controller\n");
        return 1;
    }
    HandledCounter counter;
    controller->installEventFilter(&counter);

    std::fprintf(stderr, "flooding with %llu records of %zu bytes (log: %s)\n",
                 static_cast<unsigned long long>(records), sizeof(tag_RadioCmdFromMCU), qPrintable(logFile));
    const long startRss = residentKiB("VmRSS:");
    // CPU time of the GUI thread is less disturbed by other load on the
    // machine than the rate.
    const pthread_t guiThread = pthread_self();
    const double startCpu = threadCpuSeconds(guiThread);
    SnapshotProbe probe(QFile::encodeName(options.dumpFile));
    probe.start();

    // The GUI thread may be too far behind to notice the time limit, so a
    // watchdog thread of its own reports and ends the run.
    const auto report = [&](bool timedOut) {
        const uint64_t handled = counter.handled;
        const double busy = (counter.lastNs - counter.firstNs) / 1e9;
        const long finalRss = residentKiB("VmRSS:");
        const long peakRss = std::max({probe.peakRssKiB(), finalRss, residentKiB("VmHWM:")});
        std::fprintf(stderr, "handled:        %llu of %llu records%s\n", static_cast<unsigned long long>(handled),
                     static_cast<unsigned long long>(records), timedOut ? " (time limit reached)" : "");
        std::fprintf(stderr, "handled rate:   %.0f records/s (%.1f s from the first to the last)\n",
                     busy > 0 ? (handled - 1) / busy : 0.0, busy);
        std::fprintf(stderr, "GUI thread CPU: %.1f us per handled record\n",
                     handled ? (threadCpuSeconds(guiThread) - startCpu) * 1e6 / handled : 0.0);
        std::fprintf(stderr, "resident:       %.1f MB at the start, %.1f MB peak, %.1f MB %s\n", startRss / 1024.0,
                     peakRss / 1024.0, finalRss / 1024.0, timedOut ? "now" : "final");
        std::fprintf(stderr, "snapshots:      %d answered, worst wait %.0f ms%s\n", probe.answered(), probe.worstMs(),
                     timedOut ? " (or more: one may still be waiting)" : "");
        kill(peer, SIGTERM);
        waitpid(peer, nullptr, 0);
    };
    std::atomic<bool> finished{false};
    std::thread watchdog([&] {
        const Clock::time_point limit = Clock::now() + std::chrono::seconds(limitSeconds);
        while (!finished) {
            if (Clock::now() > limit) {
                report(true);
                _exit(2);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    });

    QTimer check;
    QObject::connect(&check, &QTimer::timeout, [&] {
        if (counter.handled >= records)
            app.quit();
    });
    check.start(20);
    app.exec();
    finished = true;
    watchdog.join();
    probe.stop();
    report(false);
    return 0;
}
