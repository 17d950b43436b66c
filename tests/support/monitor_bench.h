/// Ticks of the console, one by one, over videos that stand where a test puts them.
#pragma once

#include "player_bench.h"

#include "desktop/monitors.h"
#include "toolkit/press.h"

namespace tandrel::test
{

inline const std::string kFifty(50, ' ');

/// The title of a file in the console, which the marquee takes its characters from.
inline Text titled(const Text& name) { return " [ " + name + " ] " + kFifty; }

class MonitorBench : public Player
{
protected:
    /// The console in a mode, with so many films open: the last one is the selected one.
    void play(int count, const Text& slideMode = "0")
    {
        start(slideMode);
        openSeveral(count);
        console().lblTitleBar.Caption = titled(fileNameOf(film(count - 1)));
        console().lblDuration.Caption = "0:00:00";
        world.mci.clear();
        world.journal.clear();
    }

    /// The console stands on this monitor, the only one there is.
    void moveTo(const PixelRect& monitor)
    {
        world.monitors.set({monitor});
        screen().setMetrics(15, 15, monitor);
        tandrel::monitors().Refresh();
        console().FullLeft = monitor.left * 15;
        console().FullTop = monitor.top * 15;
        console().FullWidth = monitor.width() * 15;
        console().FullHeight = monitor.height() * 15;
    }

    /// Where a film stands from now on, and its length; texts of the device, which need be no numbers.
    void stands(int index, const Text& position, const Text& length = "60000")
    {
        world.mci.answer("status " + alias(index) + " position", position);
        world.mci.answer("status " + alias(index) + " length", length);
    }

    // A tick is one of the running timer: an error that it lets out ends it, and nothing else.
    void tick1() { tick(console().Timer1); }
    void tick2() { tick(console().Timer2); }
    void tick3() { console().Timer3.tick(); }
    void tick4() { console().Timer4.tick(); }

    /// What the tick of a timer sends.
    std::vector<std::string> sentBy(Timer& timer)
    {
        world.mci.clear();
        tick(timer);
        return commands();
    }

    /// The left button goes down, and up again, with a tick each.
    void press()
    {
        world.pointer.left = true;
        tick3();
    }
    void release()
    {
        world.pointer.left = false;
        tick3();
    }

    /// The right button goes down with the pointer on a window, and a tick sees it.
    void rightPressOn(const Form& form)
    {
        const PixelRect place = form.pixelRect();
        world.pointer.place = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        pressIsOver(MouseButton::Right);
        world.pointer.right = true;
        tick3();
        world.pointer.right = false;
    }

    /// All videos go, for the next row of a table.
    void discardSlots()
    {
        const SlotTable slots = VideoWindows;
        for (const auto& window : slots)
            if (window && window->isLoaded())
                unload(*window);
        VideoWindows.clear();
        NextSlot = 0;
    }

private:
    static void tick(Timer& timer)
    {
        timer.Enabled = true;
        timer.tick();
    }
};

} // namespace tandrel::test
