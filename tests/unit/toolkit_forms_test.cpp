// The life of forms, their activation, sizes and handlers, without a window in sight.

#include "fake_services.h"

#include "toolkit/activation.h"
#include "toolkit/form.h"
#include "toolkit/holder.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

std::vector<std::string> happened;

class Probe : public Form
{
public:
    explicit Probe(Text name = "probe") : Form(std::move(name), Frame::Video, {0, 0, 3000, 3000}) {}
    std::function<void()> inLoad;
    std::function<void()> inActivate;
    std::function<void()> inResize;
    std::function<void()> inUnload;
    Timer timer{*this, "timer", 100, true};
    PictureBox box{*this, "box", {0, 0, 1500, 1500}};

protected:
    void onLoad() override { note("load", inLoad); }
    void onActivate() override { note("activate", inActivate); }
    void onResize() override { note("resize", inResize); }
    void onQueryUnload() override { note("query-unload", nullptr); }
    void onUnload() override { note("unload", inUnload); }

private:
    void note(const std::string& what, const std::function<void()>& more)
    {
        happened.push_back(name() + " " + what);
        if (more)
            more();
    }
};

class Forms : public ::testing::Test
{
protected:
    Forms() { happened.clear(); }
    static std::shared_ptr<Probe> make(Text name) { return std::make_shared<Probe>(std::move(name)); }
    World world;
};

/// Keeps tasks back until the test runs them.
class Clockwork : public Backend
{
public:
    struct Task {
        int ms;
        std::function<void()> run;
    };
    Clockwork() { installBackend(this); }
    ~Clockwork() override { installBackend(nullptr); }
    void later(int ms, std::function<void()> task) override { tasks.push_back({ms, std::move(task)}); }
    std::vector<Task> tasks;
};

/// Two forms of which the second one is active, and the user about to change to the first.
class UserChanges : public Forms
{
protected:
    UserChanges()
    {
        a->Show();
        b->Show();
        windowActivated(*a);
        windowActivated(*b);
        happened.clear();
        world.pointer.place = {a->pixelRect().left, a->pixelRect().top};
    }
    ~UserChanges() override { happened.clear(); }
    Clockwork clockwork;
    std::shared_ptr<Probe> a = make("a");
    std::shared_ptr<Probe> b = make("b");
};

} // namespace

TEST_F(Forms, FirstShowLoadsSizesAndActivatesOnce)
{
    const auto form = make("a");
    form->Show();
    EXPECT_THAT(happened, ElementsAre("a load", "a resize", "a activate"));
    EXPECT_EQ(activeForm(), form.get());
}

TEST_F(Forms, ShowingTheActiveFormAgainDoesNotActivateIt)
{
    const auto form = make("a");
    form->Show();
    happened.clear();
    form->Show();
    form->SetFocus();
    EXPECT_THAT(happened, IsEmpty());
}

TEST_F(Forms, ShowAndFocusActivateBeforeTheyReturn)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    happened.clear();
    a->SetFocus();
    EXPECT_THAT(happened, ElementsAre("a activate"));
    b->Show();
    EXPECT_THAT(happened, ElementsAre("a activate", "b activate"));
}

TEST_F(Forms, TheWindowSystemsLateReportsOfOwnChangesAreSwallowed)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    happened.clear();
    windowActivated(*a);
    windowActivated(*b);
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_EQ(activeForm(), b.get());
}

TEST_F(Forms, AReportThatWasOvertakenIsNotAwaitedAnyMore)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    windowActivated(*b);
    happened.clear();
    windowActivated(*a);
    EXPECT_THAT(happened, ElementsAre("a activate")) << "now it is the user's own change";
}

