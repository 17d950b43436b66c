// What only a simulated engine can show: time limits, held-back plays, drives.
#include "platform/mci/drive_door.h"
#include "platform/mci/mci_error.h"
#include "platform/mci/mci_service.h"
#include "support/simulated_engine.h"

#include <array>
#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class FakeDoor final : public DriveDoor
{
public:
    bool move(bool open) override
    {
        opened = open;
        return there;
    }
    bool there = true;
    std::optional<bool> opened;
};

class MciServiceTest : public testing::Test
{
protected:
    MciServiceTest()
    {
        engine->add("film", {.length = 10, .frameRate = 25});
        engine->add("stuck", {.length = 10, .frameRate = 25, .hangs = true});
        engine->add("slow", {.failure = OpenFailure::TimedOut});
        engine->add("odd", {.length = 0.5, .frameRate = 3});
        engine->add("endless", {.length = 1e9, .frameRate = 25});
        engine->addWindow(77);
    }
    int send(const std::string& command)
    {
        std::array<char, 128> buffer{};
        const int result = mci.send(command, buffer);
        answer = buffer.data();
        return result;
    }

    SimulatedClock clock;
    std::unique_ptr<SimulatedEngine> owned = std::make_unique<SimulatedEngine>(clock);
    SimulatedEngine* engine = owned.get();
    FakeDoor door;
    MciService mci{std::move(owned), &door, [this] { return clock.now(); }};
    std::string answer;
};
} // namespace

TEST_F(MciServiceTest, APlayIsHeldBackUntilTheCallerIsIdle)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("status A mode"), 0);
    EXPECT_EQ(answer, "playing");
    clock.advance(40ms);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "0");
    EXPECT_FALSE(engine->state("film")->running);
    mci.idle();
    EXPECT_TRUE(engine->state("film")->running);
}

TEST_F(MciServiceTest, ALookSendsNothingAndWaitsForNothing)
{
    EXPECT_FALSE(mci.look("A"));
    ASSERT_EQ(send("open film alias A"), 0);
    ASSERT_EQ(send("set A time format frames"), 0);
    ASSERT_TRUE(mci.look("A"));
    EXPECT_FALSE(mci.look("A")->playing);
    EXPECT_EQ(mci.look("A")->length, 10);
    EXPECT_EQ(send("seek A to 50"), 0);
    EXPECT_EQ(mci.look("A")->place, 2);
    EXPECT_EQ(send("play A"), 0);
    EXPECT_TRUE(mci.look("A")->playing) << "it is about to";
    mci.idle();
    clock.advance(1s);
    EXPECT_NEAR(mci.look("A")->place, 3, 0.05);
    EXPECT_EQ(send("pause A"), 0);
    EXPECT_FALSE(mci.look("A")->playing);
    EXPECT_NEAR(mci.look("A")->place, 3, 0.05);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "75") << "still in frames";
    EXPECT_EQ(send("play A"), 0);
    mci.idle();
    clock.advance(10s);
    const auto end = mci.look("A");
    EXPECT_TRUE(end->ended);
    EXPECT_FALSE(end->playing);
    EXPECT_EQ(end->place, 10);
}

TEST_F(MciServiceTest, ALookAtADeviceThatHangsComesBack)
{
    ASSERT_EQ(send("open stuck"), 0);
    EXPECT_EQ(send("seek stuck to 3000"), 0);
    const auto before = clock.now();
    ASSERT_TRUE(mci.look("stuck"));
    EXPECT_EQ(mci.look("stuck")->place, 3);
    EXPECT_EQ(clock.now(), before);
}

TEST_F(MciServiceTest, AGroupStartsTogetherOnceTheLastHasFoundItsPlace)
{
    engine->add("seeker", {.length = 10, .frameRate = 25, .seekTime = 300ms});
    for (const char* name : {"film", "seeker"})
        ASSERT_EQ(send(std::string("open ") + name), 0);
    EXPECT_EQ(send("Play film from 1000"), 0);
    EXPECT_EQ(send("Play seeker from 2000"), 0);
    EXPECT_TRUE(mci.idle()) << "one still seeks";
    clock.advance(200ms);
    EXPECT_EQ(send("status film mode"), 0);
    EXPECT_EQ(answer, "playing");
    EXPECT_TRUE(mci.idle());
    EXPECT_FALSE(engine->state("film")->running);
    clock.advance(100ms);
    EXPECT_FALSE(mci.idle());
    EXPECT_TRUE(engine->state("film")->running);
    EXPECT_TRUE(engine->state("seeker")->running);
    EXPECT_EQ(engine->state("film")->frame, 25);
    EXPECT_EQ(engine->state("seeker")->frame, 50);
}

