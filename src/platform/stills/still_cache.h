/// Small pictures kept on the disk, a file each.
#pragma once

#include "platform/input/media_input.h"
#include "platform/services.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tandrel
{

/// Named by path, size and change of the video, so that a changed video has none. Errors of the disk are nothing worse
/// than no cache. One thread at a time; several processes may share a folder.
class StillCache
{
public:
    static constexpr std::size_t kMostFiles = 200;
    static constexpr std::size_t kMostBytes = 4 << 20;

    /// The folder is made when there is something to keep. An empty name keeps nothing.
    explicit StillCache(std::string folder) : folder_(std::move(folder)) {}

    /// Nothing where none is kept, or not the whole of it.
    std::optional<Still> load(const std::string& path, const FileMark& mark) const;
    /// The oldest ones go where there are too many.
    void save(const std::string& path, const FileMark& mark, const Still& still) const;

private:
    std::string nameFor(const std::string& key) const;
    void trim() const;

    const std::string folder_;
};

} // namespace tandrel
