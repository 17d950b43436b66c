/// The small text files through which starts and processes of the program meet. All lie in the data folder; a file that
/// isn't there is the empty case, and one that can't be read or written changes nothing.
#pragma once

#include "platform/services.h"
#include "toolkit/text.h"

#include <optional>
#include <vector>

namespace tandrel
{

/// `list.dat`: files handed over by later starts, one path in double quotes a line.
namespace handover
{
bool exists();
/// Empty too where the file is missing; nothing where it is there and can't be read.
std::optional<std::vector<Text>> lines();
/// Adds lines until the file holds `limit`; the others are dropped. A first line always finds room. False if the file
/// can't be read or written; it is as before then.
bool add(const std::vector<Text>& quotedPaths, Long limit);
/// True if the file is gone afterwards.
bool remove();
/// Takes the first `count` lines away, and the file with the last of them. False if that can't be done.
bool removeFirst(std::size_t count);
/// True for the types of file that are handed over, by the end of the command text (closing quote included).
bool takes(const Text& commandText);
} // namespace handover

/// `pres.dat`: the mark of the owner, the first process that finished its start.
namespace presence
{
bool exists();
void write(WindowHandle console);
/// The handle in the mark, of a window that may be long gone; 0 where there is none.
WindowHandle owner();
/// Deletes the mark if it holds this handle.
void removeIfOwn(WindowHandle console);
} // namespace presence

/// `ext.dat`: the answer to the question on the primary player.
namespace primary
{
/// Not asked, declined, accepted; any other text stands for itself.
inline constexpr const char* kNotAsked = "0";
inline constexpr const char* kDeclined = "1";
inline constexpr const char* kAccepted = "2";
/// Empty where the file is missing, which creates it as not asked, or can't be read.
Text read();
void write(const Text& answer);
} // namespace primary

} // namespace tandrel
