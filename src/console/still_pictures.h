/// Pictures of videos that the user wants to keep: which of them, and what is told of it.
#pragma once

#include "console/console_controls.h"
#include "platform/pictures.h"

namespace tandrel
{

class StillPictures
{
public:
    enum class Which { Selected, All };

    /// Reads the places of the videos, all at once, and has their pictures saved. The videos play on. With `All` there
    /// is a contact sheet beside them. A message says so where there is none to be had.
    void save(ConsoleControls& console, Which which);

    /// A tick of `TimerPictures`: says what has been done, for some seconds in the place of the program's name; what
    /// went wrong is told in the program's own form.
    void follow(ConsoleControls& console);

private:
    void tell(ConsoleControls& console, const SavedPictures& saved);
    void note(ConsoleControls& console, const Text& text);

    /// Orders that have not been heard of.
    int waiting_ = 0;
    /// Ticks for which the note stays.
    int noteTicks_ = 0;
};

} // namespace tandrel
