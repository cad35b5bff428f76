#include "ControlChannel.h"

#include "ControlCommands.h"

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

ControlChannel::ControlChannel(int fd, ControlCommands* commands, FILE* out, QObject* parent)
    : QObject(parent), m_fd(fd), m_commands(commands), m_out(out),
      m_notifier(new QSocketNotifier(fd, QSocketNotifier::Read, this))
{
    m_savedFlags = ::fcntl(fd, F_GETFL);
    if (m_savedFlags >= 0)
        ::fcntl(fd, F_SETFL, m_savedFlags | O_NONBLOCK);
    connect(m_notifier, &QSocketNotifier::activated, this, &ControlChannel::readAvailable);
}

ControlChannel::~ControlChannel()
{
    // The descriptor's flags are shared with whoever else holds it (a
    // terminal's shell): leave them as they were found.
    if (m_savedFlags >= 0)
        ::fcntl(m_fd, F_SETFL, m_savedFlags);
}

void ControlChannel::answer(const QString& text)
{
    const QByteArray line = QByteArrayLiteral("control: ") + text.toUtf8() + '\n';
    std::fputs(line.constData(), m_out);
    std::fflush(m_out);
}

void ControlChannel::readAvailable()
{
    char buffer[1024];
    for (;;) {
        const ssize_t n = ::read(m_fd, buffer, sizeof buffer);
        if (n > 0) {
            for (ssize_t i = 0; i < n; ++i) {
                const char c = buffer[i];
                if (c == '\n') {
                    if (m_discarding)
                        answer(QStringLiteral("error (line): longer than %1 bytes, dropped").arg(MaxLine));
                    else if (!m_partial.trimmed().isEmpty() && !m_partial.trimmed().startsWith('#'))
                        m_queue.append(QString::fromUtf8(m_partial));
                    m_partial.clear();
                    m_discarding = false;
                } else if (!m_discarding) {
                    m_partial.append(c);
                    if (m_partial.size() > MaxLine) {
                        m_partial.clear();
                        m_discarding = true;
                    }
                }
            }
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK))
            break;
        // End of input, or an input that cannot be read any more. A last
        // line without a newline still counts.
        if (!m_discarding && !m_partial.trimmed().isEmpty())
            m_queue.append(QString::fromUtf8(m_partial));
        m_partial.clear();
        m_notifier->setEnabled(false);
        m_atEnd = true;
        break;
    }
    runQueued();
}

void ControlChannel::runQueued()
{
    // A waiting command runs the event loop, which may bring more input;
    // the outer call works the queue off.
    if (m_running)
        return;
    m_running = true;
    while (!m_queue.isEmpty()) {
        const QString line = m_queue.takeFirst();
        answer(m_commands->execute(line));
    }
    m_running = false;
    if (m_atEnd)
        emit closed();
}
