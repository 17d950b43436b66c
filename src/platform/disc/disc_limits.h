/// What no disc goes beyond; more is damage, or a lie.
#pragma once

namespace tandrel
{

/// Titles of a disc, and chapters of a title.
inline constexpr int kMostTitles = 99;
inline constexpr int kMostChapters = 999;
/// How far pictures are behind the clock of their stream. Seconds.
inline constexpr double kLongestLead = 2;

} // namespace tandrel
