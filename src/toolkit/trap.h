/// Traps of handlers, written where a handler has one.
#pragma once

#include "toolkit/types.h"

namespace tandrel
{

/// Runs `steps` under a trap: an error ends them quietly. False if there was one.
template <class Steps>
bool trap(Steps&& steps)
{
    try {
        steps();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// One statement after which an error is ignored.
template <class Statement>
void ignoringErrors(Statement&& statement)
{
    trap(statement);
}

} // namespace tandrel
