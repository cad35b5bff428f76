#ifndef PROTOCOLCOMM_H
#define PROTOCOLCOMM_H

#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"
#include "TunerHandle.h"

#include <atomic>
#include <mutex>
#include <pthread.h>
#include <sys/un.h>

class RadioModule;

// The link to the tuner service: one UNIX stream socket, command frames
// written on the GUI thread, status records read by a reader thread of its
// own and handed to the live controller (m_pTuner) or, when there is none,
// to the host radio module. Process-wide singleton.
class ProtocolComm
{
public:
    static ProtocolComm* GetInstance();
    static void DeleteInstance();
    virtual ~ProtocolComm();

    int Start();
    void Stop();
    int SendData(void* data, int len);

    void Tuner_Preset(int preset, bool longPress);
    void Tuner_Band(unsigned char band);
    void Tuner_AutoSearch();
    void Tuner_PS();
    void Tuner_SeekUp();
    void Tuner_SeekDown();
    void Tuner_StepUp();
    void Tuner_StepDown();
    void Tuner_Scan();
    void Tuner_AFOnOff(bool on);
    void Tuner_TAOnOff(bool on);
    void Tuner_DxLoc(bool loc);
    void Tuner_PTYSelected(int pty);
    void Tuner_REGOnOff(bool on);
    void Tuner_RDSOnOff(bool on);
    void Tuner_SetFreq(unsigned short freq);
    void Tuner_PTYSeek();
    void Tuner_Favor();
    void Tuner_PresetUp();
    void Tuner_PresetDown();
    void Tuner_Request_list();

    int getRun_Flag();
    // True while a connection to the service is up.
    bool isConnected() const;

    static void* _thread(void* self);
    void loop();

private:
    ProtocolComm();
    ProtocolComm(const ProtocolComm&) = delete;
    ProtocolComm& operator=(const ProtocolComm&) = delete;

    RadioCmdToMCU m_frame;
    pthread_t m_thread;
    std::atomic<int> m_runFlag;
    std::atomic<int> m_sock;
    struct sockaddr_un m_addr;
    RadioModule* m_pRadioModule;

    static ProtocolComm* m_s_ProtocolComm;
};

#endif
