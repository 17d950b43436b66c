// What the user chooses, in a dialog or beforehand, becomes the two lists of files.

#include "console/common_dialog.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/selection.h"
#include "media/shared_state.h"
#include "persist/recent_files.h"
#include "texts/frm_update.h"
#include "texts/localised.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

namespace
{

/// What makes two operations of choosing differ.
struct ChoiceRules {
    std::int32_t flags;
    const char* filter;
    /// The key of the title in other languages; null where it is English in all of them.
    const char* titleKey;
    /// A file of the same name in another folder counts as open already.
    bool sameNameIsOpen;
    /// Nothing else stays open, so that what is open does not count against the limit.
    bool replaces;
    /// Of a selection that is too large: null cuts it in silence, a text refuses it as a whole.
    const char* refusal;
    /// The refusal comes in the program's own form, not in a box.
    bool refusesInForm;
    const char* notAFileKey;
    bool keepsRecent;
};

#define TANDREL_PLAIN_TYPES "*.avi;*.asf;*.mpg;*.mpeg;*.mp4;*.wmv;*.mov;*.flv;*.3gp;*.ogm;*.divx;*.xvid"
#define TANDREL_ALL_FILES "|All Files|*.*"
constexpr const char* kMediaFilter = "Supported Media Files|" TANDREL_PLAIN_TYPES ";*.webm" TANDREL_ALL_FILES;
constexpr const char* kHdFilter = "Supported HD Files|" TANDREL_PLAIN_TYPES ";*.mkv;*.hdmov;*.webm" TANDREL_ALL_FILES;
constexpr const char* kMkvFilter = "MKV Video Files|*.mkv";
constexpr const char* kSubtitlesFilter = "Subtitles Files|*.srt;*.txt" TANDREL_ALL_FILES;
#undef TANDREL_PLAIN_TYPES
#undef TANDREL_ALL_FILES

constexpr ChoiceRules kGroup{.flags = kSeveralFiles,
                             .filter = kMediaFilter,
                             .titleKey = "title.openMultiple",
                             .sameNameIsOpen = true,
                             .replaces = false,
                             .refusal = nullptr,
                             .refusesInForm = false,
                             .notAFileKey = "message.notForMultiple",
                             .keepsRecent = true};
constexpr ChoiceRules kSingle{.flags = kSingleFile,
                              .filter = kHdFilter,
                              .titleKey = nullptr,
                              .sameNameIsOpen = false,
                              .replaces = true,
                              .refusal = "Open up ",
                              .refusesInForm = false,
                              .notAFileKey = "message.notForMultiple",
                              .keepsRecent = true};
constexpr ChoiceRules kMkv{.flags = kSingleFile,
                           .filter = kMkvFilter,
                           .titleKey = "title.openMkv",
                           .sameNameIsOpen = true,
                           .replaces = true,
                           .refusal = "Open up to ",
                           .refusesInForm = true,
                           .notAFileKey = "message.notForSelections",
                           .keepsRecent = false};
constexpr ChoiceRules kSubtitles{.flags = kSingleFile,
                                 .filter = kSubtitlesFilter,
                                 .titleKey = "title.openSubtitles",
                                 .sameNameIsOpen = false,
                                 .replaces = false,
                                 .refusal = nullptr,
                                 .refusesInForm = false,
                                 .notAFileKey = nullptr,
                                 .keepsRecent = false};

constexpr int kCancelledByUser = 32755;
/// A drive and nothing else is this long, and no file's path is shorter.
constexpr int kLongestRoot = 4;

/// The caller's title is English; another language brings its own.
Text titleInLanguage(const char* key, const Text& english)
{
    if (key == nullptr)
        return english;
    const Text local = localised(key);
    return local == localisedIn(key, "EN") ? english : local;
}

Text withSeparator(const Text& folder)
{
    return trim(folder).empty() || folder.ends_with(kSeparator) ? folder : folder + kSeparator;
}

bool isBareName(const Text& path) { return path.find(kSeparator) == Text::npos; }

/// One operation of choosing, by its rules.
class Choice
{
public:
    Choice(class frmMedia& console, const ChoiceRules& rules) : console_(console), rules_(rules) {}

    /// `chosen` is the selection as a text, empty where nothing was chosen. What is new of it goes to both lists.
    void intoLists(const Text& title, Text& chosen);
    /// The text alone.
    Text ask(const Text& title);

private:
    using SameFile = std::function<bool(const Text& entry)>;

    // A file that is open is known by its window too, since the list may call it by its bare name: two windows of one
    // file would share its device.
    void takeSeveral(const Selection& selection);
    void takeSingle(const Selection& selection);
    bool isWanted(const Text& path, const SameFile& isSame) const;
    bool sameName(const Text& element, const Text& entry) const;
    void take(const Text& path);
    void refuse();

