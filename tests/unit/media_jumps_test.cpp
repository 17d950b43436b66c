// The fast jumps: one tick forward or back.

#include "media_bench.h"

#include "media/mod_media.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class MediaJumps : public ::testing::Test
{
protected:
    MediaJumps()
    {
        face.level = 40;
        installConsoleFace(&face);
        CurrentAlias = kAlias;
        FastForward = FastRewind = true;
    }
    void standsAt(const Text& position, const Text& length)
    {
        world.mci.answer("status " + kAlias + " position wait", position);
        world.mci.answer("status " + kAlias + " length", length);
        world.mci.clear();
    }
    /// The place of the last "play A from".
    std::string jumpedTo() const
    {
        const std::string start = "play " + kAlias + " from ";
        for (const std::string& command : world.mci.sent())
            if (command.starts_with(start))
                return command.substr(start.size());
        return "nowhere";
    }

    World world;
    Face face;
};

} // namespace

TEST_F(MediaJumps, ForwardGoesAThousandthOfTheStoredLengthOn)
{
    MediaLengthMs = 60000;
    standsAt("2000", "90000");
    MediaFastForward();
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format ms", "status " + kAlias + " length",
                            "set " + kAlias + " time format milliseconds", "status " + kAlias + " position wait",
                            "setaudio " + kAlias + " Volume to 0", "play " + kAlias + " from 2060",
                            "set " + kAlias + " time format frames"));
    EXPECT_THAT(face.shown, ElementsAre("2x"));
    EXPECT_TRUE(FastForward);
    EXPECT_FALSE(MediaStarted);
    EXPECT_EQ(MediaLengthMs, 60000) << "the length just read isn't kept";
}

TEST_F(MediaJumps, ForwardRoundsBothNumbersByThemselvesTiesToEven)
{
    MediaLengthMs = 2500;
    standsAt("10.5", "90000");
    MediaFastForward();
    EXPECT_EQ(jumpedTo(), "12") << "2.5 is 2 and 10.5 is 10";
    MediaLengthMs = 3500;
    standsAt("11.5", "90000");
    MediaFastForward();
    EXPECT_EQ(jumpedTo(), "16") << "3.5 is 4 and 11.5 is 12";
}

TEST_F(MediaJumps, ForwardAtTheVeryEndStillJumps)
{
    MediaLengthMs = 8000;
    standsAt("8000", "8000");
    MediaFastForward();
    EXPECT_EQ(jumpedTo(), "8008");
}

TEST_F(MediaJumps, ForwardPastTheEndStopsPausedWithItsSoundBack)
{
    standsAt("8001", "8000");
    MediaFastForward();
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format ms", "status " + kAlias + " length",
                            "set " + kAlias + " time format milliseconds", "status " + kAlias + " position wait",
                            "setaudio " + kAlias + " Volume to 400", "Pause " + kAlias,
                            "set " + kAlias + " time format frames"));
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(FastForward);
    EXPECT_FALSE(FastRewind);
}

TEST_F(MediaJumps, BackGoesAThousandthOfTheStoredLengthBack)
{
    MediaLengthMs = 60000;
    standsAt("1001", "90000");
    MediaFastRewind();
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format milliseconds", "status " + kAlias + " position wait",
                            "setaudio " + kAlias + " Volume to 0", "play " + kAlias + " from 941",
                            "set " + kAlias + " time format frames"));
    EXPECT_THAT(face.shown, ElementsAre("-2x"));
    EXPECT_TRUE(FastRewind);
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaJumps, BackAtExactlyAThousandStops)
{
    MediaLengthMs = 60000;
    standsAt("1000", "90000");
    MediaFastRewind();
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format milliseconds", "status " + kAlias + " position wait",
                            "setaudio " + kAlias + " Volume to 400", "Pause " + kAlias,
                            "set " + kAlias + " time format frames"));
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(FastForward);
    EXPECT_FALSE(FastRewind);
}

TEST_F(MediaJumps, BackInALongFilmCanAskForAPlaceBeforeItsStart)
{
    MediaLengthMs = 2000000;
    standsAt("1500", "2000000");
    MediaFastRewind();
    EXPECT_EQ(jumpedTo(), "-500");
}

TEST_F(MediaJumps, ADeviceThatDoesNotAnswerStandsAtZero)
{
    MediaLengthMs = 60000;
    standsAt("", "");
    MediaFastForward();
    EXPECT_EQ(jumpedTo(), "60") << "0 is not past a length of 0";
    world.mci.clear();
    MediaFastRewind();
    EXPECT_EQ(jumpedTo(), "nowhere");
    EXPECT_FALSE(FastRewind);
}

} // namespace tandrel::test
