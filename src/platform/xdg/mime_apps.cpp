#include "platform/xdg/mime_apps.h"

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text)
{
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::string_view keyOf(std::string_view line)
{
    const auto equals = line.find('=');
    return equals == std::string_view::npos || line.starts_with('#') ? std::string_view()
                                                                     : trimmed(line.substr(0, equals));
}

bool isHead(std::string_view line) { return line.starts_with('[') && line.ends_with(']'); }

} // namespace

MimeApps::MimeApps(std::string_view content)
{
    while (!content.empty()) {
        const auto feed = content.find('\n');
        const bool last = feed == std::string_view::npos;
        std::string_view text = content.substr(0, feed);
        std::string_view end = last ? "" : "\n";
        if (!last && text.ends_with('\r')) {
            text.remove_suffix(1);
            end = "\r\n";
        }
        lines_.push_back({std::string(text), std::string(end)});
        content.remove_prefix(last ? content.size() : feed + 1);
    }
    if (!lines_.empty() && !lines_.front().end.empty())
        end_ = lines_.front().end;
}

MimeApps::Place MimeApps::find(std::string_view section, std::string_view type) const
{
    const std::string head = "[" + std::string(section) + "]";
    bool inside = false;
    Place place{lines_.size(), false, false};
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = trimmed(lines_[i].text);
        if (isHead(line)) {
            inside = line == head;
            place.sectionFound = place.sectionFound || inside;
        }
        if (!inside)
            continue;
        // Of several lines of one key the last counts, as for everybody who reads this file.
        if (keyOf(line) == type)
            place = {i, true, true};
        else if (!place.found && !line.empty())
            place.line = i + 1;
    }
    return place;
}

std::vector<std::string> MimeApps::valuesAt(const Place& place) const
{
    std::vector<std::string> values;
    if (!place.found)
        return values;
    const std::string& line = lines_[place.line].text;
    std::string_view rest = std::string_view(line).substr(line.find('=') + 1);
    while (!rest.empty()) {
        const auto end = rest.find(';');
        if (const std::string_view one = trimmed(rest.substr(0, end)); !one.empty())
            values.emplace_back(one);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return values;
}

bool MimeApps::lists(std::string_view section, std::string_view type, std::string_view entry) const
{
    const auto values = valuesAt(find(section, type));
    return std::find(values.begin(), values.end(), entry) != values.end();
}

void MimeApps::append(std::string_view section, std::string_view type, std::string_view entry)
{
    if (lists(section, type, entry))
        return;
    auto values = valuesAt(find(section, type));
    values.emplace_back(entry);
    put(section, type, values);
}

void MimeApps::lead(std::string_view section, std::string_view type, std::string_view entry)
{
    auto values = valuesAt(find(section, type));
    if (!values.empty() && values.front() == entry)
        return;
    std::erase(values, entry);
    values.insert(values.begin(), std::string(entry));
    put(section, type, values);
}

void MimeApps::put(std::string_view section, std::string_view type, const std::vector<std::string>& entries)
{
    std::string line = std::string(type) + "=";
    for (const std::string& entry : entries)
        line += entry + ";";
    const Place place = find(section, type);
    if (place.found) {
        lines_[place.line].text = line;
        return;
    }
    if (!place.sectionFound) {
        if (!lines_.empty() && !trimmed(lines_.back().text).empty())
            insert(lines_.size(), "");
        insert(lines_.size(), "[" + std::string(section) + "]");
    }
    insert(place.sectionFound ? place.line : lines_.size(), line);
}

void MimeApps::insert(std::size_t at, std::string text)
{
    if (at > 0 && lines_[at - 1].end.empty())
        lines_[at - 1].end = end_;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {std::move(text), end_});
}

std::string MimeApps::text() const
{
    std::string all;
    for (const Line& line : lines_)
        all += line.text + line.end;
    return all;
}

} // namespace tandrel
