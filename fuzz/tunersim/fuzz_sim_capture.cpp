// Arbitrary bytes as a capture of the tuner link: the reader either fails
// with a one-line reason or gives records in replay order, and what it
// read comes back the same through the link's own writer.
#include "CaptureFile.h"
#include "FuzzCheck.h"
#include "PcapngWriter.h"

#include <cstring>
#include <string>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    CaptureFile capture;
    QString error;
    const bool ok = capture.parse(QByteArray(reinterpret_cast<const char*>(data), int(size)), &error);
    const QVector<CaptureFile::Record>& records = capture.records();
    check(ok == error.isEmpty() && !error.contains(QLatin1Char('\n')), "one line of error exactly when it fails");
    check(ok != records.isEmpty(), "records exactly when it loads");
    if (!ok)
        return 0;
    check(records.first().timeUs == 0 && capture.reordered() < records.size(), "the first record plays at once");
    for (int i = 1; i < records.size(); ++i)
        check(records.at(i).timeUs >= records.at(i - 1).timeUs, "no record plays before the one ahead of it");

    // Written at their replay times, the records read back unchanged.
    static const std::string path = "/tmp/fuzz_sim_capture-" + std::to_string(::getpid()) + ".pcapng";
    PcapngWriter writer;
    check(writer.open(path, nullptr), "scratch capture opens");
    for (const CaptureFile::Record& r : records)
        writer.writePacket(uint64_t(r.timeUs), PcapngWriter::FromService, &r.record, sizeof r.record);
    writer.close(0, 0);
    CaptureFile again;
    check(again.load(QString::fromStdString(path), nullptr), "the written capture loads");
    ::unlink(path.c_str());
    check(again.records().size() == records.size() && again.reordered() == 0 && again.frames() == 0, "as many records");
    for (int i = 0; i < records.size(); ++i) {
        check(again.records().at(i).timeUs == records.at(i).timeUs, "the same times");
        check(std::memcmp(&again.records().at(i).record, &records.at(i).record, sizeof records.at(i).record) == 0,
              "the same bytes");
    }
    return 0;
}
