#include "media/mod_media.h"

#include "desktop/screen_saver.h"
#include "media/console_face.h"
#include "toolkit/trap.h"

#include <array>

namespace tandrel
{

namespace
{

/// A command string put together from its pieces. The store is kept between commands, so that a tick allocates nothing.
std::string_view command(std::initializer_list<std::string_view> pieces)
{
    static Text store;
    store.clear();
    for (const std::string_view piece : pieces)
        store += piece;
    return store;
}

/// A command that asks, with the buffer that its answer goes into.
class Question
{
public:
    explicit Question(std::string_view command) : result_(services().mci->send(command, buffer_)) {}
    Long result() const { return result_; }
    std::string_view text() const { return buffer_.data(); }
    Long number() const { return numberAtFront(text()); }

private:
    std::array<char, 128> buffer_{};
    Long result_;
};

Long send(std::string_view command) { return services().mci->send(command); }

void formatMs(const Alias& alias) { send(command({"set ", alias, " time format ms"})); }

void setVolume(const Alias& alias, Long thousandths) { send("setaudio " + alias + " Volume to " + text(thousandths)); }

/// The level as the service takes it, in 16 bits as the level itself.
Integer scaled(Integer level) { return level * 10; }

void showNormalSpeed() { consoleFace().showSpeed("0x"); }

void clearJumps()
{
    FastForward = false;
    FastRewind = false;
}

Long sendOpen(const Alias& alias, WindowHandle hWnd)
{
    return send("Open " + alias + " Type MPEGVideo alias " + alias + " parent " + std::to_string(hWnd) +
                " style child");
}

void stopJumps()
{
    clearJumps();
    showNormalSpeed();
    setVolume(CurrentAlias, scaled(consoleFace().volumeSlider()));
    send("Pause " + CurrentAlias);
}

/// What a seek to the right place is followed by.
void startFrom(const Alias& alias, Long flag, Integer level)
{
    send("Play " + alias);
    setVolume(alias, scaled(level));
    if (flag == 1)
        send("Pause " + alias);
    clearJumps();
    showNormalSpeed();
    MediaStarted = true;
}

void jumpTo(Long ms, const Text& speed)
{
    consoleFace().showSpeed(speed);
    setVolume(CurrentAlias, 0);
    send("play " + CurrentAlias + " from " + text(ms));
}

/// A thousandth of the stored length: what one jump covers.
Long jumpLength() { return MediaLengthMs / 1000.0; }

} // namespace

Long MediaOpen(WindowHandle hWnd)
{
    const Long result = sendOpen(CurrentAlias, hWnd);
    NextSlot += 1;
    return result;
}

Long MediaOpenPaused(WindowHandle hWnd)
{
    sendOpen(CurrentAlias, hWnd);
    const Long result = send("Pause " + CurrentAlias);
    NextSlot += 1;
    return result;
}

Long MediaOpenAlias(const Alias& alias, WindowHandle hWnd) { return sendOpen(alias, hWnd); }

void MediaPlay()
{
    showNormalSpeed();
    if (FullScreenOn) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
    } else if (!FastForward && !FastRewind) {
        send("Play " + CurrentAlias + " ");
    }
    clearJumps();
    setVolume(CurrentAlias, scaled(consoleFace().volumeSlider()));
    MediaStarted = true;
}

void MediaResume(const Alias& alias, Long flag, Integer level)
{
    formatMs(alias);
    const Question position("status " + alias + " position");
    send("seek " + alias + " to " + Text(position.text()));
    startFrom(alias, flag, level);
}

void MediaReplay()
{
    formatMs(CurrentAlias);
    send("seek " + CurrentAlias + " to 0");
    send("Play " + CurrentAlias);
    MediaStarted = true;
}

void MediaRestart(const Alias& alias, Long flag, Integer level)
{
    formatMs(alias);
    const Question unused("status " + alias + " position");
    send("seek " + alias + " to 0");
    startFrom(alias, flag, level);
}

bool turnJump(bool& wanted, bool& opposite)
{
    if (opposite && !wanted) {
        opposite = false;
        return true;
    }
    if (!CurrentAlias.empty()) {
        wanted = true;
        opposite = false;
    }
    return false;
}

void MediaFastForward()
{
    formatMs(CurrentAlias);
    const Question length("status " + CurrentAlias + " length");
    send("set " + CurrentAlias + " time format milliseconds");
    const Question position("status " + CurrentAlias + " position wait");
    if (position.number() <= length.number())
        jumpTo(jumpLength() + position.number(), "2x");
    else
        stopJumps();
    // The device stays in frames until the next command that needs milliseconds sets them.
    send("set " + CurrentAlias + " time format frames");
}

void MediaFastRewind()
{
    send("set " + CurrentAlias + " time format milliseconds");
    const Question position("status " + CurrentAlias + " position wait");
    if (position.number() > 1000)
        jumpTo(position.number() - jumpLength(), "-2x");
    else
        stopJumps();
    send("set " + CurrentAlias + " time format frames");
}

