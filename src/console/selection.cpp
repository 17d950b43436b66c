#include "console/selection.h"

#include <algorithm>

namespace tandrel
{

namespace
{
constexpr std::size_t kCancelledBars = 1026;
constexpr const char* kPair = "||";
} // namespace

bool isCancelled(const Text& selection) { return selection == Text(kCancelledBars, kBar); }

bool hasResult(const Text& selection) { return trim(selection) != Text(1, kBar); }

Selection parseSelection(const Text& selection)
{
    Selection result;
    const std::size_t end = selection.find(kPair);
    if (end == Text::npos) {
        if (selection.empty())
            return result;
        result.kind = Selection::Kind::Single;
        result.elements = {selection};
        return result;
    }
    // One bar stays, so that behind the last name there is an empty element.
    std::vector<Text> elements = split(selection.substr(0, end + 1), kBar);
    result.ended = true;
    result.upperBound = static_cast<std::int64_t>(elements.size()) - 1;
    if (result.upperBound > 1) {
        result.kind = Selection::Kind::Multiple;
        result.folder = elements.front();
        elements.erase(elements.begin());
        result.elements = std::move(elements);
    } else if (characterCount(elements.front()) > 1) {
        result.kind = Selection::Kind::Single;
        result.elements = {elements.front()};
    }
    return result;
}

} // namespace tandrel
