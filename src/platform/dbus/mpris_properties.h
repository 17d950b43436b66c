/// What the program shows of itself under the names of the bus's interface for media players.
#pragma once

#include "platform/media_remote.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tandrel::mpris
{

inline constexpr const char* kPath = "/org/mpris/MediaPlayer2";
inline constexpr const char* kName = "org.mpris.MediaPlayer2.tandrel_player";
inline constexpr const char* kRootInterface = "org.mpris.MediaPlayer2";
inline constexpr const char* kPlayerInterface = "org.mpris.MediaPlayer2.Player";

/// What never changes.
struct Facts {
    std::string identity;
    std::string desktopEntry;
    std::vector<std::string> schemes;
    std::vector<std::string> mimeTypes;
};

/// A state and when it was so.
struct Reading {
    using Moment = std::chrono::steady_clock::time_point;
    RemoteState state;
    Moment taken;
};

struct ObjectPath {
    std::string path;
    friend bool operator==(const ObjectPath&, const ObjectPath&) = default;
};

/// A value of the bus: its type is that of the alternative.
using Plain = std::variant<bool, double, std::int64_t, std::string, ObjectPath>;
using Metadata = std::vector<std::pair<std::string, Plain>>;
using Value = std::variant<bool, double, std::int64_t, std::string, std::vector<std::string>, Metadata>;

struct Property {
    std::string name;
    Value value;
    friend bool operator==(const Property&, const Property&) = default;
};
using Properties = std::vector<Property>;

Properties rootProperties(const Facts& facts);
/// All but the position.
Properties playerProperties(const RemoteState& state);
/// Those of `now` that differ from `before`, or all where there was nothing before.
Properties changedProperties(const Properties& before, const Properties& now);

inline constexpr const char* kPosition = "Position";
/// Where it stands at `now`, microseconds: what plays has gone on since the reading.
std::int64_t positionAt(const Reading& reading, Reading::Moment now);

/// A place that nobody could expect who knows the reading before: it has to be told.
bool isJump(const Reading& before, const Reading& now);

/// The name of a medium on the bus, and the medium of such a name; 0 for any other.
std::string trackOf(std::uint64_t medium);
std::uint64_t mediumOf(std::string_view track);

} // namespace tandrel::mpris
