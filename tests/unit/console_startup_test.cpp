// The console's load: settings, monitor, question, place.

#include "player_bench.h"

#include "console/command_line.h"
#include "console/frm_start.h"
#include "console/version.h"
#include "desktop/monitors.h"
#include "texts/frm_lang.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::Not;

namespace
{

class ConsoleStartup : public Player
{
protected:
    void onMonitors(const std::vector<PixelRect>& all, const PixelRect& first)
    {
        world.monitors.set(all);
        screen().setMetrics(15, 15, first);
        monitors().Refresh();
    }
    void load() { frmMedia(); }
    void withPlace(const Text& top, const Text& left)
    {
        world.settings.values["sys/top"] = top;
        world.settings.values["sys/left"] = left;
    }
    std::vector<std::string> ext() { return world.files.content["/data/ext.dat"]; }
    void setExt(const std::string& line) { world.files.content["/data/ext.dat"] = {line}; }
};

} // namespace

TEST_F(ConsoleStartup, TheFirstStartIsPlayListModeInMemoryOnly)
{
    load();
    EXPECT_EQ(console().SlideMode, "1");
    EXPECT_THAT(world.settings.saved, IsEmpty());
}

TEST_F(ConsoleStartup, AStoredModeIsTaken)
{
    world.settings.values["sys/slide"] = "0";
    load();
    EXPECT_EQ(console().SlideMode, "0");
}

TEST_F(ConsoleStartup, AMissingTipSettingIsSavedAndStaysEmptyForThisRun)
{
    world.settings.values.erase("sys/tips");
    load();
    EXPECT_EQ(console().TipsOn, "");
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/tips=1"));
}

TEST_F(ConsoleStartup, TheFirstRunOnAModernSystemIsNotedOnce)
{
    world.settings.values.erase("sys/vistaos");
    load();
    EXPECT_TRUE(console().FirstRun);
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/vistaos=1"));
    EXPECT_EQ(WindowsVersion, "UNKNOWN");
}

TEST_F(ConsoleStartup, AnOlderSystemHasNoFirstRun)
{
    world.settings.values.erase("sys/vistaos");
    world.systemFacts.numbers = "2.5.1";
    load();
    EXPECT_EQ(WindowsVersion, "WINDOWS XP");
    EXPECT_FALSE(console().FirstRun);
    EXPECT_THAT(world.settings.saved, IsEmpty());
}

TEST_F(ConsoleStartup, FieldsAndSharedStateTakeTheirStartingValues)
{
    MaxVideos = 3;
    SizePercent = 200;
    VolumeLevel = 1;
    ClickCount = 4;
    ClickState = 1;
    load();
    EXPECT_EQ(MaxVideos, 12);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_EQ(ClickCount, 0);
    EXPECT_EQ(ClickState, 0);
    EXPECT_EQ(console().iTrans, 255);
    EXPECT_FALSE(console().ClosingDown || console().SecondRun || console().FirstRun || console().TrackHold);
    EXPECT_EQ(console().VolumeSlider.value(), 50);
    EXPECT_EQ(console().InvertSlider.value(), 50);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
}

TEST_F(ConsoleStartup, TheTimersBeginAsTold)
{
    load();
    EXPECT_EQ(console().Timer1.interval(), 100);
    EXPECT_EQ(console().Timer2.interval(), 750);
    EXPECT_EQ(console().Timer3.interval(), 50);
    EXPECT_EQ(console().Timer4.interval(), 3000);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_FALSE(console().Timer2.enabled());
    EXPECT_TRUE(console().Timer3.enabled());
    EXPECT_TRUE(console().Timer4.enabled());
}

TEST_F(ConsoleStartup, TheTitleHasTheVersionInTwoDigitsEach)
{
    load();
    EXPECT_THAT(AppTitle, MatchesRegex("Tandrel Player PRO [0-9]+\\.[0-9][0-9]\\.[0-9][0-9]"));
    EXPECT_EQ(console().caption(), AppTitle);
    EXPECT_EQ(console().Label3.caption(), upper(AppTitle));
    Text digits;
    for (const char character : AppTitle)
        if (character >= '0' && character <= '9')
            digits += character;
    EXPECT_EQ(AppVersion, std::stoi(digits));
}

