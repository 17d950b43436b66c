#include "platform/dbus/mpris_remote.h"

#include "platform/dbus/mpris_link.h"
#include "platform/dbus/post.h"

#include <system_error>
#include <utility>

namespace tandrel
{

namespace
{
constexpr std::chrono::milliseconds kLongestFarewell{300};
} // namespace

MprisRemote::MprisRemote(mpris::Facts facts) : MprisRemote(std::move(facts), sessionBusAddress()) {}

MprisRemote::MprisRemote(mpris::Facts facts, const std::string& address) : post_(std::make_shared<Post>(receiver_))
{
    const auto call = [this, post = post_] {
        post->send([this] {
            if (called)
                called();
        });
    };
    link_ = std::make_shared<mpris::Link>(std::move(facts), address, call);
    try {
        thread_ = std::thread([link = link_] { link->work(); });
    } catch (const std::system_error&) {
        // Without a thread to spare there is no remote control.
    }
}

MprisRemote::~MprisRemote()
{
    post_->close();
    if (!thread_.joinable())
        return;
    if (link_->end(kLongestFarewell))
        thread_.join();
    else
        thread_.detach();
}

bool MprisRemote::isHeard() const { return link_->isHeard(); }

void MprisRemote::publish(const RemoteState& state) { link_->publish(state); }

std::optional<RemoteCommand> MprisRemote::take() { return link_->commands.take(); }

std::optional<RemoteCommand> MprisRemote::takeUrgent() { return link_->commands.takeUrgent(); }

} // namespace tandrel
