// Status records into a live controller and its display, with touches and
// host inputs between them. Steps, by the low two bits of their first byte:
// 0 a record (kind, length/3, bytes from the second field on), 1 a click
// (widget, x, y), 2 a host input (which, value), 3 pending events.
#include "FuzzApplication.h"
#include "TunerViewImpl.h"

#include "AudioControl.h"
#include "BaseControl.h"
#include "DataSaveControl.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioModule.h"

#include <QTemporaryDir>

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir settings;
    static TunerViewImpl* controller = [] {
        fuzzApplication();
        DataSaveControl::setStoreFile(settings.filePath(QStringLiteral("settings.ini")));
        BaseControl::createInstance();
        AudioControl::createInstance();
        PlatformControl::createInstance();
        hvappframework::ModuleManager::self()->addModule(
            QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), new RadioModule));
        auto* c = new TunerViewImpl(nullptr);
        c->resize(1280, 720);
        c->show();
        return c;
    }();
    static const char* const valueInputs[] = {"RadioRegionChangedSlot", "changeBandSlot", "FMAMChangedSlot",
                                              "TunerAudioStreamOnOffSlot", "RadioPlaybtnStateSlot",
                                              "speechCommandSlot_fromBase"};
    static const char* const plainInputs[] = {"showRadioStandbySlot", "exitRadioStandbySlot", "showRadioViewSlot",
                                              "RadioOnStartSlot"};
    const auto at = [&](size_t i) { return i < size ? data[i] : uint8_t(0); };
    for (size_t pos = 0; pos < size;) {
        const int kind = data[pos] & 3;
        if (kind == 0) {
            tag_RadioCmdFromMCU r;
            std::memset(&r, 0, sizeof r);
            r.cmd = at(pos + 1) % 40;
            const size_t len = std::min<size_t>({at(pos + 2) * 3u, size - std::min(size, pos + 3), sizeof r - 4});
            std::memcpy(reinterpret_cast<char*>(&r) + 4, data + pos + 3, len);
            controller->HandleTunerMsgSlot(r);
            pos += 3 + len;
        } else if (kind == 1) {
            QList<QWidget*> shown;
            for (QWidget* w : controller->findChildren<QWidget*>())
                if (w->isVisible() && !w->size().isEmpty())
                    shown.append(w);
            QWidget* w = shown.value(at(pos + 1) % std::max(1, int(shown.size())));
            if (w)
                fuzzClick(w, QPoint(at(pos + 2) * w->width() / 256, at(pos + 3) * w->height() / 256));
            pos += 4;
        } else if (kind == 2) {
            // Values -1 to 24: both sides of the region table and of every small range.
            const uint8_t which = at(pos + 1) % 10;
            if (which < 6)
                QMetaObject::invokeMethod(controller, valueInputs[which], Q_ARG(int, at(pos + 2) % 26 - 1));
            else
                QMetaObject::invokeMethod(controller, plainInputs[which - 6]);
            pos += 3;
        } else {
            QCoreApplication::processEvents();
            pos += 1;
        }
    }
    QCoreApplication::processEvents();
    return 0;
}
