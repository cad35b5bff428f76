#include "HvRollingText.h"
#include "WidgetRender.h"

#include <QtTest>

namespace {

const QString LongText = QStringLiteral("Radio text: the morning show with traffic, weather and the news every hour");
const QString ShortText = QStringLiteral("FM 98.1");

} // namespace

class TestHvRollingText : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rollsOnlyWhenTooWide_data();
    void rollsOnlyWhenTooWide();
    void newShortTextStopsAndResets();
    void biggerFontStartsRolling();
    void hiddenTextDoesNotRun();
    void offsetLoops();
    void badInputKeepsState();
    void render();

private:
    QWidget* m_host = nullptr;
    HvRollingText* m_text = nullptr;
};

void TestHvRollingText::init()
{
    m_host = new QWidget;
    m_host->resize(760, 200);
    m_text = new HvRollingText(m_host);
    m_text->setGeometry(10, 10, 300, 60);
    m_text->setFontSize(20);
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host));
}

void TestHvRollingText::cleanup()
{
    delete m_host;
    m_host = nullptr;
    m_text = nullptr;
}

void TestHvRollingText::rollsOnlyWhenTooWide_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("rolling");
    QTest::newRow("long") << LongText << true;
    QTest::newRow("short") << ShortText << false;
    QTest::newRow("empty") << QString() << false;
}

void TestHvRollingText::rollsOnlyWhenTooWide()
{
    QFETCH(QString, text);
    QFETCH(bool, rolling);
    m_text->setText(text);
    QCOMPARE(m_text->isRolling(), rolling);
    QCOMPARE(m_text->isTimerRunning(), rolling);
    if (rolling)
        QTRY_VERIFY(m_text->scrollOffset() > 20);
}

void TestHvRollingText::newShortTextStopsAndResets()
{
    m_text->setText(LongText);
    QTRY_VERIFY(m_text->scrollOffset() > 10);
    m_text->setText(ShortText);
    QVERIFY(!m_text->isRolling());
    QVERIFY(!m_text->isTimerRunning());
    QCOMPARE(m_text->scrollOffset(), 0);

    // A new long text starts from the beginning.
    m_text->setText(LongText + QStringLiteral(" again"));
    QVERIFY(m_text->isRolling());
    QVERIFY(m_text->scrollOffset() < 10);
}

void TestHvRollingText::biggerFontStartsRolling()
{
    m_text->setText(QStringLiteral("Classic Rock FM"));
    m_text->setFontSize(12);
    QVERIFY(!m_text->isRolling());
    m_text->setFontSize(40);
    QVERIFY(m_text->isRolling());
    QVERIFY(m_text->isTimerRunning());

    // Widening the widget makes it fit again.
    m_text->resize(740, 60);
    QVERIFY(!m_text->isRolling());
    QVERIFY(!m_text->isTimerRunning());
}

void TestHvRollingText::hiddenTextDoesNotRun()
{
    auto* hidden = new HvRollingText(m_host);
    hidden->setGeometry(10, 100, 300, 60);
    hidden->setFontSize(20);
    hidden->setText(LongText);
    hidden->hide();
    m_text->setText(LongText);
    QVERIFY(hidden->isRolling());
    QVERIFY(!hidden->isTimerRunning());
    QTRY_VERIFY(m_text->scrollOffset() > 40);
    QCOMPARE(hidden->scrollOffset(), 0);

    hidden->show();
    QVERIFY(hidden->isTimerRunning());
    QTRY_VERIFY(hidden->scrollOffset() > 0);
    m_text->hide();
    QVERIFY(!m_text->isTimerRunning());
}

void TestHvRollingText::offsetLoops()
{
    // A text just over the width loops quickly at high speed: the offset
    // must come back down instead of growing without end.
    m_text->setSpeed(2000);
    m_text->setText(LongText.left(40));
    QVERIFY(m_text->isRolling());
    int highest = 0;
    bool wrapped = false;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            const int now = m_text->scrollOffset();
            if (now < highest - 50)
                wrapped = true;
            highest = qMax(highest, now);
            return wrapped;
        }(),
        10000);
    QVERIFY(highest < 2 * 760);
}

void TestHvRollingText::badInputKeepsState()
{
    m_text->setSpeed(80);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("scroll speed must be positive"));
    m_text->setSpeed(0);
    QCOMPARE(m_text->speed(), 80);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative font size"));
    m_text->setFontSize(-1);
    QCOMPARE(m_text->fontSize(), 20);
}

void TestHvRollingText::render()
{
    QWidget stage;
    stage.resize(731, 170);
    auto* ps = new HvRollingText(&stage);
    ps->setGeometry(10, 5, 711, 71);
    ps->setFontSize(48);
    ps->setText(QStringLiteral("RADIO 1"));
    auto* rt = new HvRollingText(&stage);
    rt->setGeometry(10, 76, 711, 51);
    rt->setFontSize(28);
    rt->setTextColor(QColor(0, 240, 251));
    rt->setText(LongText);
    auto* pty = new HvRollingText(&stage);
    pty->setGeometry(10, 127, 711, 40);
    pty->setFontSize(20);
    pty->setTextColor(QColor(190, 198, 210));
    pty->setText(QStringLiteral("Pop Music"));
    stage.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage));
    QTRY_VERIFY(rt->scrollOffset() > 30);
    QVERIFY(saveRender(&stage, QStringLiteral("hvrollingtext")));
}

QTEST_MAIN(TestHvRollingText)
#include "tst_hvrollingtext.moc"
