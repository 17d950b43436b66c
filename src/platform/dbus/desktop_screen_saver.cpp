#include "platform/dbus/desktop_screen_saver.h"

#include "platform/dbus/post.h"

#include <utility>

namespace tandrel
{

DesktopScreenSaver::DesktopScreenSaver(std::unique_ptr<IdleBus> bus, ScreenSaver& fallback)
    : fallback_(fallback),
      post_(std::make_shared<Post>(receiver_)),
      hold_(std::move(bus),
            [post = post_, &fallback](bool held) { post->send([&fallback, held] { fallback.enable(!held); }); })
{
}

DesktopScreenSaver::~DesktopScreenSaver()
{
    // What the other thread has sent, and may still send, does not arrive any more: its last word is said here.
    post_->close();
    fallback_.enable(true);
}

void DesktopScreenSaver::enable(bool on) { hold_.want(!on); }

void DesktopScreenSaver::nudge()
{
    fallback_.nudge();
    hold_.signOfLife();
}

} // namespace tandrel
