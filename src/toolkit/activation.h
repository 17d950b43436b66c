/// Which form is the active one, and when its activation runs.
///
/// The program's own changes are synchronous: `Show` and `SetFocus` run the activation of the form once before they
/// return, with or without a window manager. The window system reports the same change again, later; that report is
/// swallowed. A change that the user makes is known from the report, or from a press inside a form that is not active.
#pragma once

#include <memory>

namespace tandrel
{

class Form;

/// The active form, or null.
Form* activeForm();

/// The program makes a form active. Runs its activation unless it is active already.
void activate(Form& form);

/// The window system says that the form's window has become the active one.
void windowActivated(Form& form);

/// The user pressed a mouse button in the form, which makes it active if it isn't.
void userPressed(Form& form);

/// Another program has become the active one.
void applicationDeactivated();

/// The form is hidden or ends: it is not active any more, and no report of it counts.
void forgetActivation(const Form& form);

} // namespace tandrel
