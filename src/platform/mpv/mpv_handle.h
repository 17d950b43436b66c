/// Ownership of libmpv's player handles.
#pragma once

#include <condition_variable>
#include <future>
#include <memory>
#include <mpv/client.h>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tandrel
{

/// What all handles of an engine have in common.
struct HandleSettings {
    std::string videoOutput = "x11";
    /// libmpv's list of sound outputs; empty: this machine has no sound.
    std::string audioOutput;
    bool hardwareDecoding = false;
    /// Options of libmpv that take the place of those for many small videos at once.
    std::vector<std::pair<std::string, std::string>> more = {};
};

/// Creates and initialises a handle; null if libmpv refuses.
mpv_handle* makeHandle(const HandleSettings& settings);

/// Terminates a handle on a thread of its own. The future is ready when everything of the handle has gone.
std::future<void> destroyHandle(mpv_handle* handle);

/// Initialised handles, made ahead in the background because one takes some 10 ms; not while stocks rest
/// (stock_rest.h).
class HandleStock
{
public:
    HandleStock(HandleSettings settings, int count);
    ~HandleStock();
    HandleStock(const HandleStock&) = delete;
    HandleStock& operator=(const HandleStock&) = delete;

    /// From the stock, or made on the spot if that is empty. Null if libmpv refuses.
    mpv_handle* take();
    /// How many handles to keep ready from now on.
    void keep(int count);
    /// How many are ready now.
    int ready() const;

private:
    void fill();

    const HandleSettings settings_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<mpv_handle*> ready_;
    int wanted_;
    bool ending_ = false;
    std::thread filler_;
};

} // namespace tandrel
