/// The desktop's media keys, panels and remote controls, by the bus's interface for media players (MPRIS 2).
#pragma once

#include "platform/dbus/mpris_properties.h"

#include <QObject>

#include <memory>
#include <thread>

namespace tandrel
{

namespace mpris
{
class Link;
}
class Post;

/// Works on a thread of its own, from its making on. Without a bus nobody is heard, and nothing else is different.
class MprisRemote : public MediaRemote
{
public:
    /// On the bus that the environment names at this moment.
    explicit MprisRemote(mpris::Facts facts);
    MprisRemote(mpris::Facts facts, const std::string& address);
    /// Waits a moment for the thread. One that hangs at its bus is left behind.
    ~MprisRemote() override;
    MprisRemote(const MprisRemote&) = delete;
    MprisRemote& operator=(const MprisRemote&) = delete;

    bool isHeard() const override;
    void publish(const RemoteState& state) override;
    std::optional<RemoteCommand> take() override;
    std::optional<RemoteCommand> takeUrgent() override;

private:
    QObject receiver_;
    std::shared_ptr<Post> post_;
    std::shared_ptr<mpris::Link> link_;
    std::thread thread_;
};

} // namespace tandrel
