#include "platform/file_address.h"

#include <algorithm>
#include <array>
#include <climits>
#include <unistd.h>

namespace tandrel
{

namespace
{

constexpr std::string_view kLocal = "file:";

/// The value of a hexadecimal digit, -1 for any other character.
int digit(char one)
{
    if (one >= '0' && one <= '9')
        return one - '0';
    const char small = static_cast<char>(one | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::string withoutPercents(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? digit(text[i + 1]) : -1;
        const int low = high >= 0 ? digit(text[i + 2]) : -1;
        if (low >= 0) {
            result += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string hostName()
{
    std::array<char, HOST_NAME_MAX + 1> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

bool isThisMachine(std::string_view host) { return host.empty() || host == "localhost" || host == hostName(); }

/// What stands for itself in the path of an address.
bool isPlain(char one)
{
    const bool letter = (one >= 'a' && one <= 'z') || (one >= 'A' && one <= 'Z') || (one >= '0' && one <= '9');
    return letter || std::string_view("-._~/").find(one) != std::string_view::npos;
}

} // namespace

std::optional<std::string> pathOfFileAddress(std::string_view address)
{
    if (!address.starts_with(kLocal))
        return std::nullopt;
    std::string_view path = address.substr(kLocal.size());
    if (path.starts_with("//")) {
        const auto end = std::min(path.find('/', 2), path.size());
        if (!isThisMachine(path.substr(2, end - 2)))
            return std::nullopt;
        path.remove_prefix(end);
    }
    std::string decoded = withoutPercents(path);
    const bool whole = decoded.starts_with('/') && decoded.find('\0') == std::string::npos;
    return whole ? std::optional(decoded) : std::nullopt;
}

std::string fileAddressOf(std::string_view path)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string address = "file://";
    for (const char one : path) {
        const auto code = static_cast<unsigned char>(one);
        if (isPlain(one))
            address += one;
        else
            (((address += '%') += kDigits[code >> 4]) += kDigits[code & 0xF]);
    }
    return address;
}

} // namespace tandrel
