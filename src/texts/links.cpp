#include "texts/links.h"

namespace tandrel
{

namespace
{

constexpr const char* kTwitterName = "TandrelPlayer";

/// Letters and digits of ASCII, whatever the locale says.
bool isUnreserved(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
           std::string_view("-._~").find(byte) != std::string_view::npos;
}

/// One "key=value" of an address.
Text query(const char* key, std::string_view value) { return Text(key) + "=" + percentEncoded(value); }

} // namespace

Text percentEncoded(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    Text result;
    for (const char byte : bytes) {
        if (isUnreserved(byte)) {
            result += byte;
            continue;
        }
        const auto code = static_cast<unsigned char>(byte);
        result += {'%', kDigits[code >> 4U], kDigits[code & 15U]};
    }
    return result;
}

Text facebookLink(std::string_view title)
{
    return "https://www.facebook.com/sharer.php?" + query("u", kSharedPage) + "&" + query("t", title);
}

Text twitterLink(std::string_view title)
{
    return "https://twitter.com/share?" + query("url", kSharedPage) + "&" + query("via", kTwitterName) + "&" +
           query("text", title);
}

Text myspaceLink(std::string_view title)
{
    return "https://myspace.com/post?" + query("u", kSharedPage) + "&" + query("t", title);
}

} // namespace tandrel
