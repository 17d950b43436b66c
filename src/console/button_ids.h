/// Indices of the console's rows of buttons, and ids of its hot keys.
#pragma once

namespace tandrel
{

/// Buttons of the hidden row `cmdMedia`, by index.
namespace command
{
inline constexpr int kPlay = 0;
inline constexpr int kPause = 1;
inline constexpr int kStop = 2;
inline constexpr int kOpen = 3;
inline constexpr int kHelp = 4;
inline constexpr int kHide = 6;
inline constexpr int kExit = 7;
inline constexpr int kCount = 8;
} // namespace command

/// Buttons of the row `cmdSize`, by index.
namespace size
{
inline constexpr int kLarger = 0;
inline constexpr int kSmaller = 1;
inline constexpr int kCount = 2;
} // namespace size

/// Ids of the hot keys.
namespace hot_key
{
inline constexpr int kSizeUp = 0;
inline constexpr int kSizeDown = 1;
inline constexpr int kFullScreen = 2;
inline constexpr int kPlayPause = 3;
inline constexpr int kStop = 4;
inline constexpr int kVolumeDown = 5;
inline constexpr int kVolumeUp = 6;
inline constexpr int kCount = 7;
} // namespace hot_key

} // namespace tandrel
