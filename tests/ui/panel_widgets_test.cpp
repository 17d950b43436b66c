// The panel of full screen and the sliders of the console, under a real hand on mouse and keys.

#include "widget_bench.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "video/frm_child.h"
#include "video/slots.h"

#include <QAbstractButton>
#include <QtTest/qtestmouse.h>

#include <algorithm>
#include <set>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// One video, a minute long; nothing ticks.
class PanelWidgets : public WidgetBench
{
protected:
    PanelWidgets()
    {
        world.settled();
        world.mediaAnswer(640, 480, 60000, 1500);
        setCommandLine({"\"/films/none.avi\"", {}});
        world.instances.another = true;
        world.files.content["/data/pres.dat"] = {" 1 "};
    }
    class frmMedia& console() { return frmMedia(); }
    class frmPanel& panel() { return frmPanel(); }
    frmChild& video() { return *VideoWindows.at(0); }

    void start()
    {
        console().Show();
        ASSERT_TRUE(within(3000, [this] { return windowOf(console())->isActiveWindow(); }));
        CurrentAlias = "\"/films/a.avi\"";
        newSlot("/films/a.avi").Show();
        NextSlot += 1;
        for (Timer* timer : {&console().Timer1, &console().Timer2, &console().Timer3, &console().Timer4})
            timer->Enabled = false;
        console().SeekSlider.Max = 60000;
        QApplication::processEvents();
        world.mci.clear();
    }
    void startFull()
    {
        start();
        video().fillScreen();
        bringUpPanel("File:: a.avi");
        panel().Timer2.Enabled = false;
        // In a corner, as a pointer that is where it should go already would not move.
        QTest::mouseMove(windowOf(panel())->windowHandle(), {1, 40});
        QApplication::processEvents();
        world.mci.clear();
    }
    /// The commands with the alias as "A".
    std::vector<std::string> commands() const
    {
        std::vector<std::string> all = world.mci.sent();
        const std::string alias = "\"/films/a.avi\"";
        for (std::string& command : all)
            if (const auto at = command.find(alias); at != std::string::npos)
                command.replace(at, alias.size(), "A");
        return all;
    }
    QWidget* on(const char* name) { return named(panel(), name); }
    /// The pointer comes to a widget, and whatever lies there hears of it.
    static void moveOver(QWidget* widget)
    {
        QTest::mouseMove(widget->window()->windowHandle(), widget->mapTo(widget->window(), widget->rect().center()));
        QApplication::processEvents();
    }
    /// What a press at the middle of the widget would hit.
    static QWidget* seenAt(QWidget* widget)
    {
        return widget->window()->childAt(widget->mapTo(widget->window(), widget->rect().center()));
    }
    /// The user types into whatever has the keys of the panel.
    void typeText(const char* text)
    {
        QWidget* focused = windowOf(panel())->focusWidget();
        QKeyEvent key(QEvent::KeyPress, QChar::toUpper(static_cast<uint>(*text)), Qt::NoModifier, text);
        QApplication::sendEvent(focused ? focused : windowOf(panel()), &key);
    }
};

} // namespace

// Hover.

TEST_F(PanelWidgets, TheButtonUnderThePointerIsLitAndTheFormerOneIsNot)
{
    startFull();
    const QImage dark = looks(on("imgRwd"));
    moveOver(on("imgRwd"));
    EXPECT_EQ(panel().imgRwd.picture(), "panel_rewind_on");
    EXPECT_NE(looks(on("imgRwd")), dark);
    moveOver(on("imgNoFull"));
    EXPECT_EQ(panel().imgRwd.picture(), "");
    EXPECT_EQ(looks(on("imgRwd")), dark);
    EXPECT_EQ(panel().imgNoFull.picture(), "panel_windowed_on");
    moveOver(on("lblTitle"));
    EXPECT_EQ(panel().imgNoFull.picture(), "");
}

TEST_F(PanelWidgets, ThePointerThatLeavesPutsAllToRest)
{
    startFull();
    moveOver(on("imgFwd"));
    ASSERT_EQ(panel().imgFwd.picture(), "panel_forward_on");
    QTest::mouseMove(windowOf(video())->windowHandle(), {100, 100});
    EXPECT_TRUE(within(1000, [this] { return panel().imgFwd.picture().empty(); }));
}

TEST_F(PanelWidgets, WhereverThePointerMovesThePanelStaysUp)
{
    startFull();
    for (const char* name :
         {"lblTitle", "lblCurrent", "picMain", "imgMoveUp", "imgPause", "imgVolButton", "InvertSlider"}) {
        panel().PanelIdle = true;
        moveOver(on(name));
        EXPECT_FALSE(panel().PanelIdle) << name;
    }
}

