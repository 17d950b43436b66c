/// The calendar of this machine.
#pragma once

#include "platform/services.h"

namespace tandrel
{

class SystemClock : public Clock
{
public:
    int yearAndMonth() const override;
};

} // namespace tandrel
