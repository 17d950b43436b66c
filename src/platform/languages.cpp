#include "platform/languages.h"

#include <cctype>

namespace tandrel
{

namespace
{
struct Language {
    std::string_view two;
    std::string_view three;
    /// As libraries write it, where that differs.
    std::string_view other = {};
};

constexpr Language kLanguages[]{
    {"ar", "ara"},        {"bg", "bul"},        {"bn", "ben"},        {"bs", "bos"},        {"ca", "cat"},
    {"cs", "ces", "cze"}, {"cy", "cym", "wel"}, {"da", "dan"},        {"de", "deu", "ger"}, {"el", "ell", "gre"},
    {"en", "eng"},        {"es", "spa"},        {"et", "est"},        {"eu", "eus", "baq"}, {"fa", "fas", "per"},
    {"fi", "fin"},        {"fr", "fra", "fre"}, {"ga", "gle"},        {"gl", "glg"},        {"he", "heb"},
    {"hi", "hin"},        {"hr", "hrv"},        {"hu", "hun"},        {"hy", "hye", "arm"}, {"id", "ind"},
    {"is", "isl", "ice"}, {"it", "ita"},        {"ja", "jpn"},        {"ka", "kat", "geo"}, {"ko", "kor"},
    {"lt", "lit"},        {"lv", "lav"},        {"mk", "mkd", "mac"}, {"ms", "msa", "may"}, {"nb", "nob"},
    {"nl", "nld", "dut"}, {"nn", "nno"},        {"no", "nor"},        {"pl", "pol"},        {"pt", "por"},
    {"ro", "ron", "rum"}, {"ru", "rus"},        {"sk", "slk", "slo"}, {"sl", "slv"},        {"sq", "sqi", "alb"},
    {"sr", "srp"},        {"sv", "swe"},        {"ta", "tam"},        {"te", "tel"},        {"th", "tha"},
    {"tr", "tur"},        {"uk", "ukr"},        {"ur", "urd"},        {"vi", "vie"},        {"zh", "zho", "chi"},
};

/// What comes before the country, the coding and the like, in small letters.
std::string firstPart(std::string_view text)
{
    std::string part;
    for (const char letter : text.substr(0, text.find_first_of("-_.@")))
        part += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return part;
}
} // namespace

std::string desktopLanguage(const std::function<const char*(const char*)>& environment)
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = environment(name);
        if (value == nullptr || *value == '\0')
            continue;
        const std::string language = firstPart(value);
        return language.size() == 2 ? language : "";
    }
    return "";
}

bool isLanguage(std::string_view named, std::string_view language)
{
    const std::string name = firstPart(named);
    if (name.empty() || language.empty())
        return false;
    for (const Language& entry : kLanguages)
        if (entry.two == language)
            return name == entry.two || name == entry.three || name == entry.other;
    return name == language;
}

} // namespace tandrel
