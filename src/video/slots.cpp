#include "video/slots.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"

#include <algorithm>
#include <utility>

namespace tandrel
{

namespace
{

/// The tag of a window that is done with.
constexpr const char* kEnding = "ending";

std::vector<std::shared_ptr<frmChild>>& spares()
{
    static std::vector<std::shared_ptr<frmChild>> windows;
    return windows;
}

std::shared_ptr<frmChild> newWindow()
{
    if (spares().empty())
        return newForm<frmChild>();
    auto window = std::move(spares().back());
    spares().pop_back();
    return window;
}

} // namespace

void forEachSlot(const std::function<void(frmChild&)>& visit)
{
    const SlotTable slots = VideoWindows;
    for (const auto& slot : slots)
        if (slot)
            visit(*slot);
}

void forEachLive(const std::function<void(frmChild&)>& visit)
{
    forEachSlot([&](frmChild& slot) {
        if (slot.isLive())
            visit(slot);
    });
}

void forEachPlayable(const std::function<void(frmChild&)>& visit)
{
    forEachLive([&](frmChild& window) {
        if (!window.hasFailed())
            visit(window);
    });
}

frmChild* firstSlot(const std::function<bool(const frmChild&)>& wanted)
{
    for (const auto& slot : VideoWindows)
        if (slot && wanted(*slot))
            return slot.get();
    return nullptr;
}

frmChild* slotPlaying(const Alias& alias)
{
    return firstSlot([&](const frmChild& slot) { return slot.plays(alias); });
}

Long liveCount()
{
    Long count = 0;
    forEachLive([&](frmChild&) { count += 1; });
    return count;
}

bool sameMedium(const Text& entry, const Text& path)
{
    const bool bare = entry.find(kSeparator) == Text::npos;
    return !entry.empty() && (bare ? entry == fileNameOf(path) : entry == path);
}

bool dropOpenEntry(const Text& path)
{
    ListBox& open = frmMedia().List2;
    const auto& entries = open.entries();
    // A bare name may stand for another file of that name, so the path itself goes first.
    auto found = std::find(entries.begin(), entries.end(), path);
    if (found == entries.end())
        found =
            std::find_if(entries.begin(), entries.end(), [&](const Text& entry) { return sameMedium(entry, path); });
    if (found == entries.end())
        return false;
    open.RemoveItem(static_cast<std::int64_t>(found - entries.begin()));
    return true;
}

Long sweepFailedSlots()
{
    Long swept = 0;
    forEachLive([&](frmChild& slot) {
        if (!slot.hasFailed())
            return;
        if (slot.Listed)
            dropOpenEntry(slot.path());
        slot.MediaFile.clear();
        swept += 1;
    });
    return swept;
}

void dropFailedSlots()
{
    const SlotTable slots = VideoWindows;
    for (const auto& slot : slots) {
        if (!slot || !slot->hasFailed())
            continue;
        if (slot->isLive() && slot->Listed)
            dropOpenEntry(slot->path());
        slot->MediaFile.clear();
        slot->Hide();
        unload(*slot);
        // It counts once. Inside a handler of the window itself its end is still to come, and must close no device.
        slot->Tag = slot->isDead() ? "" : kEnding;
        NextSlot = std::max<int>(0, NextSlot - 1);
    }
}

void keepSpareWindows()
{
    const auto wanted = [] { return MaxVideos - static_cast<int>(liveCount()); };
    if (static_cast<int>(spares().size()) >= wanted() || frmMedia().ClosingDown)
        return;
    backend().whenIdle([wanted] {
        // What is under way now will ask again.
        if (programEnded() || screen().MousePointer() != pointer::kDefault ||
            static_cast<int>(spares().size()) >= wanted())
            return;
        spares().push_back(newForm<frmChild>());
        spares().back()->load();
        keepSpareWindows();
    });
}

void forgetSpareWindows() { spares().clear(); }

frmChild& newSlot(const Text& path)
{
    const auto index = static_cast<std::size_t>(static_cast<std::int32_t>(NextSlot));
    const auto slot = newWindow();
    VideoWindows.resize(index + 1);
    VideoWindows[index] = slot;
    slot->load();
    slot->Volume = frmMedia().VolumeSlider.Value;
    slot->Caption = "§" + path;
    slot->MediaFile = CurrentAlias;
    return *slot;
}

void showTitleOf(const Text& path) { frmMedia().lblTitleBar.Caption = titleFor(path); }

Text titleFor(const Text& name) { return " [ " + name + " ] " + blanks(50); }

} // namespace tandrel
