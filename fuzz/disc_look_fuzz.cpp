// Looks at the test disc with bytes of its tables changed, or the tables cut: as a folder, and as an image. Whatever is
// on the disc, a look comes back in time, with facts that a disc may have. Says at the end how the looks have ended.
#include "platform/disc/disc_look.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{
using Bytes = std::vector<char>;
namespace fs = std::filesystem;

// The file systems of the image and, behind them, its tables.
constexpr std::size_t kBeginOfImage = 1 << 20;
constexpr std::chrono::milliseconds kLongest{1000};
constexpr std::array<const char*, 2> kTables{"VIDEO_TS", "VTS_01_0"};

Bytes readBytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeBytes(const fs::path& path, const Bytes& bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// The disc that is spoilt, in a folder that goes with the process.
class Disc
{
public:
    Disc()
    {
        std::string name = (fs::temp_directory_path() / "disc-look-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        folder_ = name;
        fs::copy(fs::path(TANDREL_TEST_DISC) / "disc", folder_, fs::copy_options::recursive);
        fs::copy_file(fs::path(TANDREL_TEST_DISC) / "disc.iso", image());
        for (std::size_t index = 0; index < kTables.size(); ++index)
            tables_[index] = readBytes(table(index, ".IFO"));
        begin_ = readBytes(image());
        begin_.resize(kBeginOfImage);
    }
    ~Disc()
    {
        std::printf("looks: %ld read, %ld died, %ld took too long; %ld saw titles\n", ends_[0], ends_[1], ends_[2],
                    withTitles_);
        std::error_code problem;
        fs::remove_all(folder_, problem);
    }

    fs::path image() const { return folder_ / "disc.iso"; }
    fs::path table(std::size_t index, const char* kind) const
    {
        return folder_ / "VIDEO_TS" / (std::string(kTables[index]) + kind);
    }
    void lookAt(const fs::path& path);

    fs::path folder_;
    std::array<Bytes, 2> tables_;
    Bytes begin_;

private:
    std::array<long, 3> ends_{};
    long withTitles_ = 0;
};

void Disc::lookAt(const fs::path& path)
{
    const auto begin = std::chrono::steady_clock::now();
    const tandrel::DiscLook look = tandrel::lookAtDiscFor(path.string(), kLongest);
    if (std::chrono::steady_clock::now() - begin > kLongest + std::chrono::milliseconds(500))
        std::abort();
    ++ends_[static_cast<std::size_t>(look.end)];
    withTitles_ += look.facts.titles.empty() ? 0 : 1;
    if (look.end != tandrel::DiscLook::End::Read && !look.facts.titles.empty())
        std::abort();
    for (const auto& title : look.facts.titles)
        if (!std::isfinite(title.seconds) || title.seconds < 0 || title.chapters < 0 || title.chapters > 999 ||
            title.chapterMarks.size() > static_cast<std::size_t>(title.chapters))
            std::abort();
}

struct Change {
    std::size_t place;
    char value;
};

Change changeAt(const std::uint8_t* data)
{
    return {static_cast<std::size_t>(data[0]) << 8 | data[1], static_cast<char>(data[2])};
}

void spoil(Bytes& bytes, const std::uint8_t* data, std::size_t size)
{
    for (; size >= 3; data += 3, size -= 3)
        bytes[changeAt(data).place % bytes.size()] = changeAt(data).value;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Disc disc;
    if (size < 4)
        return 0;
    const std::uint8_t way = data[0];
    if (way % 8 == 7) {
        Bytes begin = disc.begin_;
        // The places reach over 64 KB, at one of sixteen distances.
        Bytes part(begin.begin() + (way >> 4) * 0x10000, begin.begin() + (way >> 4) * 0x10000 + 0x10000);
        spoil(part, data + 1, size - 1);
        std::copy(part.begin(), part.end(), begin.begin() + (way >> 4) * 0x10000);
        std::fstream(disc.image(), std::ios::binary | std::ios::in | std::ios::out)
            .write(begin.data(), static_cast<std::streamsize>(begin.size()));
        disc.lookAt(disc.image());
        return 0;
    }
    const std::size_t index = way & 1;
    Bytes table = disc.tables_[index];
    spoil(table, data + 1, size - 1);
    if (way % 8 == 6)
        table.resize(changeAt(data + 1).place % table.size());
    for (const char* kind : {".IFO", ".BUP"})
        writeBytes(disc.table(index, kind), table);
    disc.lookAt(disc.folder_);
    for (const char* kind : {".IFO", ".BUP"})
        writeBytes(disc.table(index, kind), disc.tables_[index]);
    return 0;
}
