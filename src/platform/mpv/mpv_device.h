/// One file, played by a libmpv handle.
#pragma once

#include "platform/input/key_places.h"
#include "platform/mci/engine.h"
#include "platform/mpv/codec_tuning.h"
#include "platform/mpv/load_meter.h"
#include "platform/mpv/load_rules.h"
#include "platform/mpv/media_tracks.h"
#include "platform/mpv/mpv_channel.h"
#include "platform/mpv/scrub.h"
#include "platform/mpv/step_stills.h"
#include "platform/output/picture_window.h"

#include <atomic>
#include <functional>
#include <future>

namespace tandrel
{

class LoadKeeper;

/// Everything is asked of libmpv asynchronously, because a question that waits goes through the lock of a core that may
/// be decoding. What comes back is read whenever the device is used.
class MpvDevice final : public MediaDevice
{
public:
    /// Takes the handle over. `window` may be null. `pixelRatio` is device pixels to a logical pixel. `inUse` is held
    /// as long as the device lives.
    MpvDevice(mpv_handle* handle, std::unique_ptr<PictureWindow> window, double pixelRatio,
              std::shared_ptr<void> inUse);
    ~MpvDevice() override;

    /// How a file is decoded.
    struct Decoding {
        /// Its sound is not even decoded, unless there is nothing else.
        bool withoutSound = false;
        /// How many threads share its pictures.
        int threads = 1;
        CodecTuning tuning = {};
    };
    /// Loads the file, once.
    OpenFailure load(const std::string& file, const Decoding& decoding);
    /// The picture moves into this window. Nothing happens to a device without a picture's window.
    void moveInto(WindowHandle parent, double pixelRatio);
    /// Runs about every 50 ms while a call blocks. Not to be set before the load is done.
    void setPulse(std::function<void()> pulse) { channel_.setPulse(std::move(pulse)); }
    /// Lets steps use pictures that are decoded apart from the player, where that is possible. After a load, once.
    void keepPictures(const StepTools& tools, const MediaSource& source);

    /// Takes part in what is done about too much load, until it closes. Once. Where a graphics card `mayDecode`, that
    /// is only while the processors are found to do it all the same.
    void joinLoad(std::shared_ptr<LoadKeeper> keeper, bool mayDecode);
    /// Asks the player how it keeps up, without waiting for the answer.
    void askLoad();
    /// What the answers so far say, but for what the device doesn't know of itself; nothing unless it runs.
    std::optional<LoadSample> load() const;
    /// Decodes so much of a running video from its next key picture on, or from now on where nothing is known of
    /// those: a decoder that begins anew elsewhere has to decode again what lies between. At rest everything is decoded
    /// where it counts: places and steps are exact.
    void ease(Ease ease);
    /// Goes on at the last key picture that is due already, if there is one ahead.
    void catchUp();
    /// Looks whether the key picture has come, and whether the window has grown. Whoever eases a device calls it often.
    void followEase();
    /// Where the key pictures are; once they are known.
    void setKeyPlaces(KeyPlaces places);
    bool knowsKeyPlaces() const { return keyPlaces_.has_value(); }
    /// Absolute.
    const std::string& path() const { return path_; }
    /// The window that the picture is in; null without one.
    const PictureWindow* window() const { return window_.get(); }

    const MediaFacts& facts() const override { return facts_; }
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    void seekToEnd() override;
    void step(StepDirection direction) override;
    bool settle() override;
    bool ready() override;
    void makeReadyToPlay() override;
    MediaReading read() override;
    void prepareRead() override;
    FrameCounts counts() override;
    void setVolume(double volume) override;
    void put(const PixelRect& place) override;
    void beginClose() override;

private:
    using Moment = MpvChannel::Moment;

    /// A picture that the output has drawn reaches the window system when the output is next asked something. It is
    /// asked twice: once, and it may only be about to draw.
    static constexpr int kOutputTurns = 2;

    enum class Stage {
        /// Nothing is under way.
        Rest,
        /// A seek or a step back was sent.
        Sent,
        /// The player has taken it on, and will report that it begins.
        Taken,
        /// It seeks, and will report that it shows the new picture.
        Seeking,
        /// A step on was sent; the player holds again when it is done.
        Stepping,
        /// A step back waits for its picture, which is being decoded.
        Filling,
        /// A place is found without the player, which is told of the last one when they no longer change.
        Scrubbing,
        /// The new place was asked for.
        Reading
    };

    /// How the load of a file goes on.
    struct Loading {
        bool loaded = false;
        bool failed = false;
        bool shown = false;
        /// Another load has to end before this one begins.
        bool waitsForOther = false;
        int answersMissing = 0;
        /// The number of the first question about the loaded file; 0 before.
        std::uint64_t firstQuestion = 0;
        /// The number of the question about the length, and the hook that waits for its answer.
        std::uint64_t lengthQuestion = 0;
        std::uint64_t lengthHook = 0;
        MediaTracks tracks;
        /// Its seeks are guesses.
        bool guesses = false;
    };

