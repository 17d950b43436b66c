// The forms that take the settings of a codec in front of the video.

#include "panel_bench.h"

#include "fullscreen/frm_ffdshow.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace
{

constexpr WindowHandle kDialog = 900;
constexpr WindowHandle kTip = 800;

/// A film is selected, and the process that is started has put up its dialog.
class CodecForms : public PanelBench
{
protected:
    CodecForms()
    {
        world.backend.windows = true;
        openOn({{0, 0, 1920, 1080}}, 2);
        FFDShowPath = "/programs/ffdshow/ffdshow.ax";
        world.shell.whenStarted = [this] {
            world.desktop.windows[kTip] = {4711, kDialog, PixelRect{0, 0, 10, 10}};
            world.desktop.windows[kDialog] = {4711, 0, PixelRect{300, 200, 800, 600}};
            world.desktop.windows[kDialog + 1] = {4711, 0, PixelRect{0, 0, 5, 5}};
        };
    }
    class frmFFDShowVideo& form()
    {
        class frmFFDShowVideo& one = frmFFDShowVideo();
        return one;
    }
};

} // namespace

TEST_F(CodecForms, EachStartsItsOwnPage)
{
    frmFFDShowAudio();
    EXPECT_THAT(world.shell.started, ElementsAre("/system/RunDLL32.exe /programs/ffdshow/ffdshow.ax,configureAudio"));
    world.shell.started.clear();
    frmFFDShowVideo();
    EXPECT_THAT(world.shell.started, ElementsAre("/system/RunDLL32.exe /programs/ffdshow/ffdshow.ax,configure"));
}

TEST_F(CodecForms, TheirControlsSpeakTheUsersLanguage)
{
    EXPECT_EQ(form().cmdOK.caption(), "Try Changes [after Apply]");
    EXPECT_EQ(form().cmdCancel.caption(), "Exit");
    EXPECT_EQ(form().picOK.container(), &form().Picture1);
    Language = "IT";
    EXPECT_EQ(frmFFDShowAudio().cmdOK.caption(), "Prova le modifiche [dopo Applica]");
    EXPECT_EQ(frmFFDShowAudio().cmdCancel.caption(), "Esci");
}

TEST_F(CodecForms, TheBoxIsLargeEnoughForAnyDialog)
{
    EXPECT_EQ(form().picVideo.height(), console().FullHeight);
    EXPECT_EQ(form().picVideo.width(), console().FullWidth);
}

TEST_F(CodecForms, TheDialogStandsInTheBoxWithItsTitleAndFrameCutOff)
{
    world.desktop.ownRect = {100, 50, 2020, 1130};
    EXPECT_THAT(world.desktop.moved, IsEmpty());
    form();
    ASSERT_THAT(world.desktop.moved, ElementsAre(Pair(kDialog, form().picVideo.hWnd())));
    EXPECT_EQ(form().left(), (300 - 100) * 15);
    EXPECT_EQ(form().top(), (200 - 50) * 15);
    EXPECT_EQ(form().picVideo.left(), -(300 - 100) * 15 - 55);
    EXPECT_EQ(form().picVideo.top(), -(200 - 50) * 15 - 450);
    EXPECT_EQ(form().picVideo.container(), &form().picView);
    EXPECT_EQ(form().width(), (500 - 4) * 15 + 30) << "the dialog without its frame, and the form's own";
    EXPECT_EQ(form().picView.width(), (500 - 4) * 15);
    EXPECT_EQ(form().picView.height(), (400 - 30) * 15);
    EXPECT_EQ(form().Picture1.top(), form().picView.height());
}

TEST_F(CodecForms, ThePlaceOfTheLastCloseIsKept)
{
    world.desktop.ownRect = {100, 50, 2020, 1130};
    form().Move({4500, 3000, form().width(), form().height()});
    form().cmdCancel.Click();
    EXPECT_EQ(FFDShowLeft, 4500);
    EXPECT_EQ(FFDShowTop, 3000);
    EXPECT_FALSE(Loaded<class frmFFDShowVideo>());
    EXPECT_EQ(frmFFDShowAudio().left(), 4500);
    EXPECT_EQ(frmFFDShowAudio().top(), 3000);
    EXPECT_EQ(frmFFDShowAudio().picVideo.left(), -(300 - 100) * 15 - 55);
}

