#include "PtyNames.h"

#include <QtGlobal>

// Marked for the catalogues: the display translates them in the "QObject"
// context.
const QString PTY_NAMES[32] = {
    QString(),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "News")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Affairs")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Info")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Sports")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Educate")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Drama")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Culture")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Science")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Varied")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Pop M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Rock M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Easy M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Light M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Classics")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Other M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Weather")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Finance")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Children")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Social")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Religion")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Phone In")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Travel")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Leisure")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Jazz")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Country")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Nation M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Oldies")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Folk M")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Document")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Test")),
    QStringLiteral(QT_TRANSLATE_NOOP("QObject", "Alarm")),
};
