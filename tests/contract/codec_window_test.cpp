// The settings program as another one starts it and takes its window in. Needs an X server without a window manager.
#include "support/let_others_run.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include "platform/codec/codec_file.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <functional>
#include <memory>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

const std::string kFolder = TANDREL_SYSTEM_FOLDER;

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
std::unique_ptr<Reply, FreeDeleter> owned(Reply* reply)
{
    return std::unique_ptr<Reply, FreeDeleter>(reply);
}

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = 60s)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        test::letOthersRun();
    }
    return true;
}

/// A process that was started here, and goes at the end.
class Process
{
public:
    Process(const std::vector<std::string>& command, const std::string& home)
    {
        number_ = ::fork();
        if (number_ != 0)
            return;
        ::setenv("TANDREL_HOME", home.c_str(), 1);
        std::vector<char*> words;
        for (const std::string& word : command)
            words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    ~Process()
    {
        if (hasEnded())
            return;
        ::kill(number_, SIGKILL);
        ::waitpid(number_, nullptr, 0);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t number() const { return number_; }
    void signal(int which) const { ::kill(number_, which); }
    bool hasEnded()
    {
        ended_ = ended_ || ::waitpid(number_, &status_, WNOHANG) == number_;
        return ended_;
    }
    bool ends()
    {
        return waitUntil([this] { return hasEnded(); });
    }
    /// Ended by itself, without trouble.
    bool endedWell() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

private:
    pid_t number_ = 0;
    int status_ = 0;
    bool ended_ = false;
};

class CodecProgram : public testing::Test
{
protected:
    CodecProgram() : display(xcb_connect(nullptr, nullptr)) { ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1); }
    ~CodecProgram() override { xcb_disconnect(display); }

    std::unique_ptr<Process> start(const std::string& entry, const std::string& home)
    {
        return std::make_unique<Process>(
            std::vector<std::string>{kFolder + "/RunDLL32.exe", kFolder + "/tandrel-codec-settings," + entry}, home);
    }
    std::unique_ptr<Process> start(const std::string& entry = "configure") { return start(entry, folder.path()); }

    xcb_window_t root() const { return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root; }
    std::vector<std::uint32_t> numbers(xcb_window_t of, const char* name)
    {
        const auto atom = owned(xcb_intern_atom_reply(
            display, xcb_intern_atom(display, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr));
        const auto reply = owned(xcb_get_property_reply(
            display, xcb_get_property(display, 0, of, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1), nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) < 4)
            return {};
        return {*static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()))};
    }
    bool isVisible(xcb_window_t window)
    {
        const auto reply =
            owned(xcb_get_window_attributes_reply(display, xcb_get_window_attributes(display, window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    /// The first visible top-level window of this process; 0 if there is none.
    xcb_window_t windowOf(const Process& process)
    {
        const auto tree = owned(xcb_query_tree_reply(display, xcb_query_tree(display, root()), nullptr));
        const xcb_window_t* all = xcb_query_tree_children(tree.get());
        for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index)
            if (numbers(all[index], "_NET_WM_PID") == std::vector{static_cast<std::uint32_t>(process.number())} &&
                isVisible(all[index]))
                return all[index];
        return 0;
    }
    xcb_window_t shownWindowOf(const Process& process)
    {
        xcb_window_t found = 0;
        waitUntil([&] { return (found = windowOf(process)) != 0; });
        return found;
    }
    void moveInto(xcb_window_t window, WindowHandle parent)
    {
        xcb_reparent_window(display, window, static_cast<xcb_window_t>(parent), 0, 0);
        xcb_flush(display);
    }
    xcb_window_t focus()
    {
        return owned(xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr))->focus;
    }
    static bool tool(const std::string& what) { return std::system(("xdotool " + what).c_str()) == 0; }
    CodecSettings stored() { return CodecFile(folder.path("codec.ini")).read(); }

    test::TemporaryFolder folder;
    xcb_connection_t* display;
};
} // namespace

TEST_F(CodecProgram, TheFirstWindowIsInTheProcessThatWasStarted)
{
    const auto begin = std::chrono::steady_clock::now();
    const auto program = start();
    const xcb_window_t window = shownWindowOf(*program);
    ASSERT_NE(window, 0U);
    const auto took = std::chrono::steady_clock::now() - begin;
    RecordProperty("first_window_ms", static_cast<int>(took / 1ms));
    const auto size = owned(xcb_get_geometry_reply(display, xcb_get_geometry(display, window), nullptr));
    EXPECT_LE(size->width, 640);
    EXPECT_LE(size->height, 500);
}

TEST_F(CodecProgram, InsideAnotherWindowItTakesPressesAndKeys)
{
    TestWindow container(640, 480);
    const auto program = start();
    const xcb_window_t window = shownWindowOf(*program);
    moveInto(window, container.handle());
    ASSERT_TRUE(waitUntil([&] { return isVisible(window) && !container.windowsInside().empty(); }));
    const auto isPainted = [&] {
        const auto pixels = container.lookInColour({20, 20, 200, 200});
        return std::count_if(pixels.begin(), pixels.end(), [](int one) { return one > 150; }) > 50;
    };
    EXPECT_TRUE(waitUntil(isPainted));
    EXPECT_NE(focus(), window);
    // Into the groove of the first slider, then keys, then onto the button at the lower right corner.
    ASSERT_TRUE(tool("mousemove 480 40 click 1"));
    EXPECT_TRUE(waitUntil([&] { return focus() == window; }));
    ASSERT_TRUE(tool("key Home key Right key Right"));
    ASSERT_TRUE(tool("mousemove 565 380 click 1"));
    EXPECT_TRUE(waitUntil([&] { return stored().get(CodecValue::Brightness) == -98; }))
        << stored().get(CodecValue::Brightness);
    // Given back, it goes on as a window of its own.
    moveInto(window, root());
    EXPECT_TRUE(waitUntil([&] { return windowOf(*program) == window; }));
    ASSERT_TRUE(tool("mousemove 480 40 click 1 key Home mousemove 565 380 click 1"));
    container.destroy();
    EXPECT_TRUE(waitUntil([&] { return stored().get(CodecValue::Brightness) != -98; }));
    EXPECT_FALSE(program->hasEnded());
}

TEST_F(CodecProgram, ItComesUpAgainWhereAWindowManagerHasPutItOutOfSight)
{
    TestWindow container(640, 480);
    const auto program = start();
    const xcb_window_t window = shownWindowOf(*program);
    const auto mark = owned(xcb_intern_atom_reply(display, xcb_intern_atom(display, 0, 8, "WM_STATE"), nullptr))->atom;
    const std::uint32_t normal[]{1, 0};
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, window, mark, mark, 32, 2, normal);
    // As window managers do that hear of it too late.
    moveInto(window, container.handle());
    xcb_unmap_window(display, window);
    xcb_flush(display);
    EXPECT_TRUE(waitUntil([&] { return !isVisible(window); }));
    xcb_delete_property(display, window, mark);
    xcb_flush(display);
    EXPECT_TRUE(waitUntil([&] { return isVisible(window); }));
    // One that is put away by the window manager it still has stays there.
    moveInto(window, root());
    ASSERT_TRUE(waitUntil([&] { return isVisible(window); }));
    xcb_unmap_window(display, window);
    xcb_flush(display);
    EXPECT_FALSE(waitUntil([&] { return isVisible(window); }, 300ms));
}

