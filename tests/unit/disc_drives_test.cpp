// Drives for discs: what is found, how it is lettered, and that nothing waits for a drive that hangs.
#include "platform/drives/disc_drives.h"
#include "platform/drives/volume_name.h"
#include "platform/path_marks.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <thread>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
using Kind = FoundDrive::Kind;
using Steady = std::chrono::steady_clock;
using test::TemporaryFolder;

/// A machine whose drives a test can change. Threads that hang may outlive a test.
struct Machine {
    std::mutex mutex;
    std::vector<FoundDrive> drives;
    std::set<std::string> readable;
    std::vector<std::string> opened;
    DiscFacts facts;
    /// Whoever touches this path, or searches if it is empty, waits for the promise.
    std::optional<std::string> hanging;
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    ~Machine() = default;

    void touch(const std::string& path)
    {
        std::unique_lock lock(mutex);
        const bool hangs = hanging == path;
        lock.unlock();
        if (hangs)
            released.wait();
    }
};

class DrivesTest : public testing::Test
{
protected:
    ~DrivesTest() override { machine->release.set_value(); }

    DriveMeans means()
    {
        DriveMeans means;
        means.find = [machine = machine] {
            machine->touch("");
            const std::lock_guard lock(machine->mutex);
            return machine->drives;
        };
        means.isReadable = [machine = machine](const FoundDrive& drive) {
            machine->touch(drive.path);
            const std::lock_guard lock(machine->mutex);
            return machine->readable.count(drive.path) > 0;
        };
        means.volumeName = [](const std::string& path) { return path == "/dev/sr1" ? "" : "NAME_" + path.substr(5); };
        means.look = [machine = machine](const std::string& path) {
            machine->touch(path);
            const std::lock_guard lock(machine->mutex);
            return machine->facts;
        };
        means.openTray = [machine = machine](const std::string& device) {
            const std::lock_guard lock(machine->mutex);
            machine->opened.push_back(device);
        };
        means.limit = 100ms;
        return means;
    }
    void hang(const std::string& path)
    {
        const std::lock_guard lock(machine->mutex);
        machine->hanging = path;
    }
    std::string letters()
    {
        std::string all;
        const int count = drives->count();
        for (int index = 0; index < count; ++index)
            all += drives->driveSpecifier(index);
        return all;
    }

    const FoundDrive first{Kind::Device, "/dev/sr0"};
    const FoundDrive second{Kind::Device, "/dev/sr1"};
    const FoundDrive folder{Kind::Folder, "/media/FILM"};
    std::shared_ptr<Machine> machine = std::make_shared<Machine>();
    std::unique_ptr<DiscDrives> drives = makeDiscDrives(means());
};

std::string sectors(std::size_t count) { return std::string(count * 2048, '\0'); }
void put(std::string& image, std::size_t place, const std::string& bytes) { image.replace(place, bytes.size(), bytes); }

std::string isoImage(const std::string& name)
{
    std::string image = sectors(20);
    put(image, 16 * 2048,
        "\x01"
        "CD001");
    put(image, 16 * 2048 + 40, name + std::string(32 - name.size(), ' '));
    return image;
}
/// `field` as it stands on the disc, without the padding and the length in its last byte.
std::string udfImage(const std::string& field)
{
    std::string image = isoImage("ISO_NAME") + sectors(260);
    put(image, 256 * 2048, std::string("\x02\0", 2));
    put(image, 256 * 2048 + 16, std::string("\0\x40\0\0\x20\0\0\0", 8));
    put(image, 32 * 2048, std::string("\x04\0", 2));
    put(image, 33 * 2048, std::string("\x01\0", 2));
    put(image, 33 * 2048 + 24, field + std::string(31 - field.size(), '\0') + static_cast<char>(field.size()));
    return image;
}
} // namespace

