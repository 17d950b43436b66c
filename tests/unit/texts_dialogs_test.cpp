// The language dialog, the message box of the program's own, and the notice of long commands.

#include "player_bench.h"

#include "console/frm_start.h"
#include "desktop/monitors.h"
#include "texts/frm_lang.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

namespace
{

class TextsDialogs : public Player
{
protected:
    /// Where a form that stands at this place is behind its load.
    template <class F>
    Rect loadedAt(Long left, Long top)
    {
        const auto form = std::make_shared<F>();
        form->Move({left, top, form->width(), form->height()});
        form->load();
        return rectOf(*form);
    }
    void twoMonitors()
    {
        world.monitors.set({{0, 0, 1920, 1080}, {-1280, -200, 0, 824}});
        monitors().Refresh();
    }
};

class TextsLang : public TextsDialogs
{
protected:
    TextsLang()
    {
        world.settings.values.erase("sys/langos");
        world.backend.whileModal["frmLang"] = [this](Form& form) {
            ++asked;
            form.userClose();
        };
    }
    int asked = 0;
};

class TextsUpdate : public TextsDialogs
{
protected:
    TextsUpdate()
    {
        start();
        frmUpdate().lblUpdate.Caption = "Something happened.";
    }
};

} // namespace

// The language dialog.

TEST_F(TextsLang, OffersTheSixLanguagesByTheirOwnNamesTheFirstOneChosen)
{
    EXPECT_THAT(frmLang().cboLang.entries(),
                ElementsAre("English", "Español", "Français", "Italiano", "Deutsch", "Português"));
    EXPECT_EQ(frmLang().cboLang.listIndex(), 0);
    EXPECT_EQ(frmLang().lblLang.caption(), "Select Language:");
    EXPECT_EQ(frmLang().cmdOK.caption(), "&OK");
    EXPECT_TRUE(frmLang().cmdOK.isDefault);
}

TEST_F(TextsLang, EachEntryGivesItsCodeAndEndsTheDialog)
{
    for (std::size_t index = 0; index < kTextLanguages.size(); ++index) {
        frmLang().cboLang.ListIndex = index;
        frmLang().cmdOK.userClick();
        EXPECT_EQ(Language, kTextLanguages[index]);
        EXPECT_FALSE(Loaded<class frmLang>());
    }
}

TEST_F(TextsLang, WithoutAnEntryTheLanguageStays)
{
    Language = "IT";
    frmLang().cboLang.ListIndex = -1;
    frmLang().cmdOK.userClick();
    EXPECT_EQ(Language, "IT");
    EXPECT_FALSE(Loaded<class frmLang>());
}

TEST_F(TextsLang, ClosedByTheSystemItLeavesEnglishAndComesAgainAtTheNextStart)
{
    frmStart().start();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Language, "");
    EXPECT_THAT(world.settings.saved, Contains("sys/langos="));
    EXPECT_EQ(console().imgOpen.toolTip(), "Open...");
    Unload<class frmMedia>();
    beginProgram();
    frmStart().start();
    EXPECT_EQ(asked, 2);
}

TEST_F(TextsLang, IsAskedForModallyWithThePlainPointer)
{
    int shape = -1;
    world.backend.whileModal["frmLang"] = [&](Form&) { shape = screen().MousePointer(); };
    screen().MousePointer = pointer::kHourglass;
    frmStart().start();
    EXPECT_EQ(shape, pointer::kDefault);
    EXPECT_THAT(world.journal, Contains("frmLang modal"));
}

TEST_F(TextsLang, StandsInTheMiddleOfTheMonitorThatHoldsIt)
{
    twoMonitors();
    EXPECT_EQ(loadedAt<class frmLang>(0, 0), (Rect{11925, 6885, 4950, 2430}));
    EXPECT_EQ(loadedAt<class frmLang>(-15, -15), (Rect{-12075, 3465, 4950, 2430}));
    EXPECT_EQ(loadedAt<class frmLang>(40000, 300), (Rect{40000, 300, 4950, 2430})) << "no monitor holds it";
}