TEST_F(ConsoleStartup, ThePointerIsTheHourglassDuringTheLoadOnly)
{
    world.backend.pointerShapes.clear();
    load();
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleStartup, TheConsolesMonitorIsTheOneThatItsCornerStandsOn)
{
    onMonitors({{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}}, {1920, 0, 3200, 1024});
    load();
    EXPECT_EQ(console().FullLeft, 1920 * 15);
    EXPECT_EQ(console().FullTop, 0);
    EXPECT_EQ(console().FullWidth, 1280 * 15);
    EXPECT_EQ(console().FullHeight, 1024 * 15);
}

TEST_F(ConsoleStartup, OutsideEveryMonitorTheFourStayZero)
{
    onMonitors({{0, 0, 1920, 1080}}, {5000, 0, 6000, 1000});
    load();
    EXPECT_EQ(console().FullLeft, 0);
    EXPECT_EQ(console().FullTop, 0);
    EXPECT_EQ(console().FullWidth, 0);
    EXPECT_EQ(console().FullHeight, 0);
}

// The place: the monitor is 28800 by 16200 twips, the console 13500 by 3180.

TEST_F(ConsoleStartup, WithoutAStoredPlaceItStandsTwoThirdsDownAndAFifthIn)
{
    load();
    EXPECT_EQ(console().top(), 10800);
    EXPECT_EQ(console().left(), 5760);
}

TEST_F(ConsoleStartup, WithoutAStoredPlaceTheMonitorsCornerIsAdded)
{
    onMonitors({{-1280, -1000, 0, 24}, {0, 0, 1920, 1080}}, {-1280, -1000, 0, 24});
    load();
    EXPECT_EQ(console().top(), 10240 - 15000);
    EXPECT_EQ(console().left(), 3840 - 19200);
}

TEST_F(ConsoleStartup, AStoredPlaceIsRelativeToTheMonitor)
{
    onMonitors({{-1280, -100, 0, 924}, {0, 0, 1920, 1080}}, {-1280, -100, 0, 924});
    withPlace("1000", "2000");
    load();
    EXPECT_EQ(console().top(), 1000 - 1500);
    EXPECT_EQ(console().left(), 2000 - 19200);
}

TEST_F(ConsoleStartup, NegativePlacesBecomeTheCorner)
{
    onMonitors({{-1280, -100, 0, 924}, {0, 0, 1920, 1080}}, {-1280, -100, 0, 924});
    withPlace("-1", "-1");
    load();
    EXPECT_EQ(console().top(), -1500);
    EXPECT_EQ(console().left(), -19200);
}

TEST_F(ConsoleStartup, TheLargestPlacesThatFitAreKept)
{
    withPlace("13020", "15300");
    load();
    EXPECT_EQ(console().top(), 13020);
    EXPECT_EQ(console().left(), 15300);
}

TEST_F(ConsoleStartup, OneTwipMoreIsClamped)
{
    withPlace("13021", "15301");
    load();
    EXPECT_EQ(console().top(), 13020);
    EXPECT_EQ(console().left(), 15300);
}

TEST_F(ConsoleStartup, TheLowerEdgeIsMeasuredWithoutTheMonitorsTopAndTheRightEdgeWithItsLeft)
{
    onMonitors({{0, 0, 1280, 1000}, {0, 1000, 1280, 2000}, {1280, 0, 2560, 1000}, {1280, 1000, 2560, 2000}},
               {1280, 1000, 2560, 2000});
    withPlace("20000", "20000");
    load();
    ASSERT_EQ(console().FullTop, 15000);
    EXPECT_EQ(console().top(), 15000 - 3180) << "FullHeight less the console";
    EXPECT_EQ(console().left(), 19200 + 19200 - 13500);
}

