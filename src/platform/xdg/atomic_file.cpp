#include "platform/xdg/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{

constexpr std::size_t kMostBytes = 4U << 20;

class Descriptor
{
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    int get() const { return fd_; }
    bool close()
    {
        const int fd = fd_;
        fd_ = -1;
        return fd < 0 || ::close(fd) == 0;
    }

private:
    int fd_;
};

bool writeAll(int fd, const std::string& content)
{
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t written = ::write(fd, content.data() + done, content.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

/// An empty file to write the new content to, with the permissions of the old file if there is one.
int openBeside(const std::string& beside, const std::string& path)
{
    // A crash may have left one of that name, from an earlier process of the same number.
    ::unlink(beside.c_str());
    const int fd = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    struct stat old {
    };
    // Not every file system has permissions to set; that hinders no write.
    if (fd >= 0 && ::stat(path.c_str(), &old) == 0)
        ::fchmod(fd, old.st_mode & 0777);
    return fd;
}

/// The new name reaches the disk, so that a crash from here on leaves the new file. Before, it leaves either.
void syncFolderOf(const std::string& path)
{
    const auto folder = std::filesystem::path(path).parent_path();
    const Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.get() >= 0)
        ::fsync(opened.get());
}

} // namespace

bool replaceFile(const std::string& name, const std::string& content)
{
    // A link stays a link: what it leads to is replaced.
    std::error_code noSuchFile;
    const auto real = std::filesystem::canonical(name, noSuchFile);
    const std::string path = noSuchFile ? name : real.string();
    const std::string beside = path + ".new-" + std::to_string(getpid());
    Descriptor file(openBeside(beside, path));
    if (file.get() < 0)
        return false;
    const bool written = writeAll(file.get(), content) && ::fsync(file.get()) == 0;
    if (file.close() && written && std::rename(beside.c_str(), path.c_str()) == 0) {
        syncFolderOf(path);
        return true;
    }
    ::unlink(beside.c_str());
    return false;
}

std::optional<std::string> readFile(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {
    };
    if (file.get() < 0 || ::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return std::nullopt;
    std::string content;
    char block[16384];
    for (;;) {
        const ssize_t got = ::read(file.get(), block, sizeof block);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        content.append(block, static_cast<std::size_t>(got));
        if (content.size() > kMostBytes)
            return std::nullopt;
    }
    return content;
}

std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

} // namespace tandrel
