#include "platform/mci/tracing_mci.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace tandrel
{

namespace
{
class ScriptedMci final : public Mci
{
public:
    int send(std::string_view command, std::span<char> answer) override
    {
        const std::string_view text = command == "status A length" ? "5000" : "";
        if (!answer.empty())
            *std::copy_n(text.begin(), std::min(text.size(), answer.size() - 1), answer.begin()) = '\0';
        return command == "Jump A" ? 261 : 0;
    }
    bool idle() override
    {
        ++idles;
        return waits;
    }
    void expect(const std::vector<std::string>& commands) override { expected = commands; }
    void prepare(const std::vector<std::string>& paths) override { prepared = paths; }
    std::optional<DeviceLook> look(std::string_view alias) override
    {
        return alias == "A" ? std::optional(DeviceLook{.playing = true, .ended = false, .place = 1.5, .length = 5})
                            : std::nullopt;
    }
    bool waits = false;
    std::vector<std::string> expected;
    std::vector<std::string> prepared;
    int idles = 0;
};

class TracingTest : public testing::Test
{
protected:
    TracingTest() { std::filesystem::remove(file); }
    ~TracingTest() override { std::filesystem::remove(file); }
    std::string written() const
    {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }

    std::string file = testing::TempDir() + "mci_trace_" + std::to_string(getpid());
    ScriptedMci inner;
};
} // namespace

TEST_F(TracingTest, EachCommandIsALineInTheFileAtOnce)
{
    TracingMci mci(inner, file);
    std::array<char, 128> answer{};
    EXPECT_EQ(mci.send("status A length", answer), 0);
    EXPECT_STREQ(answer.data(), "5000");
    EXPECT_EQ(written(), "status A length\t0\t5000\n");
    EXPECT_EQ(mci.send("Jump A", answer), 261);
    EXPECT_EQ(mci.send("Play \"a\tb\" "), 0);
    EXPECT_EQ(written(), "status A length\t0\t5000\nJump A\t261\t\nPlay \"a b\" \t0\t\n");
    mci.idle();
    EXPECT_EQ(inner.idles, 1);
}

TEST_F(TracingTest, WhatIsNoCommandGoesThroughAndIsNotWrittenDown)
{
    TracingMci mci(inner, file);
    EXPECT_FALSE(mci.idle());
    inner.waits = true;
    EXPECT_TRUE(mci.idle());
    mci.expect({"step A"});
    mci.prepare({"/a", "/b"});
    EXPECT_EQ(inner.expected, std::vector<std::string>{"step A"});
    EXPECT_EQ(inner.prepared, (std::vector<std::string>{"/a", "/b"}));
    ASSERT_TRUE(mci.look("A"));
    EXPECT_EQ(mci.look("A")->place, 1.5);
    EXPECT_FALSE(mci.look("B"));
    int pulses = 0;
    mci.whileWaiting = [&] { ++pulses; };
    inner.whileWaiting();
    EXPECT_EQ(pulses, 1);
    EXPECT_EQ(written(), "");
}

TEST_F(TracingTest, TheEnvironmentNamesTheFile)
{
    unsetenv("TANDREL_MCI_TRACE");
    EXPECT_EQ(tracingMciIfWanted(inner), nullptr);
    setenv("TANDREL_MCI_TRACE", file.c_str(), 1);
    const auto mci = tracingMciIfWanted(inner);
    unsetenv("TANDREL_MCI_TRACE");
    ASSERT_NE(mci, nullptr);
    EXPECT_EQ(mci->send("Pause A"), 0);
    EXPECT_EQ(written(), "Pause A\t0\t\n");
}

TEST_F(TracingTest, WithoutAFileCommandsRunAllTheSame)
{
    TracingMci mci(inner, "/nowhere/at/all");
    EXPECT_EQ(mci.send("Jump A"), 261);
}

} // namespace tandrel
