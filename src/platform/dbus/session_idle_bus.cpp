#include "platform/dbus/session_idle_bus.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <dbus/dbus.h>
#include <future>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

namespace
{

constexpr std::chrono::milliseconds kLongestAnswer{2000};
constexpr std::chrono::milliseconds kLongestConnect{300};
constexpr const char* kAddressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* kService = "org.freedesktop.ScreenSaver";
// Most desktops know the long path, some older ones the short path only.
constexpr std::array kPaths{"/org/freedesktop/ScreenSaver", "/ScreenSaver"};

struct MessageEnd {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using MessagePtr = std::unique_ptr<DBusMessage, MessageEnd>;

struct ConnectionEnd {
    void operator()(DBusConnection* connection) const
    {
        dbus_connection_close(connection);
        dbus_connection_unref(connection);
    }
};
using ConnectionPtr = std::unique_ptr<DBusConnection, ConnectionEnd>;

class Problem
{
public:
    Problem() { dbus_error_init(&error_); }
    ~Problem() { dbus_error_free(&error_); }
    Problem(const Problem&) = delete;
    Problem& operator=(const Problem&) = delete;
    DBusError* get() { return &error_; }
    bool isAnyOf(std::initializer_list<const char*> names) const
    {
        for (const char* name : names)
            if (dbus_error_has_name(&error_, name))
                return true;
        return false;
    }

private:
    DBusError error_;
};

std::string sessionBusAddress()
{
    const char* named = std::getenv(kAddressVariable);
    // The socket of the user's own bus, in the runtime folder.
    return named && *named ? named : "unix:runtime=yes";
}

MessagePtr takeMessage(DBusConnection* bus) { return MessagePtr(dbus_connection_pop_message(bus)); }

/// The answer to a call among what has come, the rest of which is dropped: nothing else is of interest here.
MessagePtr takeAnswer(DBusConnection* bus, dbus_uint32_t call)
{
    while (MessagePtr message = takeMessage(bus))
        if (dbus_message_get_reply_serial(message.get()) == call)
            return message;
    return nullptr;
}

/// The answer to a question; null, with the problem, if it is an error, and without one if it does not come. The
/// library's own way of waiting does not end at a bus that never gets as far as letting anybody in.
MessagePtr ask(DBusConnection* bus, DBusMessage* question, Problem& problem)
{
    using Clock = std::chrono::steady_clock;
    dbus_uint32_t call = 0;
    if (!dbus_connection_send(bus, question, &call))
        return nullptr;
    const auto end = Clock::now() + kLongestAnswer;
    MessagePtr answer;
    for (auto now = Clock::now(); !answer && now < end && dbus_connection_get_is_connected(bus); now = Clock::now()) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - now);
        dbus_connection_read_write(bus, static_cast<int>(rest.count()));
        answer = takeAnswer(bus, call);
    }
    return answer && !dbus_set_error_from_message(problem.get(), answer.get()) ? std::move(answer) : nullptr;
}

/// Makes this connection known to the bus, which has to come first.
bool sayHello(DBusConnection* bus)
{
    const MessagePtr hello(
        dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "Hello"));
    Problem problem;
    const MessagePtr answer = hello ? ask(bus, hello.get(), problem) : nullptr;
    const char* name = nullptr;
    if (!answer || !dbus_message_get_args(answer.get(), problem.get(), DBUS_TYPE_STRING, &name, DBUS_TYPE_INVALID))
        return false;
    return dbus_bus_set_unique_name(bus, name);
}

ConnectionPtr connectTo(const std::string& address)
{
    Problem problem;
    ConnectionPtr bus(dbus_connection_open_private(address.c_str(), problem.get()));
    if (bus)
        dbus_connection_set_exit_on_disconnect(bus.get(), false);
    return bus;
}

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
    setenv(kAddressVariable, "disabled:", 1);
}

} // namespace tandrel
