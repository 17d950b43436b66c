#include "desktop/system_facts.h"

#include "platform/services.h"

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

struct VersionRow {
    std::string_view numbers;
    std::string_view name;
};

constexpr std::array kVersions{
    VersionRow{"1.4.0", "Windows 95"},    VersionRow{"1.4.10", "Windows 98"},   VersionRow{"1.4.98", "Windows ME"},
    VersionRow{"2.3.51", "Windows NT 3"}, VersionRow{"2.4.0", "Windows NT 4"},  VersionRow{"2.5.0", "Windows 2000"},
    VersionRow{"2.5.1", "Windows XP"},    VersionRow{"2.6.0", "Windows Vista"}, VersionRow{"2.6.1", "Windows Seven"},
};

constexpr std::array<std::string_view, 5> kOlder{"WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT",
                                                 "WINDOWS XP"};

} // namespace

Text GetWindowsVersion()
{
    const std::string numbers = services().systemFacts->version();
    for (const VersionRow& row : kVersions)
        if (row.numbers == numbers)
            return Text(row.name);
    return "Unknown";
}

bool isOlderSystem(const Text& version) { return std::find(kOlder.begin(), kOlder.end(), version) != kOlder.end(); }

} // namespace tandrel
