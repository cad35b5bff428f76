#ifndef RADIOCMDMETATYPE_H
#define RADIOCMDMETATYPE_H

#include "RadioCmdFromMCU.h"

#include <QMetaType>

// Lets the status record travel by value through queued signals.
Q_DECLARE_METATYPE(RadioCmdFromMCU_T)

#endif
