// The generated layouts are header-only. Compiling them here checks every
// setter they call against the widget headers once, in the library that
// owns the forms, rather than first in whichever consumer includes them.
#include "ui_RadioKeypad.h"
#include "ui_RadioMain.h"
#include "ui_RadioSettingForm.h"
