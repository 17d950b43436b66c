/// What the ticks of the console keep from one to the next.
#pragma once

#include "console/key_bindings.h"
#include "console/load_sign.h"
#include "console/still_pictures.h"
#include "toolkit/control.h"

namespace tandrel
{

struct MonitorFields {
    /// The title that the tick of an HD film or a disc has written last.
    Text PolledTitle;
    /// Ticks of `Timer1` at the end of a medium. Nothing sets it back.
    Integer EndTicks;
    /// Counts to the refit of a full-screen picture; 0 is idle.
    Integer RefitTicks;
    /// The last reading of the pointer, in pixels.
    PixelPoint CursorPos;
    /// The pointer as the last tick of `Timer2` in full screen saw it, in pixels; while it is parked, the place where
    /// it is.
    float CursorLastX = 0;
    float CursorLastY = 0;
    /// Where the pointer stood before it was parked, in pixels; -1 when it isn't.
    float CursorHomeX = -1;
    float CursorHomeY = -1;
    /// It is parked. Beside a monitor that begins left of or above the first, its home may well be at -1.
    bool CursorParked = false;
    /// Where it really is meanwhile, in pixels.
    PixelPoint ParkedAt;
    /// `Timer4` has seen the pointer at rest.
    bool CursorIdle = false;
    /// The DVD window went to full screen by a right click.
    bool DvdFullByClick = false;
    /// One-shot: leaving full screen doesn't give the focus to the console.
    bool KeepConsoleBack = false;
    /// Ticks of `Timer2` since the last sign of life to the system.
    Long StayAwakeTicks;
    /// Twips from the window's left and top to the pointer at the start of a drag.
    Long DragOffsetX;
    Long DragOffsetY;
    /// The size in twips that a drag of an edge asks for.
    Long DragSizeWidth;
    Long DragSizeHeight;
    /// The press that is down has put windows elsewhere, and drags none until its release.
    bool DragBarred = false;
    /// The left button went down on `SeekSlider` while something is loaded.
    bool SeekDragging = false;
    LoadSign loadSign;
    StillPictures stillPictures;
    KeyBindings keys;
    /// The picture inside its window, in twips: as it is in full screen, or when its disc was changed.
    TwipsRect FullPicture;
};

} // namespace tandrel
