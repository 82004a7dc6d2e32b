// The BMC asked over a device that stands in for the kernel's.

#include "companions/bmc/Device.h"

#include "tests/companions/FakeKernel.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace VQ;

namespace
{
using Bytes = std::vector<unsigned char>;

const Bytes Whole = {0x00, 0x20, 0x81, 0x01, 0x17, 0x02, 0xBF, 0x02, 0x00, 0x00, 0x43, 0x00};
const Bytes Other = {0x00, 0x21, 0x01, 0x09, 0x99, 0x02, 0xBF, 0xFF, 0xFF, 0x0F, 0xFF, 0xFF};

class Device : public testing::Test
{
protected:
    void SetUp() override { FakeKernel::reset(); }

    FakeKernel& kernel = FakeKernel::current();
    qoripmi_identity identity = {};

    // Whether there was an answer; it must not have taken longer than the two seconds.
    bool ask()
    {
        const long long begin = kernel.now;
        const bool answered = askDevice(FakeKernel::Device, Deadline(2000), identity);
        EXPECT_LE(kernel.now - begin, 2000);
        EXPECT_EQ(kernel.wrongQuestion, "");
        if (!answered) {
            const qoripmi_identity nothing = {};
            EXPECT_EQ(std::memcmp(&identity, &nothing, sizeof nothing), 0) << "something was written";
        }
        return answered;
    }

    std::string revision() const
    {
        return std::to_string(identity.firmware_major) + "." + std::to_string(identity.firmware_minor);
    }
};

// Each of these messages differs in one thing from an answer to the question.
using Foreign = Device;
}

TEST_F(Device, IsAskedOnceAndAnswers)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(3, Whole); };
    EXPECT_TRUE(ask());
    EXPECT_EQ(revision(), "1.17");
    EXPECT_EQ(identity.manufacturer_id, 2u);
    EXPECT_EQ(identity.product_id, 0x43u);
    EXPECT_EQ(kernel.asked.size(), 1u);
}

TEST_F(Device, SilenceEndsAfterTwoSeconds)
{
    const long long begin = kernel.now;
    EXPECT_FALSE(ask());
    EXPECT_EQ(kernel.now - begin, 2000);
    EXPECT_EQ(kernel.asked.size(), 1u);
}

TEST_F(Device, LateAnswerIsTakenWithinTheTimeOnly)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(1999, Whole); };
    EXPECT_TRUE(ask());
    FakeKernel::reset();
    identity = {};
    kernel.onSend = [](FakeKernel& at) { at.answer(2001, Whole); };
    EXPECT_FALSE(ask());
}

TEST_F(Device, ShortAnswerIsNone)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(0, Bytes(Whole.begin(), Whole.end() - 1)); };
    EXPECT_FALSE(ask());
    EXPECT_EQ(kernel.asked.size(), 1u);
}

TEST_F(Device, EmptyAnswerIsNone)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(0, {}); };
    EXPECT_FALSE(ask());
}

TEST_F(Device, LongAnswerIsReadByItsPlaces)
{
    Bytes longer = Whole;
    longer.resize(272, 0x55);
    kernel.onSend = [&](FakeKernel& at) { at.answer(0, longer); };
    EXPECT_TRUE(ask());
    EXPECT_EQ(revision(), "1.17");
}

TEST_F(Device, AnswerThatTheKernelCutsIsReadAsFarAsItGoes)
{
    Bytes longer = Whole;
    longer.resize(5000, 0x55);
    kernel.onSend = [&](FakeKernel& at) { at.answer(0, longer); };
    EXPECT_TRUE(ask());
    FakeKernel::reset();
    identity = {};
    kernel.cutsLongMessages = true;
    kernel.onSend = [](FakeKernel& at) { at.answer(0, Bytes(Whole.begin(), Whole.begin() + 7)); };
    EXPECT_FALSE(ask());
}

TEST_F(Device, BusyIsAskedAgainWithAnotherNumber)
{
    for (const unsigned code : {0xC0, 0xC3, 0xCE, 0xD0, 0xD1, 0xD2, 0xD5}) {
        FakeKernel::reset();
        identity = {};
        kernel.onSend = [code](FakeKernel& at) {
            at.answer(5, at.asked.size() < 4 ? Bytes{static_cast<unsigned char>(code)} : Whole);
        };
        EXPECT_TRUE(ask()) << code;
        EXPECT_EQ(revision(), "1.17");
        EXPECT_EQ(std::set<long>(kernel.asked.begin(), kernel.asked.end()).size(), 4u) << code;
    }
}

