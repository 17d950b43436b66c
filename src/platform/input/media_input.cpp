#include "platform/input/media_input.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace tandrel
{

namespace
{
constexpr int kBufferBytes = 64 * 1024;

FileMark markFrom(const struct stat& facts) { return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim}; }
} // namespace

FileMark markOf(const std::string& path)
{
    struct stat facts {
    };
    if (stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return {};
    return markFrom(facts);
}

MediaInput::MediaInput(const std::string& path, const FileMark& mark, std::function<bool()> refuses)
    : refuses_(std::move(refuses)), file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat facts {
    };
    if (file_ < 0 || fstat(file_, &facts) != 0 || !S_ISREG(facts.st_mode) || !(markFrom(facts) == mark))
        return;
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferBytes));
    if (buffer == nullptr)
        return;
    context_ = avio_alloc_context(buffer, kBufferBytes, 0, this, &MediaInput::read, nullptr, &MediaInput::seek);
    if (context_ == nullptr)
        av_free(buffer);
}

MediaInput::~MediaInput()
{
    if (context_ != nullptr)
        av_freep(&context_->buffer);
    avio_context_free(&context_);
    if (file_ >= 0)
        close(file_);
}

int MediaInput::read(void* self, unsigned char* buffer, int size)
{
    auto& input = *static_cast<MediaInput*>(self);
    if (input.refuses_())
        return AVERROR_EXIT;
    const ssize_t count = ::read(input.file_, buffer, static_cast<std::size_t>(size));
    if (count < 0)
        return AVERROR(errno);
    input.bytesRead_ += count;
    return count == 0 ? AVERROR_EOF : static_cast<int>(count);
}

std::int64_t MediaInput::seek(void* self, std::int64_t offset, int origin)
{
    const auto& input = *static_cast<MediaInput*>(self);
    if (input.refuses_())
        return AVERROR_EXIT;
    if ((origin & AVSEEK_SIZE) != 0) {
        struct stat facts {
        };
        return fstat(input.file_, &facts) == 0 ? facts.st_size : AVERROR(errno);
    }
    const off_t place = lseek(input.file_, offset, origin & ~AVSEEK_FORCE);
    return place < 0 ? AVERROR(errno) : place;
}

} // namespace tandrel
