// What is left of the commands of other programs until they are taken.

#include "platform/remote_queue.h"

#include <gmock/gmock.h>
#include <limits>
#include <thread>

namespace tandrel
{

using ::testing::ElementsAre;
using ::testing::Optional;
using ::testing::SizeIs;

namespace
{

using namespace std::chrono_literals;
using Kind = RemoteCommand::Kind;

std::vector<RemoteCommand> taken(RemoteQueue& queue)
{
    std::vector<RemoteCommand> all;
    while (auto command = queue.take())
        all.push_back(*command);
    return all;
}

} // namespace

TEST(RemoteQueue, GivesThemBackInTheirOrder)
{
    RemoteQueue queue;
    EXPECT_TRUE(queue.add({.kind = Kind::Play}));
    EXPECT_FALSE(queue.add({.kind = Kind::Next})) << "who takes has been told";
    queue.add({.kind = Kind::Open, .path = "/a"});
    EXPECT_THAT(taken(queue), ElementsAre(RemoteCommand{.kind = Kind::Play}, RemoteCommand{.kind = Kind::Next},
                                          RemoteCommand{.kind = Kind::Open, .path = "/a"}));
    EXPECT_FALSE(queue.take());
    EXPECT_TRUE(queue.add({.kind = Kind::Play}));
}

TEST(RemoteQueue, WhatComesToTheSameIsPutTogether)
{
    RemoteQueue queue;
    for (int i = 0; i < 3; ++i)
        queue.add({.kind = Kind::Pause});
    for (int i = 0; i < 1000; ++i)
        queue.add({.kind = Kind::Seek, .time = 5s});
    for (int i = 0; i < 1000; ++i)
        queue.add({.kind = Kind::Volume, .level = i / 1000.0});
    queue.add({.kind = Kind::SetPosition, .time = 1s, .medium = 4});
    queue.add({.kind = Kind::SetPosition, .time = 2s, .medium = 4});
    queue.add({.kind = Kind::SetPosition, .time = 3s, .medium = 5});
    queue.add({.kind = Kind::Open, .path = "/a"});
    queue.add({.kind = Kind::Open, .path = "/a"});
    queue.add({.kind = Kind::Open, .path = "/b"});
    EXPECT_THAT(taken(queue),
                ElementsAre(RemoteCommand{.kind = Kind::Pause}, RemoteCommand{.kind = Kind::Seek, .time = 5000s},
                            RemoteCommand{.kind = Kind::Volume, .level = 0.999},
                            RemoteCommand{.kind = Kind::SetPosition, .time = 2s, .medium = 4},
                            RemoteCommand{.kind = Kind::SetPosition, .time = 3s, .medium = 5},
                            RemoteCommand{.kind = Kind::Open, .path = "/a"},
                            RemoteCommand{.kind = Kind::Open, .path = "/b"}));
}

TEST(RemoteQueue, TwoChangesBetweenPlayAndPauseAreNone)
{
    RemoteQueue queue;
    for (int i = 0; i < 1001; ++i)
        queue.add({.kind = Kind::PlayPause});
    EXPECT_THAT(taken(queue), ElementsAre(RemoteCommand{.kind = Kind::PlayPause}));
    queue.add({.kind = Kind::PlayPause});
    queue.add({.kind = Kind::PlayPause});
    EXPECT_THAT(taken(queue), ElementsAre());
}

TEST(RemoteQueue, OffsetsOfAnySizeStayOnTheScale)
{
    using std::chrono::microseconds;
    RemoteQueue queue;
    for (int i = 0; i < 3; ++i)
        queue.add({.kind = Kind::Seek, .time = microseconds::max()});
    EXPECT_THAT(taken(queue), ElementsAre(RemoteCommand{.kind = Kind::Seek, .time = microseconds::max()}));
    for (int i = 0; i < 3; ++i)
        queue.add({.kind = Kind::Seek, .time = microseconds::min()});
    EXPECT_THAT(taken(queue), ElementsAre(RemoteCommand{.kind = Kind::Seek, .time = microseconds::min()}));
}

TEST(RemoteQueue, AFloodLeavesALimitedNumberAndTheEndFindsRoom)
{
    RemoteQueue queue;
    for (int i = 0; i < 10000; ++i)
        queue.add({.kind = i % 2 == 0 ? Kind::Next : Kind::Previous});
    EXPECT_TRUE(queue.add({.kind = Kind::Quit}));
    EXPECT_TRUE(queue.add({.kind = Kind::Quit}));
    EXPECT_TRUE(queue.add({.kind = Kind::Raise}));
    EXPECT_THAT(queue.takeUrgent(), Optional(RemoteCommand{.kind = Kind::Quit}));
    EXPECT_THAT(queue.takeUrgent(), Optional(RemoteCommand{.kind = Kind::Raise}));
    EXPECT_FALSE(queue.takeUrgent());
    EXPECT_THAT(taken(queue), SizeIs(RemoteQueue::kMost));
}

TEST(RemoteQueue, TwoThreadsUseIt)
{
    RemoteQueue queue;
    std::thread giver([&] {
        for (int i = 0; i < 10000; ++i)
            queue.add({.kind = Kind::SetPosition, .medium = static_cast<std::uint64_t>(i)});
        queue.add({.kind = Kind::Quit});
    });
    std::uint64_t last = 0;
    while (!queue.takeUrgent())
        if (const auto command = queue.take()) {
            EXPECT_GE(command->medium, last);
            last = command->medium;
        }
    giver.join();
}

} // namespace tandrel
