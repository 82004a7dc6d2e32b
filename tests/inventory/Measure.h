#pragma once

#include "tests/testing/Provider.h"

#include <cstddef>

// What a request costs. The program that links Measure.cpp has its own operator new, which counts.

/// What `operator new` was asked for since the program began, by all of its libraries.
struct Allocations
{
    std::size_t count = 0;
    std::size_t bytes = 0;
};
Allocations allocationsSoFar();

/// Counts the instances and keeps none, as a server does that sends each one on.
class CountingHandler : public Pegasus::InstanceResponseHandler
{
public:
    void processing() override {}
    void complete() override {}
    void deliver(const Pegasus::CIMInstance&) override { ++instances; }
    void deliver(const Pegasus::Array<Pegasus::CIMInstance>& array) override { instances += array.size(); }

    std::size_t instances = 0;
};

/// Enumerates the class and returns how many instances came.
std::size_t enumerate(TestProvider& provider, const char* className);
