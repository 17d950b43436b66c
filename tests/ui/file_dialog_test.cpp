// The toolkit's own dialog for files, driven by its controls while it is up.

#include "widget_bench.h"

#include "temporary_folder.h"

#include "platform/path_marks.h"
#include "toolkit/qt/file_list_view.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/file_places.h"
#include "toolkit/qt/palette.h"
#include "toolkit/screen.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>

#include <filesystem>
#include <fstream>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

QDialog* upDialog()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    return dialog && dialog->objectName() == QStringLiteral("fileDialog") ? dialog : nullptr;
}

template <class Widget>
Widget* part(const char* name)
{
    return upDialog()->findChild<Widget*>(QString::fromLatin1(name));
}

FileListView* list() { return upDialog()->findChild<FileListView*>(QStringLiteral("fileList")); }
QLineEdit* nameField() { return part<QLineEdit>("fileName"); }
std::string hintText() { return part<QLabel>("fileHint")->text().toStdString(); }
std::string lookedIn() { return part<QComboBox>("lookIn")->currentText().toStdString(); }
void clickAccept() { part<QPushButton>("accept")->click(); }
void clickReject() { part<QPushButton>("reject")->click(); }

std::vector<std::string> shownNames()
{
    std::vector<std::string> names;
    const QAbstractItemModel& rows = *list()->model();
    for (int row = 0; row < rows.rowCount(); ++row)
        names.push_back(rows.index(row, 0).data().toString().toStdString());
    return names;
}

QModelIndex rowOf(const std::string& shown)
{
    const auto names = shownNames();
    const auto found = std::find(names.begin(), names.end(), shown);
    return found == names.end() ? QModelIndex() : list()->model()->index(static_cast<int>(found - names.begin()), 0);
}

QPoint placeOf(const std::string& shown)
{
    const QModelIndex index = rowOf(shown);
    EXPECT_TRUE(index.isValid()) << shown;
    list()->scrollTo(index);
    return list()->visualRect(index).center();
}

void clickOn(const std::string& shown, Qt::KeyboardModifiers held = Qt::NoModifier)
{
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, held, placeOf(shown));
}

void doubleClickOn(const std::string& shown)
{
    clickOn(shown);
    const QPoint at = placeOf(shown);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(list()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

void typeName(const std::string& text)
{
    nameField()->setFocus();
    nameField()->selectAll();
    QTest::keyClicks(nameField(), QString::fromStdString(text));
}

void pressEnter() { QTest::keyClick(nameField(), Qt::Key_Return); }

constexpr int kPatienceMs = 15000;

class FileDialogs : public WidgetBench
{
protected:
    FileDialogs()
    {
        what.title = "Open Multiple Video...";
        what.folder = folder.path() + "/";
        what.several = true;
        what.filters = {{"Films", {"*.avi", "*.mp4"}}, {"All Files", {"*"}}};
        for (const char* name : {"a.avi", "B.MP4", "c.mp4", "notes.txt", "below/deep.avi"})
            make(name);
    }

    std::string make(const std::string& name)
    {
        const std::filesystem::path path = folder.path() + "/" + name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << "film";
        return path.string();
    }
    std::string in(const std::string& name) const { return folder.path() + "/" + name; }

    /// What the dialog gives while the user takes these steps, each as soon as the list shows what it says it shows.
    struct Step {
        std::string waitFor;
        std::function<void()> act;
    };
    std::vector<Text> choose(std::vector<Step> steps)
    {
        std::size_t next = 0;
        const Meanwhile user([&] {
            if (!upDialog() || (!steps[next].waitFor.empty() && !rowOf(steps[next].waitFor).isValid()))
                return false;
            steps[next++].act();
            return next == steps.size();
        });
        QTimer::singleShot(kPatienceMs, &qt, [&] {
            if (!upDialog())
                return;
            ADD_FAILURE() << "step " << next << " waits for " << (next < steps.size() ? steps[next].waitFor : "an end");
            upDialog()->reject();
        });
        auto chosen = qt.chooseFiles(what);
        EXPECT_TRUE(user.isDone()) << "the dialog went before step " << next;
        return chosen;
    }

    TemporaryFolder folder;
    FileDialog what;
};

TEST_F(FileDialogs, BeginsInTheFolderThatIsAskedForWithTheTitleThatIsGiven)
{
    std::string title;
    std::string place;
    std::vector<std::string> names;
    EXPECT_THAT(choose({{"a.avi",
                         [&] {
                             title = upDialog()->windowTitle().toStdString();
                             place = lookedIn();
                             names = shownNames();
                             clickReject();
                         }}}),
                IsEmpty());
    EXPECT_EQ(title, "Open Multiple Video...");
    EXPECT_EQ(place, folder.path());
    EXPECT_THAT(names, ElementsAre("below", "a.avi", "B.MP4", "c.mp4")) << "letters of either case fit the filter";
}

TEST_F(FileDialogs, OneFileIsChosenByAClickAndTheButton)
{
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             EXPECT_EQ(nameField()->text(), "a.avi");
                             clickAccept();
                         }}}),
                ElementsAre(in("a.avi")));
}

