// The toolkit's own dialog for files, driven by its controls while it is up.

#include "file_dialog_bench.h"

#include "toolkit/qt/palette.h"
#include "toolkit/screen.h"

#include <QListWidget>
#include <QWindow>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

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

TEST_F(FileDialogs, AnotherOrderLeavesTheChoice)
{
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             clickOn("a.avi");
                             clickOn("c.mp4", Qt::ControlModifier);
                             list()->sortByColumn(0, Qt::DescendingOrder);
                             EXPECT_THAT(shownNames(), ElementsAre("below", "c.mp4", "B.MP4", "a.avi"));
                             clickAccept();
                         }}}),
                ElementsAre(in("a.avi"), in("c.mp4")));
    EXPECT_THAT(choose({{"a.avi",
                         [] {
                             EXPECT_EQ(shownNames().back(), "a.avi") << "the next dialog keeps the order";
                             list()->sortByColumn(0, Qt::AscendingOrder);
                             clickReject();
                         }}}),
                IsEmpty());
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

TEST_F(FileDialogs, ItStandsBeforeTheActiveFormAndOnItsMonitor)
{
    const auto small = std::make_shared<Form>("small", Frame::Dialog, TwipsRect{0, 0, 3000, 3000});
    const auto large = std::make_shared<Form>("large", Frame::Dialog, TwipsRect{0, 0, 6000, 6000});
    large->Show();
    small->Show();
    const QWindow* before = nullptr;
    const auto look = [&] {
        before = upDialog()->windowHandle()->transientParent();
        clickReject();
    };
    choose({{"a.avi", look}});
    EXPECT_EQ(before, windowOf(*small)->windowHandle());
    applicationDeactivated();
    choose({{"a.avi", look}});
    EXPECT_EQ(before, windowOf(*large)->windowHandle()) << "which may cover the screen";
    large->Hide();
    small->Hide();
    choose({{"a.avi", look}});
    EXPECT_EQ(before, nullptr);
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

} // namespace

} // namespace tandrel::test
