#ifndef HEADUNITWINDOW_H
#define HEADUNITWINDOW_H

#include <QWidget>

// The head unit's screen: a top-level window whose client area holds, at
// (0,0), the 1280 x 720 system view that activities are parented to (UI
// layer 1). No layout, margins or menu bar: a point of the screen layout
// is the same point of the window's client area.
class HeadUnitWindow : public QWidget
{
    Q_OBJECT
public:
    explicit HeadUnitWindow(QWidget* parent = nullptr);

    QWidget* systemView() const { return m_systemView; }
    // Lets the window grow beyond the system view (full screen); the view
    // stays at the top-left corner with its own size.
    void releaseFixedSize();

private:
    QWidget* m_systemView;
};

#endif
