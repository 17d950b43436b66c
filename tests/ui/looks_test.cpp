// What is seen of controls and windows: pictures of them, colours, outlines; and what wheel, boxes and close boxes do.

#include "widget_bench.h"

#include "desktop/region.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/palette.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QProgressBar>
#include <QtTest/qtestmouse.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

constexpr std::int32_t kGround = rgb(14, 45, 81);

class Panel : public Form
{
public:
    explicit Panel(Frame frame = Frame::Dialog) : Form("panel", frame, {1500, 1500, 6000, 3000})
    {
        image.plate = Plate::Lead;
        showsPress(image);
        image.Click = [] {};
        figures.role = TextRole::Time;
        ControlColour = [this](const Control& control) {
            return &control == &painted ? std::optional<Long>(kGround) : std::nullopt;
        };
    }

    Image image{*this, "image", {150, 150, 600, 600}, "pause"};
    CheckBox check{*this, "check", {900, 150, 1500, 300}, "On"};
    ProgressBar bar{*this, "bar", {900, 600, 1500, 120}};
    Label figures{*this, "figures", {150, 900, 3000, 700}, "0:00:00"};
    Slider painted{*this, "painted", {150, 1800, 3000, 300}, false};
    Slider bare{*this, "bare", {150, 2250, 3000, 300}, false};
    std::vector<int> turns;

protected:
    void onUnload() override { ended = true; }

public:
    bool ended = false;
};

class Looks : public WidgetBench
{
protected:
    Looks() { panel->Show(); }
    QWidget* the(const char* name) const { return named(*panel, name); }
    QWidget* window() const { return windowOf(*panel); }
    /// The pointer moves onto the image or off it, over the window.
    void pointAtImage(bool on)
    {
        QWidget* image = the("image");
        const QPoint middle = image->geometry().center() + QPoint(on ? 0 : 200, 0);
        int step = 0;
        ASSERT_TRUE(within(5000, [&] {
            QTest::mouseMove(window()->windowHandle(), middle + QPoint(++step % 2, 0));
            return image->underMouse() == on;
        })) << on;
        QApplication::processEvents();
    }
    std::shared_ptr<Panel> panel = std::make_shared<Panel>();
};

/// The runs of columns that have ink, as pairs of their first and their last.
std::vector<std::pair<int, int>> inkedColumns(const QImage& picture)
{
    const auto hasInk = [&](int x) {
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(x, y).alpha() > 0)
                return true;
        return false;
    };
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < picture.width(); ++x)
        if (hasInk(x)) {
            if (runs.empty() || runs.back().second != x - 1)
                runs.emplace_back(x, x);
            runs.back().second = x;
        }
    return runs;
}

} // namespace

TEST_F(Looks, AnImageButtonLooksAnotherWayUnderThePointerPressedAndDisabled)
{
    QWidget* image = the("image");
    pointAtImage(false);
    const QImage resting = looks(image);
    pointAtImage(true);
    const QImage hovered = looks(image);
    mouseAt(image, QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton);
    const QImage pressed = looks(image);
    mouseAt(image, QEvent::MouseButtonRelease, {5, 5}, Qt::LeftButton);
    EXPECT_EQ(looks(image), hovered);
    pointAtImage(false);
    EXPECT_EQ(looks(image), resting);
    pointAtImage(true);
    panel->image.Enabled = false;
    const QImage disabled = looks(image);
    const auto another = std::make_shared<Panel>();
    another->image.Enabled = false;
    another->Show();
    EXPECT_EQ(looks(named(*another, "image")), disabled) << "what can't be pressed does not light up";
    const std::vector<QImage> all{resting, hovered, pressed, disabled};
    for (std::size_t one = 0; one < all.size(); ++one)
        for (std::size_t other = 0; other < one; ++other)
            EXPECT_NE(all[one], all[other]) << one << " and " << other;
}

