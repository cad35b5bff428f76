// Arbitrary bytes as an RDS log and as RDS groups: the log reader and the
// decoder take anything and keep their results within bounds.
#include "FuzzCheck.h"
#include "RdsDecoder.h"
#include "RdsLog.h"


namespace {

void feed(RdsDecoder& decoder, const RdsGroup& group)
{
    decoder.feed(group);
    check(decoder.ps().isEmpty() || decoder.ps().size() == 8, "PS empty or 8 codes");
    check(decoder.pty() >= -1 && decoder.pty() <= 31, "PTY -1..31");
    check(decoder.radioText().size() <= 64 * 3, "radio text of 64 characters at most");
    check(QString::fromUtf8(decoder.radioText()).toUtf8() == decoder.radioText(), "radio text is UTF-8");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    RdsLog log;
    log.parse(QByteArray(reinterpret_cast<const char*>(data), int(size)));
    RdsDecoder decoder;
    for (const RdsGroup& g : log.groups())
        feed(decoder, g);
    // As groups of 9 bytes (four blocks, a validity mask), also written out
    // as log lines, which the reader must take whole.
    RdsDecoder direct;
    QByteArray text = "% Freq 94000\n";
    for (size_t at = 0; at + 9 <= size; at += 9) {
        RdsGroup g;
        for (int i = 0; i < 4; ++i)
            g.block[i] = uint16_t(data[at + 2 * i] << 8 | data[at + 2 * i + 1]);
        g.valid = data[at + 8] & 0x0F;
        feed(direct, g);
        for (int i = 0; i < 4; ++i)
            text += g.has(i) ? QByteArray::number(g.block[i], 16).rightJustified(4, '0') + ' ' : QByteArray("---- ");
        text += "@0000\n";
    }
    RdsLog written;
    written.parse(text);
    check(written.rejectedLines() == 0 && written.groups().size() == int(size / 9), "one group per well-formed line");
    return 0;
}