TEST_F(ConsoleStartup, APlaceThatNobodyCouldReachIsMovedToTheNearestMonitor)
{
    // The same places, but with no monitor above the console's own.
    onMonitors({{0, 0, 1280, 1000}, {0, 1000, 1280, 2000}, {1280, 1000, 2560, 2000}}, {1280, 1000, 2560, 2000});
    withPlace("20000", "20000");
    load();
    EXPECT_EQ(console().top(), 15000);
    EXPECT_EQ(console().left(), 19200 + 19200 - 13500);
}

TEST_F(ConsoleStartup, ClampingComesBeforeTheTestForANegativePlace)
{
    onMonitors({{0, 0, 1280, 1000}, {0, 1000, 1280, 2000}}, {0, 1000, 1280, 2000});
    withPlace("-100", "");
    load();
    EXPECT_EQ(console().top(), 15000 - 3180) << "-100 below a top of 15000 is beyond a height of 15000";
}

TEST_F(ConsoleStartup, PlacesThatAreNoNumbersAreZero)
{
    withPlace("abc", "12x");
    load();
    EXPECT_EQ(console().top(), 0);
    EXPECT_EQ(console().left(), 12);
}

TEST_F(ConsoleStartup, PlacesBeyondAnyNumberAreClampedToo)
{
    withPlace("99999999999", "-99999999999");
    load();
    EXPECT_EQ(console().top(), 13020);
    EXPECT_EQ(console().left(), 0);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

// The primary player question.

TEST_F(ConsoleStartup, AMissingAnswerIsCreatedAndAskedFor)
{
    world.files.content.erase("/data/ext.dat");
    world.settings.values.erase("day/run");
    world.backend.boxAnswer = BoxAnswer::No;
    load();
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "Make Tandrel Player as primary player?");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::YesNoQuestion);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    EXPECT_TRUE(console().FirstRun);
    EXPECT_THAT(ext(), ElementsAre("1"));
    EXPECT_THAT(world.settings.saved, ElementsAre("day/run=202611"));
    EXPECT_EQ(std::count(world.files.written.begin(), world.files.written.end(), "/data/ext.dat"), 2)
        << "first as \"0\"";
}

TEST_F(ConsoleStartup, AnEndInTheMiddleOfTheQuestionIsNoAnswer)
{
    world.files.content["/data/ext.dat"] = {"0"};
    world.backend.boxAnswer = BoxAnswer::Cancel;
    load();
    EXPECT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_THAT(ext(), ElementsAre("0"));
    EXPECT_THAT(world.settings.saved, IsEmpty());
}

TEST_F(ConsoleStartup, NotAskedAndEmptyAreAskedYesIsKept)
{
    for (const char* answer : {"0", " 0 ", "\"0\"", ""}) {
        World fresh;
        fresh.settled();
        fresh.files.content["/data/ext.dat"] = {answer};
        fresh.backend.boxAnswer = BoxAnswer::Yes;
        frmMedia();
        EXPECT_EQ(fresh.backend.boxes.size(), 1U) << answer;
        EXPECT_THAT(fresh.files.content["/data/ext.dat"], ElementsAre("2"));
        EXPECT_THAT(fresh.settings.saved, IsEmpty());
        EXPECT_TRUE(frmMedia().FirstRun);
    }
}

TEST_F(ConsoleStartup, AFileWithoutALineIsAskedFor)
{
    world.files.content["/data/ext.dat"] = {};
    load();
    EXPECT_EQ(world.backend.boxes.size(), 1U);
}

TEST_F(ConsoleStartup, YesIsNeverAskedAgain)
{
    setExt("2");
    world.settings.values["day/run"] = "200001";
    load();
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_THAT(ext(), ElementsAre("2"));
}