TEST_F(Looks, ACheckBoxShowsItsCaptionAndItsTick)
{
    auto* check = qobject_cast<QAbstractButton*>(the("check"));
    EXPECT_EQ(check->text(), "On");
    panel->check.Caption = "Off && on";
    EXPECT_EQ(check->text(), "Off && on") << "the widget makes one of the two";
    panel->check.Value = 1;
    EXPECT_TRUE(check->isChecked());
    panel->check.Value = 0;
    EXPECT_FALSE(check->isChecked());
}

TEST_F(Looks, AProgressBarIsFilledAsFarAsItSays)
{
    QWidget* bar = the("bar");
    const auto filled = [&] { return pixelsOf(looks(bar), palette::kMoves); };
    EXPECT_EQ(filled(), 0);
    panel->bar.show(3, 12);
    const int quarter = filled();
    EXPECT_GT(quarter, 0);
    panel->bar.show(6, 12);
    EXPECT_GT(filled(), quarter * 3 / 2);
    panel->bar.show(12, 12);
    EXPECT_GT(filled(), quarter * 3);
    panel->bar.show(0, 0);
    EXPECT_EQ(filled(), 0);
    EXPECT_EQ(qobject_cast<QProgressBar*>(bar)->maximum(), 1) << "a maximum of 0 would run to and fro";
}

TEST_F(Looks, ASliderIsPaintedOnTheColourOfItsFormAlone)
{
    const QImage painted = looks(the("painted"));
    const QImage bare = looks(the("bare"));
    for (const int x : {0, painted.width() - 1})
        for (const int y : {0, painted.height() - 1}) {
            EXPECT_EQ(painted.pixelColor(x, y), QColor(14, 45, 81)) << x << ", " << y;
            EXPECT_EQ(bare.pixelColor(x, y).alpha(), 0) << x << ", " << y;
        }
}

TEST_F(Looks, FiguresOfARunningTimeDoNotDance)
{
    QWidget* label = the("figures");
    const QFontMetricsF metrics(label->font());
    ASSERT_NE(metrics.horizontalAdvance('1'), metrics.horizontalAdvance('0')) << "a font whose figures would dance";
    const auto columns = [&](const char* time) {
        panel->figures.Caption = time;
        return inkedColumns(looks(label));
    };
    const auto ones = columns("0:11:11");
    const auto zeros = columns("0:00:00");
    ASSERT_EQ(ones.size(), 7U);
    ASSERT_EQ(zeros.size(), 7U);
    for (const std::size_t colon : {1U, 4U})
        EXPECT_EQ(ones[colon], zeros[colon]);
    EXPECT_NE(ones[2], zeros[2]);
}

// Windows.

TEST_F(Looks, ARegionIsWhatIsSeenOfTheWindow)
{
    panel->setRegion({{10, 0, 20, 1}, {5, 1, 30, 2}});
    EXPECT_EQ(window()->mask(), QRegion(10, 0, 10, 1) + QRegion(5, 1, 25, 1));
    panel->setRegion({{0, 0, 1, 1}});
    EXPECT_EQ(window()->mask(), QRegion(0, 0, 1, 1));
}

TEST_F(Looks, AnEmptyRegionLeavesNothingOfTheWindow)
{
    panel->setRegion({});
    EXPECT_FALSE(window()->mask().isEmpty()) << "an empty mask is none";
    EXPECT_FALSE(window()->mask().intersects(window()->rect()));
}

TEST_F(Looks, ASnapshotHasTheColoursOfTheWindow)
{
    const auto video = std::make_shared<Panel>(Frame::Video);
    video->Show();
    video->image.Visible = false;
    const Bitmap picture = video->snapshot();
    ASSERT_EQ(picture.width, 400);
    ASSERT_EQ(picture.height, 200);
    ASSERT_EQ(picture.pixels.size(), 80000U);
    const auto at = [&](int x, int y) { return picture.pixels[static_cast<std::size_t>(y * 400 + x)]; };
    EXPECT_EQ(at(380, 100), rgb(0x05, 0x0C, 0x16)) << "the ground of a video";
    EXPECT_EQ(at(380, 24), rgb(0x37, 0xC8, 0xF5)) << "the line below the title of the active window";
    EXPECT_EQ(at(0, 100), rgb(0x0F, 0x8F, 0xC4)) << "its border";
}

