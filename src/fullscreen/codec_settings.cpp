#include "fullscreen/codec_settings.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/system_facts.h"
#include "fullscreen/frm_ffdshow.h"
#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace tandrel
{

namespace
{

// The own folder may lie on a disk that is busy; of the others each may lie on a server that is gone.
constexpr int kLongestLookAtOwnMs = 1500;
constexpr int kLongestLookMs = 500;
constexpr const char* kStarter = "/RunDLL32.exe";
constexpr const char* kOwnModule = "/tandrel-codec-settings";

struct ModulePlace {
    const char* path;
    /// In quotes, without which a command line ends at the first blank.
    bool quoted;
};
constexpr std::array<ModulePlace, 4> kPlaces{{
    {"/ffdshow/ffdshow.ax", false},
    {"/filters/ffdshow/ffdshow.ax", false},
    {"/K-Lite Codec Pack/ffdshow/ffdshow.ax", true},
    {"/K-Lite Codec Pack/filters/ffdshow/ffdshow.ax", true},
}};

constexpr std::array<std::string_view, 14> kAudioEndings{".AVI", ".MP3", ".MP4", ".MOV",  ".MKV",  ".3GP",  ".OGM",
                                                         ".FLV", ".ASF", ".MPG", ".MPEG", ".DIVX", ".XVID", ".WEBM"};
constexpr std::array<std::string_view, 13> kVideoEndings{".AVI", ".MP4",  ".ASF",  ".MOV",  ".MKV", ".FLV", ".3GP",
                                                         ".OGM", ".DIVX", ".XVID", ".WEBM", ".MPG", ".MPEG"};

struct PageFacts {
    const char* entry;
    std::span<const std::string_view> endings;
    const char* refused;
    const char* refusedInMenu;
    const char* notFound;
};

const PageFacts& factsOf(CodecPage page)
{
    static constexpr PageFacts kAudio{"configureAudio", kAudioEndings, "message.audioRefused",
                                      "message.audioRefusedInMenu", "message.audioNotFound"};
    static constexpr PageFacts kVideo{"configure", kVideoEndings, "message.videoRefused", "message.videoRefusedInMenu",
                                      "message.videoNotFound"};
    return page == CodecPage::Audio ? kAudio : kVideo;
}

/// What doesn't answer in time is not there.
void lookAt(const std::vector<std::string>& paths, int longestMs)
{
    services().finder->look(paths);
    services().finder->wait(longestMs);
}

bool isThere(const Text& path) { return services().finder->found(path).value_or(false); }

Text ownModule() { return GetSystemFolder() + kOwnModule; }

/// The module's path, as it stands in a command line; empty where there is none.
Text findModule()
{
    const Text programs = services().systemFacts->environment("ProgramFiles");
    std::vector<std::string> paths;
    for (const ModulePlace& place : kPlaces)
        paths.push_back(programs + place.path);
    lookAt(paths, kLongestLookMs);
    for (const auto& [path, quotes] : kPlaces)
        if (isThere(programs + path))
            return quotes ? quoted(programs + path) : programs + path;
    const Text own = ownModule();
    if (!isThere(own))
        return {};
    return own.find(' ') == Text::npos ? own : quoted(own);
}

bool findCodec()
{
    const Text starter = GetSystemFolder() + kStarter;
    lookAt({starter, ownModule()}, kLongestLookAtOwnMs);
    if (!isThere(starter))
        return false;
    const Text module = findModule();
    if (module.empty())
        return false;
    FFDShowPath = module;
    return true;
}

void say(const Text& message, CodecCaller caller)
{
    if (caller == CodecCaller::Menu)
        frmMedia().tell(message);
    else
        backend().messageBox(message, BoxStyle::Exclamation, AppTitle);
}

void showOver(const frmChild& window, CodecPage page, CodecCaller caller)
{
    const PageFacts& facts = factsOf(page);
    const Text name = upper(window.caption());
    const bool allowed = std::any_of(facts.endings.begin(), facts.endings.end(),
                                     [&](std::string_view ending) { return name.ends_with(ending); });
    if (!allowed)
        say(caller == CodecCaller::Menu ? localised("message.attention") + "\n" + localised(facts.refusedInMenu)
                                        : localised(facts.refused),
            caller);
    else if (page == CodecPage::Audio)
        frmFFDShowAudio().Show(ShowMode::Modal);
    else
        frmFFDShowVideo().Show(ShowMode::Modal);
}

void restoreDiscSettings()
{
    ignoringErrors([] {
        if (mediaKind() == MediaKind::DiscOnVideoControl)
            controlOf(otherMedia().dvd).InputActive().RestorePreferredSettings();
    });
}

void showSettings(CodecPage page, CodecCaller caller)
{
    if (DVDMode)
        return restoreDiscSettings();
    if (!findCodec())
        return say(localised(factsOf(page).notFound), caller);
    const frmChild* window = trim(CurrentAlias).empty() ? nullptr : slotPlaying(CurrentAlias);
    if (window)
        showOver(*window, page, caller);
    else if (caller == CodecCaller::Console)
        services().shell->run(codecCommand(page));
}

} // namespace

Text codecCommand(CodecPage page)
{
    return GetSystemFolder() + kStarter + " " + FFDShowPath + "," + factsOf(page).entry;
}

void showCodecSettings(CodecPage page, CodecCaller caller)
{
    if (caller == CodecCaller::Console) {
        if (!FastForward && !FastRewind)
            showSettings(page, caller);
        return;
    }
    showSettings(page, caller);
    FullMenuOpen = false;
    frmMedia().Timer4.Enabled = true;
}

} // namespace tandrel
