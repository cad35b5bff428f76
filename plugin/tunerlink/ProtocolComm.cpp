#include "ProtocolComm.h"

#include "LinkLog.h"

#include "ModuleManager.h"
#include "RadioModule.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

ProtocolComm* ProtocolComm::m_s_ProtocolComm = nullptr;

namespace {

const char kOwnPath[] = "/tmp/_tnlk";
// Abstract address: the '@' is replaced by NUL before connecting.
const char kPeerName[] = "@kestrelhub";
const socklen_t kPeerLen = 13;

// Reconnect backoff: the first retry comes quickly, a service that stays
// away is asked at most every few seconds.
const unsigned kFirstRetryMs = 100;
const unsigned kMaxRetryMs = 5000;

const char kCaptureVar[] = "RADIO_CAPTURE";
const char kCaptureMaxVar[] = "RADIO_CAPTURE_MAX_MB";

// RADIO_CAPTURE_MAX_MB in bytes; 0 (no cap) when unset, and when not a
// positive number, which is logged.
uint64_t captureCap()
{
    const char* text = std::getenv(kCaptureMaxVar);
    if (!text || !*text)
        return 0;
    char* end = nullptr;
    const double mb = std::strtod(text, &end);
    if (*end != '\0' || !(mb > 0) || mb > 1e6) {
        linkLog("Radio capture: %s=\"%s\" is not a size in MB, no cap\n", kCaptureMaxVar, text);
        return 0;
    }
    return static_cast<uint64_t>(mb * 1024 * 1024);
}

// xorshift32: jitter only needs to keep several links from retrying in step.
unsigned nextJitter(unsigned& state)
{
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}

} // namespace

ProtocolComm* ProtocolComm::GetInstance()
{
    if (!m_s_ProtocolComm)
        m_s_ProtocolComm = new ProtocolComm;
    return m_s_ProtocolComm;
}

void ProtocolComm::DeleteInstance()
{
    delete m_s_ProtocolComm;
    m_s_ProtocolComm = nullptr;
}

ProtocolComm::ProtocolComm()
    : m_frame{0, 0},
      m_thread{},
      m_runFlag(1),
      m_sock(-1),
      m_addr{},
      m_pRadioModule(nullptr),
      m_wake{-1, -1},
      m_connected(false),
      m_readerStarted(false),
      m_logToTerminal(isatty(STDOUT_FILENO) != 0)
{
    m_addr.sun_family = AF_UNIX;
    std::strncpy(m_addr.sun_path, kOwnPath, sizeof m_addr.sun_path - 1);

    if (pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        linkLog("Radio link wake pipe failed with error: %d\n", errno);
        m_wake[0] = m_wake[1] = -1;
    }

    QSharedPointer<hvappframework::ModuleManager> manager = hvappframework::ModuleManager::self();
    if (manager) {
        QSharedPointer<hvappframework::Module> module = manager->getModule(QStringLiteral("radio"));
        if (module)
            m_pRadioModule = qobject_cast<RadioModule*>(module->getModuleImpl());
    }
}

// Stops and joins the reader before the object goes away, so no thread is
// left running on freed memory whichever way the instance is deleted.
ProtocolComm::~ProtocolComm()
{
    halt();
    stopCapture();
    if (m_wake[0] >= 0)
        close(m_wake[0]);
    if (m_wake[1] >= 0)
        close(m_wake[1]);
}

// A second Start() while the reader runs does nothing: that reader already
// owns the one socket and restores the connection by itself.
int ProtocolComm::Start()
{
    if (m_readerStarted)
        return 0;

    m_runFlag = 1;
    // The capture is set up before the first record can arrive.
    const char* capture = std::getenv(kCaptureVar);
    if (capture && *capture && !m_capture.isRunning())
        startCapture(capture);

    // A wake-up left over from the last Stop() would cut the reader's first
    // wait short.
    char stale[16];
    while (m_wake[0] >= 0 && read(m_wake[0], stale, sizeof stale) > 0) {
    }

    // A socket left over from a Start() whose reader could not be created.
    dropSocket();
    linkLog("Radio socket struct size: %d\n", static_cast<int>(sizeof m_addr));
    const int fd = openSocket();
    const bool connected = fd >= 0 && connectPeer(fd);
    {
        std::lock_guard<std::mutex> guard(m_sendLock);
        m_sock = fd;
    }
    m_connected = connected;
    if (!connected)
        linkLog("=====>>>Radio ProtocolComm Start Error!\n");

    const int err = pthread_create(&m_thread, nullptr, &ProtocolComm::_thread, this);
    if (err != 0) {
        linkLog("Radio reader thread not started, error: %d\n", err);
        return -1;
    }
    m_readerStarted = true;
    return connected ? 0 : -1;
}

