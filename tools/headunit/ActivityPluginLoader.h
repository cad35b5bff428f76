#ifndef ACTIVITYPLUGINLOADER_H
#define ACTIVITYPLUGINLOADER_H

#include <QFunctionPointer>
#include <QList>
#include <QString>
#include <QStringList>

class QPluginLoader;

// Loads the activity plugins of one folder and registers each accepted
// activity with the activity manager under its property's name. A plugin
// is accepted only when its metadata names the activity interface id and
// its root object implements hvappframework::Activity; every rejection is
// logged (and kept in messages()) with the reason. Accepted plugins stay
// loaded for the life of the process.
class ActivityPluginLoader
{
public:
    ActivityPluginLoader() = default;
    ActivityPluginLoader(const ActivityPluginLoader&) = delete;
    ActivityPluginLoader& operator=(const ActivityPluginLoader&) = delete;
    ~ActivityPluginLoader();

    // Returns the names of the activities registered from the folder.
    QStringList loadFolder(const QString& dir);
    // Loads one file; returns the activity name, or an empty string.
    QString loadFile(const QString& path);

    QStringList messages() const { return m_messages; }
    // A function the loaded plugins export under this C name, or null.
    QFunctionPointer resolve(const char* symbol) const;

private:
    void reject(const QString& message);

    QList<QPluginLoader*> m_loaders;
    QStringList m_messages;
};

#endif
