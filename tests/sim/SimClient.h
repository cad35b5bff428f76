#ifndef SIMCLIENT_H
#define SIMCLIENT_H

#include "RadioCmdFromMCU.h"

#include <QLocalSocket>

// The screen's end of the tuner socket: connects to an abstract name,
// writes frames and collects the whole records that come back.
class SimClient : public QLocalSocket
{
    Q_OBJECT
public:
    SimClient();
    bool connectTo(const QString& name);
    bool send(uint32_t code, uint32_t param = 0);
    QList<uint32_t> kinds() const;

    QList<tag_RadioCmdFromMCU> records;
};

#endif
