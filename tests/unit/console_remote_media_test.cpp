// What commands of other programs open, and what they do to HD films and discs.
#include "console_remote_bench.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{
using Kind = RemoteCommand::Kind;
using Playback = RemoteState::Playback;
} // namespace

TEST_F(ConsoleRemote, RaiseBringsTheConsoleBack)
{
    playFiles(1);
    console().WindowState = 1;
    EXPECT_TRUE(RemoteControl::raise());
    EXPECT_EQ(console().windowState(), 0);
    EXPECT_EQ(activeForm(), &console());
    VideoWindows[0]->fillScreen();
    console().SetFocus();
    EXPECT_TRUE(RemoteControl::raise());
    EXPECT_EQ(activeForm(), VideoWindows[0].get()) << "what fills the screen goes first";
}

TEST_F(ConsoleRemote, FilesAreOpenedOnceTheyAreFound)
{
    start("0");
    console().FirstOpenTip = false;
    world.files.content["/films/a.avi"] = {};
    world.finder.silent = {"/films/a.avi"};
    give({.kind = Kind::Open, .path = "/films/a.avi"});
    EXPECT_TRUE(remote.openFound());
    EXPECT_THAT(commands(), IsEmpty());
    world.finder.silent.clear();
    EXPECT_FALSE(remote.openFound());
    EXPECT_THAT(VideoWindows, SizeIs(1));
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleRemote, SeveralFilesAreOneGroupAndOneThatIsOpenIsSelected)
{
    playFiles(2);
    console().FirstOpenTip = false;
    world.files.content = {{film(0), {}}, {film(2), {}}, {film(3), {}}};
    for (const int index : {2, 3})
        give({.kind = Kind::Open, .path = film(index)});
    EXPECT_FALSE(remote.openFound());
    EXPECT_EQ(liveCount(), 4);
    EXPECT_EQ(world.mci.prepared.front(), (std::vector<std::string>{film(2), film(3)}));
    give({.kind = Kind::Open, .path = film(0)});
    EXPECT_FALSE(remote.openFound());
    EXPECT_EQ(liveCount(), 4);
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleRemote, FilesThatAreNotThereAreForgottenInSilence)
{
    start("0");
    give({.kind = Kind::Open, .path = "/films/gone.avi"});
    EXPECT_FALSE(remote.openFound());
    give({.kind = Kind::Open, .path = "/films/\xEF\x80\xA2.avi"});
    EXPECT_FALSE(remote.openFound()) << "a name that can't be told from another";
    world.finder.silent = {"/films/hangs.avi"};
    for (int i = 0; i < 100; ++i)
        give({.kind = Kind::Open, .path = "/films/hangs.avi"});
    int looks = 0;
    while (remote.openFound() && looks < 1000)
        ++looks;
    EXPECT_LT(looks, 1000);
    EXPECT_LE(world.finder.looked.size(), 13U);
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleRemote, AnHdFilm)
{
    begin();
    openFilm();
    const RemoteState state = remote.state();
    EXPECT_EQ(state.title, "x.mkv");
    EXPECT_EQ(state.path, kHdFilm);
    EXPECT_EQ(state.length, 3723900ms);
    EXPECT_EQ(state.position, 123400ms);
    EXPECT_EQ(state.playback, Playback::Playing);
    EXPECT_TRUE(state.canSeek);
    EXPECT_FALSE(state.canGoNext || state.canGoPrevious);
    forgetAsked();
    give(Kind::PlayPause);
    give(Kind::PlayPause);
    give(Kind::Seek, 1500ms);
    givePlace(7s, state.medium);
    give(Kind::Next);
    give({.kind = Kind::Volume, .level = 0.8});
    give(Kind::Stop);
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause", "play", "seek 124.9", "seek 7", "volume 80", "pause", "seek 0"));
    EXPECT_EQ(remote.state().playback, Playback::Paused);
    world.players.film.position = 0;
    EXPECT_EQ(remote.state().playback, Playback::Stopped);
    world.players.film.idle = true;
    EXPECT_EQ(remote.state().medium, 0U);
}

TEST_F(ConsoleRemote, ADiscOnThePlayerControl)
{
    begin();
    class frmDVD2& window = openDisc2();
    world.players.disc.duration = 5400;
    world.players.disc.position = 60;
    const RemoteState state = remote.state();
    EXPECT_EQ(state.title, window.caption());
    EXPECT_EQ(state.path, "");
    EXPECT_EQ(state.length, 5400s);
    EXPECT_TRUE(state.canGoNext && state.canGoPrevious);
    forgetAsked();
    for (const Kind kind : {Kind::Next, Kind::Previous, Kind::Pause, Kind::Play})
        give(kind);
    give(Kind::Seek, -100s);
    give(Kind::Stop);
    EXPECT_THAT(askedOfDisc(),
                ElementsAre("next chapter", "previous chapter", "pause", "resume", "seek 0", "pause", "seek 0"));
}

TEST_F(ConsoleRemote, ADiscOnTheVideoControl)
{
    begin(true);
    const OtherMediaBench bench;
    DVDMode = true;
    bench.dvdForm->MediaFile = "A_DISC";
    const RemoteState state = remote.state();
    EXPECT_EQ(state.title, "A_DISC");
    EXPECT_EQ(state.length, 5025400ms);
    EXPECT_EQ(state.position, 123400ms);
    EXPECT_EQ(state.playback, Playback::Playing);
    for (const Kind kind : {Kind::Next, Kind::Previous, Kind::PlayPause, Kind::Play, Kind::Stop})
        give(kind);
    give(Kind::Seek, 10s);
    EXPECT_THAT(bench.asked(),
                ElementsAre("frmDVD PlayNextChapter", "frmDVD PlayPrevChapter", "frmDVD Pause", "frmDVD Run",
                            "frmDVD Pause", "frmDVD PlayAtTime 00:00:00", "frmDVD PlayAtTime 00:02:13"));
}

TEST_F(ConsoleRemote, AControlThatRefusesEverything)
{
    begin();
    OtherMediaBench bench;
    MkvOpen = true;
    bench.mkv.onAsk = [](const std::string&) { throw RuntimeError(error::kNoObject, "No medium"); };
    for (int kind = 0; kind <= static_cast<int>(Kind::Volume); ++kind)
        give({.kind = static_cast<Kind>(kind), .time = 5s, .medium = 1, .level = 0.5});
    EXPECT_THAT(commands(), IsEmpty());
    MkvOpen = false;
}

TEST_F(ConsoleRemote, TheDiscInTheDriveIsOpened)
{
    begin();
    console().FirstOpenTip = false;
    world.drives.add('D', "A_DISC");
    give(Kind::OpenDisc);
    EXPECT_TRUE(Loaded<class frmDVD2>());
    EXPECT_TRUE(DVDMode);
}

} // namespace tandrel::test
