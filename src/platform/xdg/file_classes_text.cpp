#include "platform/xdg/file_classes_text.h"

#include <algorithm>
#include <array>
#include <map>

namespace tandrel
{

namespace
{

/// The first name of a type is the one that its endings are told for; the other is that of other years.
struct Row {
    const char* ending;
    const char* type;
    const char* otherName;
};
constexpr std::array<Row, 14> kRows{{{"AVI", "video/x-msvideo", "video/vnd.avi"},
                                     {"ASF", "application/vnd.ms-asf", "video/x-ms-asf"},
                                     {"MPG", "video/mpeg", nullptr},
                                     {"MPEG", "video/mpeg", nullptr},
                                     {"WMV", "video/x-ms-wmv", nullptr},
                                     {"MP4", "video/mp4", nullptr},
                                     {"MKV", "video/x-matroska", nullptr},
                                     {"MOV", "video/quicktime", nullptr},
                                     {"FLV", "video/x-flv", nullptr},
                                     {"3GP", "video/3gpp", nullptr},
                                     {"OGM", "video/x-ogm+ogg", nullptr},
                                     {"DIVX", "video/x-msvideo", "video/vnd.avi"},
                                     {"XVID", "video/x-msvideo", "video/vnd.avi"},
                                     {"WEBM", "video/webm", nullptr}}};

/// Lines of an entry in the languages that the program speaks.
constexpr const char* kGenericNames = R"(GenericName=Video Player
GenericName[de]=Videoplayer
GenericName[es]=Reproductor de vídeo
GenericName[fr]=Lecteur vidéo
GenericName[it]=Lettore video
GenericName[pt]=Reprodutor de vídeo
)";
constexpr const char* kComments = R"(Comment=Play many videos at once, HD films and discs
Comment[de]=Viele Videos zugleich abspielen, HD-Filme und DVDs
Comment[es]=Reproducir muchos vídeos a la vez, películas HD y discos
Comment[fr]=Lire plusieurs vidéos à la fois, des films HD et des disques
Comment[it]=Riprodurre molti video insieme, film HD e dischi
Comment[pt]=Reproduzir muitos vídeos ao mesmo tempo, filmes HD e discos
)";
constexpr const char* kKeywords = R"(Keywords=video;film;movie;DVD;player;
Keywords[de]=Video;Film;DVD;Player;abspielen;
Keywords[es]=vídeo;película;DVD;reproductor;
Keywords[fr]=vidéo;film;DVD;lecteur;
Keywords[it]=video;film;DVD;lettore;
Keywords[pt]=vídeo;filme;DVD;reprodutor;
)";
constexpr const char* kNames = R"(Name=Tandrel Player
Name[de]=Tandrel Player
Name[es]=Tandrel Player
Name[fr]=Tandrel Player
Name[it]=Tandrel Player
Name[pt]=Tandrel Player
)";
constexpr const char* kPlayDisc = R"(Name=Play a Disc
Name[de]=DVD abspielen
Name[es]=Reproducir un disco
Name[fr]=Lire un disque
Name[it]=Riproduci un disco
Name[pt]=Reproduzir um disco
)";

const Row* rowOf(const std::string& ending)
{
    const auto found = std::find_if(kRows.begin(), kRows.end(), [&](const Row& row) { return ending == row.ending; });
    return found == kRows.end() ? nullptr : &*found;
}

/// A value of an entry: a line, in which a backslash begins something else.
std::string entryValue(std::string_view text)
{
    std::string result;
    for (const char one : text) {
        if (one == '\\')
            result += "\\\\";
        else if (one == '\n')
            result += "\\n";
        else if (one == '\r')
            result += "\\r";
        else if (one == '\t')
            result += "\\t";
        else
            result += one;
    }
    return result;
}

std::string lowered(std::string text)
{
    for (char& one : text)
        one = one >= 'A' && one <= 'Z' ? static_cast<char>(one - 'A' + 'a') : one;
    return text;
}

std::string listed(const std::vector<std::string>& values)
{
    std::string result;
    for (const std::string& value : values)
        result += value + ";";
    return result;
}

} // namespace

std::vector<std::string> mimeTypesOf(const std::vector<std::string>& endings)
{
    std::vector<std::string> types;
    const auto take = [&](const char* type) {
        if (type && std::find(types.begin(), types.end(), type) == types.end())
            types.emplace_back(type);
    };
    for (const std::string& ending : endings)
        if (const Row* row = rowOf(ending)) {
            take(row->type);
            take(row->otherName);
        }
    return types;
}

std::vector<std::string> allMimeTypes()
{
    std::vector<std::string> endings;
    std::transform(kRows.begin(), kRows.end(), std::back_inserter(endings), [](const Row& row) { return row.ending; });
    return mimeTypesOf(endings);
}

std::string execWord(const std::string& word)
{
    std::string quoted = "\"";
    bool plain = true;
    for (const char one : word) {
        const std::string_view all = R"( "'\><~|&;$*?#()`)";
        plain = plain && all.find(one) == std::string_view::npos && one != '\n' && one != '\t' && one != '\r';
        if (one == '"' || one == '`' || one == '$' || one == '\\')
            quoted += '\\';
        quoted += one;
        if (one == '%')
            quoted += '%';
    }
    quoted += '"';
    if (plain)
        quoted = quoted.substr(1, quoted.size() - 2);
    return entryValue(quoted);
}

std::string playerEntry(const FileClasses& classes, const EntryPrograms& programs)
{
    std::string text = "[Desktop Entry]\nVersion=1.0\nType=Application\n";
    text += std::string(kNames) + kGenericNames + kComments;
    text += kKeywords;
    text += "Exec=" + execWord(programs.opener) + " %F\n";
    text += "TryExec=" + entryValue(programs.opener) + "\n";
    text += "Icon=tandrel-player\nTerminal=false\nCategories=AudioVideo;Video;Player;Qt;\n";
    text += "StartupWMClass=tandrel-player\n";
    text += "MimeType=" + listed(mimeTypesOf(classes.opened)) + "\n";
    text += std::string("Actions=PlayDisc;\n\n[Desktop Action PlayDisc]\n") + kPlayDisc;
    return text + "Exec=" + execWord(programs.player) + " DVD\n";
}

std::string discEntry(const EntryPrograms& programs)
{
    std::string text = "[Desktop Entry]\nVersion=1.0\nType=Application\n";
    text += std::string(kNames) + kGenericNames + kComments;
    text += "Exec=" + execWord(programs.player) + " DVD\n";
    text += "TryExec=" + entryValue(programs.player) + "\n";
    text += "Icon=tandrel-player\nTerminal=false\nNoDisplay=true\nCategories=AudioVideo;Video;Player;Qt;\n";
    text += "StartupWMClass=tandrel-player\n";
    return text + "MimeType=" + std::string(kDiscType) + ";\n";
}

std::string mimePackage(const FileClasses& classes)
{
    std::map<std::string, std::vector<std::string>> endings;
    for (const std::string& ending : classes.opened)
        if (const Row* row = rowOf(ending))
            endings[row->type].push_back(lowered(ending));
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n";
    for (const auto& [type, all] : endings) {
        text += "  <mime-type type=\"" + type + "\">\n";
        // Below the weight of the desktop's own, which is 50.
        for (const std::string& ending : all)
            text += "    <glob pattern=\"*." + ending + "\" weight=\"40\"/>\n";
        text += "  </mime-type>\n";
    }
    return text + "</mime-info>\n";
}

} // namespace tandrel
