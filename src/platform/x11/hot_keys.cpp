#include "platform/x11/hot_keys.h"

namespace tandrel
{

bool X11HotKeys::take(int, std::string_view) { return false; }

void X11HotKeys::releaseAll() {}

} // namespace tandrel