    /// What is known of the drawing at a new place.
    enum class Drawing {
        Done,
        /// Nobody has asked about it yet.
        Unasked,
        Asked,
        /// The output had not got there when it was asked.
        Elsewhere,
        /// It is drawn, and on its way to the window system.
        Flushing
    };

    /// Seconds between two times that are the same but for their last digits.
    static constexpr double kTimeEpsilon = 1e-6;

    /// What has been done about a seek that brought another picture than expected.
    enum class Correction { None, LookedBehind, SteppedBack };

    OpenFailure tryLoad(const std::string& file, Moment deadline, Loading& loading);
    /// The same, without filters where they are in the way of the picture or the sound.
    OpenFailure tryLoadTuned(const std::string& file, Moment deadline, const Decoding& decoding, Loading& loading);
    void hearLoading(const mpv_event& event, Loading& loading);
    void takeLength(const mpv_event& answer);
    void takeFact(const mpv_event_property& fact, Loading& loading);
    /// Waits for the first picture, and takes its size from there.
    bool learnFromPicture(Moment deadline, MediaTracks& tracks);

    void hear(const mpv_event& event);
    void hearAnswer(const mpv_event& event);
    void hearPlace(const mpv_event& event);
    void drain();
    void sendMove(std::initializer_list<const char*> command);
    void sendSeek(double target);
    void hearStep(bool holds);
    std::uint64_t askOutput();
    /// Not ready before the output has drawn the picture at its new place: who decodes the next ones would be in its
    /// way.
    void awaitDrawing();
    void askDrawing();
    void hearDrawing(const mpv_event& event);
    bool isDrawn();
    void askPlace();
    void notePlace(double time);
    void placeKnown();
    /// True if the picture is not the wanted one yet and something is under way again.
    bool correctSeek();
    bool correctStep();
    bool correctEnd();
    bool correctReturn();
    /// Lets seeks begin further ahead of their target; false if they do that already.
    bool growMargin();
    void forgetMoves();
    bool canBeEased() const;
    /// Where the pictures are; the place that is read may be that of the sound, which is further.
    double picturePlace() const;
    /// The first behind this place, where that is known.
    std::optional<double> nextKey(double place) const;
    /// A running video is sent to that key picture.
    void goOnAt(double key);
    void tellDecoder(Ease ease);
    void easeNow(Ease ease);
    void easeSoon(Ease ease);
    /// How often pictures are halved at this ease: they stay nearly as large as they are shown.
    int halvingsAt(Ease ease) const;
    /// A held picture that is smaller than its window comes again as the file has it; not that of an end.
    void showInFull();
    /// True if that takes a seek before anything else.
    bool decodeAll();
    void forgetPictures();
    void sendEnd();
    /// A picture comes when it is ready, not when the one before has had its time.
    void showAtOnce(bool on);
    void stepBack();
    void sendExactSeek(double place);
    double exactTarget(double place) const;
    std::string seekText(double target) const;
    void sendStepOn();

    double samePicture() const;
    bool isSamePicture(double one, double other) const;
    double playerTime(double place) const;
    /// Steps may follow, at rest here.
    void expectSteps(double place);
    void expectStepsWhilePausing();
    /// Goes on with a step back: shows its picture, or waits for it, or leaves it to the player.
    void lookForPicture();
    /// A place that is found without the player first, at rest. False: it is for the player.
    bool scrubTo(double seconds, Moment now);
    /// Shows what has been found, and lets the player seek once places no longer change.
    void followScrub();
    void endScrub();
    /// Gives back what finding places takes.
    void dropScrub();
    void tireOfScrub();
    void seekByPlayer(double seconds);
    /// Shows a picture without the player. False if that cannot be done.
    bool show(const KeptPicture& picture);
    /// True if a step on is done, or under way; otherwise it is up to the player.
    bool stepOnWithoutPlayer();
    /// The player shows the right picture already.
    void uncoverPlayer();
    void bringPlayerHere();
    /// Brings the player along in the background when no step has come for a while, so that a play begins at once.
    void followLater();
    void wakeForPlayer(bool on);
    void hearFollowing(const mpv_event& event);
    void endFollowing();
    void restAtPicture(bool steppedOn);
    void runFromStill();
    void sizePictures(PictureSize size);
    void turnSound(bool on);
    /// Sound comes on again for a play from here, at rest.
    void restoreSound();
    /// The frame that is shown at that time, as far as the rate tells.
    double frameAt(double seconds) const;
    bool isExpected(double seconds) const;
    bool waitsForPlayer() const;
    /// How far a running device has probably come since then, in seconds.
    double reckonedSince(Moment moment) const;

