// The settings for pictures and sounds: their table, their file, and files that are none.

#include "temporary_folder.h"

#include "platform/codec/codec_file.h"

#include <gmock/gmock.h>

#include <chrono>
#include <set>
#include <sys/stat.h>
#include <thread>

namespace tandrel::test
{

namespace
{

using Value = CodecValue;

class PlatformCodecSettings : public ::testing::Test
{
protected:
    CodecSettings stored() { return CodecFile(folder.path("codec.ini")).read(); }
    TemporaryFolder folder;
    const CodecSettings standard;
};

} // namespace

TEST_F(PlatformCodecSettings, RowsOfTheTableMakeSense)
{
    std::set<std::string> names;
    for (const CodecRule& rule : kCodecRules) {
        EXPECT_LT(rule.lowest, rule.highest) << rule.name;
        EXPECT_GE(rule.standard, rule.lowest) << rule.name;
        EXPECT_LE(rule.standard, rule.highest) << rule.name;
        EXPECT_TRUE(rule.section == "picture" || rule.section == "sound") << rule.name;
        EXPECT_TRUE(names.insert(std::string(rule.name)).second) << rule.name;
    }
    EXPECT_EQ(ruleOf(equaliserBand(0)).name, "band31");
    EXPECT_EQ(ruleOf(equaliserBand(kEqualiserBands - 1)).name, "band16000");
    EXPECT_EQ(ruleOf(Value::Speed).name, "speed");
}

TEST_F(PlatformCodecSettings, AllAreStandardAtFirst)
{
    for (std::size_t index = 0; index < kCodecValues; ++index) {
        EXPECT_EQ(standard.get(static_cast<Value>(index)), kCodecRules[index].standard);
        EXPECT_TRUE(standard.isStandard(static_cast<Value>(index)));
    }
    EXPECT_EQ(readCodecSettings(""), standard);
}

TEST_F(PlatformCodecSettings, AValueStaysInItsRange)
{
    CodecSettings settings;
    settings.set(Value::Speed, 1000);
    EXPECT_EQ(settings.get(Value::Speed), 200);
    settings.set(Value::Speed, -1);
    EXPECT_EQ(settings.get(Value::Speed), 50);
    settings.set(Value::Brightness, -33);
    EXPECT_EQ(settings.get(Value::Brightness), -33);
    EXPECT_FALSE(settings.isStandard(Value::Brightness));
}

TEST_F(PlatformCodecSettings, EveryValueComesBackFromTheFile)
{
    CodecSettings settings;
    for (std::size_t index = 0; index < kCodecValues; ++index)
        settings.set(static_cast<Value>(index),
                     index % 2 == 0 ? kCodecRules[index].lowest : kCodecRules[index].highest);
    ASSERT_TRUE(CodecFile(folder.path("codec.ini")).write(settings));
    EXPECT_EQ(stored(), settings);
    EXPECT_EQ(readCodecSettings(writeCodecSettings(settings, "")), settings);
}

TEST_F(PlatformCodecSettings, NonsenseIsStandardAndWhatIsTooMuchIsTheMost)
{
    folder.write("codec.ini",
                 std::string() +
                     "brightness=9\n[sound]\r\nspeed = 150 \r\nbrightness=9\ndelay=99999999999999\nband31=loud\n"
                     "band62=\nband125=3x\nnormalise=2\nnormalise=1\nchannels=-99999999999999\n"
                     "[picture]\ncontrast=+12\n hue =\t-20\ngamma\n=5\n[nothing]\nsharpen=50\n[]\n[\n" +
                     std::string("\0=\xff\n", 4));
    const CodecSettings settings = stored();
    EXPECT_EQ(settings.get(Value::Speed), 150);
    EXPECT_EQ(settings.get(Value::Delay), 2000);
    EXPECT_EQ(settings.get(Value::Channels), 0);
    EXPECT_EQ(settings.get(Value::Normalise), 1);
    EXPECT_EQ(settings.get(Value::Contrast), 12);
    EXPECT_EQ(settings.get(Value::Hue), -20);
    for (const Value value :
         {Value::Brightness, Value::Band31, Value::Band62, Value::Band125, Value::Gamma, Value::Sharpen})
        EXPECT_TRUE(settings.isStandard(value)) << ruleOf(value).name;
}

TEST_F(PlatformCodecSettings, LinesOfOthersStay)
{
    folder.write("codec.ini", "; mine\n[other]\nspeed=7\n[sound]\nspeed=80\nlater=1\nspeed=90\n\n[picture]\n");
    CodecFile file(folder.path("codec.ini"));
    CodecSettings settings = file.read();
    settings.set(Value::Speed, 120);
    settings.set(Value::Hue, 5);
    ASSERT_TRUE(file.write(settings));
    const std::string text = folder.content("codec.ini");
    EXPECT_THAT(text, ::testing::StartsWith("; mine\n[other]\nspeed=7\n[sound]\nspeed=120\nlater=1\n"));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("speed=90")));
    EXPECT_EQ(text.find("[picture]"), text.rfind("[picture]"));
    EXPECT_EQ(stored(), settings);
    // What is written once more is the same text.
    EXPECT_EQ(writeCodecSettings(settings, text), text);
}