TEST_F(PanelWidgets, EveryPictureThatItMayShowIsDrawn)
{
    startFull();
    std::set<Text> names{panel().picMain.picture};
    const auto note = [&] {
        for (const Control* control : panel().controls())
            if (const auto* image = dynamic_cast<const Image*>(control))
                names.insert(image->picture());
    };
    for (const int mutedFrom : {0, 50}) {
        panel().MuteMemory = mutedFrom;
        for (const Control* control : panel().controls()) {
            control->MouseMove({});
            note();
        }
    }
    // At rest some are shown by the row that they lie on.
    names.erase("");
    EXPECT_EQ(names.size(), 16U);
    for (const Text& name : names) {
        const Bitmap picture = qt.picture(name, 60, 60);
        EXPECT_TRUE(std::any_of(picture.pixels.begin(), picture.pixels.end(), [](auto pixel) { return pixel != 0; }))
            << name << " shows nothing";
    }
}

// The strip.

TEST_F(PanelWidgets, TheStripLiesOpenToTheMouseAlongItsWholeLength)
{
    startFull();
    EXPECT_EQ(seenAt(on("slide_black")), on("imgMoveUp"));
    EXPECT_EQ(seenAt(on("imgPull")), on("imgMoveUp"));
    EXPECT_EQ(on("imgMoveUp")->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(PanelWidgets, APressOnTheStripMovesItsHandleAndTheClickSeeks)
{
    startFull();
    QWidget* strip = on("imgMoveUp");
    const int length = panel().slide_black.width();
    mouseAt(strip, QEvent::MouseButtonPress, {500, 4}, Qt::LeftButton);
    EXPECT_EQ(panel().imgPull.left(), 7500 - 120);
    EXPECT_EQ(on("imgPull")->x(), 492);
    EXPECT_EQ(on("slide_blue")->width(), 500);
    EXPECT_THAT(commands(), IsEmpty());
    mouseAt(strip, QEvent::MouseButtonRelease, {500, 4}, Qt::LeftButton);
    const int place = Long(7500.0 * 60000 / length);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to " + std::to_string(place), "Play A"));
    EXPECT_FALSE(panel().PanelSeeking);
}

TEST_F(PanelWidgets, ADragAlongTheStripSeeksAtEachMove)
{
    startFull();
    video().Paused = 1;
    QWidget* strip = on("imgMoveUp");
    const int length = panel().slide_black.width();
    const auto seekTo = [&](int pixel) { return "seek A to " + std::to_string(Long(pixel * 15.0 * 60000 / length)); };
    mouseAt(strip, QEvent::MouseButtonPress, {100, 4}, Qt::LeftButton);
    mouseAt(strip, QEvent::MouseMove, {200, 4}, Qt::LeftButton);
    mouseAt(strip, QEvent::MouseMove, {900, 4}, Qt::LeftButton);
    // The pointer may slip off the thin strip while it is held, and lets go without a click there.
    mouseAt(strip, QEvent::MouseMove, {1000, 60}, Qt::LeftButton);
    mouseAt(strip, QEvent::MouseButtonRelease, {1000, 60}, Qt::LeftButton);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", seekTo(200), "set A time format ms", seekTo(900),
                                        "set A time format ms", seekTo(1000)));
    EXPECT_FALSE(panel().PanelSeeking);
}

// The buttons, the volume and the keys.

TEST_F(PanelWidgets, PauseGivesWayToPlayAtTheSamePlace)
{
    startFull();
    ASSERT_EQ(seenAt(on("imgPause")), on("imgPause"));
    press(on("imgPause"));
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_EQ(seenAt(on("imgPause")), on("imgPlay"));
    EXPECT_FALSE(on("imgPause")->isVisible()) << "it would be seen around the other";
    world.mci.clear();
    press(on("imgPlay"));
    EXPECT_EQ(commands().size(), 4U);
    EXPECT_EQ(seenAt(on("imgPlay")), on("imgPause"));
    EXPECT_FALSE(on("imgPlay")->isVisible());
}

