#ifndef HOSTSTATUSPANEL_H
#define HOSTSTATUSPANEL_H

#include <QList>
#include <QMap>
#include <QPair>
#include <QWidget>

class QFormLayout;
class QLabel;

// Shows what the host receives from the radio: the radio info texts and
// flag word the radio module got, the audio state (stream, mute, hard
// mute, play state) and the application data the radio writes. Refreshed
// on every change signal of the host objects; follows the display
// language.
class HostStatusPanel : public QWidget
{
    Q_OBJECT
public:
    explicit HostStatusPanel(QWidget* parent = nullptr);

    // The value label of a row ("Stream", "Flags", ...), or null.
    QLabel* valueLabel(const QString& row) const { return m_values.value(row); }

public slots:
    void refresh();
    void showInput(const QString& what);

protected:
    void changeEvent(QEvent* event) override;

private:
    void addRow(QFormLayout* form, const QString& row, const char* caption);
    void setValue(const QString& row, const QString& text);
    void retranslateUi();

    QLabel* m_title;
    QMap<QString, QLabel*> m_values;
    // Caption labels with their untranslated text.
    QList<QPair<QLabel*, const char*>> m_captions;
    // The last host input as announced; empty: none yet.
    QString m_lastInput;
};

#endif
