-- Wireshark dissector for captures of the radio screen's tuner link
-- (RADIO_CAPTURE=FILE): pcapng, link type USER0 (147). Each packet is one
-- direction byte, 0 = status record from the tuner service (584 bytes
-- follow), 1 = command frame to it (8 bytes follow), then the bytes as they
-- were on the socket, little-endian. Layouts: plugin/tunerlink/
-- RadioCmdFromMCU.h and RadioCmdToMCU.h; programme types:
-- plugin/radioview/PtyNames.cpp.
--
--   tshark -X lua_script:tools/wireshark/radio_tuner.lua -r FILE
--
-- Fields:
--   radio.dir             direction byte: 0 in (status record), 1 out (command frame)
--   radio.data            payload not decoded (unknown direction, wrong size)
-- Command frames:
--   radio.cmd             code, by name: RC_SEEK_UP (5)
--   radio.param           parameter (its meaning is in the tree and Info)
-- Status records: radio.kind, then only the fields the record's kind carries.
--   radio.kind            kind (cmd word), by name: MCU_TUNE_INFO (0)
--   MCU_TUNE_INFO (0):
--   radio.freq            frequency, > 1999 FM in 10 kHz, else AM in kHz
--   radio.band            0-2 FM1-FM3, 3-4 AM1-AM2
--   radio.preset          preset key, 0 none
--   radio.dx_loc          0 DX, else LOC
--   radio.as_state        auto search running
--   radio.byte12          byte 12, carried but not interpreted
--   radio.stereo          stereo
--   radio.ps_state        preset scan running
--   radio.scan_state      scan running
--   radio.ps              PS name (also kind 6), 8 characters
--   MCU_PRESET_FREQ (4):
--   radio.preset_freq     12 preset frequencies, units as radio.freq
--   MCU_PTY (5):
--   radio.pty             programme type, by name
--   radio.pty_selected    selected programme type, by name
--   MCU_RADIO_TEXT (7):
--   radio.rt              radio text (UTF-8, up to the NUL)
--   MCU_PRESET_PS (8):
--   radio.preset_ps       12 preset PS names
--   MCU_RDS_FLAGS (9):
--   radio.rds_word        bytes 66-67
--   radio.rds_flags       byte 67, bits radio.rds_flags.tp (0x02), .af (0x04),
--                         .ta (0x08), .reg (0x40), .ta_ind (0x80)
--   MCU_STATION_PIC (26):
--   radio.station_pic     station picture number
--   MCU_FAVOURITE (33):
--   radio.favourites      the 12-byte field, as six radio.favourite frequencies
--   MCU_SIGNAL (34):
--   radio.signal          signal strength 0-255
--   MCU_AUX_WORDS (35):
--   radio.aux_words       the 60-byte field, as 30 radio.aux_word
--   MCU_AUX_BLOCKS (36):
--   radio.aux_block       three 96-byte blocks
-- Expert info: radio.expert.empty, .bad_dir, .bad_size (malformed, error);
-- .unknown_kind, .unknown_cmd, .range, .param_unused, .flags_dir.

local proto = Proto("radio", "Radio tuner link")

local RECORD_SIZE = 584
local FRAME_SIZE = 8

local kind_names = {
    [0] = "MCU_TUNE_INFO",
    [4] = "MCU_PRESET_FREQ",
    [5] = "MCU_PTY",
    [6] = "MCU_PS_NAME",
    [7] = "MCU_RADIO_TEXT",
    [8] = "MCU_PRESET_PS",
    [9] = "MCU_RDS_FLAGS",
    [26] = "MCU_STATION_PIC",
    [33] = "MCU_FAVOURITE",
    [34] = "MCU_SIGNAL",
    [35] = "MCU_AUX_WORDS",
    [36] = "MCU_AUX_BLOCKS",
}