TEST_F(TextsLang, BeginsOnTheFirstMonitor)
{
    twoMonitors();
    screen().setMetrics(15, 15, {-1280, -200, 0, 824});
    EXPECT_EQ(rectOf(frmLang()), (Rect{-12075, 3465, 4950, 2430}));
}

// The message box.

TEST_F(TextsUpdate, WearsTheProgramsTitle)
{
    EXPECT_EQ(frmUpdate().caption(), AppTitle);
    EXPECT_NE(AppTitle, "");
    EXPECT_EQ(frmUpdate().cmdOK.caption(), "OK");
    EXPECT_EQ(frmUpdate().cmdCancel.caption(), "&Cancel");
    EXPECT_TRUE(frmUpdate().cmdOK.isDefault);
    EXPECT_TRUE(frmUpdate().cmdCancel.isCancel);
    EXPECT_FALSE(frmUpdate().cmdCancel.isDefault || frmUpdate().cmdOK.isCancel);
}

TEST_F(TextsUpdate, BeepsAtItsActivation)
{
    frmUpdate();
    EXPECT_EQ(world.backend.beeps, 0) << "not at its load";
    frmUpdate().Show();
    EXPECT_EQ(world.backend.beeps, 1);
    console().SetFocus();
    frmUpdate().SetFocus();
    EXPECT_EQ(world.backend.beeps, 2);
}

TEST_F(TextsUpdate, IsSilentWithoutAText)
{
    for (const char* blank : {"", "   "}) {
        frmUpdate().lblUpdate.Caption = blank;
        frmUpdate().Show();
        EXPECT_EQ(activeForm(), &frmUpdate());
        EXPECT_EQ(world.backend.beeps, 0);
        Unload<class frmUpdate>();
    }
}

TEST_F(TextsUpdate, ItsButtonsKeepTheirAnswerAndEndIt)
{
    console().UpdateCancelled = true;
    frmUpdate().Show();
    frmUpdate().cmdOK.userClick();
    EXPECT_FALSE(console().UpdateCancelled);
    EXPECT_FALSE(Loaded<class frmUpdate>());
    frmUpdate().Show();
    frmUpdate().cmdCancel.userClick();
    EXPECT_TRUE(console().UpdateCancelled);
    EXPECT_FALSE(Loaded<class frmUpdate>());
}

TEST_F(TextsUpdate, ClosedInAnotherWayItKeepsTheFormerAnswer)
{
    for (const bool former : {true, false}) {
        console().UpdateCancelled = former;
        frmUpdate().Show();
        frmUpdate().userClose();
        EXPECT_EQ(console().UpdateCancelled, former);
        EXPECT_FALSE(Loaded<class frmUpdate>());
    }
}

TEST_F(TextsUpdate, StandsInTheMiddleOfTheConsolesMonitor)
{
    Unload<class frmUpdate>();
    world.monitors.all = {{1, {0, 0, 1920, 1080}, {0, 0, 1920, 1080}},
                          {2, {-1280, -200, 0, 824}, {-1280, -200, 0, 800}}};
    world.monitors.windowMonitor = 2;
    EXPECT_EQ(rectOf(frmUpdate()), (Rect{-12750, 3255, 6300, 2490}));
}

TEST_F(TextsUpdate, IsAsLargeAsItsMessageWhateverItSaidBefore)
{
    const Rect small = rectOf(frmUpdate());
    Text longer = "A first line.";
    for (int line = 0; line < 9; ++line)
        longer += "\nAnother line of about as many characters as that.";
    frmUpdate().say(longer);
    const Rect large = rectOf(frmUpdate());
    EXPECT_GT(large[2], small[2]);
    EXPECT_GT(large[3], small[3]);
    frmUpdate().say(longer);
    EXPECT_EQ(rectOf(frmUpdate()), large);
    for (const Control* control : frmUpdate().controls())
        EXPECT_LE(control->top() + control->height(), frmUpdate().height() - 25 * 15) << control->name();
    frmUpdate().say("Something happened.");
    EXPECT_EQ(rectOf(frmUpdate()), small);
}

