// What outputs would read on opening a window, and never use.
#include "platform/mpv/input_methods.h"

#include <X11/Xlib.h>
#include <X11/Xresource.h>
#include <dlfcn.h>
#include <thread>

namespace tandrel
{

namespace
{
std::thread::id keptFor;
}

void keepInputMethodsForThisThread() { keptFor = std::this_thread::get_id(); }

} // namespace tandrel

/// Stands before the function of libX11 for every library of the process. An output opens an input method for each of
/// its windows, which reads half a megabyte of key sequences, though its windows take no keys; it does without if there
/// is none.
extern "C" __attribute__((visibility("default"))) XIM XOpenIM(Display* display, XrmDatabase database, char* name,
                                                              char* className)
{
    if (std::this_thread::get_id() != tandrel::keptFor && tandrel::keptFor != std::thread::id())
        return nullptr;
    using Open = XIM (*)(Display*, XrmDatabase, char*, char*);
    static const auto next = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "XOpenIM"));
    return next != nullptr ? next(display, database, name, className) : nullptr;
}
