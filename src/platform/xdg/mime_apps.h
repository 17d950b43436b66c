/// The user's list of which program opens which type (`mimeapps.list`), changed without touching what others wrote.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

class MimeApps
{
public:
    static constexpr std::string_view kAdded = "Added Associations";
    static constexpr std::string_view kRemoved = "Removed Associations";
    static constexpr std::string_view kDefault = "Default Applications";

    explicit MimeApps(std::string_view content);

    /// The entry stands somewhere in the type's list of that section.
    bool lists(std::string_view section, std::string_view type, std::string_view entry) const;
    /// The entry stands in that list, at its end where it wasn't in it.
    void append(std::string_view section, std::string_view type, std::string_view entry);
    /// The entry leads that list; those that were there follow.
    void lead(std::string_view section, std::string_view type, std::string_view entry);
    /// All of it; byte for byte what came in where nothing had to change.
    std::string text() const;

private:
    struct Line {
        std::string text;
        std::string end;
    };
    struct Place {
        std::size_t line = 0;
        bool found = false;
        bool sectionFound = false;
    };
    Place find(std::string_view section, std::string_view type) const;
    std::vector<std::string> valuesAt(const Place& place) const;
    void put(std::string_view section, std::string_view type, const std::vector<std::string>& entries);
    void insert(std::size_t at, std::string text);

    std::vector<Line> lines_;
    std::string end_ = "\n";
};

} // namespace tandrel
