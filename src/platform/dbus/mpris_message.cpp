#include "platform/dbus/mpris_message.h"

#include <type_traits>

namespace tandrel::mpris
{

namespace
{

/// A value that holds others, open as long as this object lives.
class Container
{
public:
    Container(DBusMessageIter& parent, int type, const char* signature) : parent_(parent)
    {
        dbus_message_iter_open_container(&parent_, type, signature, &inside);
    }
    ~Container() { dbus_message_iter_close_container(&parent_, &inside); }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    DBusMessageIter inside;

private:
    DBusMessageIter& parent_;
};

const char* signatureOf(bool) { return DBUS_TYPE_BOOLEAN_AS_STRING; }
const char* signatureOf(double) { return DBUS_TYPE_DOUBLE_AS_STRING; }
const char* signatureOf(std::int64_t) { return DBUS_TYPE_INT64_AS_STRING; }
const char* signatureOf(const std::string&) { return DBUS_TYPE_STRING_AS_STRING; }
const char* signatureOf(const ObjectPath&) { return DBUS_TYPE_OBJECT_PATH_AS_STRING; }
const char* signatureOf(const std::vector<std::string>&) { return "as"; }
const char* signatureOf(const Metadata&) { return "a{sv}"; }

void append(DBusMessageIter& to, const char* text) { dbus_message_iter_append_basic(&to, DBUS_TYPE_STRING, &text); }
void append(DBusMessageIter& to, const std::string& text) { append(to, text.c_str()); }
void append(DBusMessageIter& to, bool on)
{
    const dbus_bool_t value = on;
    dbus_message_iter_append_basic(&to, DBUS_TYPE_BOOLEAN, &value);
}
void append(DBusMessageIter& to, double number) { dbus_message_iter_append_basic(&to, DBUS_TYPE_DOUBLE, &number); }
void append(DBusMessageIter& to, std::int64_t number)
{
    const dbus_int64_t value = number;
    dbus_message_iter_append_basic(&to, DBUS_TYPE_INT64, &value);
}
void append(DBusMessageIter& to, const ObjectPath& object)
{
    const char* path = object.path.c_str();
    dbus_message_iter_append_basic(&to, DBUS_TYPE_OBJECT_PATH, &path);
}
void append(DBusMessageIter& to, const std::vector<std::string>& texts)
{
    Container array(to, DBUS_TYPE_ARRAY, DBUS_TYPE_STRING_AS_STRING);
    for (const std::string& text : texts)
        append(array.inside, text);
}

template <class Any>
void appendVariant(DBusMessageIter& to, const Any& value);

void append(DBusMessageIter& to, const Metadata& data)
{
    Container array(to, DBUS_TYPE_ARRAY, "{sv}");
    for (const auto& [name, value] : data) {
        Container entry(array.inside, DBUS_TYPE_DICT_ENTRY, nullptr);
        append(entry.inside, name);
        appendVariant(entry.inside, value);
    }
}

template <class Any>
void appendVariant(DBusMessageIter& to, const Any& value)
{
    std::visit(
        [&](const auto& one) {
            Container variant(to, DBUS_TYPE_VARIANT, signatureOf(one));
            append(variant.inside, one);
        },
        value);
}

void appendTable(DBusMessageIter& to, const Properties& properties)
{
    Container array(to, DBUS_TYPE_ARRAY, "{sv}");
    for (const Property& property : properties) {
        Container entry(array.inside, DBUS_TYPE_DICT_ENTRY, nullptr);
        append(entry.inside, property.name);
        appendVariant(entry.inside, property.value);
    }
}

/// A message with its content. Memory is not expected to run out between the two.
template <class Fill>
MessagePtr filled(DBusMessage* message, Fill fill)
{
    MessagePtr owned(message);
    if (!owned)
        return nullptr;
    DBusMessageIter content;
    dbus_message_iter_init_append(owned.get(), &content);
    fill(content);
    return owned;
}

template <class Type>
Type basic(DBusMessageIter& from)
{
    Type value{};
    dbus_message_iter_get_basic(&from, &value);
    dbus_message_iter_next(&from);
    return value;
}

Plain plainAt(DBusMessageIter& from)
{
    switch (dbus_message_iter_get_arg_type(&from)) {
    case DBUS_TYPE_DOUBLE:
        return basic<double>(from);
    case DBUS_TYPE_INT64:
        return std::int64_t(basic<dbus_int64_t>(from));
    case DBUS_TYPE_STRING:
        return std::string(basic<const char*>(from));
    default:
        return false;
    }
}

} // namespace

MessagePtr answerWith(DBusMessage* call, const Value& value)
{
    return filled(dbus_message_new_method_return(call), [&](DBusMessageIter& to) { appendVariant(to, value); });
}

MessagePtr answerWith(DBusMessage* call, const Properties& properties)
{
    return filled(dbus_message_new_method_return(call), [&](DBusMessageIter& to) { appendTable(to, properties); });
}

MessagePtr answerWith(DBusMessage* call, const char* text)
{
    return filled(dbus_message_new_method_return(call), [&](DBusMessageIter& to) { append(to, text); });
}

MessagePtr changesOf(const char* interface, const Properties& properties)
{
    DBusMessage* signal = dbus_message_new_signal(kPath, DBUS_INTERFACE_PROPERTIES, "PropertiesChanged");
    return filled(signal, [&](DBusMessageIter& to) {
        append(to, interface);
        appendTable(to, properties);
        append(to, std::vector<std::string>());
    });
}

MessagePtr seeked(std::int64_t position)
{
    return filled(dbus_message_new_signal(kPath, kPlayerInterface, "Seeked"),
                  [&](DBusMessageIter& to) { append(to, position); });
}

Setting settingOf(DBusMessage* call)
{
    DBusMessageIter at;
    dbus_message_iter_init(call, &at);
    Setting setting;
    setting.interface = basic<const char*>(at);
    setting.property = basic<const char*>(at);
    DBusMessageIter inside;
    dbus_message_iter_recurse(&at, &inside);
    setting.value = plainAt(inside);
    return setting;
}

} // namespace tandrel::mpris
