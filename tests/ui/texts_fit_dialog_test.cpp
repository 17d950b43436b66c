// The dialog for files and what stands in place of a picture have room for their texts in all languages.

#include "file_dialog_bench.h"
#include "text_room.h"

#include "media/shared_state.h"
#include "texts/localised.h"
#include "texts/localised_dialog.h"
#include "video/trouble_label.h"

#include <QHeaderView>

namespace tandrel::test
{

using ::testing::IsEmpty;

namespace
{

class DialogTextsFit : public FileDialogs, public ::testing::WithParamInterface<std::string_view>
{
protected:
    DialogTextsFit()
    {
        Language = world.settings.values["sys/langos"] = Text(GetParam());
        qt.setFileDialogTexts(localisedDialogTexts());
    }

    static void expectRoom()
    {
        // A hint of two lines takes its second from the list.
        QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        EXPECT_THAT(cutTexts(*upDialog()), IsEmpty());
        EXPECT_TRUE(titleHasRoom(*upDialog()));
        const QHeaderView& head = *upDialog()->findChild<QHeaderView*>();
        for (int column = 0; column < head.count(); ++column) {
            const QString title = head.model()->headerData(column, Qt::Horizontal).toString();
            EXPECT_TRUE(head.isSectionHidden(column) ||
                        head.fontMetrics().horizontalAdvance(title) <= head.sectionSize(column))
                << title.toStdString();
        }
    }
};

/// A form no larger than a small video, and what it says in place of one.
struct SmallVideo : Form {
    SmallVideo() : Form("smallVideo", Frame::Skin, {0, 0, 4800, 3600}) { lblTrouble.placeIn(4800, 3600); }
    PictureBox picture{*this, "picture", {0, 0, 4800, 3600}};
    TroubleLabel lblTrouble{*this, picture};
};

INSTANTIATE_TEST_SUITE_P(Languages, DialogTextsFit, ::testing::ValuesIn(kTextLanguages),
                         [](const auto& info) { return std::string(info.param); });

} // namespace

TEST_P(DialogTextsFit, OfFilesToOpen)
{
    what.several = false;
    EXPECT_THAT(choose({{"a.avi", [] { expectRoom(); }},
                        {"a.avi",
                         [] {
                             typeName("none.avi");
                             pressEnter();
                             expectRoom();
                             EXPECT_NE(hintText(), "");
                             typeName("\"a.avi\" \"c.mp4\"");
                             pressEnter();
                             expectRoom();
                             EXPECT_NE(hintText(), "");
                             clickReject();
                         }}}),
                IsEmpty());
}

TEST_P(DialogTextsFit, OfAFileToSave)
{
    what.kind = FileDialog::Kind::Save;
    what.name = "a.avi";
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             expectRoom();
                             clickAccept();
                             expectRoom();
                             EXPECT_NE(hintText(), "");
                             clickReject();
                         }}}),
                IsEmpty());
}

TEST_P(DialogTextsFit, OfAFolderToChoose)
{
    what.kind = FileDialog::Kind::Folder;
    EXPECT_THAT(choose({{"below",
                         [] {
                             expectRoom();
                             clickReject();
                         }}}),
                IsEmpty());
}

TEST_P(DialogTextsFit, OfWhatStandsInPlaceOfAPicture)
{
    for (const char* key : {"message.codecMissing", "message.discEncrypted", "message.cannotPlay"}) {
        const auto video = std::make_shared<SmallVideo>();
        video->lblTrouble.Caption = localised(key);
        video->lblTrouble.Visible = true;
        video->Show();
        QApplication::processEvents();
        EXPECT_THAT(cutTexts(*windowOf(*video)), IsEmpty()) << key;
        unload(*video);
    }
}

} // namespace tandrel::test
