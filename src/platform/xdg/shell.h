/// The desktop's opener.
#pragma once

#include "platform/services.h"

namespace tandrel
{

class XdgShell : public Shell
{
public:
    void open(const std::string& target) override;
};

} // namespace tandrel
