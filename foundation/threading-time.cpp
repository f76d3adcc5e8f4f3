// foundation/threading-time.cpp: the time and random helpers of threading.h.

#include "foundation/threading.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include <sys/time.h>

void millisleep(unsigned int milliseconds)
{
    timespec left{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {}
}

void gettimecounts(unsigned long* seconds, unsigned long* microseconds)
{
    timeval now{};
    gettimeofday(&now, nullptr);
    if (seconds)
        *seconds = static_cast<unsigned long>(now.tv_sec);
    if (microseconds)
        *microseconds = static_cast<unsigned long>(now.tv_usec);
}

unsigned int millicountAt(unsigned long seconds, unsigned long microseconds)
{
    // The modulus keeps the product within 32 bits.
    return static_cast<unsigned int>(seconds % 4290000 * 1000 + microseconds / 1000);
}

unsigned int getmillicount()
{
    unsigned long seconds = 0;
    unsigned long microseconds = 0;
    gettimecounts(&seconds, &microseconds);
    return millicountAt(seconds, microseconds);
}

unsigned long getsecondcount() { return static_cast<unsigned long>(std::time(nullptr)); }

void random_init(unsigned int seed) { std::srand(seed); }
int random_next(unsigned int* state) { return rand_r(state); }