    class frmMedia& console_;
    const ChoiceRules& rules_;
};

Text Choice::ask(const Text& title)
{
    if (!console_.PresetSelection) {
        console_.SelectionText.clear();
        CommonDialog dialog(rules_.flags);
        dialog.Filter = rules_.filter;
        dialog.DialogTitle = titleInLanguage(rules_.titleKey, title);
        dialog.InitDir = console_.LastFolder;
        dialog.ShowOpen();
        console_.SelectionText = dialog.FileName;
    }
    return isCancelled(console_.SelectionText) ? Text() : console_.SelectionText;
}

void Choice::intoLists(const Text& title, Text& chosen)
{
    chosen = ask(title);
    console_.List1.Clear();
    const Selection selection = parseSelection(chosen);
    if (selection.kind == Selection::Kind::Multiple)
        takeSeveral(selection);
    else if (selection.kind == Selection::Kind::Single)
        takeSingle(selection);
    if (rules_.keepsRecent && !console_.PresetSelection)
        recent::update(console_.List1.entries());
}

void Choice::takeSeveral(const Selection& selection)
{
    console_.LastFolder = withSeparator(selection.folder);
    if (rules_.refusal != nullptr && selection.upperBound > MaxVideos + 1)
        return refuse();
    const bool preset = console_.PresetSelection;
    const bool byName = rules_.sameNameIsOpen && !preset;
    for (const Text& element : selection.elements) {
        const Text path = preset ? element : console_.LastFolder + element;
        const auto isSame = [&](const Text& entry) { return element == entry || (byName && sameName(element, entry)); };
        const bool isOpen = !rules_.replaces && slotPlaying(quoted(path));
        if (characterCount(element) > 1 && !isOpen && isWanted(path, isSame))
            take(path);
    }
}

void Choice::takeSingle(const Selection& selection)
{
    const Text& path = selection.elements.front();
    if (selection.ended && characterCount(path) <= kLongestRoot) {
        backend().messageBox(localised(rules_.notAFileKey), BoxStyle::Exclamation, AppTitle);
        return;
    }
    console_.LastFolder = folderOf(path) + kSeparator;
    if (!slotPlaying(quoted(path)) && isWanted(path, [&](const Text& entry) { return path == entry; }))
        take(path);
}

bool Choice::isWanted(const Text& path, const SameFile& isSame) const
{
    if (!rules_.replaces && console_.List2.ListCount() >= MaxVideos)
        return false;
    const auto& chosen = console_.List1.entries();
    if (std::find(chosen.begin(), chosen.end(), path) != chosen.end())
        return false;
    const auto& open = console_.List2.entries();
    return std::none_of(open.begin(), open.end(), isSame);
}

/// The two are found under the same name, each in its folder. A file that isn't there is like no other.
bool Choice::sameName(const Text& element, const Text& entry) const
{
    const auto found = [this](const Text& path) {
        return services().files->dir(path.starts_with(kSeparator) ? path : console_.LastFolder + path);
    };
    const Text name = found(element);
    return !name.empty() && name == (isBareName(entry) ? entry : found(entry));
}

void Choice::take(const Text& path)
{
    console_.List1.AddItem(path);
    console_.List2.AddItem(path);
}

void Choice::refuse()
{
    const Text message = rules_.refusal + text(MaxVideos) + " Videos simultaneously.";
    if (rules_.refusesInForm)
        console_.tell(message);
    else
        backend().messageBox(message, BoxStyle::Information, AppTitle);
}

void reportError(int number, const Text& description)
{
    if (number != kCancelledByUser)
        backend().messageBox("(" + std::to_string(number) + ") " + description, BoxStyle::Exclamation, "Open error");
    frmMedia().SelectionText.clear();
}

/// Runs an operation to its end, whatever goes wrong in it.
void chooseUnderTrap(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const RuntimeError& problem) {
        reportError(problem.number(), problem.description());
    } catch (const std::exception& problem) {
        reportError(error::kInvalidCall, problem.what());
    }
}

void chooseByRules(class frmMedia& console, const ChoiceRules& rules, const Text& title, Text& chosen)
{
    chosen.clear();
    chooseUnderTrap([&] { Choice(console, rules).intoLists(title, chosen); });
    // An error may have left the list of an earlier choice.
    if (chosen.empty())
        console.List1.Clear();
}

} // namespace

void frmMedia::GetFiles(Text title, Text& chosen) { chooseByRules(*this, kGroup, title, chosen); }

void frmMedia::GetFiles1(Text title, Text& chosen) { chooseByRules(*this, kSingle, title, chosen); }

void frmMedia::GetFiles2(Text title, Text& chosen) { chooseByRules(*this, kMkv, title, chosen); }

void frmMedia::GetFiles3(Text title, Text& chosen)
{
    chosen.clear();
    chooseUnderTrap([&] { chosen = Choice(*this, kSubtitles).ask(title); });
}

/// In the program's own form, which waits for the user.
void frmMedia::tell(const Text& message)
{
    class frmUpdate& form = frmUpdate();
    form.Caption = AppTitle;
    form.say(message);
    form.Show(ShowMode::Modal);
}

} // namespace tandrel
