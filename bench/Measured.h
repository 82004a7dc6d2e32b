#pragma once

/// Runs the work. bench/compare counts the instructions between entry and exit of this function, and of no other code.
extern "C" void vqMeasured(void (*work)(const void*), const void* context);

/// The same for anything that can be called.
template <class Work> void measured(const Work& work)
{
    vqMeasured([](const void* context) { (*static_cast<const Work*>(context))(); }, &work);
}
