// The interface for media players, asked and listened to by a client of the test's own on a bus of the test's own.
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

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

using namespace std::chrono_literals;
using Kind = RemoteCommand::Kind;
using Playback = RemoteState::Playback;

constexpr const char* kProperties = DBUS_INTERFACE_PROPERTIES;
constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

mpris::Facts facts() { return {"A Player", "a-player", {"file", "dvd"}, {"video/mp4", "video/webm"}}; }

RemoteState film()
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
std::string textOf(DBusMessageIter& at);

std::string oneText(DBusMessageIter& at)
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

std::string textOf(DBusMessageIter& at)
{
    std::string all;
    while (dbus_message_iter_get_arg_type(&at) != DBUS_TYPE_INVALID) {
        all += (all.empty() ? "" : " ") + oneText(at);
        dbus_message_iter_next(&at);
    }
    return all;
}

std::string textOf(DBusMessage* message)
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

} // namespace

TEST_F(Mpris, TellsWhatItIs)
{
    const auto root = [this](const char* name) { return client.get(mpris::kRootInterface, name); };
    EXPECT_EQ(root("Identity"), "s:A Player");
    EXPECT_EQ(root("DesktopEntry"), "s:a-player");
    EXPECT_EQ(root("SupportedUriSchemes"), "[s:file s:dvd]");
    EXPECT_EQ(root("SupportedMimeTypes"), "[s:video/mp4 s:video/webm]");
    for (const char* can : {"CanQuit", "CanRaise"})
        EXPECT_EQ(root(can), "b:true") << can;
    EXPECT_EQ(root("HasTrackList"), "b:false");
    EXPECT_EQ(
        client.call(client.name.c_str(), mpris::kPath, kProperties, "GetAll", std::string(mpris::kRootInterface)),
        "[s:CanQuit b:true s:CanRaise b:true s:HasTrackList b:false s:Identity s:A Player s:DesktopEntry s:a-player "
        "s:SupportedUriSchemes [s:file s:dvd] s:SupportedMimeTypes [s:video/mp4 s:video/webm]]");
}

TEST_F(Mpris, TellsWhatIsSelected)
{
    EXPECT_EQ(client.get("Metadata"), "[s:mpris:trackid o:/tandrel_player/medium/7 s:mpris:length x:60000000 "
                                      "s:xesam:title s:a?.mp4 s:xesam:url s:file:///f/a%20b.mp4]");
    EXPECT_EQ(client.get("Position"), "x:10000000");
    EXPECT_EQ(client.get("Volume"), "d:0.5");
    for (const char* rate : {"Rate", "MinimumRate", "MaximumRate"})
        EXPECT_EQ(client.get(rate), "d:1") << rate;
    for (const char* can : {"CanGoNext", "CanGoPrevious", "CanPlay", "CanPause", "CanSeek", "CanControl"})
        EXPECT_EQ(client.get(can), "b:true") << can;
    const std::string all =
        client.call(client.name.c_str(), mpris::kPath, kProperties, "GetAll", std::string(mpris::kPlayerInterface));
    EXPECT_THAT(all, HasSubstr("s:PlaybackStatus s:Paused"));
    EXPECT_THAT(all, HasSubstr("s:Position x:10000000"));
    remote.publish({});
    EXPECT_TRUE(comesTrue([this] { return client.get("CanPlay") == "b:false"; }));
    EXPECT_EQ(client.get("Metadata"), "[s:mpris:trackid o:" + std::string(kNoTrack) + "]");
    EXPECT_EQ(client.get("PlaybackStatus"), "s:Stopped");
}

TEST_F(Mpris, ThePlaceGoesOnWhileItPlays)
{
    RemoteState state = film();
    state.playback = Playback::Playing;
    remote.publish(state);
    const auto place = [this] { return std::stoll(client.get("Position").substr(2)); };
    EXPECT_TRUE(comesTrue([&] { return place() > 10500000; }));
    state.length = 11s;
    remote.publish(state);
    EXPECT_TRUE(comesTrue([&] { return place() == 11000000; })) << "not behind the end";
}

