// What is read of a disc before it plays, and what is not believed.
#include "platform/disc/disc_look.h"
#include "platform/disc/facts_text.h"
#include "platform/vlc/disc_clock.h"
#include "support/disc_files.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tandrel
{

namespace
{
using test::readBytes;
using test::writeBytes;

const std::filesystem::path kDisc = TANDREL_TEST_DISC;
/// A disk that is busy elsewhere may keep a look waiting.
constexpr std::chrono::seconds kPatience{60};

DiscFacts factsOf(const std::filesystem::path& disc) { return lookAtDiscFor(disc, kPatience).facts; }

class DiscLooks : public testing::Test
{
protected:
    std::filesystem::path copyOfFolder() const
    {
        const std::filesystem::path copy = folder.path("copy");
        std::filesystem::copy(kDisc / "disc", copy, std::filesystem::copy_options::recursive);
        return copy;
    }
    test::TemporaryFolder folder;
};

std::vector<DiscFacts::Title> titlesOfTestDisc() { return {{60, 4, 25, {0, 15, 30, 45}}, {20, 2, 25, {0, 9}}}; }

TEST_F(DiscLooks, AnImageTellsItsTitlesAndItsLabel)
{
    const DiscFacts facts = factsOf(kDisc / "disc.iso");
    EXPECT_EQ(facts.titles, titlesOfTestDisc());
    EXPECT_EQ(facts.label, "TANDREL_TEST");
    EXPECT_FALSE(facts.encrypted);
}

TEST_F(DiscLooks, AFolderHasItsNameForALabel)
{
    for (const char* path : {"disc", "disc/", "disc/VIDEO_TS", "disc/VIDEO_TS/"}) {
        const DiscFacts facts = factsOf(kDisc / path);
        EXPECT_EQ(facts.titles, titlesOfTestDisc()) << path;
        EXPECT_EQ(facts.label, "disc") << path;
    }
}

TEST_F(DiscLooks, MenusAndTheLeadOfPicturesAreFound)
{
    const DiscLook look = lookAtDiscFor(kDisc / "disc.iso", kPatience);
    EXPECT_EQ(look.end, DiscLook::End::Read);
    EXPECT_TRUE(look.hasTitleMenu);
    EXPECT_EQ(look.hasRootMenu, (std::vector<bool>{true, true}));
    EXPECT_GT(look.pictureLead, 0.2);
    EXPECT_LT(look.pictureLead, 0.6);
}

TEST_F(DiscLooks, AnotherRateIsToldToo)
{
    const auto copy = copyOfFolder();
    // The length of the first program chain: its last byte holds the code of the rate.
    for (const char* name : {"VTS_01_0.IFO", "VTS_01_0.BUP"}) {
        auto bytes = readBytes(copy / "VIDEO_TS" / name);
        const std::string length{'\x00', '\x01', '\x00', '\x40'};
        const auto chains = bytes.begin() + 0x1000;
        const auto found = std::search(chains, bytes.end(), length.begin(), length.end());
        ASSERT_NE(found, bytes.end());
        *(found + 3) = '\xC0';
        writeBytes(copy / "VIDEO_TS" / name, bytes);
    }
    const DiscFacts facts = factsOf(copy);
    ASSERT_EQ(facts.titles.size(), 2U);
    EXPECT_DOUBLE_EQ(facts.titles[0].frameRate, 30000.0 / 1001);
    EXPECT_DOUBLE_EQ(facts.titles[1].frameRate, 25);
}

TEST_F(DiscLooks, WhatIsNoDiscHasNoTitles)
{
    folder.write("empty.iso", "");
    folder.write("text.iso", std::string(100000, 'x'));
    std::filesystem::create_directories(folder.path("bare/VIDEO_TS"));
    std::filesystem::create_directories(folder.path("looping"));
    std::filesystem::create_symlink(folder.path("looping/VIDEO_TS"), folder.path("looping/VIDEO_TS"));
    for (const char* name : {"empty.iso", "text.iso", "bare", "bare/VIDEO_TS", "looping", "missing", "a\nb|\""})
        EXPECT_TRUE(lookAtDisc(folder.path(name)).titles.empty()) << name;
    EXPECT_TRUE(lookAtDisc("").titles.empty());
    EXPECT_TRUE(lookAtDisc("/dev/null").titles.empty());
}

TEST_F(DiscLooks, APipeIsNotWaitedFor)
{
    const std::string pipe = folder.path("pipe.iso");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(lookAtDiscFor(pipe, kPatience).facts.titles.empty());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kPatience / 2);
}

TEST_F(DiscLooks, APipeInsideADiscIsWaitedForNoLongerThanTold)
{
    const auto copy = copyOfFolder();
    std::filesystem::remove(copy / "VIDEO_TS/VTS_01_0.IFO");
    ASSERT_EQ(mkfifo((copy / "VIDEO_TS/VTS_01_0.IFO").c_str(), 0600), 0);
    const DiscLook look = lookAtDiscFor(copy, std::chrono::milliseconds(300));
    EXPECT_EQ(look.end, DiscLook::End::TookTooLong);
    EXPECT_TRUE(look.facts.titles.empty());
}

TEST_F(DiscLooks, ScrambledContentIsNoticed)
{
    writeBytes(folder.path("scrambled.iso"), test::scrambled(readBytes(kDisc / "disc.iso")));
    const DiscFacts facts = factsOf(folder.path("scrambled.iso"));
    EXPECT_TRUE(facts.encrypted);
    EXPECT_EQ(facts.titles, titlesOfTestDisc());
}

TEST_F(DiscLooks, AScratchedFilmIsStillADisc)
{
    const auto image = readBytes(kDisc / "disc.iso");
    for (unsigned seed = 1; seed <= 5; ++seed) {
        // Behind the tables, which lie at the beginning.
        writeBytes(folder.path("scratched.iso"), test::scratched(image, seed, 600, 500));
        const DiscFacts facts = factsOf(folder.path("scratched.iso"));
        EXPECT_EQ(facts.titles, titlesOfTestDisc()) << seed;
        EXPECT_FALSE(facts.encrypted) << seed;
    }
}

TEST_F(DiscLooks, LooksFromSeveralThreadsAreRight)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr std::chrono::seconds kLongestLook{5};
#else
    constexpr auto kLongestLook = kPatience;
#endif
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    std::atomic<int> hung = 0;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int count = 0; count < 10; ++count) {
                const DiscLook look = lookAtDiscFor(kDisc / "disc.iso", kLongestLook);
                right += look.facts.titles == titlesOfTestDisc() ? 1 : 0;
                hung += look.end == DiscLook::End::TookTooLong ? 1 : 0;
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(right + hung, 40);
#ifndef __SANITIZE_ADDRESS__
    // The allocator of the address sanitizer doesn't free its locks for a child, which may hang on one and is ended.
    EXPECT_EQ(hung, 0);
#endif
}

