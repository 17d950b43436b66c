// The video control: its members, and what each asks of the player behind it.

#include "other_media_bench.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

class DiscWindow : public VideoForm
{
public:
    DiscWindow() : VideoForm("window", Frame::Video, {0, 0, 6100, 4400}) {}
    PictureBox picDVD{*this, "picDVD", {0, 0, 6000, 4000}};
    DiscBox dvdPicture{*this, "dvdPicture", {0, 0, 6000, 4000}, picDVD};
};

class VideoDiscBox : public OtherMediaConsole
{
protected:
    VideoDiscBox()
    {
        begin(true);
        window_ = newForm<DiscWindow>();
        window_->Show();
    }
    ~VideoDiscBox() override { unload(*window_); }

    DiscBox& box() { return window_->dvdPicture; }
    WebDvd& dvd() { return box().InputActive(); }
    PlayedMedium& medium() { return world.players.disc; }
    void build(const Text& view = "DVD:")
    {
        box().View(view);
        box().Build();
    }
    void play()
    {
        if (world.drives.drives.empty())
            world.drives.add('D', "A_DISC");
        build();
        box().Run();
        forgetAsked();
    }

private:
    std::shared_ptr<DiscWindow> window_;
};

} // namespace

TEST_F(VideoDiscBox, WithoutADiscEveryMemberRaises)
{
    EXPECT_EQ(errorOf([this] { dvd(); }), error::kNoObject);
    EXPECT_EQ(errorOf([this] { box().Run(); }), error::kNoObject);
    EXPECT_EQ(errorOf([this] { box().Pause(); }), error::kNoObject);
    EXPECT_EQ(errorOf([this] { box().Stop(); }), error::kNoObject);
    build();
    EXPECT_EQ(errorOf([this] { dvd(); }), error::kNoObject);
    EXPECT_EQ(errorOf([this] { box().Run(); }), error::kNoObject);
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(VideoDiscBox, OnlyDiscsCanBeViewed)
{
    EXPECT_EQ(errorOf([this] { box().View("TV:"); }), error::kInvalidCall);
    EXPECT_EQ(errorOf([this] { box().View("DVD:"); }), 0);
}

TEST_F(VideoDiscBox, TheFirstReadyDriveWithTitlesIsThatOfTheDisc)
{
    world.drives.add('D', "NOT_READY");
    world.drives.add('E', "DATA", 0);
    world.drives.add('F', "FILM", 3);
    world.drives.add('G', "OTHER", 1);
    world.drives.drives[0].ready = false;
    build();
    EXPECT_EQ(dvd().TitlesAvailable(), 3);
    EXPECT_THAT(world.drives.looked, ElementsAre("/discs/E", "/discs/F"));
    EXPECT_THAT(askedOfDisc(), IsEmpty()) << "it plays when it is run";
    box().Run();
    EXPECT_THAT(askedOfDisc(), ElementsAre("volume 100", "no captions", "showIn 0 400x267", "open /discs/F"));
}

TEST_F(VideoDiscBox, APathBehindTheViewIsTheDiscThere)
{
    world.drives.add('D', "FILM");
    world.drives.discs["/images/b.iso"].titles.resize(5);
    build("DVD:/images/b.iso");
    EXPECT_EQ(dvd().TitlesAvailable(), 5);
    EXPECT_THAT(world.drives.looked, ElementsAre("/images/b.iso"));
}

TEST_F(VideoDiscBox, ADiscThatPlaysIsKeptByTheNextBuild)
{
    play();
    world.drives.looked.clear();
    build();
    box().Run();
    EXPECT_THAT(askedOfDisc(), ElementsAre("play"));
    EXPECT_THAT(world.drives.looked, IsEmpty());
    EXPECT_EQ(dvd().TitlesAvailable(), 2);
}

TEST_F(VideoDiscBox, AnotherDiscTakesItsPlace)
{
    play();
    world.drives.discs["/images/b.iso"].titles.resize(1);
    build("DVD:/images/b.iso");
    EXPECT_EQ(medium().alive, 0);
    box().Run();
    EXPECT_THAT(askedOfDisc(), Contains("open /images/b.iso"));
}

TEST_F(VideoDiscBox, ADiscThatHasBeenTakenOutIsGoneWithTheNextBuild)
{
    play();
    world.drives.drives[0].ready = false;
    build();
    EXPECT_EQ(medium().alive, 0);
    EXPECT_EQ(errorOf([this] { dvd(); }), error::kNoObject);
}

TEST_F(VideoDiscBox, ADiscThatFailedIsOpenedAnew)
{
    play();
    medium().idle = true;
    EXPECT_EQ(errorOf([this] { box().Pause(); }), error::kNoObject);
    build();
    medium().idle = false;
    box().Run();
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/D"));
}

TEST_F(VideoDiscBox, AnEncryptedDiscIsSaidAndIsNone)
{
    world.drives.add('D', "FILM");
    world.drives.discs["/discs/D"].encrypted = true;
    build();
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "This disc is encrypted, and no library to decrypt it is installed.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
    EXPECT_EQ(errorOf([this] { dvd(); }), error::kNoObject);
}

TEST_F(VideoDiscBox, ADiscThatStopsPlayingSaysSoInItsPicture)
{
    play();
    EXPECT_FALSE(box().lblTrouble.visible());
    medium().trouble = MediaTrouble::NotPlayable;
    medium().idle = true;
    box().tmrFollow.tick();
    EXPECT_TRUE(box().lblTrouble.visible());
    EXPECT_EQ(box().lblTrouble.caption(), "Media File can't be played!");
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    medium().trouble = MediaTrouble::None;
    medium().idle = false;
    build();
    EXPECT_TRUE(box().lblTrouble.visible()) << "it plays still";
    build("DVD:/elsewhere");
    EXPECT_FALSE(box().lblTrouble.visible());
}

TEST_F(VideoDiscBox, ADiscThatTurnsOutToBeEncryptedIsTold)
{
    play();
    medium().trouble = MediaTrouble::Encrypted;
    box().tmrFollow.tick();
    box().tmrFollow.tick();
    EXPECT_THAT(world.backend.boxes, SizeIs(1));
}

TEST_F(VideoDiscBox, TheCommandsReachThePlayer)
{
    play();
    box().Pause();
    box().Run();
    dvd().PlayNextChapter();
    dvd().PlayPrevChapter();
    dvd().ShowMenu(disc_menu::kRoot);
    dvd().PlayAtTime("01:02:03");
    dvd().PlayAtTime("00:00:00");
    EXPECT_THAT(askedOfDisc(),
                ElementsAre("pause", "play", "next chapter", "previous chapter", "root menu", "seek 3723", "seek 0"));
    EXPECT_EQ(errorOf([this] { dvd().ShowMenu(2); }), error::kInvalidCall);
}

TEST_F(VideoDiscBox, TimesHaveHoursMinutesSecondsAndFrames)
{
    play();
    medium().duration = 5025.48;
    medium().position = 3723.999;
    EXPECT_EQ(dvd().CurrentTime(), "01:02:03:24");
    EXPECT_EQ(dvd().TotalTitleTime(), "01:23:45:12");
    medium().frameRate = 30000.0 / 1001;
    EXPECT_EQ(dvd().CurrentTime(), "01:02:03:29");
    medium().frameRate = 0;
    medium().position = 0;
    EXPECT_EQ(dvd().CurrentTime(), "00:00:00:00");
    medium().position = -1;
    EXPECT_EQ(dvd().CurrentTime(), "00:00:00:00");
}

TEST_F(VideoDiscBox, StopEndsTheDisc)
{
    play();
    box().Stop();
    EXPECT_EQ(medium().alive, 0);
    EXPECT_EQ(errorOf([this] { box().Stop(); }), error::kNoObject);
    EXPECT_FALSE(box().tmrFollow.enabled());
    play();
    medium().idle = true;
    EXPECT_EQ(errorOf([this] { box().Stop(); }), error::kNoObject) << "it has failed";
    EXPECT_EQ(medium().alive, 0);
}

TEST_F(VideoDiscBox, CaptionsAreShownWhileTheirFeatureIsActive)
{
    const auto features = box().FeaturesAvailable();
    ASSERT_THAT(features, SizeIs(1));
    EXPECT_EQ(features[0].ClassID, "{7F9CB14D-48E4-43B6-9346-1AEBC39C64D3}");
    play();
    box().setFeaturesActive(features);
    box().setFeaturesActive({});
    box().setFeaturesActive({{"{another}", "Another"}});
    EXPECT_THAT(askedOfDisc(), ElementsAre("captions", "no captions", "no captions"));
}

TEST_F(VideoDiscBox, ThePictureFollowsItsBox)
{
    play();
    box().move({0, 0, 3000, 1500});
    EXPECT_THAT(askedOfDisc(), ElementsAre("showIn 0 200x100"));
}

TEST_F(VideoDiscBox, TheColourBehindThePictureIsKept)
{
    box().setColorKey(263173);
    EXPECT_EQ(box().ColorKey(), 263173);
    EXPECT_EQ(box().backColour, Long(0x040405));
}

TEST_F(VideoDiscBox, InAMenuKeysAndPointerMoveThere)
{
    EXPECT_FALSE(box().takeKey(Key::Enter));
    box().pointAt({0, 0, 1500, 750});
    box().press({mouse::kLeft, 0, 1500, 750});
    play();
    EXPECT_FALSE(box().takeKey(Key::Enter));
    medium().inMenu = true;
    EXPECT_TRUE(box().takeKey(Key::Down));
    EXPECT_FALSE(box().takeKey(Key::Space));
    box().pointAt({0, 0, 1500, 750});
    box().press({mouse::kLeft, 0, 3000, 1500});
    box().press({mouse::kMiddle, 0, 3000, 1500});
    EXPECT_THAT(askedOfDisc(), ElementsAre("key 3", "pointer 100,50", "press 200,100"));
}

TEST_F(VideoDiscBox, SoundAndSubtitlesAreChosenByControlAndTheRightButton)
{
    box().chooseTracks();
    play();
    medium().tracks = {{MediaTrack::Kind::Audio, 1, "English", true}, {MediaTrack::Kind::Audio, 2, "Deutsch", false}};
    world.backend.menuChoice = "mnuSound1";
    box().press({mouse::kRight, 0, 10, 10});
    EXPECT_THAT(world.backend.menus, IsEmpty());
    box().press({mouse::kRight, shift::kControl, 10, 10});
    EXPECT_THAT(askedOfDisc(), ElementsAre("sound 2"));
}

TEST_F(VideoDiscBox, ThePreferredSettingsAreTheSoundAndTheSubtitlesThatItBeganWith)
{
    play();
    medium().tracks = {{MediaTrack::Kind::Audio, 1, "English", true},
                       {MediaTrack::Kind::Audio, 2, "Deutsch", false},
                       {MediaTrack::Kind::Subtitle, -1, "None", true},
                       {MediaTrack::Kind::Subtitle, 5, "English", false}};
    box().InputActive().RestorePreferredSettings();
    EXPECT_THAT(askedOfDisc(), IsEmpty()) << "nothing else was ever chosen";
    for (const char* entry : {"mnuSound1", "mnuSubtitle1"}) {
        world.backend.menuChoice = entry;
        box().chooseTracks();
        medium().tracks[0].chosen = false;
    }
    forgetAsked();
    box().InputActive().RestorePreferredSettings();
    EXPECT_THAT(askedOfDisc(), ElementsAre("sound 1", "subtitle -1"));
    box().Stop();
    EXPECT_THROW(box().InputActive().RestorePreferredSettings(), RuntimeError);
}

} // namespace tandrel::test
