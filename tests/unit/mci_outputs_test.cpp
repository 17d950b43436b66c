// Which outputs are chosen, and which paths are opened, without playing anything.
#include "platform/mpv/media_path.h"
#include "platform/mpv/output_choice.h"
#include "platform/output/picture_window.h"
#include "platform/output/sound_outputs.h"
#include "platform/path_marks.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
class Folder : public testing::Test
{
protected:
    Folder()
    {
        std::filesystem::remove_all(root);
        std::filesystem::create_directories(root);
    }
    ~Folder() override { std::filesystem::remove_all(root); }

    std::filesystem::path make(const std::string& name)
    {
        const auto path = root / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << 'x';
        return path;
    }
    std::string sounds(const std::map<std::string, std::string>& environment) const
    {
        return soundOutputs(root, [&](const char* name) -> const char* {
            const auto found = environment.find(name);
            return found == environment.end() ? nullptr : found->second.c_str();
        });
    }

    std::filesystem::path root = testing::TempDir() + "mci_outputs_" + std::to_string(getpid());
};
} // namespace

using SoundOutputs = Folder;
using MediaPaths = Folder;

TEST_F(SoundOutputs, AMachineWithoutDevicesHasNone)
{
    EXPECT_EQ(sounds({}), "");
    EXPECT_EQ(sounds({{"XDG_RUNTIME_DIR", "/run/user/1"}}), "");
    make("dev/snd/seq");
    make("dev/snd/pcmC0D0c");
    EXPECT_EQ(sounds({}), "");
}

TEST_F(SoundOutputs, WhatTheDesktopOffersIsTakenInOrder)
{
    make("dev/snd/pcmC0D0p");
    EXPECT_EQ(sounds({}), "alsa,null");
    make("run/user/1/pulse/native");
    EXPECT_EQ(sounds({{"XDG_RUNTIME_DIR", "/run/user/1"}}), "pulse,alsa,null");
    make("run/user/1/pipewire-0");
    EXPECT_EQ(sounds({{"XDG_RUNTIME_DIR", "/run/user/1"}}), "pipewire,pulse,alsa,null");
    EXPECT_EQ(sounds({{"PULSE_SERVER", "host"}}), "pulse,alsa,null");
}

TEST(Renderers, OnesOfTheProcessorAreKnown)
{
    EXPECT_TRUE(isSoftwareRenderer("llvmpipe (LLVM 15.0.6, 256 bits)"));
    EXPECT_TRUE(isSoftwareRenderer("Software Rasterizer"));
    EXPECT_FALSE(isSoftwareRenderer("Mesa Intel(R) UHD Graphics 620 (KBL GT2)"));
}

TEST(CanvasWidths, AreTheCheapOnesNextToWhatIsShown)
{
    EXPECT_EQ(canvasWidth(473, 1280), 474);
    EXPECT_EQ(canvasWidth(474, 1280), 474);
    EXPECT_EQ(canvasWidth(480, 1280), 482) << "smaller than the picture";
    EXPECT_EQ(canvasWidth(479, 1280), 482);
    EXPECT_EQ(canvasWidth(1280, 1280), 1280) << "not scaled";
    EXPECT_EQ(canvasWidth(1920, 1280), 1920) << "larger than the picture";
    EXPECT_EQ(canvasWidth(0, 0), 0);
    EXPECT_EQ(canvasWidth(1, 0), 2);
}

TEST_F(MediaPaths, AMarkedPathFindsTheFile)
{
    const auto file = make("a \"b\" | 100%\xff.avi");
    const MediaPath found = findMedia(markPath(file.string()));
    EXPECT_EQ(found.failure, OpenFailure::None);
    EXPECT_EQ(found.absolute, file.string());
}

TEST_F(MediaPaths, ARealNameMayHoldTheStandIns)
{
    const auto file = make("odd\xEF\x80\xA2.avi");
    const MediaPath found = findMedia(file.string());
    EXPECT_EQ(found.failure, OpenFailure::None);
    EXPECT_EQ(found.absolute, file.string());
}

TEST_F(MediaPaths, RelativePathsStartAtTheWorkingDirectory)
{
    make("-v --help.avi");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(root);
    const MediaPath found = findMedia("-v --help.avi");
    std::filesystem::current_path(before);
    EXPECT_EQ(found.failure, OpenFailure::None);
    EXPECT_EQ(found.absolute, (std::filesystem::canonical(root) / "-v --help.avi").string());
}

TEST_F(MediaPaths, WhatIsNoFileIsRefusedWithoutWaiting)
{
    EXPECT_EQ(findMedia((root / "nothing.avi").string()).failure, OpenFailure::NoFile);
    EXPECT_EQ(findMedia("http://example.invalid/a.mp4").failure, OpenFailure::NoFile);
    EXPECT_EQ(findMedia(root.string()).failure, OpenFailure::NotPlayable);
    EXPECT_EQ(findMedia("/dev/zero").failure, OpenFailure::NotPlayable);
    const std::string pipe = (root / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(findMedia(pipe).failure, OpenFailure::NotPlayable);
}

} // namespace tandrel
