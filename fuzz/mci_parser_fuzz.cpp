// Feeds the parser of command strings with anything. What it takes apart has to lie inside the text, and a text that it
// refuses has to come with a number.
#include "platform/mci/command_parser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>

namespace
{
bool liesIn(std::string_view part, std::string_view whole)
{
    const std::less_equal<const char*> notBehind;
    return part.empty() ||
           (notBehind(whole.data(), part.data()) && notBehind(part.data() + part.size(), whole.data() + whole.size()));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const tandrel::Command command = tandrel::parseCommand(text);
    if (command.headError == 0 && (command.device.empty() || !liesIn(command.device, text)))
        std::abort();
    for (const auto& clause : command.clauses)
        if (clause && !liesIn(clause->word, text))
            std::abort();
    return 0;
}