TEST_F(Mpris, CommandsArriveInTheirOrder)
{
    int calls = 0;
    remote.called = [&] { ++calls; };
    for (const char* member : {"Play", "Pause", "PlayPause", "Stop", "Next", "Previous"})
        EXPECT_EQ(client.player(member), "") << member;
    EXPECT_EQ(client.player("Seek", std::int64_t(-5000000)), "");
    EXPECT_EQ(client.player("SetPosition", mpris::ObjectPath{"/tandrel_player/medium/7"}, std::int64_t(3000000)), "");
    EXPECT_EQ(client.set("Volume", 0.25), "");
    EXPECT_EQ(client.player("OpenUri", std::string("file:///f/%FF%20b.mp4")), "");
    EXPECT_EQ(client.player("OpenUri", std::string("dvd://")), "");
    EXPECT_EQ(client.set("Rate", 0.0), "");
    EXPECT_TRUE(comesTrue([&] { return calls > 0; }));
    EXPECT_THAT(taken(), ElementsAre(RemoteCommand{.kind = Kind::Play}, RemoteCommand{.kind = Kind::Pause},
                                     RemoteCommand{.kind = Kind::PlayPause}, RemoteCommand{.kind = Kind::Stop},
                                     RemoteCommand{.kind = Kind::Next}, RemoteCommand{.kind = Kind::Previous},
                                     RemoteCommand{.kind = Kind::Seek, .time = -5s},
                                     RemoteCommand{.kind = Kind::SetPosition, .time = 3s, .medium = 7},
                                     RemoteCommand{.kind = Kind::Volume, .level = 0.25},
                                     RemoteCommand{.kind = Kind::Open, .path = "/f/\xFF b.mp4"},
                                     RemoteCommand{.kind = Kind::OpenDisc}, RemoteCommand{.kind = Kind::Pause}));
    EXPECT_EQ(client.call(client.name.c_str(), mpris::kPath, mpris::kRootInterface, "Raise"), "");
    EXPECT_EQ(client.call(client.name.c_str(), mpris::kPath, mpris::kRootInterface, "Quit"), "");
    EXPECT_EQ(remote.takeUrgent(), RemoteCommand{.kind = Kind::Raise});
    EXPECT_EQ(remote.takeUrgent(), RemoteCommand{.kind = Kind::Quit});
}

