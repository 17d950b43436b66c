#include "platform/xdg/shell.h"

#include "platform/path_marks.h"
#include "platform/xdg/programs.h"

#include <QFile>
#include <QProcess>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

namespace tandrel
{

namespace
{

using namespace std::chrono_literals;

constexpr auto kLongestWait = 1s;
constexpr auto kBetweenLooks = 5ms;

struct Start {
    std::string program;
    std::string rest;
};

/// The shortest front that ends at a blank and names a program; with quotes, what stands in them.
std::optional<Start> startOf(const std::string& commandLine)
{
    if (!commandLine.empty() && commandLine.front() == '"') {
        const auto end = commandLine.find('"', 1);
        if (end == std::string::npos)
            return std::nullopt;
        return Start{commandLine.substr(1, end - 1), commandLine.substr(end + 1)};
    }
    for (auto blank = commandLine.find(' ');; blank = commandLine.find(' ', blank + 1)) {
        const std::string front = commandLine.substr(0, blank);
        if (isProgram(unmarkPath(front)))
            return Start{front, blank == std::string::npos ? "" : commandLine.substr(blank)};
        if (blank == std::string::npos)
            return std::nullopt;
    }
}

bool isAlive(long process) { return ::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM; }

} // namespace

std::vector<std::string> commandWords(const std::string& commandLine)
{
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (const char one : commandLine) {
        if (one == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (one == '"')
            quoted = !quoted;
        else
            words.back() += one;
    }
    return words;
}

void XdgShell::open(const std::string& target)
{
    QProcess::startDetached(QStringLiteral("xdg-open"), {QString::fromStdString(target)});
}

long XdgShell::run(const std::string& commandLine)
{
    const auto start = startOf(commandLine);
    if (!start || !isProgram(unmarkPath(start->program)))
        return 0;
    const auto decoded = [](const std::string& word) {
        return QFile::decodeName(QByteArray::fromStdString(unmarkPath(word)));
    };
    QStringList arguments;
    for (const std::string& word : commandWords(start->rest))
        arguments << decoded(word);
    qint64 process = 0;
    if (!QProcess::startDetached(decoded(start->program), arguments, {}, &process))
        return 0;
    waitForWindow(process);
    return process;
}

void XdgShell::waitForWindow(long process) const
{
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    // Who asks for a window right behind the start would find none: a program needs a moment to put it up.
    while (hasWindow_ && !hasWindow_(process) && isAlive(process) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(kBetweenLooks);
}

} // namespace tandrel