TEST_F(TextsUpdate, IsNeverLargerThanItsMonitorAndSaysWhatItCan)
{
    world.monitors.set({{0, 0, 1366, 768}});
    const Text name(255, 'n');
    Text message = "Of these no picture could be taken:";
    for (int count = 0; count < 12; ++count)
        message += "\n" + name;
    frmUpdate().say(message);
    EXPECT_EQ(frmUpdate().lblUpdate.caption(), message) << "there is room for twelve";
    for (int count = 0; count < 60; ++count)
        message += "\n" + name;
    frmUpdate().say(message);
    const Text said = frmUpdate().lblUpdate.caption();
    EXPECT_TRUE(said.ends_with("\n…")) << said;
    EXPECT_EQ(message.substr(0, said.size() - 4), said.substr(0, said.size() - 4));
    EXPECT_GT(said.size(), 12 * name.size());
    EXPECT_LE(frmUpdate().width(), 1366 * 15);
    EXPECT_LE(frmUpdate().height(), 768 * 15);
    EXPECT_GE(frmUpdate().left(), 0);
    EXPECT_GE(frmUpdate().top(), 0);
}

// The notice.

TEST_F(TextsDialogs, TheNoticeBeginsWithItsTextAlone)
{
    EXPECT_EQ(frmWait().lblClose.caption(), "Please Wait ...");
    EXPECT_FALSE(frmWait().lblCount.visible());
    EXPECT_FALSE(frmWait().barDone.visible());
}

TEST_F(TextsDialogs, NobodyWaitsForTheNotice)
{
    world.backend.windows = true;
    start();
    open(0);
    ResizePending = true;
    console().Width = 13000;
    EXPECT_THAT(world.journal, Contains("frmWait show"));
    EXPECT_THAT(world.journal, Not(Contains("frmWait modal")));
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(TextsDialogs, TheNoticeSaysHowManyAreDone)
{
    frmWait().showProgress(5, 12);
    EXPECT_EQ(frmWait().lblCount.caption(), "5 / 12");
    EXPECT_TRUE(frmWait().lblCount.visible());
    EXPECT_TRUE(frmWait().barDone.visible());
    EXPECT_EQ(frmWait().barDone.value(), 5);
    EXPECT_EQ(frmWait().barDone.maximum(), 12);
}

TEST_F(TextsDialogs, TheNoticeNeverSaysMoreThanAllOrLessThanNone)
{
    frmWait().showProgress(13, 12);
    EXPECT_EQ(frmWait().lblCount.caption(), "12 / 12");
    EXPECT_EQ(frmWait().barDone.value(), 12);
    frmWait().showProgress(-1, 12);
    EXPECT_EQ(frmWait().lblCount.caption(), "0 / 12");
    EXPECT_EQ(frmWait().barDone.value(), 0);
}

TEST_F(TextsDialogs, TheNoticeOfNothingShowsNoProgress)
{
    for (const int whole : {0, -1}) {
        frmWait().showProgress(1, 2);
        frmWait().showProgress(1, whole);
        EXPECT_FALSE(frmWait().lblCount.visible());
        EXPECT_FALSE(frmWait().barDone.visible());
        EXPECT_EQ(frmWait().barDone.maximum(), 0);
        EXPECT_EQ(frmWait().barDone.value(), 0);
    }
}

TEST_F(TextsDialogs, TheNoticeStandsInTheMiddleOfTheMonitorThatHoldsIt)
{
    twoMonitors();
    EXPECT_EQ(loadedAt<class frmWait>(300, 300), (Rect{12150, 7620, 4500, 960}));
    EXPECT_EQ(loadedAt<class frmWait>(-19200, -3000), (Rect{-11850, 4200, 4500, 960}));
    EXPECT_EQ(loadedAt<class frmWait>(300, -300), (Rect{300, -300, 4500, 960})) << "no monitor holds it";
}

TEST(TextsNotice, ItsPictureSaysThatItInforms)
{
    World world;
    EXPECT_EQ(frmUpdate().imgInfo.picture(), "box_information");
    EXPECT_TRUE(frmUpdate().imgInfo.visible());
}

} // namespace tandrel::test
