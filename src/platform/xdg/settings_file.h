/// The settings as a text file: "[section]", then "key=value" lines, in UTF-8.
#pragma once

#include "platform/services.h"

#include <string>

namespace tandrel
{

/// Reads the file at each question, so that several processes see each other's values. Lines that are none of ours are
/// kept as they stand.
class SettingsFile : public SettingsStore
{
public:
    explicit SettingsFile(std::string path) : path_(std::move(path)) {}
    std::string get(std::string_view section, std::string_view key) const override;
    void save(std::string_view section, std::string_view key, std::string_view value) override;

private:
    std::string path_;
};

} // namespace tandrel
