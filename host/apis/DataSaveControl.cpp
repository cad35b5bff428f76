#include "DataSaveControl.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

static QString& storePath()
{
    static QString path;
    return path;
}

static QString settingKey(const QString& key, const QString& group)
{
    return group.isEmpty() ? key : group + QLatin1Char('/') + key;
}

void DataSaveControl::setStoreFile(const QString& path)
{
    storePath() = path;
}

QString DataSaveControl::storeFile()
{
    if (storePath().isEmpty())
        return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
            + QStringLiteral("/headunit/settings.ini");
    return storePath();
}

void DataSaveControl::saveSettingData(const QString& key, const QVariant& value, const QString& group)
{
    QSettings store(storeFile(), QSettings::IniFormat);
    store.setValue(settingKey(key, group), value);
    store.sync();
}

QVariant DataSaveControl::readSettingData(const QString& key, const QVariant& fallback, const QString& group)
{
    QSettings store(storeFile(), QSettings::IniFormat);
    return store.value(settingKey(key, group), fallback);
}