TEST_F(Looks, ADrawingIsBlackWhereItIsClear)
{
    const Bitmap plate = qt.picture("plate_lead", 40, 40);
    ASSERT_EQ(plate.pixels.size(), 1600U);
    EXPECT_EQ(plate.pixels.front(), 0);
    EXPECT_NE(plate.pixels[20 * 40 + 20], 0);
    const Bitmap missing = qt.picture("no such drawing", 3, 2);
    EXPECT_THAT(missing.pixels, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST_F(Looks, WithoutHalvesPixelsLessThanHalfCoveredAreBlack)
{
    QImage picture(4, 1, QImage::Format_ARGB32);
    const std::array<int, 4> cover{255, 128, 127, 0};
    for (int x = 0; x < 4; ++x)
        picture.setPixel(x, 0, qRgba(255, 255, 255, cover[static_cast<std::size_t>(x)]));
    EXPECT_THAT(bitmapOf(picture, false).pixels, ElementsAre(rgb(255, 255, 255), rgb(128, 128, 128), 0, 0));
    EXPECT_THAT(bitmapOf(picture, true).pixels,
                ElementsAre(rgb(255, 255, 255), rgb(128, 128, 128), rgb(127, 127, 127), 0));
}

// The button that closes a dialog.

TEST_F(Looks, AClickOnTheCloseBoxClosesADialog)
{
    const QPointF box = QRectF(closeBox(window()->rect())).center();
    mouseAt(window(), QEvent::MouseButtonPress, box, Qt::LeftButton);
    EXPECT_FALSE(panel->ended);
    mouseAt(window(), QEvent::MouseButtonRelease, box, Qt::LeftButton);
    EXPECT_TRUE(panel->ended);
}

TEST_F(Looks, APressOnTheCloseBoxThatIsLetGoElsewhereClosesNothing)
{
    const QPointF box = QRectF(closeBox(window()->rect())).center();
    const QPointF beside(20, 100);
    const auto drag = [&](QPointF from, QPointF to, Qt::MouseButton button) {
        mouseAt(window(), QEvent::MouseButtonPress, from, button);
        mouseAt(window(), QEvent::MouseButtonRelease, to, button);
    };
    drag(box, beside, Qt::LeftButton);
    ASSERT_FALSE(panel->ended);
    drag(beside, box, Qt::LeftButton);
    ASSERT_FALSE(panel->ended);
    drag(box, box, Qt::RightButton);
    EXPECT_FALSE(panel->ended);
}

TEST_F(Looks, TheCloseBoxLightsUpUnderThePointer)
{
    const QPointF box = QRectF(closeBox(window()->rect())).center();
    const auto face = [&] { return window()->grab(closeBox(window()->rect())).toImage(); };
    const QImage resting = face();
    mouseAt(window(), QEvent::MouseMove, box, Qt::NoButton);
    const QImage hovered = face();
    EXPECT_NE(hovered, resting);
    mouseAt(window(), QEvent::MouseButtonPress, box, Qt::LeftButton);
    EXPECT_NE(face(), hovered);
    mouseAt(window(), QEvent::MouseButtonRelease, {20, 100}, Qt::LeftButton);
    ASSERT_FALSE(panel->ended);
    mouseAt(window(), QEvent::MouseMove, {20, 100}, Qt::NoButton);
    EXPECT_EQ(face(), resting);
}

TEST_F(Looks, ANoticeHasNoCloseBox)
{
    const auto notice = std::make_shared<Panel>(Frame::Notice);
    notice->Show();
    QWidget* widget = windowOf(*notice);
    const QPointF box = QRectF(closeBox(widget->rect())).center();
    mouseAt(widget, QEvent::MouseButtonPress, box, Qt::LeftButton);
    mouseAt(widget, QEvent::MouseButtonRelease, box, Qt::LeftButton);
    EXPECT_FALSE(notice->ended);
}

// The wheel.

TEST_F(Looks, SmallTurnsOfTheWheelAddUpToANotch)
{
    panel->WheelProcedure = [this](const WheelTurn& turn) { panel->turns.push_back(turn.rotation); };
    for (int turn = 0; turn < 7; ++turn)
        turnWheel(window(), 15);
    EXPECT_THAT(panel->turns, IsEmpty());
    turnWheel(window(), 15);
    EXPECT_THAT(panel->turns, ElementsAre(120));
    turnWheel(window(), -250);
    EXPECT_THAT(panel->turns, ElementsAre(120, -240));
    for (int turn = 0; turn < 10; ++turn)
        turnWheel(window(), -11);
    EXPECT_THAT(panel->turns, ElementsAre(120, -240, -120)) << "what was over counts for the next notch";
}

TEST_F(Looks, ATurnBackBeginsANotchAnew)
{
    panel->WheelProcedure = [this](const WheelTurn& turn) { panel->turns.push_back(turn.rotation); };
    turnWheel(window(), 105);
    turnWheel(window(), -15);
    turnWheel(window(), 105);
    EXPECT_THAT(panel->turns, IsEmpty());
    turnWheel(window(), 15);
    EXPECT_THAT(panel->turns, ElementsAre(120));
}

TEST_F(Looks, OnlyTheActiveFormGetsTheWheelAndWhereItIs)
{
    std::vector<PixelPoint> places;
    panel->WheelProcedure = [&](const WheelTurn& turn) { places.push_back({turn.x, turn.y}); };
    turnWheel(window(), 120);
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0], (PixelPoint{300, 200})) << "pixels of the desktop";
    const auto other = std::make_shared<Panel>();
    other->Show();
    turnWheel(window(), 120);
    EXPECT_EQ(places.size(), 1U);
    panel->SetFocus();
    turnWheel(window(), 120);
    EXPECT_EQ(places.size(), 2U);
}