TEST_F(DrivesTest, WithoutDrivesNothingIsThere)
{
    EXPECT_EQ(drives->count(), 0);
    for (const int index : {-1, 0, 7}) {
        EXPECT_EQ(drives->driveSpecifier(index), "");
        EXPECT_FALSE(drives->isReady(index));
        EXPECT_EQ(drives->volumeLabel(index), "");
        drives->eject(index);
    }
    EXPECT_EQ(drives->pathOf('D'), "");
    EXPECT_TRUE(drives->look("").titles.empty());
    EXPECT_EQ(drives->insert(""), 0);
    EXPECT_TRUE(machine->opened.empty());
}

TEST_F(DrivesTest, DrivesAreLetteredFromDOn)
{
    machine->drives = {first, second, folder};
    machine->readable = {"/dev/sr0", "/media/FILM"};
    EXPECT_EQ(letters(), "D:E:F:");
    EXPECT_TRUE(drives->isReady(0));
    EXPECT_FALSE(drives->isReady(1));
    EXPECT_TRUE(drives->isReady(2));
    EXPECT_FALSE(drives->isReady(3));
    EXPECT_EQ(drives->pathOf('E'), "/dev/sr1");
    EXPECT_EQ(drives->pathOf('f'), "/media/FILM");
    EXPECT_EQ(drives->pathOf('G'), "");
}

TEST_F(DrivesTest, ALetterStaysWithItsDrive)
{
    machine->drives = {first, folder};
    EXPECT_EQ(letters(), "D:E:");
    machine->drives = {folder};
    EXPECT_EQ(letters(), "E:");
    EXPECT_EQ(drives->pathOf('D'), "");
    machine->drives = {second, folder};
    EXPECT_EQ(letters(), "E:F:");
    machine->drives = {second, first};
    EXPECT_EQ(letters(), "D:F:");
    EXPECT_EQ(drives->pathOf('D'), "/dev/sr0");
}

TEST_F(DrivesTest, ADriveMayVanishBehindTheCount)
{
    machine->drives = {first, second};
    machine->readable = {"/dev/sr0", "/dev/sr1"};
    ASSERT_EQ(drives->count(), 2);
    machine->readable = {};
    EXPECT_EQ(drives->driveSpecifier(1), "E:");
    EXPECT_FALSE(drives->isReady(1));
    EXPECT_EQ(drives->volumeLabel(1), "");
}

TEST_F(DrivesTest, LabelsComeFromTheVolumeElseFromALookElseFromTheFolder)
{
    machine->drives = {first,
                       second,
                       folder,
                       {Kind::Folder, "/films/Sunday/VIDEO_TS"},
                       {Kind::Folder, "/b\xff"
                                      "d"}};
    for (const FoundDrive& drive : machine->drives)
        machine->readable.insert(drive.path);
    machine->facts.label = "LOOKED_AT";
    ASSERT_EQ(drives->count(), 5);
    EXPECT_EQ(drives->volumeLabel(0), "NAME_sr0");
    EXPECT_EQ(drives->volumeLabel(1), "LOOKED_AT");
    EXPECT_EQ(drives->volumeLabel(2), "FILM");
    EXPECT_EQ(drives->volumeLabel(3), "Sunday");
    EXPECT_EQ(drives->volumeLabel(4), "b?d");
}

TEST_F(DrivesTest, ADiscWithoutVideoIsReadyAndHasNoTitles)
{
    machine->drives = {first};
    machine->readable = {"/dev/sr0"};
    ASSERT_EQ(drives->count(), 1);
    EXPECT_TRUE(drives->isReady(0));
    EXPECT_TRUE(drives->look("/dev/sr0").titles.empty());
    machine->facts.titles = {{60, 4, 25, {}}};
    EXPECT_EQ(drives->look("/dev/sr0").titles.size(), 1U);
}

