#include "platform/dbus/mpris_link.h"

#include <algorithm>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace tandrel::mpris
{

namespace
{

constexpr std::chrono::seconds kFirstPause{2};
constexpr std::chrono::seconds kLongestPause{60};
// Whoever calls without end must not keep the others waiting, nor the end of the program.
constexpr int kCallsAtATime = 64;
// A bus that takes nothing in is told no more until it does.
constexpr long kMostUnsent = 64 * 1024;

bool sameButPlace(const RemoteState& one, RemoteState other)
{
    other.position = one.position;
    return one == other;
}

std::string nameOfThisProcess() { return std::string(kName) + ".instance" + std::to_string(::getpid()); }

} // namespace

Link::Link(Facts facts, std::string address, std::function<void()> call)
    : address_(std::move(address)),
      call_(std::move(call)),
      wakes_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      answers_(
          std::move(facts), [this] { return reading(); },
          [this](RemoteCommand command) {
              if (commands.add(std::move(command)))
                  call_();
          })
{
}

Link::~Link() { ::close(wakes_); }

void Link::publish(const RemoteState& state)
{
    const Reading now{state, std::chrono::steady_clock::now()};
    const std::lock_guard lock(mutex_);
    const bool jumped = isJump(reading_, now);
    const bool news = jumped || !sameButPlace(reading_.state, state);
    jumped_ = jumped_ || jumped;
    reading_ = now;
    if (news)
        wake();
}

bool Link::end(std::chrono::milliseconds patience)
{
    std::unique_lock lock(mutex_);
    ending_ = true;
    wake();
    changed_.notify_all();
    return changed_.wait_for(lock, patience, [this] { return ended_; });
}

void Link::work()
{
    auto pause = kFirstPause;
    while (!isEnding()) {
        connect();
        if (bus_) {
            pause = kFirstPause;
            setHeard(true);
            serve();
            bus_.reset();
            setHeard(false);
        }
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, pause, [this] { return ending_; });
        pause = std::min(pause * 2, kLongestPause);
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

void Link::connect()
{
    bus_ = connectTo(address_);
    if (bus_ && (!sayHello(bus_.get()) || !(takeName(kName) || takeName(nameOfThisProcess()))))
        bus_.reset();
}

bool Link::takeName(const std::string& name)
{
    const MessagePtr call(
        dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "RequestName"));
    const char* text = name.c_str();
    const dbus_uint32_t flags = DBUS_NAME_FLAG_DO_NOT_QUEUE;
    if (!call ||
        !dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_UINT32, &flags, DBUS_TYPE_INVALID))
        return false;
    Problem problem;
    const MessagePtr answer = ask(bus_.get(), call.get(), problem);
    dbus_uint32_t result = 0;
    return answer && dbus_message_get_args(answer.get(), problem.get(), DBUS_TYPE_UINT32, &result, DBUS_TYPE_INVALID) &&
           result == DBUS_REQUEST_NAME_REPLY_PRIMARY_OWNER;
}

void Link::serve()
{
    // Whoever comes now asks for what there is.
    told_ = playerProperties(reading().state);
    while (!isEnding() && dbus_connection_read_write(bus_.get(), 0)) {
        const bool allAnswered = answerSome();
        tellNews();
        if (allAnswered)
            waitForNews();
    }
}

bool Link::answerSome()
{
    for (int count = 0; count < kCallsAtATime; ++count) {
        const MessagePtr call = takeMessage(bus_.get());
        if (!call)
            return true;
        if (const MessagePtr answer = answers_.to(call.get()))
            dbus_connection_send(bus_.get(), answer.get(), nullptr);
    }
    return false;
}

void Link::tellNews()
{
    if (dbus_connection_get_outgoing_size(bus_.get()) > kMostUnsent)
        return;
    Reading now;
    bool jumped = false;
    {
        const std::lock_guard lock(mutex_);
        now = reading_;
        jumped = std::exchange(jumped_, false);
    }
    Properties all = playerProperties(now.state);
    const Properties changed = changedProperties(told_, all);
    told_ = std::move(all);
    if (!changed.empty())
        if (const MessagePtr signal = changesOf(kPlayerInterface, changed))
            dbus_connection_send(bus_.get(), signal.get(), nullptr);
    if (jumped)
        if (const MessagePtr signal = seeked(positionAt(now, std::chrono::steady_clock::now())))
            dbus_connection_send(bus_.get(), signal.get(), nullptr);
}

void Link::waitForNews()
{
    // What can be sent at once is, before anything is waited for.
    dbus_connection_read_write(bus_.get(), 0);
    int socket = -1;
    const bool hasMore = dbus_connection_get_dispatch_status(bus_.get()) == DBUS_DISPATCH_DATA_REMAINS;
    if (hasMore || !dbus_connection_get_unix_fd(bus_.get(), &socket))
        return;
    const bool unsent = dbus_connection_has_messages_to_send(bus_.get());
    pollfd watched[] = {{socket, static_cast<short>(POLLIN | (unsent ? POLLOUT : 0)), 0}, {wakes_, POLLIN, 0}};
    ::poll(watched, std::size(watched), -1);
    std::uint64_t count = 0;
    [[maybe_unused]] const auto taken = ::read(wakes_, &count, sizeof count);
}

bool Link::isEnding()
{
    const std::lock_guard lock(mutex_);
    return ending_;
}

Reading Link::reading()
{
    const std::lock_guard lock(mutex_);
    return reading_;
}

void Link::wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(wakes_, &one, sizeof one);
}

void Link::setHeard(bool heard)
{
    heard_ = heard;
    call_();
}

} // namespace tandrel::mpris
