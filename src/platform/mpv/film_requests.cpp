#include "platform/mpv/film_requests.h"

#include <cstdio>
#include <utility>

namespace tandrel
{

std::uint64_t FilmRequests::command(std::initializer_list<std::string_view> words)
{
    waiting_.push_back({++last_, {words.begin(), words.end()}});
    return last_;
}

std::uint64_t FilmRequests::set(std::string_view property, bool value)
{
    return command({"set", property, value ? "yes" : "no"});
}

std::uint64_t FilmRequests::set(std::string_view property, double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6f", value);
    return command({"set", property, text});
}

std::uint64_t FilmRequests::ask(std::string_view property, mpv_format format)
{
    waiting_.push_back({++last_, {std::string(property)}, format});
    return last_;
}

std::vector<FilmRequests::Request> FilmRequests::take() { return std::exchange(waiting_, {}); }

void FilmRequests::send(mpv_handle* handle, const std::vector<Request>& requests)
{
    for (const Request& request : requests) {
        if (request.format != MPV_FORMAT_NONE) {
            mpv_get_property_async(handle, request.number, request.words.front().c_str(), request.format);
            continue;
        }
        std::vector<const char*> words;
        for (const std::string& word : request.words)
            words.push_back(word.c_str());
        words.push_back(nullptr);
        mpv_command_async(handle, request.number, words.data());
    }
}

} // namespace tandrel
