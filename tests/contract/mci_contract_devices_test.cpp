// Devices: opening, naming, closing, and what they tell of themselves.
#include "contract/contract_bench.h"
#include "support/test_media.h"

namespace tandrel
{

TEST_P(MciContract, OpenAnswersTheSmallestFreeId)
{
    EXPECT_EQ(open("short.mp4", "A"), 0);
    EXPECT_EQ(answer, "1");
    EXPECT_EQ(open("short.mp4", "B"), 0);
    EXPECT_EQ(answer, "2");
    EXPECT_EQ(open("short.mp4", "C"), 0);
    EXPECT_EQ(answer, "3");
    EXPECT_EQ(send("close B"), 0);
    EXPECT_EQ(open("h264_25.mp4", "D"), 0);
    EXPECT_EQ(answer, "2");
}

TEST_P(MciContract, AnAliasIsUsedOnce)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(open("h264_25.mp4"), 289);
    EXPECT_EQ(answer, "");
    EXPECT_EQ(ask("status A length"), "2000");
}

TEST_P(MciContract, WithoutAliasTheFileNamesTheDevice)
{
    const std::string name = inQuotes(testMedia("short.mp4"));
    EXPECT_EQ(send("Open " + name), 0);
    EXPECT_EQ(ask("status " + name + " length"), "2000");
}

TEST_P(MciContract, OneFileUnderTwoAliasesIsTwoDevices)
{
    ASSERT_EQ(open("h264_30.mp4", "A"), 0);
    ASSERT_EQ(open("h264_30.mp4", "B"), 0);
    EXPECT_EQ(send("seek A to 4000"), 0);
    EXPECT_EQ(ask("status A position"), "4000");
    EXPECT_EQ(ask("status B position"), "0");
    EXPECT_EQ(send("set B time format frames"), 0);
    EXPECT_EQ(ask("status B length"), "300");
    EXPECT_EQ(ask("status A length"), "10000");
}

TEST_P(MciContract, AFailedOpenLeavesNothingBehind)
{
    EXPECT_EQ(open("nowhere.mp4"), 275);
    EXPECT_EQ(open("text.avi"), 296);
    EXPECT_EQ(send("Open \"" + testMedia("") + "\" Type MPEGVideo alias A"), 296);
    EXPECT_EQ(answer, "");
    EXPECT_EQ(send("Pause A"), 263);
    EXPECT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(answer, "1");
}

TEST_P(MciContract, AnnouncedFilesOpenLikeOthers)
{
    const std::vector<std::string> names{"short.mp4", "text.avi", "h264_30.mp4", "nowhere.mp4", "h264_25.mp4"};
    const std::vector<int> results{0, 296, 0, 275, 0};
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back(testMedia(name));
    mci().prepare(paths);
    for (std::size_t index = 0; index < names.size(); ++index)
        EXPECT_EQ(open(names[index], std::to_string(index)), results[index]) << names[index];
    EXPECT_EQ(ask("status 0 length"), "2000");
    EXPECT_EQ(ask("status 2 position"), "0");
    EXPECT_EQ(send("seek 4 to 4000"), 0);
    EXPECT_EQ(ask("status 4 position"), "4000");
    mci().prepare({});
}

TEST_P(MciContract, WhatWasAnnouncedNeedNotBeOpened)
{
    for (int round = 0; round < 3; ++round) {
        mci().prepare({testMedia("short.mp4"), testMedia("h264_30.mp4"), testMedia("h264_25.mp4")});
        EXPECT_EQ(open("h264_25.mp4"), 0) << "another order";
        EXPECT_EQ(open("short.mp4", "B"), 0);
        EXPECT_EQ(open("short.mp4", "C"), 0) << "once more than announced";
        mci().prepare({});
        EXPECT_EQ(open("h264_30.mp4", "D"), 0);
        EXPECT_EQ(ask("status D length"), "10000");
        EXPECT_EQ(send("close all"), 0);
    }
    mci().prepare({testMedia("short.mp4"), testMedia("h264_30.mp4")});
}

TEST_P(MciContract, ManyFilesAreAnnouncedAtOnce)
{
    const std::vector<std::string> paths(30, testMedia("short.mp4"));
    mci().prepare(paths);
    for (int index = 0; index < 30; ++index)
        ASSERT_EQ(open("short.mp4", "A" + std::to_string(index)), 0);
    EXPECT_EQ(answer, "30");
    EXPECT_EQ(ask("status A29 length"), "2000");
}

