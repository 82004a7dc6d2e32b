#include "bench/Measured.h"

__attribute__((noinline)) void vqMeasured(void (*work)(const void*), const void* context)
{
    work(context);
    __asm__ volatile(""); // or the call above would become a jump, and the function would end before the work does
}
