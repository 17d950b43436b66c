/// Where a video can be begun without anything before it.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tandrel
{

struct KeyPlaces {
    /// Of the key pictures, in their order: seconds from the first. Empty where the file has no list of them at its
    /// beginning or its end; whoever wants them would have to read all of it.
    std::vector<double> seconds;
    /// No picture is made from a later one: each that is left out is missed by the next.
    bool inOrder = false;
};

/// Reads what a regular file tells of its first video, by its unmarked path, for as long as `refuses` doesn't say
/// otherwise. May block as long as the file's disk does. A file that can't be read has no key places.
KeyPlaces readKeyPlaces(const std::string& path, const std::function<bool()>& refuses);

} // namespace tandrel
