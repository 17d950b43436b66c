// The heap of the test program, with a counter in front.

#include "allocations.h"

#include <cstdlib>
#include <new>

namespace
{
bool counting = false;
int counted = 0;
} // namespace

void* operator new(std::size_t size)
{
    if (counting)
        ++counted;
    if (void* store = std::malloc(size ? size : 1))
        return store;
    throw std::bad_alloc();
}

void operator delete(void* store) noexcept { std::free(store); }

void operator delete(void* store, std::size_t) noexcept { std::free(store); }

namespace tandrel::test
{

AllocationCount::AllocationCount()
{
    counted = 0;
    counting = true;
}

AllocationCount::~AllocationCount() { counting = false; }

int AllocationCount::soFar() const { return counted; }

} // namespace tandrel::test
