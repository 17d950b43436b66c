/// The settings by section and key. All are texts; an empty one means its default.
#pragma once

#include "toolkit/text.h"

#include <string_view>

namespace tandrel
{

struct SettingKey {
    std::string_view section;
    std::string_view key;
};

namespace settings
{
/// "0" PlayAll Mode, "1" PlayList Mode.
inline constexpr SettingKey kSlide{"sys", "slide"};
/// "1" the tip of PlayList Mode is shown, "0" it is not.
inline constexpr SettingKey kTips{"sys", "tips"};
/// Place of the console in twips, relative to its monitor.
inline constexpr SettingKey kTop{"sys", "top"};
inline constexpr SettingKey kLeft{"sys", "left"};
/// "1" once the program has run on a modern system.
inline constexpr SettingKey kRanBefore{"sys", "vistaos"};
/// Two-letter code of the language.
inline constexpr SettingKey kLanguage{"sys", "langos"};
/// Month of the last refusal to be the primary player as yyyymm, or "999999": never ask again.
inline constexpr SettingKey kRefused{"day", "run"};
} // namespace settings

Text getSetting(SettingKey key);
void saveSetting(SettingKey key, const Text& value);

} // namespace tandrel
