#include "platform/mpv/output_choice.h"

#include "platform/mpv/graphics_probe.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace tandrel
{

namespace
{
bool hasEntry(const std::filesystem::path& folder, std::string_view start, std::string_view end = "")
{
    std::error_code problem;
    for (const auto& entry : std::filesystem::directory_iterator(folder, problem)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(start) && name.ends_with(end))
            return true;
    }
    return false;
}

bool hasGraphicsCard()
{
    // Without a render node there is nothing to ask, and no driver has to be loaded to learn that.
    if (!hasEntry("/dev/dri", "renderD"))
        return false;
    const std::string renderer = probeRenderer();
    return !renderer.empty() && !isSoftwareRenderer(renderer);
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

std::string soundOutputs(const std::filesystem::path& root, const std::function<const char*(const char*)>& environment)
{
    std::string list;
    const auto offer = [&](bool there, std::string_view output) {
        if (there)
            list += std::string(output) + ",";
    };
    const char* runtime = environment("XDG_RUNTIME_DIR");
    const std::filesystem::path sockets =
        root / std::filesystem::path(runtime == nullptr ? "" : runtime).relative_path();
    const bool hasSockets = runtime != nullptr && *runtime != '\0';
    std::error_code problem;
    offer(hasSockets && hasEntry(sockets, "pipewire-0"), "pipewire");
    offer(environment("PULSE_SERVER") != nullptr ||
              (hasSockets && std::filesystem::exists(sockets / "pulse/native", problem)),
          "pulse");
    offer(hasEntry(root / "dev/snd", "pcm", "p"), "alsa");
    return list.empty() ? list : list + "null";
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