TEST_F(CodecProgram, ItEndsWithTheWindowItStandsIn)
{
    TestWindow container(640, 480);
    const auto program = start("configureAudio");
    moveInto(shownWindowOf(*program), container.handle());
    ASSERT_TRUE(waitUntil([&] { return !container.windowsInside().empty(); }));
    container.destroy();
    EXPECT_TRUE(program->ends());
    EXPECT_TRUE(program->endedWell());
}

TEST_F(CodecProgram, TheNewerOneOfAPageStays)
{
    const auto first = start();
    const auto sound = start("configureAudio");
    const auto elsewhere = start("configure", folder.path("other"));
    for (const auto* one : {&first, &sound, &elsewhere})
        ASSERT_NE(shownWindowOf(**one), 0U);
    const auto second = start();
    EXPECT_NE(shownWindowOf(*second), 0U);
    EXPECT_TRUE(first->ends());
    EXPECT_TRUE(first->endedWell());
    EXPECT_FALSE(second->hasEnded());
    EXPECT_FALSE(sound->hasEnded());
    EXPECT_FALSE(elsewhere->hasEnded());
    // With both pages it stands for both.
    const Process both({kFolder + "/tandrel-codec-settings"}, folder.path());
    EXPECT_TRUE(second->ends());
    EXPECT_TRUE(sound->ends());
    EXPECT_NE(shownWindowOf(both), 0U);
}

TEST_F(CodecProgram, OneThatHangsIsLeftAlone)
{
    const auto first = start();
    ASSERT_NE(shownWindowOf(*first), 0U);
    first->signal(SIGSTOP);
    const auto second = start();
    EXPECT_NE(shownWindowOf(*second), 0U);
    EXPECT_FALSE(first->hasEnded());
    const auto third = start();
    EXPECT_NE(shownWindowOf(*third), 0U);
    EXPECT_TRUE(second->ends());
    first->signal(SIGCONT);
    EXPECT_TRUE(first->ends());
    EXPECT_FALSE(third->hasEnded());
}

TEST_F(CodecProgram, HelpAndWrongWords)
{
    Process help({kFolder + "/tandrel-codec-settings", "--help"}, folder.path());
    EXPECT_TRUE(help.ends());
    EXPECT_TRUE(help.endedWell());
    Process wrong({kFolder + "/tandrel-codec-settings", "configured"}, folder.path());
    EXPECT_TRUE(wrong.ends());
    EXPECT_FALSE(wrong.endedWell());
}

} // namespace tandrel
