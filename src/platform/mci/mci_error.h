/// The numbers that a command string can result in.
#pragma once

namespace tandrel
{

namespace mci_error
{
constexpr int kNone = 0;
constexpr int kUnknownWord = 261;
constexpr int kNotOpen = 263;
constexpr int kNoDrive = 266;
constexpr int kEmptyCommand = 267;
constexpr int kBadNumber = 270;
constexpr int kMissingClause = 273;
constexpr int kNotForThisDevice = 274;
constexpr int kFileNotFound = 275;
constexpr int kNotReady = 276;
constexpr int kNotForAll = 279;
constexpr int kOutOfRange = 282;
constexpr int kAliasInUse = 289;
constexpr int kNoDeviceName = 292;
constexpr int kQuoteNotClosed = 294;
constexpr int kNotPlayable = 296;
constexpr int kTextBehindQuote = 305;
constexpr int kNoWindow = 346;
} // namespace mci_error

} // namespace tandrel
