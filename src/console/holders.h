/// The forms that exist once, each reached by its name. The first touch loads it.
#pragma once

namespace tandrel
{

class frmStart;
class frmMedia;
class frmPanel;
class frmWait;
class frmToolTip;
class slidemenu;

class frmStart& frmStart();
class frmMedia& frmMedia();
class frmPanel& frmPanel();
class frmWait& frmWait();
class frmToolTip& frmToolTip();
class slidemenu& slidemenu();

/// Asking for a form does not load it: `Loaded<class frmWait>()`.
template <class F>
bool Loaded();

/// Ends a form if it is loaded: `Unload<class frmWait>()`.
template <class F>
void Unload();

template <>
bool Loaded<class frmStart>();
template <>
bool Loaded<class frmMedia>();
template <>
bool Loaded<class frmPanel>();
template <>
bool Loaded<class frmWait>();
template <>
bool Loaded<class frmToolTip>();
template <>
bool Loaded<class slidemenu>();
template <>
void Unload<class frmStart>();
template <>
void Unload<class frmMedia>();
template <>
void Unload<class frmPanel>();
template <>
void Unload<class frmWait>();
template <>
void Unload<class frmToolTip>();
template <>
void Unload<class slidemenu>();

/// Lets go of all instances, so that a test can begin afresh.
void forgetForms();

} // namespace tandrel