TEST_F(PanelWidgets, AHeldButtonHasItsBorder)
{
    startFull();
    QWidget* button = on("imgRwd");
    mouseAt(button, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    EXPECT_EQ(panel().imgRwd.borderStyle(), 1);
    EXPECT_FALSE(FastRewind);
    mouseAt(button, QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton);
    EXPECT_EQ(panel().imgRwd.borderStyle(), 0);
    EXPECT_TRUE(FastRewind);
}

TEST_F(PanelWidgets, TheWayOutTakesThePanelAwayInsideItsOwnClick)
{
    startFull();
    press(on("imgNoFull"));
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_EQ(ClickState, 1.0);
}

TEST_F(PanelWidgets, TheThumbOfTheVolumeIsDraggedToItsEnds)
{
    startFull();
    QWidget* slider = on("InvertSlider");
    ASSERT_EQ(panel().InvertSlider.value(), 50);
    mouseAt(slider, QEvent::MouseButtonPress, QRectF(slider->rect()).center(), Qt::LeftButton);
    EXPECT_THAT(commands(), IsEmpty());
    mouseAt(slider, QEvent::MouseMove, {500, 10}, Qt::LeftButton);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 1000"));
    EXPECT_EQ(console().InvertSlider.value(), 0);
    mouseAt(slider, QEvent::MouseMove, {-500, 10}, Qt::LeftButton);
    mouseAt(slider, QEvent::MouseButtonRelease, {-500, 10}, Qt::LeftButton);
    EXPECT_EQ(commands().back(), "setaudio A Volume to 0");
    EXPECT_EQ(video().Volume, 0);
    EXPECT_EQ(VolumeLevel, 0);
}

TEST_F(PanelWidgets, TypedLettersReachThePanelWhereverTheKeysAre)
{
    startFull();
    typeText("p");
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_EQ(video().Paused, 1);
    on("InvertSlider")->setFocus();
    typeText("P");
    EXPECT_EQ(video().Paused, 1);
    typeText("l");
    EXPECT_EQ(video().Paused, 0);
    typeText("f");
    EXPECT_TRUE(FastForward);
    typeText("r");
    EXPECT_FALSE(FastForward || FastRewind);
    typeText("0");
    EXPECT_EQ(activeForm(), &panel());
    typeText("1");
    EXPECT_EQ(activeForm(), &video());
}

TEST_F(PanelWidgets, TheArrowsOnItsSliderAreItsOwn)
{
    startFull();
    on("InvertSlider")->setFocus();
    type(on("InvertSlider"), Qt::Key_Right);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 510"));
}

// The sliders and the box of the console.

TEST_F(PanelWidgets, AHeldThumbOfTheConsoleMovesThePictureAndItsReleasePlays)
{
    start();
    console().Timer1.Enabled = true;
    QWidget* slider = named(console(), "SeekSlider");
    slider->setFocus();
    const double thumb = 9;
    const double middle = slider->width() / 2.0;
    mouseAt(slider, QEvent::MouseButtonPress, {thumb, 10}, Qt::LeftButton);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_THAT(commands(), IsEmpty());
    mouseAt(slider, QEvent::MouseMove, {middle, 10}, Qt::LeftButton);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "status A position", "status A length",
                                        "set A time format ms", "seek A to 30000"));
    world.mci.clear();
    mouseAt(slider, QEvent::MouseButtonRelease, {middle, 10}, Qt::LeftButton);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 30000", "Play A"));
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_FALSE(console().SeekDragging);
    EXPECT_EQ(windowOf(console())->focusWidget(), named(console(), "InvertSlider")) << "it keeps no keys";
}

TEST_F(PanelWidgets, ThePointerOverTheConsolesSliderSeeksNothing)
{
    start();
    QWidget* slider = named(console(), "SeekSlider");
    mouseAt(slider, QEvent::MouseMove, {300, 10}, Qt::NoButton);
    mouseAt(slider, QEvent::MouseButtonPress, {9, 10}, Qt::RightButton);
    mouseAt(slider, QEvent::MouseMove, {300, 10}, Qt::RightButton);
    mouseAt(slider, QEvent::MouseButtonRelease, {300, 10}, Qt::RightButton);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(console().SeekSlider.value(), 0);
}

TEST_F(PanelWidgets, TheVeryFirstClickBesideTheThumbIsAPageOfTheLength)
{
    start();
    video().Paused = 1;
    QWidget* slider = named(console(), "SeekSlider");
    press(slider);
    EXPECT_EQ(console().SeekSlider.value(), 1800);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "status A position", "status A length",
                                        "set A time format ms", "seek A to 1800"));
    press(slider);
    EXPECT_EQ(console().SeekSlider.value(), 3600);
    mouseAt(slider, QEvent::MouseButtonPress, {9, 10}, Qt::LeftButton);
    mouseAt(slider, QEvent::MouseButtonRelease, {9, 10}, Qt::LeftButton);
    EXPECT_EQ(console().SeekSlider.value(), 1800) << "and back";
}

TEST_F(PanelWidgets, ASliderWithoutALengthCanBePressed)
{
    start();
    console().SeekSlider.Max = 0;
    press(named(console(), "SeekSlider"));
    EXPECT_EQ(console().SeekSlider.value(), 0);
    EXPECT_EQ(commands().back(), "Play A");
}

TEST_F(PanelWidgets, TheConsolesVolumeRisesWithItsThumb)
{
    start();
    QWidget* slider = named(console(), "InvertSlider");
    mouseAt(slider, QEvent::MouseButtonPress, QRectF(slider->rect()).center(), Qt::LeftButton);
    mouseAt(slider, QEvent::MouseMove, {10, -100}, Qt::LeftButton);
    mouseAt(slider, QEvent::MouseButtonRelease, {10, -100}, Qt::LeftButton);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 1000"));
    EXPECT_EQ(video().Volume, 100);
}

TEST_F(PanelWidgets, TheBoxForFullScreenIsEmptyAgainBehindItsClick)
{
    start();
    auto* box = qobject_cast<QAbstractButton*>(named(console(), "chkFullscreen"));
    ASSERT_NE(box, nullptr);
    press(box);
    EXPECT_FALSE(box->isChecked());
    EXPECT_TRUE(video().Full);
    press(box);
    EXPECT_FALSE(box->isChecked());
    EXPECT_FALSE(video().Full);
}

} // namespace tandrel::test
