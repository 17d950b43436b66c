#include "platform/disc/probing.h"

#include "platform/disc/disc_limits.h"

#include <algorithm>
#include <array>
#include <climits>
#include <dlfcn.h>

namespace tandrel
{

namespace
{
// Scrambled discs leave many sectors alone.
constexpr int kSectorsInProbe = 32;
constexpr double kTicks = 90000;

bool startsWith(std::span<const std::uint8_t> bytes, std::array<std::uint8_t, 4> mark)
{
    return std::equal(mark.begin(), mark.end(), bytes.begin());
}
std::uint64_t numberAt(std::span<const std::uint8_t> bytes, std::size_t place, std::size_t size)
{
    std::uint64_t result = 0;
    for (std::size_t index = 0; index < size; ++index)
        result = result << 8 | bytes[place + index];
    return result;
}

/// Where units of the film begin, evenly spread over it; without their table, any sectors.
std::vector<std::uint32_t> places(const ifo_handle_t& tables, std::uint32_t sectors, int count)
{
    std::vector<std::uint32_t> result;
    const vobu_admap_t* units = tables.vts_vobu_admap;
    const std::uint64_t known =
        units == nullptr || units->vobu_start_sectors == nullptr || units->last_byte + 1 < VOBU_ADMAP_SIZE
            ? 0
            : (units->last_byte + 1 - VOBU_ADMAP_SIZE) / sizeof(std::uint32_t);
    for (int index = 0; index < count; ++index) {
        const auto at = [&](std::uint64_t whole) {
            return whole * (2 * static_cast<std::uint64_t>(index) + 1) / (2 * static_cast<std::uint64_t>(count));
        };
        const auto place = static_cast<std::uint32_t>(known > 0 ? units->vobu_start_sectors[at(known)] : at(sectors));
        if (place < sectors)
            result.push_back(place);
    }
    return result;
}
} // namespace

bool isScrambledSector(std::span<const std::uint8_t> sector)
{
    constexpr std::size_t packHeader = 14;
    constexpr std::size_t kind = packHeader + 3;
    constexpr std::size_t flags = packHeader + 6;
    if (sector.size() < kSectorSize || !startsWith(sector, {0, 0, 1, 0xBA}) || (sector[13] & 7) != 0)
        return false;
    const auto packet = sector.subspan(packHeader);
    const bool isMedia = sector[kind] == 0xBD || (sector[kind] >= 0xC0 && sector[kind] <= 0xEF);
    const bool hasFlags = packet[0] == 0 && packet[1] == 0 && packet[2] == 1 && (sector[flags] & 0xC0) == 0x80;
    return isMedia && hasFlags && (sector[flags] & 0x30) != 0;
}

std::optional<double> pictureLeadOf(std::span<const std::uint8_t> sector)
{
    // The clock in the pack's header, and the first picture's time in the packet that stands at a unit's beginning.
    constexpr std::size_t clock = 4;
    constexpr std::size_t packet = 0x26;
    constexpr std::size_t firstPicture = 0x39;
    if (sector.size() < kSectorSize || !startsWith(sector, {0, 0, 1, 0xBA}) ||
        !startsWith(sector.subspan(packet), {0, 0, 1, 0xBF}) || sector[packet + 6] != 0)
        return {};
    const std::uint64_t bits = numberAt(sector, clock, 6);
    const std::uint64_t ticks = (bits >> 43 & 7) << 30 | (bits >> 27 & 0x7FFF) << 15 | (bits >> 11 & 0x7FFF);
    const double lead = (static_cast<double>(numberAt(sector, firstPicture, 4)) - static_cast<double>(ticks)) / kTicks;
    return lead >= 0 && lead <= kLongestLead ? std::optional(lead) : std::nullopt;
}

void probe(dvd_reader_t* disc, int titleSet, const ifo_handle_t& tables, int count, Probes& found)
{
    dvd_file_t* film = DVDOpenFile(disc, titleSet, DVD_READ_TITLE_VOBS);
    if (film == nullptr)
        return;
    const auto sectors = static_cast<std::uint32_t>(std::clamp<long>(DVDFileSize(film), 0, INT_MAX));
    std::array<std::uint8_t, kSectorSize * kSectorsInProbe> bytes{};
    for (const std::uint32_t place : places(tables, sectors, count)) {
        const auto wanted = std::min<std::size_t>(kSectorsInProbe, sectors - place);
        const auto read = DVDReadBlocks(film, static_cast<int>(place), wanted, bytes.data());
        for (long index = 0; index < std::min<long>(read, kSectorsInProbe); ++index) {
            const auto sector = std::span(bytes).subspan(static_cast<std::size_t>(index) * kSectorSize, kSectorSize);
            found.scrambled = found.scrambled || isScrambledSector(sector);
            if (const auto lead = pictureLeadOf(sector))
                found.pictureLeads.push_back(*lead);
        }
    }
    DVDCloseFile(film);
}

bool canDecrypt()
{
    // By the name that libdvdread looks for.
    void* library = dlopen("libdvdcss.so.2", RTLD_LAZY | RTLD_LOCAL);
    if (library != nullptr)
        dlclose(library);
    return library != nullptr;
}

} // namespace tandrel
