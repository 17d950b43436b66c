// Every text of every form, menu and message has its room, in all languages, with the real fonts and widgets.

#include "text_room.h"
#include "widget_bench.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_ffdshow.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "media/shared_state.h"
#include "persist/frm_prev.h"
#include "persist/openmenu.h"
#include "texts/frm_help.h"
#include "texts/frm_keys.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "texts/menu.h"
#include "video/frm_driver.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>

namespace tandrel::test
{

using ::testing::IsEmpty;

namespace
{

// The smallest screen that everything is to fit on.
constexpr QSize kScreen(1366, 768);

class TextsFit : public WidgetBench, public ::testing::WithParamInterface<std::string_view>
{
protected:
    TextsFit()
    {
        world.settled();
        Language = world.settings.values["sys/langos"] = Text(GetParam());
        setCommandLine({"\"/films/none.avi\"", {}});
        world.instances.another = true;
        world.files.content["/data/pres.dat"] = {" 1 "};
        frmMedia().Show();
    }

    /// Everything in the window has room, and the window on the screen.
    void expectRoom(Form& form, const std::vector<std::string>& leftOut = {})
    {
        QApplication::processEvents();
        QWidget* window = windowOf(form);
        ASSERT_NE(window, nullptr) << form.name();
        EXPECT_THAT(cutTexts(*window, leftOut), IsEmpty()) << form.name();
        EXPECT_THAT(longTips(*window, kScreen.width()), IsEmpty()) << form.name();
        EXPECT_TRUE(QRect({}, kScreen).contains(QRect({}, window->size())))
            << form.name() << ": " << window->width() << " by " << window->height();
        EXPECT_TRUE(form.frame() != Frame::Dialog || titleHasRoom(*window))
            << form.name() << ": " << window->windowTitle().toStdString();
    }

    template <class Shown>
    void showAndExpectRoom(Shown& form)
    {
        form.Show();
        expectRoom(form);
        unload(form);
    }

    void expectRoomInMenu(Menu& head)
    {
        bool seen = false;
        Meanwhile user([&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return false;
            seen = true;
            EXPECT_THAT(cutEntries(*menu), IsEmpty()) << head.name();
            EXPECT_FALSE(menu->actions().empty()) << head.name();
            EXPECT_TRUE(QRect({}, kScreen).contains(QRect({}, menu->sizeHint()))) << head.name();
            menu->close();
            return true;
        });
        PopupMenu(head);
        EXPECT_TRUE(seen) << head.name();
    }

    /// The same for the toolkit's own box, which is as large as its text.
    void expectRoomInBox(const Text& message, BoxStyle style)
    {
        bool seen = false;
        Meanwhile user([&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return false;
            seen = true;
            EXPECT_THAT(cutTexts(*box), IsEmpty()) << message;
            EXPECT_TRUE(QRect({}, kScreen).contains(QRect({}, box->size()))) << message;
            EXPECT_TRUE(titleHasRoom(*box)) << message;
            box->done(0);
            return true;
        });
        qt.messageBox(message, style, AppTitle);
        EXPECT_TRUE(seen) << message;
    }

    static std::vector<Text> messages()
    {
        std::vector<Text> all;
        for (const TextRow& row : textTable())
            if (row.key.starts_with("message.") || row.key == "frmPrev.noFile" || row.key == "frmPrev.deleteList")
                all.push_back(localised(row.key));
        return all;
    }
};

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

TEST_P(TextsFit, InTheSmallForms)
{
    showAndExpectRoom(frmHelp());
    showAndExpectRoom(frmKeys());
    showAndExpectRoom(frmLang());
    showAndExpectRoom(frmWait());
    showAndExpectRoom(frmPrev());
    frmWait().Show();
    frmWait().showProgress(11, 12);
    expectRoom(frmWait());
    const auto driver = std::make_shared<frmDriver>();
    showAndExpectRoom(*driver);
    frmToolTip().Show();
    expectRoom(frmToolTip());
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

TEST_P(TextsFit, InTheFormsOfTheSettings)
{
    for (Form* form : {static_cast<Form*>(&frmFFDShowVideo()), static_cast<Form*>(&frmFFDShowAudio())}) {
        form->Show();
        expectRoom(*form);
    }
}

TEST_P(TextsFit, InTheMenus)
{
    for (Menu* head : {&menu().mnupopup, &openmenu().popup, &slidemenu().popup, &stillmenu().popup, &share().popup,
                       &fullmenu().mnupopup, &dvdmenu().mnupopup})
        expectRoomInMenu(*head);
}

TEST_P(TextsFit, InTheMessagesOfTheForm)
{
    std::vector<Text> all = messages();
    Text names = localised("message.pictureMissing");
    for (int count = 0; count < 4; ++count)
        all.push_back(names += "\nA film with a name of many words that is nearly as long as a line.mp4");
    for (const Text& message : all) {
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
