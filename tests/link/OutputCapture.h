#ifndef OUTPUTCAPTURE_H
#define OUTPUTCAPTURE_H

#include <QFile>
#include <QStringList>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// Sends a descriptor (1 stdout, 2 stderr) to a temporary file while the
// object lives, so a test can read the lines printed with puts/printf.
// Everything captured is written through to the real descriptor at the end.
class OutputCapture
{
public:
    explicit OutputCapture(int fd = 1) : m_fd(fd)
    {
        if (!m_file.open())
            return;
        flush();
        m_saved = dup(fd);
        dup2(m_file.handle(), fd);
    }
    ~OutputCapture()
    {
        flush();
        const QByteArray all = bytes();
        dup2(m_saved, m_fd);
        close(m_saved);
        (void)!::write(m_fd, all.constData(), size_t(all.size()));
    }
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    // Complete lines printed so far.
    QStringList lines() const
    {
        flush();
        QString all = QString::fromLocal8Bit(bytes());
        all.truncate(all.lastIndexOf(QLatin1Char('\n')) + 1);
        QStringList result = all.split(QLatin1Char('\n'));
        result.removeLast();
        return result;
    }

private:
    void flush() const { fflush(m_fd == 1 ? stdout : stderr); }
    QByteArray bytes() const
    {
        QFile reader(m_file.fileName());
        return reader.open(QIODevice::ReadOnly) ? reader.readAll() : QByteArray();
    }

    int m_fd;
    int m_saved = -1;
    QTemporaryFile m_file;
};

#endif
