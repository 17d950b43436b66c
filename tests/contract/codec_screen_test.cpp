// Pictures as the settings make them, read from the screen. Needs an X server.
#include "contract/film_bench.h"
#include "contract/screen_bench.h"
#include "platform/codec/codec_file.h"
#include "support/temporary_folder.h"

#include <cmath>
#include <cstdlib>
#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
using Value = CodecValue;
using Image = std::vector<unsigned char>;

/// The mean of all bytes, or of those of one colour (0 red, 1 green, 2 blue).
double mean(const Image& image, int colour = -1)
{
    double sum = 0;
    int count = 0;
    for (std::size_t index = 0; index < image.size(); ++index) {
        if (colour >= 0 && static_cast<int>(index % 3) != colour)
            continue;
        sum += image[index];
        ++count;
    }
    return count == 0 ? -1 : sum / count;
}

double difference(const Image& one, const Image& other)
{
    double sum = 0;
    for (std::size_t index = 0; index < one.size() && index < other.size(); ++index)
        sum += std::abs(one[index] - other[index]);
    return one.empty() ? 0 : sum / static_cast<double>(one.size());
}

double spread(const Image& image)
{
    const double middle = mean(image);
    double sum = 0;
    for (const unsigned char value : image)
        sum += (value - middle) * (value - middle);
    return std::sqrt(sum / static_cast<double>(std::max<std::size_t>(1, image.size())));
}

/// How colourful pixels are: the distance between their largest and their smallest part.
double colourfulness(const Image& image)
{
    double sum = 0;
    for (std::size_t index = 0; index + 2 < image.size(); index += 3) {
        const auto [low, high] = std::minmax({image[index], image[index + 1], image[index + 2]});
        sum += high - low;
    }
    return sum / (static_cast<double>(image.size()) / 3);
}

/// How much neighbours differ along a row.
double sharpness(const Image& image)
{
    double sum = 0;
    for (std::size_t index = 3; index < image.size(); ++index)
        sum += std::abs(image[index] - image[index - 3]);
    return sum / static_cast<double>(image.size());
}

/// A file for settings, there before and after what looks at it.
struct SettingsOfTest {
    void store(std::initializer_list<std::pair<Value, int>> values)
    {
        CodecSettings settings;
        for (const auto& [value, to] : values)
            settings.set(value, to);
        ASSERT_TRUE(CodecFile(path()).write(settings));
    }
    std::string path() const { return folder.path("codec.ini"); }
    test::TemporaryFolder folder;
};

class CodecScreen : private SettingsOfTest, public ScreenBench
{
protected:
    CodecScreen() : ScreenBench(path()) {}

    using SettingsOfTest::path;
    using SettingsOfTest::store;
    void open(const std::string& name)
    {
        ASSERT_EQ(send("Open \"" + testMedia(name) + "\" Type MPEGVideo alias A parent " +
                       std::to_string(window.handle()) + " style child"),
                  0);
        EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
        EXPECT_EQ(send("set A time format frames"), 0);
    }
    /// The picture at a frame, once it no longer changes.
    Image picture(int frame)
    {
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status A position"), frame);
        Image last;
        int same = 0;
        const auto stands = [&] {
            Image now = window.lookInColour(kPicture);
            same = now == last && !now.empty() && mean(now) > 2 ? same + 1 : 0;
            last = std::move(now);
            return same > 10;
        };
        EXPECT_TRUE(waitUntil(stands));
        return last;
    }
    Image reopened(const std::string& name, int frame, std::initializer_list<std::pair<Value, int>> values)
    {
        send("close A");
        store(values);
        open(name);
        return picture(frame);
    }
};

/// Below the number, which is black and white.
constexpr PixelRect kBody{0, 60, 320, 240};
} // namespace

