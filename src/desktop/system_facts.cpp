#include "desktop/system_facts.h"

#include "platform/services.h"
#include "toolkit/trap.h"

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

struct VersionRow {
    std::string_view numbers;
    std::string_view name;
    std::string_view token;
};

constexpr std::array kVersions{
    VersionRow{"1.4.0", "Windows 95", "v95"},    VersionRow{"1.4.10", "Windows 98", "v98"},
    VersionRow{"1.4.98", "Windows ME", "vME"},   VersionRow{"2.3.51", "Windows NT 3", "vNT3"},
    VersionRow{"2.4.0", "Windows NT 4", "vNT4"}, VersionRow{"2.5.0", "Windows 2000", "v2K"},
    VersionRow{"2.5.1", "Windows XP", "vXP"},    VersionRow{"2.6.0", "Windows Vista", "vS6"},
    VersionRow{"2.6.1", "Windows Seven", "vS7"},
};
constexpr VersionRow kUnknown{"", "Unknown", "v00"};

constexpr std::size_t kFolderRoom = 512;

constexpr std::array<std::string_view, 5> kOlder{"WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT",
                                                 "WINDOWS XP"};

} // namespace

Text WindowsName;
Text VersionToken;

Text GetWindowsVersion()
{
    trap([] {
        const std::string numbers = services().systemFacts->version();
        const auto row = std::find_if(kVersions.begin(), kVersions.end(),
                                      [&](const VersionRow& one) { return one.numbers == numbers; });
        const VersionRow& found = row == kVersions.end() ? kUnknown : *row;
        WindowsName = found.name;
        VersionToken = found.token;
    });
    return WindowsName;
}

Text GetSystemFolder()
{
    Text folder;
    trap([&] { folder = services().systemFacts->systemFolder().substr(0, kFolderRoom); });
    return folder;
}

bool isOlderSystem(const Text& version) { return std::find(kOlder.begin(), kOlder.end(), version) != kOlder.end(); }

} // namespace tandrel
