#ifndef FUZZAPPLICATION_H
#define FUZZAPPLICATION_H

#include <QApplication>

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

#endif
