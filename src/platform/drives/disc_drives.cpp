#include "platform/drives/disc_drives.h"

#include "platform/drives/bounded_task.h"
#include "platform/drives/volume_name.h"
#include "platform/mci/drive_door.h"
#include "platform/path_marks.h"
#include "platform/valid_text.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace tandrel
{

namespace
{
constexpr char kFirstLetter = 'D';
constexpr char kLastLetter = 'Z';

class Drives final : public DiscDrives
{
public:
    explicit Drives(DriveMeans means) : means_(std::move(means)) {}

    int count() override;
    std::string driveSpecifier(int index) const override;
    bool isReady(int index) override;
    std::string volumeLabel(int index) override;
    void eject(int index) override;
    std::string pathOf(char letter) const override;
    char insert(const std::string& path) override;
    DiscFacts look(const std::string& path) override;

private:
    struct Drive {
        char letter;
        FoundDrive found;
    };

    const Drive* driveAt(int index) const;
    char letterOf(const std::string& path);
    void list(const FoundDrive& found);

    DriveMeans means_;
    /// By path; a letter is given once.
    std::map<std::string, char> letters_;
    /// Those of the last count, and what was inserted since, in the order of their letters.
    std::vector<Drive> drives_;
    std::vector<FoundDrive> inserted_;

    BoundedTask<std::vector<FoundDrive>> search_;
    /// By path: a drive that hangs keeps nobody from asking the others.
    std::map<std::string, BoundedTask<bool>> states_;
    std::map<std::string, BoundedTask<std::string>> names_;
    std::map<std::string, BoundedTask<DiscFacts>> looks_;
};

const Drives::Drive* Drives::driveAt(int index) const
{
    const bool there = index >= 0 && index < static_cast<int>(drives_.size());
    return there ? &drives_[static_cast<std::size_t>(index)] : nullptr;
}

char Drives::letterOf(const std::string& path)
{
    const auto known = letters_.find(path);
    if (known != letters_.end())
        return known->second;
    const int next = kFirstLetter + static_cast<int>(letters_.size());
    if (next > kLastLetter)
        return 0;
    return letters_[path] = static_cast<char>(next);
}

void Drives::list(const FoundDrive& found)
{
    const char letter = letterOf(found.path);
    const auto after = std::lower_bound(drives_.begin(), drives_.end(), letter,
                                        [](const Drive& drive, char wanted) { return drive.letter < wanted; });
    if (letter == 0 || (after != drives_.end() && after->letter == letter))
        return;
    drives_.insert(after, {letter, found});
}

int Drives::count()
{
    // Where the search hangs, the drives are those that were there before.
    if (const auto found = search_.run(means_.find, means_.limit)) {
        drives_.clear();
        for (const FoundDrive& drive : *found)
            list(drive);
        for (const FoundDrive& drive : inserted_)
            list(drive);
    }
    return static_cast<int>(drives_.size());
}

std::string Drives::driveSpecifier(int index) const
{
    const Drive* drive = driveAt(index);
    return drive == nullptr ? std::string() : std::string{drive->letter, ':'};
}

bool Drives::isReady(int index)
{
    const Drive* drive = driveAt(index);
    if (drive == nullptr)
        return false;
    return states_[drive->found.path]
        .run([readable = means_.isReadable, found = drive->found] { return readable(found); }, means_.limit)
        .value_or(false);
}

/// A folder has no volume of its own; it is known by its name.
std::string nameOfFolder(const std::string& folder)
{
    const std::filesystem::path path(folder);
    const bool inner = path.filename() == "VIDEO_TS" || path.filename() == "video_ts";
    return validText((inner ? path.parent_path() : path).filename().string());
}

std::string Drives::volumeLabel(int index)
{
    const Drive* drive = driveAt(index);
    if (drive == nullptr)
        return {};
    const auto work = [means = means_, found = drive->found]() -> std::string {
        if (!means.isReadable(found))
            return {};
        if (found.kind == FoundDrive::Kind::Folder)
            return nameOfFolder(found.path);
        const std::string name = means.volumeName(found.path);
        return name.empty() ? means.look(found.path).label : name;
    };
    return names_[drive->found.path].run(work, means_.limit).value_or("");
}

void Drives::eject(int index)
{
    const Drive* drive = driveAt(index);
    if (drive == nullptr || drive->found.kind != FoundDrive::Kind::Device)
        return;
    try {
        std::thread([open = means_.openTray, device = drive->found.path] { open(device); }).detach();
    } catch (const std::system_error&) {
        // Without a thread to spare the tray stays where it is.
    }
}

std::string Drives::pathOf(char letter) const
{
    const char wanted = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    for (const Drive& drive : drives_)
        if (drive.letter == wanted)
            return markPath(drive.found.path);
    return {};
}

char Drives::insert(const std::string& path)
{
    if (path.empty())
        return 0;
    BoundedTask<FoundDrive> look;
    const auto found = look.run([plain = unmarkPath(path)] { return standIn(plain); }, means_.limit);
    if (!found)
        return 0;
    const char letter = letterOf(found->path);
    const bool known = std::find(inserted_.begin(), inserted_.end(), *found) != inserted_.end();
    if (letter != 0 && !known)
        inserted_.push_back(*found);
    list(*found);
    return letter;
}

DiscFacts Drives::look(const std::string& path)
{
    const std::string plain = unmarkPath(path);
    if (plain.empty())
        return {};
    return looks_[plain].run([look = means_.look, plain] { return look(plain); }, means_.limit).value_or(DiscFacts());
}
} // namespace

DriveMeans machineDrives(std::function<DiscFacts(const std::string& path)> look)
{
    DriveSearch search;
    if (const char* discs = std::getenv("TANDREL_DISCS"))
        search.discs = discs;
    DriveMeans means;
    means.find = [search] { return findDrives(search); };
    means.volumeName = &volumeNameOf;
    means.look = std::move(look);
    means.openTray = [](const std::string& device) { LinuxDriveDoor({device}).move(true); };
    return means;
}

std::unique_ptr<DiscDrives> makeDiscDrives(DriveMeans means) { return std::make_unique<Drives>(std::move(means)); }

} // namespace tandrel
