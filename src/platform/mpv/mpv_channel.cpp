#include "platform/mpv/mpv_channel.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tandrel
{

std::uint64_t MpvChannel::command(std::initializer_list<const char*> words)
{
    std::vector<const char*> arguments(words);
    arguments.push_back(nullptr);
    mpv_command_async(handle_, ++lastRequest_, arguments.data());
    return lastRequest_;
}

std::uint64_t MpvChannel::set(const char* property, bool value)
{
    int flag = value ? 1 : 0;
    mpv_set_property_async(handle_, ++lastRequest_, property, MPV_FORMAT_FLAG, &flag);
    return lastRequest_;
}

std::uint64_t MpvChannel::set(const char* property, double value)
{
    mpv_set_property_async(handle_, ++lastRequest_, property, MPV_FORMAT_DOUBLE, &value);
    return lastRequest_;
}

std::uint64_t MpvChannel::ask(const char* property, mpv_format format)
{
    return mpv_get_property_async(handle_, ++lastRequest_, property, format) < 0 ? 0 : lastRequest_;
}

void MpvChannel::drain(const Listener& listener)
{
    while (true) {
        const mpv_event* event = mpv_wait_event(handle_, 0);
        if (event->event_id == MPV_EVENT_NONE)
            return;
        listener(*event);
    }
}

bool MpvChannel::wait(const Listener& listener, Moment deadline, const std::function<bool()>& done)
{
    Moment pulseAt = std::chrono::steady_clock::now() + kPulse;
    while (!done()) {
        const Moment now = std::chrono::steady_clock::now();
        if (now >= deadline)
            return false;
        if (pulse_ && now >= pulseAt) {
            pulse_();
            pulseAt = now + kPulse;
        }
        const std::chrono::duration<double> left = (pulse_ ? std::min(deadline, pulseAt) : deadline) - now;
        const mpv_event* event = mpv_wait_event(handle_, left.count());
        if (event->event_id != MPV_EVENT_NONE)
            listener(*event);
    }
    return true;
}

mpv_handle* MpvChannel::release() { return std::exchange(handle_, nullptr); }

} // namespace tandrel
