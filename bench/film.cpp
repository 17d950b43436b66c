// One HD film on the screen: how soon pictures come, how true the place is, and how long calls take.
// bench-film [FILE...]: by default the films among the test media. Needs an X server.
#include "platform/mpv/film_player.h"
#include "support/let_others_run.h"
#include "support/test_media.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace
{
using namespace tandrel;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr PixelRect kPlace{0, 0, 1280, 720};
// A strip inside the band with the number is enough to read it, and quickly read.
constexpr PixelRect kBand{0, 40, 1280, 46};
constexpr auto kTick = 50ms;

double milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

/// How often this thread has gone to sleep by itself: for a lock, say. Where others took its processor doesn't count.
long waitsOfThread()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

struct Calls {
    std::vector<double> times;
    /// The longest call that waited for something else than the processor.
    double waited = 0;
};

class Bench
{
public:
    Bench() { player->showIn(window.handle(), kPlace); }

    template <class Call>
    auto timed(const char* name, Call call)
    {
        struct Note {
            Bench& bench;
            const char* name;
            Clock::time_point start = Clock::now();
            long waits = waitsOfThread();
            ~Note()
            {
                const double time = milliseconds(Clock::now() - start);
                Calls& calls = bench.calls[name];
                calls.times.push_back(time);
                if (waitsOfThread() != waits)
                    calls.waited = std::max(calls.waited, time);
            }
        } note{*this, name};
        return call();
    }

    /// Follows every 50 ms, as the program does, and looks at the screen all the time. The time until it is so.
    double until(const std::function<bool()>& done, Clock::duration limit = 10s)
    {
        const auto start = Clock::now();
        auto next = start;
        while (Clock::now() - start < limit) {
            if (Clock::now() >= next) {
                timed("follow", [&] { player->follow(); });
                timed("position", [&] { return player->position(); });
                timed("duration", [&] { return player->duration(); });
                timed("hasEnded", [&] { return player->hasEnded(); });
                next += kTick;
            }
            if (done())
                return milliseconds(Clock::now() - start);
            test::letOthersRun();
        }
        return -1;
    }
    std::optional<int> frame() { return window.frameIn(kBand); }

    TestWindow window{1280, 720};
    std::unique_ptr<FilePlayer> player = makeMpvFilePlayer({.outputs = true, .pixelRatio = nullptr});
    std::map<std::string, Calls> calls;
};

void firstPicture(Bench& bench, const std::string& file)
{
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        bench.timed("open", [&] { bench.player->open(file); });
        times.push_back(bench.until([&] { return bench.frame().has_value(); }));
        bench.timed("close", [&] { bench.player->close(); });
        bench.until([&] { return !bench.frame(); });
    }
    std::sort(times.begin(), times.end());
    std::printf("%-60s first picture: median %.0f ms, worst %.0f ms\n", file.c_str(), times[2], times[4]);
}

void seeks(Bench& bench, const std::string& file, bool held)
{
    bench.player->open(file);
    bench.until([&] { return bench.frame().has_value() && bench.player->duration() > 0; });
    if (held)
        bench.player->pause();
    std::mt19937 random(5);
    std::uniform_real_distribution<double> places(0.3, bench.player->duration() - 1);
    std::vector<double> changed;
    std::vector<double> exact;
    for (int round = 0; round < 15; ++round) {
        bench.until([] { return false; }, 700ms);
        const double before = bench.player->position();
        double target = places(random);
        while (std::abs(target - before) < 1.5)
            target = places(random);
        const auto shown = bench.frame();
        bench.timed("seek", [&] { bench.player->seek(target); });
        const auto start = Clock::now();
        // Another picture than the one before and those that would have followed it.
        changed.push_back(bench.until([&] {
            const auto frame = bench.frame();
            return frame && shown && (*frame < *shown || *frame > *shown + 20 || (held && *frame != *shown));
        }));
        bench.until([&] {
            const auto frame = bench.frame();
            return frame && *frame >= static_cast<int>(target * 30) - 1 && *frame <= static_cast<int>(target * 30) + 8;
        });
        exact.push_back(milliseconds(Clock::now() - start));
    }
    std::sort(changed.begin(), changed.end());
    std::sort(exact.begin(), exact.end());
    std::printf("%-60s seek %s: new picture median %.0f worst %.0f ms, exact median %.0f worst %.0f ms\n", file.c_str(),
                held ? "held" : "running", changed[7], changed[14], exact[7], exact[14]);
    bench.player->close();
}

/// Against the number in the picture, of a file with 30 pictures a second.
void place(Bench& bench, const std::string& file)
{
    bench.player->open(file);
    bench.until([&] { return bench.frame().has_value() && bench.player->position() > 0.1; });
    std::vector<double> errors;
    double last = 0;
    int falls = 0;
    bench.until(
        [&] {
            const auto frame = bench.frame();
            const double read = bench.player->position();
            if (frame)
                errors.push_back((read - *frame / 30.0) * 1000);
            falls += read < last;
            last = read;
            return false;
        },
        6s);
    std::sort(errors.begin(), errors.end());
    std::printf("%-60s place: ahead of the picture by %.0f to %.0f, median %.0f ms, %d falls in %zu\n", file.c_str(),
                errors.front(), errors.back(), errors[errors.size() / 2], falls, errors.size());
    bench.player->close();
}

void rates(Bench& bench, const std::string& file, double from, double rate)
{
    bench.player->open(file);
    bench.until([&] { return bench.frame().has_value(); });
    bench.player->seek(from);
    bench.until([] { return false; }, 1s);
    const double start = bench.player->position();
    bench.timed("setRate", [&] { bench.player->setRate(rate); });
    int pictures = 0;
    auto shown = bench.frame();
    const double took = bench.until([&] {
        const auto frame = bench.frame();
        pictures += frame && frame != shown;
        shown = frame;
        return std::abs(bench.player->position() - start) >= 6.5 || bench.player->rate() == 1;
    });
    std::printf("%-60s rate %.0f: %.2f times in %.0f ms, %d pictures\n", file.c_str(), rate,
                std::abs(bench.player->position() - start) * 1000 / took, took, pictures);
    bench.player->close();
}
} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> films(argv + 1, argv + argc);
    if (films.empty())
        for (const char* name : {"film_h264.mkv", "film_hevc.mkv", "film_vp9.mkv", "film_av1.mkv", "film_10bit.mkv"})
            films.push_back(testMedia(name));
    Bench bench;
    for (const std::string& film : films)
        firstPicture(bench, film);
    seeks(bench, films[0], true);
    seeks(bench, films[0], false);
    place(bench, films[0]);
    rates(bench, films[0], 0.5, 5);
    rates(bench, films[0], 9, -5);
    for (auto& [name, calls] : bench.calls) {
        auto& times = calls.times;
        std::sort(times.begin(), times.end());
        std::printf("%-10s %6zu calls, median %.3f ms, worst %.3f ms, worst that waited %.3f ms\n", name.c_str(),
                    times.size(), times[times.size() / 2], times.back(), calls.waited);
    }
}
