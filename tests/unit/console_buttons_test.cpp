// What a click on the console's image buttons and on its body does.

#include "player_bench.h"

#include "texts/frm_help.h"
#include "texts/links.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleButtons : public Player
{
protected:
    void startWithWindows()
    {
        world.backend.windows = true;
        start();
        world.backend.pointerShapes.clear();
        world.settings.saved.clear();
    }
    static void press(Control& control, int button)
    {
        control.userMouseDown({button, 0, 0, 0});
        control.userMouseUp({button, 0, 0, 0});
        if (button == mouse::kLeft)
            control.userClick();
    }
    /// Makes the buttons of the hidden row note their presses and nothing else.
    void listenToRow()
    {
        for (std::size_t index = 0; index < console().cmdMedia.size(); ++index)
            if (auto& button = console().cmdMedia[index])
                button->Click = [this, index] { pressed.push_back(static_cast<int>(index)); };
    }
    /// Nothing at all came of what the user did.
    void expectNothing(const Text& what)
    {
        EXPECT_THAT(world.mci.sent(), IsEmpty()) << what;
        EXPECT_THAT(world.backend.menus, IsEmpty()) << what;
        EXPECT_THAT(world.backend.boxes, IsEmpty()) << what;
        EXPECT_THAT(world.backend.pointerShapes, IsEmpty()) << what;
        EXPECT_THAT(world.shell.opened, IsEmpty()) << what;
        EXPECT_THAT(world.settings.saved, IsEmpty()) << what;
        EXPECT_THAT(world.screenSaver.switched, IsEmpty()) << what;
        EXPECT_THAT(pressed, IsEmpty()) << what;
        EXPECT_FALSE(Loaded<class frmHelp>()) << what;
        EXPECT_EQ(console().windowState(), 0) << what;
        EXPECT_FALSE(programEnded()) << what;
    }
    std::vector<int> pressed;
};

} // namespace

TEST_F(ConsoleButtons, OnceTheEndHasBegunNoImageDoesAnything)
{
    startWithWindows();
    listenToRow();
    open(0);
    world.screenSaver.switched.clear();
    console().ClosingDown = true;
    int images = 0;
    for (Control* control : console().controls())
        if (auto* image = dynamic_cast<Image*>(control)) {
            press(*image, mouse::kLeft);
            expectNothing(image->name());
            ++images;
        }
    EXPECT_EQ(images, 27) << "with the body, its outline and the sign of the load";
}

TEST_F(ConsoleButtons, OtherMouseButtonsPressNone)
{
    startWithWindows();
    listenToRow();
    for (Control* control : console().controls())
        if (auto* image = dynamic_cast<Image*>(control); image && image->Click) {
            press(*image, mouse::kRight);
            press(*image, mouse::kMiddle);
            expectNothing(image->name());
        }
}

TEST_F(ConsoleButtons, SomeOfThemPressTheHiddenRow)
{
    startWithWindows();
    listenToRow();
    press(console().imgPlay, mouse::kLeft);
    press(console().imgPause, mouse::kLeft);
    press(console().imgHelp, mouse::kLeft);
    press(console().imgHide, mouse::kLeft);
    press(console().imgExit, mouse::kLeft);
    EXPECT_THAT(pressed, ElementsAre(0, 1, 4, 6, 7));
    EXPECT_FALSE(programEnded()) << "the row alone does what they ask for";
}

TEST_F(ConsoleButtons, HelpComesUpModelessWithThePlainPointer)
{
    startWithWindows();
    screen().MousePointer = pointer::kHourglass;
    press(console().imgHelp, mouse::kLeft);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    ASSERT_TRUE(Loaded<class frmHelp>());
    EXPECT_TRUE(frmHelp().visible());
    EXPECT_THAT(world.journal, Contains("frmHelp show"));
    EXPECT_THAT(world.journal, Not(Contains("frmHelp modal")));
}

TEST_F(ConsoleButtons, ExitEndsTheProgram)
{
    startWithWindows();
    press(console().imgExit, mouse::kLeft);
    EXPECT_TRUE(console().ClosingDown);
    EXPECT_TRUE(programEnded());
}

TEST_F(ConsoleButtons, TheMinimiseButtonMinimisesTheConsoleAlone)
{
    startWithWindows();
    frmChild& video = open(0);
    press(console().imgDwn, mouse::kLeft);
    EXPECT_EQ(console().windowState(), 1);
    EXPECT_THAT(world.journal, Contains("frmMedia minimise"));
    EXPECT_EQ(video.windowState(), 0);
    EXPECT_TRUE(video.visible());
    EXPECT_FALSE(ResizePending);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(ConsoleButtons, TwoOfThemPressTheHiddenButtonsOfTheSettings)
{
    startWithWindows();
    std::vector<Text> buttons;
    console().cmdVideo.Click = [&] { buttons.push_back("video"); };
    console().cmdAudio.Click = [&] { buttons.push_back("audio"); };
    press(console().imgVideo, mouse::kLeft);
    press(console().imgAudio, mouse::kLeft);
    EXPECT_THAT(buttons, ElementsAre("video", "audio"));
}

TEST_F(ConsoleButtons, ThreeOfThemPopUpAMenu)
{
    startWithWindows();
    press(console().imgOpen, mouse::kLeft);
    EXPECT_THAT(world.backend.menus, ElementsAre("openmenu.popup"));
    world.backend.menus.clear();
    press(console().imgResize, mouse::kLeft);
    EXPECT_THAT(world.backend.menus, ElementsAre("slidemenu.popup"));
    press(console().imgShare, mouse::kLeft);
    EXPECT_THAT(world.backend.menus, ElementsAre("slidemenu.popup", "share.popup"));
}

TEST_F(ConsoleButtons, TwoOfThemShareTheProgramOnANetwork)
{
    startWithWindows();
    AppTitle = "Tandrel Player PRO 1.02.03";
    press(console().imgFaceBook, mouse::kLeft);
    EXPECT_THAT(world.shell.opened,
                ElementsAre("https://www.facebook.com/sharer.php?u=https%3A%2F%2Ftandrel-player.example%2Fdownload"
                            "&t=Tandrel%20Player%20PRO%201.02.03"));
    world.shell.opened.clear();
    press(console().imgTwitter, mouse::kLeft);
    EXPECT_THAT(world.shell.opened,
                ElementsAre("https://twitter.com/share?url=https%3A%2F%2Ftandrel-player.example%2Fdownload"
                            "&via=TandrelPlayer&text=Tandrel%20Player%20PRO%201.02.03"));
}

// The body.

TEST_F(ConsoleButtons, TheLeftButtonDragsTheConsoleByItsBody)
{
    startWithWindows();
    press(console().Sposta, mouse::kLeft);
    EXPECT_THAT(world.journal, ElementsAre("frmMedia drag", "frmMedia repaint"));
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(ConsoleButtons, TheRightButtonOnItsBodyPopsUpTheMenu)
{
    startWithWindows();
    press(console().Sposta, mouse::kRight);
    EXPECT_THAT(world.backend.menus, ElementsAre("menu.mnupopup"));
    EXPECT_THAT(world.journal, IsEmpty());
}

TEST_F(ConsoleButtons, TheMiddleButtonOnItsBodyDoesNothing)
{
    startWithWindows();
    press(console().Sposta, mouse::kMiddle);
    EXPECT_THAT(world.journal, IsEmpty());
    expectNothing("the middle button");
}

} // namespace tandrel::test
