/// Copies of the test disc with something wrong about them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace tandrel::test
{

using Bytes = std::vector<char>;
inline constexpr std::size_t kDiscSector = 2048;

inline Bytes readBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::filesystem::path& path, const Bytes& bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Marks the sound and picture sectors as scrambled, every third of them from a third of the image on, as discs do.
inline Bytes scrambled(Bytes image)
{
    for (std::size_t sector = image.size() / kDiscSector / 3; sector < image.size() / kDiscSector; sector += 3) {
        char* const pack = image.data() + sector * kDiscSector;
        const auto at = [&](std::size_t place) { return static_cast<std::uint8_t>(pack[place]); };
        const bool isMedia = at(0x11) == 0xE0 || at(0x11) == 0xBD || at(0x11) == 0xC0;
        if (at(0) == 0 && at(1) == 0 && at(2) == 1 && at(3) == 0xBA && isMedia)
            pack[0x14] = static_cast<char>(at(0x14) | 0x10);
    }
    return image;
}

/// Whole sectors of the film hold anything, as scratches leave them.
inline Bytes scratched(Bytes image, unsigned seed, std::size_t from, std::size_t count)
{
    std::mt19937 random(seed);
    const std::size_t sectors = image.size() / kDiscSector;
    for (std::size_t scratch = 0; scratch < count; ++scratch) {
        const std::size_t sector = from + random() % (sectors - from);
        const bool zeros = random() % 2 == 0;
        for (std::size_t byte = 0; byte < kDiscSector; ++byte)
            image[sector * kDiscSector + byte] = zeros ? '\0' : static_cast<char>(random());
    }
    return image;
}

} // namespace tandrel::test
