/// A player of films, and ways to wait for what it does.
#pragma once

#include "platform/mpv/film_player.h"
#include "support/let_others_run.h"
#include "support/test_media.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

namespace tandrel
{

class FilmBench : public testing::Test
{
protected:
    using Clock = std::chrono::steady_clock;

    explicit FilmBench(bool outputs, const std::string& codecFile = {})
        : player(makeMpvFilePlayer({.outputs = outputs, .pixelRatio = nullptr, .codecFile = codecFile}))
    {
    }

    /// Follows the player meanwhile, as the program does.
    bool waitUntil(const std::function<bool()>& condition, Clock::duration limit = std::chrono::seconds(60))
    {
        const auto end = Clock::now() + limit;
        do {
            player->follow();
            if (condition())
                return true;
            test::letOthersRun();
        } while (Clock::now() < end);
        return false;
    }
    /// Seconds until it is so; below 0 if it never is.
    double secondsUntil(const std::function<bool()>& condition)
    {
        const auto start = Clock::now();
        const bool so = waitUntil(condition);
        return so ? std::chrono::duration<double>(Clock::now() - start).count() : -1;
    }
    void letPass(Clock::duration time)
    {
        waitUntil([] { return false; }, time);
    }
    void open(const std::string& name) { player->open(testMedia(name)); }
    bool loads(const std::string& name)
    {
        open(name);
        return waitUntil([&] { return player->isLoaded() || player->isIdle(); }) && player->isLoaded();
    }
    /// Plays on by a quarter of a second.
    bool plays()
    {
        const double start = player->position();
        return waitUntil([&] { return player->position() > start + 0.25; });
    }
    bool fails()
    {
        return waitUntil([&] { return player->isIdle(); });
    }

    std::unique_ptr<FilePlayer> player;
};

} // namespace tandrel