void MediaPause() { MediaPauseAlias(CurrentAlias); }

void MediaPauseAlias(const Alias& alias)
{
    send(pauseCommand(alias));
    clearJumps();
    showNormalSpeed();
}

void MediaSeekQuarter(const Alias& alias)
{
    formatMs(alias);
    const Question length("status " + alias + " length");
    send("seek " + alias + " to " + FixedPoint(numberAtFront(length.text()) / 4).text());
    send("Pause " + alias);
    clearJumps();
    showNormalSpeed();
}

Text stepCommand(const Alias& alias, Integer direction) { return "step " + alias + (direction == 1 ? "" : " reverse"); }

Text pauseCommand(const Alias& alias) { return "Pause " + alias; }

void MediaStep(const Alias& alias, Integer level, Integer direction)
{
    send(stepCommand(alias, direction));
    // The silent play and pause make the device paint the new frame.
    setVolume(alias, 0);
    send("Play " + alias);
    send("Pause " + alias);
    setVolume(alias, scaled(level));
    showNormalSpeed();
}

void MediaCloseAll()
{
    send("Close all");
    clearJumps();
    showNormalSpeed();
}

void MediaClose(const Alias& alias)
{
    send("Close " + alias);
    clearJumps();
}

std::optional<PictureSize> pictureSize(std::string_view answer)
{
    const std::vector<Text> fields = split(answer, ' ');
    if (fields.size() < 4)
        return std::nullopt;
    const auto width = FixedPoint::parse(fields[2]);
    const auto height = FixedPoint::parse(fields[3]);
    if (!width || !height)
        return std::nullopt;
    std::optional<PictureSize> size;
    trap([&] { size = PictureSize{width->rounded(), height->rounded()}; });
    return size;
}

void MediaGetSize() { MediaGetSizeAlias(CurrentAlias); }

void MediaGetSizeAlias(const Alias& alias)
{
    const Question where("Where " + alias + " destination");
    if (const auto size = pictureSize(where.text())) {
        NativeWidth = size->width;
        NativeHeight = size->height;
    }
}

void MediaPutWindow(FixedPoint& percent)
{
    Text width = text(NativeWidth);
    Text height = text(NativeHeight);
    if (!percent.isZero()) {
        percent = percent / 100;
        width = (FixedPoint::whole(NativeWidth) * percent).text();
        height = (FixedPoint::whole(NativeHeight) * percent).text();
    }
    send("put " + CurrentAlias + " window at 0 0 " + width + " " + height);
}

Long MediaGetPosition()
{
    formatMs(CurrentAlias);
    const Question position(command({"status ", CurrentAlias, " position"}));
    const Question length(command({"status ", CurrentAlias, " length"}));
    MediaLengthMs = length.number();
    if (length.result() != 0)
        return -1;
    return position.number();
}

Long MediaGetPositionAlias(const Alias& alias)
{
    formatMs(alias);
    const Question position(command({"status ", alias, " position"}));
    return position.result() == 0 ? position.number() : Long(0);
}

void MediaSeek(Long ms, Long flag)
{
    formatMs(CurrentAlias);
    send("seek " + CurrentAlias + " to " + text(ms));
    if (flag == 0)
        send("Play " + CurrentAlias);
    MediaStarted = true;
    showNormalSpeed();
}

void MediaSeekPlay(Long ms, Long flag)
{
    formatMs(CurrentAlias);
    send("seek " + CurrentAlias + " to " + text(ms));
    send("Play " + CurrentAlias);
    if (flag == 1)
        send("Pause " + CurrentAlias);
    MediaStarted = true;
    showNormalSpeed();
}

Text MediaGetLength()
{
    send("set " + CurrentAlias + " time format frames");
    const Question frames("status " + CurrentAlias + " length");
    MediaFrames = frames.number();
    formatMs(CurrentAlias);
    const Question length("status " + CurrentAlias + " length");
    MediaLengthMs = length.number();
    Long ms = MediaLengthMs;
    return FormatTime(ms);
}

Text FormatTime(Long& ms)
{
    constexpr int kDay = 86400;
    constexpr int kHour = 3600;
    ms = ms / 1000;
    int rest = ms;
    if (rest / kDay > 0)
        rest -= rest / kDay * kDay;
    const int hours = rest / kHour;
    if (hours > 0)
        rest -= hours * kHour;
    const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    return std::to_string(hours) + ":" + two(rest / 60) + ":" + two(rest % 60);
}

Long MediaSetVolume(Long level) { return MediaSetVolumeAlias(CurrentAlias, level); }

Long MediaSetVolumeAlias(const Alias& alias, Long level)
{
    return send("setaudio " + alias + " Volume to " + text(level * 10));
}

void ShellOpen(const Text& target) { services().shell->open(target); }

Long mciSend(const Text& command) { return send(command); }

MciAnswer mciAsk(const Text& command)
{
    const Question question(command);
    return {question.result(), Text(question.text())};
}

} // namespace tandrel
