#include "platform/dbus/session_idle_bus.h"

#include "platform/dbus/bus_connection.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <future>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

namespace
{

constexpr std::chrono::milliseconds kLongestConnect{300};
constexpr const char* kService = "org.freedesktop.ScreenSaver";
// Most desktops know the long path, some older ones the short path only.
constexpr std::array kPaths{"/org/freedesktop/ScreenSaver", "/ScreenSaver"};

MessagePtr screenSaverCall(const char* path, const char* method)
{
    MessagePtr call(dbus_message_new_method_call(kService, path, kService, method));
    // A screen saver that does not run need not be held off, and is not to be started for that.
    if (call)
        dbus_message_set_auto_start(call.get(), false);
    return call;
}

/// A connection is kept as long as a hold: its end gives back what a call could not, and an answer that comes after its
/// time has no receiver.
class SessionIdleBus : public IdleBus
{
public:
    SessionIdleBus(std::string address, std::string application, std::string reason)
        : address_(std::move(address)), application_(std::move(application)), reason_(std::move(reason))
    {
    }

    std::optional<std::uint32_t> inhibit() override
    {
        bus_ = connectTo(address_);
        if (bus_ && !sayHello(bus_.get()))
            bus_.reset();
        for (const char* path : kPaths) {
            path_ = path;
            Problem problem;
            if (const auto cookie = bus_ ? askForHold(problem) : std::nullopt)
                return cookie;
            if (!problem.isAnyOf({DBUS_ERROR_UNKNOWN_OBJECT, DBUS_ERROR_UNKNOWN_METHOD, DBUS_ERROR_UNKNOWN_INTERFACE}))
                break;
        }
        bus_.reset();
        return std::nullopt;
    }

    void uninhibit(std::uint32_t cookie) override
    {
        const MessagePtr call = screenSaverCall(path_, "UnInhibit");
        const dbus_uint32_t ticket = cookie;
        Problem problem;
        if (bus_ && call && dbus_message_append_args(call.get(), DBUS_TYPE_UINT32, &ticket, DBUS_TYPE_INVALID))
            ask(bus_.get(), call.get(), problem);
        bus_.reset();
    }

    bool simulateActivity() override
    {
        const MessagePtr call = screenSaverCall(path_, "SimulateUserActivity");
        if (!bus_ || !call)
            return bus_ != nullptr;
        dbus_message_set_no_reply(call.get(), true);
        dbus_connection_send(bus_.get(), call.get(), nullptr);
        // Does what can be done at once, and learns whether the bus is still there.
        dbus_connection_read_write(bus_.get(), 0);
        while (takeMessage(bus_.get()))
            continue;
        return dbus_connection_get_is_connected(bus_.get());
    }

private:
    std::optional<std::uint32_t> askForHold(Problem& problem)
    {
        const MessagePtr call = screenSaverCall(path_, "Inhibit");
        const char* application = application_.c_str();
        const char* reason = reason_.c_str();
        if (!call || !dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &application, DBUS_TYPE_STRING, &reason,
                                               DBUS_TYPE_INVALID))
            return std::nullopt;
        const MessagePtr answer = ask(bus_.get(), call.get(), problem);
        dbus_uint32_t cookie = 0;
        if (!answer ||
            !dbus_message_get_args(answer.get(), problem.get(), DBUS_TYPE_UINT32, &cookie, DBUS_TYPE_INVALID))
            return std::nullopt;
        return cookie;
    }

    const std::string address_;
    const std::string application_;
    const std::string reason_;
    const char* path_ = kPaths.front();
    ConnectionPtr bus_;
};

} // namespace

std::unique_ptr<IdleBus> makeSessionIdleBus(std::string application, std::string reason)
{
    return std::make_unique<SessionIdleBus>(sessionBusAddress(), std::move(application), std::move(reason));
}

bool sessionBusIsSilent()
{
    // A socket whose queue of callers is full does not even let one wait with an end, so another thread does.
    const auto found = std::make_shared<std::promise<bool>>();
    auto silent = found->get_future();
    const auto call = [found, address = sessionBusAddress()] {
        const ConnectionPtr bus = connectTo(address);
        found->set_value(bus && !sayHello(bus.get()));
    };
    try {
        std::thread(call).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return silent.wait_for(kLongestAnswer + kLongestConnect) != std::future_status::ready || silent.get();
}

void forgetSessionBus()
{
    // No library knows this way to a bus.
    setenv(kBusAddressVariable, "disabled:", 1);
}

} // namespace tandrel