TEST_F(FileDialogs, ADoubleClickChoosesWhenTheButtonIsUp)
{
    EXPECT_THAT(choose({{"c.mp4",
                         [] {
                             clickOn("c.mp4");
                             QWidget* rows = list()->viewport();
                             QTest::mousePress(rows, Qt::LeftButton, Qt::NoModifier, placeOf("c.mp4"));
                             const QPoint at = placeOf("c.mp4");
                             QMouseEvent twice(QEvent::MouseButtonDblClick, at, rows->mapToGlobal(at), Qt::LeftButton,
                                               Qt::LeftButton, Qt::NoModifier);
                             QApplication::sendEvent(rows, &twice);
                             ASSERT_TRUE(upDialog()->isVisible()) << "whose windows would see the release otherwise?";
                             QTest::mouseRelease(rows, Qt::LeftButton, Qt::NoModifier, at);
                         }}}),
                ElementsAre(in("c.mp4")));
}

TEST_F(FileDialogs, SeveralFilesAreChosenWithControlAndShift)
{
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             clickOn("c.mp4", Qt::ControlModifier);
                             EXPECT_EQ(nameField()->text(), "\"a.avi\" \"c.mp4\"");
                             clickAccept();
                         }}}),
                ElementsAre(in("a.avi"), in("c.mp4")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             clickOn("c.mp4", Qt::ShiftModifier);
                             clickAccept();
                         }}}),
                ElementsAre(in("a.avi"), in("B.MP4"), in("c.mp4")));
}

TEST_F(FileDialogs, OnlyOneIsChosenWhereSeveralAreNotAskedFor)
{
    what.several = false;
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("\"a.avi\" \"c.mp4\"");
                             clickAccept();
                             EXPECT_THAT(hintText(), HasSubstr("Only one"));
                             clickOn("a.avi");
                             clickOn("c.mp4", Qt::ControlModifier);
                             clickAccept();
                         }}}),
                ElementsAre(in("c.mp4")));
}

TEST_F(FileDialogs, TheFilterSaysWhatIsListed)
{
    make("no dot");
    make(".hidden.avi");
    std::vector<std::string> all;
    choose({{"a.avi", [] { part<QComboBox>("fileFilter")->setCurrentIndex(1); }}, {"notes.txt", [&] {
                                                                                       all = shownNames();
                                                                                       clickReject();
                                                                                   }}});
    EXPECT_THAT(all, ElementsAre("below", "a.avi", "B.MP4", "c.mp4", "no dot", "notes.txt"));
}

