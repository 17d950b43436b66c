/// Addresses of local files, as other programs name them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tandrel
{

/// The path of an address "file:...", byte for byte (unmarked). Nothing for other addresses, and for files on another
/// machine.
std::optional<std::string> pathOfFileAddress(std::string_view address);

/// The address of an absolute path (unmarked), in letters of ASCII whatever the path holds.
std::string fileAddressOf(std::string_view path);

} // namespace tandrel