TEST_F(MciServiceTest, ACommandThatComesMeanwhileStartsTheGroupOnceItIsComplete)
{
    engine->add("seeker", {.length = 10, .frameRate = 25, .seekTime = 300ms});
    for (const char* name : {"film", "seeker"}) {
        ASSERT_EQ(send(std::string("open ") + name), 0);
        EXPECT_EQ(send(std::string("Play ") + name + " from 1000"), 0);
    }
    EXPECT_TRUE(mci.idle());
    clock.advance(100ms);
    EXPECT_EQ(send("status film length"), 0);
    EXPECT_FALSE(engine->state("film")->running) << "longer than a hold without a group";
    clock.advance(250ms);
    EXPECT_EQ(send("status film length"), 0);
    EXPECT_TRUE(engine->state("film")->running);
    EXPECT_TRUE(engine->state("seeker")->running);
}

TEST_F(MciServiceTest, OneThatNeverFindsItsPlaceHoldsTheOthersForTwoSecondsOnly)
{
    for (const char* name : {"film", "stuck"}) {
        ASSERT_EQ(send(std::string("open ") + name), 0);
        EXPECT_EQ(send(std::string("Play ") + name + " from 1000"), 0);
    }
    clock.advance(1900ms);
    EXPECT_TRUE(mci.idle());
    EXPECT_FALSE(engine->state("film")->running);
    clock.advance(100ms);
    EXPECT_FALSE(mci.idle());
    EXPECT_TRUE(engine->state("film")->running);
    EXPECT_TRUE(engine->state("stuck")->running);
}

TEST_F(MciServiceTest, WhoeverHasToGetReadyForACommonStartIsToldOnce)
{
    engine->add("lazy", {.length = 10, .frameRate = 25, .readyTime = 200ms});
    for (const char* name : {"film", "lazy"}) {
        ASSERT_EQ(send(std::string("open ") + name), 0);
        EXPECT_EQ(send(std::string("Play ") + name), 0);
    }
    EXPECT_TRUE(mci.idle());
    clock.advance(150ms);
    EXPECT_TRUE(mci.idle());
    EXPECT_FALSE(engine->state("film")->running);
    clock.advance(50ms);
    EXPECT_FALSE(mci.idle()) << "asking again does not begin it anew";
    EXPECT_TRUE(engine->state("film")->running);
    EXPECT_TRUE(engine->state("lazy")->running);
}

TEST_F(MciServiceTest, OneAloneDoesNotWaitForItsSeek)
{
    engine->add("seeker", {.length = 10, .frameRate = 25, .seekTime = 300ms});
    ASSERT_EQ(send("open seeker"), 0);
    EXPECT_EQ(send("Play seeker from 1000"), 0);
    EXPECT_FALSE(mci.idle());
    EXPECT_TRUE(engine->state("seeker")->running);
}

TEST_F(MciServiceTest, WhoeverStandsAtAPlaceIsNotSoughtThere)
{
    ASSERT_EQ(send("open film"), 0);
    EXPECT_EQ(send("seek film to 0"), 0);
    EXPECT_EQ(engine->state("film")->seeks, 0);
    EXPECT_EQ(send("seek film to 1010"), 0);
    EXPECT_EQ(send("status film position"), 0);
    EXPECT_EQ(answer, "1010");
    EXPECT_EQ(send("seek film to 1010"), 0);
    EXPECT_EQ(send("Play film from 1010"), 0);
    EXPECT_EQ(engine->state("film")->seeks, 1);
    mci.idle();
    clock.advance(500ms);
    EXPECT_EQ(send("Pause film"), 0);
    EXPECT_EQ(send("status film position"), 0);
    const std::string place = answer;
    EXPECT_EQ(send("Play film from " + place), 0);
    EXPECT_EQ(engine->state("film")->seeks, 1);
    mci.idle();
    EXPECT_EQ(send("Play film from " + place), 0) << "one that runs goes back";
    EXPECT_EQ(engine->state("film")->seeks, 2);
}

