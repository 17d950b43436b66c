#include "toolkit/qt/key_strokes.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

struct NameRow {
    int code;
    const char* name;
};

constexpr std::array<NameRow, 18> kKeyNames{{{Qt::Key_Left, "Left"},
                                             {Qt::Key_Right, "Right"},
                                             {Qt::Key_Up, "Up"},
                                             {Qt::Key_Down, "Down"},
                                             {Qt::Key_Home, "Home"},
                                             {Qt::Key_End, "End"},
                                             {Qt::Key_PageUp, "PageUp"},
                                             {Qt::Key_PageDown, "PageDown"},
                                             {Qt::Key_Insert, "Insert"},
                                             {Qt::Key_Delete, "Delete"},
                                             {Qt::Key_Backspace, "Backspace"},
                                             {Qt::Key_Return, "Enter"},
                                             {Qt::Key_Enter, "Enter"},
                                             {Qt::Key_Escape, "Escape"},
                                             {Qt::Key_Tab, "Tab"},
                                             // What Tab is with Shift.
                                             {Qt::Key_Backtab, "Tab"},
                                             {Qt::Key_Print, "Print"},
                                             {Qt::Key_Space, "Space"}}};

/// Empty for one that has no name.
Text bareName(int code)
{
    const auto row =
        std::find_if(kKeyNames.begin(), kKeyNames.end(), [code](const NameRow& one) { return one.code == code; });
    if (row != kKeyNames.end())
        return row->name;
    if (code >= Qt::Key_F1 && code < Qt::Key_F1 + kFunctionKeys)
        return "F" + std::to_string(code - Qt::Key_F1 + 1);
    // What is below stands for its character.
    constexpr int kFirstSpecial = Qt::Key_Escape;
    return code > 0 && code < kFirstSpecial ? QString(QChar(code)).toStdString() : Text();
}

} // namespace

KeyStroke strokeOf(const QKeyEvent& event)
{
    Text name = bareName(event.key());
    if (!name.empty()) {
        const Qt::KeyboardModifiers held = event.modifiers();
        const auto put = [&](Qt::KeyboardModifier modifier, const char* word) {
            return held.testFlag(modifier) ? word : "";
        };
        name = Text(put(Qt::ControlModifier, "Ctrl+")) + put(Qt::AltModifier, "Alt+") +
               put(Qt::ShiftModifier, "Shift+") + put(Qt::MetaModifier, "Meta+") + name;
    }
    const QString typed = event.text();
    return {keyNamed(name).value_or(Text()), typed.isEmpty() ? 0 : typed.front().unicode(), event.isAutoRepeat()};
}

} // namespace tandrel
