// The console itself and the small forms, on real widgets.

#include "widget_bench.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/frm_start.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "texts/frm_help.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "toolkit/qt/palette.h"
#include "video/frm_child.h"

#include <QAbstractButton>
#include <QLabel>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtTest/qtestmouse.h>

#include <set>

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

bool isTabStop(const Control& control)
{
    if (const auto* image = dynamic_cast<const Image*>(&control))
        return image->tabStop;
    return dynamic_cast<const Slider*>(&control) || dynamic_cast<const CommandButton*>(&control) ||
           dynamic_cast<const CheckBox*>(&control);
}

/// Counts what is painted in the whole program.
class PaintCounter : public QObject
{
public:
    PaintCounter() { qApp->installEventFilter(this); }
    int paints = 0;
    std::set<std::string> names;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
            names.insert(watched->objectName().toStdString());
        }
        return false;
    }
};

class ConsoleWidgets : public WidgetBench
{
protected:
    ConsoleWidgets() { world.settled(); }

    class frmMedia& console() { return frmMedia(); }
    QWidget* window() { return windowOf(console()); }

    /// The console as it stands beside another one, without splash and without a medium.
    void start()
    {
        setCommandLine({"\"/films/none.avi\"", {}});
        world.instances.another = true;
        world.files.content["/data/pres.dat"] = {" 1 "};
        console().Show();
        ASSERT_TRUE(within(3000, [this] { return window()->isActiveWindow(); }));
    }
    std::vector<std::string> tabStops()
    {
        std::vector<std::string> names;
        for (const Control* control : console().controls())
            if (control->visible() && isTabStop(*control))
                names.push_back(control->name());
        return names;
    }
    /// A press of the user's own, which gives the keys to what takes them, and a release beside it, which clicks
    /// nothing.
    static void takeWithMouse(QWidget* widget)
    {
        QTest::mousePress(widget, Qt::LeftButton, {}, widget->rect().center());
        QTest::mouseRelease(widget, Qt::LeftButton, {}, {-50, -50});
    }
    /// The pointer comes to a place of the console, and whatever lies there hears of it.
    void moveTo(QPoint place)
    {
        QTest::mouseMove(window()->windowHandle(), place);
        QApplication::processEvents();
    }
    void moveOver(const Control& control)
    {
        QWidget* widget = named(console(), control.name().c_str());
        moveTo(widget->mapTo(window(), widget->rect().center()));
    }
    /// Nothing is left to be painted.
    bool settle(PaintCounter& counter)
    {
        int quietRounds = 0;
        return within(5000, [&] {
            const int before = counter.paints;
            QApplication::sendPostedEvents();
            QApplication::processEvents();
            quietRounds = counter.paints == before ? quietRounds + 1 : 0;
            return quietRounds > 20;
        });
    }
};

} // namespace

// The keyboard.

