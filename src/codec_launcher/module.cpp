#include "module.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{

enum class Kind { Windows, Program, Library, Other };

/// A path in a line of text: bytes that would move the cursor, or end the line, are shown as question marks.
std::string shown(std::string text)
{
    for (char& one : text)
        if (static_cast<unsigned char>(one) < ' ' || one == '\x7f')
            one = '?';
    return text;
}

int complain(const std::string& about, const char* reason)
{
    std::fprintf(stderr, "%s: %s\n", shown(about).c_str(), reason);
    return 1;
}

bool isRegular(const std::string& path)
{
    struct stat facts {
    };
    return ::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

std::string firstBytes(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return {};
    std::array<char, 4> bytes{};
    const ssize_t count = ::read(file, bytes.data(), bytes.size());
    ::close(file);
    return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

Kind kindOf(const std::string& path)
{
    // Of a program for Windows the permission to run says nothing.
    const std::string start = firstBytes(path);
    if (start.starts_with("MZ"))
        return Kind::Windows;
    if (::access(path.c_str(), X_OK) == 0)
        return Kind::Program;
    return start == "\x7f"
                    "ELF"
               ? Kind::Library
               : Kind::Other;
}

/// Without a separator a name would be looked for in other places than this folder.
std::string withFolder(const std::string& path) { return path.find('/') == std::string::npos ? "./" + path : path; }

int becomeProgram(const std::string& path, const std::string& entry)
{
    const char* arguments[]{path.c_str(), entry.c_str(), nullptr};
    ::execv(path.c_str(), const_cast<char* const*>(arguments));
    return complain(path, std::strerror(errno));
}

int becomeWine(const ModuleCall& call)
{
    const std::string what = call.module + "," + call.entry;
    const char* arguments[]{"wine", "rundll32", what.c_str(), nullptr};
    ::execvp("wine", const_cast<char* const*>(arguments));
    return complain(call.module, "a module for Windows, which needs wine");
}

int callLibrary(const std::string& path, const std::string& entry)
{
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return complain(path, ::dlerror());
    auto* function = reinterpret_cast<void (*)()>(::dlsym(library, entry.c_str()));
    if (function == nullptr)
        return complain(path, ("it has no entry " + shown(entry)).c_str());
    function();
    return 0;
}

} // namespace

std::optional<ModuleCall> parseCall(const std::string& text)
{
    for (auto comma = text.rfind(','); comma != std::string::npos && comma > 0; comma = text.rfind(',', comma - 1)) {
        ModuleCall call{text.substr(0, comma), text.substr(comma + 1)};
        if (!call.entry.empty() && isRegular(call.module))
            return call;
    }
    return std::nullopt;
}

int runModule(const ModuleCall& call)
{
    const std::string path = withFolder(call.module);
    switch (kindOf(path)) {
    case Kind::Windows:
        return becomeWine(call);
    case Kind::Program:
        return becomeProgram(path, call.entry);
    case Kind::Library:
        return callLibrary(path, call.entry);
    case Kind::Other:
        break;
    }
    return complain(call.module, "neither a program nor a library");
}

} // namespace tandrel
