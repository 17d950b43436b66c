/// The forms that exist once, each reached by its name. The first touch loads it.
#pragma once

namespace tandrel
{

/// Asking for a form does not load it: `Loaded<class frmWait>()`.
template <class F>
bool Loaded();

/// Ends a form if it is loaded: `Unload<class frmWait>()`.
template <class F>
void Unload();

/// Lets go of a form whose end is under way, so that the next touch makes a new one: `Renew<class frmMKV>()`.
template <class F>
void Renew();

#define TANDREL_FORM(form)                                                                                             \
    class form;                                                                                                        \
    class form& form();                                                                                                \
    template <>                                                                                                        \
    bool Loaded<class form>();                                                                                         \
    template <>                                                                                                        \
    void Unload<class form>();                                                                                         \
    template <>                                                                                                        \
    void Renew<class form>();

TANDREL_FORM(frmStart)
TANDREL_FORM(frmMedia)
TANDREL_FORM(frmPanel)
TANDREL_FORM(frmWait)
TANDREL_FORM(frmToolTip)
TANDREL_FORM(frmLang)
TANDREL_FORM(frmSplash)
TANDREL_FORM(frmHelp)
TANDREL_FORM(frmKeys)
TANDREL_FORM(frmUpdate)
TANDREL_FORM(frmMKV)
TANDREL_FORM(frmDVD)
TANDREL_FORM(frmDVD2)
TANDREL_FORM(fullmenu)
TANDREL_FORM(dvdmenu)
TANDREL_FORM(frmFFDShowAudio)
TANDREL_FORM(frmFFDShowVideo)
TANDREL_FORM(frmPrev)
TANDREL_FORM(slidemenu)
TANDREL_FORM(stillmenu)
TANDREL_FORM(openmenu)
TANDREL_FORM(menu)
TANDREL_FORM(share)
#undef TANDREL_FORM

/// Lets go of what plays in the windows of HD films and discs, which has to come before the end of those.
void endPlayers();

/// Gives back the windows of other programs that stand in ours, which would end with those.
void endCodecForms();

/// Lets go of all instances, so that a test can begin afresh.
void forgetForms();

} // namespace tandrel
