#include "toolkit/types.h"

namespace tandrel
{

void raiseOverflow() { throw RuntimeError(error::kOverflow, "Overflow"); }

double divide(double dividend, double divisor)
{
    if (divisor == 0)
        throw RuntimeError(11, "Division by zero");
    return dividend / divisor;
}

} // namespace tandrel
