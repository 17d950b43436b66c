#include "console/console_controls.h"

#include "console/button_ids.h"
#include "toolkit/screen.h"

#include <array>

namespace tandrel
{

namespace
{

// Stored captions of the hidden buttons; index 5 has none.
constexpr std::array<const char*, command::kCount> kCaptions{"Play", "Pause", "Stop", "Open",
                                                             "Help", nullptr, "_",    "X"};

/// One button for each caption; none where there is no caption.
template <std::size_t Count>
std::vector<std::unique_ptr<CommandButton>>
buttonRow(Form& form, const Text& name, const std::array<const char*, Count>& captions, TwipsRect first, Long pitch)
{
    std::vector<std::unique_ptr<CommandButton>> row(Count);
    for (std::size_t index = 0; index < Count; ++index) {
        const TwipsRect place{first.left + pitch * static_cast<int>(index), first.top, first.width, first.height};
        if (captions[index])
            row[index] = std::make_unique<CommandButton>(form, name + std::to_string(index), place, captions[index]);
    }
    return row;
}

} // namespace

ConsoleControls::ConsoleControls()
    : Form("frmMedia", Frame::Skin, {screen().FirstLeft(), screen().FirstTop(), 13500, 3180})
{
}

std::vector<std::unique_ptr<CommandButton>> ConsoleControls::makeCommandRow()
{
    return buttonRow(*this, "cmdMedia", kCaptions, {0, 0, 300, 300}, 0);
}

std::vector<std::unique_ptr<CommandButton>> ConsoleControls::makeSizeRow()
{
    // The larger stands at the right of the size, the smaller at its left.
    auto row = buttonRow<size::kCount>(*this, "cmdSize", {"+", "-"}, {10530, 2790, 315, 270}, -1215);
    for (auto& button : row) {
        button->compact = true;
        button->ToolTip = Label1.caption() + " " + button->caption();
    }
    return row;
}

} // namespace tandrel
