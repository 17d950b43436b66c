#include "media/shared_state.h"

namespace tandrel
{

SlotTable VideoWindows;
Long NextSlot = 0;
Text CurrentAlias;
Text FullMedia;
Integer MaxVideos = 12;
bool Playing = false;
bool MediaStarted = false;
bool FastForward = false;
bool FastRewind = false;
bool FullScreenOn = false;
bool PanelUp = false;
bool FullMenuOpen = false;
bool MkvOpen = false;
bool DVDMode = false;
Integer SizePercent = 100;
Integer VolumeLevel = 50;
Long MediaLengthMs = 0;
Long MediaFrames = 0;
Long CurrentPosMs = 0;
Long NativeWidth = 0;
Long NativeHeight = 0;
Long ClickCount = 0;
double ClickState = 0;
bool ResizePending = false;
Long SavedTop = 0;
Long SavedLeft = 0;
Long SavedHeight = 0;
Long SavedWidth = 0;
Text AppTitle;
Long AppVersion = 0;
Text Language;
Text WindowsVersion;
Text FFDShowPath;
Long FFDShowLeft = 0;
Long FFDShowTop = 0;

void resetSharedState()
{
    VideoWindows.clear();
    NextSlot = 0;
    CurrentAlias.clear();
    FullMedia.clear();
    MaxVideos = 12;
    Playing = false;
    MediaStarted = false;
    FastForward = false;
    FastRewind = false;
    FullScreenOn = false;
    PanelUp = false;
    FullMenuOpen = false;
    MkvOpen = false;
    DVDMode = false;
    SizePercent = 100;
    VolumeLevel = 50;
    MediaLengthMs = 0;
    MediaFrames = 0;
    CurrentPosMs = 0;
    NativeWidth = 0;
    NativeHeight = 0;
    ClickCount = 0;
    ClickState = 0;
    ResizePending = false;
    SavedTop = 0;
    SavedLeft = 0;
    SavedHeight = 0;
    SavedWidth = 0;
    AppTitle.clear();
    AppVersion = 0;
    Language.clear();
    WindowsVersion.clear();
    FFDShowPath.clear();
    FFDShowLeft = 0;
    FFDShowTop = 0;
}

} // namespace tandrel
