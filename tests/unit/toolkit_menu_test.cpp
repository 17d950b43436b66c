// Popup menus, without a window in sight.

#include "fake_services.h"

#include "toolkit/form.h"
#include "toolkit/menu.h"
#include "toolkit/press.h"
#include "toolkit/program.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Host : public Form
{
public:
    Host() : Form("host", Frame::Bare, {0, 0, 1500, 1500})
    {
        second.Click = [this] { events.push_back("second"); };
    }

    Menu popup{*this, "popup"};
    Menu first{popup, "first", "&First"};
    Menu line{popup, "line", Menu::kSeparator};
    Menu second{popup, "second", "&Second"};
    std::vector<std::string> events;
};

class Menus : public ::testing::Test
{
protected:
    Menus() { host->load(); }

    World world;
    std::shared_ptr<Host> host = std::make_shared<Host>();
};

} // namespace

TEST_F(Menus, AMenuBlocksItsCallerAndRunsTheChosenHandlerFirst)
{
    world.backend.whileMenuIsUp = [&] { host->events.push_back("up"); };
    world.backend.menuChoice = "second";
    PopupMenu(host->popup);
    host->events.push_back("returned");
    EXPECT_THAT(host->events, ElementsAre("up", "second", "returned"));
    EXPECT_THAT(world.backend.menus, ElementsAre("host.popup"));
}

TEST_F(Menus, AClosedMenuRunsNothingAndSoDoesAnEntryWithoutHandler)
{
    PopupMenu(host->popup);
    world.backend.menuChoice = "first";
    PopupMenu(host->popup);
    EXPECT_THAT(host->events, IsEmpty());
    EXPECT_EQ(world.backend.menus.size(), 2u);
}

TEST_F(Menus, ThePressThatOpensAMenuDoesNothingElse)
{
    world.pointer.right = true;
    PopupMenu(host->popup);
    EXPECT_FALSE(buttonIsDown(MouseButton::Right)) << "spent until its release";
    world.pointer.right = false;
    EXPECT_FALSE(buttonIsDown(MouseButton::Right));
    world.pointer.right = true;
    EXPECT_TRUE(buttonIsDown(MouseButton::Right)) << "a new press";
}

TEST_F(Menus, ThePressThatChoosesDoesNothingElse)
{
    world.backend.whileMenuIsUp = [&] { world.pointer.left = true; };
    world.backend.menuChoice = "second";
    PopupMenu(host->popup);
    EXPECT_FALSE(buttonIsDown(MouseButton::Left));
}

TEST_F(Menus, OnlyOneIsUpAtATime)
{
    world.backend.whileMenuIsUp = [&] { PopupMenu(host->popup); };
    PopupMenu(host->popup);
    EXPECT_EQ(world.backend.menus.size(), 1u);
    world.backend.whileMenuIsUp = nullptr;
    PopupMenu(host->popup);
    EXPECT_EQ(world.backend.menus.size(), 2u) << "the first is down again";
}

TEST_F(Menus, NothingPopsUpWithoutAVisibleEntry)
{
    for (Menu* entry : host->popup.entries())
        entry->Visible = false;
    PopupMenu(host->popup);
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(Menus, AFormThatEndsUnderItsMenuRunsNothing)
{
    world.backend.whileMenuIsUp = [&] { unload(*host); };
    world.backend.menuChoice = "second";
    PopupMenu(host->popup);
    EXPECT_THAT(host->events, IsEmpty());
}

TEST_F(Menus, AnErrorInAHandlerStaysInIt)
{
    host->second.Click = [] { throw RuntimeError(5, "Invalid procedure call"); };
    world.backend.menuChoice = "second";
    EXPECT_NO_THROW(PopupMenu(host->popup));
}

TEST_F(Menus, NothingPopsUpBehindTheEnd)
{
    endProgram();
    PopupMenu(host->popup);
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

} // namespace tandrel::test
