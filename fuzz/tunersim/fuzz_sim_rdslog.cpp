// Arbitrary bytes as an RDS log and as RDS groups: the log reader and the
// decoder must take anything and keep their results within bounds.

#include "RdsDecoder.h"
#include "RdsLog.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>

namespace {

void check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }
}

void checkDecoder(const RdsDecoder& decoder)
{
    check(decoder.ps().isEmpty() || decoder.ps().size() == 8, "PS empty or 8 codes");
    check(decoder.pty() >= -1 && decoder.pty() <= 31, "PTY -1..31");
    // 64 codes convert to at most 64 three-byte characters.
    check(decoder.radioText().size() <= 64 * 3, "radio text length");
    check(QString::fromUtf8(decoder.radioText()).toUtf8() == decoder.radioText(), "radio text is UTF-8");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));

    // As text.
    RdsLog log;
    log.parse(bytes);
    RdsDecoder decoder;
    for (const RdsGroup& g : log.groups()) {
        decoder.feed(g);
        checkDecoder(decoder);
    }

    // As groups: 9 bytes each, four blocks and a validity mask. Also
    // written out as log lines, so the reader sees well-formed text too.
    RdsDecoder direct;
    QByteArray text = "% Freq 94000\n";
    for (size_t at = 0; at + 9 <= size; at += 9) {
        RdsGroup g;
        for (int i = 0; i < 4; ++i)
            g.block[i] = uint16_t(data[at + 2 * i] << 8 | data[at + 2 * i + 1]);
        g.valid = data[at + 8] & 0x0F;
        direct.feed(g);
        checkDecoder(direct);
        for (int i = 0; i < 4; ++i)
            text += g.has(i) ? QByteArray::number(g.block[i], 16).rightJustified(4, '0') + ' ' : QByteArray("---- ");
        text += "@0000\n";
    }
    RdsLog written;
    written.parse(text);
    check(written.rejectedLines() == 0, "well-formed lines accepted");
    check(written.groups().size() == int(size / 9), "one group per line");
    return 0;
}
