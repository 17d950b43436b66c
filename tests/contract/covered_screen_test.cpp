// Windows over windows, on a display of their own without a window manager.
#include "platform/output/covered_windows.h"
#include "support/let_others_run.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class Covers : public testing::Test
{
protected:
    ~Covers() override { xcb_disconnect(connection); }

    const xcb_screen_t& screen() { return *xcb_setup_roots_iterator(xcb_get_setup(connection)).data; }

    xcb_window_t window(const PixelRect& place, bool shown = true, xcb_window_t parent = 0)
    {
        const xcb_window_t result = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, result, parent != 0 ? parent : screen().root,
                          static_cast<std::int16_t>(place.left), static_cast<std::int16_t>(place.top),
                          static_cast<std::uint16_t>(place.width()), static_cast<std::uint16_t>(place.height()), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (shown)
            xcb_map_window(connection, result);
        return result;
    }

    bool isCoveredNow(xcb_window_t one)
    {
        // Its own requests have to be there before the watch asks.
        std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        const long before = watch.looks();
        watch.look({one});
        const auto end = std::chrono::steady_clock::now() + 60s;
        while (watch.looks() == before) {
            if (std::chrono::steady_clock::now() > end) {
                ADD_FAILURE() << "no look";
                return false;
            }
            test::letOthersRun();
        }
        return watch.covered(one);
    }

    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    CoverWatch watch;
};

} // namespace

TEST_F(Covers, AWindowAloneIsSeen) { EXPECT_FALSE(isCoveredNow(window({10, 10, 110, 110}))); }

TEST_F(Covers, ALargerOneAboveCoversIt)
{
    const auto below = window({10, 10, 110, 110});
    const auto inside = window({5, 5, 50, 50}, true, below);
    EXPECT_FALSE(isCoveredNow(inside));
    const auto above = window({0, 0, 500, 500});
    EXPECT_TRUE(isCoveredNow(below));
    EXPECT_TRUE(isCoveredNow(inside));
    EXPECT_FALSE(isCoveredNow(above));
    xcb_unmap_window(connection, above);
    EXPECT_FALSE(isCoveredNow(below));
}

TEST_F(Covers, OneThatIsNotShownIsNotSeen)
{
    const auto hidden = window({10, 10, 110, 110}, false);
    EXPECT_TRUE(isCoveredNow(hidden));
    EXPECT_TRUE(isCoveredNow(window({5000, 5000, 5100, 5100}))) << "nor one beside the screen";
}

TEST_F(Covers, WhatHasHolesOrLetsThroughCoversNothing)
{
    const auto below = window({10, 10, 110, 110});
    const auto above = window({0, 0, 500, 500});
    const xcb_rectangle_t half{0, 0, 500, 250};
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, 0, above, 0, 0, 1, &half);
    EXPECT_FALSE(isCoveredNow(below));
    xcb_shape_mask(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, above, 0, 0, XCB_NONE);
    EXPECT_TRUE(isCoveredNow(below));
    const std::string_view name = "_NET_WM_WINDOW_OPACITY";
    auto* atom = xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, name.size(), name.data()), nullptr);
    ASSERT_NE(atom, nullptr);
    const std::uint32_t opacity = 0x80000000;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, above, atom->atom, XCB_ATOM_CARDINAL, 32, 1, &opacity);
    std::free(atom);
    EXPECT_FALSE(isCoveredNow(below));
}

TEST_F(Covers, AWindowThatHasGoneIsNotCovered)
{
    const auto gone = window({10, 10, 110, 110});
    xcb_destroy_window(connection, gone);
    EXPECT_FALSE(isCoveredNow(gone));
}

} // namespace tandrel
