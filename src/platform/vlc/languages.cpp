#include "platform/vlc/languages.h"

#include <string_view>

namespace tandrel
{

std::string desktopLanguage(const std::function<const char*(const char*)>& environment)
{
    const auto isLetter = [](char letter) { return letter >= 'a' && letter <= 'z'; };
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = environment(name);
        const std::string_view text = value == nullptr ? "" : value;
        if (text.empty())
            continue;
        // "de_DE.UTF-8", or "C", or "de". Longer words are no languages that a disc could name.
        const bool isLanguage = text.size() >= 2 && isLetter(text[0]) && isLetter(text[1]) &&
                                (text.size() == 2 || text[2] == '_' || text[2] == '.' || text[2] == '@');
        return isLanguage ? std::string(text.substr(0, 2)) : "en";
    }
    return "en";
}

} // namespace tandrel