TEST_F(PlatformCodecSettings, OnePageIsTakenAlone)
{
    CodecSettings one;
    one.set(Value::Brightness, 10);
    one.set(Value::Speed, 90);
    CodecSettings other;
    other.takeSection("picture", one);
    EXPECT_EQ(other.get(Value::Brightness), 10);
    EXPECT_EQ(other.get(Value::Speed), 100);
}

TEST_F(PlatformCodecSettings, AChangeIsSeenAtTheNextLook)
{
    CodecFile reader(folder.path("codec.ini"));
    EXPECT_EQ(reader.read(), standard);
    for (const int brightness : {10, 20, 30}) {
        CodecSettings settings;
        settings.set(Value::Brightness, brightness);
        ASSERT_TRUE(CodecFile(folder.path("codec.ini")).write(settings));
        EXPECT_EQ(reader.read(), settings);
    }
    std::filesystem::remove(folder.path("codec.ini"));
    EXPECT_EQ(reader.read(), standard);
}

TEST_F(PlatformCodecSettings, WhatIsNoFileOfOursIsLeftAlone)
{
    const std::string path = folder.path("codec.ini");
    CodecSettings changed;
    changed.set(Value::Hue, 9);
    const auto refuses = [&] { return stored() == standard && !CodecFile(path).write(changed); };
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_TRUE(refuses());
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_TRUE(refuses());
    std::filesystem::remove(path);
    folder.write("codec.ini", "[picture]\nhue=9\n" + std::string(64 * 1024, ';'));
    EXPECT_TRUE(refuses());
    std::filesystem::remove(path);
    std::filesystem::create_symlink("codec.ini", path);
    EXPECT_EQ(stored(), standard);
    std::filesystem::remove(path);
    std::filesystem::create_symlink("/dev/zero", path);
    EXPECT_TRUE(refuses());
}

TEST_F(PlatformCodecSettings, TheFolderIsMadeWhereItIsMissing)
{
    CodecFile file(folder.path("new/codec.ini"));
    EXPECT_TRUE(file.write(standard));
    EXPECT_TRUE(std::filesystem::exists(folder.path("new/codec.ini")));
}

TEST_F(PlatformCodecSettings, WithoutAPathNothingIsReadOrWritten)
{
    CodecFile file("");
    EXPECT_EQ(file.read(), standard);
    EXPECT_FALSE(file.write(standard));
}

TEST_F(PlatformCodecSettings, TheFileLiesBesideTheSettings)
{
    EXPECT_EQ(codecFileBeside("/home/me/.config/MsShareStuff.ini"), "/home/me/.config/codec.ini");
    EXPECT_EQ(codecFileBeside("MsShareStuff.ini"), "codec.ini");
}

TEST_F(PlatformCodecSettings, ReadersSeeOneSetOrTheOther)
{
    CodecSettings one;
    CodecSettings other;
    for (int band = 0; band < kEqualiserBands; ++band) {
        one.set(equaliserBand(band), 6);
        other.set(equaliserBand(band), -6);
    }
    CodecFile file(folder.path("codec.ini"));
    ASSERT_TRUE(file.write(one));
    std::thread writer([&] {
        CodecFile own(folder.path("codec.ini"));
        for (int round = 0; round < 10; ++round)
            own.write(round % 2 == 0 ? other : one);
    });
    for (int look = 0; look < 200; ++look) {
        const CodecSettings seen = file.read();
        EXPECT_TRUE(seen == one || seen == other);
    }
    writer.join();
    EXPECT_EQ(file.read(), one);
}

} // namespace tandrel::test
