#include "CaptureFile.h"

#include "PcapngWriter.h"
#include "RadioCmdToMCU.h"

#include <QFile>

#include <pcap/pcap.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>

bool CaptureFile::load(const QString& path, QString* error)
{
    QString why;
    FILE* file = std::fopen(QFile::encodeName(path).constData(), "rbe");
    if (!file)
        why = QStringLiteral("cannot read %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno)));
    else if (read(file, &why))
        return true;
    else
        why = path + QStringLiteral(": ") + why;
    if (error)
        *error = why;
    return false;
}

bool CaptureFile::parse(const QByteArray& bytes, QString* error)
{
    // fmemopen only reads through the pointer in "r" mode.
    FILE* file = ::fmemopen(const_cast<char*>(bytes.constData()), size_t(bytes.size()), "rb");
    if (file)
        return read(file, error);
    if (error)
        *error = QStringLiteral("cannot open the bytes: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

bool CaptureFile::read(FILE* file, QString* error)
{
    m_records.clear();
    m_frames = 0;
    m_reordered = 0;
    const auto fail = [&](const QString& why) {
        m_records.clear();
        m_frames = 0;
        m_reordered = 0;
        if (error)
            *error = why;
        return false;
    };
    // libpcap calls an empty file a truncated header.
    const int first = std::fgetc(file);
    if (first == EOF) {
        const QString why = std::ferror(file) ? QString::fromLocal8Bit(std::strerror(errno)) : QStringLiteral("empty file");
        std::fclose(file);
        return fail(why);
    }
    std::ungetc(first, file);
    char message[PCAP_ERRBUF_SIZE] = {};
    pcap_t* opened = pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_MICRO, message);
    if (!opened) {
        // Only a capture that opened owns the file.
        std::fclose(file);
        return fail(QStringLiteral("not a pcap or pcapng capture (%1)").arg(QString::fromLocal8Bit(message)));
    }
    const std::unique_ptr<pcap_t, void (*)(pcap_t*)> pcap(opened, pcap_close);
    if (pcap_datalink(opened) != PcapngWriter::LinkTypeUser0)
        return fail(QStringLiteral("link type %1, not %2 (USER0, the tuner link)")
                        .arg(pcap_datalink(opened)).arg(PcapngWriter::LinkTypeUser0));

    // Stamps in microseconds as 128 bits: a corrupt one must not overflow.
    using Wide = __int128;
    Wide last = 0;
    pcap_pkthdr* header = nullptr;
    const u_char* data = nullptr;
    for (int packet = 1;; ++packet) {
        const int got = pcap_next_ex(opened, &header, &data);
        if (got == PCAP_ERROR_BREAK)
            break;
        const auto at = [packet] { return QStringLiteral("packet %1: ").arg(packet); };
        if (got != 1)
            return fail(QStringLiteral("%1 packets read, then: %2").arg(packet - 1).arg(QString::fromLocal8Bit(pcap_geterr(opened))));
        if (header->caplen < header->len)
            return fail(at() + QStringLiteral("cut to %1 of its %2 bytes").arg(header->caplen).arg(header->len));
        if (header->caplen == 0)
            return fail(at() + QStringLiteral("empty"));
        const uint32_t size = header->caplen - 1;
        if (data[0] == PcapngWriter::ToService) {
            if (size != sizeof(RadioCmdToMCU))
                return fail(at() + QStringLiteral("a command frame of %1 bytes, not %2").arg(size).arg(sizeof(RadioCmdToMCU)));
            ++m_frames;
            continue;
        }
        if (data[0] != PcapngWriter::FromService)
            return fail(at() + QStringLiteral("direction byte %1, neither 0 (status record) nor 1 (command frame)").arg(data[0]));
        if (size != sizeof(tag_RadioCmdFromMCU))
            return fail(at() + QStringLiteral("a status record of %1 bytes, not %2").arg(size).arg(sizeof(tag_RadioCmdFromMCU)));

        Record record;
        const Wide stamp = Wide(header->ts.tv_sec) * 1000000 + header->ts.tv_usec;
        if (!m_records.isEmpty()) {
            if (stamp < last)
                ++m_reordered;
            const Wide time = m_records.last().timeUs + std::max<Wide>(0, stamp - last);
            record.timeUs = qint64(std::min<Wide>(time, std::numeric_limits<qint64>::max()));
        }
        last = stamp;
        std::memcpy(&record.record, data + 1, sizeof record.record);
        m_records.append(record);
    }
    if (m_records.isEmpty())
        return fail(QStringLiteral("no status records (command frames: %1)").arg(m_frames));
    return true;
}
