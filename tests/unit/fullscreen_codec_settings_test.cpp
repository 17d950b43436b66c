// Who may ask for the settings of the codecs, where those are looked for, and what is said where there are none.

#include "fake_controls.h"
#include "menu_bench.h"

#include "fullscreen/codec_settings.h"
#include "fullscreen/frm_ffdshow.h"
#include "fullscreen/fullmenu.h"
#include "texts/frm_update.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

constexpr const char* kStarter = "/system/RunDLL32.exe";

/// A console with two films; the codec's module stands in the third of its places.
class CodecSettings : public MenuBench
{
protected:
    CodecSettings()
    {
        start("0");
        openSeveral(2);
        world.systemFacts.variables["ProgramFiles"] = "/programs";
        world.files.content[kStarter] = {};
        world.files.content[kPlaces[2]] = {};
    }
    void press(CodecPage page)
    {
        world.backend.boxes.clear();
        world.shell.started.clear();
        (page == CodecPage::Audio ? console().cmdAudio : console().cmdVideo).Value = true;
    }
    /// The caption of the selected window ends so.
    void select(const Text& name) { VideoWindows[1]->Caption = "§/films/" + name; }
    /// The forms that came up.
    std::vector<Text> formsBy(const std::function<void()>& action)
    {
        std::vector<Text> shown;
        for (const char* name : {"frmFFDShowAudio", "frmFFDShowVideo", "frmUpdate"})
            world.backend.whileModal[name] = [&shown, name](Form&) { shown.emplace_back(name); };
        action();
        world.backend.whileModal.clear();
        Unload<class frmFFDShowAudio>();
        Unload<class frmFFDShowVideo>();
        return shown;
    }

    const std::vector<std::string> kPlaces{"/programs/ffdshow/ffdshow.ax", "/programs/filters/ffdshow/ffdshow.ax",
                                           "/programs/K-Lite Codec Pack/ffdshow/ffdshow.ax",
                                           "/programs/K-Lite Codec Pack/filters/ffdshow/ffdshow.ax"};
};

} // namespace

// The search.

TEST_F(CodecSettings, WithoutTheStarterAMessageSaysThatTheyAreNotThere)
{
    world.files.content.erase(kStarter);
    press(CodecPage::Audio);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Audio settings not available, install FFDSHOW codecs.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    press(CodecPage::Video);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Video settings not available, install FFDSHOW codecs.");
    EXPECT_THAT(world.shell.started, IsEmpty());
}

TEST_F(CodecSettings, WithoutAModuleInAnyPlaceTheSameIsSaid)
{
    world.files.content.erase(kPlaces[2]);
    press(CodecPage::Video);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Video settings not available, install FFDSHOW codecs.");
    EXPECT_EQ(FFDShowPath, "");
}

