#include "platform/dbus/mpris_answers.h"

#include "platform/file_address.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace tandrel::mpris
{

namespace
{

using Kind = RemoteCommand::Kind;

constexpr const char* kDiscScheme = "dvd:";

MessagePtr errorTo(DBusMessage* call, const char* name, const std::string& text)
{
    return MessagePtr(dbus_message_new_error(call, name, text.c_str()));
}

MessagePtr emptyTo(DBusMessage* call) { return MessagePtr(dbus_message_new_method_return(call)); }

MessagePtr wrongArguments(DBusMessage* call, const std::string& text)
{
    return errorTo(call, DBUS_ERROR_INVALID_ARGS, text);
}

MessagePtr noInterface(DBusMessage* call, const std::string& name)
{
    return errorTo(call, DBUS_ERROR_UNKNOWN_INTERFACE, "No such interface: " + name);
}

MessagePtr noProperty(DBusMessage* call, const std::string& name)
{
    return errorTo(call, DBUS_ERROR_UNKNOWN_PROPERTY, "No such property: " + name);
}

const Property* find(const Properties& properties, std::string_view name)
{
    const auto found =
        std::find_if(properties.begin(), properties.end(), [&](const Property& one) { return name == one.name; });
    return found == properties.end() ? nullptr : &*found;
}

/// The next object below `path` on the way to ours; null where `path` isn't on that way.
std::string childOf(std::string_view path)
{
    const std::string_view own = kPath;
    const std::string front = path == "/" ? "/" : std::string(path) + "/";
    if (!own.starts_with(front))
        return {};
    const std::string_view rest = own.substr(front.size());
    return std::string(rest.substr(0, rest.find('/')));
}

} // namespace

struct Answers::Method {
    const char* interface;
    const char* name;
    const char* signature;
    MessagePtr (Answers::*answer)(DBusMessage* call, Kind kind) const;
    /// What `simple` methods ask for.
    Kind kind = Kind::Play;
};

const Answers::Method Answers::kMethods[] = {
    {kRootInterface, "Raise", "", &Answers::simple, Kind::Raise},
    {kRootInterface, "Quit", "", &Answers::simple, Kind::Quit},
    {kPlayerInterface, "Next", "", &Answers::simple, Kind::Next},
    {kPlayerInterface, "Previous", "", &Answers::simple, Kind::Previous},
    {kPlayerInterface, "Pause", "", &Answers::simple, Kind::Pause},
    {kPlayerInterface, "PlayPause", "", &Answers::simple, Kind::PlayPause},
    {kPlayerInterface, "Stop", "", &Answers::simple, Kind::Stop},
    {kPlayerInterface, "Play", "", &Answers::simple, Kind::Play},
    {kPlayerInterface, "Seek", "x", &Answers::seek},
    {kPlayerInterface, "SetPosition", "ox", &Answers::setPosition},
    {kPlayerInterface, "OpenUri", "s", &Answers::openUri},
    {DBUS_INTERFACE_PROPERTIES, "Get", "ss", &Answers::get},
    {DBUS_INTERFACE_PROPERTIES, "GetAll", "s", &Answers::getAll},
    {DBUS_INTERFACE_PROPERTIES, "Set", "ssv", &Answers::set},
    {DBUS_INTERFACE_INTROSPECTABLE, "Introspect", "", &Answers::introspect},
    {DBUS_INTERFACE_PEER, "Ping", "", &Answers::ping},
};

Answers::Answers(Facts facts, std::function<Reading()> reading, std::function<void(RemoteCommand)> give)
    : facts_(std::move(facts)), reading_(std::move(reading)), give_(std::move(give))
{
}

MessagePtr Answers::to(DBusMessage* call) const
{
    if (dbus_message_get_type(call) != DBUS_MESSAGE_TYPE_METHOD_CALL)
        return nullptr;
    const char* path = dbus_message_get_path(call);
    MessagePtr result = path && std::strcmp(path, kPath) == 0 ? answer(call) : outside(call);
    return dbus_message_get_no_reply(call) ? nullptr : std::move(result);
}

bool Answers::knowsInterface(const char* name) const
{
    return !name || std::any_of(std::begin(kMethods), std::end(kMethods),
                                [&](const Method& method) { return std::strcmp(method.interface, name) == 0; });
}

MessagePtr Answers::answer(DBusMessage* call) const
{
    const char* interface = dbus_message_get_interface(call);
    const std::string name = dbus_message_get_member(call);
    if (!knowsInterface(interface))
        return noInterface(call, interface);
    for (const Method& method : kMethods) {
        if (name != method.name || (interface && std::strcmp(interface, method.interface) != 0))
            continue;
        if (!dbus_message_has_signature(call, method.signature))
            return wrongArguments(call, name + " takes \"" + method.signature + "\"");
        return (this->*method.answer)(call, method.kind);
    }
    return errorTo(call, DBUS_ERROR_UNKNOWN_METHOD, "No such method: " + name);
}

MessagePtr Answers::outside(DBusMessage* call) const
{
    if (dbus_message_is_method_call(call, DBUS_INTERFACE_PEER, "Ping"))
        return emptyTo(call);
    const char* path = dbus_message_get_path(call);
    const std::string child = path ? childOf(path) : std::string();
    if (child.empty() || !dbus_message_is_method_call(call, DBUS_INTERFACE_INTROSPECTABLE, "Introspect"))
        return errorTo(call, DBUS_ERROR_UNKNOWN_OBJECT, "No such object");
    return answerWith(call, ("<node><node name=\"" + child + "\"/></node>\n").c_str());
}

MessagePtr Answers::give(DBusMessage* call, RemoteCommand command) const
{
    give_(std::move(command));
    return emptyTo(call);
}

MessagePtr Answers::simple(DBusMessage* call, Kind kind) const { return give(call, {.kind = kind}); }

MessagePtr Answers::seek(DBusMessage* call, Kind) const
{
    dbus_int64_t offset = 0;
    dbus_message_get_args(call, nullptr, DBUS_TYPE_INT64, &offset, DBUS_TYPE_INVALID);
    return give(call, {.kind = Kind::Seek, .time = std::chrono::microseconds(offset)});
}

MessagePtr Answers::setPosition(DBusMessage* call, Kind) const
{
    const char* track = "";
    dbus_int64_t place = 0;
    dbus_message_get_args(call, nullptr, DBUS_TYPE_OBJECT_PATH, &track, DBUS_TYPE_INT64, &place, DBUS_TYPE_INVALID);
    // A medium that has gone, or never was, is no error: it may have gone while the call was on its way.
    const std::uint64_t medium = mediumOf(track);
    if (medium == 0)
        return emptyTo(call);
    return give(call, {.kind = Kind::SetPosition, .time = std::chrono::microseconds(place), .medium = medium});
}

MessagePtr Answers::openUri(DBusMessage* call, Kind) const
{
    const char* text = "";
    dbus_message_get_args(call, nullptr, DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    const std::string_view address = text;
    if (address.starts_with(kDiscScheme) && address.find_first_not_of('/', std::strlen(kDiscScheme)) == address.npos)
        return give(call, {.kind = Kind::OpenDisc});
    if (auto path = pathOfFileAddress(address))
        return give(call, {.kind = Kind::Open, .path = std::move(*path)});
    return wrongArguments(call, "Not the address of a local file");
}

Properties Answers::propertiesOf(std::string_view interface) const
{
    if (interface == kRootInterface)
        return rootProperties(facts_);
    if (interface != kPlayerInterface)
        return {};
    const Reading reading = reading_();
    Properties all = playerProperties(reading.state);
    const Property position{kPosition, positionAt(reading, std::chrono::steady_clock::now())};
    all.push_back(position);
    return all;
}

MessagePtr Answers::get(DBusMessage* call, Kind) const
{
    const char* interface = "";
    const char* name = "";
    dbus_message_get_args(call, nullptr, DBUS_TYPE_STRING, &interface, DBUS_TYPE_STRING, &name, DBUS_TYPE_INVALID);
    if (!knowsInterface(interface))
        return noInterface(call, interface);
    const Properties all = propertiesOf(interface);
    const Property* property = find(all, name);
    return property ? answerWith(call, property->value) : noProperty(call, name);
}

MessagePtr Answers::getAll(DBusMessage* call, Kind) const
{
    const char* interface = "";
    dbus_message_get_args(call, nullptr, DBUS_TYPE_STRING, &interface, DBUS_TYPE_INVALID);
    if (!knowsInterface(interface))
        return noInterface(call, interface);
    return answerWith(call, propertiesOf(interface));
}

MessagePtr Answers::set(DBusMessage* call, Kind) const
{
    const Setting setting = settingOf(call);
    if (!knowsInterface(setting.interface.c_str()))
        return noInterface(call, setting.interface);
    if (!find(propertiesOf(setting.interface), setting.property))
        return noProperty(call, setting.property);
    const bool volume = setting.property == "Volume";
    if (!volume && setting.property != "Rate")
        return errorTo(call, DBUS_ERROR_PROPERTY_READ_ONLY, setting.property + " can't be set");
    const double* number = std::get_if<double>(&setting.value);
    if (!number)
        return wrongArguments(call, setting.property + " is a \"d\"");
    if (volume && std::isfinite(*number))
        return give(call, {.kind = Kind::Volume, .level = *number});
    // There is one rate. None at all means a pause.
    if (!volume && *number == 0)
        return give(call, {.kind = Kind::Pause});
    return emptyTo(call);
}

MessagePtr Answers::introspect(DBusMessage* call, Kind) const { return answerWith(call, introspection()); }

MessagePtr Answers::ping(DBusMessage* call, Kind) const { return emptyTo(call); }

} // namespace tandrel::mpris
