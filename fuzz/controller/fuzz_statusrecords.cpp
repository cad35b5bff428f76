// Status records into a live controller and its display, with touches and
// host inputs between them: every byte pattern must be taken without a
// crash, a hang or undefined behaviour.
//
// Input: a series of steps, each a byte whose low two bits pick the kind:
//   0 record: kind byte (folded onto 0-39), length byte; that many bytes
//     times three fill the record from its second field on;
//   1 touch: widget byte, x byte, y byte: a click on a shown widget;
//   2 host input: which byte, value byte;
//   3 the event loop's pending work.
#include "FuzzApplication.h"
#include "TunerViewImpl.h"

#include "AudioControl.h"
#include "BaseControl.h"
#include "DataSaveControl.h"
#include "ModuleManager.h"
#include "PlatformControl.h"
#include "RadioModule.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

namespace {

TunerViewImpl* liveController()
{
    fuzzApplication();
    static QTemporaryDir settings;
    DataSaveControl::setStoreFile(settings.filePath(QStringLiteral("settings.ini")));
    BaseControl::createInstance();
    AudioControl::createInstance();
    PlatformControl::createInstance();
    auto* radio = new RadioModule;
    hvappframework::ModuleManager::self()->addModule(
        QSharedPointer<hvappframework::Module>::create(QStringLiteral("radio"), radio));
    auto* controller = new TunerViewImpl(nullptr);
    controller->resize(1280, 720);
    controller->show();
    return controller;
}

void hostInput(TunerViewImpl* c, uint8_t which, uint8_t value)
{
    const int v = int(int8_t(value));
    switch (which % 12) {
    case 0: c->RadioRegionChangedSlot(value % 26 - 1); break;
    case 1: c->changeBandSlot(v); break;
    case 2: c->FMAMChangedSlot(v); break;
    case 3: c->TunerAudioStreamOnOffSlot(v); break;
    case 4: c->RadioPlaybtnStateSlot(v); break;
    case 5: c->speechCommandSlot_fromBase(v); break;
    case 6: c->switchSource(value & 1 ? QStringLiteral("radio") : QStringLiteral("usb")); break;
    case 7: c->showRadioStandbySlot(); break;
    case 8: c->exitRadioStandbySlot(); break;
    case 9: c->showRadioViewSlot(); break;
    case 10: c->RadioOnStartSlot(); break;
    default: c->onStop(); break;
    }
}

void touch(TunerViewImpl* c, uint8_t which, uint8_t x, uint8_t y)
{
    QList<QWidget*> shown;
    for (QWidget* w : c->findChildren<QWidget*>()) {
        if (w->isVisible() && !w->size().isEmpty())
            shown.append(w);
    }
    if (shown.isEmpty())
        return;
    QWidget* w = shown.at(which % shown.size());
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, QPoint(x * w->width() / 256, y * w->height() / 256));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static TunerViewImpl* controller = liveController();
    const auto at = [&](size_t i) { return i < size ? data[i] : uint8_t(0); };
    for (size_t pos = 0; pos < size;) {
        const uint8_t step = data[pos];
        switch (step & 3) {
        case 0: {
            tag_RadioCmdFromMCU r;
            std::memset(&r, 0, sizeof r);
            r.cmd = at(pos + 1) % 40;
            const size_t len = std::min<size_t>({size_t(at(pos + 2)) * 3, size - std::min(size, pos + 3), sizeof r - 4});
            std::memcpy(reinterpret_cast<char*>(&r) + 4, data + pos + 3, len);
            controller->HandleTunerMsgSlot(r);
            pos += 3 + len;
            break;
        }
        case 1:
            touch(controller, at(pos + 1), at(pos + 2), at(pos + 3));
            pos += 4;
            break;
        case 2:
            hostInput(controller, at(pos + 1), at(pos + 2));
            pos += 3;
            break;
        default:
            QCoreApplication::processEvents();
            pos += 1;
        }
    }
    QCoreApplication::processEvents();
    return 0;
}
