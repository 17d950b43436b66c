/// What a media player on the bus answers.
#pragma once

#include "platform/dbus/mpris_message.h"

#include <functional>

namespace tandrel::mpris
{

/// Answers calls, at once and by what is known: nothing here waits. Commands go on to whoever carries them out.
class Answers
{
public:
    Answers(Facts facts, std::function<Reading()> reading, std::function<void(RemoteCommand)> give);

    /// The answer to a call, which may be an error; null where none is wanted, or where the message is no call.
    MessagePtr to(DBusMessage* call) const;

private:
    struct Method;
    static const Method kMethods[];

    MessagePtr answer(DBusMessage* call) const;
    MessagePtr outside(DBusMessage* call) const;
    /// Null with an empty name: all interfaces. False: there is no such interface.
    bool knowsInterface(const char* name) const;
    Properties propertiesOf(std::string_view interface) const;

    MessagePtr give(DBusMessage* call, RemoteCommand command) const;
    MessagePtr simple(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr seek(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr setPosition(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr openUri(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr get(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr getAll(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr set(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr introspect(DBusMessage* call, RemoteCommand::Kind kind) const;
    MessagePtr ping(DBusMessage* call, RemoteCommand::Kind kind) const;

    const Facts facts_;
    const std::function<Reading()> reading_;
    const std::function<void(RemoteCommand)> give_;
};

/// The text that describes all of it to other programs, for the object itself.
const char* introspection();

} // namespace tandrel::mpris
