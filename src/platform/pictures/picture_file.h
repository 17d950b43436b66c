/// Files of pictures on the disk: whole ones or none, and none in the place of another.
#pragma once

#include "platform/pictures.h"

#include <string>
#include <string_view>

namespace tandrel
{

struct WrittenPicture {
    PictureTrouble trouble = PictureTrouble::None;
    /// Where it is now.
    std::string path;
};

/// Removes what a program that came to a sudden end has left unfinished in the folder.
void removeLeftPictures(const std::string& folder);

/// Writes a file of this name and ending in a folder, which is made if it isn't there. Where there is one of that name
/// already, " (2)" and so on is put behind the name; where the name is refused it is written as `nameForAll` has it.
/// What can't be written to its end leaves nothing behind.
WrittenPicture writePicture(const std::string& folder, const std::string& name, const std::string& ending,
                            std::string_view content);

} // namespace tandrel
