// The two libraries as they are installed, loaded as the module loads them, on whatever machine this is.

#include "companions/bmc/qoripmi.h"
#include "companions/xen/qorxenprobe.h"

#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace
{
class Library
{
public:
    explicit Library(const char* name) : _handle(dlopen((VQ_COMPANION_DIR "/" + std::string(name)).c_str(), RTLD_LAZY))
    {
    }
    ~Library()
    {
        if (_handle)
            dlclose(_handle);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <class Function> Function* get(const char* name) const
    {
        return reinterpret_cast<Function*>(dlsym(_handle, name));
    }

private:
    void* _handle;
};

long countOpenFiles()
{
    const std::unique_ptr<DIR, int (*)(DIR*)> files(opendir("/proc/self/fd"), closedir);
    long count = 0;
    while (readdir(files.get()))
        ++count;
    return count;
}
}

TEST(IpmiLibrary, GivesBackWhatItTakes)
{
    const long before = countOpenFiles();
    for (int i = 0; i < 20; ++i) {
        const Library library("libqoripmi.so");
        const qoripmi_session session = library.get<decltype(ipmiOpenLocal)>("ipmiOpenLocal")();
        library.get<decltype(ipmiClose)>("ipmiClose")(session);
    }
    EXPECT_EQ(countOpenFiles(), before);
    EXPECT_EQ(dlopen(VQ_COMPANION_DIR "/libqoripmi.so", RTLD_LAZY | RTLD_NOLOAD), nullptr) << "it stayed loaded";
}

TEST(IpmiLibrary, WithoutASessionOrAPlaceToWriteToFails)
{
    const Library library("libqoripmi.so");
    unsigned char identity[32];
    std::memset(identity, 0xA5, sizeof identity);
    auto* get = library.get<decltype(ipmiBmcGet)>("ipmiBmcGet");
    EXPECT_EQ(get(0, identity), 1);
    EXPECT_EQ(get(1000000, identity), 1); // no file of this process
    EXPECT_EQ(get(1, nullptr), 1);
    for (const unsigned char byte : identity)
        EXPECT_EQ(byte, 0xA5);
    library.get<decltype(ipmiClose)>("ipmiClose")(0);
}

// A session over anything but the device, such as this pipe's end, is refused by the kernel.
TEST(IpmiLibrary, SessionThatIsNoDeviceFails)
{
    const Library library("libqoripmi.so");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    unsigned char identity[32] = {};
    EXPECT_EQ(library.get<decltype(ipmiBmcGet)>("ipmiBmcGet")(static_cast<qoripmi_session>(ends[0]) + 1, identity), 1);
    library.get<decltype(ipmiClose)>("ipmiClose")(static_cast<qoripmi_session>(ends[0]) + 1);
    EXPECT_EQ(close(ends[0]), -1) << "closing the session closes the file";
    close(ends[1]);
}

TEST(XenLibrary, AtMostOneOfTheTwoInEveryThread)
{
    const Library library("libqorxenprobe.so");
    auto* guest = library.get<decltype(running_in_xen_domU)>("running_in_xen_domU");
    auto* control = library.get<decltype(running_in_xen_dom0)>("running_in_xen_dom0");
    const int isGuest = guest();
    const int isControl = control();
    EXPECT_LE(isGuest + isControl, 1);
    const long before = countOpenFiles();
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 100; ++turn)
                if (guest() != isGuest || control() != isControl)
                    ADD_FAILURE();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(countOpenFiles(), before);
}
