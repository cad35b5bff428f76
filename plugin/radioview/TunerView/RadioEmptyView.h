#ifndef RADIOEMPTYVIEW_H
#define RADIOEMPTYVIEW_H

#include <QWidget>

// Fully transparent placeholder covering the screen.
class RadioEmptyView : public QWidget
{
    Q_OBJECT
public:
    explicit RadioEmptyView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* e) override;
};

#endif
