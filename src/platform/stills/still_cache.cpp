#include "platform/stills/still_cache.h"

#include "platform/stills/small_picture.h"
#include "platform/xdg/atomic_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <vector>

namespace tandrel
{

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view kMagic = "TPstill1";
constexpr const char* kEnding = ".still";
constexpr std::size_t kPixelBytes = 3;

/// FNV-1a.
std::uint64_t hashOf(std::string_view bytes)
{
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211ULL;
    return hash;
}

std::string keyOf(const std::string& path, const FileMark& mark)
{
    return path + '\0' + std::to_string(mark.size) + '\0' + std::to_string(mark.changed.tv_sec) + '\0' +
           std::to_string(mark.changed.tv_nsec);
}

void append(std::string& bytes, std::uint64_t number, int count)
{
    for (int place = 0; place < count; ++place)
        bytes.push_back(static_cast<char>(number >> (8 * place) & 255));
}

std::uint64_t take(std::string_view& bytes, std::size_t count)
{
    std::uint64_t number = 0;
    for (std::size_t place = 0; place < count; ++place)
        number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[place])) << (8 * place);
    bytes.remove_prefix(count);
    return number;
}

/// Magic, width, height (2 bytes each), length in ms plus one or 0 (8), the key behind its size (4), pixels as blue,
/// green, red; and the check sum of all that (8). Lowest byte first.
std::string packed(const std::string& key, const Still& still)
{
    std::string bytes(kMagic);
    append(bytes, static_cast<std::uint64_t>(still.width), 2);
    append(bytes, static_cast<std::uint64_t>(still.height), 2);
    append(bytes, still.lengthMs ? static_cast<std::uint64_t>(*still.lengthMs) + 1 : 0, 8);
    append(bytes, key.size(), 4);
    bytes += key;
    for (const std::uint32_t pixel : still.pixels)
        append(bytes, pixel, kPixelBytes);
    append(bytes, hashOf(bytes), 8);
    return bytes;
}

std::optional<Still> unpacked(const std::string& key, std::string_view bytes)
{
    const std::size_t least = kMagic.size() + 2 + 2 + 8 + 4 + key.size() + 8;
    if (bytes.size() < least || !bytes.starts_with(kMagic))
        return {};
    std::string_view sum = bytes.substr(bytes.size() - 8);
    bytes.remove_suffix(8);
    if (take(sum, 8) != hashOf(bytes))
        return {};
    bytes.remove_prefix(kMagic.size());
    Still still;
    still.width = static_cast<int>(take(bytes, 2));
    still.height = static_cast<int>(take(bytes, 2));
    const auto length = static_cast<std::int64_t>(take(bytes, 8));
    if (length > 0)
        still.lengthMs = length - 1;
    const auto keySize = take(bytes, 4);
    const auto pixels = static_cast<std::size_t>(still.width) * static_cast<std::size_t>(still.height);
    if (keySize != key.size() || !bytes.starts_with(key) || bytes.size() != key.size() + kPixelBytes * pixels ||
        still.width > kStillWidth || still.height > kStillHeight)
        return {};
    bytes.remove_prefix(key.size());
    for (std::size_t pixel = 0; pixel < pixels; ++pixel)
        still.pixels.push_back(static_cast<std::uint32_t>(take(bytes, kPixelBytes)));
    return still;
}

struct Kept {
    fs::path name;
    fs::file_time_type written;
    std::uintmax_t bytes = 0;
};

std::vector<Kept> keptIn(const std::string& folder)
{
    std::vector<Kept> kept;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code gone;
        Kept one{entry->path(), entry->last_write_time(gone), entry->file_size(gone)};
        if (!gone && one.name.extension() == kEnding)
            kept.push_back(std::move(one));
    }
    return kept;
}

} // namespace

std::string StillCache::nameFor(const std::string& key) const
{
    std::array<char, 17> number{};
    std::snprintf(number.data(), number.size(), "%016llx", static_cast<unsigned long long>(hashOf(key)));
    return folder_ + "/" + number.data() + kEnding;
}

std::optional<Still> StillCache::load(const std::string& path, const FileMark& mark) const
{
    if (folder_.empty())
        return {};
    const std::string key = keyOf(path, mark);
    const auto bytes = readFile(nameFor(key));
    return bytes ? unpacked(key, *bytes) : std::nullopt;
}

void StillCache::save(const std::string& path, const FileMark& mark, const Still& still) const
{
    if (folder_.empty())
        return;
    std::error_code error;
    fs::create_directories(folder_, error);
    const std::string key = keyOf(path, mark);
    if (replaceFile(nameFor(key), packed(key, still)))
        trim();
}

void StillCache::trim() const
{
    std::vector<Kept> kept = keptIn(folder_);
    std::sort(kept.begin(), kept.end(), [](const Kept& a, const Kept& b) { return a.written > b.written; });
    std::uintmax_t bytes = 0;
    std::size_t count = 0;
    for (const Kept& one : kept) {
        bytes += one.bytes;
        std::error_code ignored;
        if (++count > kMostFiles || bytes > kMostBytes)
            fs::remove(one.name, ignored);
    }
}

} // namespace tandrel
