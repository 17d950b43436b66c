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

/// `FORM(name)` for each of them, in the order in which tests let go of them.
#define TANDREL_FORMS(FORM)                                                                                            \
    FORM(frmStart)                                                                                                     \
    FORM(frmMedia)                                                                                                     \
    FORM(frmPanel)                                                                                                     \
    FORM(frmWait)                                                                                                      \
    FORM(frmToolTip)                                                                                                   \
    FORM(frmLang)                                                                                                      \
    FORM(frmSplash)                                                                                                    \
    FORM(frmHelp)                                                                                                      \
    FORM(frmKeys)                                                                                                      \
    FORM(frmUpdate)                                                                                                    \
    FORM(frmMKV)                                                                                                       \
    FORM(frmDVD)                                                                                                       \
    FORM(frmDVD2)                                                                                                      \
    FORM(fullmenu)                                                                                                     \
    FORM(dvdmenu)                                                                                                      \
    FORM(frmFFDShowAudio)                                                                                              \
    FORM(frmFFDShowVideo)                                                                                              \
    FORM(frmPrev)                                                                                                      \
    FORM(slidemenu)                                                                                                    \
    FORM(stillmenu)                                                                                                    \
    FORM(openmenu)                                                                                                     \
    FORM(menu)                                                                                                         \
    FORM(share)

#define TANDREL_FORM(form)                                                                                             \
    class form;                                                                                                        \
    class form& form();                                                                                                \
    template <>                                                                                                        \
    bool Loaded<class form>();                                                                                         \
    template <>                                                                                                        \
    void Unload<class form>();                                                                                         \
    template <>                                                                                                        \
    void Renew<class form>();

TANDREL_FORMS(TANDREL_FORM)
#undef TANDREL_FORM

/// Lets go of what plays in the windows of HD films and discs, which has to come before the end of those.
void endPlayers();

/// Gives back the windows of other programs that stand in ours, which would end with those.
void endCodecForms();

/// Lets go of all instances, so that a test can begin afresh.
void forgetForms();

} // namespace tandrel
