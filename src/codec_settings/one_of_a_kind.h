/// Of the programs that show the same page, the newest stays.
#pragma once

#include <string>

namespace tandrel
{

/// Asks the process that shows this page, if there is one, to end (SIGTERM), and stands in its place from here on,
/// until this process ends. `folder` is where the processes that belong together find each other. Waits for nobody but
/// others that are doing the same at this moment, 0.3 s at most. False where the folder can't be used: then nobody sees
/// this one.
bool becomeTheOnly(const std::string& folder, const std::string& page);

} // namespace tandrel