TEST_F(DrivesTest, NobodyWaitsForADriveThatHangs)
{
    machine->drives = {first, second};
    machine->readable = {"/dev/sr0", "/dev/sr1"};
    machine->facts.titles = {{60, 4, 25, {}}};
    ASSERT_EQ(drives->count(), 2);
    hang("/dev/sr0");
    auto start = Steady::now();
    EXPECT_FALSE(drives->isReady(0));
    EXPECT_EQ(drives->volumeLabel(0), "");
    EXPECT_TRUE(drives->look("/dev/sr0").titles.empty());
    EXPECT_LT(Steady::now() - start, 10s);
    // What hangs is not waited for again.
    start = Steady::now();
    for (int round = 0; round < 50; ++round)
        EXPECT_FALSE(drives->isReady(0));
    EXPECT_LT(Steady::now() - start, 4s);
    EXPECT_TRUE(drives->isReady(1));
    EXPECT_EQ(drives->look("/dev/sr1").titles.size(), 1U);
}

TEST_F(DrivesTest, ASearchThatHangsFindsWhatWasThere)
{
    machine->drives = {first, second};
    ASSERT_EQ(drives->count(), 2);
    hang("");
    machine->drives = {};
    EXPECT_EQ(drives->count(), 2);
    EXPECT_EQ(letters(), "D:E:");
}

TEST_F(DrivesTest, ATrayOpensForDevicesAlone)
{
    machine->drives = {first, folder};
    ASSERT_EQ(drives->count(), 2);
    drives->eject(1);
    drives->eject(0);
    const auto end = Steady::now() + 60s;
    const auto opened = [&] {
        const std::lock_guard lock(machine->mutex);
        return machine->opened;
    };
    while (opened().empty() && Steady::now() < end)
        std::this_thread::yield();
    EXPECT_EQ(opened(), std::vector<std::string>{"/dev/sr0"});
}

TEST_F(DrivesTest, AnInsertedDiscIsADrive)
{
    const TemporaryFolder disc;
    machine->drives = {first};
    ASSERT_EQ(drives->count(), 1);
    disc.write("a|b.iso", "x");
    const std::string marked = markPath(disc.path("a|b.iso"));
    EXPECT_EQ(drives->insert(marked), 'E');
    EXPECT_EQ(drives->insert(marked), 'E');
    EXPECT_EQ(drives->pathOf('E'), marked);
    EXPECT_EQ(drives->insert(disc.path() + "/"), 'F');
    EXPECT_EQ(drives->insert(disc.path() + "/."), 'F');
    EXPECT_EQ(letters(), "D:E:F:");
    for (char letter = 'G'; letter <= 'Z'; ++letter)
        EXPECT_EQ(drives->insert("/discs/" + std::string(1, letter)), letter);
    EXPECT_EQ(drives->insert("/discs/more"), 0);
    EXPECT_EQ(drives->insert("/discs/Z"), 'Z');
    EXPECT_EQ(drives->count(), 23);
}

TEST(DriveSearchTest, TheKernelsListNamesTheDrives)
{
    EXPECT_EQ(
        drivesIn("CD-ROM information, Id: cdrom.c 3.20 2003/12/17\n\ndrive name:\t\tsr1\tsr0\ndrive speed:\t24\t0\n"),
        (std::vector<std::string>{"sr0", "sr1"}));
    EXPECT_TRUE(drivesIn("drive name:\n").empty());
    EXPECT_TRUE(drivesIn("").empty());
}

TEST(DriveSearchTest, MountsHaveEscapesInTheirNames)
{
    EXPECT_EQ(
        mountsIn("/dev/sr0 /media/A\\040B\\134C\\011 udf ro,nosuid 0 0\nbroken\n/dev/loop0 /m\\04 iso9660 ro 0 0\n"),
        (std::vector<Mount>{{"/dev/sr0", "/media/A B\\C\t", "udf"}, {"/dev/loop0", "/m\\04", "iso9660"}}));
}

