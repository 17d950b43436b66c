// The drag strips of a video window: they tell the console which one is held.

#include "player_bench.h"

namespace tandrel::test
{

namespace
{

class VideoStrips : public Player
{
protected:
    VideoStrips()
    {
        start();
        window_ = &open(0);
        window_->Move({0, 0, 6100, 4400});
    }
    int held() { return console().DragHandle; }
    frmChild& window() { return *window_; }

private:
    frmChild* window_;
};

} // namespace

TEST_F(VideoStrips, AnyButtonHoldsAStripAndItsReleaseLetsGo)
{
    const std::pair<PictureBox*, int> strips[] = {
        {&window().picVRes, 1}, {&window().picHRes, 1}, {&window().picBottom, 2}, {&window().picSide, 3}};
    for (const auto& [strip, number] : strips)
        for (const int button : {mouse::kLeft, mouse::kRight, mouse::kMiddle}) {
            strip->userMouseDown({button, 0, 5, 5});
            EXPECT_EQ(held(), number) << strip->name();
            strip->userMouseUp({button, 0, 5, 5});
            EXPECT_EQ(held(), 0) << strip->name();
        }
}

TEST_F(VideoStrips, ADragWithTheLeftButtonThatEntersAStripCounts)
{
    window().picSide.userMouseMove({0, 0, 5, 5});
    EXPECT_EQ(held(), 0);
    window().picSide.userMouseMove({mouse::kRight, 0, 5, 5});
    EXPECT_EQ(held(), 0);
    window().picSide.userMouseMove({mouse::kLeft, 0, 5, 5});
    EXPECT_EQ(held(), 3);
    window().picBottom.userMouseMove({mouse::kLeft | mouse::kRight, 0, 5, 5});
    EXPECT_EQ(held(), 2);
    window().picVRes.userMouseMove({mouse::kLeft, 0, 5, 5});
    EXPECT_EQ(held(), 1);
}

TEST_F(VideoStrips, TheOutermostSixPixelsOfThePictureCountAsStrips)
{
    const auto press = [&](double x, double y) {
        window().picVideo.userMouseDown({mouse::kLeft, 0, x, y});
        const int strip = held();
        window().picVideo.userMouseUp({mouse::kLeft, 0, x, y});
        EXPECT_EQ(held(), 0);
        return strip;
    };
    EXPECT_EQ(press(3000, 2000), 0);
    EXPECT_EQ(press(6000 - 90, 2000), 3);
    EXPECT_EQ(press(6000 - 91, 2000), 0);
    EXPECT_EQ(press(3000, 4000 - 90), 2);
    EXPECT_EQ(press(3000, 4000 - 91), 0);
    EXPECT_EQ(press(6000 - 10, 4000 - 255), 1);
    EXPECT_EQ(press(6000 - 255, 4000 - 10), 1);
    EXPECT_EQ(press(6000 - 10, 4000 - 256), 3);
    EXPECT_EQ(press(6000 - 256, 4000 - 10), 2);
}

TEST_F(VideoStrips, AFullVideoHasNoEdges)
{
    window().Full = true;
    window().picVideo.userMouseDown({mouse::kLeft, 0, 5990, 3990});
    EXPECT_EQ(held(), 0);
}

} // namespace tandrel::test
