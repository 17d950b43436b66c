// Files of all kinds over libmpv without outputs: which open, which do not, and that nothing is left behind.
#include "platform/mci/mci_service.h"
#include "platform/mpv/mpv_engine.h"
#include "platform/path_marks.h"
#include "support/let_others_run.h"
#include "support/test_media.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
using Moment = std::chrono::steady_clock::time_point;

class MediaFiles : public testing::Test
{
protected:
    MediaFiles() { std::filesystem::create_directories(folder); }
    ~MediaFiles() override { std::filesystem::remove_all(folder); }

    int send(const std::string& command)
    {
        std::array<char, 128> buffer{};
        const int result = mci.send(command, buffer);
        answer = buffer.data();
        return result;
    }
    int open(const std::string& path) { return send("Open \"" + markPath(path) + "\" Type MPEGVideo alias A"); }
    long number(const std::string& command)
    {
        EXPECT_EQ(send(command), 0) << command;
        return std::stol(answer);
    }
    bool waitUntil(const std::function<bool()>& condition)
    {
        const Moment end = std::chrono::steady_clock::now() + 60s;
        while (std::chrono::steady_clock::now() < end) {
            mci.idle();
            if (condition())
                return true;
            test::letOthersRun();
        }
        return false;
    }
    std::string copyAs(const std::string& name)
    {
        const auto target = folder / name;
        std::filesystem::copy_file(testMedia("short.mp4"), target);
        return target.string();
    }

    std::filesystem::path folder = testing::TempDir() + "mci_media_" + std::to_string(getpid());
    MciService mci{makeMpvEngine({.outputs = false, .pixelRatio = nullptr, .mostDevices = 1})};
    std::string answer;
};

std::ptrdiff_t entriesOf(const char* folder)
{
    const std::filesystem::directory_iterator entries(folder);
    return std::distance(begin(entries), end(entries));
}
} // namespace

TEST_F(MediaFiles, EveryKindOfVideoOpensAndPlays)
{
    for (const char* name : {"h264_30.mp4", "h264_25.mp4", "ntsc.mp4", "video.avi", "video.mpg", "video.webm",
                             "video.wmv", "video.flv", "video.mov", "video.mkv", "video.ogm", "offset.ts", "uneven.mkv",
                             "live.mkv", "raw.h264", "sound.mp3", "sound.m4a", "cut_with_index.mp4"}) {
        ASSERT_EQ(open(testMedia(name)), 0) << name;
        EXPECT_EQ(number("status A position"), 0) << name;
        EXPECT_GT(number("status A length"), 0) << name;
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_TRUE(waitUntil([&] { return number("status A position") > 200; })) << name;
        EXPECT_EQ(send("close A"), 0);
    }
}

TEST_F(MediaFiles, WhatIsNoMediumDoesNotOpen)
{
    for (const char* name : {"empty.avi", "text.avi", "cut_without_index.mp4", "list.m3u", "plain.m3u", "list.m3u8",
                             "list.pls", "list.cue", "list.edl", "list.ffconcat", "subtitles.srt"}) {
        EXPECT_EQ(open(testMedia(name)), 296) << name;
        EXPECT_EQ(send("Pause A"), 263);
    }
    EXPECT_EQ(open(testMedia("")), 296);
    EXPECT_EQ(open("/dev/zero"), 296);
    EXPECT_EQ(open(testMedia("nowhere.avi")), 275);
    EXPECT_EQ(open("edl://" + testMedia("short.mp4")), 275);
    EXPECT_EQ(open("http://127.0.0.1:9/video.mp4"), 275);
    const std::string pipe = (folder / "pipe.avi").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(open(pipe), 296);
}

TEST_F(MediaFiles, AnyNameOpens)
{
    for (const std::string& name :
         {std::string("-v.mp4"), std::string("a b  c.mp4"), std::string("100%d %s.mp4"), std::string("q\"u|o.mp4"),
          std::string("line\r\nend.mp4"), std::string("\xff\xfe\x80.mp4"), std::string("~~home.mp4"),
          std::string("back\\slash.mp4"), std::string(251, 'n') + ".mp4", std::string("m\xEF\x80\xA2.mp4")}) {
        ASSERT_EQ(open(copyAs(name)), 0) << name;
        EXPECT_EQ(number("status A length"), 2000);
        EXPECT_EQ(send("close A"), 0);
    }
}

TEST_F(MediaFiles, ACutFilePlaysAsFarAsItGoes)
{
    ASSERT_EQ(open(testMedia("cut_with_index.mp4")), 0);
    const long length = number("status A length");
    EXPECT_EQ(length, 10000);
    EXPECT_EQ(send("Play A from 4500"), 0);
    EXPECT_TRUE(waitUntil([&] { return send("status A mode") == 0 && answer == "stopped"; }));
    EXPECT_EQ(number("status A position"), length);
}

TEST_F(MediaFiles, AThousandOpensWouldLeaveTheProcessAsItWas)
{
    const auto round = [&] {
        ASSERT_EQ(open(testMedia("short.mp4")), 0);
        EXPECT_EQ(send("Play A"), 0);
        mci.idle();
        EXPECT_EQ(send("close A"), 0);
        EXPECT_EQ(open(testMedia("text.avi")), 296);
    };
    for (int count = 0; count < 10; ++count)
        round();
    // A thread that has done its work may take a moment to go, and the stock a moment to fill.
    const auto files = entriesOf("/proc/self/fd");
    const auto threads = entriesOf("/proc/self/task");
    for (int count = 0; count < 90; ++count)
        round();
    // Either count may have been taken at a moment at which one was missing.
    constexpr auto kSpare = 2;
    EXPECT_TRUE(waitUntil([&] {
        return entriesOf("/proc/self/fd") <= files + kSpare && entriesOf("/proc/self/task") <= threads + kSpare;
    })) << entriesOf("/proc/self/fd")
        << " files after " << files << ", " << entriesOf("/proc/self/task") << " threads after " << threads;
}

} // namespace tandrel
