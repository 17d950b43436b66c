#include "persist/data_files.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tandrel
{

namespace
{

Text dataFile(const char* name) { return services().files->dataFolder() + kSeparator + name; }

bool fileExists(const char* name) { return !services().files->dir(dataFile(name)).empty(); }

std::vector<Text> readLines(const char* name)
{
    return services().files->readLines(dataFile(name)).value_or(std::vector<Text>());
}

/// What one formatted input reads from a line: up to a comma, without blanks and double quotes around it.
Text formattedInput(const Text& line) { return withoutQuotes(trim(line.substr(0, line.find(',')))); }

constexpr const char* kList = "list.dat";
constexpr const char* kPresence = "pres.dat";
constexpr const char* kPrimary = "ext.dat";

constexpr std::array<std::string_view, 14> kHandedOver{".avi", ".mp4", ".mpg", ".asf", ".wmv",  ".mpeg", ".mov",
                                                       ".mkv", ".flv", ".3gp", ".ogm", ".divx", ".xvid", ".webm"};

} // namespace

namespace handover
{

bool exists() { return fileExists(kList); }

std::optional<std::vector<Text>> lines()
{
    if (!exists())
        return std::vector<Text>();
    return services().files->readLines(dataFile(kList));
}

bool add(const std::vector<Text>& quotedPaths, Long limit)
{
    auto all = lines();
    if (!all)
        return false;
    const std::size_t before = all->size();
    const auto most = static_cast<std::size_t>(std::max<int>(limit, 1));
    for (const Text& path : quotedPaths)
        if (all->size() < most)
            all->push_back(path);
    return all->size() == before || services().files->writeLines(dataFile(kList), *all);
}

bool remove() { return services().files->remove(dataFile(kList)); }

bool removeFirst(std::size_t count)
{
    const auto all = lines();
    if (!all || all->size() <= count)
        return remove();
    return services().files->writeLines(dataFile(kList),
                                        {all->begin() + static_cast<std::ptrdiff_t>(count), all->end()});
}

bool takes(const Text& commandText)
{
    const Text small = lower(commandText);
    return std::any_of(kHandedOver.begin(), kHandedOver.end(),
                       [&](std::string_view type) { return small.ends_with(Text(type) + '"'); });
}

} // namespace handover

namespace presence
{

bool exists() { return fileExists(kPresence); }

void write(WindowHandle console)
{
    // A blank in front and behind: numbers are printed with the place of their sign and a closing blank.
    services().files->writeLines(dataFile(kPresence), {" " + std::to_string(console) + " "});
}

WindowHandle owner()
{
    const std::vector<Text> lines = readLines(kPresence);
    const double number = lines.empty() ? 0 : numberAtFront(lines.front());
    const bool isHandle = number >= 1 && number <= std::numeric_limits<WindowHandle>::max();
    return isHandle ? static_cast<WindowHandle>(number) : 0;
}

void removeIfOwn(WindowHandle console)
{
    const std::vector<Text> lines = readLines(kPresence);
    if (!lines.empty() && numberAtFront(lines.front()) == console)
        services().files->remove(dataFile(kPresence));
}

} // namespace presence

namespace primary
{

Text read()
{
    if (!fileExists(kPrimary)) {
        write(kNotAsked);
        return {};
    }
    const std::vector<Text> lines = readLines(kPrimary);
    return lines.empty() ? Text() : formattedInput(lines.front());
}

void write(const Text& answer) { services().files->writeLines(dataFile(kPrimary), {answer}); }

} // namespace primary

} // namespace tandrel
