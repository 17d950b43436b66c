#include "disc_bench.h"
