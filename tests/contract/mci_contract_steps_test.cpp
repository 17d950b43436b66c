// Many steps in a row, in both directions, and what may come between them. One key frame in forty.
#include "contract/contract_bench.h"

namespace tandrel
{

namespace
{
class MciSteps : public MciContract
{
protected:
    void openAt(int frame, const std::string& alias = "A")
    {
        ASSERT_EQ(open("gops.mp4", alias), 0);
        EXPECT_EQ(send("set " + alias + " time format frames"), 0);
        EXPECT_EQ(send("seek " + alias + " to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status " + alias + " position"), frame);
    }
    /// Steps that lead from one frame to another, each of which has to be hit.
    void stepTo(int from, int to)
    {
        const int change = to > from ? 1 : -1;
        for (int frame = from + change; frame != to + change; frame += change) {
            EXPECT_EQ(send(change > 0 ? "step A" : "step A reverse"), 0);
            ASSERT_EQ(number("status A position"), frame);
        }
    }
    bool runsBeyond(long frame)
    {
        return waitUntil([&] { return number("status A position") > frame; });
    }
};
} // namespace

TEST_P(MciSteps, BackAndForthAcrossKeyFrames)
{
    openAt(85);
    stepTo(85, 75);
    stepTo(75, 90);
    stepTo(90, 30);
    stepTo(30, 50);
    stepTo(50, 49);
    stepTo(49, 50);
    stepTo(50, 48);
    EXPECT_EQ(ask("status A mode"), "paused");
}

TEST_P(MciSteps, ToTheFirstFrameAndNoFurther)
{
    openAt(45);
    stepTo(45, 0);
    for (int step = 0; step < 3; ++step) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), 0);
    }
    stepTo(0, 3);
    stepTo(3, 0);
}

TEST_P(MciSteps, FromTheEndToTheStart)
{
    openAt(150);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), 148);
    stepTo(148, 0);
    EXPECT_EQ(send("seek A to 149"), 0);
    stepTo(149, 147);
    stepTo(147, 149);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(number("status A position"), 149);
    stepTo(149, 140);
}

TEST_P(MciSteps, RightBehindAPause)
{
    openAt(50);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(send("Play A"), 0);
        const long start = number("status A position");
        ASSERT_TRUE(runsBeyond(start + 3));
        EXPECT_EQ(send("Pause A"), 0);
        EXPECT_EQ(send("step A reverse"), 0);
        const int frame = static_cast<int>(number("status A position"));
        stepTo(frame, frame - 5);
        stepTo(frame - 5, frame + 3);
    }
}

TEST_P(MciSteps, RightBehindAPlayAndASeek)
{
    openAt(60);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(send("Play A"), 0);
    ASSERT_TRUE(runsBeyond(62));
    EXPECT_EQ(send("step A reverse"), 0);
    const int frame = static_cast<int>(number("status A position"));
    stepTo(frame, frame - 3);
    EXPECT_EQ(send("seek A to 100"), 0);
    stepTo(100, 95);
    EXPECT_EQ(send("seek A to 20"), 0);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(number("status A position"), 21);
    stepTo(21, 15);
}

TEST_P(MciSteps, ASeekTakesThePlaceOfAStepUnderWay)
{
    openAt(119);
    for (const int frame : {30, 90, 10}) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status A position"), frame);
    }
    stepTo(10, 5);
}

TEST_P(MciSteps, PlayGoesOnFromTheFrameShown)
{
    openAt(75);
    stepTo(75, 45);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(ask("status A mode"), "playing");
    const long first = number("status A position");
    EXPECT_GE(first, 45);
    EXPECT_LE(first, 47);
    ASSERT_TRUE(runsBeyond(50));
    EXPECT_LT(number("status A position"), 75) << "not from where the steps began";
    EXPECT_EQ(send("Pause A"), 0);
    const int frame = static_cast<int>(number("status A position"));
    stepTo(frame, frame - 10);
    EXPECT_EQ(send("Play A from " + std::to_string(frame - 10)), 0);
    ASSERT_TRUE(runsBeyond(frame - 8));
    EXPECT_EQ(ask("status A mode"), "playing");
}

TEST_P(MciSteps, PlayBehindStepsRunsToTheEnd)
{
    openAt(150);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), 148);
    stepTo(148, 140);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(number("status A position"), 150);
}

TEST_P(MciSteps, ClosedWhileAStepIsUnderWay)
{
    for (int round = 0; round < 10; ++round) {
        openAt(119);
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(send("close A"), 0);
        EXPECT_EQ(send("status A mode"), 263);
    }
}

TEST_P(MciSteps, TwoStepAtTheSameTime)
{
    openAt(79, "B");
    openAt(119);
    for (int step = 1; step <= 50; ++step) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(send("step B reverse"), 0);
        ASSERT_EQ(number("status A position"), 119 - step);
        ASSERT_EQ(number("status B position"), 79 - step);
    }
    EXPECT_EQ(send("close A"), 0);
    EXPECT_EQ(send("step B"), 0);
    EXPECT_EQ(number("status B position"), 30);
}

TEST_P(MciSteps, OfEndsThatSoundOutlasts)
{
    ASSERT_EQ(open("long_sound.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("seek A to 15"), 0);
    stepTo(15, 0);
    stepTo(0, 4);
}

INSTANTIATE_TEST_SUITE_P(Simulated, MciSteps, testing::Values(BenchRow{"simulated", &makeSimulatedBench}),
                         [](const auto& info) { return std::string(info.param.name); });
INSTANTIATE_TEST_SUITE_P(Mpv, MciSteps, testing::Values(BenchRow{"mpv", &makeMpvBench}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace tandrel
