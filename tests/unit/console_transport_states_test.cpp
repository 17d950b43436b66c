// The commands on the selected video beside other media, while the program is busy, and where two videos are the same.

#include "fake_controls.h"
#include "player_bench.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleTransportStates : public Player
{
protected:
    ConsoleTransportStates()
    {
        world.backend.windows = true;
        start();
    }
    void run(int index)
    {
        world.mci.clear();
        console().cmdMedia[static_cast<std::size_t>(index)]->Value = true;
    }
    void press(CommandButton& button)
    {
        world.mci.clear();
        button.Value = true;
    }
};

} // namespace

// Busy.

TEST_F(ConsoleTransportStates, AllButOpenRunWhileThePointerIsTheHourglassAndEndIt)
{
    open(0);
    const auto runBusy = [this](int index) {
        screen().MousePointer = pointer::kHourglass;
        run(index);
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault) << index;
    };
    runBusy(command::kPause);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    runBusy(command::kPlay);
    EXPECT_THAT(commands(), Contains("Play A"));
    EXPECT_THAT(paused(), ElementsAre(0));
    runBusy(command::kStop);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Pause A"));
    runBusy(command::kHide);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_EQ(console().windowState(), 1);
}

// What is selected.

TEST_F(ConsoleTransportStates, PauseAndStopTakeAnAliasOfBlanksAndPlayDoesNot)
{
    open(0);
    CurrentAlias = "  ";
    Playing = true;
    run(command::kPause);
    EXPECT_THAT(commands(), ElementsAre("Pause " + CurrentAlias));
    EXPECT_FALSE(Playing);
    run(command::kPlay);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_FALSE(Playing);
    Playing = true;
    run(command::kStop);
    EXPECT_THAT(commands(), ElementsAre("set " + CurrentAlias + " time format ms", "seek " + CurrentAlias + " to 0",
                                        "Pause " + CurrentAlias));
    EXPECT_FALSE(Playing);
    EXPECT_THAT(paused(), ElementsAre(0));
}

TEST_F(ConsoleTransportStates, OfTwoThatPlayTheSamePauseHoldsTheFirst)
{
    open(0);
    open(0);
    run(command::kPause);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_THAT(paused(), ElementsAre(1, 0));
}

TEST_F(ConsoleTransportStates, OfTwoThatPlayTheSameReplayTakesTheFirst)
{
    open(0);
    open(0);
    holdAll();
    console().imgReplay.userClick();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Play A"));
    EXPECT_THAT(paused(), ElementsAre(0, 1));
}

// Jumps.

TEST_F(ConsoleTransportStates, BesideAnHdFilmTheHiddenButtonsJumpInTheSelectedVideo)
{
    OtherMediaBench bench;
    open(0);
    MediaLengthMs = 60000;
    MkvOpen = true;
    press(console().cmdFwd);
    EXPECT_TRUE(FastForward);
    EXPECT_FALSE(FastRewind);
    console().Timer3.Tick();
    EXPECT_THAT(commands(), Contains("play A from 1560"));
    FastForward = false;
    press(console().cmdRwd);
    EXPECT_TRUE(FastRewind);
    EXPECT_FALSE(FastForward);
    console().Timer3.Tick();
    EXPECT_THAT(commands(), Contains("play A from 1440"));
    EXPECT_THAT(bench.asked(), IsEmpty());
}

TEST_F(ConsoleTransportStates, WhereBothJumpsAreSetTheOneAskedForIsLeft)
{
    open(0);
    console().lblSpeed.Caption = "2x";
    FastForward = FastRewind = true;
    press(console().cmdFwd);
    EXPECT_TRUE(FastForward);
    EXPECT_FALSE(FastRewind);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(console().lblSpeed.caption(), "2x");
    FastForward = FastRewind = true;
    press(console().cmdRwd);
    EXPECT_FALSE(FastForward);
    EXPECT_TRUE(FastRewind);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(console().lblSpeed.caption(), "2x");
}

TEST_F(ConsoleTransportStates, AJumpIsStoppedWithNothingSelectedToo)
{
    open(0);
    console().VolumeSlider.Value = 40;
    CurrentAlias.clear();
    for (CommandButton* button : {&console().cmdFwd, &console().cmdRwd}) {
        const bool forward = button == &console().cmdFwd;
        FastForward = !forward;
        FastRewind = forward;
        console().lblSpeed.Caption = forward ? "-2x" : "2x";
        press(*button);
        EXPECT_FALSE(FastForward || FastRewind);
        EXPECT_EQ(console().lblSpeed.caption(), "0x");
        EXPECT_THAT(commands(), ElementsAre("setaudio  Volume to 400"));
    }
}

// Other media.

TEST_F(ConsoleTransportStates, TheOtherMediumIsPausedBeforeItsWindowGoes)
{
    OtherMediaBench bench;
    const auto listenTo = [this](auto& control, const std::string& name) {
        control.onAsk = [this, name](const std::string& what) { world.journal.push_back(name + " " + what); };
    };
    listenTo(bench.dvd, "frmDVD");
    listenTo(bench.dvd2, "frmDVD2");
    listenTo(bench.mkv, "frmMKV");
    const auto hide = [this](const std::string& name) {
        world.journal.clear();
        run(command::kHide);
        return startingWith(world.journal, name + " ");
    };
    MkvOpen = true;
    EXPECT_THAT(hide("frmMKV"), ElementsAre("frmMKV pause", "frmMKV hide"));
    DVDMode = true;
    EXPECT_THAT(hide("frmDVD2"), ElementsAre("frmDVD2 pause", "frmDVD2 hide"));
    WindowsVersion = "WINDOWS XP";
    EXPECT_THAT(hide("frmDVD"), ElementsAre("frmDVD Pause", "frmDVD hide"));
}

TEST_F(ConsoleTransportStates, AnHdFilmThatCantBeClosedBeginsAnewAllTheSame)
{
    OtherMediaBench bench;
    MkvOpen = true;
    bench.mkv.onAsk = [](const std::string& what) {
        if (what == "close")
            throw RuntimeError(5, "Busy");
    };
    console().imgReplay.userClick();
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV close", "frmMKV URL /films/a.mkv"));
}

} // namespace tandrel::test
