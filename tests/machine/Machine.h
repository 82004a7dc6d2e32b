#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <string>

/// A test over what an emulated machine wrote; skips where the machine could not be had.
class Machine : public testing::Test
{
protected:
    void SetUp() override
    {
        std::ifstream skipped(std::string(VQ_MACHINE_WORK) + "/skipped");
        std::string reason;
        if (std::getline(skipped, reason))
            GTEST_SKIP() << reason;
    }
};
