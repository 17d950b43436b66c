// The media player control: its members, and what each asks of the player behind it.

#include "other_media_bench.h"

#include "video/player_screen.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class BoxWindow : public VideoForm
{
public:
    BoxWindow() : VideoForm("window", Frame::Video, {0, 0, 6000, 4000}) {}
    PlayerBox picDVD{*this, "picDVD", {0, 0, 6000, 4900}};
};

class VideoPlayerBox : public OtherMediaConsole
{
protected:
    VideoPlayerBox()
    {
        begin();
        window_ = newForm<BoxWindow>();
        window_->Caption = "A window";
        window_->Show();
    }
    ~VideoPlayerBox() override { unload(*window_); }

    PlayerBox& box() { return window_->picDVD; }
    BoxWindow& window() { return *window_; }
    PlayedMedium& medium() { return world.players.film; }
    void play(const Text& url = kHdFilm)
    {
        box().URL = url;
        forgetAsked();
    }
    /// Every member that would act on a medium or tell of one.
    std::vector<std::function<void()>> members()
    {
        return {[this] { box().controls().play(); },
                [this] { box().controls().pause(); },
                [this] { box().controls().stop(); },
                [this] { box().controls().fastForward(); },
                [this] { box().controls().fastReverse(); },
                [this] { box().controls().currentPosition(); },
                [this] { box().controls().setCurrentPosition(5); },
                [this] { box().dvd().topMenu(); },
                [this] { box().dvd().resume(); },
                [this] { box().fullScreen = true; }};
    }
    std::vector<std::function<void()>> texts()
    {
        return {[this] { box().controls().currentPositionString(); }, [this] { box().currentMedia().durationString(); },
                [this] { box().currentMedia().getItemInfo("Title"); }};
    }
    void tick() { box().tmrFollow.tick(); }

private:
    std::shared_ptr<BoxWindow> window_;
};

} // namespace

TEST_F(VideoPlayerBox, WithoutAMediumEveryMemberRaises)
{
    for (const auto& member : members())
        EXPECT_EQ(errorOf(member), error::kNoObject);
    for (const auto& member : texts())
        EXPECT_EQ(errorOf(member), error::kNoObject);
    EXPECT_EQ(box().URL(), "");
    EXPECT_EQ(errorOf([this] { box().close(); }), 0);
    EXPECT_EQ(errorOf([this] { box().settings().setVolume(70); }), 0) << "the volume is the control's own";
    EXPECT_FALSE(box().tmrFollow.enabled());
}

TEST_F(VideoPlayerBox, BehindACloseEveryMemberRaisesAgain)
{
    play();
    box().close();
    EXPECT_THAT(askedOfFilm(), ElementsAre("gone"));
    for (const auto& member : members())
        EXPECT_EQ(errorOf(member), error::kNoObject);
    for (const auto& member : texts())
        EXPECT_EQ(errorOf(member), error::kNoObject);
    EXPECT_EQ(box().URL(), "");
}

TEST_F(VideoPlayerBox, ItBeginsWithTheSettingsOfItsKind)
{
    EXPECT_EQ(box().uiMode(), "full");
    EXPECT_EQ(box().settings().volume(), 50);
    EXPECT_FALSE(box().fullScreen());
    EXPECT_TRUE(box().bar.picBar.visible());
    box().uiMode = "none";
    EXPECT_EQ(box().uiMode(), "none");
    EXPECT_FALSE(box().bar.picBar.visible());
}

TEST_F(VideoPlayerBox, WritingAPathStartsTheFileInTheBox)
{
    box().layOut();
    box().URL = kHdFilm;
    EXPECT_EQ(box().URL(), kHdFilm);
    EXPECT_THAT(askedOfFilm(), ElementsAre("volume 50", "showIn 0 393x240", Text("open ") + kHdFilm));
    EXPECT_TRUE(box().tmrFollow.enabled());
}

