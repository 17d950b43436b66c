/// Files on this system.
#pragma once

#include "platform/services.h"

namespace tandrel
{

class XdgFiles : public Files
{
public:
    explicit XdgFiles(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {}
    std::string dir(const std::string& path) const override;
    std::optional<std::vector<std::string>> readLines(const std::string& path) const override;
    bool writeLines(const std::string& path, const std::vector<std::string>& lines) override;
    bool remove(const std::string& path) override;
    std::string dataFolder() const override { return dataFolder_; }

private:
    std::string dataFolder_;
};

} // namespace tandrel
