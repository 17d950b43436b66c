/// One suite of tests for the media service, run over the simulated engine and over libmpv.
#pragma once

#include "platform/mci/mci_service.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace tandrel
{

/// A media service, its files and its time.
class ContractBench
{
public:
    virtual ~ContractBench() = default;
    virtual MciService& mci() = 0;
    /// Lets time pass, the service being idle, until the condition holds; false if it never did.
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;
    /// By the clock that the devices play by.
    virtual std::chrono::steady_clock::time_point now() const = 0;
};

struct BenchRow {
    const char* name;
    std::unique_ptr<ContractBench> (*make)();
};

std::unique_ptr<ContractBench> makeSimulatedBench();
std::unique_ptr<ContractBench> makeMpvBench();

std::string inQuotes(std::string_view text);

class MciContract : public testing::TestWithParam<BenchRow>
{
protected:
    /// Sends a command; what it answers is kept in `answer`.
    int send(const std::string& command);
    /// Sends a command that must succeed, and gives its answer.
    std::string ask(const std::string& command);
    /// The answer as a number.
    long number(const std::string& command) { return std::stol(ask(command)); }
    /// Opens a test file under an alias.
    int open(const std::string& name, const std::string& alias = "A");
    bool waitUntil(const std::function<bool()>& condition) { return bench_->waitUntil(condition); }
    /// Lets so much of the medium's time pass without a single question.
    void letPass(std::chrono::milliseconds time)
    {
        const auto end = bench_->now() + time;
        ASSERT_TRUE(waitUntil([&] { return bench_->now() >= end; }));
    }
    /// Lets the device run until its position is beyond `place`.
    bool playBeyond(long place);
    MciService& mci() { return bench_->mci(); }

    std::string answer;

private:
    std::unique_ptr<ContractBench> bench_ = GetParam().make();
};

} // namespace tandrel