TEST_P(MciContract, CloseEndsTheDevice)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("close A"), 0);
    EXPECT_EQ(send("close A"), 263);
    EXPECT_EQ(send("status A mode"), 263);
}

TEST_P(MciContract, CloseAllEndsEveryDeviceAndIsFineWithout)
{
    EXPECT_EQ(send("Close all"), 0);
    ASSERT_EQ(open("short.mp4", "A"), 0);
    ASSERT_EQ(open("h264_25.mp4", "B"), 0);
    EXPECT_EQ(send("Play B"), 0);
    EXPECT_EQ(send("close ALL"), 0);
    EXPECT_EQ(send("Pause A"), 263);
    EXPECT_EQ(send("Pause B"), 263);
    EXPECT_EQ(send("close all"), 0);
}

TEST_P(MciContract, NoOtherVerbWorksOnAll)
{
    ASSERT_EQ(open("short.mp4"), 0);
    for (const char* command : {"Play all", "Pause all", "seek all to 5", "step all", "status all mode", "open all",
                                "set all time format ms", "setaudio all volume to 5", "put all window at 0 0 1 1"})
        EXPECT_EQ(send(command), 279) << command;
    EXPECT_EQ(open("short.mp4", "all"), 279);
}

TEST_P(MciContract, NothingIsOpenedByItself)
{
    const std::string path = inQuotes(testMedia("short.mp4"));
    for (const std::string& command :
         {"Play " + path, "Pause " + path, "seek " + path + " to 5", "step " + path, "status " + path + " mode",
          "set " + path + " time format ms", "setaudio " + path + " volume to 5", "where " + path + " destination",
          "put " + path + " window at 0 0 1 1", "close " + path, "status " + path + " nonsense"})
        EXPECT_EQ(send(command), 263) << command;
}

TEST_P(MciContract, WithoutADriveNoDoorMoves)
{
    EXPECT_EQ(send("set CDAudio door open"), 266);
    EXPECT_EQ(send("Set cdaudio door closed"), 266);
    EXPECT_EQ(send("set CDAudio door ajar"), 261);
    EXPECT_EQ(send("set CDAudio time format ms"), 263);
}

TEST_P(MciContract, WhereTellsTheDisplaySizeWhateverWasPut)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(ask("Where A destination"), "0 0 320 240");
    EXPECT_EQ(send("put A window at 10 20 100 50"), 0);
    EXPECT_EQ(ask("Where A destination"), "0 0 320 240");
    EXPECT_EQ(send("put A window at 0 0 0 0"), 0);
    EXPECT_EQ(send("put A window at -5 -5 90000 90000"), 0);
    EXPECT_EQ(send("put A window at 0 0 -1 -1"), 0);
    EXPECT_EQ(ask("Where A destination"), "0 0 320 240");
}

TEST_P(MciContract, WhereAppliesTheAspectRatio)
{
    ASSERT_EQ(open("anamorphic.mp4"), 0);
    EXPECT_EQ(ask("Where A destination"), "0 0 427 240");
}

TEST_P(MciContract, SoundAloneIsNoughtByNought)
{
    ASSERT_EQ(open("sound.mp3"), 0);
    EXPECT_EQ(ask("Where A destination"), "0 0 0 0");
    EXPECT_EQ(ask("status A mode"), "stopped");
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_GE(number("status A length"), 3000);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_TRUE(playBeyond(100));
    EXPECT_EQ(send("seek A to 99999"), 0);
    EXPECT_EQ(ask("status A position"), ask("status A length"));
    EXPECT_EQ(send("seek A to 1000"), 0);
    EXPECT_EQ(ask("status A position"), "1000");
    EXPECT_EQ(send("seek A to 2700"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(ask("status A position"), ask("status A length"));
}

TEST_P(MciContract, VolumeHasItsBounds)
{
    ASSERT_EQ(open("short.mp4", "A"), 0);
    ASSERT_EQ(open("h264_25.mp4", "B"), 0);
    for (const char* alias : {"A", "B"}) {
        const std::string start = std::string("setaudio ") + alias + " Volume to ";
        EXPECT_EQ(send(start + "0"), 0);
        EXPECT_EQ(send(start + "1000"), 0);
        EXPECT_EQ(send(start + "1001"), 282);
        EXPECT_EQ(send(start + "-1"), 282);
    }
}

} // namespace tandrel
