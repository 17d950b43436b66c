#include "platform/mci/tracing_mci.h"

#include <algorithm>
#include <cstdlib>

namespace tandrel
{

namespace
{
/// A command is one line whatever it holds.
std::string onOneLine(std::string_view text)
{
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(), [](char letter) { return letter == '\t' || letter == '\n' || letter == '\r'; },
        ' ');
    return result;
}
} // namespace

TracingMci::TracingMci(Mci& inner, const std::string& file) : inner_(inner), file_(file, std::ios::app)
{
    inner_.whileWaiting = [this] {
        if (whileWaiting)
            whileWaiting();
    };
}

TracingMci::~TracingMci() { inner_.whileWaiting = nullptr; }

int TracingMci::send(std::string_view command, std::span<char> answer)
{
    if (!answer.empty())
        answer.front() = '\0';
    const int result = inner_.send(command, answer);
    const auto end = std::find(answer.begin(), answer.end(), '\0');
    file_ << onOneLine(command) << '\t' << result << '\t' << onOneLine(std::string(answer.begin(), end)) << std::endl;
    return result;
}

std::unique_ptr<Mci> tracingMciIfWanted(Mci& inner)
{
    const char* file = std::getenv("TANDREL_MCI_TRACE");
    if (file == nullptr || *file == '\0')
        return nullptr;
    return std::make_unique<TracingMci>(inner, file);
}

} // namespace tandrel
