// Reads command strings from standard input, a line each, and prints the result and the answer of each, a tab between.
// With --window it opens a window, and puts its handle in place of every %H; with --window=WIDTHxHEIGHT one of this
// size.

#include "platform/mci/drive_door.h"
#include "platform/mci/mci_service.h"
#include "platform/mci/tracing_mci.h"
#include "platform/mpv/mpv_engine.h"
#include "tool_window.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace
{
constexpr std::string_view kHandleMark = "%H";
constexpr std::size_t kAnswerSize = 1024;
constexpr const char* kHelp = R"(Usage: tandrel-mci [--window[=WIDTHxHEIGHT]]

Reads media commands from its standard input, a line each, and prints the result and the answer of each, a tab between.

  --window     opens a window, 640x480 without a size, and puts its number in place of every %H
  --help       shows this
  --version    shows the version
)";

/// The lines of standard input, with a look ahead whether one is there.
class Lines
{
public:
    /// The next complete line without its end; empty at the end of the input, and where none has come in `waitMs`
    /// milliseconds (-1: waits).
    std::optional<std::string> next(int waitMs)
    {
        while (true) {
            if (auto line = cut())
                return line;
            pollfd waiting{STDIN_FILENO, POLLIN, 0};
            if (atEnd_ || poll(&waiting, 1, waitMs) <= 0)
                return {};
            fill();
        }
    }

    bool atEnd() const { return atEnd_ && pending_.empty(); }

private:
    std::optional<std::string> cut()
    {
        const auto end = pending_.find('\n');
        if (end == std::string::npos && (!atEnd_ || pending_.empty()))
            return {};
        std::string line = pending_.substr(0, end);
        pending_.erase(0, end == std::string::npos ? end : end + 1);
        if (line.ends_with('\r'))
            line.pop_back();
        return line;
    }

    void fill()
    {
        std::array<char, 4096> piece;
        const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
        atEnd_ = count <= 0;
        if (count > 0)
            pending_.append(piece.data(), static_cast<std::size_t>(count));
    }

    std::string pending_;
    bool atEnd_ = false;
};

void replaceHandle(std::string& line, const std::string& handle)
{
    for (auto at = line.find(kHandleMark); at != std::string::npos; at = line.find(kHandleMark, at + handle.size()))
        line.replace(at, kHandleMark.size(), handle);
}

bool bringsPicture(const std::string& line)
{
    const auto verb = tandrel::parseCommand(line).verb;
    return verb == tandrel::Verb::Open || verb == tandrel::Verb::Seek || verb == tandrel::Verb::Step;
}

/// What an argument says about the window; empty if it is none.
std::optional<std::pair<std::uint16_t, std::uint16_t>> windowSize(const char* argument)
{
    if (std::strcmp(argument, "--window") == 0)
        return std::pair<std::uint16_t, std::uint16_t>{640, 480};
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    int length = 0;
    const int found = std::sscanf(argument, "--window=%5hux%5hu%n", &width, &height, &length);
    if (found != 2 || argument[length] != '\0' || width == 0 || height == 0)
        return {};
    return std::pair{width, height};
}

/// For "--help" and "--version"; empty for anything else.
std::string_view selfDescription(std::string_view argument)
{
    if (argument == "--help" || argument == "-h")
        return kHelp;
    return argument == "--version" ? "tandrel-mci " TANDREL_VERSION "\n" : "";
}

void run(tandrel::MciService& service, tandrel::Mci& mci, const std::string& handle)
{
    Lines lines;
    auto line = lines.next(-1);
    while (line) {
        if (!handle.empty())
            replaceHandle(*line, handle);
        std::array<char, kAnswerSize> answer{};
        const int result = mci.send(*line, answer);
        auto following = lines.next(0);
        if (!following)
            mci.idle();
        // Whoever waits for the result before the next command may look at the screen first.
        if (!following && !lines.atEnd() && bringsPicture(*line))
            service.settle();
        std::printf("%d\t%s\n", result, answer.data());
        std::fflush(stdout);
        if (!following)
            following = lines.next(-1);
        line = std::move(following);
    }
}
} // namespace

int main(int argc, char** argv)
{
    std::unique_ptr<tandrel::ToolWindow> window;
    for (int index = 1; index < argc; ++index) {
        if (const auto description = selfDescription(argv[index]); !description.empty()) {
            std::fputs(description.data(), stdout);
            return 0;
        }
        const auto size = windowSize(argv[index]);
        if (!size) {
            std::fputs(kHelp, stderr);
            return 2;
        }
        window = std::make_unique<tandrel::ToolWindow>("tandrel-mci", size->first, size->second);
        if (window->handle() == 0) {
            std::fprintf(stderr, "%s: there is no X server to open a window on\n", argv[0]);
            return 1;
        }
    }
    tandrel::LinuxDriveDoor door;
    tandrel::MciService service(tandrel::makeMpvEngine({}), &door);
    const auto tracing = tandrel::tracingMciIfWanted(service);
    run(service, tracing ? *tracing : service, window ? std::to_string(window->handle()) : "");
    return 0;
}
