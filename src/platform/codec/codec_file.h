/// The file of the settings for pictures and sounds.
#pragma once

#include "platform/codec/codec_settings.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace tandrel
{

/// The file beside the program's settings file of this path.
std::string codecFileBeside(const std::string& settingsFile);

/// May be used on any thread. Other processes may write the file at any time.
class CodecFile
{
public:
    /// With an empty path there is no file, and all values are at their standard.
    explicit CodecFile(std::string path) : path_(std::move(path)) {}
    CodecFile(const CodecFile&) = delete;
    CodecFile& operator=(const CodecFile&) = delete;

    /// The values of now; all at their standard where the file is missing, can't be read, is none or longer than 64
    /// KiB. Never waits for anybody at the other end of a pipe. A file that has not changed costs one look at its
    /// facts.
    CodecSettings read();

    /// Stores these values, whole or not at all. False if that failed: what can't be read is not replaced either.
    bool write(const CodecSettings& settings);

private:
    /// What tells one state of the file from another.
    struct Mark {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t size = -1;
        std::int64_t changed = 0;
        std::int64_t modified = 0;
        bool operator==(const Mark&) const = default;
    };
    static Mark markOf(const std::string& path);

    const std::string path_;
    std::mutex mutex_;
    Mark mark_;
    CodecSettings known_;
};

} // namespace tandrel
