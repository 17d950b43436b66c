/// Connections to the session bus by the bus's own library, for threads that may wait a few seconds.
#pragma once

#include <chrono>
#include <dbus/dbus.h>
#include <initializer_list>
#include <memory>
#include <string>

namespace tandrel
{

inline constexpr const char* kBusAddressVariable = "DBUS_SESSION_BUS_ADDRESS";
/// How long anybody is waited for.
inline constexpr std::chrono::milliseconds kLongestAnswer{2000};

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

/// An error as the library tells it.
class Problem
{
public:
    Problem() { dbus_error_init(&error_); }
    ~Problem() { dbus_error_free(&error_); }
    Problem(const Problem&) = delete;
    Problem& operator=(const Problem&) = delete;
    DBusError* get() { return &error_; }
    bool isAnyOf(std::initializer_list<const char*> names) const;

private:
    DBusError error_;
};

/// The bus that the environment names at this moment, else the socket of the user's own in the runtime folder.
std::string sessionBusAddress();

/// Null where nobody listens. Hangs where the queue of callers is full.
ConnectionPtr connectTo(const std::string& address);

/// Makes a connection known to its bus, which has to come first. False where that lets nobody in.
bool sayHello(DBusConnection* bus);

/// Null where none is left.
MessagePtr takeMessage(DBusConnection* bus);

/// The answer to a question; null, with the problem, if it is an error, and without one if it does not come in time.
/// Whatever else comes meanwhile is dropped.
MessagePtr ask(DBusConnection* bus, DBusMessage* question, Problem& problem);

} // namespace tandrel
