// Memory that several share.
#include "platform/mpv/step_budget.h"

#include "platform/mpv/step_picture.h"

#include <gtest/gtest.h>

namespace tandrel
{

TEST(StepBudget, GivesNoMoreThanThereIs)
{
    StepBudget budget(1000);
    EXPECT_TRUE(budget.take(600));
    EXPECT_FALSE(budget.take(401));
    EXPECT_TRUE(budget.take(400));
    EXPECT_FALSE(budget.take(1));
    budget.giveBack(600);
    EXPECT_EQ(budget.taken(), 400u);
    EXPECT_TRUE(budget.take(600));
}

TEST(StepBudget, IsSharedEvenly)
{
    StepBudget budget(1200);
    EXPECT_EQ(budget.share(), 1200u);
    for (int count = 0; count < 12; ++count)
        budget.join();
    EXPECT_EQ(budget.share(), 100u);
    for (int count = 0; count < 8; ++count)
        budget.leave();
    EXPECT_EQ(budget.share(), 300u);
}

TEST(StepBudget, PicturesTakeTheirPartAndGiveItBack)
{
    constexpr PictureSize size{474, 333};
    const std::size_t one = StepPicture::bytesOf(size);
    EXPECT_GE(one, 474u * 333 * 2);
    EXPECT_LE(one, 474u * 333 * 2 * 11 / 10) << "hardly more than the pixels take";
    const auto budget = std::make_shared<StepBudget>(2 * one);
    auto first = StepPicture::make(size, {}, budget);
    const auto second = StepPicture::make(size, {}, budget);
    EXPECT_NE(second, nullptr);
    EXPECT_EQ(StepPicture::make(size, {}, budget), nullptr);
    first.reset();
    EXPECT_EQ(budget->taken(), one);
    EXPECT_NE(StepPicture::make(size, {}, budget), nullptr);
}

TEST(StepBudget, APictureWithoutSizeIsNone)
{
    const auto budget = std::make_shared<StepBudget>(1000);
    EXPECT_EQ(StepPicture::make({0, 100}, {}, budget), nullptr);
    EXPECT_EQ(StepPicture::make({100, -1}, {}, budget), nullptr);
    EXPECT_EQ(budget->taken(), 0u);
}

} // namespace tandrel