TEST_F(MciServiceTest, AnnouncedStepsReachAllDevicesBeforeTheirCommands)
{
    for (const char* name : {"film", "odd"})
        ASSERT_EQ(send(std::string("open ") + name), 0);
    mci.expect({"step film", "step odd", "step gone", "", "seek film to 5000", "step \"film"});
    EXPECT_EQ(engine->state("film")->frame, 1);
    EXPECT_EQ(engine->state("odd")->frame, 1);
    for (const char* name : {"film", "odd"}) {
        EXPECT_EQ(send(std::string("step ") + name), 0);
        EXPECT_EQ(send(std::string("status ") + name + " mode"), 0);
        EXPECT_EQ(answer, "paused");
    }
    EXPECT_EQ(engine->state("film")->steps, 1) << "the command found it done";
    EXPECT_EQ(send("step film"), 0);
    EXPECT_EQ(engine->state("film")->frame, 2) << "and the next one is another step";
    mci.expect({"step film reverse"});
    EXPECT_EQ(send("step film reverse"), 0);
    EXPECT_EQ(engine->state("film")->frame, 1);
}

TEST_F(MciServiceTest, AStepAnnouncedTwiceForOneDeviceIsTakenOnceAhead)
{
    ASSERT_EQ(send("open film"), 0);
    mci.expect({"step film", "step film"});
    EXPECT_EQ(engine->state("film")->frame, 1);
    EXPECT_EQ(send("step film"), 0);
    EXPECT_EQ(engine->state("film")->frame, 1);
    EXPECT_EQ(send("step film"), 0);
    EXPECT_EQ(engine->state("film")->frame, 2);
    EXPECT_EQ(engine->state("film")->steps, 2);
}

TEST_F(MciServiceTest, AStepThatWasNotTheAnnouncedOneIsDoneItself)
{
    ASSERT_EQ(send("open film"), 0);
    mci.expect({"step film"});
    EXPECT_EQ(send("step film reverse"), 0);
    EXPECT_EQ(engine->state("film")->steps, 2);
    mci.expect({"step film"});
    EXPECT_EQ(send("seek film to 4000"), 0);
    EXPECT_EQ(send("step film"), 0);
    EXPECT_EQ(engine->state("film")->frame, 101);
}

TEST_F(MciServiceTest, AnnouncedQuestionsAreToldToTheirDevicesAndMoveNothing)
{
    for (const char* name : {"film", "endless"}) {
        ASSERT_EQ(send(std::string("open ") + name), 0);
        EXPECT_EQ(send(std::string("Play ") + name), 0);
    }
    mci.idle();
    mci.expect({"status film position", "status endless position", "status gone position"});
    for (const char* name : {"film", "endless"}) {
        EXPECT_EQ(engine->state(name)->questionsAnnounced, 1) << name;
        EXPECT_TRUE(engine->state(name)->running) << name;
    }
}

TEST_F(MciServiceTest, AnnouncedPausesHoldAllDevicesAtOnce)
{
    for (const char* name : {"film", "endless"}) {
        ASSERT_EQ(send(std::string("open ") + name), 0);
        EXPECT_EQ(send(std::string("Play ") + name), 0);
    }
    mci.idle();
    clock.advance(1s);
    mci.expect({"Pause film", "Pause endless"});
    EXPECT_FALSE(engine->state("film")->running);
    EXPECT_FALSE(engine->state("endless")->running);
    clock.advance(1s);
    EXPECT_EQ(send("Pause film"), 0);
    EXPECT_EQ(send("status film position"), 0);
    EXPECT_EQ(answer, "1000");
}

TEST_F(MciServiceTest, AnAnnouncedStepOfAStuckDeviceFailsAtItsCommand)
{
    ASSERT_EQ(send("open stuck"), 0);
    mci.expect({"step stuck"});
    EXPECT_EQ(send("step stuck"), mci_error::kNotReady);
}

TEST_F(MciServiceTest, WhoeverWaitsForTheEngineHearsOfIt)
{
    int pulses = 0;
    engine->whileWaiting();
    mci.whileWaiting = [&] { ++pulses; };
    engine->whileWaiting();
    EXPECT_EQ(pulses, 1);
}

TEST_F(MciServiceTest, APlayIsNotHeldBackForLong)
{
    ASSERT_EQ(send("open film alias A"), 0);
    ASSERT_EQ(send("open film alias B"), 0);
    EXPECT_EQ(send("Play A"), 0);
    clock.advance(51ms);
    EXPECT_EQ(send("status B mode"), 0);
    clock.advance(400ms);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "400");
}

