#ifndef RECORDMEMORY_H
#define RECORDMEMORY_H

#include "RadioCmdFromMCU.h"

#include <QHash>

// The last record sent for each kind, so that only changes go out. Two
// records of a kind are the same when the fields that kind carries are.
class RecordMemory
{
public:
    static bool sameContent(const tag_RadioCmdFromMCU& a, const tag_RadioCmdFromMCU& b);

    bool isNew(const tag_RadioCmdFromMCU& record) const;
    void remember(const tag_RadioCmdFromMCU& record);
    bool knows(uint32_t kind) const { return m_last.contains(kind); }
    const tag_RadioCmdFromMCU* last(uint32_t kind) const;
    void forget(uint32_t kind) { m_last.remove(kind); }
    void clear() { m_last.clear(); }

private:
    QHash<uint32_t, tag_RadioCmdFromMCU> m_last;
};

#endif
