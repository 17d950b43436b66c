// Reads command strings from standard input, a line each, and prints the result and the answer of each, a tab between.
// With --window it opens a window, and puts its handle in place of every %H.

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

namespace
{
constexpr std::string_view kHandleMark = "%H";
constexpr std::size_t kAnswerSize = 1024;

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
        if (std::strcmp(argv[index], "--window") != 0) {
            std::fprintf(stderr, "usage: %s [--window]\n", argv[0]);
            return 2;
        }
        window = std::make_unique<tandrel::ToolWindow>("tandrel-mci");
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
