#include "platform/mpv/output_choice.h"

#include "platform/mpv/graphics_probe.h"
#include "platform/output/sound_outputs.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace tandrel
{

namespace
{
bool findGraphicsCard()
{
    // Without a render node there is nothing to ask, and no driver has to be loaded to learn that.
    if (!hasEntry("/dev/dri", "renderD"))
        return false;
    const std::string renderer = probeRenderer();
    return !renderer.empty() && !isSoftwareRenderer(renderer);
}

/// Asked for by each player, and the same for all of them.
bool hasGraphicsCard()
{
    static const bool has = findGraphicsCard();
    return has;
}
} // namespace

bool isSoftwareRenderer(const std::string& renderer)
{
    constexpr std::array<std::string_view, 4> kSoftware{"llvmpipe", "softpipe", "swrast", "Software"};
    for (const auto name : kSoftware)
        if (renderer.find(name) != std::string::npos)
            return true;
    return false;
}

HandleSettings chooseOutputs(bool outputs)
{
    HandleSettings settings;
    if (!outputs) {
        settings.videoOutput = "null";
        settings.audioOutput = "null";
        return settings;
    }
    const auto environment = [](const char* name) -> const char* { return std::getenv(name); };
    const auto told = [&](const char* name) {
        const char* value = environment(name);
        return std::string(value == nullptr ? "" : value);
    };
    settings.audioOutput = told("TANDREL_AO");
    if (settings.audioOutput.empty())
        settings.audioOutput = soundOutputs("/", environment);
    const std::string videoOutput = told("TANDREL_VO");
    if (!videoOutput.empty()) {
        settings.videoOutput = videoOutput;
    } else if (hasGraphicsCard()) {
        settings.videoOutput = "gpu";
        settings.hardwareDecoding = true;
    }
    return settings;
}

} // namespace tandrel
