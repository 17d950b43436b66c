// Texts as long as users, paths and names make them: what is cut says so and is told in a tip, and nothing grows beyond
// the screen.

#include "texts_fit_bench.h"

#include "console/key_commands.h"
#include "texts/frm_keys.h"
#include "texts/frm_update.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tandrel::test
{

using ::testing::IsEmpty;

namespace
{

constexpr const char* kMore = "\xE2\x80\xA6";

class LongTextsFit : public TextsFit
{
protected:
    LongTextsFit() { world.monitors.set({{0, 0, kScreen.width(), kScreen.height()}}); }

    static QLabel& labelOf(Form& form, const char* name) { return *windowOf(form)->findChild<QLabel*>(name); }
    /// The labels of the form that show less than their captions.
    static std::vector<std::string> cutLabels(Form& form)
    {
        std::vector<std::string> cut;
        for (const QLabel* label : windowOf(form)->findChildren<QLabel*>())
            if (label->text().contains(QString::fromUtf8(kMore)))
                cut.push_back(label->objectName().toStdString());
        return cut;
    }
    static QString withoutBreaks(QString text) { return text.remove(QChar(0x200B)); }
    void showKeysOf(const Text& file)
    {
        world.keyFile.holds(file);
        readKeys();
        frmKeys().Show();
        expectRoom(frmKeys());
    }
    void expectRoomFor(const Text& message)
    {
        frmUpdate().say(message);
        frmUpdate().Show();
        expectRoom(frmUpdate());
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, LongTextsFit, ::testing::ValuesIn(kTextLanguages),
                         [](const auto& info) { return std::string(info.param); });

} // namespace

TEST_P(LongTextsFit, TheUsualKeysAreSeenWhole)
{
    showKeysOf("");
    EXPECT_THAT(cutLabels(frmKeys()), IsEmpty());
}

TEST_P(LongTextsFit, KeysThatAreLongAreSeenWholeWhileThereIsRoom)
{
    showKeysOf("play = Ctrl+Shift+F1, Alt+F2, Meta+W\n");
    EXPECT_THAT(cutLabels(frmKeys()), IsEmpty());
}

TEST_P(LongTextsFit, KeysWithoutRoomAreInTheirTip)
{
    Text videos;
    for (int number = 1; number <= 12; ++number)
        videos += "video-" + std::to_string(number) + " = Ctrl+Alt+Shift+Meta+F" + std::to_string(number) + "\n";
    showKeysOf(videos);
    EXPECT_EQ(cutLabels(frmKeys()), std::vector<std::string>{"lblKeys13"});
    const QLabel& label = labelOf(frmKeys(), "lblKeys13");
    EXPECT_TRUE(label.text().startsWith("Ctrl+Alt+Shift+Meta+F1 ")) << label.text().toStdString();
    EXPECT_TRUE(withoutBreaks(label.toolTip()).contains("Ctrl+Alt+Shift+Meta+F12"));
}

TEST_P(LongTextsFit, MessagesWithTwelveOfTheLongestNames)
{
    for (const char* letter : {"n", "W", "\xE3\x81\x82"}) {
        Text message = localised("message.pictureMissing");
        for (int count = 0; count < 12; ++count) {
            message += "\n";
            for (std::size_t length = 0; length < 255; length += Text(letter).size())
                message += letter;
        }
        expectRoomFor(message);
    }
    expectRoomFor(localised("message.pictureFolder") + "\n/" + Text(4000, 'm'));
    const TwipsRect large = frmUpdate().place();
    expectRoomFor(localised("message.pictureFolder") + "\n/" + Text(4000, 'm'));
    EXPECT_EQ(frmUpdate().width(), large.width) << "the same message once more";
    EXPECT_EQ(frmUpdate().height(), large.height);
    expectRoomFor(Text(100000, 'm'));
    EXPECT_EQ(cutLabels(frmUpdate()), std::vector<std::string>{"lblUpdate"});
}

TEST_P(LongTextsFit, ANoteGivesWayInTheMiddleAndItsTipHasAllOfIt)
{
    const Text folder = "/home/me/" + Text(150, 'f') + "/" + Text(150, 'g') + "/Tandrel Player";
    Label& note = frmMedia().lblNote;
    note.Caption = "12 " + localised("note.picturesSaved") + " /home/me/Tandrel Player";
    note.Visible = true;
    expectRoom(frmMedia());
    EXPECT_THAT(cutLabels(frmMedia()), IsEmpty());
    EXPECT_EQ(labelOf(frmMedia(), "lblNote").toolTip(), "");
    note.Caption = "12 " + localised("note.picturesSaved") + " " + folder;
    expectRoom(frmMedia());
    const QLabel& label = labelOf(frmMedia(), "lblNote");
    EXPECT_TRUE(label.text().startsWith(QString::fromStdString("12 " + localised("note.picturesSaved") + " /home/me")));
    EXPECT_TRUE(label.text().endsWith("/Tandrel Player")) << label.text().toStdString();
    EXPECT_TRUE(withoutBreaks(label.toolTip()).contains(QString::fromStdString(folder)));
    EXPECT_EQ(note.caption(), "12 " + localised("note.picturesSaved") + " " + folder);
}

TEST_P(LongTextsFit, TheTipOfATextComesUpThoughTheMouseIsNotItsOwn)
{
    Label& note = frmMedia().lblNote;
    note.Visible = true;
    note.Caption = Text(300, 'n');
    QApplication::processEvents();
    QLabel& label = labelOf(frmMedia(), "lblNote");
    EXPECT_TRUE(label.testAttribute(Qt::WA_TransparentForMouseEvents)) << "the console is dragged there";
    const QPoint place = label.rect().center();
    QHelpEvent event(QEvent::ToolTip, label.mapTo(windowOf(frmMedia()), place), label.mapToGlobal(place));
    QApplication::sendEvent(windowOf(frmMedia()), &event);
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(QToolTip::text(), label.toolTip());
    QToolTip::hideText();
    note.Visible = false;
    QApplication::sendEvent(windowOf(frmMedia()), &event);
    EXPECT_FALSE(event.isAccepted()) << "what is not seen has no tip";
}

} // namespace tandrel::test
