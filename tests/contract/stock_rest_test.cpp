// While a film comes up nothing else is made ahead.
#include "platform/mpv/stock_rest.h"

#include "contract/film_bench.h"
#include "platform/mpv/mpv_handle.h"

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class StockRest : public FilmBench
{
protected:
    StockRest() : FilmBench(false) {}
    ~StockRest() override { putOffStocks(0ms); }
};
} // namespace

TEST_F(StockRest, PlayersForOthersAreNotMadeAheadWhileAFilmComesUp)
{
    const auto start = Clock::now();
    player->open(testMedia("film_plain.mkv"));
    HandleStock stock({.videoOutput = "null", .audioOutput = "null"}, 2);
    ASSERT_TRUE(waitUntil([&] { return stock.ready() > 0; }));
    EXPECT_GE(Clock::now() - start, 450ms) << "the film was to have the processors";
    EXPECT_TRUE(waitUntil([&] { return stock.ready() == 2; }));
}

TEST_F(StockRest, AStockThatRestsStillGivesAPlayerAndEndsAtOnce)
{
    putOffStocks(1h);
    const auto start = Clock::now();
    {
        HandleStock stock({.videoOutput = "null", .audioOutput = "null"}, 2);
        mpv_handle* handle = stock.take();
        EXPECT_NE(handle, nullptr);
        destroyHandle(handle).wait();
        EXPECT_EQ(stock.ready(), 0);
    }
    EXPECT_LT(Clock::now() - start, 10min);
}

} // namespace tandrel
