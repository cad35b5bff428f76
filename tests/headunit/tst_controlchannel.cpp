#include "ControlChannel.h"

#include "ControlCommands.h"
#include "HostInputs.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstdio>
#include <unistd.h>

// Feeds the channel through a pipe and reads its answers back from a
// temporary file.
class TestControlChannel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void linesAreAnsweredInOrder();
    void linesMaySpanSeveralWrites();
    void blankAndCommentLinesAreSkipped();
    void overlongLineIsDroppedWithAnError();
    void endOfInputRunsTheLastLineAndCloses();

private:
    void feed(const QByteArray& bytes);
    QStringList answers();

    QWidget* m_window = nullptr;
    HostInputs* m_inputs = nullptr;
    ControlCommands* m_commands = nullptr;
    ControlChannel* m_channel = nullptr;
    int m_pipe[2] = {-1, -1};
    FILE* m_out = nullptr;
};

void TestControlChannel::init()
{
    m_window = new QWidget;
    m_window->resize(200, 100);
    m_inputs = new HostInputs;
    m_commands = new ControlCommands(
        m_window, m_inputs, [](const QString&, QString*) { return true; }, QStringLiteral("d.json"));
    QCOMPARE(::pipe(m_pipe), 0);
    m_out = std::tmpfile();
    QVERIFY(m_out);
    m_channel = new ControlChannel(m_pipe[0], m_commands, m_out);
}

void TestControlChannel::cleanup()
{
    delete m_channel;
    if (m_pipe[1] >= 0)
        ::close(m_pipe[1]);
    ::close(m_pipe[0]);
    m_pipe[0] = m_pipe[1] = -1;
    std::fclose(m_out);
    delete m_commands;
    delete m_inputs;
    delete m_window;
}

void TestControlChannel::feed(const QByteArray& bytes)
{
    QCOMPARE(::write(m_pipe[1], bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
}

QStringList TestControlChannel::answers()
{
    std::fflush(m_out);
    std::rewind(m_out);
    QStringList lines;
    char buffer[8192];
    while (std::fgets(buffer, sizeof buffer, m_out))
        lines << QString::fromUtf8(buffer).trimmed();
    std::fseek(m_out, 0, SEEK_END);
    return lines;
}

void TestControlChannel::linesAreAnsweredInOrder()
{
    feed("dump\nclick Nobody\ndump other.json\n");
    QTRY_COMPARE(answers().size(), 3);
    QCOMPARE(answers(), (QStringList{"control: ok dump d.json", "control: error click Nobody: no widget named Nobody",
                                     "control: ok dump other.json"}));
}

void TestControlChannel::linesMaySpanSeveralWrites()
{
    feed("du");
    // The bytes are in the pipe already: one pass of the event loop reads
    // them, and a half line must not run.
    QCoreApplication::processEvents();
    QCOMPARE(answers().size(), 0);
    feed("mp\n");
    QTRY_COMPARE(answers(), QStringList{QStringLiteral("control: ok dump d.json")});
}

void TestControlChannel::blankAndCommentLinesAreSkipped()
{
    feed("\n   \n# a comment\ndump\n");
    QTRY_COMPARE(answers(), QStringList{QStringLiteral("control: ok dump d.json")});
}

void TestControlChannel::overlongLineIsDroppedWithAnError()
{
    feed(QByteArray(ControlChannel::MaxLine + 100, 'x') + "\ndump\n");
    QTRY_COMPARE(answers().size(), 2);
    QVERIFY2(answers().first().startsWith(QLatin1String("control: error (line): longer than")),
             qPrintable(answers().first()));
    QCOMPARE(answers().last(), QStringLiteral("control: ok dump d.json"));
}

void TestControlChannel::endOfInputRunsTheLastLineAndCloses()
{
    QSignalSpy closed(m_channel, &ControlChannel::closed);
    feed("dump\ndump last.json");
    ::close(m_pipe[1]);
    m_pipe[1] = -1;
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(m_channel->atEnd());
    QCOMPARE(answers(), (QStringList{"control: ok dump d.json", "control: ok dump last.json"}));
}

QTEST_MAIN(TestControlChannel)
#include "tst_controlchannel.moc"
