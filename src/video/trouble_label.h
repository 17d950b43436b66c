/// What a control says in the place of its picture where a medium doesn't play.
#pragma once

#include "platform/players.h"
#include "toolkit/form.h"

namespace tandrel
{

/// Lies in `container`, a control of `form`. Hidden until there is something to say.
class TroubleLabel : public Label
{
public:
    TroubleLabel(Form& form, Control& container);

    /// The middle of a picture of this size, in twips.
    void placeIn(Long width, Long height);
    /// Says what is wrong, once until `forget`. What the user could mend comes in a message box too.
    void tell(MediaTrouble trouble);
    void forget();

private:
    bool told_ = false;
};

} // namespace tandrel
