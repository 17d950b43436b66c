/// A console with an HD film or a disc, over players that note what they are asked.
#pragma once

#include "monitor_bench.h"

#include "toolkit/activation.h"
#include "video/frm_dvd.h"
#include "video/frm_dvd2.h"
#include "video/frm_mkv.h"
#include "video/other_media.h"

namespace tandrel::test
{

inline constexpr const char* kHdFilm = "/films/x.mkv";

class OtherMediaConsole : public MonitorBench
{
protected:
    /// A console on a newer system, or on an older one, whose user knows the tip.
    void begin(bool older = false)
    {
        world.systemFacts.numbers = older ? "2.5.1" : "linux";
        start("0");
        console().FirstOpenTip = false;
    }

    /// The film plays, and is 1:02:03 long; it stands at 2:03.
    class frmMKV& openFilm(const Text& path = kHdFilm)
    {
        world.players.film.duration = 3723.9;
        world.players.film.position = 123.4;
        class frmMKV& window = frmMKV();
        window.MediaFile = path;
        window.Caption = "HD|" + path;
        window.Show();
        console().Timer1.Enabled = true;
        console().Timer2.Enabled = true;
        return window;
    }

    /// A disc in the only drive plays on the media player control.
    class frmDVD2& openDisc2()
    {
        if (world.drives.drives.empty())
            world.drives.add('D', "A_DISC");
        frmDVD2().Show();
        return frmDVD2();
    }

    /// The same on the video control.
    class frmDVD& openDisc()
    {
        if (world.drives.drives.empty())
            world.drives.add('D', "A_DISC");
        frmDVD().Show();
        return frmDVD();
    }

    /// The window becomes the active one once more, with the right button down or up.
    void activateAgain(Form& form, bool right = false)
    {
        console().SetFocus();
        pressIsOver(MouseButton::Right);
        world.pointer.right = right;
        form.SetFocus();
        world.pointer.right = false;
    }

    /// The number of the run-time error that a call raises; 0 where it raises none.
    static int errorOf(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const RuntimeError& raised) {
            return raised.number();
        }
        return 0;
    }

    std::vector<std::string>& askedOfFilm() { return world.players.film.asked; }
    std::vector<std::string>& askedOfDisc() { return world.players.disc.asked; }
    void forgetAsked()
    {
        askedOfFilm().clear();
        askedOfDisc().clear();
    }
    Text title() { return console().lblTitleBar.caption(); }
};

} // namespace tandrel::test
