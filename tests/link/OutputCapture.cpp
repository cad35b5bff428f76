#include "OutputCapture.h"

#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

OutputCapture::OutputCapture(int fd) : m_fd(fd)
{
    char name[] = "/tmp/outputcaptureXXXXXX";
    const int file = mkstemp(name);
    if (file < 0)
        return;
    unlink(name);
    flushStream();
    m_saved = dup(fd);
    if (m_saved < 0 || dup2(file, fd) < 0) {
        close(file);
        return;
    }
    m_file = file;
}

OutputCapture::~OutputCapture()
{
    if (m_file < 0)
        return;
    flushStream();
    const QByteArray captured = bytes();
    dup2(m_saved, m_fd);
    close(m_saved);
    close(m_file);
    const char* rest = captured.constData();
    qint64 left = captured.size();
    while (left > 0) {
        const ssize_t n = write(m_fd, rest, static_cast<size_t>(left));
        if (n <= 0)
            break;
        rest += n;
        left -= n;
    }
}

void OutputCapture::flushStream() const
{
    if (m_fd == 1)
        fflush(stdout);
    else if (m_fd == 2)
        fflush(stderr);
}

QByteArray OutputCapture::bytes() const
{
    QByteArray data;
    struct stat info;
    if (m_file < 0 || fstat(m_file, &info) != 0)
        return data;
    data.resize(static_cast<int>(info.st_size));
    const ssize_t n = pread(m_file, data.data(), static_cast<size_t>(data.size()), 0);
    data.resize(n > 0 ? static_cast<int>(n) : 0);
    return data;
}

QString OutputCapture::text() const
{
    flushStream();
    return QString::fromLocal8Bit(bytes());
}

QStringList OutputCapture::lines() const
{
    QString all = text();
    all.truncate(all.lastIndexOf(QLatin1Char('\n')) + 1);
    QStringList result = all.split(QLatin1Char('\n'));
    result.removeLast();
    return result;
}

QStringList OutputCapture::linesSinceMark() const
{
    return lines().mid(m_markedLines);
}

void OutputCapture::mark()
{
    m_markedLines = lines().size();
}

int OutputCapture::count(const QString& line) const
{
    return lines().count(line);
}
