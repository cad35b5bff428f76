#ifndef PROTOCOLTRACE_H
#define PROTOCOLTRACE_H

#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"

#include <QString>

// One decoded line per frame received ("<- ...") and per record sent
// ("-> ..."): what an integrator reads to see the conversation.
class ProtocolTrace
{
public:
    static QString frameLine(const RadioCmdToMCU& frame);
    static QString recordLine(const tag_RadioCmdFromMCU& record);

    static QString frequencyText(uint32_t freq);   // "87.50 MHz", "531 kHz"
    static QString bandName(unsigned band);        // "FM1" ... "AM2", "?" beyond
    static QString quoted(const char* bytes, int size);   // printable ASCII, others as \xNN
};

#endif
