#ifndef OUTPUTCAPTURE_H
#define OUTPUTCAPTURE_H

#include <QString>
#include <QStringList>

// Redirects a descriptor (1 for stdout, 2 for stderr) into an unnamed
// temporary file for the lifetime of the object, so that tests can read
// the lines printed with puts/printf. The C stream is flushed on both
// edges. On destruction the descriptor is restored and everything captured
// is written through to it, so no output (test failures included) is lost.
class OutputCapture
{
public:
    explicit OutputCapture(int fd = 1);
    ~OutputCapture();
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    bool isActive() const { return m_file >= 0; }
    QString text() const;
    // Complete lines only: a line still being written is left out.
    QStringList lines() const;
    // Lines printed since the last mark().
    QStringList linesSinceMark() const;
    void mark();
    int count(const QString& line) const;

private:
    QByteArray bytes() const;
    void flushStream() const;

    int m_fd;
    int m_saved = -1;
    int m_file = -1;
    int m_markedLines = 0;
};

#endif
