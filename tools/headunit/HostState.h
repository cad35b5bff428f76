#ifndef HOSTSTATE_H
#define HOSTSTATE_H

#include <QJsonObject>
#include <QString>
#include <QStringList>

class AuxinModule;
class QWidget;
class RadioModule;

// The host side of the radio's contract as the shell sees it: the modules
// the radio talks to, the audio state and the application data.
class HostState
{
public:
    // The "radio" module's implementation object, or null.
    static RadioModule* radioModule();
    // The "auxin" module's audio input, or null.
    static AuxinModule* auxinModule();
    // The radio activity's UI object (its controller), or null.
    static QWidget* radioController();

    // Names of the bits set in the radio flag word, in bit order:
    // "ST", "TA", "TP", "TA-on", "REG".
    static QStringList flagNames(unsigned int flag);
    // A NUL-terminated text of the radio info record, decoded from the
    // local 8-bit encoding; stops at the end of the field without a NUL.
    static QString infoText(const char* field, int size);
    // Band number of the application data as shown: "FM1" ... "AM2".
    static QString bandName(int band);

    // Everything above as one JSON object (see README.md, "host").
    static QJsonObject snapshot();
};

#endif
