// Which tracks of a film play, and what they are called.
#include "platform/languages.h"
#include "platform/mpv/film_tracks.h"
#include "platform/valid_text.h"

#include <gtest/gtest.h>
#include <map>

namespace tandrel
{

namespace
{
FilmTrack sound(int id, const char* language, bool byDefault = false)
{
    return {.kind = FilmTrack::Kind::Audio, .id = id, .language = language, .codec = "aac", .byDefault = byDefault};
}
FilmTrack text(int id, const char* language, bool byDefault = false, bool forced = false)
{
    return {.kind = FilmTrack::Kind::Subtitle,
            .id = id,
            .language = language,
            .codec = "subrip",
            .byDefault = byDefault,
            .forced = forced};
}
std::string languageIn(const std::map<std::string, const char*>& variables)
{
    return desktopLanguage([&](const char* name) -> const char* {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second;
    });
}
struct Row {
    const char* what;
    std::vector<FilmTrack> tracks;
    const char* language;
    int audio;
    int subtitle;
};
} // namespace

TEST(FilmLanguages, TheFirstThatIsSetCounts)
{
    struct Row {
        const char* all;
        const char* messages;
        const char* lang;
        const char* language;
    };
    constexpr Row kRows[]{{nullptr, nullptr, nullptr, ""},    {"de_DE.UTF-8", "fr_FR", "it", "de"},
                          {"", "fr_FR.UTF-8", "it_IT", "fr"}, {nullptr, nullptr, "it", "it"},
                          {"C", nullptr, "de_DE", ""},        {"C.UTF-8", nullptr, nullptr, ""},
                          {"POSIX", nullptr, nullptr, ""},    {"ca_ES@valencia", nullptr, nullptr, "ca"},
                          {"--vout", nullptr, nullptr, ""},   {"english", nullptr, nullptr, ""}};
    for (const Row& row : kRows) {
        const auto environment = [&](const char* name) {
            const std::string asked = name;
            return asked == "LC_ALL" ? row.all : asked == "LC_MESSAGES" ? row.messages : row.lang;
        };
        EXPECT_EQ(desktopLanguage(environment), row.language) << (row.all == nullptr ? "" : row.all);
    }
}

TEST(FilmLanguages, TheDesktopNamesOne)
{
    EXPECT_EQ(languageIn({{"LANG", "de_AT.UTF-8"}}), "de");
    EXPECT_EQ(languageIn({{"LANG", "de_AT.UTF-8"}, {"LC_MESSAGES", "fr_FR"}}), "fr");
    EXPECT_EQ(languageIn({{"LANG", "de_AT.UTF-8"}, {"LC_ALL", "C.UTF-8"}}), "");
    EXPECT_EQ(languageIn({{"LANG", "it"}, {"LC_ALL", ""}}), "it");
    EXPECT_EQ(languageIn({{"LANG", "POSIX"}}), "");
    EXPECT_EQ(languageIn({}), "");
}

TEST(FilmLanguages, MediaNameThemInManyWays)
{
    for (const char* name : {"de", "ger", "deu", "GER", "de-AT", "de_DE"})
        EXPECT_TRUE(isLanguage(name, "de")) << name;
    for (const char* name : {"", "d", "den", "en", "und", "german"})
        EXPECT_FALSE(isLanguage(name, "de")) << name;
    EXPECT_FALSE(isLanguage("", ""));
    EXPECT_FALSE(isLanguage("eng", ""));
    EXPECT_TRUE(isLanguage("tlh", "tlh"));
}

TEST(FilmTracks, WhatPlaysIfNobodyChooses)
{
    const Row rows[]{
        {"nothing", {}, "de", -1, -1},
        {"the first", {sound(1, ""), sound(2, "")}, "de", 1, -1},
        {"the preferred one", {sound(1, "eng"), sound(2, "fre", true)}, "de", 2, -1},
        {"the user's", {sound(1, "eng", true), sound(2, "ger")}, "de", 2, -1},
        {"texts for foreign sound", {sound(1, "eng"), text(1, "fre"), text(2, "ger")}, "de", 1, 2},
        {"whole texts before forced ones", {sound(1, "eng"), text(1, "ger", false, true), text(2, "ger")}, "de", 1, 2},
        {"no texts for sound of the user's", {sound(1, "ger"), text(1, "ger", true), text(2, "eng")}, "de", 1, -1},
        {"forced ones for sound of the user's",
         {sound(1, "ger"), text(1, "ger"), text(2, "ger", false, true)},
         "de",
         1,
         2},
        {"no forced ones in another language", {sound(1, "ger"), text(1, "eng", false, true)}, "de", 1, -1},
        {"preferred texts where none is the user's",
         {sound(1, "eng"), text(1, "fre"), text(2, "spa", true)},
         "de",
         1,
         2},
        {"no texts that nobody asks for", {sound(1, "eng"), text(1, "fre")}, "de", 1, -1},
        {"no language", {sound(1, "eng"), sound(2, "ger"), text(1, "ger")}, "", 1, -1},
        {"preferred texts without a language", {sound(1, "eng"), text(1, "ger", true)}, "", 1, 1},
    };
    for (const Row& row : rows) {
        const TrackChoice choice = chooseTracks(row.tracks, row.language);
        EXPECT_EQ(choice.audio, row.audio) << row.what;
        EXPECT_EQ(choice.subtitle, row.subtitle) << row.what;
    }
}

TEST(FilmTracks, WhatCannotBeDecodedComesLast)
{
    FilmTrack german = sound(1, "ger");
    german.decodable = false;
    EXPECT_EQ(chooseTracks({german, sound(2, "eng")}, "de").audio, 2);
    FilmTrack picture{.id = 1};
    EXPECT_EQ(troubleOf({picture, german}), MediaTrouble::None);
    EXPECT_EQ(troubleOf({german}), MediaTrouble::CodecMissing);
    picture.decodable = false;
    EXPECT_EQ(troubleOf({picture, sound(1, "")}), MediaTrouble::CodecMissing);
    EXPECT_EQ(troubleOf({picture, FilmTrack{.id = 2}}), MediaTrouble::None);
    EXPECT_EQ(chooseTracks({picture, FilmTrack{.id = 2}}, "").picture, 2);
    EXPECT_EQ(chooseTracks({picture, sound(1, "")}, "").picture, -1);
    EXPECT_EQ(troubleOf({text(1, "ger")}), MediaTrouble::NotPlayable);
}

TEST(FilmTracks, NamesAreValidText)
{
    FilmTrack named = sound(3, "eng");
    named.title = "Com\xffmentary";
    named.codec = "eac3";
    named.chosen = true;
    const auto tracks = nameTracks({text(1, ""), named, sound(4, "")});
    ASSERT_EQ(tracks.size(), 4U);
    EXPECT_EQ(tracks[0], (MediaTrack{MediaTrack::Kind::Audio, 3, "Com?mentary (eng, E-AC-3)", true}));
    EXPECT_EQ(tracks[1].name, "4 (AAC)");
    EXPECT_EQ(tracks[2], (MediaTrack{MediaTrack::Kind::Subtitle, -1, "", true}));
    EXPECT_EQ(tracks[3].name, "1 (SRT)");
    EXPECT_EQ(nameTracks({named}).size(), 1U);
}

TEST(FilmTracks, WhatIsNoTextIsMarked)
{
    EXPECT_EQ(validText("a\u00e4\u20ac\U0001F600"), "a\u00e4\u20ac\U0001F600");
    EXPECT_EQ(validText("\xc3"), "?");
    EXPECT_EQ(validText("\xe2\x82"), "??");
    EXPECT_EQ(validText("\xc0\x80"), "??");
    EXPECT_EQ(validText("\xed\xa0\x80"), "???");
    EXPECT_EQ(validText("\xf5xyz"), "?xyz");
}

} // namespace tandrel
