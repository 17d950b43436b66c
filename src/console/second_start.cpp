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
    // The other one takes files, and no discs.
    if (given.empty() || given.isDvd() || (given.isPath() && isDiscPath(withoutQuotes(given.text)))) {
        offsetPlace();
        return true;
    }
    Unload<class frmStart>();
    bool hasLeft = false;
    bool handedOver = false;
    // Several files that are opened at once may bring a process each, and the other one may be about to leave.
    services().instances->exclusively([&] {
        hasLeft = !services().instances->anotherIsRunning();
        SecondRun = !hasLeft && presence::exists();
        handedOver = !hasLeft && !SecondRun && handOver();
    });
    if (hasLeft)
        return true;
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
        return !handover::takes(given.text) || handover::add({given.text}, MaxVideos - 1);
    std::vector<Text> lines;
    std::transform(given.group.begin(), given.group.end(), std::back_inserter(lines), quoted);
    return handover::add(lines, MaxVideos);
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
