/// A file as the demuxer's library reads it: this file and no other, and no longer than wanted.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <sys/stat.h>

struct AVIOContext;

namespace tandrel
{

/// By what a file is known again.
struct FileMark {
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    /// Of the last change.
    timespec changed{};

    bool operator==(const FileMark& other) const
    {
        return device == other.device && number == other.number && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

/// All zero where there is no regular file.
FileMark markOf(const std::string& path);

class MediaInput
{
public:
    /// Nothing can be read while `refuses` says so.
    MediaInput(const std::string& path, const FileMark& mark, std::function<bool()> refuses);
    ~MediaInput();
    MediaInput(const MediaInput&) = delete;
    MediaInput& operator=(const MediaInput&) = delete;

    /// Null where the file is not there, or is another one by now.
    AVIOContext* context() const { return context_; }
    /// All that was read so far.
    std::int64_t bytesRead() const { return bytesRead_; }

private:
    static int read(void* self, unsigned char* buffer, int size);
    static std::int64_t seek(void* self, std::int64_t offset, int origin);

    const std::function<bool()> refuses_;
    int file_;
    std::int64_t bytesRead_ = 0;
    AVIOContext* context_ = nullptr;
};

} // namespace tandrel
