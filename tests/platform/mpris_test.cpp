// The interface for media players: what it tells, and what it takes.
#include "mpris_bench.h"

namespace tandrel
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using namespace mpris_bench;

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

} // namespace tandrel

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
