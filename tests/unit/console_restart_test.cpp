// The restart of all videos, and the resume behind the grid: dead slots, and errors on the way.

#include "player_bench.h"

#include <algorithm>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleRestart : public Player
{
protected:
    /// Three videos in PlayAll Mode, all held, of which the user has closed the one in the middle.
    void beginWithAGap()
    {
        start("0");
        openSeveral(3);
        const auto closed = VideoWindows.at(1);
        unload(*closed);
        world.mci.fail("status  position", 263);
        holdAll();
        console().VolumeSlider.Value = 70;
        world.mci.clear();
    }
    /// The commands from the first one that sets a time format.
    std::vector<std::string> commandsBehindTheGrid()
    {
        const auto sent = commands();
        return {std::find(sent.begin(), sent.end(), "set A time format ms"), sent.end()};
    }
};

} // namespace

TEST_F(ConsoleRestart, GoesThroughDeadSlotsToo)
{
    beginWithAGap();
    console().imgResync.userClick();
    EXPECT_THAT(commandsBehindTheGrid(),
                ElementsAre("set A time format ms", "status A position", "seek A to 0", "Play A",
                            "setaudio A Volume to 700", "set  time format ms", "status  position", "seek  to 0",
                            "Play ", "setaudio  Volume to 700", "set C time format ms", "status C position",
                            "seek C to 0", "Play C", "setaudio C Volume to 700"));
    EXPECT_THAT(paused(), ElementsAre(0, 0, 0));
}

TEST_F(ConsoleRestart, TheGridOfTheMenuResumesDeadSlotsToo)
{
    beginWithAGap();
    world.backend.menuChoice = "mnuSlideCenter";
    console().imgResize.userClick();
    EXPECT_THAT(commandsBehindTheGrid(),
                ElementsAre("set A time format ms", "status A position", "seek A to 1500", "Play A",
                            "setaudio A Volume to 700", "set  time format ms", "status  position", "seek  to ", "Play ",
                            "setaudio  Volume to 700", "set C time format ms", "status C position", "seek C to 1500",
                            "Play C", "setaudio C Volume to 700"));
    EXPECT_THAT(paused(), ElementsAre(0, 0, 0));
}

TEST_F(ConsoleRestart, AnErrorInTheArrangementLeavesTheModeAndEndsTheHold)
{
    start("0");
    openSeveral(2);
    console().imgPauseAll.Tag = "1";
    Text mode;
    // The first hourglass is the command's own, the second one the arrangement's.
    int changes = 0;
    world.backend.whenPointerChanges = [&] {
        if (++changes != 2)
            return;
        mode = console().SlideMode;
        throw RuntimeError(5, "No pointer");
    };
    console().imgResync.userClick();
    EXPECT_EQ(mode, "1") << "the arrangement was under way";
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(console().SlideMode, "0");
    EXPECT_EQ(console().imgPauseAll.tag(), "");
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

} // namespace tandrel::test
