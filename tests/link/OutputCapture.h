#ifndef OUTPUTCAPTURE_H
#define OUTPUTCAPTURE_H

#include <QStringList>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

// Sends a descriptor (1 stdout, 2 stderr) to a file while the object
// lives, so a test can read the lines printed with puts/printf; all of it
// is passed on to the real descriptor at the end.
class OutputCapture
{
public:
    explicit OutputCapture(int fd = 1) : m_fd(fd)
    {
        m_file.open();
        flush();
        m_saved = dup(fd);
        dup2(m_file.handle(), fd);
    }
    ~OutputCapture()
    {
        const QByteArray all = bytes();
        dup2(m_saved, m_fd);
        close(m_saved);
        (void)!::write(m_fd, all.constData(), size_t(all.size()));
    }

    // Complete lines printed so far.
    QStringList lines() const
    {
        QStringList result = QString::fromLocal8Bit(bytes()).split(QLatin1Char('\n'));
        result.removeLast();
        return result;
    }

private:
    void flush() const { fflush(m_fd == 1 ? stdout : stderr); }
    QByteArray bytes() const
    {
        flush();
        QFile file(m_file.fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    int m_fd;
    QTemporaryFile m_file;
    int m_saved = -1;
};

#endif