TEST_F(FileDialogs, EscapeAndTheCloseBoxCancel)
{
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             QTest::keyClick(list(), Qt::Key_Escape);
                         }}}),
                IsEmpty());
    EXPECT_THAT(
        choose({{"a.avi",
                 [] {
                     clickOn("a.avi");
                     QTest::mouseClick(upDialog(), Qt::LeftButton, Qt::NoModifier, {upDialog()->width() - 18, 13});
                 }}}),
        IsEmpty());
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             upDialog()->close();
                         }}}),
                IsEmpty());
}

TEST_F(FileDialogs, ATypedNameIsTakenAndOneThatIsNotThereIsRefused)
{
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("b.avi");
                             pressEnter();
                             ASSERT_TRUE(upDialog());
                             EXPECT_THAT(hintText(), HasSubstr("b.avi"));
                             typeName("a.avi");
                             EXPECT_EQ(hintText(), "");
                             pressEnter();
                         }}}),
                ElementsAre(in("a.avi")));
}

TEST_F(FileDialogs, TypedPathsAndSeveralNamesInQuotesAreTaken)
{
    EXPECT_THAT(choose({{"a.avi",
                         [this] {
                             typeName(in("below/deep.avi"));
                             pressEnter();
                         }}}),
                ElementsAre(in("below/deep.avi")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("below/../notes.txt");
                             pressEnter();
                         }}}),
                ElementsAre(in("notes.txt")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("\"c.mp4\" \"below/deep.avi\"");
                             pressEnter();
                         }}}),
                ElementsAre(in("c.mp4"), in("below/deep.avi")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("\"c.mp4\" \"gone.avi\"");
                             pressEnter();
                             EXPECT_THAT(hintText(), HasSubstr("gone.avi"));
                             clickReject();
                         }}}),
                IsEmpty());
}

TEST_F(FileDialogs, FoldersAreEnteredAndNeverChosen)
{
    EXPECT_THAT(choose({{"below",
                         [] {
                             clickOn("below");
                             clickAccept();
                         }},
                        {"deep.avi",
                         [this] {
                             EXPECT_EQ(lookedIn(), in("below"));
                             typeName("..");
                             pressEnter();
                         }},
                        {"below", [] { doubleClickOn("below"); }},
                        {"deep.avi", [] { QTest::keyClick(list(), Qt::Key_Backspace); }},
                        {"below",
                         [this] {
                             typeName(in("below") + "/");
                             pressEnter();
                         }},
                        {"deep.avi",
                         [] {
                             clickOn("deep.avi");
                             clickAccept();
                         }}}),
                ElementsAre(in("below/deep.avi")));
}

TEST_F(FileDialogs, AFolderInASelectionOfFilesIsLeftOut)
{
    EXPECT_THAT(choose({{"below",
                         [] {
                             clickOn("below");
                             clickOn("a.avi", Qt::ControlModifier);
                             clickAccept();
                         }}}),
                ElementsAre(in("a.avi")));
}

TEST_F(FileDialogs, AFolderIsChosenByItsRowOrAsTheOneThatIsOpen)
{
    what.kind = FileDialog::Kind::Folder;
    what.filters.clear();
    what.several = false;
    std::vector<std::string> names;
    EXPECT_THAT(choose({{"below",
                         [&] {
                             names = shownNames();
                             clickOn("below");
                             clickAccept();
                         }}}),
                ElementsAre(in("below")));
    EXPECT_THAT(names, ElementsAre("below"));
    EXPECT_THAT(choose({{"below", [] { clickAccept(); }}}), ElementsAre(folder.path()));
    EXPECT_THAT(choose({{"below",
                         [this] {
                             typeName(in("below"));
                             pressEnter();
                         }}}),
                ElementsAre(in("below")));
}

TEST_F(FileDialogs, AFolderThatIsGoneGivesWayToTheUsualOne)
{
    what.folder = in("gone/");
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(in("below")));
    EXPECT_THAT(choose({{"deep.avi", [] { clickReject(); }}}), IsEmpty());
    std::filesystem::create_directories(in("below/Videos"));
    make("below/Videos/own.avi");
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_THAT(choose({{"own.avi", [] { clickReject(); }}}), IsEmpty());
    what.folder = "";
    EXPECT_THAT(choose({{"own.avi", [] { clickReject(); }}}), IsEmpty());
    qputenv("HOME", home);
    if (!config.isNull())
        qputenv("XDG_CONFIG_HOME", config);
}

