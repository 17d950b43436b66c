#include "platform/disc/disc_reading.h"

#include "platform/disc/disc_limits.h"
#include "platform/disc/facts_text.h"
#include "platform/disc/probing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <dvdread/dvd_reader.h>
#include <dvdread/ifo_read.h>
#include <filesystem>
#include <map>
#include <memory>

namespace tandrel
{

namespace
{
struct CloseTables {
    void operator()(ifo_handle_t* tables) const { ifoClose(tables); }
};
using Tables = std::unique_ptr<ifo_handle_t, CloseTables>;

constexpr int kTitleMenu = 2;
constexpr int kRootMenu = 3;

void logNothing(void*, dvd_logger_level_t, const char*, va_list) {}

int fromBcd(std::uint8_t value) { return (value >> 4) * 10 + (value & 0xF); }

/// Pictures a second; 0 for a code that is none.
double rateOf(const dvd_time_t& time)
{
    switch (time.frame_u >> 6) {
    case 1:
        return 25;
    case 3:
        return 30000.0 / 1001;
    default:
        return 0;
    }
}

double secondsOf(const dvd_time_t& time)
{
    const double rate = rateOf(time);
    const double pictures = rate > 0 ? fromBcd(time.frame_u & 0x3F) / rate : 0;
    return fromBcd(time.hour) * 3600.0 + fromBcd(time.minute) * 60.0 + fromBcd(time.second) + pictures;
}

const pgc_t* programChain(const ifo_handle_t& tables, int number)
{
    const pgcit_t* chains = tables.vts_pgcit;
    if (chains == nullptr || chains->pgci_srp == nullptr || number < 1 || number > chains->nr_of_pgci_srp)
        return nullptr;
    return chains->pgci_srp[number - 1].pgc;
}

/// Where a program of the chain begins.
double beginOf(const pgc_t& chain, int program)
{
    double seconds = 0;
    const int firstCell = chain.program_map[program - 1];
    for (int cell = 0; cell < std::min<int>(firstCell - 1, chain.nr_of_cells); ++cell)
        seconds += secondsOf(chain.cell_playback[cell].playback_time);
    return seconds;
}

std::vector<double> chapterMarks(const ttu_t& chapters, const pgc_t& chain)
{
    std::vector<double> marks;
    if (chain.program_map == nullptr || chain.cell_playback == nullptr)
        return marks;
    // A title may go on in other chains, whose times are counted apart.
    for (int index = 0; index < std::min<int>(chapters.nr_of_ptts, kMostChapters); ++index) {
        const ptt_info_t& chapter = chapters.ptt[index];
        if (chapter.pgcn != chapters.ptt[0].pgcn || chapter.pgn < 1 || chapter.pgn > chain.nr_of_programs)
            break;
        marks.push_back(beginOf(chain, chapter.pgn));
    }
    return marks;
}

DiscFacts::Title readTitle(const ifo_handle_t& tables, int numberInSet)
{
    DiscFacts::Title title;
    const vts_ptt_srpt_t* titles = tables.vts_ptt_srpt;
    if (titles == nullptr || titles->title == nullptr || numberInSet < 1 || numberInSet > titles->nr_of_srpts)
        return title;
    const ttu_t& chapters = titles->title[numberInSet - 1];
    if (chapters.ptt == nullptr || chapters.nr_of_ptts < 1)
        return title;
    const pgc_t* chain = programChain(tables, chapters.ptt[0].pgcn);
    if (chain == nullptr)
        return title;
    title.seconds = secondsOf(chain->playback_time);
    title.frameRate = rateOf(chain->playback_time);
    title.chapters = std::min<int>(chapters.nr_of_ptts, kMostChapters);
    title.chapterMarks = chapterMarks(chapters, *chain);
    return title;
}

/// Of the menus in any language, one is entered by this name.
bool hasMenu(const ifo_handle_t& tables, int entry)
{
    constexpr int isEntry = 0x80;
    const pgci_ut_t* menus = tables.pgci_ut;
    if (menus == nullptr || menus->lu == nullptr)
        return false;
    for (int language = 0; language < menus->nr_of_lus; ++language) {
        const pgcit_t* chains = menus->lu[language].pgcit;
        for (int chain = 0; chains != nullptr && chains->pgci_srp != nullptr && chain < chains->nr_of_pgci_srp; ++chain)
            if (chains->pgci_srp[chain].entry_id == (isEntry | entry))
                return true;
    }
    return false;
}

std::string labelOf(dvd_reader_t* disc, const std::string& path)
{
    // Room for the 32 characters of either kind of file system, at four bytes each.
    std::array<char, 136> label{};
    std::array<unsigned char, 128> set{};
    const auto size = static_cast<unsigned>(label.size() - 1);
    const bool known = DVDUDFVolumeInfo(disc, label.data(), size, set.data(), set.size()) == 0 && label[0] != '\0';
    if (!known && DVDISOVolumeInfo(disc, label.data(), size, set.data(), set.size()) != 0)
        label[0] = '\0';
    const std::string found = cleanLabel(label.data());
    std::error_code problem;
    if (!found.empty() || !std::filesystem::is_directory(path, problem))
        return found;
    std::filesystem::path folder = std::filesystem::absolute(path, problem).lexically_normal();
    if (folder.filename().empty())
        folder = folder.parent_path();
    const std::string name = folder.filename().string();
    return cleanLabel(name == "VIDEO_TS" || name == "video_ts" ? folder.parent_path().filename().string() : name);
}

struct TitleSet {
    Tables tables;
    double longestTitle = 0;
};
using TitleSets = std::map<int, TitleSet>;

/// Reads the tables of each set once.
void readTitles(dvd_reader_t* disc, TitleSets& sets, DiscLook& look)
{
    DiscFacts& facts = look.facts;
    const Tables main(ifoOpen(disc, 0));
    if (main == nullptr || main->tt_srpt == nullptr || main->tt_srpt->title == nullptr)
        return;
    look.hasTitleMenu = hasMenu(*main, kTitleMenu);
    const int count = std::min<int>(main->tt_srpt->nr_of_srpts, kMostTitles);
    for (int index = 0; index < count; ++index) {
        const title_info_t& title = main->tt_srpt->title[index];
        const int number = title.title_set_nr;
        if (number > 0 && !sets.contains(number))
            sets[number].tables.reset(ifoOpen(disc, number));
        const bool known = number > 0 && sets[number].tables != nullptr;
        facts.titles.push_back(known ? readTitle(*sets[number].tables, title.vts_ttn) : DiscFacts::Title());
        look.hasRootMenu.push_back(known && hasMenu(*sets[number].tables, kRootMenu));
        if (known)
            sets[number].longestTitle = std::max(sets[number].longestTitle, facts.titles.back().seconds);
    }
}

/// A drive takes its time for each place, so there are few; most of them in the longest film.
Probes probeSets(dvd_reader_t* disc, const TitleSets& sets)
{
    constexpr int kPlacesInFilm = 6;
    constexpr std::size_t kMostSets = 4;
    std::vector<std::pair<double, int>> order;
    for (const auto& [number, set] : sets)
        if (set.tables != nullptr)
            order.emplace_back(-set.longestTitle, number);
    std::sort(order.begin(), order.end());
    Probes probes;
    for (std::size_t index = 0; index < std::min(order.size(), kMostSets); ++index) {
        const int number = order[index].second;
        probe(disc, number, *sets.at(number).tables, index == 0 ? kPlacesInFilm : 1, probes);
    }
    return probes;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
} // namespace

DiscLook readDisc(const std::string& path)
{
    DiscLook look;
    const dvd_logger_cb silent{&logNothing};
    dvd_reader_t* disc = DVDOpen2(nullptr, &silent, path.c_str());
    if (disc == nullptr)
        return look;
    {
        TitleSets sets;
        readTitles(disc, sets, look);
        const Probes probes = probeSets(disc, sets);
        look.facts.encrypted = probes.scrambled && !canDecrypt();
        if (!probes.pictureLeads.empty())
            look.pictureLead = median(probes.pictureLeads);
    }
    if (!look.facts.titles.empty())
        look.facts.label = labelOf(disc, path);
    DVDClose(disc);
    return look;
}

} // namespace tandrel
