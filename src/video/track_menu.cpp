#include "video/track_menu.h"

#include "texts/localised.h"
#include "toolkit/menu.h"

#include <memory>

namespace tandrel
{

namespace
{

/// In a menu a single "&" would mark a letter.
Text menuText(const Text& name)
{
    Text shown;
    for (const char c : name)
        shown += c == '&' ? Text("&&") : Text(1, c);
    return shown;
}

struct KindRow {
    MediaTrack::Kind kind;
    const char* name;
    const char* key;
};
constexpr KindRow kKinds[] = {{MediaTrack::Kind::Audio, "mnuSound", "track.sound"},
                              {MediaTrack::Kind::Subtitle, "mnuSubtitles", "track.subtitles"}};

} // namespace

void popUpTracks(Form& form, const std::vector<MediaTrack>& tracks,
                 const std::function<void(MediaTrack::Kind kind, int id)>& choose)
{
    Menu top(form, "mnuTracks");
    // Entries know their heads, which therefore may not move.
    std::vector<std::unique_ptr<Menu>> menus;
    for (const KindRow& row : kKinds) {
        Menu* head = nullptr;
        for (const MediaTrack& track : tracks) {
            if (track.kind != row.kind)
                continue;
            if (head == nullptr)
                head = menus.emplace_back(std::make_unique<Menu>(top, row.name, localised(row.key))).get();
            const Text caption = track.id < 0 ? localised("track.none") : menuText(track.name);
            Menu& entry = *menus.emplace_back(
                std::make_unique<Menu>(*head, head->name() + text(static_cast<int>(head->entries().size())), caption));
            entry.Checked = track.chosen;
            entry.Click = [&choose, kind = track.kind, id = track.id] { choose(kind, id); };
        }
    }
    PopupMenu(top);
}

} // namespace tandrel
