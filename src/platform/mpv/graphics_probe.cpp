#include "platform/mpv/graphics_probe.h"

#include <X11/Xlib.h>
#include <array>
#include <csignal>
#include <cstdint>
#include <dlfcn.h>
#include <poll.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
constexpr int kProbeLimitMs = 3000;

// The few entries of EGL and OpenGL that are needed, found at run time: a machine without them has no renderer.
using Handle = void*;
using Word = std::int32_t;
constexpr unsigned kOpenGlApi = 0x30A2;
constexpr unsigned kRenderer = 0x1F01;
constexpr Word kSurfaceType = 0x3033, kPbuffer = 0x0001, kRenderableType = 0x3040, kOpenGlBit = 0x0008;
constexpr Word kWidth = 0x3057, kHeight = 0x3056, kEnd = 0x3038;

template <typename Function>
Function entry(void* library, const char* name)
{
    return reinterpret_cast<Function>(dlsym(library, name));
}

/// Makes a small off-screen context current; null if any of that is not to be had.
bool makeContext(void* egl)
{
    const auto getDisplay = entry<Handle (*)(Display*)>(egl, "eglGetDisplay");
    const auto initialize = entry<unsigned (*)(Handle, Word*, Word*)>(egl, "eglInitialize");
    const auto bindApi = entry<unsigned (*)(unsigned)>(egl, "eglBindAPI");
    const auto choose = entry<unsigned (*)(Handle, const Word*, Handle*, Word, Word*)>(egl, "eglChooseConfig");
    const auto makeSurface = entry<Handle (*)(Handle, Handle, const Word*)>(egl, "eglCreatePbufferSurface");
    const auto create = entry<Handle (*)(Handle, Handle, Handle, const Word*)>(egl, "eglCreateContext");
    const auto makeCurrent = entry<unsigned (*)(Handle, Handle, Handle, Handle)>(egl, "eglMakeCurrent");
    if (!getDisplay || !initialize || !bindApi || !choose || !makeSurface || !create || !makeCurrent)
        return false;

    Display* server = XOpenDisplay(nullptr);
    if (server == nullptr)
        return false;
    const Handle display = getDisplay(server);
    if (display == nullptr || initialize(display, nullptr, nullptr) == 0 || bindApi(kOpenGlApi) == 0)
        return false;
    const std::array wanted{kSurfaceType, kPbuffer, kRenderableType, kOpenGlBit, kEnd};
    const std::array size{kWidth, Word{1}, kHeight, Word{1}, kEnd};
    Handle config = nullptr;
    Word found = 0;
    if (choose(display, wanted.data(), &config, 1, &found) == 0 || found < 1)
        return false;
    const Handle surface = makeSurface(display, config, size.data());
    const Handle context = create(display, config, nullptr, nullptr);
    return surface != nullptr && context != nullptr && makeCurrent(display, surface, surface, context) != 0;
}

std::string rendererHere()
{
    void* egl = dlopen("libEGL.so.1", RTLD_NOW | RTLD_LOCAL);
    if (egl == nullptr || !makeContext(egl))
        return {};
    const auto find = entry<Handle (*)(const char*)>(egl, "eglGetProcAddress");
    if (find == nullptr)
        return {};
    const auto getString = reinterpret_cast<const char* (*)(unsigned)>(find("glGetString"));
    const char* renderer = getString == nullptr ? nullptr : getString(kRenderer);
    return renderer == nullptr ? "" : renderer;
}

std::string readAll(int file)
{
    std::string text;
    pollfd waiting{file, POLLIN, 0};
    std::array<char, 256> piece{};
    while (poll(&waiting, 1, kProbeLimitMs) > 0) {
        const ssize_t count = read(file, piece.data(), piece.size());
        if (count <= 0)
            return text;
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return {};
}
} // namespace

std::string probeRenderer()
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        const std::string renderer = rendererHere();
        const bool written = write(pipe[1], renderer.data(), renderer.size()) >= 0;
        _exit(written ? 0 : 1);
    }
    close(pipe[1]);
    std::string renderer;
    if (child > 0) {
        renderer = readAll(pipe[0]);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    close(pipe[0]);
    return renderer;
}

} // namespace tandrel