TEST_F(FileDialogs, AFileToSaveNeedsNotBeThereAndIsNotReplacedUnasked)
{
    what.kind = FileDialog::Kind::Save;
    what.several = false;
    what.name = "list";
    what.extension = "txt";
    EXPECT_THAT(choose({{"a.avi", [] { clickAccept(); }}}), ElementsAre(in("list.txt")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("notes");
                             clickAccept();
                             ASSERT_TRUE(upDialog()->isVisible());
                             EXPECT_THAT(hintText(), HasSubstr("notes.txt"));
                             clickAccept();
                         }}}),
                ElementsAre(in("notes.txt")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             typeName("gone/list");
                             clickAccept();
                             EXPECT_THAT(hintText(), HasSubstr("gone"));
                             clickReject();
                         }}}),
                IsEmpty());
}

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
    std::vector<Text> both;
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

TEST_F(FileDialogs, TheEndOfTheProgramCancelsItAndTheBoxAboveIt)
{
    EXPECT_THAT(choose({{"a.avi",
                         [this] {
                             clickOn("a.avi");
                             QTimer::singleShot(0, &qt, [this] { qt.messageBox("?", BoxStyle::Information, "Box"); });
                             QTimer::singleShot(20, &qt, [this] { qt.endBoxes(); });
                         }}}),
                IsEmpty());
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty()) << "and none comes up any more";
}

TEST_F(FileDialogs, TimersOfTheProgramGoOnMeanwhile)
{
    const auto form = std::make_shared<Form>("clock", Frame::Dialog, TwipsRect{0, 0, 3000, 3000});
    form->load();
    int ticks = 0;
    Timer timer(*form, "Timer1", 1, true);
    timer.Tick = [&] { ++ticks; };
    timer.Enabled = false;
    timer.Enabled = true;
    const Meanwhile user([&] {
        if (!upDialog() || ticks < 3)
            return false;
        clickReject();
        return true;
    });
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_GE(ticks, 3);
}

TEST_F(FileDialogs, ALargeFolderIsListedAndNothingWaitsForIt)
{
    for (int index = 0; index < 5000; ++index)
        make("film " + std::to_string(index) + ".avi");
    int beats = 0;
    qint64 longest = 0;
    QElapsedTimer since;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        if (since.isValid())
            longest = std::max(longest, since.elapsed());
        since.start();
        ++beats;
    });
    beat.start(5);
    EXPECT_THAT(choose({{"film 4999.avi",
                         [] {
                             EXPECT_EQ(list()->model()->rowCount(), 5004);
                             EXPECT_LT(rowOf("film 999.avi").row(), rowOf("film 1000.avi").row());
                             typeName("film 4321.avi");
                             pressEnter();
                         }}}),
                ElementsAre(in("film 4321.avi")));
    EXPECT_GT(beats, 0);
    EXPECT_LT(longest, 2000);
}

TEST_F(FileDialogs, ItStaysWithinItsMonitorAndIsDressedAsTheProgram)
{
    QRect place;
    QRect screen;
    int body = 0;
    choose({{"a.avi", [&] {
                 place = upDialog()->geometry();
                 screen = upDialog()->screen()->availableGeometry();
                 EXPECT_TRUE(upDialog()->windowFlags().testFlag(Qt::FramelessWindowHint));
                 EXPECT_TRUE(upDialog()->isModal());
                 const QImage seen = upDialog()->grab().toImage();
                 body = pixelsOf(seen, palette::kGlassBottom);
                 EXPECT_GT(pixelsOf(seen, palette::kGroup), 0) << "the drawing of a folder";
                 EXPECT_GT(pixelsOf(seen, palette::kMoves), 20) << "the drawings of films, and the ring";
                 clickReject();
             }}});
    EXPECT_TRUE(screen.contains(place));
    EXPECT_NEAR(place.center().x(), screen.center().x(), 1);
    EXPECT_GT(body, place.width() * place.height() / 4);
}