local cmd_names = {
    [0] = "RC_PRESET",
    [1] = "RC_PRESET_LONG",
    [2] = "RC_BAND",
    [3] = "RC_AUTO_SEARCH",
    [4] = "RC_PS",
    [5] = "RC_SEEK_UP",
    [6] = "RC_SEEK_DOWN",
    [7] = "RC_STEP_UP",
    [8] = "RC_STEP_DOWN",
    [9] = "RC_SCAN",
    [10] = "RC_AF",
    [11] = "RC_TA",
    [12] = "RC_DX_LOC",
    [13] = "RC_PTY_SELECTED",
    [14] = "RC_REG",
    [15] = "RC_RDS",
    [17] = "RC_SET_FREQ",
    [18] = "RC_PTY_SEEK",
    [20] = "RC_FAVOR",
    [21] = "RC_PRESET_UP",
    [22] = "RC_PRESET_DOWN",
    [255] = "RC_REQUEST_LIST",
}

local dir_names = {
    [0] = "In: status record from the tuner service",
    [1] = "Out: command frame to the tuner service",
}

local band_names = { [0] = "FM1", [1] = "FM2", [2] = "FM3", [3] = "AM1", [4] = "AM2" }

-- As the screen shows them; type 0 has no name there.
local pty_names = {
    [0] = "none", "News", "Affairs", "Info", "Sports", "Educate", "Drama",
    "Culture", "Science", "Varied", "Pop M", "Rock M", "Easy M", "Light M",
    "Classics", "Other M", "Weather", "Finance", "Children", "Social",
    "Religion", "Phone In", "Travel", "Leisure", "Jazz", "Country",
    "Nation M", "Oldies", "Folk M", "Document", "Test", "Alarm",
}

local F = {
    dir = ProtoField.uint8("radio.dir", "Direction", base.DEC, dir_names),
    data = ProtoField.bytes("radio.data", "Undecoded data"),
    cmd = ProtoField.uint32("radio.cmd", "Command", base.DEC, cmd_names),
    param = ProtoField.uint32("radio.param", "Parameter", base.DEC),
    kind = ProtoField.uint32("radio.kind", "Kind", base.DEC, kind_names),
    freq = ProtoField.uint32("radio.freq", "Frequency", base.DEC),
    band = ProtoField.uint8("radio.band", "Band", base.DEC, band_names),
    preset = ProtoField.uint8("radio.preset", "Preset", base.DEC),
    dx_loc = ProtoField.uint8("radio.dx_loc", "DX/LOC", base.DEC),
    as_state = ProtoField.uint8("radio.as_state", "AS (auto search)", base.DEC),
    byte12 = ProtoField.uint8("radio.byte12", "Byte 12 (not interpreted)", base.HEX),
    stereo = ProtoField.uint8("radio.stereo", "Stereo", base.DEC),
    ps_state = ProtoField.uint8("radio.ps_state", "PS (preset scan)", base.DEC),
    scan_state = ProtoField.uint8("radio.scan_state", "Scan", base.DEC),
    ps = ProtoField.string("radio.ps", "PS name"),
    preset_freq = ProtoField.uint16("radio.preset_freq", "Preset frequency", base.DEC),
    pty = ProtoField.uint8("radio.pty", "PTY", base.DEC, pty_names),
    pty_selected = ProtoField.uint8("radio.pty_selected", "Selected PTY", base.DEC, pty_names),
    rt = ProtoField.string("radio.rt", "Radio text"),
    preset_ps = ProtoField.string("radio.preset_ps", "Preset PS name"),
    rds_word = ProtoField.uint16("radio.rds_word", "RDS word", base.HEX),
    rds_flags = ProtoField.uint8("radio.rds_flags", "RDS flags", base.HEX),
    rds_tp = ProtoField.bool("radio.rds_flags.tp", "TP (traffic programme)", 8, nil, 0x02),
    rds_af = ProtoField.bool("radio.rds_flags.af", "AF switch", 8, nil, 0x04),
    rds_ta = ProtoField.bool("radio.rds_flags.ta", "TA switch", 8, nil, 0x08),
    rds_reg = ProtoField.bool("radio.rds_flags.reg", "REG switch", 8, nil, 0x40),
    rds_ta_ind = ProtoField.bool("radio.rds_flags.ta_ind", "TA indicator (announcement)", 8, nil, 0x80),
    station_pic = ProtoField.uint32("radio.station_pic", "Station picture", base.DEC),
    favourites = ProtoField.bytes("radio.favourites", "Favourites"),
    favourite = ProtoField.uint16("radio.favourite", "Favourite", base.DEC),
    signal = ProtoField.uint8("radio.signal", "Signal", base.DEC),
    aux_words = ProtoField.bytes("radio.aux_words", "Auxiliary words"),
    aux_word = ProtoField.uint16("radio.aux_word", "Auxiliary word", base.HEX),
    aux_block = ProtoField.bytes("radio.aux_block", "Auxiliary block"),
}
proto.fields = F