TEST_F(Forms, AChangeOfTheUserActivatesWhenItComes)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    windowActivated(*a);
    windowActivated(*b);
    happened.clear();
    windowActivated(*a);
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST_F(Forms, APressInAFormThatIsNotActiveMakesItActive)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    happened.clear();
    userPressed(*a);
    userPressed(*a);
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST_F(Forms, AReturnFromAnotherProgramActivates)
{
    const auto a = make("a");
    a->Show();
    applicationDeactivated();
    happened.clear();
    windowActivated(*a);
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST_F(Forms, AHiddenFormTakesNoFocus)
{
    const auto a = make("a");
    const auto b = make("b");
    a->load();
    b->Show();
    happened.clear();
    a->SetFocus();
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_EQ(activeForm(), b.get());
}

TEST_F(Forms, AControlsFocusActivatesItsForm)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    happened.clear();
    a->box.SetFocus();
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST_F(Forms, ResizeRunsInTheSetterOfAVisibleForm)
{
    const auto form = make("a");
    form->load();
    form->Width = 4500;
    EXPECT_THAT(happened, ElementsAre("a load"));
    form->Show();
    happened.clear();
    form->Width = 6000;
    EXPECT_THAT(happened, ElementsAre("a resize"));
    form->Left = 300;
    form->Width = 6000;
    EXPECT_THAT(happened, ElementsAre("a resize")) << "a move is no new size";
    form->Move({0, 0, 1500, 1500});
    EXPECT_THAT(happened, ElementsAre("a resize", "a resize")) << "one for both";
}

TEST_F(Forms, MinimisingAndRestoringRunResizeOnceEach)
{
    const auto form = make("a");
    form->Show();
    happened.clear();
    int stateInside = -1;
    form->inResize = [&] { stateInside = form->WindowState(); };
    form->WindowState = 1;
    EXPECT_THAT(happened, ElementsAre("a resize"));
    EXPECT_EQ(stateInside, 1);
    form->userRestored();
    form->userRestored();
    EXPECT_THAT(happened, ElementsAre("a resize", "a resize"));
    EXPECT_EQ(stateInside, 0);
}

TEST_F(Forms, LengthsAreTwipsAndPixelsTheNearest)
{
    const auto form = make("a");
    form->Move({22, 23, 11820, 6375});
    EXPECT_EQ(form->pixelRect(), (PixelRect{1, 2, 789, 427}));
    EXPECT_EQ(form->Width, 11820);
    form->movePixels({-10, 5, 90, 105});
    EXPECT_EQ(form->Left, -150);
    EXPECT_EQ(form->Height, 1500);
}

TEST_F(Forms, TheUsersMoveIsTakenOverOnlyIfItDiffersInPixels)
{
    const auto form = make("a");
    form->Move({22, 23, 3007, 3007});
    form->Show();
    happened.clear();
    form->userMoved(form->pixelRect());
    EXPECT_EQ(form->Left, 22);
    form->userMoved({10, 10, 110, 110});
    EXPECT_EQ(form->Left, 150);
    EXPECT_THAT(happened, ElementsAre("a resize"));
}

TEST_F(Forms, UnloadAsksThenEndsAndLeavesTheList)
{
    const auto form = make("a");
    form->Show();
    happened.clear();
    EXPECT_THAT(openForms(), ElementsAre(form));
    unload(*form);
    EXPECT_THAT(happened, ElementsAre("a query-unload", "a unload"));
    EXPECT_THAT(openForms(), IsEmpty());
    EXPECT_EQ(activeForm(), nullptr);
}

TEST_F(Forms, UnloadInsideAnOwnHandlerWaitsForItsEnd)
{
    const auto form = make("a");
    form->Show();
    happened.clear();
    form->run([&] {
        unload(*form);
        happened.push_back("handler goes on");
        EXPECT_TRUE(form->isLoaded());
    });
    EXPECT_THAT(happened, ElementsAre("handler goes on", "a query-unload", "a unload"));
}

TEST_F(Forms, UnloadOfAnotherFormTakesEffectAtOnce)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    a->run([&] {
        unload(*b);
        EXPECT_FALSE(b->isLoaded());
    });
}

