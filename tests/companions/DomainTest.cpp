// Which domain of Xen a system is, from trees of files as the kernels of all kinds of machines show them.

#include "companions/xen/Domain.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/stat.h>

using namespace VQ;

namespace
{
const std::string Type = "/sys/hypervisor/type";
const std::string Features = "/sys/hypervisor/properties/features";
const std::string Initial = "/sys/hypervisor/start_flags/initdomain";
const std::string Privileged = "/sys/hypervisor/start_flags/privileged";
const std::string Capabilities = "/proc/xen/capabilities";

using Tree = std::map<std::string, std::string>;

class Domains : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/vq-domain-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        root = name;
    }
    void TearDown() override { std::filesystem::remove_all(root); }

    std::string find() const
    {
        switch (findDomain(root.c_str())) {
        case Domain::Guest:
            return "guest";
        case Domain::Control:
            return "control";
        default:
            return "none";
        }
    }

    void place(const std::string& file, const std::string& text) const
    {
        std::filesystem::create_directories(std::filesystem::path(root + file).parent_path());
        std::ofstream(root + file, std::ios::binary) << text;
    }

    std::string of(const Tree& tree) const
    {
        std::filesystem::remove_all(root + "/sys");
        std::filesystem::remove_all(root + "/proc");
        for (const auto& [file, text] : tree)
            place(file, text);
        return find();
    }

    std::string root;
};

Line line(const std::string& text)
{
    return Line(text.data(), static_cast<int>(text.size()));
}

Says capable(const std::string& text)
{
    return capabilitiesOfControl(text.data(), static_cast<int>(text.size()));
}
}

TEST_F(Domains, ControlDomains)
{
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "000228f0\n"}, {Capabilities, "control_d\n"}}),
              "control");                                                  // PV, Linux 6.1
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "000228f0\n"}}), "control"); // no xenfs
    EXPECT_EQ(of({{Type, "xen\n"},
                  {Features, "00000c01\n"},
                  {Initial, "1\n"},
                  {Privileged, "1\n"},
                  {Capabilities, "control_d\n"}}),
              "control"); // PVH
    EXPECT_EQ(of({{Type, "xen\n"}, {Initial, "1\n"}, {Privileged, "1\n"}}), "control");
    EXPECT_EQ(of({{Type, "xen\n"}, {Initial, "0\n"}, {Privileged, "1\n"}, {Features, "00000000\n"}}), "control");
    EXPECT_EQ(of({{Type, "xen\n"}, {Capabilities, "control_d\n"}}), "control");
    EXPECT_EQ(of({{Capabilities, "control_d\n"}}), "control"); // an old kernel, without a type in sysfs
}

TEST_F(Domains, Guests)
{
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "000222f0\n"}, {Capabilities, ""}}), "guest");                    // PV
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "00001704\n"}}), "guest");                                        // HVM
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "00002705\n"}, {Initial, "0\n"}, {Privileged, "0\n"}}), "guest"); // PVH
    EXPECT_EQ(of({{Type, "xen\n"}, {Capabilities, ""}}), "guest");
    EXPECT_EQ(of({{Type, "xen\n"}, {Initial, "0\n"}}), "guest");
    EXPECT_EQ(of({{Capabilities, ""}}), "guest"); // an old kernel; xenfs can be mounted under Xen only
}

TEST_F(Domains, NotXen)
{
    EXPECT_EQ(of({}), "none");
    EXPECT_EQ(of({{Type, "kvm\n"}, {Features, "00000800\n"}, {Capabilities, "control_d\n"}}), "none");
    for (const char* type : {"z/VM\n", "xen2\n", "axen\n", "Xen\n", "XEN\n"})
        EXPECT_EQ(of({{Type, type}, {Features, "00000000\n"}}), "none") << type;
    std::filesystem::create_directories(root + "/proc/xen"); // xenfs is not mounted there
    EXPECT_EQ(find(), "none");
}

// Such a container sees the sysfs of the machine, or nothing of it.
TEST_F(Domains, Containers)
{
    EXPECT_EQ(of({{Type, "xen\n"}, {Features, "00002705\n"}}), "guest");
    std::filesystem::create_directories(root + "/sys/hypervisor");
    EXPECT_EQ(of({{Features, "00002705\n"}}), "none");
    EXPECT_EQ(of({{Type, "xen\n"}}), "none") << "what kind of domain can't be told";
}

