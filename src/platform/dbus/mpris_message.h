/// Messages of the interface for media players, put together and taken apart.
#pragma once

#include "platform/dbus/bus_connection.h"
#include "platform/dbus/mpris_properties.h"

namespace tandrel::mpris
{

/// Answers with one value of any type.
MessagePtr answerWith(DBusMessage* call, const Value& value);
/// Answers with a table of names and values.
MessagePtr answerWith(DBusMessage* call, const Properties& properties);
MessagePtr answerWith(DBusMessage* call, const char* text);

/// Tells of changed values of an interface.
MessagePtr changesOf(const char* interface, const Properties& properties);
/// Tells of a new place, microseconds.
MessagePtr seeked(std::int64_t position);

/// The arguments of `Set`, whose signature is known to be right: a value of another type than the plain ones is false.
struct Setting {
    std::string interface;
    std::string property;
    Plain value;
};
Setting settingOf(DBusMessage* call);

} // namespace tandrel::mpris
