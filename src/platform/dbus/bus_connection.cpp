#include "platform/dbus/bus_connection.h"

#include <cstdlib>
#include <utility>

namespace tandrel
{

namespace
{

/// The answer to a call among what has come, the rest of which is dropped: nothing else is of interest here.
MessagePtr takeAnswer(DBusConnection* bus, dbus_uint32_t call)
{
    while (MessagePtr message = takeMessage(bus))
        if (dbus_message_get_reply_serial(message.get()) == call)
            return message;
    return nullptr;
}

} // namespace

bool Problem::isAnyOf(std::initializer_list<const char*> names) const
{
    for (const char* name : names)
        if (dbus_error_has_name(&error_, name))
            return true;
    return false;
}

std::string sessionBusAddress()
{
    const char* named = std::getenv(kBusAddressVariable);
    return named && *named ? named : "unix:runtime=yes";
}

ConnectionPtr connectTo(const std::string& address)
{
    Problem problem;
    ConnectionPtr bus(dbus_connection_open_private(address.c_str(), problem.get()));
    if (bus)
        dbus_connection_set_exit_on_disconnect(bus.get(), false);
    return bus;
}

MessagePtr takeMessage(DBusConnection* bus) { return MessagePtr(dbus_connection_pop_message(bus)); }

MessagePtr ask(DBusConnection* bus, DBusMessage* question, Problem& problem)
{
    // The library's own way of waiting does not end at a bus that never gets as far as letting anybody in.
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

} // namespace tandrel
