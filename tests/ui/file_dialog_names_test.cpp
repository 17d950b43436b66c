// Names in the dialog for files: those that are no text, hold marks, or look like others.

#include "file_dialog_bench.h"

#include "platform/path_marks.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/file_places.h"

#include <QTextDocumentFragment>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace
{

/// Names that a file may have here. The second is how they are seen.
struct OddName {
    std::string bytes;
    std::string shown;
};

TEST_F(FileDialogs, EveryNameComesOutAsItsOwnMarkedPath)
{
    const OddName odd[] = {
        {"say \"hi\".avi", "say \"hi\".avi"},
        {"\"quoted\".avi", "\"quoted\".avi"},
        {"one|two||three.avi", "one|two||three.avi"},
        {"line\nend\r.avi", "line end .avi"},
        {"latin \xE9t\xE9.avi", "latin \xEF\xBF\xBDt\xEF\xBF\xBD.avi"},
        {"  blanks  .avi", "  blanks  .avi"},
        {"%1 & tab\t.avi", "%1 & tab\t.avi"},
    };
    for (const OddName& name : odd) {
        make(name.bytes);
        const Text expected = markPath(in(name.bytes));
        EXPECT_THAT(choose({{name.shown,
                             [&] {
                                 clickOn(name.shown);
                                 clickAccept();
                             }}}),
                    ElementsAre(expected));
        EXPECT_THAT(choose({{name.shown, [&] { doubleClickOn(name.shown); }}}), ElementsAre(expected));
        // The field can't hold a line end or a tab that is typed; what is seen is enough.
        EXPECT_THAT(choose({{name.shown,
                             [&] {
                                 nameField()->setText(QString::fromStdString(name.shown));
                                 QTest::keyClick(nameField(), Qt::Key_X);
                                 QTest::keyClick(nameField(), Qt::Key_Backspace);
                                 clickAccept();
                             }}}),
                    ElementsAre(expected))
            << name.shown;
    }
}

TEST_F(FileDialogs, SeveralOddNamesComeOutTogether)
{
    make("a\"b.avi");
    make("caf\xE9.avi");
    EXPECT_THAT(choose({{"a\"b.avi",
                         [] {
                             clickOn("a\"b.avi");
                             clickOn("caf\xEF\xBF\xBD.avi", Qt::ControlModifier);
                             clickAccept();
                         }}}),
                ElementsAre(markPath(in("a\"b.avi")), in("caf\xE9.avi")));
}

TEST_F(FileDialogs, NamesThatLookAlikeAreToldApartByTheirRowsOnly)
{
    make("caf\xE8.avi");
    make("caf\xE9.avi");
    EXPECT_THAT(choose({{"caf\xEF\xBF\xBD.avi",
                         [] {
                             typeName("x");
                             nameField()->setText(QString::fromUtf8("caf\xEF\xBF\xBD.avi"));
                             clickAccept();
                             EXPECT_THAT(hintText(), HasSubstr("caf"));
                             const int first = rowOf("caf\xEF\xBF\xBD.avi").row();
                             list()->setCurrentIndex(list()->model()->index(first + 1, 0));
                             clickAccept();
                         }}}),
                ElementsAre(in("caf\xE9.avi")));
}

TEST_F(FileDialogs, ANameThatMarksWouldTurnIntoAnotherIsRefused)
{
    const std::string standIn = markPath("\"") + ".avi";
    make(standIn);
    make("\".avi");
    EXPECT_THAT(choose({{"\".avi",
                         [] {
                             for (const int row : {0, 1}) {
                                 const QModelIndex index = list()->model()->index(rowOf("\".avi").row() + row, 0);
                                 list()->setCurrentIndex(index);
                                 clickAccept();
                                 if (!upDialog() || !upDialog()->isVisible())
                                     break;
                                 EXPECT_THAT(hintText(), HasSubstr("\".avi"));
                             }
                         }}}),
                ElementsAre(markPath(in("\".avi"))));
}

TEST_F(FileDialogs, ANameThatLooksLikeMarkupIsItsOwnTip)
{
    // A tip is taken for rich text where it looks like that.
    const auto seenAsTip = [](const std::string& name) {
        const QString tip = rowOf(name).data(Qt::ToolTipRole).toString();
        return (Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip).toStdString();
    };
    const std::vector<std::string> names{"a<b>c.avi", "<img src='x'>.avi", "<b>&amp;.avi",
                                         "a < b.avi", "a&lt;b.avi",        "a  <b>.avi"};
    for (const std::string& name : names)
        make(name);
    choose({{names.front(), [&] {
                 for (const std::string& name : names)
                     EXPECT_EQ(seenAsTip(name), name);
                 clickReject();
             }}});
}

TEST_F(FileDialogs, AFolderWithAnOddNameIsEntered)
{
    make("odd \xFF|\n/film.avi");
    EXPECT_THAT(choose({{"odd \xEF\xBF\xBD| ", [] { doubleClickOn("odd \xEF\xBF\xBD| "); }},
                        {"film.avi",
                         [] {
                             clickOn("film.avi");
                             clickAccept();
                         }}}),
                ElementsAre(markPath(in("odd \xFF|\n/film.avi"))));
    what.folder = markPath(in("odd \xFF|\n/"));
    EXPECT_THAT(choose({{"film.avi",
                         [] {
                             typeName("film.avi");
                             pressEnter();
                         }}}),
                ElementsAre(markPath(in("odd \xFF|\n/film.avi"))));
}

TEST(FileNames, PatternsAreThoseOfAShell)
{
    EXPECT_TRUE(fitsPattern("a.avi", "*.avi"));
    EXPECT_TRUE(fitsPattern("A.AVI", "*.avi"));
    EXPECT_TRUE(fitsPattern("a.avi.avi", "*.avi"));
    EXPECT_TRUE(fitsPattern("", "*"));
    EXPECT_TRUE(fitsPattern("no dot", "*"));
    EXPECT_TRUE(fitsPattern("\xFF.avi", "?.avi"));
    EXPECT_TRUE(fitsPattern("a1b2", "a*b?"));
    EXPECT_FALSE(fitsPattern("a.avi", "*.av"));
    EXPECT_FALSE(fitsPattern("avi", "*.avi"));
    EXPECT_FALSE(fitsPattern("a.avix", "*.avi"));
    EXPECT_FALSE(fitsPattern("", "?"));
}

TEST(FileNames, AddressesAreTakenByteForByte)
{
    EXPECT_EQ(localPathOf("file:///a%20b/%FF%7C.avi"), QByteArray("/a b/\xFF|.avi"));
    EXPECT_EQ(localPathOf("file://localhost/a"), QByteArray("/a"));
    EXPECT_EQ(localPathOf("file:/a"), QByteArray("/a"));
    for (const char* other :
         {"file://host/a", "smb://host/a", "http://a/b", "/a", "file:", "file:a", "file:///a%00b", ""})
        EXPECT_EQ(localPathOf(other), std::nullopt) << other;
}

TEST(FileNames, OnlyMediaForUsersAreOffered)
{
    const QByteArray table = "/dev/sda1 / ext4 rw 0 0\n"
                             "/dev/sdb1 /media/ann/My\\040disk vfat rw 0 0\n"
                             "/dev/sdc1 /run/media/ann/B iso9660 ro 0 0\n"
                             "/dev/sdd1 /mnt/films ext4 rw 0 0\n"
                             "tool /mnt/deep/below tmpfs rw 0 0\n"
                             "proc /proc proc rw 0 0\nbroken";
    EXPECT_THAT(mountedMedia(table), ElementsAre("/media/ann/My disk", "/run/media/ann/B", "/mnt/films"));
}

} // namespace

} // namespace tandrel::test
