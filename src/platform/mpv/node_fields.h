/// Named fields of what libmpv answers as a tree.
#pragma once

#include <mpv/client.h>
#include <string_view>

namespace tandrel
{

/// Null where the node is no map, or has no such field.
const mpv_node* nodeField(const mpv_node& map, std::string_view name);
double numberField(const mpv_node& map, std::string_view name, double otherwise);
bool flagField(const mpv_node& map, std::string_view name);
/// Empty where there is none. Not checked for being UTF-8.
std::string_view textField(const mpv_node& map, std::string_view name);

} // namespace tandrel
