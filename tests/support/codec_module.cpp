// A library that brings an entry, as modules do.
#include <cstdio>

extern "C" void configure() { std::puts("configure was called"); }
