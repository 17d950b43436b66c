/// Windows that are seen through.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// What `SetLayered` goes by.
namespace layered
{
inline constexpr int kColourKey = 1;
inline constexpr int kAlpha = 2;
} // namespace layered

/// Makes the form a layered one, and then all pixels of the colour `key` (as of `rgb`) clear, or the whole of it as
/// opaque as `alpha` (0 to 255) says. Where the system can't, nothing else happens.
void SetLayered(Form& form, Long key, Long alpha, int flag);

/// One step of a fade: below 255 the form is as opaque as `alpha` says; 255 ends the fade with an opaque layered form.
/// With a `key` of 0 or above that colour is cut out of it instead.
void FadeWindow(Form& form, Long alpha, Long key = -1);

/// The whole fade: the form comes up from invisible to opaque in steps, as fast as it can be painted.
void fadeIn(Form& form);

} // namespace tandrel
