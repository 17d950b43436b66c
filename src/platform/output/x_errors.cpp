#include "platform/output/x_errors.h"

#include <X11/Xlib.h>
#include <dlfcn.h>
#include <unistd.h>

namespace
{
int ignoreError(Display*, XErrorEvent*) { return 0; }

/// A handler of lost connections may not return, and the usual way out would run destructors that wait for the server.
int leaveAtOnce(Display*) { _exit(1); }

using SetHandler = XErrorHandler (*)(XErrorHandler);

SetHandler setHandlerOfXlib()
{
    static const auto function = reinterpret_cast<SetHandler>(dlsym(RTLD_NEXT, "XSetErrorHandler"));
    return function;
}
} // namespace

/// Stands in front of Xlib's own function for all libraries of the process. An output of libmpv puts the default
/// handler back whenever it closes, and the default handler ends the process; other outputs may be drawing at that
/// moment.
extern "C" __attribute__((visibility("default"))) XErrorHandler XSetErrorHandler(XErrorHandler handler)
{
    const SetHandler original = setHandlerOfXlib();
    return original == nullptr ? nullptr : original(handler == nullptr ? &ignoreError : handler);
}

namespace tandrel
{

void keepXErrorsHarmless()
{
    XSetErrorHandler(nullptr);
    XSetIOErrorHandler(&leaveAtOnce);
}

} // namespace tandrel
