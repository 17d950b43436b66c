#include "app/media_players.h"

#include "platform/mpv/film_player.h"
#include "platform/mpv/stock_rest.h"
#include "platform/vlc/vlc_disc_player.h"

#include <utility>

namespace tandrel
{

namespace
{
// As long as the first picture of a disc takes with all that has to be loaded for it.
constexpr std::chrono::milliseconds kFirstPicture{600};
} // namespace

MediaPlayers::MediaPlayers(std::function<double(WindowHandle)> pixelRatio, std::string codecFile)
    : pixelRatio_(std::move(pixelRatio)), codecFile_(std::move(codecFile))
{
}

std::unique_ptr<FilePlayer> MediaPlayers::filePlayer()
{
    return makeMpvFilePlayer({.outputs = true, .pixelRatio = pixelRatio_, .codecFile = codecFile_});
}

std::unique_ptr<DiscPlayer> MediaPlayers::discPlayer()
{
    putOffStocks(kFirstPicture);
    return makeVlcDiscPlayer({.outputs = true, .pixelRatio = pixelRatio_});
}

} // namespace tandrel
