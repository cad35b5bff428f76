#ifndef TUNERSIMPROCESS_H
#define TUNERSIMPROCESS_H

#include <QProcess>
#include <QStringList>

// radio-tunersim as a child process with --trace: its lines say what the
// tuner received ("<- RC_...") and what it reported ("-> MCU_...").
class TunerSimProcess
{
public:
    TunerSimProcess();
    ~TunerSimProcess() { stop(); }

    // Starts it and waits until it listens.
    bool start(const QStringList& args);
    void stop();
    // Waits until `nth` lines in all start with prefix.
    bool waitFor(const QString& prefix, int nth = 1, int timeoutMs = 15000);
    QString lastLine(const QString& prefix) const;
    int count(const QString& prefix) const;
    // The first group of `pattern` in the last line starting with prefix.
    QString capture(const QString& prefix, const QString& pattern) const;
    // The quoted names of the last line starting with prefix, trimmed.
    QStringList names(const QString& prefix) const;

    QStringList lines;
    QProcess process;

private:
    QByteArray m_partial;
};

#endif
