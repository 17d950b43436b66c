/// Asynchronous talk with one libmpv handle. Requests are numbered; the answer carries the number.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <mpv/client.h>

namespace tandrel
{

class MpvChannel
{
public:
    using Moment = std::chrono::steady_clock::time_point;
    using Listener = std::function<void(const mpv_event&)>;

    explicit MpvChannel(mpv_handle* handle) : handle_(handle) {}

    /// From here on `pulse` runs about every 50 ms while `wait` blocks.
    void setPulse(std::function<void()> pulse) { pulse_ = std::move(pulse); }
    void pulse() const
    {
        if (pulse_)
            pulse_();
    }
    static constexpr std::chrono::milliseconds kPulse{50};

    std::uint64_t command(std::initializer_list<const char*> words);
    std::uint64_t set(const char* property, bool value);
    std::uint64_t set(const char* property, double value);
    /// 0 where no answer will come.
    std::uint64_t ask(const char* property, mpv_format format);

    /// Hands what has come to the listener. Never blocks.
    void drain(const Listener& listener);
    /// Hands what comes to the listener until `done`. False if that was not so at `deadline`.
    bool wait(const Listener& listener, Moment deadline, const std::function<bool()>& done);

    mpv_handle* handle() const { return handle_; }
    /// Gives the handle up; no other call may follow.
    mpv_handle* release();

private:
    mpv_handle* handle_;
    std::function<void()> pulse_;
    std::uint64_t lastRequest_ = 0;
};

} // namespace tandrel