    std::shared_ptr<void> inUse_;
    MpvChannel channel_;
    std::unique_ptr<PictureWindow> window_;
    /// Null where the player does all steps by itself.
    std::unique_ptr<StepStills> stills_;
    /// Null where the player finds all places by itself.
    std::unique_ptr<Scrub> scrub_;
    /// The last place that was asked for, and when.
    double sought_ = 0;
    Moment soughtAt_;
    std::function<void()> wake_;
    /// When the picture shown without the player came up, and whether the player has yet to follow there.
    Moment shownAt_;
    bool followWanted_ = false;

    /// The player is on its way to a picture shown without it, and nobody waits for that.
    struct Following {
        Stage stage = Stage::Sent;
        /// The command, later the question for the place.
        std::uint64_t awaited = 0;
    };
    std::optional<Following> following_;
    std::shared_ptr<std::atomic<bool>> turn_;
    /// Where the player rests while a picture is shown without it; less than 0 while it is being brought along.
    std::optional<double> behind_;
    double pixelRatio_;
    /// Seconds of the medium in one second.
    double speed_ = 1;
    std::future<void> closed_;
    Moment closeDeadline_;
    /// The open has taken all the time there is: nobody waits for the close too.
    bool hung_ = false;

    MediaFacts facts_;
    bool seekable_ = true;

    Stage stage_ = Stage::Rest;
    /// The last wait was in vain.
    bool gaveUp_ = false;
    /// The request whose answer the stage waits for.
    std::uint64_t awaited_ = 0;
    /// The place that a seek of a device at rest was asked for, until its picture is known to be right.
    std::optional<double> wanted_;
    Correction correction_ = Correction::None;
    /// What the seek was told, which is not always the place it is to find.
    double target_ = 0;
    /// Where a step back began, and whether the end was asked for, until their picture is known to be right.
    std::optional<double> backFrom_;
    bool endWanted_ = false;
    bool showsAtOnce_ = false;
    /// How often the output has been asked something since the step was done.
    int outputTurns_ = 0;

    /// The size that the picture is drawn at, in pixels.
    PictureSize canvas_;
    Drawing drawing_ = Drawing::Done;
    Moment drawUntil_;
    /// The last question about the drawing, and what the first of a pair was answered.
    std::uint64_t drawingAsked_ = 0;
    std::int64_t drawnWidth_ = 0;
    int flushes_ = 0;
    /// A step on is under way; a step back is to follow.
    bool stepsOn_ = false;
    bool thenBack_ = false;
    bool thenOn_ = false;
    double steppedFrom_ = 0;
    /// The place of the picture that the player is being brought to.
    std::optional<double> returnTo_;
    /// How far ahead of their target seeks begin, as a row of a table.
    std::size_t margin_ = 0;

    /// Null for a device that takes no part.
    std::shared_ptr<LoadKeeper> keeper_;
    LoadMeter meter_;
    bool cardMayDecode_ = false;
    Ease ease_ = Ease::Full;
    /// The size of the pictures as they are coded; how often they are halved now, and how often they can be at most.
    PictureSize coded_;
    int halvings_ = 0;
    int mostHalvings_ = 0;
    /// What is to come at the next key picture, and when it comes whether or not there is one.
    std::optional<Ease> easeWanted_;
    Moment easeBy_;
    /// The place of the pictures when that was looked for last.
    double easeFrom_ = 0;
    std::optional<KeyPlaces> keyPlaces_;
    std::string path_;
    /// By which of its names there is no hardware decoding now.
    int noHardware_ = 0;

    bool running_ = false;
    bool ended_ = false;
    /// libmpv's time of the first frame.
    std::optional<double> origin_;

    bool hasSound_ = false;
    /// Off between a seek to the end and the next play that starts before `silentFrom_`.
    bool soundIsOff_ = false;
    /// So near to the last picture, once a seek to the end has found it, sound stays off. Seconds.
    std::optional<double> silentFrom_;
    /// The last picture is shown, and the place is that of the sound.
    bool pictureIsPast_ = false;
    std::optional<double> soundTime_;

    /// What the first of the questions below was answered; it counts together with the last answer.
    bool endAnswer_ = false;
    /// The questions for the place that have not been answered yet: from the first to the last, which is 0 if all are.
    std::uint64_t firstAsked_ = 0;
    std::uint64_t placeAsked_ = 0;
    Moment placeAskedAt_;
    /// The newest place known, and when it was.
    double place_ = 0;
    Moment placeAt_;
    /// A running device never seems to go back.
    double lastRead_ = 0;
};

} // namespace tandrel
