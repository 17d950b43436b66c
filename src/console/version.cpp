#include "console/version.h"

namespace tandrel
{

namespace
{

Text twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

} // namespace

Text programTitle() { return "Tandrel Player PRO " + versionText(); }

Text versionText()
{
    return std::to_string(TANDREL_VERSION_MAJOR) + "." + twoDigits(TANDREL_VERSION_MINOR) + "." +
           twoDigits(TANDREL_VERSION_PATCH);
}

Long programNumber() { return TANDREL_VERSION_MAJOR * 10000 + TANDREL_VERSION_MINOR * 100 + TANDREL_VERSION_PATCH; }

} // namespace tandrel
