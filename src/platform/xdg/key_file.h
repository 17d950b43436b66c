/// The file of the keys on the disk.
#pragma once

#include "platform/services.h"

namespace tandrel
{

class XdgKeyFile : public KeyFile
{
public:
    explicit XdgKeyFile(std::string path) : path_(std::move(path)) {}
    Content read() const override;
    void leave(const std::string& text) override;
    std::string path() const override { return path_; }

private:
    std::string path_;
};

} // namespace tandrel
