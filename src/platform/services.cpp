#include "platform/services.h"

namespace tandrel
{

namespace
{
Services installed;
}

const Services& services() { return installed; }

void installServices(const Services& services) { installed = services; }

} // namespace tandrel