TEST_F(ConsoleWidgets, TabReachesEveryStopInOrderAndEachShowsItsRing)
{
    start();
    const auto stops = tabStops();
    ASSERT_EQ(stops.size(), 29U);
    named(console(), "imgExit")->setFocus(Qt::OtherFocusReason);
    std::vector<std::string> reached;
    for (std::size_t step = 0; step < stops.size(); ++step) {
        QWidget* next = named(console(), stops[step].c_str());
        const int without = pixelsOf(looks(next), palette::kMoves);
        type(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        reached.push_back(focused->objectName().toStdString());
        EXPECT_GT(pixelsOf(looks(focused), palette::kMoves), without + 20) << reached.back();
    }
    EXPECT_THAT(reached, ElementsAreArray(stops));
}

TEST_F(ConsoleWidgets, BacktabGoesTheOtherWay)
{
    start();
    QWidget* play = named(console(), "imgPlay");
    const int without = pixelsOf(looks(play), palette::kMoves);
    named(console(), "imgPause")->setFocus(Qt::OtherFocusReason);
    QKeyEvent back(QEvent::KeyPress, Qt::Key_Backtab, Qt::ShiftModifier);
    QApplication::sendEvent(QApplication::focusWidget(), &back);
    EXPECT_EQ(QApplication::focusWidget(), play);
    EXPECT_GT(pixelsOf(looks(play), palette::kMoves), without + 20);
}

TEST_F(ConsoleWidgets, ThePressOfTheMouseShowsNoRing)
{
    start();
    // The sliders keep their places, so that their pictures differ by the ring alone.
    console().SeekSlider.LargeChange = 0;
    console().InvertSlider.LargeChange = 0;
    for (const auto& name : tabStops()) {
        if (QWidget* former = QApplication::focusWidget())
            former->clearFocus();
        QWidget* stop = named(console(), name.c_str());
        const int without = pixelsOf(looks(stop), palette::kMoves);
        takeWithMouse(stop);
        EXPECT_LE(pixelsOf(looks(stop), palette::kMoves), without) << name;
    }
}

TEST_F(ConsoleWidgets, AKeyOnASliderThatTheMouseHasTakenShowsItsRing)
{
    start();
    // The other slider hands the keys on to this one at once.
    QWidget* slider = named(console(), "InvertSlider");
    slider->clearFocus();
    takeWithMouse(slider);
    ASSERT_EQ(QApplication::focusWidget(), slider);
    type(slider, Qt::Key_Home);
    const int withRing = pixelsOf(looks(slider), palette::kMoves);
    slider->clearFocus();
    EXPECT_GT(withRing, pixelsOf(looks(slider), palette::kMoves) + 20);
}

TEST_F(ConsoleWidgets, ItBeginsWithoutARing)
{
    start();
    EXPECT_EQ(QApplication::focusWidget(), named(console(), "InvertSlider"));
    const int now = pixelsOf(looks(named(console(), "InvertSlider")), palette::kMoves);
    named(console(), "InvertSlider")->clearFocus();
    EXPECT_EQ(pixelsOf(looks(named(console(), "InvertSlider")), palette::kMoves), now);
}

// The mouse.

TEST_F(ConsoleWidgets, TheSecondOfTwoFastPressesIsAPressOfTheImage)
{
    start();
    Image& image = console().imgPlay;
    int onImage = 0;
    int onForm = 0;
    int clicks = 0;
    const auto showPress = image.MouseDown;
    image.MouseDown = [&](const MouseEvent& event) {
        ++onImage;
        showPress(event);
    };
    image.Click = [&] { ++clicks; };
    console().MouseDown = [&](const MouseEvent&) { ++onForm; };
    QWidget* widget = named(console(), "imgPlay");
    const QPointF middle = QRectF(widget->rect()).center();
    press(widget);
    mouseAt(widget, QEvent::MouseButtonDblClick, middle, Qt::LeftButton);
    EXPECT_EQ(image.borderStyle(), 1);
    EXPECT_EQ(onImage, 2);
    mouseAt(widget, QEvent::MouseButtonRelease, middle, Qt::LeftButton);
    EXPECT_EQ(image.borderStyle(), 0);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(onForm, 0);
}

TEST_F(ConsoleWidgets, AMoveOverAnImageOrATextIsNotOneOverTheBody)
{
    start();
    int onForm = 0;
    console().MouseMove = [&](const MouseEvent&) { ++onForm; };
    FullMedia = "\"/films/a.avi\"";
    int images = 0;
    for (Control* control : console().controls())
        if (auto* image = dynamic_cast<Image*>(control); image && image->Click) {
            moveOver(*image);
            ++images;
        }
    EXPECT_EQ(images, 24);
    for (Label* label : {&console().lblTitleBar, &console().Label3, &console().lblCurTime, &console().lblDuration})
        moveOver(*label);
    EXPECT_EQ(onForm, 0);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    moveTo({340, 60});
    EXPECT_THAT(world.mci.sent(), ElementsAre("Play \"/films/a.avi\" "));
}

// The outline.

TEST_F(ConsoleWidgets, ItsOutlineHoldsEveryControlThatIsPressed)
{
    start();
    const QRegion outline = window()->mask();
    EXPECT_TRUE(window()->rect().contains(outline.boundingRect()));
    EXPECT_FALSE(outline.contains(QPoint(0, 0)));
    EXPECT_FALSE(outline.contains(window()->rect().bottomRight()));
    for (const auto& name : tabStops())
        EXPECT_TRUE(outline.contains(named(console(), name.c_str())->geometry().center())) << name;
}

TEST_F(ConsoleWidgets, ItsPositionSliderLiesOnTheColourOfTheBody)
{
    start();
    const QImage slider = looks(named(console(), "SeekSlider"));
    EXPECT_EQ(slider.pixelColor(0, 0), QColor(14, 45, 81));
    EXPECT_EQ(slider.pixelColor(slider.width() - 1, slider.height() - 1), QColor(14, 45, 81));
    EXPECT_EQ(looks(named(console(), "InvertSlider")).pixelColor(0, 0).alpha(), 0);
}

// Painting.

TEST_F(ConsoleWidgets, NothingIsPaintedWhileNothingChanges)
{
    start();
    PaintCounter counter;
    ASSERT_TRUE(settle(counter));
    console().Timer2.Enabled = true;
    console().Timer2.tick();
    ASSERT_TRUE(settle(counter));
    counter.paints = 0;
    counter.names.clear();
    for (int tick = 0; tick < 100; ++tick)
        console().Timer3.tick();
    for (int tick = 0; tick < 7; ++tick)
        console().Timer2.tick();
    for (int tick = 0; tick < 2; ++tick)
        console().Timer4.tick();
    ASSERT_TRUE(settle(counter));
    EXPECT_EQ(counter.paints, 0);
    EXPECT_THAT(counter.names, IsEmpty());
    console().lblSpeed.Caption = "2x";
    ASSERT_TRUE(settle(counter));
    EXPECT_THAT(counter.names, Contains("lblSpeed")) << "a change is seen";
}

// The drawings.

TEST_F(ConsoleWidgets, EveryDrawingThatIsNamedIsThere)
{
    start();
    std::set<QString> names{"box_stop", "box_question", "box_warning", "box_information"};
    for (const char* plate : {"plate_round", "plate_play", "plate_lead"})
        for (const char* state : {"", "_hover", "_pressed"})
            names.insert(QString(plate) + state);
    const QRegularExpression reference(QStringLiteral("url\\(:/skin/([^)]+)\\.svg\\)"));
    for (auto found = reference.globalMatch(qApp->styleSheet()); found.hasNext();)
        names.insert(found.next().captured(1));
    const auto video = newForm<frmChild>();
    const auto panel = newForm<class frmPanel>();
    const auto first = newForm<class frmStart>();
    const auto splash = newForm<class frmSplash>();
    for (const Form* form :
         std::initializer_list<const Form*>{&console(), &frmHelp(), &frmToolTip(), &frmUpdate(), &frmWait(), &frmLang(),
                                            video.get(), panel.get(), first.get(), splash.get()})
        for (const Control* control : form->controls())
            if (const auto* image = dynamic_cast<const Image*>(control))
                names.insert(QString::fromStdString(image->picture()));
    // Some lie on a drawing that shows them already, and on some a picture is put later.
    names.erase(QString());
    EXPECT_GT(names.size(), 45U);
    for (const QString& name : names) {
        EXPECT_TRUE(QSvgRenderer(":/skin/" + name + ".svg").isValid()) << name.toStdString();
        const Bitmap picture = qt.picture(name.toStdString(), 60, 60);
        EXPECT_TRUE(std::any_of(picture.pixels.begin(), picture.pixels.end(), [](auto pixel) { return pixel != 0; }))
            << name.toStdString() << " shows nothing";
    }
}

// The small forms.

TEST_F(ConsoleWidgets, TheHelpShowsADoubledAmpersandAsOne)
{
    start();
    frmHelp().Show();
    EXPECT_EQ(qobject_cast<QLabel*>(named(frmHelp(), "Label14"))->text(), "Pause & Mute all Video on the screen");
    type(windowOf(frmHelp()), Qt::Key_Escape);
    EXPECT_FALSE(Loaded<class frmHelp>());
}

TEST_F(ConsoleWidgets, TheMessageBoxHoldsItsCallerUntilAButtonIsPressed)
{
    start();
    for (const bool cancel : {false, true}) {
        console().UpdateCancelled = !cancel;
        frmUpdate().lblUpdate.Caption = "Something happened.";
        Qt::WindowModality modality = Qt::NonModal;
        Meanwhile user([&] {
            if (!Loaded<class frmUpdate>() || !windowOf(frmUpdate())->isVisible())
                return false;
            modality = windowOf(frmUpdate())->windowModality();
            type(windowOf(frmUpdate()), cancel ? Qt::Key_Escape : Qt::Key_Return);
            return true;
        });
        frmUpdate().Show(ShowMode::Modal);
        EXPECT_TRUE(user.isDone());
        EXPECT_EQ(modality, Qt::ApplicationModal);
        EXPECT_EQ(console().UpdateCancelled, cancel);
        EXPECT_FALSE(Loaded<class frmUpdate>());
    }
}

TEST_F(ConsoleWidgets, TheSplashHoldsTheConsoleUntilItsLastTick)
{
    int ticks = 0;
    bool consoleSeen = true;
    double opacity = 0;
    Meanwhile user([&] {
        if (!Loaded<class frmSplash>() || !windowOf(frmSplash())->isVisible())
            return false;
        consoleSeen = console().visible();
        opacity = windowOf(frmSplash())->windowOpacity();
        for (; Loaded<class frmSplash>(); ++ticks)
            frmSplash().Timer1.tick();
        return true;
    });
    frmStart().start();
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(ticks, 9);
    EXPECT_FALSE(consoleSeen);
    EXPECT_EQ(opacity, 1);
    EXPECT_TRUE(console().visible());
    EXPECT_FALSE(Loaded<class frmStart>());
}

TEST_F(ConsoleWidgets, TheTipsButtonLightsUpUnderThePointer)
{
    start();
    frmToolTip().Show();
    QWidget* lit = named(frmToolTip(), "imgExit");
    EXPECT_FALSE(lit->isVisible());
    mouseAt(named(frmToolTip(), "imgExit1"), QEvent::MouseMove, {5, 5}, Qt::NoButton);
    EXPECT_TRUE(lit->isVisible());
    EXPECT_EQ(windowOf(frmToolTip())->childAt(lit->geometry().center()), lit) << "the click is for it";
    mouseAt(named(frmToolTip(), "imgBody"), QEvent::MouseMove, {50, 50}, Qt::NoButton);
    EXPECT_FALSE(lit->isVisible());
    EXPECT_EQ(windowOf(frmToolTip())->childAt(100, 30), named(frmToolTip(), "imgBody")) << "the text takes no mouse";
}

} // namespace tandrel::test
