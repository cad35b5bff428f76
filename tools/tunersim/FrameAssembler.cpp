#include "FrameAssembler.h"

#include <cstring>

QVector<RadioCmdToMCU> FrameAssembler::feed(const char* data, int length)
{
    QVector<RadioCmdToMCU> frames;
    if (!data || length <= 0)
        return frames;
    constexpr int kSize = int(sizeof(RadioCmdToMCU));
    frames.reserve((m_have + length) / kSize);
    int pos = 0;
    if (m_have > 0) {
        const int take = qMin(kSize - m_have, length);
        std::memcpy(m_partial + m_have, data, size_t(take));
        m_have += take;
        pos = take;
        if (m_have < kSize)
            return frames;
        RadioCmdToMCU frame;
        std::memcpy(&frame, m_partial, sizeof frame);
        frames.append(frame);
        m_have = 0;
    }
    for (; pos + kSize <= length; pos += kSize) {
        RadioCmdToMCU frame;
        std::memcpy(&frame, data + pos, sizeof frame);
        frames.append(frame);
    }
    m_have = length - pos;
    std::memcpy(m_partial, data + pos, size_t(m_have));
    return frames;
}
