#include "video/trouble_label.h"

#include "media/shared_state.h"
#include "texts/localised.h"

namespace tandrel
{

namespace
{

constexpr int kLabelHeight = 600;

const char* keyOf(MediaTrouble trouble)
{
    switch (trouble) {
    case MediaTrouble::CodecMissing:
        return "message.codecMissing";
    case MediaTrouble::Encrypted:
        return "message.discEncrypted";
    case MediaTrouble::NotPlayable:
    case MediaTrouble::None:
        break;
    }
    return "message.cannotPlay";
}

} // namespace

TroubleLabel::TroubleLabel(Form& form, Control& container)
    : Label(form, "lblTrouble", {0, 0, 1, kLabelHeight}, "", &container)
{
    alignment = Alignment::Centre;
    role = TextRole::Quiet;
    wordWrap = true;
    Visible = false;
}

void TroubleLabel::placeIn(Long width, Long height) { move({0, (height - kLabelHeight) / 2, width, kLabelHeight}); }

void TroubleLabel::tell(MediaTrouble trouble)
{
    if (trouble == MediaTrouble::None || told_)
        return;
    told_ = true;
    const Text message = localised(keyOf(trouble));
    Caption = message;
    Visible = true;
    if (trouble != MediaTrouble::NotPlayable)
        backend().messageBox(message, BoxStyle::Exclamation, AppTitle);
}

void TroubleLabel::forget()
{
    told_ = false;
    Visible = false;
}

} // namespace tandrel