TEST_F(MciServiceTest, WhoeverTellsWhenItIsIdleMayTakeTwoSecondsForAHandler)
{
    ASSERT_EQ(send("open film alias A"), 0);
    mci.idle();
    EXPECT_EQ(send("Play A"), 0);
    clock.advance(1900ms);
    EXPECT_EQ(send("status A length"), 0);
    EXPECT_FALSE(engine->state("film")->running);
    clock.advance(100ms);
    EXPECT_EQ(send("status A length"), 0);
    EXPECT_TRUE(engine->state("film")->running);
}

TEST_F(MciServiceTest, PlaysOfAGroupStartTogether)
{
    for (const char* alias : {"A", "B", "C"})
        ASSERT_EQ(send(std::string("open film alias ") + alias), 0);
    for (const char* alias : {"A", "B", "C"}) {
        EXPECT_EQ(send(std::string("Play ") + alias), 0);
        clock.advance(15ms);
    }
    mci.idle();
    clock.advance(1s);
    for (const char* alias : {"A", "B", "C"}) {
        EXPECT_EQ(send(std::string("status ") + alias + " position"), 0);
        EXPECT_EQ(answer, "1000");
    }
}

TEST_F(MciServiceTest, APauseTakesAPlayBack)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("Pause A"), 0);
    mci.idle();
    clock.advance(1s);
    EXPECT_EQ(engine->state("film")->frame, 50);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "2000");
}

TEST_F(MciServiceTest, ASeekAndAStepTakeAPlayBackToo)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("seek A to 3000"), 0);
    mci.idle();
    EXPECT_FALSE(engine->state("film")->running);
    EXPECT_EQ(send("status A mode"), 0);
    EXPECT_EQ(answer, "stopped");
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("step A"), 0);
    mci.idle();
    EXPECT_FALSE(engine->state("film")->running);
    EXPECT_EQ(engine->state("film")->frame, 76);
}

TEST_F(MciServiceTest, AnEngineThatIsNotDoneInTimeMakesNotReady)
{
    EXPECT_EQ(send("open slow alias S"), 276);
    EXPECT_EQ(send("Pause S"), 263);
    ASSERT_EQ(send("open stuck alias A"), 0);
    EXPECT_EQ(send("seek A to 5000"), 0);
    EXPECT_EQ(send("status A mode"), 0);
    EXPECT_EQ(answer, "stopped") << "nobody has waited yet";
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "5000") << "it is on its way there, for as long as anybody would wait";
    clock.advance(2s);
    EXPECT_EQ(send("status A position"), 276);
    EXPECT_EQ(answer, "");
    EXPECT_EQ(send("status A mode"), 0);
    EXPECT_EQ(answer, "seeking");
    EXPECT_EQ(send("step A"), 276);
    EXPECT_EQ(send("status A length"), 0);
    EXPECT_EQ(answer, "10000");
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(send("close A"), 0);
}

TEST_F(MciServiceTest, AFileThatClaimsYearsIsAsLongAsANumberGoes)
{
    ASSERT_EQ(send("open endless alias A"), 0);
    EXPECT_EQ(send("status A length"), 0);
    EXPECT_EQ(answer, "2147483647");
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("status A length"), 0);
    EXPECT_EQ(answer, "2147483647");
}

TEST(DriveDoorTest, WhatIsNoDriveHasNoTray)
{
    for (const char* device : {"/dev/null", "/dev/zero", "/proc/self/exe", "/nowhere", ""})
        EXPECT_FALSE(LinuxDriveDoor({device}).move(true)) << device;
    EXPECT_FALSE(LinuxDriveDoor(std::vector<std::string>()).move(false));
}

TEST_F(MciServiceTest, AParentHasToBeAWindow)
{
    EXPECT_EQ(send("open film alias A parent 78"), 346);
    EXPECT_EQ(engine->openDevices(), 0u);
    EXPECT_EQ(send("open film alias A parent 77 style child"), 0);
    EXPECT_EQ(engine->state("film")->parent, 77u);
}

TEST_F(MciServiceTest, APictureThatNobodyPlacesIsShownAtItsNativeSize)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(engine->state("film")->place, PixelRect());
    mci.idle();
    EXPECT_EQ(engine->state("film")->place, (PixelRect{0, 0, 640, 360}));
    EXPECT_EQ(send("put A window at 1 2 30 40"), 0);
    mci.idle();
    EXPECT_EQ(engine->state("film")->place, (PixelRect{1, 2, 31, 42}));
}

