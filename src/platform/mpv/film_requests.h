/// What a player of libmpv is to be told, kept until there is time: a call of libmpv may wait for a lock whose owner
/// has lost its processor.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <mpv/client.h>
#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

/// Requests are numbered from 1 on; the answer carries the number.
class FilmRequests
{
public:
    struct Request {
        std::uint64_t number = 0;
        /// A command, or the one word that names a property.
        std::vector<std::string> words;
        /// Of a property that is asked for; none for a command.
        mpv_format format = MPV_FORMAT_NONE;
    };

    std::uint64_t command(std::initializer_list<std::string_view> words);
    std::uint64_t set(std::string_view property, bool value);
    std::uint64_t set(std::string_view property, double value);
    std::uint64_t ask(std::string_view property, mpv_format format);

    /// What has gathered, the oldest first; it is the caller's now.
    std::vector<Request> take();
    static void send(mpv_handle* handle, const std::vector<Request>& requests);

private:
    std::vector<Request> waiting_;
    std::uint64_t last_ = 0;
};

} // namespace tandrel
