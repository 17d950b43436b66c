#include "platform/mpv/film_player.h"

#include "platform/codec/codec_file.h"
#include "platform/mpv/film_worker.h"
#include "platform/mpv/process_state.h"
#include "platform/mpv/stock_rest.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kCloseLimit = 2s;
// The first picture of a large film takes a third of a second where a machine has little to spare.
constexpr auto kFirstPicture = 500ms;
constexpr int kLoudest = 100;

PixelRect scaled(const PixelRect& place, double ratio)
{
    const auto scale = [ratio](int length) { return static_cast<int>(std::lround(length * ratio)); };
    return {scale(place.left), scale(place.top), scale(place.right), scale(place.bottom)};
}

class MpvFilePlayer final : public FilePlayer
{
public:
    explicit MpvFilePlayer(const FilmOptions& options)
        : pixelRatio_(options.pixelRatio),
          means_(std::make_shared<FilmMeans>(
              options.outputs, [file = std::make_shared<CodecFile>(options.codecFile)](const TuningMeans& means) {
                  return tuningOf(file->read(), means);
              }))
    {
    }
    ~MpvFilePlayer() override
    {
        film_.reset();
        means_->wait(0, kCloseLimit);
    }

    void open(const std::string& path) override;
    void close() override { film_.reset(); }
    void showIn(WindowHandle parent, const PixelRect& place) override;
    /// A thread of the film's own does that.
    void follow() override {}

    bool isLoaded() const override
    {
        return read(false, [](const FilmState& film) { return film.loaded; });
    }
    bool isIdle() const override
    {
        return read(true, [](const FilmState& film) { return film.failed; });
    }
    MediaTrouble trouble() const override
    {
        return read(MediaTrouble::None, [](const FilmState& film) { return film.trouble; });
    }
    bool hasEnded() const override
    {
        return read(false, [](const FilmState& film) { return film.loaded && film.moves.hasEnded(); });
    }
    bool isPaused() const override
    {
        return read(false, [](const FilmState& film) { return !film.failed && film.moves.isHeld(); });
    }
    double rate() const override
    {
        return read(1.0, [](const FilmState& film) { return film.failed ? 1.0 : film.moves.rate(); });
    }
    double position() const override
    {
        return read(0.0, [](const FilmState& film) { return film.failed ? 0.0 : film.moves.position(); });
    }
    double duration() const override
    {
        return read(0.0, [](const FilmState& film) { return film.failed ? 0.0 : film.moves.duration(); });
    }
    std::string title() const override
    {
        return read(std::string(), [](const FilmState& film) { return film.loaded ? film.title : std::string(); });
    }
    std::vector<MediaTrack> tracks() const override
    {
        std::vector<MediaTrack> none;
        return read(none, [&](const FilmState& film) { return film.loaded ? nameTracks(film.tracks) : none; });
    }

    void play() override
    {
        tell([](FilmState& film) { film.moves.play(); });
    }
    void pause() override
    {
        tell([](FilmState& film) { film.moves.pause(); });
    }
    void setRate(double rate) override
    {
        tell([rate](FilmState& film) { film.moves.setRate(rate); });
    }
    void seek(double seconds) override
    {
        tell([seconds](FilmState& film) { film.moves.seek(seconds); });
    }
    void setVolume(int level) override;
    void chooseTrack(MediaTrack::Kind kind, int id) override;

private:
    template <class Value, class Look>
    Value read(Value otherwise, Look look) const
    {
        return film_ == nullptr ? otherwise : static_cast<const FilmWorker&>(*film_).read(look);
    }
    template <class Command>
    void tell(Command command)
    {
        if (film_ == nullptr)
            return;
        film_->with([&](FilmState& film) {
            if (!film.failed)
                command(film);
        });
    }
    void tellVolume();

    std::function<double(WindowHandle)> pixelRatio_;
    std::shared_ptr<FilmMeans> means_;
    /// Null while nothing is there.
    std::unique_ptr<FilmWorker> film_;
    int volume_ = kLoudest;
    WindowHandle parent_ = 0;
    PixelRect place_;
};

void MpvFilePlayer::open(const std::string& path)
{
    film_.reset();
    putOffStocks(kFirstPicture);
    film_ = std::make_unique<FilmWorker>(means_, path);
    film_->showIn(parent_, place_);
    tellVolume();
}

void MpvFilePlayer::showIn(WindowHandle parent, const PixelRect& place)
{
    parent_ = parent;
    place_ = scaled(place, pixelRatio_ ? pixelRatio_(parent) : 1);
    if (film_ != nullptr)
        film_->showIn(parent_, place_);
}

void MpvFilePlayer::setVolume(int level)
{
    volume_ = std::clamp(level, 0, kLoudest);
    tellVolume();
}

void MpvFilePlayer::tellVolume()
{
    tell([this](FilmState& film) { film.requests.set("volume", static_cast<double>(volume_)); });
}

void MpvFilePlayer::chooseTrack(MediaTrack::Kind kind, int id)
{
    const bool audio = kind == MediaTrack::Kind::Audio;
    tell([&](FilmState& film) {
        const auto isIt = [&](const FilmTrack& track) {
            return track.id == id && track.kind == (audio ? FilmTrack::Kind::Audio : FilmTrack::Kind::Subtitle);
        };
        const bool known = std::any_of(film.tracks.begin(), film.tracks.end(), isIt);
        if (film.loaded && (known || (!audio && id < 0)))
            film.requests.command({"set", audio ? "aid" : "sid", id < 0 ? "no" : std::to_string(id)});
    });
}
} // namespace

std::unique_ptr<FilePlayer> makeMpvFilePlayer(const FilmOptions& options)
{
    prepareProcess();
    return std::make_unique<MpvFilePlayer>(options);
}

} // namespace tandrel
