#ifndef SIMOPTIONS_H
#define SIMOPTIONS_H

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdint>

// The command line of radio-tunersim.
class SimOptions
{
public:
    // False with errorText() set for a bad option or value; true with
    // helpRequested() for --help.
    bool parse(const QStringList& arguments);

    QString errorText() const { return m_error; }
    bool helpRequested() const { return m_help; }
    static QString helpText();

    QString name = QStringLiteral("kestrelhub");
    int region = 12;
    quint32 seed = 1;
    QString lineupFile;
    // Frequency as given ("96.7", "9670") and log file, in option order.
    QVector<QPair<QString, QString>> rdsLogs;
    double rdsSpeed = 1.0;
    double timeScale = 1.0;
    // A capture of the link to play instead of running the tuner.
    QString replayFile;
    double replaySpeed = 1.0;
    bool trace = false;

private:
    QString m_error;
    bool m_help = false;
};

#endif
