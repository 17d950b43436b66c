/// The selected video in the hands of other programs: what they ask for is carried out when its time has come.
#pragma once

#include "console/remote_control.h"
#include "platform/media_remote.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace tandrel
{

/// Made once there is an application object, and gone before it.
class RemoteLink : public QObject
{
public:
    /// `remote` outlives this object. `end` ends the program, whatever it is in the middle of.
    RemoteLink(MediaRemote& remote, std::function<void()> end);
    ~RemoteLink() override;

private:
    void called();
    void answer();
    void answerUrgent();
    void look();
    bool bringUp();

    MediaRemote& remote_;
    const std::function<void()> end_;
    RemoteControl control_;
    /// A command is being carried out, which may let others come in.
    bool working_ = false;
    /// The console is to be seen.
    bool raising_ = false;
    QTimer again_;
    QTimer look_;
};

} // namespace tandrel
