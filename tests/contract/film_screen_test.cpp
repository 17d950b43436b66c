// What is seen of a film on the screen, and when. Needs an X server.
#include "contract/film_bench.h"
#include "platform/mpv/film_screen.h"

#include <cmath>
#include <set>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr PixelRect kPlace{0, 0, 640, 360};

class FilmScreenTest : public FilmBench
{
protected:
    FilmScreenTest() : FilmBench(true) { player->showIn(window.handle(), kPlace); }
    ~FilmScreenTest() override { player.reset(); }

    std::optional<int> frame(const PixelRect& place = kPlace) { return window.frameIn(place); }
    bool showsFrame(int number, const PixelRect& place = kPlace)
    {
        return waitUntil([&] { return frame(place) == number; });
    }
    /// The brightest grey in this part of the window.
    int brightest(const PixelRect& part)
    {
        const GreyImage image = window.look(part);
        return image.pixels.empty() ? -1 : *std::max_element(image.pixels.begin(), image.pixels.end());
    }

    TestWindow window{640, 480};
};
} // namespace

TEST_F(FilmScreenTest, EachFilmShowsAPicture)
{
    for (const char* name : {"film_h264.mkv", "film_hevc.mkv", "film_vp9.mkv", "film_av1.mkv", "film_10bit.mkv"}) {
        open(name);
        const double seconds = secondsUntil([&] { return frame().has_value(); });
        RecordProperty(name, static_cast<int>(seconds * 1000));
        EXPECT_GE(seconds, 0) << name;
        player->close();
        EXPECT_TRUE(waitUntil([&] { return !frame(); }));
    }
}

TEST_F(FilmScreenTest, ASeekShowsSomethingNewAndTheExactPictureThen)
{
    for (const bool held : {true, false}) {
        open("film_h264.mkv");
        ASSERT_TRUE(waitUntil([&] { return frame() && player->duration() > 9; }));
        if (held)
            player->pause();
        for (const double place : {8.0, 2.0, 6.5}) {
            letPass(300ms);
            const int before = frame().value_or(-1);
            player->seek(place);
            const double seconds = secondsUntil([&] {
                const auto shown = frame();
                return shown && (*shown < before || *shown > before + 20);
            });
            EXPECT_GE(seconds, 0) << place;
            const int wanted = static_cast<int>(place * 30);
            if (held) {
                EXPECT_TRUE(showsFrame(wanted)) << frame().value_or(-1);
            } else {
                EXPECT_TRUE(waitUntil([&] {
                    const auto shown = frame();
                    return shown && *shown >= wanted && *shown < wanted + 15;
                })) << place;
            }
        }
    }
}

TEST_F(FilmScreenTest, OfManySeeksTheLastCounts)
{
    open("film_h264.mkv");
    ASSERT_TRUE(waitUntil([&] { return frame().has_value() && player->duration() > 9; }));
    player->pause();
    for (int step = 0; step < 40; ++step) {
        player->seek(9 - step * 0.2);
        letPass(10ms);
    }
    EXPECT_TRUE(showsFrame(36)) << frame().value_or(-1);
    letPass(500ms);
    EXPECT_EQ(frame(), 36);
    EXPECT_NEAR(player->position(), 1.2, 0.05);
}

TEST_F(FilmScreenTest, ADraggedThumbShowsSomethingOfItsWay)
{
    open("film_h264.mkv");
    ASSERT_TRUE(waitUntil([&] { return frame().has_value() && player->duration() > 9; }));
    player->pause();
    letPass(300ms);
    // Between two key frames, which are at 0 and at 8.3 s.
    std::set<int> pictures;
    const auto start = Clock::now();
    const auto passed = [&] { return std::chrono::duration<double>(Clock::now() - start).count(); };
    while (passed() < 4) {
        player->seek(1 + passed() * 1.5);
        letPass(40ms);
        if (const auto shown = frame()) {
            pictures.insert(*shown);
        }
    }
    player->seek(7);
    EXPECT_TRUE(showsFrame(210));
    EXPECT_GE(pictures.size(), 4U);
}

TEST_F(FilmScreenTest, ThePlaceIsThatOfThePicture)
{
    open("film_h264.mkv");
    ASSERT_TRUE(waitUntil([&] { return player->position() > 0.2 && frame().has_value(); }));
    int looks = 0;
    int beside = 0;
    letPass(0ms);
    waitUntil(
        [&] {
            const auto shown = frame();
            if (shown) {
                ++looks;
                beside += std::abs(player->position() - *shown / 30.0) > 0.1;
            }
            return false;
        },
        3s);
    EXPECT_GT(looks, 50);
    // A thread that gets no processor may be late now and then.
    EXPECT_LT(beside, looks / 10);
}

TEST_F(FilmScreenTest, AHeldFilmStandsStill)
{
    open("film_plain.mkv");
    ASSERT_TRUE(waitUntil([&] { return player->position() > 1; }));
    player->pause();
    letPass(400ms);
    const auto shown = frame();
    ASSERT_TRUE(shown);
    EXPECT_NEAR(player->position(), *shown / 25.0, 0.05);
    letPass(400ms);
    EXPECT_EQ(frame(), shown);
}

