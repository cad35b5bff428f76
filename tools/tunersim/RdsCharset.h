#ifndef RDSCHARSET_H
#define RDSCHARSET_H

#include <QByteArray>
#include <QChar>

// The RDS basic character set (IEC 62106 / EN 50067 Annex E, code table G0).
// It agrees with ASCII for letters and digits only; 0x80-0xFF hold the
// accented letters, which differ from Latin-1.
class RdsCharset
{
public:
    // UTF-8 for one code; empty for control codes and unused positions.
    static QByteArray utf8(uint8_t code);
    // Converts a string of codes, dropping control codes.
    static QByteArray toUtf8(const QByteArray& codes);
    // The code of a character, or -1 when the set has none.
    static int codeOf(QChar c);
    // Eight space-padded codes for a programme-service name given as UTF-8;
    // characters outside the set become spaces.
    static QByteArray psFromUtf8(const QByteArray& text);
    // At most `maxBytes` bytes of UTF-8 text, never cutting a character.
    static QByteArray truncateUtf8(const QByteArray& text, int maxBytes);
};

#endif
