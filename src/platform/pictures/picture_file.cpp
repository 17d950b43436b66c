#include "platform/pictures/picture_file.h"

#include "platform/pictures/picture_names.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace tandrel
{

namespace
{

constexpr int kMostOfOneName = 999;
// How files begin that are being written.
constexpr const char* kBeside = ".picture-";
// What is older is left from a program that came to a sudden end.
constexpr std::chrono::hours kLongestWriting{1};

PictureTrouble troubleOf(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EFBIG ? PictureTrouble::NoRoom : PictureTrouble::Folder;
}

bool writeAll(int file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t count = ::write(file, content.data(), content.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count == 0)
            errno = EIO;
        if (count <= 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    // What the disk has not taken yet may still find no room.
    return ::fsync(file) == 0 || errno == EINVAL;
}

/// A new file of a name that nobody has, open for writing.
int openBeside(const std::string& folder, std::string& path)
{
    static std::atomic<int> number = 0;
    for (int tries = 0; tries < kMostOfOneName; ++tries) {
        path = folder + "/" + kBeside + std::to_string(::getpid()) + "-" + std::to_string(++number);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        // One may be left from a process that has had the same number.
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

/// A file beside the one to come. Empty, with `errno` set, where there can be none.
std::string writeBeside(const std::string& folder, std::string_view content)
{
    std::string path;
    const int file = openBeside(folder, path);
    if (file < 0)
        return {};
    const bool written = writeAll(file, content);
    const int error = errno;
    const bool closed = ::close(file) == 0;
    if (written && closed)
        return path;
    const int last = written ? errno : error;
    ::unlink(path.c_str());
    errno = last;
    return {};
}

/// Gives the file its name without taking another's place. Some file systems have no links: there the name is looked at
/// first.
bool giveName(const std::string& from, const std::string& to)
{
    if (::link(from.c_str(), to.c_str()) == 0) {
        ::unlink(from.c_str());
        return true;
    }
    if (errno == EEXIST)
        return false;
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(to, ignored))) {
        errno = EEXIST;
        return false;
    }
    return ::rename(from.c_str(), to.c_str()) == 0;
}

/// One name after the other, until there is one that nobody has. Empty, with `errno` set, where there can be none.
std::string nameWhole(const std::string& beside, const std::string& folder, const std::string& name,
                      const std::string& ending)
{
    for (int number = 1; number <= kMostOfOneName; ++number) {
        const std::string more = number == 1 ? "" : " (" + std::to_string(number) + ")";
        const std::string path = folder + "/" + name + more + ending;
        if (giveName(beside, path))
            return path;
        if (errno != EEXIST)
            break;
    }
    return {};
}

} // namespace

void removeLeftPictures(const std::string& folder)
{
    const auto now = std::filesystem::file_time_type::clock::now();
    std::error_code ignored;
    std::filesystem::directory_iterator one(folder, ignored);
    for (const std::filesystem::directory_iterator end; !ignored && one != end; one.increment(ignored)) {
        if (!one->path().filename().native().starts_with(kBeside))
            continue;
        std::error_code failed;
        const auto written = one->last_write_time(failed);
        if (!failed && now - written > kLongestWriting)
            ::unlink(one->path().c_str());
    }
}

WrittenPicture writePicture(const std::string& folder, const std::string& name, const std::string& ending,
                            std::string_view content)
{
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    if (failed)
        return {troubleOf(failed.value()), {}};
    const std::string beside = writeBeside(folder, content);
    if (beside.empty())
        return {troubleOf(errno), {}};
    std::string path = nameWhole(beside, folder, name, ending);
    // File systems of other systems refuse some names.
    if (path.empty() && errno == EINVAL)
        path = nameWhole(beside, folder, nameForAll(name), ending);
    if (!path.empty())
        return {PictureTrouble::None, path};
    const int error = errno;
    ::unlink(beside.c_str());
    return {troubleOf(error), {}};
}

} // namespace tandrel
