#include "app/media_players.h"

#include "platform/mpv/film_player.h"
#include "platform/vlc/vlc_disc_player.h"

#include <utility>

namespace tandrel
{

MediaPlayers::MediaPlayers(std::function<double(WindowHandle)> pixelRatio) : pixelRatio_(std::move(pixelRatio)) {}

std::unique_ptr<FilePlayer> MediaPlayers::filePlayer()
{
    return makeMpvFilePlayer({.outputs = true, .pixelRatio = pixelRatio_});
}

std::unique_ptr<DiscPlayer> MediaPlayers::discPlayer()
{
    return makeVlcDiscPlayer({.outputs = true, .pixelRatio = pixelRatio_});
}

} // namespace tandrel
