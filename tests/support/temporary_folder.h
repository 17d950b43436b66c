/// A folder of a test's own, which goes with its content at the end.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tandrel::test
{

class TemporaryFolder
{
public:
    explicit TemporaryFolder(const std::string& inside = ::testing::TempDir()) : folder_(inside + "tandrel-XXXXXX")
    {
        if (::mkdtemp(folder_.data()) == nullptr)
            throw std::runtime_error("no folder can be made in " + inside);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;

    const std::string& path() const { return folder_; }
    std::string path(const std::string& name) const { return folder_ + "/" + name; }
    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    std::string content(const std::string& name) const
    {
        std::ostringstream all;
        all << std::ifstream(path(name), std::ios::binary).rdbuf();
        return all.str();
    }
    /// The names of all that lies in it, in order.
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            result.push_back(entry.path().filename());
        std::sort(result.begin(), result.end());
        return result;
    }

private:
    std::string folder_;
};

} // namespace tandrel::test