TEST(DriveSearchTest, DevicesThenVolumesThenWhatIsNamed)
{
    const TemporaryFolder top;
    for (const char* folder : {"dev", "in drive", "odd \"name\"/Video_ts", "data", "named/VIDEO_TS", "disk/VIDEO_TS"})
        std::filesystem::create_directories(top.path(folder));
    top.write("dev/sr0", "");
    top.write("image.iso", "x");
    top.write("info", "drive name:\t\tsr0\n");
    const auto mount = [&](const char* device, const char* folder, const char* type) {
        return top.path(device) + " " + top.path(folder) + " " + type + " ro 0 0\n";
    };
    top.write("mounts", mount("dev/sr0", "in\\040drive", "udf") +
                            mount("dev/loop0", "odd\\040\\042name\\042", "iso9660") +
                            mount("dev/loop1", "data", "iso9660") + mount("dev/sda1", "disk", "ext4"));
    DriveSearch search{top.path("info"), top.path("mounts"), top.path("dev")};
    search.discs = top.path("image.iso") + "::" + top.path("named") + ":" + top.path("nowhere.iso") + ":" +
                   top.path("named/VIDEO_TS/") + ":" + top.path("image.iso");
    EXPECT_EQ(findDrives(search), (std::vector<FoundDrive>{{Kind::Device, top.path("dev/sr0")},
                                                           {Kind::Folder, top.path("odd \"name\"")},
                                                           {Kind::File, top.path("image.iso")},
                                                           {Kind::Folder, top.path("named")},
                                                           {Kind::File, top.path("nowhere.iso")},
                                                           {Kind::Folder, top.path("named/VIDEO_TS")}}));
    EXPECT_TRUE(findDrives({top.path("none"), top.path("none"), top.path("dev")}).empty());
}

TEST(DriveSearchTest, WhatIsReadable)
{
    const TemporaryFolder top;
    top.write("full.iso", "x");
    top.write("empty.iso", "");
    EXPECT_TRUE(isReadable(standIn(top.path("full.iso"))));
    EXPECT_FALSE(isReadable(standIn(top.path("empty.iso"))));
    EXPECT_FALSE(isReadable(standIn(top.path("none.iso"))));
    EXPECT_TRUE(isReadable(standIn(top.path())));
    // No drives: the kernel has nothing to say of them.
    EXPECT_FALSE(isReadable({Kind::Device, top.path("full.iso")}));
    EXPECT_FALSE(isReadable({Kind::Device, "/dev/null"}));
    EXPECT_FALSE(isReadable({Kind::Device, top.path("none")}));
    EXPECT_FALSE(isReadable({Kind::File, "/dev/zero"}));
}

TEST(VolumeName, IsThatOfUdfElseOfIso)
{
    const TemporaryFolder top;
    const auto nameOf = [&](const std::string& content) {
        top.write("image.iso", content);
        return volumeNameOf(top.path("image.iso"));
    };
    EXPECT_EQ(nameOf(isoImage("MY_FILM")), "MY_FILM");
    EXPECT_EQ(nameOf(isoImage("F\xe9te")), "F\u00e9te");
    EXPECT_EQ(nameOf(udfImage("\x08"
                              "Sunday Film")),
              "Sunday Film");
    EXPECT_EQ(nameOf(udfImage(std::string("\x10\x20\xac\0F", 5))), "\u20acF");
    EXPECT_EQ(nameOf(udfImage("\x09"
                              "nonsense")),
              "ISO_NAME");
    EXPECT_EQ(nameOf(udfImage("")), "ISO_NAME");
    for (const std::size_t length : {0U, 5U, 16U * 2048, 17U * 2048 - 1})
        EXPECT_EQ(nameOf(isoImage("CUT").substr(0, length)), "");
    std::string wild = udfImage("\x08"
                                "X");
    put(wild, 256 * 2048 + 16, "\xff\xff\xff\xff\xff\xff\xff\xff");
    EXPECT_EQ(nameOf(wild), "ISO_NAME");
    EXPECT_EQ(volumeNameOf(top.path("none")), "");
    EXPECT_EQ(volumeNameOf(top.path()), "");
}

} // namespace tandrel
