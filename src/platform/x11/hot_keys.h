/// Global keys of the X server.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// Needs the application object.
class X11HotKeys : public HotKeys
{
public:
    bool take(int id, std::string_view combination) override;
    void releaseAll() override;
};

} // namespace tandrel