TEST_F(CodecScreen, EachColourValueChangesThePicture)
{
    const auto look = [this](Value value, int to) { return reopened("colours_240.mp4", 10, {{value, to}}); };
    const Image plain = reopened("colours_240.mp4", 10, {});
    EXPECT_GT(mean(look(Value::Brightness, 30)), mean(plain) + 20);
    EXPECT_LT(mean(look(Value::Brightness, -30)), mean(plain) - 20);
    EXPECT_LT(colourfulness(look(Value::Saturation, -100)), 6);
    EXPECT_GT(colourfulness(plain), 60);
    EXPECT_GT(mean(look(Value::Gamma, 200)), mean(plain) + 10);
    EXPECT_LT(mean(look(Value::Gamma, 50)), mean(plain) - 10);
    const Image turned = look(Value::Hue, 120);
    EXPECT_GT(difference(turned, plain), 30);
    EXPECT_GT(colourfulness(turned), 40);
    // What went back to the standard is gone.
    EXPECT_EQ(reopened("colours_240.mp4", 10, {}), plain);
}

TEST_F(CodecScreen, ContrastSpreadsWhatIsGrey)
{
    const auto look = [this](int contrast) {
        reopened("gops.mp4", 0, {{Value::Contrast, contrast}});
        return spread(window.lookInColour(kBody));
    };
    const double plain = look(0);
    EXPECT_GT(look(40), plain + 10);
    EXPECT_LT(look(-40), plain - 10);
}

TEST_F(CodecScreen, OtherFiltersChangeIt)
{
    const auto look = [this](Value value, int to) { return reopened("colours_240.mp4", 10, {{value, to}}); };
    const Image plain = reopened("colours_240.mp4", 10, {});
    EXPECT_GT(sharpness(look(Value::Sharpen, 100)), sharpness(plain) * 1.02);
    EXPECT_LT(sharpness(look(Value::Denoise, 100)), sharpness(plain) * 0.999);
    EXPECT_GT(difference(look(Value::PostProcessing, 2), plain), 0.05);
    EXPECT_GT(difference(look(Value::Deinterlace, 2), plain), 0.05);
    // Pictures that don't say they are interlaced stay as they are.
    EXPECT_EQ(look(Value::Deinterlace, 1), plain);
}

TEST_F(CodecScreen, AVideoThatIsOpenedAnewShowsItAtItsPlace)
{
    open("gops.mp4");
    picture(70);
    EXPECT_TRUE(showsFrame(70));
    const double before = mean(window.lookInColour(kBody));
    const long length = number("status A length");
    reopened("gops.mp4", 70, {{Value::Brightness, -20}});
    EXPECT_TRUE(showsFrame(70));
    EXPECT_NEAR(mean(window.lookInColour(kBody)), before - 45, 15);
    EXPECT_EQ(number("status A length"), length);
}

TEST_F(CodecScreen, StepsBackAndSeeksShowChangedPictures)
{
    reopened("gops.mp4", 90, {{Value::Contrast, -40}});
    countWindows();
    const auto isPale = [this] { return spread(window.lookInColour(kBody)) < 55; };
    EXPECT_TRUE(isPale());
    for (int frame = 89; frame > 84; --frame) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), frame);
        EXPECT_TRUE(waitUntil([&] { return window.frameIn(kPicture).has_value() && isPale(); })) << frame;
    }
    for (const int frame : {20, 50, 110, 30}) {
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_TRUE(showsFrame(frame));
        EXPECT_TRUE(isPale());
    }
    EXPECT_FALSE(hasStill());
    // At the standard, steps come from beside the player again.
    const Image plain = reopened("gops.mp4", 90, {});
    countWindows();
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_TRUE(showsFrame(89));
    EXPECT_TRUE(waitUntil([this] { return hasStill(); }));
    EXPECT_FALSE(isPale());
}

TEST_F(CodecScreen, StepsAreExactWithPicturesPutTogetherAnew)
{
    reopened("gops.mp4", 60, {{Value::Deinterlace, 2}, {Value::Denoise, 40}});
    for (const int change : {1, 1, -1, -1, -1}) {
        const long before = number("status A position");
        EXPECT_EQ(send(change > 0 ? "step A" : "step A reverse"), 0);
        EXPECT_EQ(number("status A position"), before + change);
    }
}

