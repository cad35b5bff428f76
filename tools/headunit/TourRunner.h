#ifndef TOURRUNNER_H
#define TOURRUNNER_H

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

// The scripted session of --tour: start-up, seek, preset recall and
// store, keypad entry, settings page with the AF switch, band switch,
// home screen and back. Each step touches the real widgets (found by
// object name), waits with the event loop running until the screen shows
// the tuner's answer or the step's time runs out, and saves a screenshot
// of the window as <dir>/NN-step.png.
class TourRunner
{
public:
    struct Step
    {
        QString name;
        // Does the step's touch; returns false when it could not (a widget
        // missing or hidden), with the reason in *why.
        std::function<bool(QString* why)> act;
        // What the screen shows once the step has worked.
        std::function<bool()> done;
    };

    TourRunner(QWidget* window, const QString& dir, int stepTimeoutMs = 10000);

    // Runs every step; returns the number of steps that failed.
    int run();
    QStringList savedFiles() const { return m_saved; }

private:
    QList<Step> steps();
    QWidget* find(const QString& name) const;
    QString labelText(const QString& name) const;
    // The programme service name shown, trimmed.
    QString stationName() const;
    // FreqDisp left m_freqBefore and another station's name is shown.
    bool seekArrived() const;
    // The preset button is shown as the current preset.
    bool presetLit(const QString& name) const;
    bool visible(const QString& name) const;
    std::function<bool(QString*)> click(const QString& name);
    std::function<bool(QString*)> longPress(const QString& name);

    QWidget* m_window;
    QString m_dir;
    int m_timeout;
    QStringList m_saved;
    // Values noted by one step for the check of a later one.
    QString m_freqBefore;
    QString m_nameBefore;
    QString m_storedFreq;
    bool m_afBefore = false;
};

#endif
