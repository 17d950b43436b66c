#include "contract/contract_bench.h"

#include "platform/mpv/mpv_engine.h"
#include "support/let_others_run.h"
#include "support/simulated_engine.h"
#include "support/test_media.h"

#include <array>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class SimulatedBench final : public ContractBench
{
public:
    SimulatedBench()
    {
        engine_->add(testMedia("h264_30.mp4"), {.length = 10, .frameRate = 30, .width = 320, .height = 240});
        engine_->add(testMedia("h264_25.mp4"), {.length = 10, .frameRate = 25, .width = 320, .height = 240});
        engine_->add(testMedia("gops.mp4"), {.length = 5, .frameRate = 30, .width = 320, .height = 240});
        engine_->add(testMedia("short.mp4"), {.length = 2, .frameRate = 30, .width = 320, .height = 240});
        engine_->add(testMedia("long_sound.mp4"), {.length = 2, .frameRate = 25, .width = 320, .height = 240});
        engine_->add(testMedia("sound_behind.mp4"), {.length = 5, .frameRate = 25, .width = 320, .height = 240});
        engine_->add(testMedia("anamorphic.mp4"), {.length = 1, .frameRate = 25, .width = 427, .height = 240});
        engine_->add(testMedia("live.mkv"), {.length = 3, .tellsLength = false, .frameRate = 25});
        engine_->add(testMedia("sound.mp3"), {.length = 3, .frameRate = 0});
        engine_->add(testMedia("text.avi"), {.failure = OpenFailure::NotPlayable});
        engine_->add(testMedia(""), {.failure = OpenFailure::NotPlayable});
    }

    MciService& mci() override { return mci_; }

    bool waitUntil(const std::function<bool()>& condition) override
    {
        for (const auto end = clock_.now() + 60s; clock_.now() < end; clock_.advance(10ms)) {
            mci_.idle();
            if (condition())
                return true;
        }
        return false;
    }
    std::chrono::steady_clock::time_point now() const override { return clock_.now(); }

private:
    SimulatedClock clock_;
    std::unique_ptr<SimulatedEngine> owned_ = std::make_unique<SimulatedEngine>(clock_);
    SimulatedEngine* engine_ = owned_.get();
    MciService mci_{std::move(owned_), nullptr, [this] { return clock_.now(); }};
};

class MpvBench final : public ContractBench
{
public:
    MciService& mci() override { return mci_; }

    bool waitUntil(const std::function<bool()>& condition) override
    {
        const auto end = std::chrono::steady_clock::now() + 60s;
        while (std::chrono::steady_clock::now() < end) {
            mci_.idle();
            if (condition())
                return true;
            test::letOthersRun();
        }
        return false;
    }
    std::chrono::steady_clock::time_point now() const override { return std::chrono::steady_clock::now(); }

private:
    MciService mci_{makeMpvEngine({.outputs = false, .pixelRatio = nullptr, .mostDevices = 2})};
};
} // namespace

std::unique_ptr<ContractBench> makeSimulatedBench() { return std::make_unique<SimulatedBench>(); }
std::unique_ptr<ContractBench> makeMpvBench() { return std::make_unique<MpvBench>(); }

std::string inQuotes(std::string_view text) { return std::string(1, '"').append(text).append(1, '"'); }

int MciContract::send(const std::string& command)
{
    std::array<char, 128> buffer{};
    const int result = mci().send(command, buffer);
    answer = buffer.data();
    return result;
}

std::string MciContract::ask(const std::string& command)
{
    EXPECT_EQ(send(command), 0) << command;
    return answer;
}

int MciContract::open(const std::string& name, const std::string& alias)
{
    return send("Open \"" + testMedia(name) + "\" Type MPEGVideo alias " + alias + " style child");
}

bool MciContract::playBeyond(long place)
{
    return send("Play A") == 0 && waitUntil([&] { return number("status A position") > place; });
}

} // namespace tandrel