TEST_F(VideoPlayerBox, WritingTheSamePathStartsItAnewAndAnEmptyTextEndsIt)
{
    play();
    box().URL = kHdFilm;
    EXPECT_THAT(askedOfFilm(), Contains("gone"));
    EXPECT_THAT(askedOfFilm(), Contains(Text("open ") + kHdFilm));
    EXPECT_EQ(medium().alive, 1);
    box().URL = "";
    EXPECT_EQ(medium().alive, 0);
    EXPECT_EQ(errorOf([this] { box().controls().play(); }), error::kNoObject);
}

TEST_F(VideoPlayerBox, TheCommandsReachThePlayer)
{
    play();
    box().controls().play();
    box().controls().pause();
    box().controls().setCurrentPosition(61.5);
    box().settings().setVolume(80);
    EXPECT_THAT(askedOfFilm(), ElementsAre("play", "pause", "seek 61.5", "volume 80"));
    EXPECT_EQ(box().settings().volume(), 80);
    medium().position = 12.25;
    EXPECT_EQ(box().controls().currentPosition(), 12.25);
}

TEST_F(VideoPlayerBox, FastForwardAndFastReverseRunAtFiveTimesTheSpeed)
{
    play();
    box().controls().fastForward();
    box().controls().fastReverse();
    EXPECT_THAT(askedOfFilm(), ElementsAre("play", "rate 5", "play", "rate -5"));
}

TEST_F(VideoPlayerBox, StopHoldsTheMediumAtItsBeginning)
{
    play();
    box().controls().stop();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause", "seek 0"));
}

TEST_F(VideoPlayerBox, TheVolumeIsHeldInItsRangeAndGoesToTheNextMedium)
{
    box().settings().setVolume(300);
    EXPECT_EQ(box().settings().volume(), 100);
    box().settings().setVolume(-5);
    EXPECT_EQ(box().settings().volume(), 0);
    box().settings().setVolume(30);
    box().URL = kHdFilm;
    EXPECT_THAT(askedOfFilm(), Contains("volume 30"));
}

TEST_F(VideoPlayerBox, TimesAreMinutesAndSecondsAndFromAnHourOnHoursToo)
{
    const std::pair<double, const char*> rows[] = {{0, "00:00"},         {0.99, "00:00"},    {59.999, "00:59"},
                                                   {60, "01:00"},        {123.4, "02:03"},   {3599.9, "59:59"},
                                                   {3600, "01:00:00"},   {3723, "01:02:03"}, {36000, "10:00:00"},
                                                   {359999, "99:59:59"}, {-3, "00:00"}};
    for (const auto& [seconds, shown] : rows)
        EXPECT_EQ(playerTime(seconds), shown);
    play();
    medium().position = 123.4;
    medium().duration = 3723.9;
    EXPECT_EQ(box().controls().currentPositionString(), "02:03");
    EXPECT_EQ(box().currentMedia().durationString(), "01:02:03");
}

TEST_F(VideoPlayerBox, WhileTheFileIsBeingOpenedItsTextsSayThatNothingIsLoaded)
{
    medium().loaded = false;
    play();
    EXPECT_EQ(box().currentMedia().durationString(), "00:00");
    EXPECT_EQ(box().controls().currentPositionString(), "");
    EXPECT_EQ(errorOf([this] { box().fullScreen = true; }), error::kInvalidCall);
    EXPECT_EQ(errorOf([this] { box().controls().pause(); }), 0) << "that counts for when it is there";
}

TEST_F(VideoPlayerBox, TheTitleIsTheMediumsOwnElseTheNameOfItsFile)
{
    play("/films/The Film.mkv");
    EXPECT_EQ(box().currentMedia().getItemInfo("Title"), "The Film.mkv");
    medium().title = "  ";
    EXPECT_EQ(box().currentMedia().getItemInfo("Title"), "The Film.mkv");
    medium().title = "A Title";
    EXPECT_EQ(box().currentMedia().getItemInfo("Title"), "A Title");
    EXPECT_EQ(box().currentMedia().getItemInfo("Author"), "");
}

