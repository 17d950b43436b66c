/// Counts what the whole test program takes from the heap.
#pragma once

namespace tandrel::test
{

/// Calls of the allocating operator new from the making of this object on.
class AllocationCount
{
public:
    AllocationCount();
    ~AllocationCount();
    AllocationCount(const AllocationCount&) = delete;
    int soFar() const;
};

} // namespace tandrel::test
