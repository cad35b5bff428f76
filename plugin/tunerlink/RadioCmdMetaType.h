#ifndef RADIOCMDMETATYPE_H
#define RADIOCMDMETATYPE_H

#include "RadioCmdFromMCU.h"

#include <QMetaType>

#include <cstring>

// Qt 5's meta-type system default-initialises a record it constructs
// without a source (QMetaType::create/construct), which leaves a plain
// struct's bytes as they were; the record's contract is all zeros. Qt 6
// value-initialises, which zeroes it. The record itself stays a trivial
// type so that it can be cleared and copied bytewise.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
namespace QtMetaTypePrivate {
template <>
struct QMetaTypeFunctionHelper<tag_RadioCmdFromMCU, true> {
    static void Destruct(void*) {}
    static void* Construct(void* where, const void* source)
    {
        if (source)
            std::memcpy(where, source, sizeof(tag_RadioCmdFromMCU));
        else
            std::memset(where, 0, sizeof(tag_RadioCmdFromMCU));
        return where;
    }
};
} // namespace QtMetaTypePrivate
#endif

// Lets the status record travel by value through queued signals.
Q_DECLARE_METATYPE(RadioCmdFromMCU_T)

#endif