TEST_F(VideoPlayerBox, AFileThatCantBePlayedHasNoLengthAndSaysSoInItsPicture)
{
    play();
    medium().trouble = MediaTrouble::NotPlayable;
    medium().loaded = false;
    medium().idle = true;
    tick();
    EXPECT_EQ(box().currentMedia().durationString(), "00:00");
    EXPECT_EQ(box().controls().currentPositionString(), "");
    EXPECT_EQ(box().lblTrouble.caption(), "Media File can't be played!");
    EXPECT_TRUE(box().lblTrouble.visible());
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    for (const auto& member : members())
        EXPECT_EQ(errorOf(member), error::kNoObject);
    box().URL = kHdFilm;
    EXPECT_FALSE(box().lblTrouble.visible());
}

TEST_F(VideoPlayerBox, AMissingCodecIsToldOnceInAMessageBox)
{
    play();
    medium().trouble = MediaTrouble::CodecMissing;
    tick();
    tick();
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "The codec that this video needs is not installed.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
}

TEST_F(VideoPlayerBox, AFilmWhosePictureCantBeDecodedIsHeard)
{
    play();
    medium().trouble = MediaTrouble::CodecMissing;
    medium().duration = 61;
    tick();
    EXPECT_EQ(box().currentMedia().durationString(), "01:01");
    box().controls().pause();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause"));
    EXPECT_TRUE(box().lblTrouble.visible());
}

TEST_F(VideoPlayerBox, AnEncryptedDiscIsToldInAMessageBox)
{
    world.drives.add('D', "A_DISC");
    play("wmpdvd://D");
    world.players.disc.trouble = MediaTrouble::Encrypted;
    tick();
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "This disc is encrypted, and no library to decrypt it is installed.");
}

TEST_F(VideoPlayerBox, AnAddressOfADriveIsADisc)
{
    world.drives.add('E', "A_DISC");
    box().layOut();
    box().URL = "wmpdvd://E";
    EXPECT_THAT(askedOfDisc(), ElementsAre("volume 50", "showIn 0 393x240", "open /discs/E"));
    EXPECT_EQ(box().currentMedia().getItemInfo("Title"), "A window");
    forgetAsked();
    box().dvd().topMenu();
    box().dvd().resume();
    EXPECT_THAT(askedOfDisc(), ElementsAre("root menu", "resume"));
    EXPECT_EQ(medium().alive, 0);
}

TEST_F(VideoPlayerBox, ADriveThatIsNotThereIsAMediumThatCantBePlayed)
{
    for (const char* address : {"wmpdvd://Z", "wmpdvd://"}) {
        box().URL = address;
        tick();
        EXPECT_EQ(box().currentMedia().durationString(), "00:00");
        EXPECT_TRUE(box().lblTrouble.visible());
        EXPECT_EQ(errorOf([this] { box().dvd().resume(); }), error::kNoObject);
    }
    world.drives.add('D', "A_DISC");
    world.players.hasDiscs = false;
    box().URL = "wmpdvd://D";
    EXPECT_EQ(box().currentMedia().durationString(), "00:00");
}

TEST_F(VideoPlayerBox, AFileHasNoMenus)
{
    play();
    EXPECT_EQ(errorOf([this] { box().dvd().topMenu(); }), error::kNoObject);
    EXPECT_EQ(errorOf([this] { box().dvd().resume(); }), error::kNoObject);
    EXPECT_THAT(askedOfFilm(), IsEmpty());
}

TEST_F(VideoPlayerBox, ThePictureTakesThePartOfTheControlThatCanBeSeen)
{
    play();
    window().Move({0, 0, 4600, 3400});
    box().move({0, 0, 4600, 4300});
    forgetAsked();
    box().layOut();
    EXPECT_THAT(askedOfFilm(), ElementsAre("showIn 0 300x200"));
    window().Style.Client = &window();
    window().Style.Titlebar = false;
    box().move({0, 0, 4500, 4400});
    forgetAsked();
    box().layOut();
    EXPECT_THAT(askedOfFilm(), ElementsAre("showIn 0 300x227"));
}

