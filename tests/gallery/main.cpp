// Shows one window of the program as it is, for pictures of it: tandrel-gallery NAME [LANGUAGE]. The system behind it
// is made up, so that nothing of the user's is touched.

#include "fake_services.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/slidemenu.h"
#include "console/version.h"
#include "media/shared_state.h"
#include "texts/frm_help.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "texts/menu.h"
#include "toolkit/program.h"
#include "toolkit/qt/qt_backend.h"

#include <QApplication>
#include <QCursor>

#include <cstdio>
#include <functional>
#include <map>

namespace
{

using namespace tandrel;

void showConsole()
{
    class frmMedia& console = frmMedia();
    console.Show();
    console.lblTitleBar.Caption = " [ Crossing the strait.mp4 ] ";
    console.lblCurTime.Caption = "0:12:47";
    console.lblDuration.Caption = "1:38:02";
    console.SeekSlider.Max = 5882000;
    console.SeekSlider.Value = 767000;
}

void showUpdate()
{
    frmMedia();
    frmUpdate().Caption = AppTitle;
    frmUpdate().lblUpdate.Caption = localised("message.tipFullScreen");
    frmUpdate().Show();
}

void showTip()
{
    frmMedia();
    frmToolTip().Move({6000, 4500, frmToolTip().width(), frmToolTip().height()});
    frmToolTip().Show();
}

void showWait()
{
    frmWait().Show();
    frmWait().showProgress(5, 12);
}

void popUp(Menu& head)
{
    QCursor::setPos(400, 300);
    PopupMenu(head);
}

const std::map<std::string, std::function<void()>>& windows()
{
    static const std::map<std::string, std::function<void()>> all{
        {"console", showConsole},
        {"frmLang", [] { frmLang().Show(); }},
        {"frmSplash",
         [] {
             for (int tick = 0; tick < 5; ++tick)
                 frmSplash().Timer1.tick();
             frmSplash().Timer1.Enabled = false;
             frmSplash().Show();
         }},
        {"frmHelp",
         [] {
             frmMedia();
             frmHelp().Show();
         }},
        {"frmToolTip", showTip},
        {"frmWait", showWait},
        {"frmUpdate", showUpdate},
        {"question",
         [] {
             frmMedia();
             backend().messageBox(localised("message.makePrimary"), BoxStyle::YesNoQuestion, AppTitle);
         }},
        {"menu",
         [] {
             frmMedia();
             popUp(menu().mnupopup);
         }},
        {"share", [] { popUp(share().popup); }},
        {"slidemenu",
         [] {
             frmMedia();
             popUp(slidemenu().popup);
         }},
    };
    return all;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto window = argc < 2 ? windows().end() : windows().find(argv[1]);
    if (window == windows().end()) {
        std::fprintf(stderr, "usage: tandrel-gallery NAME [LANGUAGE], NAME being one of\n");
        for (const auto& [name, show] : windows())
            std::fprintf(stderr, "  %s\n", name.c_str());
        return 2;
    }
    test::World world;
    QtBackend qt;
    installBackend(&qt);
    world.settled();
    Language = world.settings.values["sys/langos"] = argc > 2 ? argv[2] : "EN";
    // The start with a file has no splash.
    setCommandLine({"\"/films/none.avi\"", {}});
    world.instances.another = true;
    world.files.content["/data/pres.dat"] = {" 1 "};
    window->second();
    const int result = QApplication::exec();
    discardForms();
    forgetForms();
    installBackend(&world.backend);
    return result;
}
