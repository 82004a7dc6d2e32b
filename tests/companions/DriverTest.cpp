// The BMC as the kernel's driver tells of it in sysfs, from directories of the tests' own.

#include "companions/bmc/Driver.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace VQ;

namespace
{
// What the reading processes have in common with the test.
struct Shared
{
    std::atomic<bool> stuck{false}; // reading takes until `over`, as that of a dead BMC does
    std::atomic<bool> over{false};
    std::atomic<int> readers{0};    // that have begun to read
    std::atomic<int> finished{0};   // stuck ones that went on
    std::atomic<int> openFiles{-1}; // of the last that read
    std::atomic<int> unblocked{-1}; // signals that would reach it
};

Shared& shared()
{
    static Shared* const page =
        new (mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Shared;
    return *page;
}

int countOpenFiles()
{
    int count = 0;
    for (int file = 0; file < 256; ++file)
        count += fcntl(file, F_GETFD) >= 0 ? 1 : 0;
    return count;
}

int countUnblocked()
{
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    int count = 0;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGUSR1})
        count += sigismember(&blocked, signal) ? 0 : 1;
    return count;
}
}

ssize_t realRead(int file, void* buffer, size_t count) __asm__("__real_read");
ssize_t watchedRead(int file, void* buffer, size_t count) __asm__("__wrap_read");

// Of the program's own objects: those of the reading process, too.
ssize_t watchedRead(int file, void* buffer, size_t count)
{
    struct stat status = {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        shared().openFiles = countOpenFiles();
        shared().unblocked = countUnblocked();
        ++shared().readers;
        if (shared().stuck) {
            for (int turn = 0; !shared().over && turn < 10000; ++turn)
                usleep(1000);
            ++shared().finished;
        }
    }
    return realRead(file, buffer, count);
}

namespace
{
class DriverFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/vq-driver-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        root = name;
        shared().stuck = false;
        shared().over = false;
        shared().readers = 0;
        shared().finished = 0;
    }
    void TearDown() override { std::filesystem::remove_all(root); }

    void make(const std::string& bmc, const std::string& revision, const std::string& manufacturer = "0x000002\n",
              const std::string& product = "0x0043\n") const
    {
        const std::string directory = root + "/sys/devices/platform/" + bmc;
        std::filesystem::create_directories(directory);
        std::ofstream(directory + "/firmware_revision") << revision;
        std::ofstream(directory + "/manufacturer_id") << manufacturer;
        std::ofstream(directory + "/product_id") << product;
    }
    std::string fileOf(const std::string& name) const { return root + "/sys/devices/platform/ipmi_bmc.0/" + name; }

    // "1.17 2 67", "none", or "no directory".
    std::string told(long milliseconds = 5000) const
    {
        const int directory = openDriverDirectory(root.c_str());
        if (directory < 0)
            return "no directory";
        qoripmi_identity identity = {};
        const bool done = readDriver(directory, Deadline(milliseconds), identity);
        close(directory);
        return !done ? "none"
                     : std::to_string(identity.firmware_major) + "." + std::to_string(identity.firmware_minor) + " " +
                           std::to_string(identity.manufacturer_id) + " " + std::to_string(identity.product_id);
    }

    std::string root;
};

// No process of this one's is left to be waited for.
bool hasNoChild()
{
    return waitpid(-1, nullptr, WNOHANG | __WALL) == -1 && errno == ECHILD;
}
}

TEST_F(DriverFiles, AreRead)
{
    make("ipmi_bmc.0", "1.17\n");
    EXPECT_EQ(told(), "1.17 2 67");
    EXPECT_TRUE(hasNoChild());
}

TEST_F(DriverFiles, OfTheFirstBmcAreRead)
{
    make("ipmi_bmc.10", "10.1\n");
    make("ipmi_bmc.2", "2.1\n");
    make("ipmi_si.0", "9.1\n");
    make("ipmi_bmd.0", "9.1\n");
    EXPECT_EQ(told(), "2.1 2 67");
    make("ipmi_bmc.1", "1.1\n");
    EXPECT_EQ(told(), "1.1 2 67");
}

