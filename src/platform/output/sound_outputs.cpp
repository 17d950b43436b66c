#include "platform/output/sound_outputs.h"

namespace tandrel
{

bool hasEntry(const std::filesystem::path& folder, std::string_view start, std::string_view end)
{
    std::error_code problem;
    for (const auto& entry : std::filesystem::directory_iterator(folder, problem)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(start) && name.ends_with(end))
            return true;
    }
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

} // namespace tandrel