TEST_F(CodecScreen, AFileThatWasAnnouncedBeforeTheChangeHasIt)
{
    const Image plain = reopened("colours_240.mp4", 0, {});
    send("close A");
    mci.prepare({testMedia("colours_240.mp4")});
    store({{Value::Brightness, 30}});
    open("colours_240.mp4");
    EXPECT_GT(mean(picture(0)), mean(plain) + 20);
}

TEST_F(CodecScreen, ABrokenFileChangesNothing)
{
    const Image plain = reopened("colours_240.mp4", 10, {});
    send("close A");
    std::ofstream(path()) << "[picture]\nbrightness=bright\n\xff\xfe[[[\nhue==\ncontrast=";
    open("colours_240.mp4");
    EXPECT_EQ(picture(10), plain);
}

TEST_F(CodecScreen, SpeedIsOfTheClockAndPlacesAreOfTheMedium)
{
    setenv("TANDREL_AO", "null", 1);
    reopened("h264_30.mp4", 0, {{Value::Speed, 200}});
    unsetenv("TANDREL_AO");
    EXPECT_EQ(number("status A length"), 300);
    EXPECT_EQ(send("play A"), 0);
    EXPECT_TRUE(waitUntil([this] { return number("status A position") >= 10; }));
    const long from = number("status A position");
    const auto start = std::chrono::steady_clock::now();
    long last = from;
    EXPECT_TRUE(waitUntil([&] {
        const long now = number("status A position");
        EXPECT_GE(now, last);
        last = now;
        return now >= from + 90;
    }));
    // Three seconds of it.
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_GT(seconds, 1.2);
    EXPECT_LT(seconds, 2.7);
    EXPECT_EQ(send("pause A"), 0);
    const long rest = number("status A position");
    EXPECT_NEAR(static_cast<double>(rest), static_cast<double>(last), 12);
    EXPECT_TRUE(showsFrame(static_cast<int>(rest)));
}

namespace
{
constexpr PixelRect kFilm{0, 0, 640, 360};

class CodecFilm : private SettingsOfTest, public FilmBench
{
protected:
    CodecFilm() : FilmBench(true, path()) { player->showIn(window.handle(), kFilm); }
    ~CodecFilm() override { player.reset(); }

    using SettingsOfTest::store;
    double bodyOf(int frame)
    {
        player->close();
        open("film_plain.mkv");
        EXPECT_TRUE(waitUntil([this] { return player->isLoaded(); }));
        player->pause();
        player->seek(frame / 25.0);
        // The number may be drawn a moment before the rest.
        double body = -1;
        EXPECT_TRUE(waitUntil([&] {
            const double last = std::exchange(body, mean(window.lookInColour({0, 120, 640, 360})));
            waitUntil([] { return false; }, std::chrono::milliseconds(50));
            return body == last && window.frameIn(kFilm) == frame;
        }));
        return body;
    }
    TestWindow window{640, 360};
};
} // namespace

TEST_F(CodecFilm, EachOpenHasTheValuesOfItsTime)
{
    const double plain = bodyOf(40);
    store({{Value::Brightness, -20}});
    EXPECT_LT(bodyOf(40), plain - 25);
    store({});
    EXPECT_NEAR(bodyOf(40), plain, 0.01);
}

TEST_F(CodecFilm, SpeedIsOfTheClockAndWindingIsAsBefore)
{
    store({{Value::Speed, 50}});
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(waitUntil([this] { return player->position() > 0.1; }));
    const double from = player->position();
    const double seconds = secondsUntil([&] { return player->position() >= from + 0.6; });
    EXPECT_GT(seconds, 0.9);
    EXPECT_LT(seconds, 2);
    EXPECT_EQ(player->rate(), 1);
    EXPECT_NEAR(player->duration(), 10, 0.1);
    player->setRate(5);
    const double wound = player->position();
    const double winding = secondsUntil([&] { return player->position() >= wound + 3; });
    EXPECT_GT(winding, 0.3);
    EXPECT_LT(winding, 1.5);
}

} // namespace tandrel
