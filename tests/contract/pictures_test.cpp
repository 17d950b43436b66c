// Still pictures of real files: exactly the picture that is shown at a place, in full.
#include "platform/pictures/contact_sheet.h"
#include "platform/pictures/threaded_pictures.h"
#include "platform/stills/whole_picture.h"

#include "support/let_others_run.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include <QGuiApplication>
#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>

extern "C" {
#include <libavutil/log.h>
}

namespace tandrel::test
{

namespace
{
using namespace std::chrono_literals;

const std::function<bool()> kNever = [] { return false; };

std::optional<int> frameIn(const Still& still)
{
    GreyImage grey{still.width, still.height, {}};
    for (const std::uint32_t pixel : still.pixels)
        grey.pixels.push_back(static_cast<unsigned char>(pixel >> 8 & 255));
    return readFrameNumber(grey);
}

std::optional<int> frameAt(const std::string& name, double seconds)
{
    const auto still = readPicture(testMedia(name), seconds, kNever);
    return still ? frameIn(*still) : std::nullopt;
}

struct ExactRow {
    const char* name;
    double rate;
    int frames;
};
void PrintTo(const ExactRow& row, std::ostream* out) { *out << row.name; }

class ExactPictures : public ::testing::TestWithParam<ExactRow>
{
};

SavedPictures waitFor(ThreadedPictures& pictures)
{
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (std::chrono::steady_clock::now() < end) {
        if (auto done = pictures.done())
            return *done;
        letOthersRun();
    }
    ADD_FAILURE() << "nothing was done";
    return {};
}

} // namespace

TEST_P(ExactPictures, AreThoseOfTheirPlace)
{
    const ExactRow& row = GetParam();
    for (const int frame : {0, 1, row.frames / 3, row.frames / 2 + 1, row.frames - 2, row.frames - 1}) {
        // As places are told: in whole milliseconds, rounded down.
        const double seconds = std::floor(frame / row.rate * 1000) / 1000;
        EXPECT_EQ(frameAt(row.name, seconds), frame) << "at " << seconds;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, ExactPictures,
                         ::testing::Values(ExactRow{"h264_30.mp4", 30, 300}, ExactRow{"h264_25.mp4", 25, 250},
                                           ExactRow{"ntsc.mp4", 30000 / 1001.0, 150}, ExactRow{"gops.mp4", 30, 150},
                                           ExactRow{"gops_late.mp4", 30, 90}, ExactRow{"gops_open.mkv", 25, 100},
                                           ExactRow{"gops_h264.ts", 25, 100}, ExactRow{"offset.ts", 25, 75},
                                           ExactRow{"gops_hevc.mp4", 25, 75}, ExactRow{"gops_vp9.webm", 30, 90},
                                           ExactRow{"video.avi", 25, 75}, ExactRow{"video.mpg", 25, 75},
                                           ExactRow{"video.mkv", 24000 / 1001.0, 72}),
                         [](const auto& info) {
                             std::string name = info.param.name;
                             std::replace_if(
                                 name.begin(), name.end(), [](char one) { return std::isalnum(one) == 0; }, '_');
                             return name;
                         });

TEST(WholePicture, IsAsLargeAsItIsShown)
{
    const auto plain = readPicture(testMedia("h264_30.mp4"), 1, kNever);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->width, 320);
    EXPECT_EQ(plain->height, 240);
    const auto wide = readPicture(testMedia("anamorphic.mp4"), 0.4, kNever);
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->width, 427);
    EXPECT_EQ(wide->height, 240);
    EXPECT_EQ(frameIn(*wide), 10);
    const auto narrow = readPicture(testMedia("anamorphic.mkv"), 0.4, kNever);
    ASSERT_TRUE(narrow);
    EXPECT_EQ(narrow->width, 320);
    EXPECT_EQ(narrow->height, 320);
}

TEST(WholePicture, BehindTheEndIsTheLast) { EXPECT_EQ(frameAt("short.mp4", 1000), 59); }

TEST(WholePicture, ThereIsNoneOfWhatIsNoVideo)
{
    for (const char* name : {"sound.mp3", "no such file", "text.avi", "empty.avi", "list.m3u"})
        EXPECT_FALSE(readPicture(testMedia(name), 0, kNever)) << name;
    EXPECT_FALSE(readPicture("/", 0, kNever));
    EXPECT_FALSE(readPicture(testMedia("h264_30.mp4"), 1, [] { return true; })) << "it ends when told";
}

TEST(SavedFiles, AreNamedWholeAndExact)
{
    const TemporaryFolder folder;
    ThreadedPictures pictures({[&] { return folder.path() + "/Pictures"; }, &readPicture});
    pictures.save({{testMedia("h264_30.mp4"), 2.533}, {testMedia("gops.mp4"), 1}, {testMedia("sound.mp3"), 0}}, true);
    const SavedPictures saved = waitFor(pictures);
    ASSERT_EQ(saved.files.size(), 3u);
    EXPECT_EQ(saved.files[0], folder.path() + "/Pictures/h264_30 0-00-02.533.png");
    EXPECT_EQ(saved.files[1], folder.path() + "/Pictures/gops 0-00-01.000.png");
    EXPECT_NE(saved.files[2].find("/Contact sheet "), std::string::npos);
    EXPECT_EQ(saved.missing, std::vector<std::string>{testMedia("sound.mp3")});
    EXPECT_EQ(saved.trouble, PictureTrouble::NoPicture);
    const QImage image(QString::fromStdString(saved.files[0]));
    EXPECT_EQ(image.size(), QSize(320, 240));
    Still still{image.width(), image.height(), {}, {}};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            still.pixels.push_back(image.pixel(x, y) & 0xFFFFFF);
    EXPECT_EQ(frameIn(still), 76) << "read back from the file";
    const QImage sheet(QString::fromStdString(saved.files[2]));
    EXPECT_EQ(sheet.size(), QSize(2 * 48 + 2 * 900 + 36, 2 * 48 + 900 * 9 / 16 + 64));
    EXPECT_FALSE(pictures.done()) << "each order is told once";
}

