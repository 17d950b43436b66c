#include "desktop/file_classes.h"

#include "platform/services.h"

#include <array>

namespace tandrel
{

namespace
{

constexpr const char* kProvider = "Tandrel Player";
constexpr const char* kClassFront = "TandrelPlayer.";
constexpr const char* kDiscClass = "TandrelPlayer._DVDMovie";
constexpr const char* kDiscHandler = "TandrelPlayerDVDMovieOnArrival";
constexpr const char* kAutoPlay = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\AutoPlayHandlers\\";

/// In the order of writing, and in the letters of their keys.
constexpr std::array<const char*, 14> kTypes{"AVI", "ASF", "MPG", "MPEG", "WMV",  "MP4",  "MKV",
                                             "MOV", "FLV", "3GP", "OGM",  "DivX", "Xvid", "WebM"};

Text iconOf(const Text& programFolder) { return programFolder + "\\Tandrel_Player.exe,0"; }

Text commandOf(const Text& programFolder, const char* argument)
{
    return programFolder + "\\Tandrel_Player.exe " + argument;
}

/// The five keys of a class, which is opened by one verb.
void writeClass(const Text& key, const Text& verb, const Text& icon, const Text& command)
{
    const auto write = [&](const Text& below, const Text& value) {
        RegistrySetString(Registry::kClasses, key + below, "", value);
    };
    write("", kProvider);
    write("\\DefaultIcon", icon);
    write("\\shell", verb);
    write("\\shell\\" + verb, kProvider);
    write("\\shell\\" + verb + "\\command", command);
}

void writeAutoPlay(const Text& icon)
{
    struct Row {
        const char* name;
        Text value;
    };
    const std::array<Row, 6> rows{{{"", ""},
                                   {"Action", "DVD Movie"},
                                   {"DefaultIcon", icon},
                                   {"InvokeProgID", kDiscClass},
                                   {"InvokeVerb", "Play"},
                                   {"Provider", kProvider}}};
    for (const Row& row : rows)
        RegistrySetString(Registry::kMachine, Text(kAutoPlay) + "Handlers\\" + kDiscHandler, row.name, row.value);
    RegistrySetString(Registry::kMachine, Text(kAutoPlay) + "EventHandlers\\PlayDVDMovieOnArrival", kDiscHandler, "");
}

} // namespace

void RegistrySetString(const std::int32_t& Root, const Text& KeyName, const Text& ValueName, const Text& Value)
{
    services().registry->set(Root, KeyName, ValueName, Value);
}

void writeFileClasses(const Text& programFolder, bool asDefault)
{
    const Text icon = iconOf(programFolder);
    for (const char* type : kTypes)
        writeClass(Text(kClassFront) + type, "Open", icon, commandOf(programFolder, "\"%L\""));
    writeClass(kDiscClass, "Play", icon, commandOf(programFolder, "DVD"));
    writeAutoPlay(icon);
    if (asDefault)
        for (const char* type : kTypes)
            RegistrySetString(Registry::kClasses, Text(".") + type, "", Text(kClassFront) + type);
    services().registry->settle();
}

} // namespace tandrel