TEST_F(Device, BusyForeverEndsInTimeAndIsNotAskedWithoutPause)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(0, {0xC0}); };
    const long long begin = kernel.now;
    EXPECT_FALSE(ask());
    EXPECT_EQ(kernel.now - begin, 2000);
    EXPECT_EQ(kernel.asked.size(), 40u);
    for (std::size_t i = 1; i < kernel.askedAt.size(); ++i)
        EXPECT_GE(kernel.askedAt[i] - kernel.askedAt[i - 1], 50);
}

TEST_F(Device, BusyAndThenSilentShareOneDeadline)
{
    kernel.onSend = [](FakeKernel& at) {
        if (at.asked.size() < 3)
            at.answer(700, {0xC3});
    };
    const long long begin = kernel.now;
    EXPECT_FALSE(ask());
    EXPECT_EQ(kernel.now - begin, 2000);
}

TEST_F(Device, ErrorIsNoAnswerAndNotAskedAgain)
{
    for (unsigned code = 1; code <= 0xFF; ++code) {
        FakeKernel::reset();
        identity = {};
        Bytes answer = Whole;
        answer[0] = static_cast<unsigned char>(code);
        kernel.onSend = [&](FakeKernel& at) { at.answer(0, answer); };
        EXPECT_FALSE(ask()) << code;
    }
    FakeKernel::reset();
    kernel.onSend = [](FakeKernel& at) { at.answer(0, {0xC1}); };
    EXPECT_FALSE(ask());
    EXPECT_EQ(kernel.asked.size(), 1u);
}

TEST_F(Foreign, MessagesAreDroppedUntilTheAnswerComes)
{
    kernel.onSend = [](FakeKernel& at) {
        for (int kind = 0; kind < 9; ++kind) {
            at.answer(kind, Other);
            FakeKernel::Message& message = at.queue.back();
            switch (kind) {
            case 0:
                message.type = 2;
                break; // an event
            case 1:
                message.type = 3;
                break; // a command
            case 2:
                message.type = 0;
                break;
            case 3:
                message.netfn = 6;
                break;
            case 4:
                message.netfn = 0x0B;
                break;
            case 5:
                message.command = 2;
                break;
            case 6:
                message.command = 0;
                break;
            case 7:
                message.id = at.asked.back() - 1;
                break;
            default:
                message.id = at.asked.back() + 1;
                break;
            }
        }
        at.answer(20, Whole);
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(revision(), "1.17");
    EXPECT_TRUE(kernel.queue.empty());
}

TEST_F(Foreign, MessagesAloneAreNoAnswer)
{
    for (const int kind : {0, 1, 2, 3}) {
        FakeKernel::reset();
        identity = {};
        kernel.onSend = [kind](FakeKernel& at) {
            at.answer(0, Other);
            FakeKernel::Message& message = at.queue.back();
            message.type = kind == 0 ? 4 : 1;
            message.netfn = kind == 1 ? 5 : 7;
            message.command = kind == 2 ? 3 : 1;
            message.id += kind == 3 ? 1 : 0;
        };
        EXPECT_FALSE(ask()) << kind;
    }
}

TEST_F(Foreign, AnswerToAnEarlierQuestionIsDropped)
{
    kernel.onSend = [](FakeKernel& at) {
        if (at.asked.size() == 1) {
            at.answer(0, {0xC0});
            at.answer(60, Other); // to the first question once more, when the second was asked
        } else {
            at.answer(100, Whole);
        }
    };
    EXPECT_TRUE(ask());
    EXPECT_EQ(revision(), "1.17");
}

TEST_F(Foreign, AnswerToAnEarlierCallIsDropped)
{
    kernel.onSend = [](FakeKernel& at) { at.answer(2500, Other); };
    EXPECT_FALSE(ask());
    kernel.onSend = [](FakeKernel& at) { at.answer(1000, Whole); };
    EXPECT_TRUE(ask());
    EXPECT_EQ(revision(), "1.17");
}

// More than fit into two seconds: a message at each moment.
TEST_F(Foreign, FloodEndsInTime)
{
    kernel.onSend = [](FakeKernel& at) {
        for (int i = 0; i < 4000; ++i) {
            at.answer(i, Other);
            at.queue.back().command = 2;
        }
    };
    EXPECT_FALSE(ask());
}

TEST_F(Device, RefusedQuestionIsNoAnswer)
{
    for (const int error : {ENODEV, EBUSY, ENOTTY, EINVAL, EAGAIN, EMSGSIZE, ENOMEM}) {
        kernel.sendError = error;
        EXPECT_FALSE(ask()) << error;
    }
    EXPECT_EQ(kernel.now, 5000);
}

TEST_F(Device, ThatVanishesIsNoAnswer)
{
    for (const int events : {POLLERR, POLLHUP, POLLNVAL, POLLERR | POLLHUP}) {
        FakeKernel::reset();
        kernel.pollEvents = static_cast<short>(events);
        EXPECT_FALSE(ask()) << events;
        EXPECT_EQ(kernel.now, 5000);
    }
    for (const int error : {ENODEV, EIO, EFAULT, EINVAL, EBADF}) {
        FakeKernel::reset();
        kernel.receiveError = error;
        kernel.onSend = [](FakeKernel& at) { at.answer(0, Whole); };
        EXPECT_FALSE(ask()) << error;
        EXPECT_EQ(kernel.now, 5000);
    }
}

TEST_F(Device, InterruptionsAndEmptyWakeUpsAreNoAnswer)
{
    kernel.interruptions = 5;
    kernel.emptyWakeUps = 5;
    kernel.onSend = [](FakeKernel& at) { at.answer(300, Whole); };
    EXPECT_TRUE(ask());
    FakeKernel::reset();
    identity = {};
    kernel.interruptions = 1000000;
    EXPECT_FALSE(ask());
}

namespace
{
// A root of a file system with device nodes.
class Nodes : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/vq-nodes-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        root = name;
        std::filesystem::create_directories(root + "/dev/ipmi");
        std::filesystem::create_directories(root + "/dev/ipmidev");
    }
    void TearDown() override { std::filesystem::remove_all(root); }

    // A character device that is harmless to open: the kernel's null, or its zero.
    bool makeDevice(const std::string& node, unsigned minorNumber)
    {
        return mknod((root + node).c_str(), S_IFCHR | 0600, makedev(1, minorNumber)) == 0;
    }

    // The minor number of what is opened, -1 where nothing is.
    int opened() const
    {
        const int device = openDevice(root.c_str());
        if (device < 0)
            return -1;
        struct stat status = {};
        EXPECT_EQ(fstat(device, &status), 0);
        EXPECT_NE(fcntl(device, F_GETFD) & FD_CLOEXEC, 0);
        EXPECT_NE(fcntl(device, F_GETFL) & O_NONBLOCK, 0);
        close(device);
        return static_cast<int>(minor(status.st_rdev));
    }

    std::string root;
};
}

