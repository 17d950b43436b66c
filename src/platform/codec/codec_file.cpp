#include "platform/codec/codec_file.h"

#include "platform/xdg/atomic_file.h"
#include "platform/xdg/turn.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{

constexpr std::int64_t kMostBytes = 64 * 1024;
constexpr std::int64_t kNanoseconds = 1'000'000'000;

std::int64_t moment(const timespec& time) { return time.tv_sec * kNanoseconds + time.tv_nsec; }

} // namespace

std::string codecFileBeside(const std::string& settingsFile)
{
    const auto separator = settingsFile.rfind('/');
    return (separator == std::string::npos ? "" : settingsFile.substr(0, separator + 1)) + "codec.ini";
}

CodecFile::Mark CodecFile::markOf(const std::string& path)
{
    struct stat facts {
    };
    if (path.empty() || ::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size > kMostBytes)
        return {};
    return {facts.st_dev, facts.st_ino, facts.st_size, moment(facts.st_ctim), moment(facts.st_mtim)};
}

CodecSettings CodecFile::read()
{
    const std::lock_guard lock(mutex_);
    const Mark mark = markOf(path_);
    if (mark == mark_)
        return known_;
    known_ = {};
    if (mark.size >= 0) {
        const auto content = readFile(path_);
        if (content && static_cast<std::int64_t>(content->size()) <= kMostBytes)
            known_ = readCodecSettings(*content);
    }
    // A file that was replaced during the reading has another mark at the next question.
    mark_ = mark;
    return known_;
}

bool CodecFile::write(const CodecSettings& settings)
{
    if (path_.empty())
        return false;
    const std::lock_guard lock(mutex_);
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
    const Turn turn(::open((path_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    struct stat facts {
    };
    const bool isThere = ::stat(path_.c_str(), &facts) == 0;
    if (isThere && markOf(path_).size < 0)
        return false;
    const auto content = isThere ? readFile(path_) : std::string();
    return content && replaceFile(path_, writeCodecSettings(settings, *content));
}

} // namespace tandrel
