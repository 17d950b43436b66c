/// The text that stands for a selection of files: from the file dialog, or preset by whoever calls an opener.
#pragma once

#include "toolkit/text.h"

#include <vector>

namespace tandrel
{

/// The marks of the text: one ends each element, two end the selection.
inline constexpr char kBar = '|';

struct Selection {
    enum class Kind {
        /// Nothing that could be a file.
        None,
        /// One file: its path is the only element.
        Single,
        /// A folder, and elements in it: names, or whole paths where the selection was preset.
        Multiple
    };
    Kind kind = Kind::None;
    Text folder;
    std::vector<Text> elements;
    /// The text ended in two bars, as that of a dialog does.
    bool ended = false;
    /// The highest index of the text cut at its bars; the folder has 0.
    Long upperBound;
};

/// What a cancelled dialog reads as: 1026 bars.
bool isCancelled(const Text& selection);

/// Cuts the text at its bars, up to the first pair of them. Without a pair all of it is one path.
Selection parseSelection(const Text& selection);

/// True where an opener has something to show: the text, trimmed, is more than one bar.
bool hasResult(const Text& selection);

} // namespace tandrel
