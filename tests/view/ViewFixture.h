#pragma once
// What the view area shares: fresh host services for every test, the
// main view as the controller sets it up, and look-ups by object name.
#include "TunerView.h"

#include "AppData.h"
#include "AudioControl.h"
#include "BaseControl.h"
#include "DataDefault.h"
#include "DataSaveControl.h"
#include "HvIconButton.h"
#include "PlatformControl.h"

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

namespace ViewFixture {

inline QString writeImage(const QTemporaryDir& dir, const QString& name, const QColor& colour)
{
    QImage image(32, 18, QImage::Format_RGB32);
    image.fill(colour);
    const QString path = dir.filePath(name);
    return image.save(path, "PNG") ? path : QString();
}

struct Host {
    bool platform = true;
    bool audio = true;
    bool userMuted = false;
};

// Host services as the head unit provides them, with an empty settings
// store in dir.
inline void resetHost(const QTemporaryDir& dir, const Host& host = Host())
{
    AppData::destroyInstance();
    AudioControl::destroyInstance();
    PlatformControl::destroyInstance();
    BaseControl::destroyInstance();
    AppData::createInstance();
    BaseControl::createInstance();
    if (host.platform)
        PlatformControl::createInstance();
    if (host.audio)
        AudioControl::createInstance()->setMute(host.userMuted, false);
    DataDefault::resetDefaults();
    QFile::remove(dir.filePath(QStringLiteral("settings.ini")));
    DataSaveControl::setStoreFile(dir.filePath(QStringLiteral("settings.ini")));
    // A small wallpaper keeps building a view cheap.
    AppData::GetInstance()->setWallPaperPath(writeImage(dir, QStringLiteral("wallpaper.png"), Qt::darkBlue));
}

template <class T = QWidget>
T* find(const QObject* parent, const QString& name)
{
    return parent->findChild<T*>(name);
}

inline QLabel* label(const QObject* parent, const char* name) { return find<QLabel>(parent, QLatin1String(name)); }
inline HvIconButton* button(const QObject* parent, const QString& name) { return find<HvIconButton>(parent, name); }

// The view with its preset list filled as the controller fills it; keys
// past the layout's six are made for an 18-key preset list.
inline TunerView* makeView(int presetCount = 6)
{
    auto* view = new TunerView;
    view->presetButtons().clear();
    for (int i = 1; i <= presetCount; ++i) {
        const QString name = QStringLiteral("PS%1").arg(i);
        HvIconButton* key = i <= 6 ? button(view, name) : new HvIconButton(view);
        key->setObjectName(name);
        view->presetButtons().append(key);
    }
    view->SetRadioRegion(12);
    return view;
}

inline QColor textColour(const QWidget* w) { return w->palette().color(QPalette::WindowText); }

inline QColor pixelOf(const QLabel* l)
{
    const QImage image = l->pixmap(Qt::ReturnByValue).toImage();
    return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
}


} // namespace ViewFixture
