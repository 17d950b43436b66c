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
    /// "../lib/tandrel-player" beside the folder of this program.
    std::string systemFolder() const override;
    std::string environment(const std::string& name) const override;
};

} // namespace tandrel
