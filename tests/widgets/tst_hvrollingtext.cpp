#include "HvRollingText.h"
#include "ObjectTimers.h"

#include <QPainter>
#include <QtTest>

static const int FrameMs = 80;
static const char Long[] = "A radio text far too long for its box, so it scrolls all the time";

class tst_HvRollingText : public QObject
{
    Q_OBJECT

private slots:
    void frames_data();
    void frames();
};

// Steps: 'l' long text, 's' short text, 'h' hide, 'S' show, 'f' a frame.
void tst_HvRollingText::frames_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<bool>("rolling");
    QTest::addColumn<bool>("ticking");
    QTest::newRow("text that fits stands still") << "s" << false << false;
    QTest::newRow("too wide scrolls while shown") << "lf" << true << true;
    QTest::newRow("hidden, no frames") << "lh" << true << false;
    QTest::newRow("shortened, frames stop") << "lfs" << false << false;
    QTest::newRow("set while hidden, frames once shown") << "hlSf" << true << true;
}

// Between its faded edges a frame shows the text as drawn whole, moved by whole pixels.
void tst_HvRollingText::frames()
{
    QFETCH(QString, steps);
    HvRollingText text;
    text.setGeometry(0, 0, 200, 40);
    text.setSpeed(1000);
    text.show();
    for (QChar step : steps) {
        switch (step.toLatin1()) {
        case 'l': text.setText(QLatin1String(Long)); break;
        case 's': text.setText(QStringLiteral("Short")); break;
        case 'h': text.hide(); break;
        case 'S': text.show(); break;
        case 'f': QTRY_VERIFY(ObjectTimers::fire(&text, FrameMs) && text.scrollOffset() > 0); break;
        }
    }
    QTEST(text.isRolling(), "rolling");
    QTEST(ObjectTimers::isRunning(&text, FrameMs), "ticking");
    if (!text.isRolling() || !text.isVisible())
        return;
    const int offset = text.scrollOffset();
    const QImage shown = text.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage drawn(text.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(text.palette().color(QPalette::Window));
    QPainter p(&drawn);
    p.setFont(text.font()), p.setPen(text.textColor());
    p.drawText(QRectF(-offset, 0, 2000, 40), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, QLatin1String(Long));
    QCOMPARE(shown.copy(24, 0, 152, 40), drawn.copy(24, 0, 152, 40));
}

QTEST_MAIN(tst_HvRollingText)
#include "tst_hvrollingtext.moc"
