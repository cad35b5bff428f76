#ifndef CAPTUREFILE_H
#define CAPTUREFILE_H

#include "RadioCmdFromMCU.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <cstdio>

// A capture of the tuner link as PcapngWriter writes it (pcapng, or pcap,
// link type USER0), read with libpcap: the status records it holds with
// their times. Command frames are counted and left out; anything else
// makes the whole file unusable, as a replay of half a capture would
// mislead more than none.
class CaptureFile
{
public:
    struct Record
    {
        // Microseconds since the first record. A record stamped before the
        // one ahead of it gets the same time: captures need not be ordered.
        qint64 timeUs = 0;
        tag_RadioCmdFromMCU record;
    };

    // False with *error set ("<path>: <why>") unless the file holds at
    // least one status record and nothing but records and frames.
    bool load(const QString& path, QString* error);
    // The same from memory; the error has no path.
    bool parse(const QByteArray& bytes, QString* error);

    const QVector<Record>& records() const { return m_records; }
    int frames() const { return m_frames; }
    // Records stamped earlier than the record before them.
    int reordered() const { return m_reordered; }

private:
    // Takes file, closes it.
    bool read(FILE* file, QString* error);

    QVector<Record> m_records;
    int m_frames = 0;
    int m_reordered = 0;
};

#endif
