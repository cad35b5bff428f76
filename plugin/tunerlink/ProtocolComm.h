#ifndef PROTOCOLCOMM_H
#define PROTOCOLCOMM_H

#include "LinkCapture.h"
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
//
// Once started, the reader keeps the link up by itself: when the service
// closes the connection or cannot be reached, it reconnects with a growing
// delay (100 ms doubling to 5 s, +-20 %) and asks for the lists again.
// Start, Stop and DeleteInstance belong to the GUI thread.
class ProtocolComm
{
public:
    static ProtocolComm* GetInstance();
    // Stops and joins the reader before deleting the instance.
    static void DeleteInstance();
    virtual ~ProtocolComm();

    // Connects and starts the reader, which keeps trying when the service
    // is not there yet. Does nothing while a reader runs. 0 when connected.
    int Start();
    // Wakes the reader, joins it and closes the socket; Start() may follow.
    void Stop();
    // 0 once all bytes are written (also for len <= 0), else the failing
    // send result. Never blocks (a full socket fails at once) and never
    // raises SIGPIPE.
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

    // Records every record read and frame written into a pcapng file
    // (LinkCapture), replacing a capture in progress; RADIO_CAPTURE_MAX_MB
    // caps the file. Start() begins one by itself when RADIO_CAPTURE names
    // a file. False, logged, when the file cannot be opened.
    bool startCapture(const char* path);
    void stopCapture();
    const LinkCapture& capture() const { return m_capture; }

    int getRun_Flag();
    // True while a connection to the service is up.
    bool isConnected() const;

    static void* _thread(void* self);
    void loop();

private:
    ProtocolComm();
    ProtocolComm(const ProtocolComm&) = delete;
    ProtocolComm& operator=(const ProtocolComm&) = delete;

    int openSocket();
    bool connectPeer(int fd);
    void dropSocket();
    bool reconnect(unsigned& delayMs, unsigned& jitterState);
    bool waitBeforeRetry(int ms);
    void handOver(const tag_RadioCmdFromMCU& record);
    int sendFrame(uint32_t code, uint32_t param);
    int sendMemberFrame(uint32_t code, uint32_t param);
    int writeAll(const void* data, int len);
    void halt();

    RadioCmdToMCU m_frame;
    pthread_t m_thread;
    std::atomic<int> m_runFlag;
    std::atomic<int> m_sock;
    struct sockaddr_un m_addr;
    RadioModule* m_pRadioModule;

    // Serialises frame writes (GUI thread, and the reader's list request
    // after a reconnect) and every change of m_sock.
    std::mutex m_sendLock;
    // Self-pipe that cuts the reader's wait between reconnect attempts short.
    int m_wake[2];
    std::atomic<bool> m_connected;
    // Whether m_thread has to be joined; touched by Start/Stop only.
    bool m_readerStarted;
    // Record lines are flushed one by one only for a terminal.
    const bool m_logToTerminal;

    LinkCapture m_capture;

    static ProtocolComm* m_s_ProtocolComm;
};

// The capture operations as plain C entry points, so that a host which
// loaded the plugin can reach them by name (dlsym, QLibrary::resolve)
// without knowing its classes. 0 on success, -1 when the file cannot be
// opened; both work on the process's one link.
extern "C" {
__attribute__((visibility("default"))) int radio_link_capture_start(const char* path);
__attribute__((visibility("default"))) void radio_link_capture_stop(void);
}

#endif