TEST_F(FilmScreenTest, ThePictureKeepsItsProportionsOnBlack)
{
    open("film_wide.mkv");
    player->pause();
    player->showIn(window.handle(), {0, 0, 640, 480});
    // 640 by 272 in the middle.
    EXPECT_TRUE(showsFrame(0, {0, 104, 640, 376}));
    EXPECT_EQ(brightest({0, 0, 640, 100}), 0);
    EXPECT_EQ(brightest({0, 380, 640, 480}), 0);
    EXPECT_FALSE(window.anyInsideTakesInput());
    player->showIn(window.handle(), {});
    EXPECT_TRUE(waitUntil([&] { return brightest({0, 0, 640, 480}) == 255; }));
}

TEST_F(FilmScreenTest, AnotherParentTakesThePictureOver)
{
    TestWindow other{800, 600};
    open("film_plain.mkv");
    ASSERT_TRUE(waitUntil([&] { return player->position() > 0.3; }));
    const double before = player->position();
    player->showIn(other.handle(), {0, 0, 800, 450});
    EXPECT_TRUE(waitUntil([&] { return other.frameIn({0, 0, 800, 450}).value_or(0) > 30; }));
    EXPECT_GE(player->position(), before);
    EXPECT_TRUE(window.windowsInside().empty());
    player->close();
    EXPECT_TRUE(waitUntil([&] { return other.windowsInside().empty(); }));
}

TEST_F(FilmScreenTest, TheEndOfTheParentHarmsNobody)
{
    {
        TestWindow other{640, 360};
        player->showIn(other.handle(), kPlace);
        open("film_plain.mkv");
        ASSERT_TRUE(waitUntil([&] { return player->position() > 0.3; }));
        other.destroy();
        letPass(300ms);
    }
    player->close();
    player->showIn(window.handle(), kPlace);
    open("film_plain.mkv");
    EXPECT_TRUE(waitUntil([&] { return frame().value_or(0) > 5; }));
}

TEST_F(FilmScreenTest, SubtitlesAreDrawnInThePicture)
{
    setenv("LC_ALL", "C", 1);
    open("film_tracks.mkv");
    ASSERT_TRUE(waitUntil([&] { return player->position() > 0.5; }));
    player->pause();
    const PixelRect lowerPart{100, 240, 540, 360};
    EXPECT_TRUE(waitUntil([&] { return brightest(lowerPart) < 40; }));
    for (const int subtitle : {1, 2}) {
        player->chooseTrack(MediaTrack::Kind::Subtitle, subtitle);
        // A line that has begun before it was chosen is only read when the film comes by again.
        player->seek(1);
        EXPECT_TRUE(waitUntil([&] { return brightest(lowerPart) > 200; })) << subtitle;
        player->chooseTrack(MediaTrack::Kind::Subtitle, -1);
        EXPECT_TRUE(waitUntil([&] { return brightest(lowerPart) < 40; })) << subtitle;
    }
    unsetenv("LC_ALL");
}

TEST_F(FilmScreenTest, GoingBackShowsPicturesOnItsWay)
{
    open("film_long.mkv");
    ASSERT_TRUE(waitUntil([&] { return player->duration() > 50 && frame().has_value(); }));
    player->seek(40);
    ASSERT_TRUE(waitUntil([&] { return frame().value_or(0) >= 200; }));
    player->setRate(-5);
    int pictures = 0;
    int last = 1000;
    waitUntil(
        [&] {
            const auto shown = frame();
            if (shown && *shown < last) {
                last = *shown;
                ++pictures;
            }
            return false;
        },
        3s);
    EXPECT_GE(pictures, 6);
    EXPECT_LT(last, 150);
    EXPECT_GT(last, 100);
}

TEST_F(FilmScreenTest, NoCallTakesLong)
{
    open("film_h264.mkv");
    ASSERT_TRUE(waitUntil([&] { return frame().has_value(); }));
    std::vector<double> times;
    for (int round = 0; round < 200; ++round) {
        const auto start = Clock::now();
        player->follow();
        player->seek(round % 9);
        (void)player->position();
        (void)player->hasEnded();
        player->setRate(round % 3 == 0 ? 5 : 1);
        player->showIn(window.handle(), {0, 0, 600 + round % 40, 360});
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        letPass(5ms);
    }
    std::sort(times.begin(), times.end());
    RecordProperty("worst_us", static_cast<int>(times.back() * 1000));
    // Six calls together. Other work of the machine may take the processor away now and then.
    EXPECT_LT(times[times.size() * 95 / 100], 2);
}

TEST(FilmPlace, ThePictureIsInTheMiddleAndAsLargeAsItCanBe)
{
    EXPECT_EQ(fitInto({0, 0, 640, 480}, 1920, 1080), (PixelRect{0, 60, 640, 420}));
    EXPECT_EQ(fitInto({10, 20, 1010, 120}, 100, 100), (PixelRect{460, 20, 560, 120}));
    EXPECT_EQ(fitInto({0, 0, 100, 100}, 0, 0), (PixelRect{0, 0, 100, 100}));
    EXPECT_EQ(fitInto({0, 0, 100, 100}, 100000, 1).height(), 1);
}

} // namespace tandrel
