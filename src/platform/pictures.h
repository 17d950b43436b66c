/// Still pictures that the user wants to keep: files of the desktop's folder for pictures.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tandrel
{

/// A picture of a video.
struct PictureWish {
    /// The file, by its marked path.
    std::string path;
    /// The place of the picture that is shown, from the first.
    double seconds = 0;
};

enum class PictureTrouble {
    None,
    /// The folder can't be made, or nothing can be written there.
    Folder,
    /// The disk is full.
    NoRoom,
    /// The file has gone, can't be read, or has no picture there.
    NoPicture,
    /// Files that nobody answers for are still waited for.
    Busy
};

/// What has become of one order.
struct SavedPictures {
    /// The files that were written, with their real paths; the sheet comes last.
    std::vector<std::string> files;
    std::string folder;
    /// Those of which there is no picture, by their marked paths.
    std::vector<std::string> missing;
    /// What went wrong first.
    PictureTrouble trouble = PictureTrouble::None;
};

/// For the user-interface thread. Never blocks.
class Pictures
{
public:
    virtual ~Pictures() = default;
    /// Saves these; with `sheet` all of them side by side in one more picture. The videos are read anew, each at its
    /// place, while they play on.
    virtual void save(const std::vector<PictureWish>& wishes, bool sheet) = 0;
    /// An order that is done, each once.
    virtual std::optional<SavedPictures> done() = 0;
};

} // namespace tandrel