TEST_F(VideoPlayerBox, ItsBarLiesBelowTheLowerEdgeOfItsForm)
{
    for (const bool titled : {true, false}) {
        window().Style.Client = &window();
        window().Style.Titlebar = titled;
        window().Move({0, 0, 6000, 4000});
        box().move({0, 0, 6000, 4000 + (titled ? 900 : 1000)});
        box().layOut();
        const int inner = titled ? 4000 - Form::kFrameHeight : 4000;
        EXPECT_GE(box().bar.picBar.top(), inner) << titled;
        EXPECT_EQ(box().bar.picBar.top() + box().bar.picBar.height(), box().height());
    }
}

TEST_F(VideoPlayerBox, ItFillsTheScreenWithAWindowOfItsOwnAndComesBack)
{
    world.monitors.set({{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}});
    window().Move({30000, 1500, 6000, 4000});
    play();
    box().fullScreen = true;
    EXPECT_TRUE(box().fullScreen());
    EXPECT_THAT(askedOfFilm(), Contains("showIn 0 1280x1024"));
    ASSERT_TRUE(activeForm() != nullptr);
    EXPECT_EQ(activeForm()->name(), "PlayerScreen");
    EXPECT_EQ(activeForm()->pixelRect(), (PixelRect{1920, 0, 3200, 1024}));
    forgetAsked();
    world.screenSaver.switched.clear();
    box().fullScreen = false;
    EXPECT_FALSE(box().fullScreen());
    EXPECT_THAT(askedOfFilm(), ElementsAre("showIn 0 393x240"));
    EXPECT_EQ(activeForm(), &window());
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
}

TEST_F(VideoPlayerBox, EscapeAndADoubleClickLeadOutOfFullScreen)
{
    play();
    box().fullScreen = true;
    EXPECT_TRUE(activeForm()->userKeyDown(Key::Escape));
    EXPECT_FALSE(box().fullScreen());
    EXPECT_FALSE(box().takeKey(Key::Escape)) << "there is none to leave";
    box().fullScreen = true;
    dynamic_cast<PlayerScreen&>(*activeForm()).picScreen.userDblClick();
    EXPECT_FALSE(box().fullScreen());
}

TEST_F(VideoPlayerBox, ClosingTheScreenOrTheWindowEndsFullScreen)
{
    play();
    box().fullScreen = true;
    activeForm()->userClose();
    EXPECT_FALSE(box().fullScreen());
    EXPECT_EQ(activeForm(), &window());
    box().fullScreen = true;
    box().close();
    EXPECT_TRUE(box().fullScreen()) << "it may be opened anew at once";
    tick();
    EXPECT_FALSE(box().fullScreen());
    EXPECT_FALSE(box().tmrFollow.enabled());
    for (const auto& form : openForms())
        EXPECT_NE(form->name(), "PlayerScreen");
}

TEST_F(VideoPlayerBox, AReplayKeepsTheScreenFilled)
{
    play();
    box().fullScreen = true;
    box().close();
    box().URL = kHdFilm;
    tick();
    EXPECT_TRUE(box().fullScreen());
    EXPECT_THAT(askedOfFilm(), Contains("showIn 0 1920x1080"));
}

TEST_F(VideoPlayerBox, AHandlerOfTheScreenMayEndTheWindow)
{
    play();
    box().fullScreen = true;
    const auto screen = std::dynamic_pointer_cast<PlayerScreen>(activeForm()->shared_from_this());
    ASSERT_TRUE(screen != nullptr);
    screen->run([&] {
        box().end();
        // What still comes to the screen finds no control.
        world.pointer.place = {7, 7};
        screen->picScreen.userMouseMove({0, 0, 10, 10});
        screen->picScreen.userMouseDown({mouse::kRight, 0, 10, 10});
        screen->picScreen.userDblClick();
        screen->bar->imgToggle.userClick();
        screen->bar->imgScreen.userClick();
        screen->bar->sldPlace.userScroll(1);
        screen->bar->follow();
        EXPECT_FALSE(screen->userKeyDown(Key::Escape));
        EXPECT_FALSE(screen->visible());
    });
    EXPECT_TRUE(screen->isDead());
    EXPECT_THAT(askedOfFilm(), Contains("gone"));
}