TEST_F(CodecSettings, TheFirstPlaceThatHoldsAModuleWinsAtEachClick)
{
    CurrentAlias.clear();
    const std::vector<std::string> inCommand{kPlaces[0], kPlaces[1], "\"" + kPlaces[2] + "\"",
                                             "\"" + kPlaces[3] + "\""};
    world.files.content.erase(kPlaces[2]);
    for (int place = 3; place >= 0; --place) {
        world.files.content[kPlaces.at(place)] = {};
        press(CodecPage::Video);
        EXPECT_EQ(FFDShowPath, inCommand[place]);
        EXPECT_THAT(world.shell.started, ElementsAre("/system/RunDLL32.exe " + inCommand[place] + ",configure"));
    }
    press(CodecPage::Audio);
    EXPECT_THAT(world.shell.started, ElementsAre("/system/RunDLL32.exe " + kPlaces[0] + ",configureAudio"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(CodecSettings, ABlankInTheFolderOfProgramsStaysBareInTheFirstTwoPlaces)
{
    world.files.content.clear();
    world.files.content[kStarter] = {};
    world.systemFacts.variables["ProgramFiles"] = "/program files";
    world.files.content["/program files/filters/ffdshow/ffdshow.ax"] = {};
    CurrentAlias.clear();
    press(CodecPage::Video);
    EXPECT_THAT(world.shell.started,
                ElementsAre("/system/RunDLL32.exe /program files/filters/ffdshow/ffdshow.ax,configure"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(CodecSettings, TheOwnProgramIsFoundBehindTheFourPlaces)
{
    world.files.content["/system/tandrel-codec-settings"] = {};
    CurrentAlias.clear();
    press(CodecPage::Video);
    EXPECT_EQ(FFDShowPath, "\"" + kPlaces[2] + "\"");
    world.files.content.erase(kPlaces[2]);
    press(CodecPage::Video);
    EXPECT_EQ(FFDShowPath, "/system/tandrel-codec-settings");
    world.systemFacts.folder = "/a system";
    world.files.content["/a system/RunDLL32.exe"] = {};
    world.files.content["/a system/tandrel-codec-settings"] = {};
    press(CodecPage::Video);
    EXPECT_EQ(FFDShowPath, "\"/a system/tandrel-codec-settings\"");
}

// What a button does.

TEST_F(CodecSettings, DuringAJumpAButtonDoesNothing)
{
    world.files.content.clear();
    for (bool* jump : {&FastForward, &FastRewind}) {
        *jump = true;
        press(CodecPage::Audio);
        press(CodecPage::Video);
        EXPECT_THAT(world.backend.boxes, IsEmpty());
        *jump = false;
    }
}

TEST_F(CodecSettings, WithADiscItsSettingsAreRestored)
{
    OtherMediaBench other;
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    world.files.content.clear();
    other.forget();
    press(CodecPage::Video);
    EXPECT_THAT(other.asked(), ElementsAre("frmDVD RestorePreferredSettings"));
    other.dvd.fails = true;
    press(CodecPage::Audio);
    WindowsVersion = "LINUX";
    other.forget();
    press(CodecPage::Audio);
    EXPECT_THAT(other.asked(), IsEmpty());
    EXPECT_THAT(world.backend.boxes, IsEmpty()) << "the search is not begun, and an error not told";
    DVDMode = false;
}

TEST_F(CodecSettings, WithoutASelectedWindowTheyComeUpByThemselves)
{
    for (const char* selected : {"", "  ", "\"/elsewhere.avi\"", "No Media Selected"}) {
        CurrentAlias = selected;
        EXPECT_THAT(formsBy([&] { press(CodecPage::Audio); }), IsEmpty());
        EXPECT_THAT(world.shell.started, ElementsAre("/system/RunDLL32.exe \"" + kPlaces[2] + "\",configureAudio"))
            << selected;
    }
}

TEST_F(CodecSettings, TheEndingOfTheNameDecides)
{
    const std::vector<const char*> both{".avi", ".Mp4", ".mov",  ".MKV",  ".3gp",  ".ogm", ".flv",
                                        ".asf", ".mpg", ".mpeg", ".divx", ".xvid", ".webm"};
    for (const char* ending : both) {
        select(Text("x") + ending);
        EXPECT_THAT(formsBy([&] { press(CodecPage::Audio); }), ElementsAre("frmFFDShowAudio")) << ending;
        EXPECT_THAT(formsBy([&] { press(CodecPage::Video); }), ElementsAre("frmFFDShowVideo")) << ending;
        EXPECT_THAT(world.backend.boxes, IsEmpty());
    }
    select("x.mp3");
    EXPECT_THAT(formsBy([&] { press(CodecPage::Audio); }), ElementsAre("frmFFDShowAudio"));
    EXPECT_THAT(formsBy([&] { press(CodecPage::Video); }), IsEmpty());
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "The Video settings are available only for AVI video format.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
}

TEST_F(CodecSettings, AnotherKindOfVideoIsRefused)
{
    for (const char* name : {"x.wmv", "x.hdmov", "x", "avi", "x.avi.txt"}) {
        select(name);
        EXPECT_THAT(formsBy([&] { press(CodecPage::Audio); }), IsEmpty()) << name;
        ASSERT_THAT(world.backend.boxes, SizeIs(1)) << name;
        EXPECT_EQ(world.backend.boxes[0].text, "The Audio settings are available only for AVI/MPG/MPEG video format.");
        EXPECT_THAT(world.shell.started, IsEmpty());
    }
}

TEST_F(CodecSettings, TheFirstWindowOfTheAliasCounts)
{
    VideoWindows[0]->MediaFile = " " + alias(1) + " ";
    VideoWindows[0]->Caption = "§/films/x.wmv";
    press(CodecPage::Video);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "The Video settings are available only for AVI video format.");
}

// What the menu does.

namespace
{
class CodecMenu : public CodecSettings
{
protected:
    CodecMenu()
    {
        fill(1);
        console().TrackHold = false;
    }
    /// What the notice says that the entry brings up, if one comes.
    std::vector<Text> notices(const Text& entry)
    {
        std::vector<Text> said;
        world.backend.whileModal["frmUpdate"] = [&](Form& form) {
            EXPECT_EQ(form.caption(), AppTitle);
            said.push_back(frmUpdate().lblUpdate.caption());
        };
        rightClick(entry);
        world.backend.whileModal.clear();
        EXPECT_FALSE(FullMenuOpen);
        EXPECT_TRUE(console().Timer4.enabled());
        EXPECT_FALSE(Loaded<class fullmenu>());
        EXPECT_THAT(world.backend.boxes, IsEmpty());
        return said;
    }
};
} // namespace

TEST_F(CodecMenu, ItsMessagesAreNotices)
{
    VideoWindows[1]->Caption = "§/films/x.wmv";
    EXPECT_THAT(notices("mnuAudioSet"),
                ElementsAre("ATTENTION!!\nAudio settings are available only for AVI/MPG/MPEG video format."));
    EXPECT_THAT(notices("mnuVideoSet"),
                ElementsAre("ATTENTION!!\nVideo settings are available only for AVI video format."));
    world.files.content.erase(kStarter);
    EXPECT_THAT(notices("mnuAudioSet"), ElementsAre("Audio settings not available, install FFDSHOW codecs."));
    EXPECT_THAT(notices("mnuVideoSet"), ElementsAre("Video settings not available, install FFDSHOW codecs."));
}

TEST_F(CodecMenu, ItOpensTheFormOverTheVideoAndHoldsThePanelDownMeanwhile)
{
    bool held = false;
    world.backend.whileModal["frmFFDShowVideo"] = [&](Form&) { held = FullMenuOpen && !console().Timer4.enabled(); };
    rightClick("mnuVideoSet");
    EXPECT_TRUE(held);
    EXPECT_FALSE(FullMenuOpen);
    EXPECT_TRUE(console().Timer4.enabled());
}

TEST_F(CodecMenu, WithoutASelectedWindowNothingOpens)
{
    for (const char* selected : {"", "\"/elsewhere.avi\""}) {
        CurrentAlias = selected;
        EXPECT_THAT(notices("mnuVideoSet"), IsEmpty());
        EXPECT_THAT(world.shell.started, IsEmpty());
    }
}

TEST_F(CodecSettings, WhatWasFoundBeforeIsKeptWhereNothingIsFoundNow)
{
    CurrentAlias.clear();
    press(CodecPage::Video);
    const Text before = FFDShowPath;
    world.files.content.erase(kPlaces[2]);
    press(CodecPage::Video);
    EXPECT_EQ(FFDShowPath, before);
}

TEST_F(CodecSettings, AFolderThatNobodyAnswersForIsNotWaitedForLong)
{
    world.finder.silent = {kPlaces[0], kPlaces[1]};
    world.files.content[kPlaces[0]] = {};
    CurrentAlias.clear();
    press(CodecPage::Video);
    EXPECT_EQ(FFDShowPath, "\"" + kPlaces[2] + "\"");
    int whole = 0;
    for (const int wait : world.finder.waits)
        whole += wait;
    EXPECT_LE(whole, 2000);
}

} // namespace tandrel::test
