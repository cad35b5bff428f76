#ifndef FUZZAPPLICATION_H
#define FUZZAPPLICATION_H

#include <QApplication>

#include <fcntl.h>
#include <unistd.h>

// The one application object of a fuzz target, made on the first input and
// kept for the process's life, on the offscreen platform unless one is set.
// The product's log lines would cost more than the inputs: Qt's messages
// are dropped and standard output goes to /dev/null (verdicts go to
// standard error).
inline QApplication* fuzzApplication()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QApplication* app = [] {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(null, STDOUT_FILENO);
        close(null);
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QApplication(argc, argv);
    }();
    return app;
}

#endif
