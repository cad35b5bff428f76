#ifndef DATASAVECONTROL_H
#define DATASAVECONTROL_H

#include <QString>
#include <QVariant>

// The head unit's persistent settings store, an INI file through QSettings.
// The file is $XDG_CONFIG_HOME/headunit/settings.ini unless setStoreFile()
// names another (tests use a temporary one).
class DataSaveControl
{
public:
    static void saveSettingData(const QString& key, const QVariant& value, const QString& group);
    // The stored value, or fallback when the key holds none.
    static QVariant readSettingData(const QString& key, const QVariant& fallback, const QString& group);

    static void setStoreFile(const QString& path);
    static QString storeFile();
};

#endif
