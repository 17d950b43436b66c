/// What system this is.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// An unknown version, which counts as modern; $TANDREL_SYSTEM stands in for another one.
class XdgSystemFacts : public SystemFacts
{
public:
    std::string version() const override;
    std::string systemFolder() const override { return "/usr/bin"; }
};

} // namespace tandrel