TEST(SavedFiles, AHangingFileHoldsNobodyUp)
{
    const TemporaryFolder folder;
    std::atomic<bool> release = false;
    std::atomic<int> inside = 0;
    {
        ThreadedPictures pictures(
            {[&] { return folder.path(); },
             [&](const std::string&, double, const std::function<bool()>&) -> std::optional<Still> {
                 ++inside;
                 while (!release)
                     letOthersRun();
                 --inside;
                 return {};
             }});
        for (int i = 0; i < 4; ++i)
            pictures.save({{"/dead/file", 0}}, false);
        EXPECT_FALSE(pictures.done());
        pictures.save({{"/dead/file", 0}}, false);
        const auto refused = pictures.done();
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->trouble, PictureTrouble::Busy);
        release = true;
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(waitFor(pictures).trouble, PictureTrouble::NoPicture);
    }
    EXPECT_EQ(inside, 0);
}

TEST(SavedFiles, AfterTheEndNothingMoreIsReadOrWritten)
{
    const TemporaryFolder folder;
    std::atomic<bool> release = false;
    std::atomic<int> reads = 0;
    std::weak_ptr<int> used;
    {
        const auto use = std::make_shared<int>();
        used = use;
        ThreadedPictures pictures(
            {[&folder, use] { return folder.path(); },
             [&](const std::string&, double, const std::function<bool()>& refuses) -> std::optional<Still> {
                 ++reads;
                 while (!refuses())
                     letOthersRun();
                 while (!release)
                     letOthersRun();
                 return Still{1, 1, {0xFFFFFF}, {}};
             }});
        pictures.save({{"/first", 0}, {"/second", 0}}, true);
        while (reads == 0)
            letOthersRun();
    }
    EXPECT_TRUE(ThreadedPictures::hasLeftAny()) << "the service has ended, its thread has not";
    release = true;
    while (!used.expired())
        letOthersRun();
    EXPECT_EQ(reads, 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(SavedFiles, NoMemoryIsAnswered)
{
    const TemporaryFolder folder;
    ThreadedPictures pictures(
        {[&] { return folder.path(); },
         [](const std::string& path, double, const std::function<bool()>&) -> std::optional<Still> {
             if (path == "/huge")
                 throw std::bad_alloc();
             return Still{1, 1, {0xFFFFFF}, {}};
         }});
    pictures.save({{"/huge", 0}, {"/small", 0}}, false);
    const SavedPictures saved = waitFor(pictures);
    EXPECT_EQ(saved.trouble, PictureTrouble::NoPicture);
    EXPECT_EQ(saved.missing, std::vector<std::string>{"/huge"});
    EXPECT_EQ(saved.files, std::vector<std::string>{folder.path() + "/small 0-00-00.000.png"});
}

TEST(ContactSheet, AnEntryKeepsWhatTheSheetShows)
{
    Still large{1920, 1080, std::vector<std::uint32_t>(1920 * 1080, 0x336699), {}};
    const SheetEntry entry = sheetEntry(large, "name", "time");
    EXPECT_EQ(QSize(entry.picture.width, entry.picture.height), QSize(899, 506));
    ASSERT_EQ(entry.picture.pixels.size(), 899u * 506);
    EXPECT_EQ(entry.picture.pixels[899 * 250 + 450] & 0xFFFFFF, 0x336699u);
    EXPECT_EQ(entry.name, "name");
    EXPECT_EQ(entry.time, "time");
    const SheetEntry small = sheetEntry(Still{2, 1, {0xFF0000, 0x0000FF}, {}}, "", "");
    EXPECT_EQ(small.picture.width, 2);
    EXPECT_EQ(small.picture.pixels[0] & 0xFFFFFF, 0xFF0000u);
    EXPECT_EQ(small.picture.pixels[1] & 0xFFFFFF, 0x0000FFu);
}

TEST(ContactSheet, ShowsTheNameOfWhatItHasNoPictureOf)
{
    const std::string png = contactSheet({{{}, "name", "0:00"}}, [] { return false; });
    const QImage sheet = QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()));
    ASSERT_EQ(sheet.width(), 2 * 48 + 900);
    EXPECT_EQ(sheet.pixel(48 + 450, 48 + 250), qRgb(10, 33, 62)) << "an empty place";
    EXPECT_EQ(contactSheet({{{}, "name", "0:00"}}, [] { return true; }), "") << "it ends when told";
}

TEST(ContactSheet, HasAsManyColumnsAsTheGrid)
{
    const auto widthOf = [](int count) {
        const Still dot{1, 1, {0xFFFFFF}, {}};
        const std::string png = contactSheet(std::vector<SheetEntry>(static_cast<std::size_t>(count), {dot, "a", "b"}),
                                             [] { return false; });
        return QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size())).width();
    };
    EXPECT_EQ(widthOf(1), 2 * 48 + 900);
    EXPECT_EQ(widthOf(4), 2 * 48 + 2 * 900 + 36);
    EXPECT_EQ(widthOf(9), 2 * 48 + 3 * 900 + 2 * 36);
    EXPECT_LE(widthOf(12), 3840);
    EXPECT_GT(widthOf(12), widthOf(9));
}

} // namespace tandrel::test

int main(int argc, char** argv)
{
    av_log_set_level(AV_LOG_QUIET);
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
