#ifndef FUZZAPPLICATION_H
#define FUZZAPPLICATION_H

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>

// A fuzz target's one application object, made on its first input, on the
// offscreen platform unless one is set. The product's log lines would cost
// more than the inputs: Qt's messages are dropped and standard output goes
// to /dev/null (verdicts go to standard error).
inline QApplication* fuzzApplication()
{
    static int argc = 1;
    static char* argv[] = {const_cast<char*>("fuzz"), nullptr};
    static QApplication* app = [] {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QApplication(argc, argv);
    }();
    return app;
}

// A press and release at pos, through the application as a pointer's would
// go (QTest's clicks count a timestamp that overflows in a long run).
inline void fuzzClick(QWidget* widget, const QPoint& pos)
{
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, pos, widget->mapTo(widget->window(), pos), widget->mapToGlobal(pos), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}

#endif
