#ifndef TUNERSIMPROCESS_H
#define TUNERSIMPROCESS_H

#include <QProcess>
#include <QRegularExpressionMatch>
#include <QString>
#include <QStringList>

// radio-tunersim as a child process with --trace: its trace lines tell
// what the tuner received ("<- RC_...") and what it reported
// ("-> MCU_..."), which the end-to-end suites hold the screen against.
class TunerSimProcess
{
public:
    TunerSimProcess();
    ~TunerSimProcess();

    // Starts the simulator (fast timers) and waits until it listens.
    bool start(const QString& program, const QStringList& extraArgs = {});
    // Terminates it and waits for the end.
    void stop();
    QString standardError();

    QStringList lines() const { return m_lines; }
    // The last trace line starting with prefix ("-> MCU_TUNE_INFO"), or "".
    QString lastLine(const QString& prefix) const;
    // The number of trace lines starting with prefix.
    int count(const QString& prefix) const;

    // From the last tune info: the frequency as the screen shows it
    // ("90.10" for FM, "999" for AM), the band name ("FM1").
    QString shownFrequency() const;
    QString bandName() const;
    // The programme service name carried by the last tune info, trimmed:
    // empty while a seek passes channels, the station's once it arrived.
    QString tunedName() const;
    // The programme service name of the last PS record, trimmed.
    QString psName() const;
    // The six preset names of the last preset-name record, trimmed.
    QStringList presetNames() const;
    // The flags of the last RDS flag record, by name ("AF", "TA", ...).
    QStringList rdsFlags() const;

private:
    void readOutput();

    QProcess m_process;
    QByteArray m_buffer;
    QStringList m_lines;
};

#endif
