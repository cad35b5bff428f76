#include "RdsDecoder.h"

#include "RdsCharset.h"

namespace {

constexpr uint8_t kRtEnd = 0x0D;
// A new PI has to be seen this many times in a row before the decoder
// believes the receiver moved to another station.
constexpr int kPiSwitchVotes = 3;

} // namespace

bool RdsDecoder::Confirmed::offer(int v)
{
    if (v == value) {
        candidate = -1;
        return false;
    }
    if (v != candidate) {
        candidate = v;
        return false;
    }
    value = v;
    candidate = -1;
    return true;
}

RdsDecoder::RdsDecoder(QObject* parent)
    : QObject(parent)
{
}

void RdsDecoder::reset()
{
    m_pi = 0;
    m_piCandidate = 0;
    m_piVotes = 0;
    clearStation();
}

void RdsDecoder::clearStation()
{
    m_pty = Confirmed();
    m_tp = Confirmed();
    m_ta = Confirmed();
    m_psSeen = 0;
    m_psFresh = 0;
    m_ps.clear();
    clearText();
    m_rt.clear();
}

void RdsDecoder::clearText()
{
    m_rtSeen = 0;
    m_rtConfirmed = 0;
    m_rtPrevSegment = -1;
    m_rtHighest = -1;
    m_rtWrapped = false;
}

bool RdsDecoder::acceptPi(const RdsGroup& group)
{
    if (!group.has(0))
        return true;
    const uint16_t pi = group.block[0];
    if (pi == m_pi) {
        m_piVotes = 0;
        return true;
    }
    if (pi == m_piCandidate) {
        ++m_piVotes;
    } else {
        m_piCandidate = pi;
        m_piVotes = 1;
    }
    const int needed = m_pi == 0 ? 2 : kPiSwitchVotes;
    if (m_piVotes < needed)
        return m_pi == 0;
    if (m_pi != 0)
        clearStation();
    m_pi = pi;
    m_piVotes = 0;
    return true;
}

void RdsDecoder::feed(const RdsGroup& group)
{
    if (!acceptPi(group) || !group.has(1))
        return;
    const uint16_t b = group.block[1];
    const int type = b >> 12;
    const bool versionB = (b >> 11) & 1;

    if (m_tp.offer((b >> 10) & 1))
        emit tpChanged(m_tp.value > 0);
    if (m_pty.offer((b >> 5) & 31))
        emit ptyChanged(m_pty.value);

    if (type == 0) {
        if (m_ta.offer((b >> 4) & 1))
            emit taChanged(m_ta.value > 0);
        if (group.has(3))
            takePsSegment(b & 3, group.block[3]);
    } else if (type == 2) {
        const int segment = b & 15;
        const int ab = (b >> 4) & 1;
        if (!versionB && group.has(2) && group.has(3))
            takeRtSegment(segment, (uint32_t(group.block[2]) << 16) | group.block[3], false, ab);
        else if (versionB && group.has(3))
            takeRtSegment(segment, group.block[3], true, ab);
    }
}

void RdsDecoder::takePsSegment(int segment, uint16_t chars)
{
    const uint8_t bit = uint8_t(1u << segment);
    if ((m_psSeen & bit) && m_psLast[segment] == chars) {
        m_psValue[segment] = chars;
        m_psFresh |= bit;
    } else {
        // The segment is changing: the name is published only when all
        // four have settled again, so that halves of two names never mix.
        m_psFresh &= uint8_t(~bit);
    }
    m_psLast[segment] = chars;
    m_psSeen |= bit;
    if (m_psFresh != 0x0F)
        return;
    m_psFresh = 0;
    QByteArray ps(8, ' ');
    for (int i = 0; i < 4; ++i) {
        ps[2 * i] = char(m_psValue[i] >> 8);
        ps[2 * i + 1] = char(m_psValue[i] & 0xFF);
    }
    if (ps != m_ps) {
        m_ps = ps;
        emit psChanged(m_ps);
    }
}

void RdsDecoder::takeRtSegment(int segment, uint32_t chars, bool versionB, int abFlag)
{
    // A flipped A/B flag or a switch between 2A and 2B announces a new text.
    if ((m_rtAb >= 0 && abFlag != m_rtAb) || versionB != m_rtVersionB)
        clearText();
    m_rtAb = abFlag;
    m_rtVersionB = versionB;

    if (segment <= m_rtPrevSegment)
        m_rtWrapped = true;
    m_rtPrevSegment = segment;
    m_rtHighest = qMax(m_rtHighest, segment);

    const uint16_t bit = uint16_t(1u << segment);
    if ((m_rtSeen & bit) && m_rtLast[segment] == chars) {
        m_rtValue[segment] = chars;
        m_rtConfirmed |= bit;
    }
    m_rtLast[segment] = chars;
    m_rtSeen |= bit;
    publishRtIfComplete();
}

void RdsDecoder::publishRtIfComplete()
{
    const int width = m_rtVersionB ? 2 : 4;
    QByteArray codes;
    bool ended = false;
    int segment = 0;
    for (; segment < 16 && !ended; ++segment) {
        if (!(m_rtConfirmed & (1u << segment)))
            break;
        for (int i = width - 1; i >= 0; --i) {
            const uint8_t c = uint8_t(m_rtValue[segment] >> (8 * i));
            if (c == kRtEnd) {
                ended = true;
                break;
            }
            codes.append(char(c));
        }
    }
    // Complete: ended by 0x0D, all sixteen segments, or every segment the
    // station sends once it has started over without ever sending 0x0D.
    const bool complete = ended || segment == 16 || (m_rtWrapped && segment > m_rtHighest);
    if (!complete)
        return;
    QByteArray text = RdsCharset::toUtf8(codes);
    while (text.endsWith(' '))
        text.chop(1);
    if (text != m_rt) {
        m_rt = text;
        emit radioTextChanged(m_rt);
    }
}
