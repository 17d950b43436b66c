#include "platform/mpv/process_state.h"

#include "platform/mpv/input_methods.h"

#include <clocale>
#include <dlfcn.h>
#include <malloc.h>

namespace tandrel
{

namespace
{
/// Every thread that decodes would get a heap of its own, each with its own holes. The threads allocate rarely enough
/// to share. Only heaps that are not there yet are saved. The planes of pictures stay out of the heaps: they would tear
/// holes as large as themselves, and a closed video would give nothing back.
void saveMemory()
{
    constexpr int kHeaps = 2;
    constexpr int kLargeBlock = 128 * 1024;
    mallopt(M_ARENA_MAX, kHeaps);
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
}

/// The decoders' library writes to the standard error by itself whenever no player of libmpv catches its messages.
void silenceDecoders()
{
    constexpr int kQuiet = -8;
    const auto setLevel = reinterpret_cast<void (*)(int)>(dlsym(RTLD_DEFAULT, "av_log_set_level"));
    if (setLevel != nullptr)
        setLevel(kQuiet);
}
} // namespace

void prepareProcess()
{
    std::setlocale(LC_NUMERIC, "C");
    silenceDecoders();
    keepInputMethodsForThisThread();
    saveMemory();
}

} // namespace tandrel