void ProtocolComm::Stop()
{
    linkLog("Radio ProtocolComm Stop\n");
    halt();
}

void ProtocolComm::halt()
{
    m_runFlag = 0;
    {
        // Wakes a reader blocked in read(); the descriptor stays valid
        // until the reader has been joined.
        std::lock_guard<std::mutex> guard(m_sendLock);
        const int fd = m_sock;
        if (fd >= 0)
            shutdown(fd, SHUT_RDWR);
    }
    // A reader waiting for the GUI thread to catch up leaves at once.
    m_pTuner.wakeWaiting();
    if (m_wake[1] >= 0) {
        const char wake = 1;
        if (write(m_wake[1], &wake, 1) < 0 && errno != EAGAIN)
            linkLog("Radio link wake failed with error: %d\n", errno);
    }
    if (m_readerStarted) {
        pthread_join(m_thread, nullptr);
        m_readerStarted = false;
    }
    dropSocket();
}

int ProtocolComm::openSocket()
{
    unlink(kOwnPath);
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return fd;
    bind(fd, reinterpret_cast<const sockaddr*>(&m_addr), sizeof m_addr);
    return fd;
}

// Connects without blocking: a service whose accept queue is full makes
// connect() fail with EAGAIN instead of holding the caller.
bool ProtocolComm::connectPeer(int fd)
{
    sockaddr_un peer{};
    peer.sun_family = AF_UNIX;
    std::memcpy(peer.sun_path, kPeerName, sizeof kPeerName - 1);
    peer.sun_path[0] = '\0';

    const int flags = fcntl(fd, F_GETFL);
    fcntl(fd, F_SETFL, flags | O_NONBLOCK);
    const int result = connect(fd, reinterpret_cast<const sockaddr*>(&peer), kPeerLen);
    fcntl(fd, F_SETFL, flags);
    return result >= 0;
}

void ProtocolComm::dropSocket()
{
    std::lock_guard<std::mutex> guard(m_sendLock);
    const int fd = m_sock.exchange(-1);
    if (fd >= 0)
        close(fd);
    m_connected = false;
}

// Reader thread: waits (interruptibly) and retries until a new connection
// is up, then asks the service for the full state again. Returns false
// when the link is being stopped.
bool ProtocolComm::reconnect(unsigned& delayMs, unsigned& jitterState)
{
    while (m_runFlag) {
        // +-20 % around the current delay.
        const unsigned spread = delayMs * 2 / 5 + 1;
        const int waitMs = static_cast<int>(delayMs - delayMs / 5 + nextJitter(jitterState) % spread);
        if (!waitBeforeRetry(waitMs))
            return false;
        delayMs = std::min(delayMs * 2, kMaxRetryMs);

        const int fd = openSocket();
        if (fd < 0)
            continue;
        if (!connectPeer(fd)) {
            close(fd);
            continue;
        }
        {
            std::lock_guard<std::mutex> guard(m_sendLock);
            if (!m_runFlag) {
                close(fd);
                return false;
            }
            m_sock = fd;
            m_connected = true;
        }
        linkLog("Radio link connected\n");
        m_capture.markReconnect();
        Tuner_Request_list();
        return true;
    }
    return false;
}

bool ProtocolComm::waitBeforeRetry(int ms)
{
    pollfd wake{m_wake[0], POLLIN, 0};
    if (poll(&wake, 1, ms) > 0) {
        // Drained so that a leftover byte can never turn the wait into a spin.
        char bytes[16];
        while (read(m_wake[0], bytes, sizeof bytes) > 0) {
        }
    }
    return m_runFlag != 0;
}

void* ProtocolComm::_thread(void* self)
{
    static_cast<ProtocolComm*>(self)->loop();
    return nullptr;
}