TEST_F(DiscLooks, NothingIsWrittenToTheStandardOutputs)
{
    const auto copy = copyOfFolder();
    auto bytes = readBytes(copy / "VIDEO_TS/VTS_01_0.IFO");
    std::fill(bytes.begin() + 0x100, bytes.end(), '\xFF');
    writeBytes(copy / "VIDEO_TS/VTS_01_0.IFO", bytes);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    lookAtDisc(copy);
    lookAtDisc(kDisc / "disc.iso");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(DiscLooks, FactsThatNoDiscHasAreNotBelieved)
{
    DiscLook look;
    look.facts.titles = titlesOfTestDisc();
    look.facts.label = "name";
    look.hasRootMenu = {false, true};
    const std::string text = writeLook(look);
    const auto read = readLook(text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->facts.titles, look.facts.titles);
    EXPECT_EQ(read->facts.label, "name");
    EXPECT_EQ(read->hasRootMenu, look.hasRootMenu);
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_FALSE(readLook(text.substr(0, size))) << size;
    look.facts.titles[0].seconds = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(readLook(writeLook(look)));
    look.facts.titles[0].seconds = -1;
    EXPECT_FALSE(readLook(writeLook(look)));
    look.facts.titles.assign(1000, {});
    EXPECT_FALSE(readLook(writeLook(look)));
}

TEST_F(DiscLooks, LabelsAreText)
{
    EXPECT_EQ(cleanLabel("  A FILM\t\n  "), "A FILM");
    EXPECT_EQ(cleanLabel("M\xC3\xA4rchen"), "M\xC3\xA4rchen");
    EXPECT_EQ(cleanLabel("M\xE4rchen"), "M\xC3\xA4rchen");
    EXPECT_EQ(cleanLabel(" \x01 "), "");
}

/// A clock is told what libVLC tells of a film whose pictures are 0.4 s behind, in units of 0.5 s.
class DiscClocks : public testing::Test
{
protected:
    DiscClocks()
    {
        clock.setLead(0.4);
        clock.run(1, start);
    }
    SteadyTime at(double seconds) const
    {
        return start + std::chrono::duration_cast<SteadyTime::duration>(std::chrono::duration<double>(seconds));
    }
    /// The film stands at `offset` + time, from one time to the other.
    void tell(double from, double to, double offset)
    {
        for (double time = from; time < to; time += 0.04)
            clock.hear(std::floor((time + offset + 0.4) / 0.5) * 0.5, at(time));
    }
    SteadyTime start = std::chrono::steady_clock::now();
    DiscClock clock;
};

TEST_F(DiscClocks, FindsThePictureBetweenTheSteps)
{
    clock.jump({}, start);
    tell(0.1, 5, 0);
    EXPECT_NEAR(clock.at(at(5)), 5, 0.06);
    EXPECT_NEAR(clock.at(at(5.3)), 5.3, 0.06);
}

TEST_F(DiscClocks, HoldsAndGoesOn)
{
    clock.jump({}, start);
    tell(0.1, 5, 0);
    clock.run(0, at(5));
    EXPECT_NEAR(clock.at(at(9)), 5, 0.06);
    clock.run(1, at(10));
    tell(10, 15, -5);
    EXPECT_NEAR(clock.at(at(15)), 10, 0.06);
}

TEST_F(DiscClocks, AJumpCountsAtOnceWhateverIsToldOfTheOldPlace)
{
    clock.jump({}, start);
    tell(0.1, 3, 0);
    clock.jump({40, true, -1}, at(3));
    tell(3, 3.4, 0);
    EXPECT_EQ(clock.at(at(3.4)), 40);
    tell(3.4, 8, 36.5);
    EXPECT_NEAR(clock.at(at(8)), 44.5, 0.06);
}

TEST_F(DiscClocks, TheTimeOfAMenuBehindTheTitleIsNotBelieved)
{
    clock.jump({}, start);
    tell(0.1, 18, 0);
    for (double time = 18; time < 18.5; time += 0.04)
        clock.hear(0.4, at(time));
    EXPECT_NEAR(clock.at(at(18.5)), 18.5, 0.06);
    for (double time = 18.5; time < 22; time += 0.04)
        clock.hear(time - 18, at(time));
    EXPECT_LT(clock.at(at(22)), 10);
}

TEST_F(DiscClocks, NeverPassesTheLength)
{
    clock.setLast(4);
    clock.jump({}, start);
    tell(0.1, 5, 0);
    EXPECT_EQ(clock.at(at(9)), 4);
}
} // namespace

} // namespace tandrel