TEST_F(Forms, TouchingADeadFormNeverLoadsItAgain)
{
    const auto form = make("a");
    form->Show();
    unload(*form);
    happened.clear();
    form->Show();
    form->Visible = true;
    form->SetFocus();
    form->Width = 300;
    unload(*form);
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(Forms, AnErrorEndsItsHandlerAndNothingElse)
{
    const auto form = make("a");
    form->inActivate = [] { raiseOverflow(); };
    form->Show();
    EXPECT_TRUE(form->isLoaded());
    bool after = false;
    form->run([&] {
        form->run([] { throw RuntimeError(5, "inside"); });
        after = true;
    });
    EXPECT_TRUE(after);
}

TEST_F(Forms, ATimerTicksWhileItIsOnAndHasAnInterval)
{
    const auto form = make("a");
    int ticks = 0;
    form->timer.Tick = [&] { ++ticks; };
    form->timer.tick();
    EXPECT_EQ(ticks, 0) << "not before the load";
    form->load();
    form->timer.tick();
    EXPECT_EQ(ticks, 1);
    form->timer.Interval = 0;
    form->timer.tick();
    form->timer.Interval = 50;
    form->timer.Enabled = false;
    form->timer.tick();
    EXPECT_EQ(ticks, 1);
}

TEST_F(Forms, ATimerNeverTicksInsideItsOwnTick)
{
    const auto form = make("a");
    int ticks = 0;
    form->timer.Tick = [&] {
        ++ticks;
        form->timer.tick();
    };
    form->load();
    form->timer.tick();
    EXPECT_EQ(ticks, 1);
    form->timer.tick();
    EXPECT_EQ(ticks, 2);
}

TEST_F(Forms, AFormMayEndInsideItsOwnTick)
{
    auto form = make("a");
    form->timer.Tick = [&] { unload(*form); };
    form->Show();
    form->timer.tick();
    EXPECT_FALSE(form->isLoaded());
}

namespace
{
class Single : public Probe
{
public:
    Single() : Probe("single") {}
};
} // namespace

TEST_F(Forms, ASingleFormLoadsAtTheFirstTouchAndAnewAfterItsEnd)
{
    EXPECT_FALSE(Holder<Single>::loaded());
    Holder<Single>::end();
    EXPECT_THAT(happened, IsEmpty());
    Single* first = &Holder<Single>::touch();
    EXPECT_EQ(first, &Holder<Single>::touch());
    EXPECT_THAT(happened, ElementsAre("single load"));
    Holder<Single>::end();
    EXPECT_FALSE(Holder<Single>::loaded());
    Holder<Single>::touch();
    EXPECT_TRUE(Holder<Single>::loaded());
    Holder<Single>::forget();
}

TEST_F(Forms, NothingComesBackOnceTheProgramHasEnded)
{
    const auto form = make("a");
    form->Show();
    endProgram();
    happened.clear();
    const auto late = make("late");
    late->Show();
    form->timer.tick();
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_EQ(world.backend.quits, 1);
}

TEST_F(Forms, TrapsEndQuietly)
{
    int steps = 0;
    EXPECT_FALSE(trap([&] {
        ++steps;
        raiseOverflow();
        ++steps;
    }));
    EXPECT_TRUE(trap([&] { ++steps; }));
    EXPECT_EQ(steps, 2);
}

TEST_F(Forms, WhatComesUpOverAFormThatCoversTheScreenStandsBeforeIt)
{
    world.backend.windows = true;
    const auto full = make("full");
    const auto other = make("other");
    full->Show();
    other->Show();
    full->setFullScreen(true);
    const auto count = [&](const std::string& what) {
        return std::count(world.journal.begin(), world.journal.end(), what);
    };
    world.journal.clear();
    other->ZOrder();
    EXPECT_EQ(count("other before full"), 1);
    full->SetFocus();
    EXPECT_EQ(count("full before full"), 0);
    world.journal.clear();
    other->SetFocus();
    EXPECT_EQ(count("other before full"), 1);
    full->setFullScreen(false);
    world.journal.clear();
    other->ZOrder();
    EXPECT_THAT(world.journal, ElementsAre("other raise"));
}

TEST_F(Forms, BelowItsMarkAFormIsOffTheScreenWithItsPlaceKept)
{
    world.backend.windows = true;
    const auto panel = make("panel");
    panel->keepOffFrom(9000);
    panel->Top = 9000;
    panel->Show();
    EXPECT_TRUE(panel->visible());
    EXPECT_EQ(std::count(world.journal.begin(), world.journal.end(), "panel show"), 0);
    panel->Top = 8985;
    EXPECT_EQ(std::count(world.journal.begin(), world.journal.end(), "panel show"), 1);
    panel->Top = 9000;
    EXPECT_EQ(std::count(world.journal.begin(), world.journal.end(), "panel hide"), 1);
    EXPECT_TRUE(panel->visible());
    EXPECT_EQ(panel->top(), 9000);
}

TEST_F(Forms, ALateReportOfTheLastOfSeveralChangesEndsThemAll)
{
    const auto a = make("a");
    const auto b = make("b");
    a->Show();
    b->Show();
    a->SetFocus();
    happened.clear();
    windowActivated(*a);
    EXPECT_THAT(happened, IsEmpty());
    windowActivated(*b);
    EXPECT_THAT(happened, ElementsAre("b activate")) << "the user's own change, not a report of b's show";
}

TEST_F(UserChanges, AReportAloneActivatesAfterAShortWait)
{
    windowActivated(*a);
    EXPECT_THAT(happened, IsEmpty());
    ASSERT_EQ(clockwork.tasks.size(), 1u);
    EXPECT_EQ(clockwork.tasks[0].ms, 25);
    clockwork.tasks[0].run();
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST_F(UserChanges, APressThatIsOnItsWayIsWaitedForLonger)
{
    world.pointer.onItsWay = true;
    windowActivated(*a);
    ASSERT_EQ(clockwork.tasks.size(), 1u);
    EXPECT_EQ(clockwork.tasks[0].ms, 1000);
    userPressed(*a);
    EXPECT_THAT(happened, ElementsAre("a activate"));
    clockwork.tasks[0].run();
    EXPECT_THAT(happened, ElementsAre("a activate")) << "once for both";
}

TEST_F(UserChanges, APressBesideTheWindowIsNotWaitedFor)
{
    world.pointer.onItsWay = true;
    world.pointer.place = {a->pixelRect().right, a->pixelRect().top};
    windowActivated(*a);
    ASSERT_EQ(clockwork.tasks.size(), 1u);
    EXPECT_EQ(clockwork.tasks[0].ms, 25);
}

TEST_F(UserChanges, TheWaitOfAnEarlierReportDoesNotCutALaterOneShort)
{
    windowActivated(*a);
    windowActivated(*b);
    windowActivated(*a);
    ASSERT_EQ(clockwork.tasks.size(), 2u) << "the way back to the active form needs no activation";
    clockwork.tasks[0].run();
    EXPECT_THAT(happened, IsEmpty());
    clockwork.tasks[1].run();
    EXPECT_THAT(happened, ElementsAre("a activate"));
}

TEST(ToolkitScreen, PixelsAreTwipsOfTheirOwnAxis)
{
    World world;
    screen().setMetrics(15, 12, {0, 0, 1920, 1080});
    EXPECT_EQ(screen().TwipsPerPixelX(), 15);
    EXPECT_EQ(screen().TwipsPerPixelY(), 12);
    EXPECT_EQ(pixelsX(1500), 100);
    EXPECT_EQ(pixelsY(1500), 125);
}

} // namespace tandrel::test
