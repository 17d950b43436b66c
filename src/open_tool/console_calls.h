/// The running console, as seen over the X server.
#pragma once

#include "platform/services.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

struct xcb_connection_t;

namespace tandrel::open_tool
{

struct Console {
    WindowHandle window = 0;
    /// How many calls it has heard.
    std::uint32_t heard = 0;
};

class ConsoleCalls
{
public:
    /// Connects to the display that the environment names.
    ConsoleCalls();
    ~ConsoleCalls();
    ConsoleCalls(const ConsoleCalls&) = delete;

    bool isConnected() const;
    /// A console of one of these processes: the window `first` if it is one, else the first one found.
    std::optional<Console> find(WindowHandle first, const std::vector<long>& processes) const;
    /// Asks it to take its files, and the window manager to bring it to the front.
    void call(const Console& console) const;
    /// It has heard a call since it was found.
    bool hasHeard(const Console& console) const;

private:
    std::uint32_t atom(std::string_view name) const;
    WindowHandle root() const;
    /// 32-bit values of a property.
    std::vector<std::uint32_t> values(WindowHandle window, std::uint32_t property) const;
    std::vector<WindowHandle> candidates() const;
    std::uint32_t serverTime() const;
    void send(WindowHandle to, WindowHandle about, const char* type, std::uint32_t mask,
              const std::vector<std::uint32_t>& data) const;

    xcb_connection_t* display_;
    std::uint32_t listens_ = 0;
};

} // namespace tandrel::open_tool