TEST_F(MciServiceTest, OfSeveralPlacesOnlyTheLastIsDrawn)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("put A window at 0 0 640 360"), 0);
    clock.advance(200ms);
    EXPECT_EQ(send("put A window at 0 0 473 333"), 0);
    mci.idle();
    mci.idle();
    EXPECT_EQ(engine->state("film")->placesSeen, std::vector<PixelRect>({{0, 0, 473, 333}}));
    EXPECT_EQ(send("put A window at 0 0 1920 1080"), 0);
    EXPECT_EQ(engine->state("film")->placesSeen.size(), 2U) << "a picture that is on the screen moves at once";
}

TEST_F(MciServiceTest, APictureThatIsToRunIsDrawnOnceTheCommandsTurnToAnotherDevice)
{
    engine->add("other", {.length = 10, .frameRate = 25});
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("put A window at 0 0 640 360"), 0);
    ASSERT_EQ(send("open other alias B"), 0);
    EXPECT_TRUE(engine->state("film")->placesSeen.empty()) << "nobody has asked for its play yet";
    EXPECT_EQ(send("put A window at 0 0 473 333"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("put A window at 0 0 474 333"), 0);
    EXPECT_TRUE(engine->state("film")->placesSeen.empty());
    EXPECT_EQ(send("Where B destination"), 0);
    EXPECT_EQ(engine->state("film")->placesSeen, std::vector<PixelRect>({{0, 0, 474, 333}}));
    EXPECT_TRUE(engine->state("other")->placesSeen.empty());
    EXPECT_FALSE(engine->state("film")->running);
    mci.idle();
    EXPECT_EQ(engine->state("film")->placesSeen.size(), 1U);
    EXPECT_TRUE(engine->state("film")->running);
}

TEST_F(MciServiceTest, APictureThatRunsHasAPlace)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("Play A"), 0);
    clock.advance(51ms);
    EXPECT_EQ(send("status A mode"), 0);
    EXPECT_EQ(engine->state("film")->place, (PixelRect{0, 0, 640, 360}));
}

TEST_F(MciServiceTest, VolumeAndPlaceReachTheEngine)
{
    ASSERT_EQ(send("open film alias A"), 0);
    EXPECT_EQ(send("setaudio A Volume to 350"), 0);
    EXPECT_DOUBLE_EQ(engine->state("film")->volume, 0.35);
    EXPECT_EQ(send("setaudio A Volume to 1001"), 282);
    EXPECT_DOUBLE_EQ(engine->state("film")->volume, 0.35);
    EXPECT_EQ(send("put A window at 3 4 160.5 120.4"), 0);
    mci.idle();
    EXPECT_EQ(engine->state("film")->place, (PixelRect{3, 4, 163, 124}));
    EXPECT_EQ(send("put A window at 0 0 0 0"), 0);
    mci.idle();
    EXPECT_EQ(engine->state("film")->place, (PixelRect{0, 0, 0, 0}));
}

TEST_F(MciServiceTest, TheDoorOfADriveMoves)
{
    EXPECT_EQ(send("set CDAudio door open"), 0);
    EXPECT_EQ(door.opened, true);
    EXPECT_EQ(send("set cdaudio door closed"), 0);
    EXPECT_EQ(door.opened, false);
    door.there = false;
    EXPECT_EQ(send("set CDAudio door open"), 266);
}

TEST_F(MciServiceTest, AnotherFormatNamesTheSamePicture)
{
    ASSERT_EQ(send("open odd alias A"), 0);
    EXPECT_EQ(send("seek A to 400"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "1");
    EXPECT_EQ(send("set A time format ms"), 0);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "400");
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("seek A to 1"), 0);
    EXPECT_EQ(send("set A time format ms"), 0);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_EQ(answer, "333");
}

TEST_F(MciServiceTest, ClosingFreesTheDevicesOfTheEngine)
{
    ASSERT_EQ(send("open film alias A"), 0);
    ASSERT_EQ(send("open film alias B"), 0);
    EXPECT_EQ(engine->openDevices(), 2u);
    EXPECT_EQ(send("close A"), 0);
    EXPECT_EQ(engine->openDevices(), 1u);
    EXPECT_EQ(send("close all"), 0);
    EXPECT_EQ(engine->openDevices(), 0u);
}

} // namespace tandrel