TEST_F(Nodes, ThatAreMissingAreNone)
{
    EXPECT_EQ(opened(), -1);
    std::filesystem::remove_all(root + "/dev");
    EXPECT_EQ(opened(), -1);
}

TEST_F(Nodes, AreTriedInTheirOrder)
{
    if (!makeDevice("/dev/ipmidev/0", 3))
        GTEST_SKIP() << "no device node can be made here";
    EXPECT_EQ(opened(), 3);
    ASSERT_TRUE(makeDevice("/dev/ipmi/0", 5));
    EXPECT_EQ(opened(), 5);
    std::filesystem::remove_all(root + "/dev/ipmi");
    ASSERT_TRUE(makeDevice("/dev/ipmi0", 5));
    EXPECT_EQ(opened(), 5);
}

TEST_F(Nodes, OfAnotherKindArePassedOverAndNotOpened)
{
    std::filesystem::create_directories(root + "/dev/ipmi0");
    ASSERT_EQ(mkfifo((root + "/dev/ipmi/0").c_str(), 0600), 0);
    std::ofstream(root + "/dev/ipmidev/0") << "a file\n";
    EXPECT_EQ(opened(), -1);
    std::filesystem::remove(root + "/dev/ipmidev/0");
    std::filesystem::create_symlink("0", root + "/dev/ipmidev/0"); // leads to itself
    EXPECT_EQ(opened(), -1);
    std::filesystem::remove(root + "/dev/ipmidev/0");
    if (!makeDevice("/dev/ipmidev/0", 3))
        GTEST_SKIP() << "no device node can be made here";
    EXPECT_EQ(opened(), 3);
}

// A number that no driver has.
TEST_F(Nodes, ThatRefuseAreNone)
{
    if (mknod((root + "/dev/ipmi0").c_str(), S_IFCHR | 0600, makedev(60, 77)) != 0)
        GTEST_SKIP() << "no device node can be made here";
    EXPECT_EQ(opened(), -1);
}

TEST_F(Nodes, BelowAPathThatIsTooLongAreNone)
{
    EXPECT_EQ(openDevice(std::string(5000, '/').c_str()), -1);
}
