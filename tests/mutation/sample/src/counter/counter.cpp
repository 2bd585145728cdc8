#include "counter/counter.h"

void TCounter::Step() {
    if (Count < Limit)
        ++Count;
    else
        Count = 0;
}

int BitsOf(int number) {
    int bits = 0;
    while (number > 0) {
        number /= 2;
        ++bits;
    }
    return bits;
}