TEST_F(Mpris, WhatMakesNoSenseIsAnsweredAndForgotten)
{
    EXPECT_EQ(client.player("SetPosition", mpris::ObjectPath{kNoTrack}, std::int64_t(1)), "");
    EXPECT_EQ(client.player("SetPosition", mpris::ObjectPath{"/"}, std::int64_t(1)), "");
    EXPECT_EQ(client.set("Volume", std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(client.set("Volume", std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(client.set("Rate", 2.0), "");
    EXPECT_EQ(client.set("Rate", std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(Mpris, WrongCallsAreErrors)
{
    const char* name = client.name.c_str();
    const std::string text = "text";
    EXPECT_EQ(client.player("Play", text), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.player("Seek"), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.player("Seek", 1.0), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.player("SetPosition", text, std::int64_t(1)), DBUS_ERROR_INVALID_ARGS);
    for (const char* address : {"", "/f/a.mp4", "http://h/a.mp4", "file://elsewhere.invalid/a", "dvd:///dev/sr0"})
        EXPECT_EQ(client.player("OpenUri", std::string(address)), DBUS_ERROR_INVALID_ARGS) << address;
    EXPECT_EQ(client.player("Dance"), DBUS_ERROR_UNKNOWN_METHOD);
    EXPECT_EQ(client.call(name, mpris::kPath, "org.mpris.MediaPlayer2.TrackList", "AddTrack"),
              DBUS_ERROR_UNKNOWN_INTERFACE);
    EXPECT_EQ(client.call(name, "/elsewhere", mpris::kPlayerInterface, "Play"), DBUS_ERROR_UNKNOWN_OBJECT);
    EXPECT_EQ(client.get("Dance"), DBUS_ERROR_UNKNOWN_PROPERTY);
    EXPECT_EQ(client.get(mpris::kRootInterface, "Volume"), DBUS_ERROR_UNKNOWN_PROPERTY);
    EXPECT_EQ(client.get("org.example.None", "Volume"), DBUS_ERROR_UNKNOWN_INTERFACE);
    EXPECT_EQ(client.call(name, mpris::kPath, kProperties, "Get", text), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.call(name, mpris::kPath, kProperties, "GetAll", std::string("org.example.None")),
              DBUS_ERROR_UNKNOWN_INTERFACE);
    EXPECT_EQ(client.set("Volume", text), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.set("Volume", std::int64_t(1)), DBUS_ERROR_INVALID_ARGS);
    EXPECT_EQ(client.set("Metadata", text), DBUS_ERROR_PROPERTY_READ_ONLY);
    EXPECT_EQ(client.set("Position", std::int64_t(1)), DBUS_ERROR_PROPERTY_READ_ONLY);
    EXPECT_EQ(client.set("Dance", 1.0), DBUS_ERROR_UNKNOWN_PROPERTY);
    EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(Mpris, ItIsDescribed)
{
    const char* name = client.name.c_str();
    const auto at = [&](const char* path) {
        return client.call(name, path, DBUS_INTERFACE_INTROSPECTABLE, "Introspect");
    };
    EXPECT_THAT(at("/"), HasSubstr("<node name=\"org\"/>"));
    EXPECT_THAT(at("/org/mpris"), HasSubstr("<node name=\"MediaPlayer2\"/>"));
    EXPECT_EQ(at("/org/mp"), DBUS_ERROR_UNKNOWN_OBJECT);
    const std::string own = at(mpris::kPath);
    for (const mpris::Property& property : mpris::playerProperties({}))
        EXPECT_THAT(own, HasSubstr("<property name=\"" + std::string(property.name) + "\""));
    for (const mpris::Property& property : mpris::rootProperties({}))
        EXPECT_THAT(own, HasSubstr("<property name=\"" + std::string(property.name) + "\""));
    EXPECT_EQ(client.call(name, mpris::kPath, DBUS_INTERFACE_PEER, "Ping"), "");
    EXPECT_EQ(client.call(name, "/", DBUS_INTERFACE_PEER, "Ping"), "");
    EXPECT_EQ(client.call(name, mpris::kPath, nullptr, "Next"), "") << "the interface need not be named";
}

TEST_F(Mpris, OnlyWhatHasChangedIsTold)
{
    RemoteState state = film();
    remote.publish(state);
    state.volume = 0.75;
    remote.publish(state);
    const std::string front = "PropertiesChanged s:org.mpris.MediaPlayer2.Player ";
    EXPECT_TRUE(told({front + "[s:Volume d:0.75] []"}));
    client.forget();
    state.playback = Playback::Playing;
    state.canGoNext = false;
    remote.publish(state);
    EXPECT_TRUE(told({front + "[s:PlaybackStatus s:Playing s:CanGoNext b:false] []"}));
}

TEST_F(Mpris, JumpsAreTold)
{
    RemoteState state = film();
    state.position = 10500ms;
    remote.publish(state);
    state.position = 30s;
    remote.publish(state);
    EXPECT_TRUE(told({"Seeked x:30000000"}));
    client.forget();
    state.moves = 1;
    remote.publish(state);
    EXPECT_TRUE(told({"Seeked x:30000000"})) << "it was asked for, and stands there";
}

TEST_F(Mpris, AFloodOfCallsLeavesAFew)
{
    for (int i = 0; i < 20000; ++i)
        client.shout(i % 2 == 0 ? "Next" : "Previous");
    EXPECT_EQ(client.get("PlaybackStatus"), "s:Paused");
    EXPECT_EQ(taken().size(), 32U);
}

TEST_F(Mpris, ASecondPlayerHasANameOfItsOwn)
{
    std::optional<MprisRemote> second(std::in_place, facts());
    EXPECT_TRUE(comesTrue([&] { return second->isHeard(); }));
    RemoteState state = film();
    state.title = "second";
    second->publish(state);
    client.name = std::string(mpris::kName) + ".instance" + std::to_string(::getpid());
    EXPECT_TRUE(comesTrue([&] { return client.get("Metadata").find("second") != std::string::npos; }));
    client.player("Next");
    EXPECT_EQ(second->take(), RemoteCommand{.kind = Kind::Next});
    EXPECT_THAT(taken(), IsEmpty());
    second.reset();
    EXPECT_TRUE(comesTrue([&] { return !client.isThere(client.name); }));
    EXPECT_TRUE(client.isThere(mpris::kName));
}

TEST_F(Mpris, ABusThatDiesHurtsNobody)
{
    int calls = 0;
    remote.called = [&] { ++calls; };
    bus.end();
    EXPECT_TRUE(comesTrue([&] { return !remote.isHeard() && calls > 0; }));
    remote.publish({});
    EXPECT_FALSE(remote.take());
}

TEST(MprisAlone, WithoutABusNobodyIsHeard)
{
    for (const char* address : {"unix:path=/nowhere/bus", "disabled:", "", "nonsense"}) {
        MprisRemote remote(facts(), address);
        remote.publish(film());
        EXPECT_FALSE(remote.isHeard());
        EXPECT_FALSE(remote.take() || remote.takeUrgent());
    }
}

TEST(MprisAlone, ABusThatComesLateIsFound)
{
    QTemporaryDir folder;
    const QString path = folder.path() + QStringLiteral("/bus");
    MprisRemote remote(facts(), "unix:path=" + path.toStdString());
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                  QStringLiteral("--address=unix:path=") + path});
    EXPECT_TRUE(comesTrue([&] { return remote.isHeard(); }));
    daemon.kill();
    daemon.waitForFinished();
}

TEST(MprisAlone, ASilentBusHoldsNobodyUp)
{
    SilentBus bus;
    QElapsedTimer time;
    {
        MprisRemote remote(facts());
        remote.publish(film());
        EXPECT_TRUE(comesTrue([&] { return bus.hasNewCaller(); }));
        EXPECT_FALSE(remote.isHeard());
        time.start();
    }
    EXPECT_LT(time.elapsed(), 20000) << "its thread is left behind";
}

TEST(MprisAlone, ABusThatStopsAnsweringHoldsNobodyUp)
{
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                  QStringLiteral("--print-address=1"), QStringLiteral("--address=unix:tmpdir=/tmp")});
    ASSERT_TRUE(comesTrue([&] { return daemon.canReadLine(); }));
    const std::string address = daemon.readLine().trimmed().toStdString();
    QElapsedTimer time;
    {
        MprisRemote remote(facts(), address);
        ASSERT_TRUE(comesTrue([&] { return remote.isHeard(); }));
        ASSERT_EQ(::kill(static_cast<pid_t>(daemon.processId()), SIGSTOP), 0);
        RemoteState state = film();
        for (int i = 0; i < 20000; ++i) {
            state.volume = i % 100 / 100.0;
            remote.publish(state);
        }
        time.start();
    }
    EXPECT_LT(time.elapsed(), 20000);
    ::kill(static_cast<pid_t>(daemon.processId()), SIGCONT);
    daemon.kill();
    daemon.waitForFinished();
}

TEST(MprisAlone, ManyComeAndGo)
{
    const PrivateBus bus;
    for (int round = 0; round < 50; ++round) {
        MprisRemote remote(facts());
        remote.called = [] {};
        remote.publish(film());
        if (round % 2 == 0) {
            EXPECT_TRUE(comesTrue([&] { return remote.isHeard(); }));
        }
    }
    Client client(bus.address);
    EXPECT_TRUE(comesTrue([&] { return !client.isThere(mpris::kName); }));
}

} // namespace tandrel

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