void ProtocolComm::loop()
{
    // One record is collected here across as many reads as it takes; each
    // read asks for no more than the rest of the current record, so several
    // records arriving together are handed over one by one.
    tag_RadioCmdFromMCU record;
    unsigned char* const bytes = reinterpret_cast<unsigned char*>(&record);
    size_t have = 0;
    unsigned delayMs = kFirstRetryMs;
    unsigned jitterState = static_cast<unsigned>(time(nullptr)) ^ static_cast<unsigned>(reinterpret_cast<uintptr_t>(&record)) ^ 0x9e3779b9u;
    if (jitterState == 0)
        jitterState = 1;

    while (m_runFlag) {
        if (!m_connected) {
            // A partial record from the lost connection is never completed
            // with bytes of the next one.
            dropSocket();
            have = 0;
            if (!reconnect(delayMs, jitterState))
                break;
            continue;
        }

        ssize_t n = recv(m_sock, bytes + have, sizeof record - have, MSG_DONTWAIT);
        if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            // Nothing more for now: the lines of the records read so far
            // go out before the reader blocks.
            fflush(stdout);
            n = read(m_sock, bytes + have, sizeof record - have);
        }
        if (n > 0) {
            have += static_cast<size_t>(n);
            if (have == sizeof record) {
                have = 0;
                // A connection that carries records is healthy again.
                delayMs = kFirstRetryMs;
                handOver(record);
            }
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            linkLog("-radio socket read failed with error: %d\n", errno);
        if (!m_runFlag)
            break;
        m_connected = false;
        linkLog("Radio link lost, reconnecting\n");
    }
}

void ProtocolComm::handOver(const tag_RadioCmdFromMCU& record)
{
    m_capture.add(PcapngWriter::FromService, &record, sizeof record);

    // The kind ends the line so that the log stays one line per record.
    // A terminal sees every line at once; a file or pipe gets them in
    // blocks, flushed whenever the reader runs out of input.
    flockfile(stdout);
    printf("New msg:");
    printf("0x%x \n", record.cmd);
    if (m_logToTerminal)
        fflush(stdout);
    funlockfile(stdout);

    // Never more than a few records wait for the GUI thread: while they
    // do, the reader stops reading and the socket slows the service down.
    if (!m_pTuner.waitForRoom(m_runFlag))
        return;
    if (!m_pTuner.deliver(record) && m_pRadioModule)
        m_pRadioModule->HandledTunerMsg(record);
}

