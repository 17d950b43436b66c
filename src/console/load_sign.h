/// The sign on the console's display that videos are shown with less than they have.
#pragma once

#include "console/console_controls.h"

namespace tandrel
{

class LoadSign
{
public:
    /// Tells the media service which video is the selected one, by its alias, and shows what it says of the load.
    void follow(ConsoleControls& console, const Text& selected);

private:
    int shown_ = 0;
};

} // namespace tandrel