TEST_F(ConsoleStartup, NoIsAskedAgainInALaterMonthOnly)
{
    struct Case {
        const char* refused;
        bool asked;
    };
    for (const auto& [refused, asked] : {Case{"202610", true}, Case{"202512", true}, Case{"202611", false},
                                         Case{"202612", false}, Case{"999999", false}}) {
        World fresh;
        fresh.settled();
        fresh.settings.values["day/run"] = refused;
        fresh.backend.boxAnswer = BoxAnswer::No;
        frmMedia();
        EXPECT_EQ(fresh.backend.boxes.size(), asked ? 1U : 0U) << refused;
        EXPECT_THAT(fresh.files.content["/data/ext.dat"], ElementsAre("1"));
        EXPECT_EQ(fresh.settings.values["day/run"], asked ? "999999" : refused) << "the second refusal is the last";
        EXPECT_FALSE(frmMedia().FirstRun);
    }
}

TEST_F(ConsoleStartup, ALaterYesIsKept)
{
    world.settings.values["day/run"] = "202601";
    world.backend.boxAnswer = BoxAnswer::Yes;
    load();
    EXPECT_THAT(ext(), ElementsAre("2"));
    EXPECT_EQ(world.settings.values["day/run"], "202601");
}

TEST_F(ConsoleStartup, ARefusalWithoutItsMonthGetsThisMonth)
{
    world.settings.values.erase("day/run");
    load();
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_EQ(world.settings.values["day/run"], "202611");
}

TEST_F(ConsoleStartup, GarbageInTheAnswerAsksNothing)
{
    setExt(std::string("\x00\xFF\x01", 3));
    load();
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_TRUE(console().isLoaded());
}

TEST_F(ConsoleStartup, AFolderThatCantBeWrittenStillStarts)
{
    world.files.content.clear();
    world.files.writable = false;
    setCommandLine({alias(0), {}});
    frmStart().start();
    EXPECT_TRUE(console().visible());
    EXPECT_EQ(liveCount(), 1);
}

// The first form.

TEST_F(ConsoleStartup, WithoutAFileTheFirstFormFadesInAndBringsUpTheConsole)
{
    world.backend.windows = true;
    frmStart().start();
    const auto opacities = startingWith(world.journal, "frmStart opacity ");
    ASSERT_EQ(opacities.size(), 53U);
    EXPECT_EQ(opacities.front(), "frmStart opacity 0");
    EXPECT_EQ(opacities[1], "frmStart opacity 1");
    EXPECT_EQ(opacities[2], "frmStart opacity 6");
    EXPECT_EQ(opacities[51], "frmStart opacity 251");
    EXPECT_EQ(opacities.back(), "frmStart opacity 255");
    EXPECT_TRUE(console().visible());
    EXPECT_FALSE(Loaded<class frmStart>());
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleStartup, WithAFileTheFirstFormIsNeverSeen)
{
    world.backend.windows = true;
    setCommandLine({alias(0), {}});
    frmStart().start();
    EXPECT_THAT(world.journal, Not(Contains("frmStart show")));
    EXPECT_TRUE(console().visible());
}

TEST_F(ConsoleStartup, AMissingLanguageIsAskedForAndSaved)
{
    world.settings.values.erase("sys/langos");
    int asked = 0;
    world.backend.whileModal["frmLang"] = [&](Form& dialog) {
        ++asked;
        auto& languages = dynamic_cast<class frmLang&>(dialog);
        EXPECT_EQ(languages.cboLang.listIndex(), 0);
        languages.cboLang.ListIndex = 4;
        languages.cmdOK.userClick();
    };
    frmStart().start();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Language, "DE");
    EXPECT_EQ(world.settings.values["sys/langos"], "DE");
}

TEST_F(ConsoleStartup, AStoredLanguageAsksNothing)
{
    world.settings.values["sys/langos"] = "XX";
    world.backend.whileModal["frmLang"] = [](Form&) { ADD_FAILURE() << "the language was asked for"; };
    frmStart().start();
    EXPECT_EQ(Language, "XX");
}

} // namespace tandrel::test
