#ifndef FRAMEASSEMBLER_H
#define FRAMEASSEMBLER_H

#include "RadioCmdToMCU.h"

#include <QVector>

// Cuts the byte stream from the screen into 8-byte command frames; a frame
// split across reads is completed by the next one.
class FrameAssembler
{
public:
    QVector<RadioCmdToMCU> feed(const char* data, int length);
    int pendingBytes() const { return m_have; }
    void reset() { m_have = 0; }

private:
    unsigned char m_partial[sizeof(RadioCmdToMCU)] = {};
    int m_have = 0;
};

#endif
