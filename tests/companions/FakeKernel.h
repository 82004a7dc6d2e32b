#pragma once

#include <functional>
#include <string>
#include <vector>

/// An IPMI device of the kernel that does as it is told, with a clock of its own: no wait takes any time. It stands in
/// for `ioctl`, `poll` and `clock_gettime` in the program's own objects, by the linker's --wrap.
struct FakeKernel
{
    /// A message that the device hands out when its time has come.
    struct Message
    {
        long long at = 0; ///< by the clock below
        int type = 1;     ///< 1 is an answer
        long id = 0;
        unsigned netfn = 7;
        unsigned command = 1;
        std::vector<unsigned char> data;
    };

    static constexpr int Device = 0x1B41; ///< what the device is known by
    long long now = 5000;                 ///< milliseconds
    std::vector<Message> queue;
    std::vector<long> asked;                 ///< the message IDs of the questions
    std::vector<long long> askedAt;          ///< and when each came
    std::string wrongQuestion;               ///< what was not as it must be in one of them
    std::function<void(FakeKernel&)> onSend; ///< what follows a question: the last of `asked`

    int sendError = 0;             ///< errno of a question that is refused
    int receiveError = 0;          ///< errno of each attempt to receive
    short pollEvents = 0;          ///< what poll tells at once, if anything, in place of what is queued
    int interruptions = 0;         ///< how many waits a signal ends
    int emptyWakeUps = 0;          ///< how many times poll tells of a message that is not there
    bool cutsLongMessages = false; ///< tells EMSGSIZE for every message

    /// Queues an answer to the last question, so many milliseconds from now.
    void answer(long long delay, std::vector<unsigned char> data);

    /// The one that the program meets.
    static FakeKernel& current();
    static void reset() { current() = FakeKernel(); }
};
