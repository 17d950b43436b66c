/// Forms, menus and boxes with all their texts, in one language after the other.
#pragma once

#include "text_room.h"
#include "widget_bench.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/menu.h"

#include <QDialog>
#include <QMessageBox>

namespace tandrel::test
{

// The smallest screen that everything is to fit on.
inline constexpr QSize kScreen(1366, 768);

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
        EXPECT_THAT(cutTexts(*window, leftOut), ::testing::IsEmpty()) << form.name();
        EXPECT_THAT(longTips(*window, kScreen.width()), ::testing::IsEmpty()) << form.name();
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
            EXPECT_THAT(cutEntries(*menu), ::testing::IsEmpty()) << head.name();
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
            EXPECT_THAT(cutTexts(*box), ::testing::IsEmpty()) << message;
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

} // namespace tandrel::test
