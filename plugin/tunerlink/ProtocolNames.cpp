#include "RadioCmdFromMCU.h"
#include "RadioCmdToMCU.h"

const char* radioMsgKindName(uint32_t kind)
{
    switch (kind) {
    case MCU_TUNE_INFO: return "MCU_TUNE_INFO";
    case MCU_PRESET_FREQ: return "MCU_PRESET_FREQ";
    case MCU_PTY: return "MCU_PTY";
    case MCU_PS_NAME: return "MCU_PS_NAME";
    case MCU_RADIO_TEXT: return "MCU_RADIO_TEXT";
    case MCU_PRESET_PS: return "MCU_PRESET_PS";
    case MCU_RDS_FLAGS: return "MCU_RDS_FLAGS";
    case MCU_STATION_PIC: return "MCU_STATION_PIC";
    case MCU_FAVOURITE: return "MCU_FAVOURITE";
    case MCU_SIGNAL: return "MCU_SIGNAL";
    case MCU_AUX_WORDS: return "MCU_AUX_WORDS";
    case MCU_AUX_BLOCKS: return "MCU_AUX_BLOCKS";
    default: return "?";
    }
}

const char* radioCmdName(uint32_t code)
{
    switch (code) {
    case RC_PRESET: return "RC_PRESET";
    case RC_PRESET_LONG: return "RC_PRESET_LONG";
    case RC_BAND: return "RC_BAND";
    case RC_AUTO_SEARCH: return "RC_AUTO_SEARCH";
    case RC_PS: return "RC_PS";
    case RC_SEEK_UP: return "RC_SEEK_UP";
    case RC_SEEK_DOWN: return "RC_SEEK_DOWN";
    case RC_STEP_UP: return "RC_STEP_UP";
    case RC_STEP_DOWN: return "RC_STEP_DOWN";
    case RC_SCAN: return "RC_SCAN";
    case RC_AF: return "RC_AF";
    case RC_TA: return "RC_TA";
    case RC_DX_LOC: return "RC_DX_LOC";
    case RC_PTY_SELECTED: return "RC_PTY_SELECTED";
    case RC_REG: return "RC_REG";
    case RC_RDS: return "RC_RDS";
    case RC_SET_FREQ: return "RC_SET_FREQ";
    case RC_PTY_SEEK: return "RC_PTY_SEEK";
    case RC_FAVOR: return "RC_FAVOR";
    case RC_PRESET_UP: return "RC_PRESET_UP";
    case RC_PRESET_DOWN: return "RC_PRESET_DOWN";
    case RC_REQUEST_LIST: return "RC_REQUEST_LIST";
    default: return nullptr;
    }
}
