/// A module that brings a dialog: what kind of file it is, and how one of its entries is started.
#pragma once

#include <optional>
#include <string>

namespace tandrel
{

struct ModuleCall {
    /// The path of a regular file, in bytes.
    std::string module;
    std::string entry;
};

/// "MODULE,ENTRY" taken apart, at the last comma that stands behind the name of a file: names may hold commas. Nothing
/// where there is no such file, no comma or no entry.
std::optional<ModuleCall> parseCall(const std::string& text);

/// Turns this process into the module, or calls its entry in it. Returns the exit code of the process where it comes
/// back: 0 after an entry that was called, 1 after a line on stderr that says why nothing was.
int runModule(const ModuleCall& call);

} // namespace tandrel