TEST_F(Domains, DamagedFilesSayNothing)
{
    const std::string damaged[] = {
        "",     "\n",      std::string(300, 'f'),   std::string(1 << 20, 'x'), std::string("\0\xff\x01", 3), "xen\n\n",
        " xen", "xen\r\n", std::string("xen\0", 4), "not a number\n"};
    for (const std::string& text : damaged) {
        EXPECT_EQ(of({{Type, text}, {Features, "00002705\n"}}), "none") << text.substr(0, 20);
        EXPECT_EQ(of({{Type, "xen\n"}, {Features, text}}), "none") << text.substr(0, 20);
        EXPECT_EQ(of({{Type, "xen\n"}, {Features, text}, {Initial, text}, {Privileged, text}}), "none");
        EXPECT_EQ(of({{Type, "xen\n"}, {Features, text}, {Initial, "1\n"}}), "control");
        EXPECT_EQ(of({{Type, "xen\n"}, {Initial, text}, {Features, "00002705\n"}}), "guest");
    }
    EXPECT_EQ(of({{Type, "xen\n"}, {Capabilities, std::string("control_d\0", 10)}}), "none");
    EXPECT_EQ(of({{Type, "xen\n"}, {Capabilities, std::string(1 << 20, 'c')}}), "none");
}

TEST_F(Domains, OtherKindsOfFilesSayNothing)
{
    for (const std::string& file : {Type, Features, Initial, Privileged, Capabilities})
        std::filesystem::create_directories(root + file);
    EXPECT_EQ(find(), "none");
    std::filesystem::remove(root + Type);
    place(Type, "xen\n");
    EXPECT_EQ(find(), "none");
    for (const std::string& file : {Features, Initial, Privileged, Capabilities}) {
        std::filesystem::remove(root + file);
        ASSERT_EQ(mkfifo((root + file).c_str(), 0600), 0);
    }
    EXPECT_EQ(find(), "none");
    std::filesystem::remove(root + Features);
    std::filesystem::create_symlink("features", root + Features); // leads to itself
    EXPECT_EQ(find(), "none");
    EXPECT_EQ(findDomain(std::string(5000, '/').c_str()), Domain::None);
}

TEST(Features, EveryBitOfTheLastWord)
{
    for (unsigned bit = 0; bit < 32; ++bit) {
        char text[32];
        std::snprintf(text, sizeof text, "%08x\n", 1u << bit);
        EXPECT_EQ(featuresOfControl(line(text)), bit == 11 ? Says::Yes : Says::No) << text;
        std::snprintf(text, sizeof text, "ffffffff%08x\n", 1u << bit);
        EXPECT_EQ(featuresOfControl(line(text)), bit == 11 ? Says::Yes : Says::No) << text;
        std::snprintf(text, sizeof text, "%08X", ~(1u << bit));
        EXPECT_EQ(featuresOfControl(line(text)), bit == 11 ? Says::No : Says::Yes) << text;
    }
}

TEST(Features, WordsThatAreNotWholeSayNothing)
{
    for (const char* text : {"", "0", "800", "0000800", "000000800", "0x00000800", "0000080g", "00000800 ", " 00000800",
                             "00000800\n00000000", "-0000800"})
        EXPECT_EQ(featuresOfControl(line(text)), Says::Nothing) << text;
}

TEST(Flags, AreOneDigit)
{
    EXPECT_EQ(flagOfControl(line("1\n")), Says::Yes);
    EXPECT_EQ(flagOfControl(line("0")), Says::No);
    for (const char* text : {"", "2", "9", "10", "01", "yes", "1 ", " 1", "-1", "0x1"})
        EXPECT_EQ(flagOfControl(line(text)), Says::Nothing) << text;
}

TEST(Capabilities, AreLines)
{
    EXPECT_EQ(capable("control_d\n"), Says::Yes);
    EXPECT_EQ(capable("control_d"), Says::Yes);
    EXPECT_EQ(capable("other\ncontrol_d\nmore\n"), Says::Yes);
    for (const char* text :
         {"", "\n", "other\n", "control_domain\n", "xcontrol_d\n", "control_\nd", "control_d other\n", "control"})
        EXPECT_EQ(capable(text), Says::No) << text;
    EXPECT_EQ(capable(std::string("control_d\n\0", 11)), Says::Nothing);
    EXPECT_EQ(capable("control_d\n\xff"), Says::Nothing);
    EXPECT_EQ(capabilitiesOfControl("control_d", -1), Says::Nothing);
}
