// What a start does that finds another process of the program running.

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "media/shared_state.h"
#include "persist/data_files.h"
#include "persist/settings.h"
#include "toolkit/program.h"

#include <algorithm>

namespace tandrel
{

namespace
{
constexpr int kOffset = 200;
// Beyond any desktop, and far from where sums of places overflow.
constexpr double kFarthest = 1e9;
} // namespace

bool frmMedia::passSecondStart()
{
    if (!services().instances->anotherIsRunning())
        return true;
    const CommandLine& given = commandLine();
    if (given.empty() || given.isDvd()) {
        offsetPlace();
        return true;
    }
    Unload<class frmStart>();
    bool handedOver = false;
    // Several files that are opened at once may bring a process each.
    services().instances->exclusively([&] {
        SecondRun = presence::exists();
        handedOver = !SecondRun && handOver();
    });
    if (!handedOver) {
        offsetPlace();
        return true;
    }
    endProgram();
    return false;
}

bool frmMedia::handOver()
{
    // The owner has not finished its start: it takes the files at its next activation.
    const CommandLine& given = commandLine();
    if (given.isPath())
        return !handover::takes(given.text) || handover::add(given.text, MaxVideos - 1);
    return std::all_of(given.group.begin(), given.group.end(),
                       [](const Text& path) { return handover::add(quoted(path), MaxVideos); });
}

void frmMedia::offsetPlace()
{
    const auto raised = [](const Text& stored) {
        return text(std::clamp(numberAtFront(stored), -kFarthest, kFarthest) + kOffset);
    };
    storedTop_ = raised(storedTop_);
    storedLeft_ = raised(storedLeft_);
    saveSetting(settings::kTop, storedTop_);
    saveSetting(settings::kLeft, storedLeft_);
}

} // namespace tandrel
