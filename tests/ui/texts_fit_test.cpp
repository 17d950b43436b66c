// Every text of every form, menu and message has its room, in all languages, with the real fonts and widgets.

#include "texts_fit_bench.h"

#include "console/frm_start.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_ffdshow.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "persist/frm_prev.h"
#include "persist/openmenu.h"
#include "texts/frm_help.h"
#include "texts/frm_keys.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/menu.h"
#include "video/frm_child.h"
#include "video/frm_driver.h"
#include "video/frm_dvd.h"
#include "video/frm_dvd2.h"
#include "video/frm_mkv.h"
#include "video/trouble_label.h"

#include <QPushButton>

#include <map>
#include <set>

namespace tandrel::test
{

using ::testing::IsEmpty;

namespace
{

using FormTable = std::map<std::string, Form& (*)()>;
using MenuTable = std::map<std::string, Menu& (*)()>;

#define TANDREL_FIT(form)                                                                                              \
    {                                                                                                                  \
#form, []() -> Form& { return form(); }                                                                        \
    }
/// Those whose texts are looked at just as the form comes up.
const FormTable& plainForms()
{
    static const FormTable forms{TANDREL_FIT(frmHelp),         TANDREL_FIT(frmKeys),        TANDREL_FIT(frmLang),
                                 TANDREL_FIT(frmWait),         TANDREL_FIT(frmPrev),        TANDREL_FIT(frmToolTip),
                                 TANDREL_FIT(frmFFDShowVideo), TANDREL_FIT(frmFFDShowAudio)};
    return forms;
}
#undef TANDREL_FIT

/// Those that are nothing but a menu.
const MenuTable& menus()
{
    static const MenuTable all{{"menu", []() -> Menu& { return menu().mnupopup; }},
                               {"openmenu", []() -> Menu& { return openmenu().popup; }},
                               {"slidemenu", []() -> Menu& { return slidemenu().popup; }},
                               {"stillmenu", []() -> Menu& { return stillmenu().popup; }},
                               {"share", []() -> Menu& { return share().popup; }},
                               {"fullmenu", []() -> Menu& { return fullmenu().mnupopup; }},
                               {"dvdmenu", []() -> Menu& { return dvdmenu().mnupopup; }}};
    return all;
}

/// Those that say nothing themselves: a message stands in place of their picture, which has a test of its own
/// (OfWhatStandsInPlaceOfAPicture), and their titles are names of media.
const std::set<std::string>& formsWithoutTexts()
{
    static const std::set<std::string> forms{"frmMKV", "frmDVD", "frmDVD2"};
    return forms;
}

/// Those with a test of their own below.
const std::set<std::string>& formsOfTheirOwn()
{
    static const std::set<std::string> forms{"frmStart", "frmMedia", "frmPanel", "frmSplash", "frmUpdate"};
    return forms;
}

INSTANTIATE_TEST_SUITE_P(Languages, TextsFit, ::testing::ValuesIn(kTextLanguages),
                         [](const auto& info) { return std::string(info.param); });

} // namespace

TEST_P(TextsFit, TheMeasureSeesWhatIsCut)
{
    const QString text = QString::fromStdString(localised("frmHelp.Label13"));
    QWidget window;
    QLabel line(text, &window);
    QLabel lines(text, &window);
    QPushButton button(text, &window);
    lines.setWordWrap(true);
    for (QWidget* widget : std::initializer_list<QWidget*>{&line, &lines, &button})
        widget->resize(900, 60);
    EXPECT_THAT(cutTexts(window), IsEmpty());
    for (QWidget* widget : std::initializer_list<QWidget*>{&line, &lines, &button})
        widget->resize(120, 20);
    EXPECT_EQ(cutTexts(window).size(), 3U);
}

TEST_P(TextsFit, OnTheConsole)
{
    expectRoom(frmMedia());
    frmMedia().lblNote.Visible = true;
    frmMedia().lblNote.Caption = localised("note.picturesSaving");
    frmMedia().lblSize.Caption = "300 %";
    frmMedia().lblSpeed.Caption = "-10x";
    frmMedia().lblCurTime.Caption = frmMedia().lblDuration.Caption = "9:59:59";
    frmMedia().lblVolume.Caption = "100";
    for (const char* mode : {"PlayAll Mode", "PlayList Mode"}) {
        frmMedia().lblMode.Caption = mode;
        expectRoom(frmMedia());
    }
}

TEST(TextsFitAtAll, EveryFormIsLookedAt)
{
    std::set<std::string> looked = formsOfTheirOwn();
    looked.insert(formsWithoutTexts().begin(), formsWithoutTexts().end());
    for (const auto& [name, form] : plainForms())
        EXPECT_TRUE(looked.insert(name).second) << name;
    for (const auto& [name, form] : menus())
        EXPECT_TRUE(looked.insert(name).second) << name;
#define TANDREL_NAME(form) #form,
    EXPECT_EQ(looked, (std::set<std::string>{TANDREL_FORMS(TANDREL_NAME)}));
#undef TANDREL_NAME
}

TEST_F(WidgetBench, VideosOfOtherKindsHaveNoTextsOfTheirOwn)
{
    const std::vector<std::shared_ptr<Form>> forms{newForm<class frmMKV>(), newForm<class frmDVD>(),
                                                   newForm<class frmDVD2>()};
    for (const auto& form : forms) {
        EXPECT_TRUE(formsWithoutTexts().contains(form->name())) << form->name();
        for (const Control* control : form->controls()) {
            const auto* label = dynamic_cast<const Label*>(control);
            // The bar of a film has its times, which are figures.
            EXPECT_TRUE(!label || label->name() == "lblTimes" || dynamic_cast<const TroubleLabel*>(label))
                << form->name() << "." << control->name();
            EXPECT_EQ(dynamic_cast<const CommandButton*>(control), nullptr) << form->name() << "." << control->name();
        }
    }
}

TEST_P(TextsFit, InThePlainForms)
{
    for (const auto& [name, form] : plainForms()) {
        Form& shown = form();
        EXPECT_EQ(shown.name(), name);
        showAndExpectRoom(shown);
    }
}

TEST_P(TextsFit, InTheFormsThatChange)
{
    frmWait().Show();
    frmWait().showProgress(11, 12);
    expectRoom(frmWait());
    const auto driver = std::make_shared<frmDriver>();
    showAndExpectRoom(*driver);
    const auto video = std::make_shared<frmChild>();
    video->lblError.Visible = true;
    showAndExpectRoom(*video);
}

TEST_P(TextsFit, InTheFirstForm)
{
    const auto first = newForm<class frmStart>();
    first->Show();
    expectRoom(*first);
}

TEST_P(TextsFit, InTheSplash)
{
    frmSplash().Show();
    for (int tick = 0; tick < 6; ++tick)
        frmSplash().Timer1.tick();
    frmSplash().Timer1.Enabled = false;
    expectRoom(frmSplash());
}

TEST_P(TextsFit, OnThePanel)
{
    frmPanel().Show();
    frmPanel().lblCurrent.Caption = "9:59:59";
    // The title is that of a file.
    QApplication::processEvents();
    EXPECT_THAT(cutTexts(*windowOf(frmPanel()), {"lblTitle"}), IsEmpty());
    EXPECT_THAT(longTips(*windowOf(frmPanel()), kScreen.width()), IsEmpty());
}

TEST_P(TextsFit, InTheMenus)
{
    for (const auto& [name, head] : menus())
        expectRoomInMenu(head());
}

TEST_P(TextsFit, InTheMessagesOfTheForm)
{
    for (const Text& message : messages()) {
        frmUpdate().say(message);
        frmUpdate().Show();
        expectRoom(frmUpdate());
        EXPECT_FALSE(HasFailure()) << message;
        unload(frmUpdate());
    }
}

TEST_P(TextsFit, InTheBoxes)
{
    for (const Text& message : messages()) {
        expectRoomInBox(message, BoxStyle::Exclamation);
        expectRoomInBox(message, BoxStyle::YesNoQuestion);
    }
}

} // namespace tandrel::test
