// How long it takes from a picture of 1000 by 300 pixels to an outline, against one bare look at every pixel.

#include "desktop/region.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace
{

using namespace tandrel;

constexpr int kWidth = 1000;
constexpr int kHeight = 300;
constexpr int kRounds = 51;

template <class Opaque>
Bitmap drawn(Opaque opaque)
{
    Bitmap picture{kWidth, kHeight, {}};
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            picture.pixels.push_back(opaque(x, y) ? rgb(14, 45, 81) : rgb(255, 0, 255));
    return picture;
}

template <class Task>
double medianMs(Task task)
{
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        task();
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + kRounds / 2, times.end());
    return times[kRounds / 2];
}

void measure(const char* name, const Bitmap& picture)
{
    volatile std::int32_t sink = 0;
    std::size_t strips = 0;
    const double bare = medianMs([&] { sink = std::accumulate(picture.pixels.begin(), picture.pixels.end(), 0U); });
    const double region = medianMs([&] { strips = CreaRegione(picture, 0).size(); });
    std::printf("%-14s %8zu strips  %6.3f ms  bare look %6.3f ms  ratio %5.1f\n", name, strips, region, bare,
                region / bare);
}

} // namespace

int main()
{
    measure("body", drawn([](int x, int y) {
                const double left = 40 - std::sqrt(std::max(0.0, 1600.0 - std::pow(std::max(0, 40 - y), 2)));
                return x > left && x < kWidth - left - 1 && (x != 0 || y != 0);
            }));
    measure("checkerboard", drawn([](int x, int y) { return (x + y) % 2 == 1; }));
    measure("one colour", drawn([](int, int) { return false; }));
}
