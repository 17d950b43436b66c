/// A media player on a bus of the test's own, and a client of the test's own that asks it and listens to it.
#pragma once

#include "platform/dbus/bus_connection.h"
#include "platform/dbus/mpris_remote.h"
#include "private_bus.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace tandrel
{

namespace mpris_bench
{

using namespace std::chrono_literals;
using Kind = RemoteCommand::Kind;
using Playback = RemoteState::Playback;

constexpr const char* kProperties = DBUS_INTERFACE_PROPERTIES;
constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

inline mpris::Facts facts() { return {"A Player", "a-player", {"file", "dvd"}, {"video/mp4", "video/webm"}}; }

inline RemoteState film()
{
    return {.playback = Playback::Paused,
            .medium = 7,
            .title = "a\xFF.mp4",
            .path = "/f/a b.mp4",
            .length = 60s,
            .position = 10s,
            .volume = 0.5,
            .canGoNext = true,
            .canGoPrevious = true,
            .canSeek = true};
}

/// What an iterator stands on, and all behind it, as a text: "s:abc", "v{d:0.5}", "{a=b,c=d}".
inline std::string textOf(DBusMessageIter& at);

inline std::string oneText(DBusMessageIter& at)
{
    const int type = dbus_message_iter_get_arg_type(&at);
    DBusBasicValue value;
    DBusMessageIter inside;
    switch (type) {
    case DBUS_TYPE_VARIANT:
        dbus_message_iter_recurse(&at, &inside);
        return textOf(inside);
    case DBUS_TYPE_ARRAY:
    case DBUS_TYPE_DICT_ENTRY:
        dbus_message_iter_recurse(&at, &inside);
        return (type == DBUS_TYPE_ARRAY ? "[" : "") + textOf(inside) + (type == DBUS_TYPE_ARRAY ? "]" : "");
    default:
        dbus_message_iter_get_basic(&at, &value);
    }
    const std::string front = std::string(1, static_cast<char>(type)) + ":";
    switch (type) {
    case DBUS_TYPE_BOOLEAN:
        return front + (value.bool_val ? "true" : "false");
    case DBUS_TYPE_DOUBLE: {
        std::ostringstream number;
        number << value.dbl;
        return front + number.str();
    }
    case DBUS_TYPE_INT64:
        return front + std::to_string(value.i64);
    case DBUS_TYPE_UINT32:
        return front + std::to_string(value.u32);
    default:
        return front + value.str;
    }
}

inline std::string textOf(DBusMessageIter& at)
{
    std::string all;
    while (dbus_message_iter_get_arg_type(&at) != DBUS_TYPE_INVALID) {
        all += (all.empty() ? "" : " ") + oneText(at);
        dbus_message_iter_next(&at);
    }
    return all;
}

inline std::string textOf(DBusMessage* message)
{
    DBusMessageIter at;
    return dbus_message_iter_init(message, &at) ? textOf(at) : std::string();
}

/// Another program on the bus, which waits for answers while the program itself goes on.
class Client
{
public:
    explicit Client(const QString& address) : bus_(connectTo(address.toStdString()))
    {
        EXPECT_TRUE(bus_ && sayHello(bus_.get()));
        const std::string rule = "type='signal',path='/org/mpris/MediaPlayer2'";
        call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "AddMatch", rule);
    }

    /// The answer's values, or the name of the error. Arguments are texts, numbers, `ObjectPath` and variants of those.
    template <class... Arguments>
    std::string call(const char* to, const char* path, const char* interface, const char* member,
                     Arguments... arguments)
    {
        const MessagePtr message(dbus_message_new_method_call(to, path, interface, member));
        DBusMessageIter at;
        dbus_message_iter_init_append(message.get(), &at);
        (append(at, arguments), ...);
        return answerTo(message.get());
    }
    template <class... Arguments>
    std::string player(const char* member, Arguments... arguments)
    {
        return call(name.c_str(), mpris::kPath, mpris::kPlayerInterface, member, arguments...);
    }
    std::string get(const char* interface, const char* property)
    {
        return call(name.c_str(), mpris::kPath, kProperties, "Get", std::string(interface), std::string(property));
    }
    std::string get(const char* property) { return get(mpris::kPlayerInterface, property); }
    template <class Any>
    std::string set(const char* property, Any value)
    {
        return call(name.c_str(), mpris::kPath, kProperties, "Set", std::string(mpris::kPlayerInterface),
                    std::string(property), Variant<Any>{value});
    }
    bool isThere(const std::string& player)
    {
        return call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "NameHasOwner", player) == "b:true";
    }
    /// What was told so far, "Member values".
    const std::vector<std::string>& heard()
    {
        dbus_connection_read_write(bus_.get(), 0);
        while (const MessagePtr message = takeMessage(bus_.get()))
            note(message.get());
        return heard_;
    }
    void forget() { heard_.clear(); }
    /// A call that nobody waits for.
    void shout(const char* member)
    {
        const MessagePtr message(
            dbus_message_new_method_call(name.c_str(), mpris::kPath, mpris::kPlayerInterface, member));
        dbus_message_set_no_reply(message.get(), true);
        dbus_connection_send(bus_.get(), message.get(), nullptr);
        dbus_connection_read_write(bus_.get(), 0);
    }

    std::string name = mpris::kName;

private:
    template <class Any>
    struct Variant {
        Any value;
    };
    static void append(DBusMessageIter& to, const std::string& text)
    {
        const char* value = text.c_str();
        dbus_message_iter_append_basic(&to, DBUS_TYPE_STRING, &value);
    }
    static void append(DBusMessageIter& to, const mpris::ObjectPath& object)
    {
        const char* value = object.path.c_str();
        dbus_message_iter_append_basic(&to, DBUS_TYPE_OBJECT_PATH, &value);
    }
    static void append(DBusMessageIter& to, std::int64_t number)
    {
        const dbus_int64_t value = number;
        dbus_message_iter_append_basic(&to, DBUS_TYPE_INT64, &value);
    }
    static void append(DBusMessageIter& to, double number)
    {
        dbus_message_iter_append_basic(&to, DBUS_TYPE_DOUBLE, &number);
    }
    template <class Any>
    static void append(DBusMessageIter& to, const Variant<Any>& variant)
    {
        const char* signature = std::is_same_v<Any, double> ? "d" : std::is_same_v<Any, std::int64_t> ? "x" : "s";
        DBusMessageIter inside;
        dbus_message_iter_open_container(&to, DBUS_TYPE_VARIANT, signature, &inside);
        append(inside, variant.value);
        dbus_message_iter_close_container(&to, &inside);
    }

    void note(DBusMessage* message)
    {
        const char* path = dbus_message_get_path(message);
        if (dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_SIGNAL && path && std::string(path) == mpris::kPath)
            heard_.push_back(dbus_message_get_member(message) + std::string(" ") + textOf(message));
    }
    std::string answerTo(DBusMessage* question)
    {
        dbus_uint32_t serial = 0;
        dbus_connection_send(bus_.get(), question, &serial);
        std::optional<std::string> answer;
        comesTrue([&] {
            dbus_connection_read_write(bus_.get(), 0);
            while (const MessagePtr message = takeMessage(bus_.get())) {
                if (dbus_message_get_reply_serial(message.get()) != serial)
                    note(message.get());
                else if (dbus_message_get_type(message.get()) == DBUS_MESSAGE_TYPE_ERROR)
                    answer = dbus_message_get_error_name(message.get());
                else
                    answer = textOf(message.get());
            }
            return answer.has_value();
        });
        return answer.value_or("no answer");
    }

    ConnectionPtr bus_;
    std::vector<std::string> heard_;
};

/// A bus, a player on it that shows a film, and a client.
class Mpris : public testing::Test
{
protected:
    Mpris()
    {
        EXPECT_TRUE(comesTrue([this] { return remote.isHeard(); }));
        remote.publish(film());
        EXPECT_TRUE(comesTrue([this] { return client.get("PlaybackStatus") == "s:Paused"; }));
        client.heard();
        client.forget();
    }
    std::vector<RemoteCommand> taken()
    {
        std::vector<RemoteCommand> all;
        while (const auto command = remote.take())
            all.push_back(*command);
        return all;
    }
    bool told(const std::vector<std::string>& expected)
    {
        return comesTrue([&] { return client.heard().size() >= expected.size(); }) && client.heard() == expected;
    }

    PrivateBus bus;
    MprisRemote remote{facts()};
    Client client{bus.address};
};

} // namespace mpris_bench

} // namespace tandrel
