/// The keys that work in every program.
#pragma once

#include "console/frm_media.h"

#include <array>

namespace tandrel
{

/// A hot key: its id, the combination that it has on the desktop, and the key of the text that says what it does.
struct HotKeyRow {
    int id;
    const char* combination;
    const char* text;
};

/// All of them, by id.
const std::array<HotKeyRow, hot_key::kCount>& hotKeyTable();

/// False where another program has the combination.
bool isHotKeyOurs(int id);

} // namespace tandrel
