// Throughput of status records through the link's reader: a fake service
// writes records as fast as the link takes them, the reader hands each one
// to a counting controller. Prints records/s per write size and log sink,
// and with the link's capture on (into a file beside the log), with the
// packets the capture wrote and dropped.
//
// Usage: bench_linkthroughput [records per case, default 200000]

#include "CountingController.h"
#include "FakeTunerService.h"
#include "ProtocolComm.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

bool waitConnected(ProtocolComm* link, const FakeTunerService& service)
{
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    while (!(link->isConnected() && service.hasClient())) {
        if (Clock::now() > deadline)
            return false;
        std::this_thread::yield();
    }
    return true;
}

// Points stdout (the link's log) at the given file for one case.
bool logTo(const char* path)
{
    fflush(stdout);
    const int fd = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0)
        return false;
    const bool ok = dup2(fd, STDOUT_FILENO) >= 0;
    close(fd);
    return ok;
}

// CPU time of the whole process (all threads), microseconds.
double cpuUs()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e6 + usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
}

} // namespace

int main(int argc, char** argv)
{
    const int records = argc > 1 ? std::max(1, atoi(argv[1])) : 200000;

    FakeTunerService service;
    if (!service.start())
        return 1;
    CountingController counter;
    m_pTuner = &counter;
    ProtocolComm* link = ProtocolComm::GetInstance();
    if (!logTo("/dev/null"))
        return 1;
    link->Start();
    if (!waitConnected(link, service)) {
        fprintf(stderr, "link did not connect\n");
        return 1;
    }

    char logFile[] = "/tmp/bench_linklogXXXXXX";
    const int logFd = mkstemp(logFile);
    if (logFd < 0)
        return 1;
    close(logFd);

    char captureFile[] = "/tmp/bench_linkcaptureXXXXXX";
    const int captureFd = mkstemp(captureFile);
    if (captureFd < 0)
        return 1;
    close(captureFd);

    // Records/s for one case, or 0 when not all records arrived.
    const auto runCase = [&](int batch) -> double {
        std::vector<tag_RadioCmdFromMCU> buffer(static_cast<size_t>(batch));
        for (int i = 0; i < batch; ++i) {
            buffer[static_cast<size_t>(i)] = tag_RadioCmdFromMCU{};
            buffer[static_cast<size_t>(i)].cmd = static_cast<uint32_t>(i % 40);
        }
        const int writes = records / batch;
        const uint64_t total = static_cast<uint64_t>(writes) * static_cast<uint64_t>(batch);
        counter.expect(total);
        const Clock::time_point start = Clock::now();
        for (int w = 0; w < writes; ++w) {
            if (!service.write(buffer.data(), buffer.size() * sizeof(tag_RadioCmdFromMCU)))
                return 0;
        }
        const bool done = counter.waitForTarget(120000);
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        if (!done) {
            fprintf(stderr, "%d per write: only %llu of %llu records arrived\n", batch,
                    static_cast<unsigned long long>(counter.count()), static_cast<unsigned long long>(total));
            return 0;
        }
        return total / seconds;
    };

    struct Sink {
        const char* name;
        const char* path;
    };
    const Sink sinks[] = {{"log to /dev/null", "/dev/null"}, {"log to a file", logFile}};
    const int batches[] = {1, 16, 64};

    fprintf(stderr, "%d records of %zu bytes per case\n", records, sizeof(tag_RadioCmdFromMCU));
    int status = 0;
    for (const Sink& sink : sinks) {
        if (!logTo(sink.path))
            return 1;
        for (int batch : batches) {
            const double rate = runCase(batch);
            if (rate <= 0) {
                status = 1;
                continue;
            }
            fprintf(stderr, "%-18s %3d records per write: %10.0f records/s  %7.1f MiB/s\n", sink.name, batch, rate,
                    rate * sizeof(tag_RadioCmdFromMCU) / (1024.0 * 1024.0));
        }
    }

    // The capture's cost, one record per write with the log in a file. Runs
    // without and with capture alternate, so that drifts of a shared
    // machine hit both alike; the medians are compared. The CPU time of all
    // threads per record shows what the capture costs whatever the
    // scheduler makes of it.
    const int rounds = 7;
    std::vector<double> off, on, offCpu, onCpu;
    uint64_t captured = 0, dropped = 0;
    for (int round = 0; round < rounds; ++round) {
        const double before = cpuUs();
        off.push_back(runCase(1));
        const double between = cpuUs();
        if (!link->startCapture(captureFile))
            return 1;
        on.push_back(runCase(1));
        link->stopCapture();
        onCpu.push_back((cpuUs() - between) / records);
        offCpu.push_back((between - before) / records);
        captured += link->capture().written();
        dropped += link->capture().dropped();
    }
    for (std::vector<double>* v : {&off, &on, &offCpu, &onCpu})
        std::sort(v->begin(), v->end());
    const double offMedian = off[rounds / 2], onMedian = on[rounds / 2];
    if (offMedian <= 0 || onMedian <= 0)
        status = 1;
    else
        fprintf(stderr, "capture, 1 record per write, median of %d: off %.0f, on %.0f records/s (%+.1f %%); "
                        "captured %llu, dropped %llu\n",
                rounds, offMedian, onMedian, (onMedian / offMedian - 1) * 100, static_cast<unsigned long long>(captured),
                static_cast<unsigned long long>(dropped));
    fprintf(stderr, "CPU per record, all threads: off %.2f us, on %.2f us\n", offCpu[rounds / 2], onCpu[rounds / 2]);

    m_pTuner = nullptr;
    ProtocolComm::DeleteInstance();
    unlink(logFile);
    unlink(captureFile);
    return status;
}
