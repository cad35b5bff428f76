#include "HostEvents.h"

#include <QEvent>

const int WallPaperChange = QEvent::User + 1000;