TEST_F(FileDialogs, TheBandMovesItAndItsEdgesResizeIt)
{
    QRect before;
    QRect moved;
    QRect wider;
    QRect least;
    const auto drag = [](const QPoint& from, const QPoint& by) {
        const QPoint start = upDialog()->mapToGlobal(from);
        const auto send = [&](QEvent::Type type, const QPoint& at) {
            QMouseEvent event(type, upDialog()->mapFromGlobal(at), at,
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(upDialog(), &event);
        };
        send(QEvent::MouseButtonPress, start);
        send(QEvent::MouseMove, start + by / 2);
        send(QEvent::MouseMove, start + by);
        send(QEvent::MouseButtonRelease, start + by);
    };
    choose({{"a.avi", [&] {
                 upDialog()->resize(500, 400);
                 before = upDialog()->geometry();
                 drag({60, 12}, {-7, -9});
                 moved = upDialog()->geometry();
                 drag({moved.width() - 2, moved.height() - 2}, {30, 20});
                 wider = upDialog()->geometry();
                 drag({2, wider.height() / 2}, {2000, 0});
                 least = upDialog()->geometry();
                 clickReject();
             }}});
    EXPECT_EQ(moved, before.translated(-7, -9));
    EXPECT_EQ(wider, moved.adjusted(0, 0, 30, 20));
    EXPECT_EQ(least.right(), wider.right());
    EXPECT_GT(least.width(), 100);
    EXPECT_LT(least.width(), wider.width());
}

TEST_F(FileDialogs, ItSpeaksTheLanguageThatItIsGiven)
{
    FileDialogTexts texts;
    texts.open = "Ö&ffnen";
    texts.cancel = "Abbrechen";
    texts.lookIn = "Suchen &in:";
    texts.size = "Größe";
    texts.folder = "Ordner";
    qt.setFileDialogTexts(texts);
    std::vector<std::string> seen;
    choose({{"a.avi", [&] {
                 const QAbstractItemModel& rows = *list()->model();
                 seen = {part<QPushButton>("accept")->text().toStdString(),
                         part<QPushButton>("reject")->text().toStdString(),
                         part<QComboBox>("lookIn")->accessibleName().toStdString(),
                         rows.headerData(1, Qt::Horizontal).toString().toStdString(),
                         rows.index(0, 2).data().toString().toStdString()};
                 clickReject();
             }}});
    EXPECT_THAT(seen, ElementsAre("Ö&ffnen", "Abbrechen", "Suchen in:", "Größe", "Ordner"));
}

TEST_F(FileDialogs, ThePlacesLeadWhereTheySay)
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(in("below")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             auto* places = part<QListWidget>("filePlaces");
                             EXPECT_EQ(places->item(0)->text(), "Home");
                             QTest::mouseClick(places->viewport(), Qt::LeftButton, Qt::NoModifier,
                                               places->visualItemRect(places->item(0)).center());
                         }},
                        {"deep.avi",
                         [] {
                             clickOn("deep.avi");
                             clickAccept();
                         }}}),
                ElementsAre(in("below/deep.avi")));
    qputenv("HOME", home);
}

TEST_F(FileDialogs, ThePointerOfALongCommandRestsWhileItIsUp)
{
    qt.mousePointerChanged(pointer::kHourglass);
    tandrel::screen().MousePointer = pointer::kHourglass;
    bool hourglass = true;
    choose({{"a.avi", [&] {
                 hourglass = QGuiApplication::overrideCursor() != nullptr;
                 clickReject();
             }}});
    EXPECT_FALSE(hourglass);
    ASSERT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    tandrel::screen().MousePointer = pointer::kDefault;
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
