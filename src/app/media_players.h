/// The players of HD films and of discs, each over the library that plays them best.
#pragma once

#include "platform/players.h"

#include <functional>
#include <string>

namespace tandrel
{

class MediaPlayers : public Players
{
public:
    /// `pixelRatio` is device pixels to a logical pixel in a window. `codecFile` are the settings of films.
    MediaPlayers(std::function<double(WindowHandle)> pixelRatio, std::string codecFile);
    std::unique_ptr<FilePlayer> filePlayer() override;
    std::unique_ptr<DiscPlayer> discPlayer() override;

private:
    std::function<double(WindowHandle)> pixelRatio_;
    std::string codecFile_;
};

} // namespace tandrel