local E = {
    empty = ProtoExpert.new("radio.expert.empty", "Empty packet: no direction byte",
        expert.group.MALFORMED, expert.severity.ERROR),
    bad_dir = ProtoExpert.new("radio.expert.bad_dir", "Unknown direction byte",
        expert.group.MALFORMED, expert.severity.ERROR),
    bad_size = ProtoExpert.new("radio.expert.bad_size", "Wrong size for its direction",
        expert.group.MALFORMED, expert.severity.ERROR),
    unknown_kind = ProtoExpert.new("radio.expert.unknown_kind", "Record kind the screen does not read",
        expert.group.UNDECODED, expert.severity.NOTE),
    unknown_cmd = ProtoExpert.new("radio.expert.unknown_cmd", "Unknown command code",
        expert.group.PROTOCOL, expert.severity.WARN),
    range = ProtoExpert.new("radio.expert.range", "Value out of range",
        expert.group.PROTOCOL, expert.severity.WARN),
    param_unused = ProtoExpert.new("radio.expert.param_unused", "Parameter of a command without one is not 0",
        expert.group.PROTOCOL, expert.severity.NOTE),
    flags_dir = ProtoExpert.new("radio.expert.flags_dir", "epb_flags direction disagrees with the direction byte",
        expert.group.PROTOCOL, expert.severity.WARN),
}
proto.experts = E

-- 1 inbound, 2 outbound, 0 or absent when the writer did not say.
local frame_flags_dir = Field.new("frame.packet_flags_direction")

-- Lua 5.2 in Wireshark 4.0: no integer division, no bit operators.
local function bit_set(value, mask)
    return math.floor(value / mask) % 2 == 1
end

-- The unit follows from the value alone, for the current frequency and
-- for every preset: above 1999 FM in 10 kHz steps, else AM in kHz.
local function freq_text(v)
    if v > 1999 then
        return string.format("%d.%02d MHz", math.floor(v / 100), v % 100)
    end
    return string.format("%d kHz", v)
end

local function band_text(v)
    return band_names[v] or string.format("band %d", v)
end