TEST_F(VideoPlayerBox, InFullScreenTheBarComesWithThePointerAndGoesWithItsRest)
{
    play();
    box().fullScreen = true;
    auto& screen = dynamic_cast<PlayerScreen&>(*activeForm());
    EXPECT_FALSE(screen.bar->picBar.visible());
    EXPECT_FALSE(world.pointer.shown);
    screen.picScreen.userMouseMove({0, 0, 100, 100});
    EXPECT_FALSE(screen.bar->picBar.visible()) << "the pointer has not moved";
    world.pointer.place = {500, 500};
    screen.picScreen.userMouseMove({0, 0, 100, 100});
    EXPECT_TRUE(screen.bar->picBar.visible());
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_TRUE(screen.tmrIdle.enabled());
    screen.tmrIdle.tick();
    EXPECT_FALSE(screen.bar->picBar.visible());
    EXPECT_FALSE(world.pointer.shown);
    box().fullScreen = false;
    EXPECT_TRUE(world.pointer.shown);
}

TEST_F(VideoPlayerBox, ThePointerIsHiddenOverTheFullPictureAlone)
{
    world.monitors.set({{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}});
    window().Move({0, 0, 6000, 4000});
    play();
    world.pointer.place = {2000, 500};
    box().fullScreen = true;
    EXPECT_TRUE(world.pointer.shown) << "it is on the other monitor";
    box().fullScreen = false;
    world.pointer.place = {500, 500};
    box().fullScreen = true;
    EXPECT_FALSE(world.pointer.shown);
    auto& screen = dynamic_cast<PlayerScreen&>(*activeForm());
    console().SetFocus();
    EXPECT_TRUE(world.pointer.shown) << "another window is in front";
    screen.tmrIdle.Enabled = true;
    screen.tmrIdle.tick();
    EXPECT_TRUE(world.pointer.shown);
    screen.SetFocus();
    EXPECT_FALSE(world.pointer.shown);
}

TEST_F(VideoPlayerBox, TheBarShowsThePlaceAndMovesIt)
{
    play();
    medium().duration = 600;
    medium().position = 123.4;
    tick();
    PlayerBar& bar = box().bar;
    EXPECT_EQ(bar.sldPlace.Max, 600);
    EXPECT_EQ(bar.sldPlace.Value, 123);
    EXPECT_EQ(bar.lblTimes.caption(), "02:03 / 10:00");
    EXPECT_EQ(bar.imgToggle.picture(), "panel_pause");
    EXPECT_THAT(askedOfFilm(), IsEmpty());
    bar.sldPlace.userScroll(300);
    EXPECT_THAT(askedOfFilm(), ElementsAre("seek 300"));
    forgetAsked();
    bar.imgToggle.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause"));
    EXPECT_EQ(bar.imgToggle.picture(), "panel_play");
    bar.imgToggle.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause", "play"));
    medium().ended = true;
    tick();
    EXPECT_EQ(bar.imgToggle.picture(), "panel_play") << "behind the end it plays anew";
    bar.imgScreen.userClick();
    EXPECT_TRUE(box().fullScreen());
    bar.imgScreen.userClick();
    EXPECT_FALSE(box().fullScreen());
}

TEST_F(VideoPlayerBox, KeysHoldPlayAndJump)
{
    play();
    medium().position = 60;
    EXPECT_TRUE(box().takeKey(Key::Space));
    EXPECT_TRUE(box().takeKey(Key::Space));
    EXPECT_TRUE(box().takeKey(Key::Left));
    EXPECT_TRUE(box().takeKey(Key::Right));
    medium().position = 4;
    EXPECT_TRUE(box().takeKey(Key::Left));
    EXPECT_FALSE(box().takeKey(Key::Up));
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause", "play", "seek 50", "seek 70", "seek 0"));
    box().close();
    EXPECT_FALSE(box().takeKey(Key::Space));
}