// Message boxes.

TEST_F(Looks, AQuestionWearsTheGivenTextsAndAnswersByItsButtons)
{
    qt.setBoxTexts({"&Sí", "N&o", "&Aceptar", "Minimizar", "Cerrar"});
    for (const auto& [button, answer] :
         {std::pair(QMessageBox::Yes, BoxAnswer::Yes), std::pair(QMessageBox::No, BoxAnswer::No)}) {
        std::vector<std::string> seen;
        Meanwhile user([&, which = button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return false;
            seen = {box->windowTitle().toStdString(), box->text().toStdString(),
                    box->button(QMessageBox::Yes)->text().toStdString(),
                    box->button(QMessageBox::No)->text().toStdString()};
            box->button(which)->click();
            return true;
        });
        EXPECT_EQ(qt.messageBox("¿Por qué?", BoxStyle::YesNoQuestion, "Título"), answer);
        EXPECT_TRUE(user.isDone());
        EXPECT_THAT(seen, ElementsAre("Título", "¿Por qué?", "&Sí", "N&o"));
    }
}

TEST_F(Looks, AMessageHasOneButtonWithTheGivenText)
{
    qt.setBoxTexts({"&Sí", "N&o", "&Aceptar", "Minimizar", "Cerrar"});
    for (const BoxStyle style : {BoxStyle::Critical, BoxStyle::Exclamation, BoxStyle::Information}) {
        std::vector<std::string> buttons;
        bool hasIcon = false;
        Meanwhile user([&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return false;
            for (const QAbstractButton* button : box->buttons())
                buttons.push_back(button->text().toStdString());
            hasIcon = pixelsOf(box->iconPixmap().toImage(), palette::kLeaves) > 0 ||
                      pixelsOf(box->iconPixmap().toImage(), palette::kGroup) > 0 ||
                      pixelsOf(box->iconPixmap().toImage(), palette::kMoves) > 0;
            box->buttons().front()->click();
            return true;
        });
        EXPECT_EQ(qt.messageBox("Text", style, "Title"), BoxAnswer::Ok);
        EXPECT_THAT(buttons, ElementsAre("&Aceptar"));
        EXPECT_TRUE(hasIcon) << static_cast<int>(style);
    }
}

} // namespace tandrel::test
