#include "ProtocolTrace.h"

#include <QStringList>

#include <cstring>

namespace {

bool allZero(const void* data, size_t size)
{
    const auto* p = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < size; ++i) {
        if (p[i] != 0)
            return false;
    }
    return true;
}

QString presetList(const uint16_t* freqs, int count)
{
    QStringList parts;
    for (int i = 0; i < count; ++i)
        parts << QString::number(freqs[i]);
    return parts.join(' ');
}

QString nameList(const uint8_t (*names)[8], int count)
{
    QStringList parts;
    for (int i = 0; i < count; ++i)
        parts << ProtocolTrace::quoted(reinterpret_cast<const char*>(names[i]), 8);
    return parts.join(' ');
}

QString flagNames(uint8_t flags)
{
    static const struct {
        uint8_t mask;
        const char* name;
    } kBits[] = {
        {0x01, "RDS"}, {RDS_FLAG_TP, "TP"}, {RDS_FLAG_AF, "AF"}, {RDS_FLAG_TA, "TA"},
        {0x10, "bit4"}, {0x20, "bit5"}, {RDS_FLAG_REG, "REG"}, {RDS_FLAG_TA_IND, "TA-IND"},
    };
    QStringList names;
    for (const auto& bit : kBits) {
        if (flags & bit.mask)
            names << QString::fromLatin1(bit.name);
    }
    return names.join(' ');
}

// Radio text as sent: UTF-8 up to the terminator, which the screen looks
// for no further than the field's end.
QString radioTextOf(const tag_RadioCmdFromMCU& r)
{
    const char* text = reinterpret_cast<const char*>(r.radioText);
    const size_t length = strnlen(text, sizeof r.radioText);
    QString out;
    for (const QChar c : QString::fromUtf8(text, int(length))) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            out += QStringLiteral("\\") + c;
        else if (c.unicode() < 0x20)
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return QLatin1Char('"') + out + QLatin1Char('"');
}

} // namespace

QString ProtocolTrace::frequencyText(uint32_t freq)
{
    if (isFmFrequency(freq))
        return QStringLiteral("%1.%2 MHz").arg(freq / 100).arg(freq % 100, 2, 10, QLatin1Char('0'));
    return QStringLiteral("%1 kHz").arg(freq);
}

QString ProtocolTrace::bandName(unsigned band)
{
    if (band <= 2)
        return QStringLiteral("FM%1").arg(band + 1);
    if (band <= 4)
        return QStringLiteral("AM%1").arg(band - 2);
    return QStringLiteral("?");
}

QString ProtocolTrace::quoted(const char* bytes, int size)
{
    QString out(QLatin1Char('"'));
    for (int i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c == '"' || c == '\\') {
            out += QLatin1Char('\\');
            out += QLatin1Char(char(c));
        } else if (c >= 0x20 && c < 0x7F) {
            out += QLatin1Char(char(c));
        } else {
            out += QStringLiteral("\\x%1").arg(c, 2, 16, QLatin1Char('0'));
        }
    }
    return out + QLatin1Char('"');
}

QString ProtocolTrace::frameLine(const RadioCmdToMCU& frame)
{
    const char* name = radioCmdName(frame.code);
    QString line = QStringLiteral("<- %1(%2) param=%3")
                       .arg(name ? QString::fromLatin1(name) : QStringLiteral("?"))
                       .arg(frame.code)
                       .arg(frame.param);
    if (frame.code == RC_SET_FREQ)
        line += QStringLiteral(" (%1)").arg(frequencyText(frame.param));
    else if (frame.code == RC_BAND && frame.param >= 1 && frame.param <= 5)
        line += QStringLiteral(" (%1)").arg(bandName(frame.param - 1));
    return line;
}

QString ProtocolTrace::recordLine(const tag_RadioCmdFromMCU& r)
{
    const char* name = radioMsgKindName(r.cmd);
    QString line = QStringLiteral("-> %1").arg(std::strcmp(name, "?") == 0
                                                    ? QStringLiteral("?(%1)").arg(r.cmd)
                                                    : QString::fromLatin1(name));
    switch (r.cmd) {
    case MCU_TUNE_INFO:
        line += QStringLiteral(" freq=%1 (%2) band=%3 (%4) preset=%5 dxLoc=%6 as=%7 stereo=%8 ps=%9")
                    .arg(r.freq)
                    .arg(frequencyText(r.freq))
                    .arg(r.band)
                    .arg(bandName(r.band))
                    .arg(r.preset)
                    .arg(r.dxLoc)
                    .arg(r.asState)
                    .arg(r.stereo)
                    .arg(r.psState);
        line += QStringLiteral(" scan=%1 psName=%2")
                    .arg(r.scanState)
                    .arg(quoted(reinterpret_cast<const char*>(r.psName), 8));
        break;
    case MCU_PRESET_FREQ:
        line += QLatin1Char(' ') + presetList(r.presetFreq, 6);
        if (!allZero(r.presetFreq + 6, 12))
            line += QStringLiteral(" | ") + presetList(r.presetFreq + 6, 6);
        break;
    case MCU_PRESET_PS:
        line += QLatin1Char(' ') + nameList(r.presetPsName, 6);
        if (!allZero(r.presetPsName[6], 48))
            line += QStringLiteral(" | ") + nameList(r.presetPsName + 6, 6);
        break;
    case MCU_PTY:
        line += QStringLiteral(" pty=%1 selected=%2").arg(r.pty).arg(r.selectedPty);
        break;
    case MCU_PS_NAME:
        line += QStringLiteral(" psName=%1").arg(quoted(reinterpret_cast<const char*>(r.psName), 8));
        break;
    case MCU_RADIO_TEXT:
        line += QStringLiteral(" text=%1").arg(radioTextOf(r));
        break;
    case MCU_RDS_FLAGS:
        line += QStringLiteral(" flags=0x%1 [%2]").arg(r.rdsFlags, 2, 16, QLatin1Char('0')).arg(flagNames(r.rdsFlags));
        break;
    case MCU_STATION_PIC:
        line += QStringLiteral(" stationPic=%1").arg(r.stationPic);
        break;
    case MCU_FAVOURITE: {
        uint16_t freqs[6];
        std::memcpy(freqs, r.favourite, sizeof freqs);
        line += QLatin1Char(' ') + presetList(freqs, 6);
        break;
    }
    case MCU_SIGNAL:
        line += QStringLiteral(" signal=%1").arg(r.signal);
        break;
    default:
        break;
    }
    return line;
}
