/// Looks at some sectors of a disc's films.
#pragma once

#include <cstdint>
#include <dvdread/dvd_reader.h>
#include <dvdread/ifo_types.h>
#include <optional>
#include <span>
#include <vector>

namespace tandrel
{

inline constexpr std::size_t kSectorSize = 2048;

/// The sector holds a part of a picture, a sound or a subtitle, and says that it is scrambled.
bool isScrambledSector(std::span<const std::uint8_t> sector);

/// How long the pictures of this unit lie ahead of their time, in seconds; empty where the sector begins no unit.
std::optional<double> pictureLeadOf(std::span<const std::uint8_t> sector);

struct Probes {
    bool scrambled = false;
    std::vector<double> pictureLeads;
};

/// Reads at `count` places of the titles in this set, and adds what it finds.
void probe(dvd_reader_t* disc, int titleSet, const ifo_handle_t& tables, int count, Probes& found);

/// A library that decrypts discs is installed.
bool canDecrypt();

} // namespace tandrel