-- PS and preset names: printable ASCII as is, the rest escaped, so that
-- padding and odd bytes stay visible.
local function quoted_bytes(range)
    local out = {}
    local raw = range:raw()
    for i = 1, #raw do
        local c = raw:byte(i)
        if c == 0x22 or c == 0x5c then
            out[#out + 1] = "\\" .. string.char(c)
        elseif c >= 0x20 and c < 0x7f then
            out[#out + 1] = string.char(c)
        else
            out[#out + 1] = string.format("\\x%02x", c)
        end
    end
    return '"' .. table.concat(out) .. '"'
end

-- The radio text is UTF-8; what is not becomes U+FFFD, as on the screen.
-- (TvbRange:string(ENC_UTF_8) cannot be used: in Wireshark 4.0 it keeps
-- the input's length and so cuts the text after a replacement.)
local function utf8_clean(raw)
    local out, i, n = {}, 1, #raw
    while i <= n do
        local c = raw:byte(i)
        local len = 0
        if c < 0x80 then
            len = 1
        elseif c >= 0xc2 and c <= 0xdf then
            len = 2
        elseif c >= 0xe0 and c <= 0xef then
            len = 3
        elseif c >= 0xf0 and c <= 0xf4 then
            len = 4
        end
        local ok = len > 0 and i + len - 1 <= n
        for j = i + 1, ok and i + len - 1 or 0 do
            local cc = raw:byte(j)
            if cc < 0x80 or cc > 0xbf then
                ok = false
            end
        end
        if ok and len > 2 then
            -- Overlong forms, surrogates, beyond U+10FFFF.
            local c2 = raw:byte(i + 1)
            ok = not ((c == 0xe0 and c2 < 0xa0) or (c == 0xed and c2 > 0x9f)
                or (c == 0xf0 and c2 < 0x90) or (c == 0xf4 and c2 > 0x8f))
        end
        if ok then
            out[#out + 1] = raw:sub(i, i + len - 1)
            i = i + len
        else
            out[#out + 1] = "\239\191\189"
            i = i + 1
        end
    end
    return table.concat(out)
end

-- Radio text, already UTF-8: only quotes, backslashes and controls escaped.
local function quoted_text(s)
    s = s:gsub('[\\"]', "\\%0")
    s = s:gsub("[\0-\31\127]", function(c) return string.format("\\x%02x", c:byte()) end)
    return '"' .. s .. '"'
end

-- One packet's decoding state: the payload starts after the direction
-- byte; only bytes inside both the payload and its nominal size are read.
local Packet = {}
Packet.__index = Packet

function Packet:has(off, len)
    return off + len <= self.avail
end

function Packet:range(off, len)
    return self.tvb(1 + off, len)
end

function Packet:add(tree, field, off, len)
    if not self:has(off, len) then
        return nil, nil
    end
    local r = self:range(off, len)
    return tree:add_le(field, r), len <= 4 and r:le_uint() or nil
end

local function flag_word(value, running, idle)
    return string.format("%d (%s)", value, value ~= 0 and running or idle)
end

local function add_ps(p, tree, field, off, label)
    if not p:has(off, 8) then
        return nil
    end
    local r = p:range(off, 8)
    local item = tree:add(field, r)
    local q = quoted_bytes(r)
    item:set_text(label .. ": " .. q)
    return q
end

-- Each kind adds its own fields and returns what follows its name in Info.

local function tune_info(p, tree)
    local parts = {}
    local item, v = p:add(tree, F.freq, 4, 4)
    if item then
        item:append_text(" (" .. freq_text(v) .. ")")
        parts[#parts + 1] = (v > 1999 and "FM " or "AM ") .. freq_text(v)
    end
    local band
    item, band = p:add(tree, F.band, 8, 1)
    if item then
        parts[#parts + 1] = band_text(band)
        if band > 4 then
            item:add_proto_expert_info(E.range, "Band " .. band .. " is none of FM1-FM3, AM1-AM2")
        end
    end
    item, v = p:add(tree, F.preset, 9, 1)
    if item then
        if v == 0 then
            item:append_text(" (none)")
        else
            parts[#parts + 1] = "preset " .. v
        end
    end
    item, v = p:add(tree, F.dx_loc, 10, 1)
    if item then
        local text = v ~= 0 and "LOC" or "DX"
        item:append_text(" (" .. text .. ")")
        parts[#parts + 1] = text
    end
    local as_state, ps_state, scan_state
    item, as_state = p:add(tree, F.as_state, 11, 1)
    if item then item:set_text("AS (auto search): " .. flag_word(as_state, "running", "idle")) end
    p:add(tree, F.byte12, 12, 1)
    item, v = p:add(tree, F.stereo, 13, 1)
    if item then
        if v ~= 0 then
            parts[#parts + 1] = "stereo"
            if band and band > 2 then
                item:append_text(" (stereo; the screen shows AM as mono)")
            else
                item:append_text(" (stereo)")
            end
        else
            item:append_text(" (mono)")
        end
    end
    item, ps_state = p:add(tree, F.ps_state, 14, 1)
    if item then item:set_text("PS (preset scan): " .. flag_word(ps_state, "running", "idle")) end
    item, scan_state = p:add(tree, F.scan_state, 15, 1)
    if item then item:set_text("Scan: " .. flag_word(scan_state, "running", "idle")) end
    if as_state and as_state ~= 0 then parts[#parts + 1] = "auto search" end
    if ps_state and ps_state ~= 0 then parts[#parts + 1] = "preset scan" end
    if scan_state and scan_state ~= 0 then parts[#parts + 1] = "scan" end
    -- The screen takes the name along with a new frequency.
    local q = add_ps(p, tree, F.ps, 56, "PS name")
    if q and not p:range(56, 8):raw():match("^[ \0]*$") then
        parts[#parts + 1] = q
    end
    return table.concat(parts, " ")
end

local function preset_freqs(p, tree)
    local first, second, any_second = {}, {}, false
    for i = 0, 11 do
        local item, v = p:add(tree, F.preset_freq, 18 + 2 * i, 2)
        if item then
            item:set_text(string.format("Preset %d frequency: %d (%s)", i + 1, v, freq_text(v)))
            if i < 6 then
                first[#first + 1] = freq_text(v)
            else
                second[#second + 1] = freq_text(v)
                any_second = any_second or v ~= 0
            end
        end
    end
    local text = table.concat(first, " ")
    if any_second then
        text = text .. " | " .. table.concat(second, " ")
    end
    return text
end

local function pty_text(v)
    local name = pty_names[v]
    if v == 0 or not name then
        return tostring(v)
    end
    return string.format('%d "%s"', v, name)
end

local function pty(p, tree)
    local parts = {}
    local item, v = p:add(tree, F.pty, 64, 1)
    if item then
        parts[#parts + 1] = pty_text(v)
        if v > 31 then
            item:add_proto_expert_info(E.range, "Programme type " .. v .. " above 31: the screen drops the record")
        end
    end
    item, v = p:add(tree, F.pty_selected, 65, 1)
    if item then
        parts[#parts + 1] = "selected " .. pty_text(v)
        if v > 31 then
            item:add_proto_expert_info(E.range, "Selected programme type " .. v .. " above 31")
        end
    end
    return table.concat(parts, " ")
end

local function ps_name(p, tree)
    return add_ps(p, tree, F.ps, 56, "PS name") or ""
end

local function radio_text(p, tree)
    if not p:has(164, 1) then
        return ""
    end
    -- Up to the NUL, which the screen looks for no further than the field.
    local field = p:range(164, math.min(65, p.avail - 164))
    local raw = field:raw()
    local nul = raw:find("\0", 1, true)
    local len = nul and nul - 1 or #raw
    local text = utf8_clean(raw:sub(1, len))
    local item = tree:add(F.rt, field, text)
    item:set_text(string.format("Radio text: %s (%d bytes)", quoted_text(text), len))
    return quoted_text(text)
end

local function preset_ps(p, tree)
    local first, second, any_second = {}, {}, false
    for i = 0, 11 do
        local q = add_ps(p, tree, F.preset_ps, 68 + 8 * i, string.format("Preset %d PS name", i + 1))
        if q then
            if i < 6 then
                first[#first + 1] = q
            else
                second[#second + 1] = q
                any_second = any_second or not p:range(68 + 8 * i, 8):raw():match("^[ \0]*$")
            end
        end
    end
    local text = table.concat(first, " ")
    if any_second then
        text = text .. " | " .. table.concat(second, " ")
    end
    return text
end

local rds_bits = {
    { F.rds_tp, 0x02, "TP" },
    { F.rds_af, 0x04, "AF" },
    { F.rds_ta, 0x08, "TA" },
    { F.rds_reg, 0x40, "REG" },
    { F.rds_ta_ind, 0x80, "TA-IND" },
}

local function rds_flags(p, tree)
    local word_item = p:add(tree, F.rds_word, 66, 2)
    local item, v = p:add(word_item or tree, F.rds_flags, 67, 1)
    if not item then
        return ""
    end
    local parts = { string.format("0x%02x", v) }
    for _, bit in ipairs(rds_bits) do
        item:add(bit[1], p:range(67, 1))
        if bit_set(v, bit[2]) then
            parts[#parts + 1] = bit[3]
        end
    end
    item:append_text(" (" .. (#parts > 1 and table.concat(parts, " ", 2) or "none") .. ")")
    return table.concat(parts, " ")
end

-- A kind that carries one number.
local function number_of(field, off, len)
    return function(p, tree)
        local _, v = p:add(tree, field, off, len)
        return v and tostring(v) or ""
    end
end

local station_pic = number_of(F.station_pic, 232, 4)
local signal = number_of(F.signal, 16, 1)

local function favourites(p, tree)
    -- Six 16-bit frequencies as the tuner service fills the 12 bytes, 0 for
    -- an unused slot; the screen keeps them but shows none.
    local item = p:add(tree, F.favourites, 42, 12)
    local parts = {}
    for i = 0, 5 do
        local fav, v = p:add(item or tree, F.favourite, 42 + 2 * i, 2)
        if fav then
            if v ~= 0 then
                fav:set_text(string.format("Favourite %d: %d (%s)", i + 1, v, freq_text(v)))
                parts[#parts + 1] = freq_text(v)
            else
                fav:set_text(string.format("Favourite %d: 0 (unused)", i + 1))
            end
        end
    end
    return #parts > 0 and table.concat(parts, " ") or "none"
end


local function aux_words(p, tree)
    local item = p:add(tree, F.aux_words, 236, 60)
    for i = 0, 29 do
        local w = p:add(item or tree, F.aux_word, 236 + 2 * i, 2)
        if w then w:prepend_text(string.format("[%d] ", i)) end
    end
    return ""
end

local function aux_blocks(p, tree)
    for i = 0, 2 do
        local item = p:add(tree, F.aux_block, 296 + 96 * i, 96)
        if item then item:prepend_text(string.format("[%d] ", i)) end
    end
    return ""
end

local kind_decoders = {
    [0] = tune_info,
    [4] = preset_freqs,
    [5] = pty,
    [6] = ps_name,
    [7] = radio_text,
    [8] = preset_ps,
    [9] = rds_flags,
    [26] = station_pic,
    [33] = favourites,
    [34] = signal,
    [35] = aux_words,
    [36] = aux_blocks,
}

local function dissect_record(p, tree)
    local sub = tree:add(proto, p:range(0, p.avail), "Status record")
    if p.avail < 4 then
        return "status record", sub
    end
    local kind_item, kind = p:add(sub, F.kind, 0, 4)
    local name = kind_names[kind]
    sub:append_text(": " .. (name or "unknown kind") .. " (" .. kind .. ")")
    if not name then
        kind_item:add_proto_expert_info(E.unknown_kind,
            "Kind " .. kind .. " is not read by the screen; its other bytes are ignored")
        return "MCU kind " .. kind .. " (not read by the screen)", sub
    end
    local text = kind_decoders[kind](p, sub)
    if text ~= "" then
        return name .. " " .. text, sub
    end
    return name, sub
end

-- Parameters of the commands that take one, as the screen means them:
-- the text for Info, the meaning for the tree, and false when out of range.
local function on_off(v)
    local text = v ~= 0 and "on" or "off"
    return string.format("%d (%s)", v, text), text
end
local function preset_no(v)
    return tostring(v), "preset " .. v
end
local param_meanings = {
    [0] = preset_no,
    [1] = preset_no,
    [2] = function(v)
        local band = band_names[v - 1]
        if not band then
            return tostring(v), "no band: 1-5 are FM1-FM3, AM1-AM2", false
        end
        return string.format("%d (%s)", v, band), "band " .. band .. ", counted from 1"
    end,
    [10] = on_off,
    [11] = on_off,
    [12] = function(v)
        local text = v ~= 0 and "LOC" or "DX"
        return string.format("%d (%s)", v, text), text
    end,
    [13] = function(v)
        if v > 31 then
            return tostring(v), "no programme type: 0-31", false
        end
        return pty_text(v), "programme type " .. (v == 0 and "none" or pty_names[v])
    end,
    [14] = on_off,
    [15] = on_off,
    [17] = function(v)
        return string.format("%d (%s)", v, freq_text(v)), freq_text(v)
    end,
}

local function dissect_frame(p, tree)
    local sub = tree:add(proto, p:range(0, p.avail), "Command frame")
    local code_item, code = p:add(sub, F.cmd, 0, 4)
    local param_item, param = p:add(sub, F.param, 4, 4)
    if not code_item then
        return "command frame", sub
    end
    local name = cmd_names[code]
    sub:append_text(": " .. (name or "unknown code") .. " (" .. code .. ")")
    if not name then
        code_item:add_proto_expert_info(E.unknown_cmd, "Command code " .. code .. " is not one the screen sends")
        if param then
            return string.format("RC code %d, param %d", code, param), sub
        end
        return string.format("RC code %d", code), sub
    end
    if not param_item then
        return name, sub
    end
    local meaning = param_meanings[code]
    if meaning then
        local text, tree_text, valid = meaning(param)
        param_item:append_text(" (" .. tree_text .. ")")
        if valid == false then
            param_item:add_proto_expert_info(E.range, "Parameter " .. param .. " out of range for " .. name)
        end
        return name .. " " .. text, sub
    end
    if param ~= 0 then
        param_item:add_proto_expert_info(E.param_unused)
        return name .. " " .. param, sub
    end
    return name, sub
end

local function expected_size_text(dir)
    return dir == 0 and "a status record has 584" or "a command frame has 8"
end

function proto.dissector(tvb, pinfo, tree)
    pinfo.cols.protocol = "RADIO"
    local len = tvb:len()
    if len == 0 then
        local item = tree:add(proto, tvb(), "Radio tuner link: empty packet")
        item:add_proto_expert_info(E.empty)
        pinfo.cols.info = "empty packet [malformed: no direction byte]"
        return 0
    end

    local dir_range = tvb(0, 1)
    local dir = dir_range:uint()
    local root = tree:add(proto, tvb())
    local dir_item = root:add(F.dir, dir_range)
    -- Judged by the length on the socket; a snap length would only cut
    -- the captured copy.
    local size = tvb:reported_len() - 1
    local p = setmetatable({ tvb = tvb, avail = len - 1 }, Packet)

    local as_dir = dir
    local problem
    if dir ~= 0 and dir ~= 1 then
        dir_item:add_proto_expert_info(E.bad_dir, "Direction byte " .. dir .. " is neither 0 (in) nor 1 (out)")
        problem = "direction byte " .. dir
        -- Still decoded when the size says which it is.
        if size == RECORD_SIZE then
            as_dir = 0
        elseif size == FRAME_SIZE then
            as_dir = 1
        end
        if as_dir == dir then
            if p.avail > 0 then
                root:add(F.data, tvb(1))
            end
            root:append_text(", direction " .. dir .. " (" .. p.avail .. " bytes)")
            pinfo.cols.info = string.format("direction %d, %d bytes [malformed: %s]", dir, size, problem)
            return len
        end
        dir_item:append_text(as_dir == 0 and " (taken as a status record by its size)"
            or " (taken as a command frame by its size)")
    end

    local expected = as_dir == 0 and RECORD_SIZE or FRAME_SIZE
    -- Bytes past the nominal size are not part of the record or frame.
    p.avail = math.min(p.avail, expected)
    pinfo.cols.src = as_dir == 0 and "tuner" or "screen"
    pinfo.cols.dst = as_dir == 0 and "screen" or "tuner"

    local info, sub
    if as_dir == 0 then
        info, sub = dissect_record(p, root)
    else
        info, sub = dissect_frame(p, root)
    end
    root:append_text(", " .. info)

    if size ~= expected then
        local text = string.format("%d bytes, %s", size, expected_size_text(as_dir))
        sub:add_proto_expert_info(E.bad_size, (as_dir == 0 and "Status record of " or "Command frame of ") .. text)
        if len - 1 > expected then
            root:add(F.data, tvb(1 + expected)):append_text(" (beyond the " .. expected .. " bytes)")
        end
        problem = problem and (problem .. ", " .. text) or text
    end
    if problem then
        info = info .. " [malformed: " .. problem .. "]"
    end

    local flags = frame_flags_dir()
    if flags and flags.value ~= 0 and dir <= 1 and flags.value ~= dir + 1 then
        dir_item:add_proto_expert_info(E.flags_dir, string.format(
            "epb_flags say %s, the direction byte %s", flags.value == 1 and "inbound" or "outbound",
            dir == 0 and "in" or "out"))
    end

    pinfo.cols.info = info
    return len
end

DissectorTable.get("wtap_encap"):add(wtap.USER0, proto)
