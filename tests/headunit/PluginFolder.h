#ifndef PLUGINFOLDER_H
#define PLUGINFOLDER_H

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

// A fresh plugin folder inside root holding links to the given plugin files.
inline QString pluginFolder(const QTemporaryDir& root, const QStringList& plugins)
{
    static int count = 0;
    const QString folder = root.filePath(QStringLiteral("plugins%1").arg(++count));
    QDir().mkpath(folder);
    for (const QString& plugin : plugins)
        QFile::link(plugin, QDir(folder).filePath(QFileInfo(plugin).fileName()));
    return folder;
}

#endif
