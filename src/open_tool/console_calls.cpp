#include "open_tool/console_calls.h"

#include "platform/file_calls.h"

#include <algorithm>
#include <cstdlib>
#include <poll.h>
#include <xcb/xcb.h>

namespace tandrel::open_tool
{

namespace
{

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeDeleter>;

constexpr std::uint32_t kMostValues = 1U << 16;
// A request of the user's, as those of a taskbar: window managers hold back what programs ask for by themselves.
constexpr std::uint32_t kByTheUser = 2;
constexpr int kTimeWaitMs = 200;

} // namespace

ConsoleCalls::ConsoleCalls() : display_(xcb_connect(nullptr, nullptr))
{
    if (isConnected())
        listens_ = atom(file_calls::kListens);
}

ConsoleCalls::~ConsoleCalls() { xcb_disconnect(display_); }

bool ConsoleCalls::isConnected() const { return xcb_connection_has_error(display_) == 0; }

WindowHandle ConsoleCalls::root() const { return xcb_setup_roots_iterator(xcb_get_setup(display_)).data->root; }

std::uint32_t ConsoleCalls::atom(std::string_view name) const
{
    const auto cookie = xcb_intern_atom(display_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display_, cookie, nullptr));
    return reply ? reply->atom : std::uint32_t(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> ConsoleCalls::values(WindowHandle window, std::uint32_t property) const
{
    const auto cookie = xcb_get_property(display_, 0, window, property, XCB_ATOM_ANY, 0, kMostValues);
    const ReplyPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(display_, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* begin = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {begin, begin + xcb_get_property_value_length(reply.get()) / 4};
}

std::vector<WindowHandle> ConsoleCalls::candidates() const
{
    // Without a window manager the windows of programs are the root's own.
    std::vector<WindowHandle> all = values(root(), atom("_NET_CLIENT_LIST"));
    const ReplyPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display_, xcb_query_tree(display_, root()), nullptr));
    if (tree) {
        const xcb_window_t* begin = xcb_query_tree_children(tree.get());
        all.insert(all.end(), begin, begin + xcb_query_tree_children_length(tree.get()));
    }
    return all;
}

std::optional<Console> ConsoleCalls::find(WindowHandle first, const std::vector<long>& processes) const
{
    const auto consoleAt = [&](WindowHandle window) -> std::optional<Console> {
        const auto facts = values(window, listens_);
        if (facts.size() != 2 || std::find(processes.begin(), processes.end(), long(facts[0])) == processes.end())
            return std::nullopt;
        return Console{window, facts[1]};
    };
    if (first != 0)
        if (const auto console = consoleAt(first))
            return console;
    for (const WindowHandle window : candidates())
        if (const auto console = consoleAt(window))
            return console;
    return std::nullopt;
}

bool ConsoleCalls::hasHeard(const Console& console) const
{
    const auto facts = values(console.window, listens_);
    return facts.size() == 2 && facts[1] != console.heard;
}

void ConsoleCalls::send(WindowHandle to, WindowHandle about, const char* type, std::uint32_t mask,
                        const std::vector<std::uint32_t>& data) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = about;
    message.type = atom(type);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), message.data.data32);
    xcb_send_event(display_, 0, to, mask, reinterpret_cast<const char*>(&message));
}

void ConsoleCalls::call(const Console& console) const
{
    const std::uint32_t now = serverTime();
    // Without a mask it goes to the program that made the window.
    send(console.window, console.window, file_calls::kCall, XCB_EVENT_MASK_NO_EVENT, {now});
    send(root(), console.window, "_NET_ACTIVE_WINDOW",
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, {kByTheUser, now, 0});
    xcb_flush(display_);
}

std::uint32_t ConsoleCalls::serverTime() const
{
    // A change of a property is told with its time.
    const xcb_window_t window = xcb_generate_id(display_);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(display_, XCB_COPY_FROM_PARENT, window, root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(display_);
    std::uint32_t time = XCB_CURRENT_TIME;
    pollfd waiting{xcb_get_file_descriptor(display_), POLLIN, 0};
    do {
        while (const ReplyPtr<xcb_generic_event_t> event{xcb_poll_for_event(display_)})
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
                time = reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
    } while (time == XCB_CURRENT_TIME && ::poll(&waiting, 1, kTimeWaitMs) > 0 && isConnected());
    xcb_destroy_window(display_, window);
    return time;
}

} // namespace tandrel::open_tool
