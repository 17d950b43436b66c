/// Global keys of the X server.
#pragma once

#include "platform/services.h"
#include "platform/x11/key_combination.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>
#include <map>
#include <vector>

namespace tandrel
{

/// Keys are grabbed on the root window, once for each state of the locks, and the keyboard goes on while one is down.
/// A new layout of the keyboard moves the grabs along. Without an X connection nothing can be taken. Needs the
/// application object.
class X11HotKeys : public HotKeys, public QAbstractNativeEventFilter
{
public:
    X11HotKeys();
    ~X11HotKeys() override;
    X11HotKeys(const X11HotKeys&) = delete;
    X11HotKeys& operator=(const X11HotKeys&) = delete;

    bool take(int id, std::string_view combination) override;
    void releaseAll() override;
    bool holds(int id) const override;

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    struct Grab {
        std::uint8_t key;
        std::uint16_t modifiers;
        friend bool operator==(const Grab&, const Grab&) = default;
    };
    struct Taken {
        int id;
        KeyCombination combination;
        std::vector<Grab> grabs;
    };
    /// A key that went down with a combination, by its latest event and the server's time of that.
    struct Down {
        std::uint32_t lastSeen = 0;
        bool up = false;
    };

    static bool isRepeat(const Down& key, std::uint32_t time);
    std::vector<Grab> grabsFor(const KeyCombination& combination) const;
    bool grabAll(const std::vector<Grab>& grabs);
    void ungrab(const std::vector<Grab>& grabs);
    const Taken* holderOf(const Grab& grab) const;
    bool pressedKey(std::uint8_t key, std::uint16_t state, std::uint32_t time);
    bool releasedKey(std::uint8_t key, std::uint32_t time);
    void tell(int id);
    void renewSoon();
    void renew();

    std::vector<Taken> taken_;
    std::map<std::uint8_t, Down> down_;
    /// Receives what is to run from the event loop; goes with this object.
    QObject queue_;
    unsigned releases_ = 0;
    bool renewing_ = false;
    std::uint8_t keyboardEvents_ = 0;
};

} // namespace tandrel