TEST_F(VideoPlayerBox, InTheMenuOfADiscKeysAndPointerMoveThere)
{
    world.drives.add('D', "A_DISC");
    play("wmpdvd://D");
    world.players.disc.inMenu = true;
    for (const Key key : {Key::Left, Key::Right, Key::Up, Key::Down, Key::Enter})
        EXPECT_TRUE(box().takeKey(key));
    box().userMouseMove({0, 0, 1500, 750});
    box().userMouseDown({mouse::kLeft, 0, 3000, 1500});
    EXPECT_THAT(askedOfDisc(),
                ElementsAre("key 0", "key 1", "key 2", "key 3", "key 4", "pointer 100,50", "press 200,100"));
    forgetAsked();
    world.players.disc.inMenu = false;
    EXPECT_FALSE(box().takeKey(Key::Enter));
    EXPECT_THAT(askedOfDisc(), IsEmpty());
}

namespace
{
const std::vector<MediaTrack> kTracks{{MediaTrack::Kind::Audio, 1, "English (AC-3)", true},
                                      {MediaTrack::Kind::Audio, 2, "Rock & Roll", false},
                                      {MediaTrack::Kind::Subtitle, -1, "", true},
                                      {MediaTrack::Kind::Subtitle, 1, "Deutsch", false}};
} // namespace

TEST_F(VideoPlayerBox, SoundAndSubtitlesAreChosenByControlAndTheRightButton)
{
    play();
    medium().tracks = kTracks;
    world.backend.menuChoice = "mnuSound1";
    box().userMouseDown({mouse::kRight, 0, 10, 10});
    EXPECT_THAT(world.backend.menus, IsEmpty()) << "that fills the screen";
    world.pointer.right = true;
    box().userMouseDown({mouse::kRight, shift::kControl, 10, 10});
    EXPECT_THAT(world.backend.menus, ElementsAre("window.mnuTracks"));
    EXPECT_THAT(askedOfFilm(), ElementsAre("sound 2"));
    EXPECT_TRUE(isSpent(MouseButton::Right));
}

TEST_F(VideoPlayerBox, InFullScreenTheRightButtonAloneAndTheMenuKeyDo)
{
    play();
    medium().tracks = kTracks;
    box().fullScreen = true;
    forgetAsked();
    world.backend.menuChoice = "mnuSubtitles1";
    dynamic_cast<PlayerScreen&>(*activeForm()).picScreen.userMouseDown({mouse::kRight, 0, 10, 10});
    EXPECT_THAT(askedOfFilm(), ElementsAre("subtitle 1"));
    world.backend.menuChoice = "mnuSubtitles0";
    activeForm()->run(activeForm()->MenuKey);
    EXPECT_THAT(askedOfFilm(), ElementsAre("subtitle 1", "subtitle -1"));
}

TEST_F(VideoPlayerBox, WhereThereIsNothingToChooseNoMenuComesUp)
{
    box().chooseTracks();
    play();
    box().chooseTracks();
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(VideoPlayerBox, AMediumThatEndsWhileItsMenuIsUpIsAskedNothing)
{
    play();
    medium().tracks = kTracks;
    world.backend.menuChoice = "mnuSound1";
    world.backend.whileMenuIsUp = [this] { box().close(); };
    box().chooseTracks();
    EXPECT_THAT(askedOfFilm(), ElementsAre("gone"));
}

TEST_F(VideoPlayerBox, ItsDrivesAreThoseOfTheMachine)
{
    CdromCollection& drives = box().cdromCollection();
    EXPECT_EQ(drives.count(), 0);
    EXPECT_EQ(errorOf([&] { drives.item(0); }), error::kOutOfRange);
    world.drives.add('D', "ONE");
    world.drives.add('E', "TWO");
    world.drives.drives[1].ready = false;
    EXPECT_EQ(drives.count(), 2);
    EXPECT_EQ(drives.item(0).driveSpecifier(), "D:");
    EXPECT_EQ(drives.item(0).getItemInfo("IsDeviceBusy"), "False");
    EXPECT_EQ(drives.item(0).getItemInfo("Other"), "");
    EXPECT_EQ(drives.item(1).getItemInfo("IsDeviceBusy"), "True");
    drives.item(1).eject();
    EXPECT_THAT(world.drives.ejected, ElementsAre(1));
    EXPECT_EQ(errorOf([&] { drives.item(2); }), error::kOutOfRange);
    EXPECT_EQ(errorOf([&] { drives.item(-1); }), error::kOutOfRange);
}

} // namespace tandrel::test
