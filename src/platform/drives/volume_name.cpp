#include "platform/drives/volume_name.h"

#include <array>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace tandrel
{

namespace
{
constexpr std::size_t kSectorBytes = 2048;
using Sector = std::array<unsigned char, kSectorBytes>;

// ISO 9660: descriptors from this sector on, the first of which is the volume's.
constexpr std::uint32_t kIsoVolume = 16;
constexpr unsigned char kIsoPrimary = 1;
constexpr std::size_t kIsoName = 40;
constexpr std::size_t kNameBytes = 32;

// UDF: an anchor at this sector tells where the descriptors are.
constexpr std::uint32_t kUdfAnchor = 256;
constexpr unsigned kTagPrimary = 1;
constexpr unsigned kTagAnchor = 2;
constexpr unsigned kTagEnd = 8;
constexpr std::size_t kUdfName = 24;
// No disc has more descriptors; a damaged one may say so.
constexpr std::uint32_t kMostDescriptors = 32;

class Volume
{
public:
    explicit Volume(const std::string& path) : file_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~Volume()
    {
        if (file_ >= 0)
            ::close(file_);
    }
    Volume(const Volume&) = delete;
    Volume& operator=(const Volume&) = delete;

    std::optional<Sector> read(std::uint32_t number) const
    {
        Sector sector{};
        const auto place = static_cast<off_t>(number) * static_cast<off_t>(kSectorBytes);
        const bool whole =
            file_ >= 0 && pread(file_, sector.data(), sector.size(), place) == static_cast<ssize_t>(sector.size());
        return whole ? std::optional(sector) : std::nullopt;
    }

private:
    int file_;
};

unsigned tagOf(const Sector& sector) { return sector[0] | static_cast<unsigned>(sector[1]) << 8; }

std::uint32_t wordAt(const Sector& sector, std::size_t place)
{
    std::uint32_t word = 0;
    for (std::size_t byte = 0; byte < 4; ++byte)
        word |= static_cast<std::uint32_t>(sector[place + byte]) << (8 * byte);
    return word;
}

void append(std::string& text, unsigned character)
{
    if (character == 0 || (character >= 0xD800 && character < 0xE000))
        character = '?';
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

std::string trimmed(std::string text)
{
    const auto last = text.find_last_not_of(' ');
    text.resize(last == std::string::npos ? 0 : last + 1);
    return text;
}

/// A field whose first byte tells the bits of a character, and whose last one the bytes that are used.
std::string udfText(const unsigned char* field)
{
    const unsigned bits = field[0];
    const std::size_t used = field[kNameBytes - 1];
    if ((bits != 8 && bits != 16) || used < 1 || used >= kNameBytes)
        return {};
    std::string text;
    const std::size_t step = bits / 8;
    for (std::size_t place = 1; place + step <= used; place += step)
        append(text, step == 1 ? field[place] : static_cast<unsigned>(field[place]) << 8 | field[place + 1]);
    return trimmed(text);
}

std::string udfName(const Volume& volume)
{
    const auto anchor = volume.read(kUdfAnchor);
    if (!anchor || tagOf(*anchor) != kTagAnchor)
        return {};
    const std::uint32_t count = wordAt(*anchor, 16) / static_cast<std::uint32_t>(kSectorBytes);
    const std::uint32_t first = wordAt(*anchor, 20);
    for (std::uint32_t index = 0; index < count && index < kMostDescriptors; ++index) {
        const auto sector = volume.read(first + index);
        if (!sector || tagOf(*sector) == kTagEnd)
            return {};
        if (tagOf(*sector) == kTagPrimary)
            return udfText(sector->data() + kUdfName);
    }
    return {};
}

std::string isoName(const Volume& volume)
{
    const auto sector = volume.read(kIsoVolume);
    if (!sector || (*sector)[0] != kIsoPrimary ||
        std::string_view(reinterpret_cast<const char*>(sector->data()) + 1, 5) != "CD001")
        return {};
    std::string text;
    for (std::size_t place = kIsoName; place < kIsoName + kNameBytes; ++place)
        append(text, (*sector)[place] == 0 ? ' ' : (*sector)[place]);
    return trimmed(text);
}
} // namespace

std::string volumeNameOf(const std::string& path)
{
    const Volume volume(path);
    const std::string name = udfName(volume);
    return name.empty() ? isoName(volume) : name;
}

} // namespace tandrel