TEST_F(CodecForms, TheyHoldThePanelDown)
{
    FullMenuOpen = false;
    console().Timer4.Enabled = true;
    form();
    EXPECT_TRUE(FullMenuOpen);
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(CodecForms, WithoutAWindowOfTheProcessAnEmptyFormStays)
{
    world.shell.whenStarted = nullptr;
    const Rect stored{0, 0, 9330, 7350};
    EXPECT_EQ(rectOf(form()), stored);
    EXPECT_THAT(world.desktop.moved, IsEmpty());
    EXPECT_EQ(form().picVideo.left(), 0);
    EXPECT_TRUE(FullMenuOpen);
    form().cmdCancel.Click();
    EXPECT_THAT(world.desktop.moved, IsEmpty());
}

TEST_F(CodecForms, AProcessThatCantBeStartedLeavesAnEmptyFormToo)
{
    world.shell.process = 0;
    world.shell.whenStarted = nullptr;
    world.desktop.windows[kDialog] = {0, 0, PixelRect{300, 200, 800, 600}};
    form();
    EXPECT_THAT(world.desktop.moved, IsEmpty()) << "a window of nobody is not its own";
}

TEST_F(CodecForms, ARectangleThatCantBeReadLeavesTheFormWhereItIs)
{
    world.shell.whenStarted = [this] { world.desktop.windows[kDialog] = {4711, 0, std::nullopt}; };
    EXPECT_EQ(form().left(), 0);
    EXPECT_THAT(world.desktop.moved, ElementsAre(Pair(kDialog, form().picVideo.hWnd())));
    EXPECT_EQ(form().picVideo.top(), 0);
}

TEST_F(CodecForms, TheDialogIsGivenBackBeforeTheFormGoes)
{
    form();
    world.desktop.moved.clear();
    form().cmdCancel.Click();
    EXPECT_THAT(world.desktop.moved, ElementsAre(Pair(kDialog, 0U)));
}

// Windows by process.

TEST_F(CodecForms, AWindowIsFoundByItsProcess)
{
    world.desktop.windows = {{10, {1, 0, {}}}, {20, {2, 10, {}}}, {30, {2, 0, {}}}, {40, {2, 0, {}}}};
    EXPECT_EQ(form().GetWinHandle(2), 30U) << "the first that belongs to no other";
    EXPECT_EQ(form().GetWinHandle(1), 10U);
    EXPECT_EQ(form().GetWinHandle(3), 0U);
    EXPECT_EQ(form().ProcIDFromWnd(20), 2);
    EXPECT_EQ(form().ProcIDFromWnd(99), 0);
}

// The new picture.

TEST_F(CodecForms, TryChangesOpensTheVideoAnewAtItsPlace)
{
    frmChild& window = *VideoWindows[1];
    window.Paused = 1;
    console().VolumeSlider.Value = 40;
    world.mci.answer("status " + alias(1) + " position", "12345");
    form();
    FullMenuOpen = false;
    console().Timer4.Enabled = true;
    const std::string handle = std::to_string(window.picVideo.hWnd());
    const std::string width = std::to_string(pixelsX(window.picVideo.width()));
    const std::string height = std::to_string(pixelsY(window.picVideo.height()));
    forgetCommands();
    std::vector<std::string> hiddenAt;
    world.mci.onSend = [&](const std::string& command) {
        if (!window.picVideo.visible())
            hiddenAt.push_back(command.substr(0, command.find(' ')));
    };
    const Long slot = NextSlot;
    form().cmdOK.Click();
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "status B position", "Close B",
                                        "Open B Type MPEGVideo alias B parent " + handle + " style child",
                                        "set B time format ms", "seek B to 12345", "Play B", "Pause B",
                                        "put B window at 0 0 " + width + " " + height, "setaudio B Volume to 400"));
    EXPECT_EQ(hiddenAt.front(), "Close") << "before the old picture goes";
    EXPECT_EQ(hiddenAt[1], "Open");
    EXPECT_TRUE(window.picVideo.visible());
    EXPECT_TRUE(FullMenuOpen);
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_EQ(NextSlot, slot);
    EXPECT_EQ(window.MediaFile, alias(1));
    for (const std::size_t room : world.mci.buffers())
        EXPECT_TRUE(room == 0 || room == 128);
}

TEST_F(CodecForms, AVideoThatRunsGoesOnRunning)
{
    world.mci.answer("status " + alias(1) + " position", "700");
    form();
    forgetCommands();
    form().cmdOK.Click();
    EXPECT_THAT(startingWith(commands(), "Pause"), IsEmpty());
    EXPECT_THAT(startingWith(commands(), "seek"), ElementsAre("seek B to 700"));
}

TEST_F(CodecForms, ErrorsOfTheMediaServiceAreNotLookedAt)
{
    world.mci.otherwise = [](const std::string&, std::string&) { return 263; };
    form();
    forgetCommands();
    form().cmdOK.Click();
    EXPECT_EQ(commands().size(), 9U);
    EXPECT_EQ(commands()[5], "seek B to 0");
    EXPECT_TRUE(VideoWindows[1]->picVideo.visible());
}

TEST_F(CodecForms, WithoutTheVideoTryChangesSendsNothing)
{
    form();
    VideoWindows[1]->MediaFile.clear();
    forgetCommands();
    FullMenuOpen = false;
    form().cmdOK.Click();
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(FullMenuOpen);
}

TEST_F(CodecForms, EachPlaceIsKeptByItself)
{
    world.desktop.ownRect = {100, 50, 2020, 1130};
    FFDShowLeft = 4500;
    form();
    EXPECT_EQ(form().left(), 4500);
    EXPECT_EQ(form().top(), (200 - 50) * 15);
    unload(form());
    FFDShowLeft = 0;
    FFDShowTop = 3000;
    EXPECT_EQ(frmFFDShowAudio().left(), (300 - 100) * 15);
    EXPECT_EQ(frmFFDShowAudio().top(), 3000);
}

TEST_F(CodecForms, TheyAreNamedAfterWhatTheySet)
{
    EXPECT_EQ(form().caption(), "Video Settings");
    EXPECT_EQ(frmFFDShowAudio().caption(), "Audio Settings");
    EXPECT_TRUE(form().cmdCancel.isCancel);
}

TEST_F(CodecForms, AFormThatWouldStandBeyondTheMonitorsIsBroughtBack)
{
    world.desktop.ownRect = {100, 50, 2020, 1130};
    FFDShowLeft = 90000;
    FFDShowTop = 90000;
    EXPECT_LT(form().left(), 28800);
    EXPECT_LT(form().top(), 16200);
}

} // namespace tandrel::test
