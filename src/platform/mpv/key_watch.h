/// The key places of files, read on a thread that nobody waits for.
#pragma once

#include "platform/input/key_places.h"

#include <memory>
#include <optional>
#include <string>

namespace tandrel
{

/// For one thread. A file that hangs leaves its thread behind, and those behind it are never known.
class KeyWatch
{
public:
    KeyWatch();
    /// Waits for nothing.
    ~KeyWatch();
    KeyWatch(const KeyWatch&) = delete;
    KeyWatch& operator=(const KeyWatch&) = delete;

    /// Of the file at this absolute path; nothing as long as they aren't known. The first question has them read.
    std::optional<KeyPlaces> of(const std::string& path);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tandrel