int ProtocolComm::writeAll(const void* data, int len)
{
    const char* rest = static_cast<const char*>(data);
    const int total = len;
    while (len > 0) {
        // A service that stops reading must not hold the GUI thread: what
        // cannot be queued at once fails at once, like any failed send.
        const ssize_t n = send(m_sock, rest, static_cast<size_t>(len), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return static_cast<int>(n);
        rest += n;
        len -= static_cast<int>(n);
    }
    if (total > 0)
        m_capture.add(PcapngWriter::ToService, data, static_cast<size_t>(total));
    return 0;
}

int ProtocolComm::SendData(void* data, int len)
{
    std::lock_guard<std::mutex> guard(m_sendLock);
    return writeAll(data, len);
}

int ProtocolComm::sendFrame(uint32_t code, uint32_t param)
{
    RadioCmdToMCU frame{code, param};
    return SendData(&frame, sizeof frame);
}

int ProtocolComm::sendMemberFrame(uint32_t code, uint32_t param)
{
    std::lock_guard<std::mutex> guard(m_sendLock);
    m_frame.code = code;
    m_frame.param = param;
    return writeAll(&m_frame, sizeof m_frame);
}

void ProtocolComm::Tuner_Preset(int preset, bool longPress)
{
    sendFrame(longPress ? RC_PRESET_LONG : RC_PRESET, static_cast<uint32_t>(preset));
}

void ProtocolComm::Tuner_Band(unsigned char band)
{
    sendFrame(RC_BAND, band);
}

void ProtocolComm::Tuner_AutoSearch()
{
    if (sendFrame(RC_AUTO_SEARCH, 0) != 0)
        linkLog("Radio send data fail.\n");
}

void ProtocolComm::Tuner_PS()
{
    if (sendFrame(RC_PS, 0) != 0)
        linkLog("Radio send data fail.\n");
}

void ProtocolComm::Tuner_SeekUp()
{
    linkLog("RC_SEEK_UP\n");
    if (sendFrame(RC_SEEK_UP, 0) != 0)
        linkLog("Radio send data fail.\n");
    else
        linkLog("RC_SEEK_UP success\n");
}

void ProtocolComm::Tuner_SeekDown()
{
    if (sendFrame(RC_SEEK_DOWN, 0) != 0)
        linkLog("Radio send data fail.\n");
}

void ProtocolComm::Tuner_StepUp()
{
    sendFrame(RC_STEP_UP, 0);
}

void ProtocolComm::Tuner_StepDown()
{
    sendFrame(RC_STEP_DOWN, 0);
}

void ProtocolComm::Tuner_Scan()
{
    if (sendFrame(RC_SCAN, 0) != 0)
        linkLog("Radio send data fail.\n");
}

void ProtocolComm::Tuner_AFOnOff(bool on)
{
    sendFrame(RC_AF, on ? 1 : 0);
}

void ProtocolComm::Tuner_TAOnOff(bool on)
{
    sendFrame(RC_TA, on ? 1 : 0);
}

void ProtocolComm::Tuner_DxLoc(bool loc)
{
    sendFrame(RC_DX_LOC, loc ? 1 : 0);
}

void ProtocolComm::Tuner_PTYSelected(int pty)
{
    sendFrame(RC_PTY_SELECTED, static_cast<uint32_t>(pty));
}

void ProtocolComm::Tuner_REGOnOff(bool on)
{
    sendFrame(RC_REG, on ? 1 : 0);
}

void ProtocolComm::Tuner_RDSOnOff(bool on)
{
    sendFrame(RC_RDS, on ? 1 : 0);
}

void ProtocolComm::Tuner_SetFreq(unsigned short freq)
{
    sendMemberFrame(RC_SET_FREQ, freq);
}

void ProtocolComm::Tuner_PTYSeek()
{
    sendFrame(RC_PTY_SEEK, 0);
}

void ProtocolComm::Tuner_Favor()
{
    sendMemberFrame(RC_FAVOR, 0);
}

void ProtocolComm::Tuner_PresetUp()
{
    sendFrame(RC_PRESET_UP, 0);
}

void ProtocolComm::Tuner_PresetDown()
{
    sendFrame(RC_PRESET_DOWN, 0);
}

void ProtocolComm::Tuner_Request_list()
{
    sendFrame(RC_REQUEST_LIST, 0);
}

int ProtocolComm::getRun_Flag()
{
    return m_runFlag;
}

bool ProtocolComm::isConnected() const
{
    return m_connected;
}

bool ProtocolComm::startCapture(const char* path)
{
    stopCapture();
    const uint64_t cap = captureCap();
    std::string error;
    if (!m_capture.start(path, cap, &error)) {
        linkLog("Radio capture to %s failed: %s\n", path, error.c_str());
        return false;
    }
    if (cap > 0)
        linkLog("Radio capture to %s, rotating at %llu bytes over %d files\n", path,
                static_cast<unsigned long long>(cap), LinkCapture::RingFiles);
    else
        linkLog("Radio capture to %s\n", path);
    // The link lives until the process ends; the capture's last second and
    // its statistics must not be lost with it.
    static std::once_flag s_atExit;
    std::call_once(s_atExit, [] {
        std::atexit([] {
            if (m_s_ProtocolComm)
                m_s_ProtocolComm->stopCapture();
        });
    });
    return true;
}

void ProtocolComm::stopCapture()
{
    if (!m_capture.isRunning())
        return;
    m_capture.stop();
    linkLog("Radio capture to %s stopped: %llu packets, %llu dropped\n", m_capture.path().c_str(),
            static_cast<unsigned long long>(m_capture.written()),
            static_cast<unsigned long long>(m_capture.dropped()));
}

int radio_link_capture_start(const char* path)
{
    return path && *path && ProtocolComm::GetInstance()->startCapture(path) ? 0 : -1;
}

void radio_link_capture_stop(void)
{
    ProtocolComm::GetInstance()->stopCapture();
}