TEST_F(DriverFiles, NoBmcIsNoDirectory)
{
    EXPECT_EQ(told(), "no directory");
    std::filesystem::create_directories(root + "/sys/devices/platform");
    EXPECT_EQ(told(), "no directory");
    std::ofstream(root + "/sys/devices/platform/ipmi_bmc.0") << "a file\n";
    EXPECT_EQ(told(), "no directory");
    EXPECT_EQ(openDriverDirectory(std::string(5000, '/').c_str()), -1);
}

TEST_F(DriverFiles, ThatAreMissingEmptyHugeOrBinaryAreNone)
{
    for (const char* name : {"firmware_revision", "manufacturer_id", "product_id"}) {
        make("ipmi_bmc.0", "1.17\n");
        ASSERT_EQ(told(), "1.17 2 67");
        std::ofstream(fileOf(name)) << "";
        EXPECT_EQ(told(), "none") << name << " empty";
        std::ofstream(fileOf(name)) << std::string(1 << 20, '1');
        EXPECT_EQ(told(), "none") << name << " huge";
        std::ofstream(fileOf(name)) << std::string("\x7f"
                                                   "ELF\0\x01\xff\n",
                                                   8);
        EXPECT_EQ(told(), "none") << name << " binary";
        std::filesystem::remove(fileOf(name));
        EXPECT_EQ(told(), "none") << name << " missing";
        std::filesystem::create_directory(fileOf(name));
        EXPECT_EQ(told(), "none") << name << " a directory";
        std::filesystem::remove(fileOf(name));
        ASSERT_EQ(mkfifo(fileOf(name).c_str(), 0600), 0);
        EXPECT_EQ(told(), "none") << name << " a pipe";
        std::filesystem::remove_all(root + "/sys");
    }
}

TEST_F(DriverFiles, AreReadByAProcessThatKeepsNothingOfTheProgram)
{
    make("ipmi_bmc.0", "1.17\n");
    const int kept = open("/dev/null", O_RDONLY); // without close-on-exec
    const int before = countOpenFiles();
    EXPECT_EQ(told(), "1.17 2 67");
    EXPECT_EQ(shared().openFiles, 4); // the directory, the same once more for its lock, the pipe, and the file itself
    EXPECT_EQ(shared().unblocked, 0);
    EXPECT_EQ(countOpenFiles(), before);
    EXPECT_EQ(countUnblocked(), 5);
    close(kept);
}

// As the kernel keeps who reads the files of a dead BMC: for minutes, and no signal helps.
TEST_F(DriverFiles, OfADeadBmcCostNoMoreThanTheTime)
{
    make("ipmi_bmc.0", "1.17\n");
    shared().stuck = true;
    for (int i = 0; i < 3; ++i) {
        const Deadline limit(1500);
        EXPECT_EQ(told(200), "none");
        EXPECT_GT(limit.left(), 0);
    }
    EXPECT_TRUE(hasNoChild());
    EXPECT_EQ(shared().readers, 1) << "one reader waits; others give up without one more";

    // It comes back.
    shared().stuck = false;
    shared().over = true;
    EXPECT_EQ(told(), "1.17 2 67");
    EXPECT_EQ(shared().finished, 1);
}

TEST_F(DriverFiles, AreReadBySeveralThreadsAtOnce)
{
    make("ipmi_bmc.0", "1.17\n");
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 10; ++turn)
                right += told() == "1.17 2 67" ? 1 : 0;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, 40);
    EXPECT_TRUE(hasNoChild());
}

// A program that waits for any child of its own does not see those of the library, nor their ends.
TEST_F(DriverFiles, AreReadUnnoticed)
{
    static std::atomic<int> ended{0};
    ended = 0;
    struct sigaction count = {};
    struct sigaction before = {};
    count.sa_handler = [](int) { ++ended; };
    ASSERT_EQ(sigaction(SIGCHLD, &count, &before), 0);
    make("ipmi_bmc.0", "1.17\n");
    EXPECT_EQ(told(), "1.17 2 67");
    EXPECT_EQ(ended, 0);
    sigaction(SIGCHLD, &before, nullptr);
}
