#include "ActivityPluginLoader.h"

#include "Activity.h"
#include "ActivityManager.h"
#include "ActivityProperty.h"

#include <QDir>
#include <QJsonObject>
#include <QLibrary>
#include <QLoggingCategory>
#include <QPluginLoader>

Q_LOGGING_CATEGORY(lcPlugins, "hu.shell.plugins")

ActivityPluginLoader::~ActivityPluginLoader()
{
    // The loaders only hold the libraries; the activities and the libraries
    // (loaded with PreventUnloadHint) stay until the process ends, because
    // the radio's tuner link runs a thread inside its library.
    qDeleteAll(m_loaders);
}

void ActivityPluginLoader::reject(const QString& message)
{
    m_messages.append(message);
    qCWarning(lcPlugins).noquote() << message;
}

QStringList ActivityPluginLoader::loadFolder(const QString& dir)
{
    const QDir folder(dir);
    if (!folder.exists()) {
        reject(QStringLiteral("plugin folder %1 does not exist").arg(QDir::toNativeSeparators(dir)));
        return {};
    }
    QStringList names;
    const QStringList files = folder.entryList(QDir::Files | QDir::Readable, QDir::Name);
    for (const QString& file : files) {
        if (!QLibrary::isLibrary(file))
            continue;
        const QString name = loadFile(folder.filePath(file));
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

QString ActivityPluginLoader::loadFile(const QString& path)
{
    auto* loader = new QPluginLoader(path);
    loader->setLoadHints(QLibrary::PreventUnloadHint);

    const QJsonObject meta = loader->metaData();
    if (meta.isEmpty()) {
        reject(QStringLiteral("skipping %1: not a Qt plugin (%2)").arg(path, loader->errorString()));
        delete loader;
        return QString();
    }
    const QString iid = meta.value(QStringLiteral("IID")).toString();
    if (iid != QLatin1String(HvActivity_iid)) {
        reject(QStringLiteral("rejecting %1: interface id \"%2\", expected \"%3\"")
                   .arg(path, iid, QLatin1String(HvActivity_iid)));
        delete loader;
        return QString();
    }
    QObject* root = loader->instance();
    if (!root) {
        reject(QStringLiteral("rejecting %1: cannot load: %2").arg(path, loader->errorString()));
        delete loader;
        return QString();
    }
    auto* activity = qobject_cast<hvappframework::Activity*>(root);
    if (!activity) {
        reject(QStringLiteral("rejecting %1: root object %2 does not implement hvappframework::Activity")
                   .arg(path, QLatin1String(root->metaObject()->className())));
        delete loader;
        return QString();
    }
    const QSharedPointer<hvappframework::ActivityProperty> property = activity->getProperty();
    const QString name = property ? property->getName() : QString();
    if (name.isEmpty()) {
        reject(QStringLiteral("rejecting %1: the activity has no name").arg(path));
        delete loader;
        return QString();
    }
    const auto manager = hvappframework::ActivityManager::self();
    if (manager->activity(name)) {
        reject(QStringLiteral("rejecting %1: an activity named \"%2\" is already registered").arg(path, name));
        delete loader;
        return QString();
    }
    manager->registerActivity(name, activity);
    m_loaders.append(loader);
    qCInfo(lcPlugins).noquote() << QStringLiteral("loaded activity \"%1\" from %2").arg(name, path);
    return name;
}

QFunctionPointer ActivityPluginLoader::resolve(const char* symbol) const
{
    for (const QPluginLoader* loader : m_loaders) {
        // The plugin is loaded already: this only looks the name up in it.
        if (QFunctionPointer fn = QLibrary(loader->fileName()).resolve(symbol))
            return fn;
    }
    return nullptr;
}
