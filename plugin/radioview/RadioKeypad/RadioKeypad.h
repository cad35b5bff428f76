#ifndef RADIOKEYPAD_H
#define RADIOKEYPAD_H

#include <QString>
#include <QWidget>

#include <array>

class HvIconButton;
class Ui_RadioKeypad;

// Direct frequency entry over the radio screen. After every accepted digit
// only the digit keys that can still lead to a frequency on the channel grid
// of the current band and region stay enabled; FM entries get their decimal
// point inserted automatically. OK emits the frequency (FM in 10 kHz units,
// AM in kHz) and closes the pad. The pad closes by itself 15 s after it was
// shown; a press on its background stops that timer and the release starts
// it again.
class RadioKeypad : public QWidget
{
    Q_OBJECT

public:
    explicit RadioKeypad(QWidget* parent = nullptr);
    ~RadioKeypad() override;

    // key is one digit "0"-"9", or empty to evaluate the current entry again
    // (which also sets the first-digit mask when nothing is typed). Any other
    // string is refused with a log line. Only the band limits are checked
    // here; the channel grid is kept by the digit key mask.
    void HandleKeypadInput(QString key);
    void enterPressed();
    void DisableSomeKeypadNums(int value, int nextMax, int nextMin);
    // Bit k set disables digit key k; bits above 9 are ignored.
    void DisableSpecificNums(int mask);
    void EnableAllKeypadNums();
    // The pad shows no preset list; kept for the controller's preset keys.
    void ChangePresetList(unsigned char);

signals:
    void FreqInputOK(unsigned short usFreq);

public slots:
    void RadioCloseKeypad();
    void RadioKeypadPressed(QString id);
    void clearAllFreq(QString id);
    void sltRadioBandChanged(unsigned char ucBand);
    void sltRadioRegionChanged(unsigned char ucBand, int region);

protected:
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void customEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Keypad_0 ... Keypad_9, indexed by digit.
    std::array<HvIconButton*, 10> digitKeys() const;
    void handleFmInput(const QString& key);
    void handleAmInput(const QString& key);
    void acceptKey(const QString& key, bool insertPoint, int value);
    void confirmEntry();
    void removeLastDigit();
    void loadWallPaper();
    void startAutoHideTimer();
    void killAutoHideTimer();

    Ui_RadioKeypad* ui;
    QString m_strFreqDigits;
    QString m_strFreqDisp;
    bool m_bFM = true;
    int m_nBandMax = 0;
    int m_nBandMin = 0;
    int m_nNextMax = 0;
    int m_nNextMin = 0;
    int m_nRegion;
    int m_nAutoHideTimerId = 0;
};

#endif
