// What the node exporter's textfile collector is given.

#include "tests/tools/ToolRun.h"
#include "tools/formats/Formats.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>

using namespace VQ::Tool;

namespace
{
const std::string Server = VQ_SOURCE_DIR "/samples/server.bin";
const std::map<std::string, std::string> AtAFixedTime = {{"SOURCE_DATE_EPOCH", "1700000000"}};

Value textValue(const std::string& text)
{
    return {false, false, {text}};
}

Instance slot(const std::string& name)
{
    Instance instance;
    instance.className = "QORTAL_Slot";
    instance.properties = {{{"Name", textValue(name)}, false}};
    return instance;
}

Machine machineWith(const std::string& name, std::vector<Answer> answers)
{
    Machine machine;
    machine.name = name;
    machine.answers = std::move(answers);
    return machine;
}

Machine withSlots(const std::string& name, const std::vector<std::string>& slots)
{
    Answer answer{"QORTAL_Slot", {}, {}, false};
    for (const std::string& designation : slots)
        answer.instances.push_back(slot(designation));
    return machineWith(name, {answer});
}

std::string metricsOf(const std::vector<Machine>& machines)
{
    return machinesAsPrometheus(machines, {});
}

// The lines that begin with this text.
std::string linesOf(const std::string& metrics, const std::string& start)
{
    std::istringstream in(metrics);
    std::string found;
    for (std::string line; std::getline(in, line);)
        if (line.rfind(start, 0) == 0)
            found += line + "\n";
    return found;
}

// Each series once, those of a family together, and each family told of before its first series.
void expectOrder(const std::string& metrics)
{
    std::istringstream in(metrics);
    std::set<std::string> seen, families;
    std::string family;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("# HELP ", 0) == 0) {
            family = line.substr(7, line.find(' ', 7) - 7);
            EXPECT_TRUE(families.insert(family).second) << family;
        } else if (line.rfind("# TYPE ", 0) == 0) {
            EXPECT_EQ(line, "# TYPE " + family + " gauge");
        } else {
            EXPECT_EQ(line.rfind(family + "{", 0), 0u) << line;
            EXPECT_TRUE(seen.insert(line.substr(0, line.rfind(' '))).second) << line;
        }
    }
    EXPECT_FALSE(seen.empty()) << metrics;
}
}

TEST(Prometheus, AMachineHasItsFactsAndItsParts)
{
    const ToolRun run = runTool({"--format", "prometheus", "--from-dump", Server}, AtAFixedTime);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    expectOrder(run.output);
    EXPECT_EQ(
        run.output.substr(0, run.output.find("# HELP systemprovider_operating")),
        R"(# HELP systemprovider_inventory_success Whether every class that was asked for was answered (1) or one failed (0).
# TYPE systemprovider_inventory_success gauge
systemprovider_inventory_success{machine="server"} 1
# HELP systemprovider_inventory_timestamp_seconds When the machine was asked, in seconds since 1970.
# TYPE systemprovider_inventory_timestamp_seconds gauge
systemprovider_inventory_timestamp_seconds{machine="server"} 1700000000
# HELP systemprovider_module_info The provider module that answered.
# TYPE systemprovider_module_info gauge
systemprovider_module_info{machine="server",version=")" VQ_VERSION R"("} 1
# HELP systemprovider_machine_info The machine: who made it, what it is, and its serial number.
# TYPE systemprovider_machine_info gauge
systemprovider_machine_info{machine="server",maker="Norvik",product="Norvik Server 410",model="8837ABC",serial_number="KQ0A417",chassis="Rack 2U",virtualization="",smbios_version="2.6"} 1
# HELP systemprovider_firmware_info Firmware of the machine; the system's own has the name BIOS.
# TYPE systemprovider_firmware_info gauge
systemprovider_firmware_info{machine="server",name="BIOS",maker="Norvik",version="NVE128A 1.27",release_date="2011-03-07",number="1"} 1
systemprovider_firmware_info{machine="server",name="Norvik Update Agent",maker="QOR",version="NVYT04A 1.12",release_date="",number="1"} 1
systemprovider_firmware_info{machine="server",name="Norvik Diagnostics",maker="QOR",version="NVETB1 2.05",release_date="",number="1"} 1
# HELP systemprovider_bios_release_timestamp_seconds The day on which the BIOS was released, in seconds since 1970.
# TYPE systemprovider_bios_release_timestamp_seconds gauge
systemprovider_bios_release_timestamp_seconds{machine="server"} 1299456000
# HELP systemprovider_class_success Whether the class was answered (1) or failed (0).
# TYPE systemprovider_class_success gauge
systemprovider_class_success{machine="server",class="QORTAL_ComputerSystem"} 1
systemprovider_class_success{machine="server",class="QORTAL_BIOS"} 1
systemprovider_class_success{machine="server",class="QORTAL_Chassis"} 1
systemprovider_class_success{machine="server",class="QORTAL_BaseBoard"} 1
systemprovider_class_success{machine="server",class="QORTAL_CacheMemory"} 1
systemprovider_class_success{machine="server",class="QORTAL_Slot"} 1
systemprovider_class_success{machine="server",class="QORTAL_Port"} 1
# HELP systemprovider_class_instances How many instances the class has.
# TYPE systemprovider_class_instances gauge
systemprovider_class_instances{machine="server",class="QORTAL_ComputerSystem"} 1
systemprovider_class_instances{machine="server",class="QORTAL_BIOS"} 3
systemprovider_class_instances{machine="server",class="QORTAL_Chassis"} 1
systemprovider_class_instances{machine="server",class="QORTAL_BaseBoard"} 2
systemprovider_class_instances{machine="server",class="QORTAL_CacheMemory"} 4
systemprovider_class_instances{machine="server",class="QORTAL_Slot"} 5
systemprovider_class_instances{machine="server",class="QORTAL_Port"} 7
# HELP systemprovider_base_board_info A base board.
# TYPE systemprovider_base_board_info gauge
systemprovider_base_board_info{machine="server",maker="Norvik",serial_number="BD11000417",location="Tray 1, rear",number="1"} 1
systemprovider_base_board_info{machine="server",maker="Talvo",serial_number="BD11000991",location="T)"
        "\xC3\xBC"
        R"(r 2",number="1"} 1
# HELP systemprovider_cache_bytes The installed size of a processor cache; 0 where none is installed.
# TYPE systemprovider_cache_bytes gauge
systemprovider_cache_bytes{machine="server",level="L1",type="data",number="1"} 196608
systemprovider_cache_bytes{machine="server",level="L2",type="",number="1"} 1572864
systemprovider_cache_bytes{machine="server",level="L3",type="",number="1"} 12582912
systemprovider_cache_bytes{machine="server",level="beyond L3",type="instruction",number="1"} 0
# HELP systemprovider_slot_info A slot by its designation and kind.
# TYPE systemprovider_slot_info gauge
systemprovider_slot_info{machine="server",name="PCI Express x16",kind="PCI Express x16",number="1"} 1
systemprovider_slot_info{machine="server",name="PCI Express x8",kind="PCI Express x8",number="1"} 1
systemprovider_slot_info{machine="server",name="PCI Express x8",kind="PCI Express x8",number="2"} 1
systemprovider_slot_info{machine="server",name="PCI-X 133",kind="PCI-X",number="1"} 1
systemprovider_slot_info{machine="server",name="Emplacement n)"
        "\xC2\xB0"
        R"( 5",kind="other",number="1"} 1
# HELP systemprovider_connector_info A connector by its designation and kind, outside on a panel or inside on a board.
# TYPE systemprovider_connector_info gauge
systemprovider_connector_info{machine="server",name="Serial A",kind="serial",place="outside",number="1"} 1
systemprovider_connector_info{machine="server",name="Video",kind="video",place="outside",number="1"} 1
systemprovider_connector_info{machine="server",name="USB 1",kind="USB",place="outside",number="1"} 1
systemprovider_connector_info{machine="server",name="USB 2",kind="USB",place="outside",number="1"} 1
systemprovider_connector_info{machine="server",name="Ethernet",kind="network",place="outside",number="1"} 1
systemprovider_connector_info{machine="server",name="SAS 0",kind="SATA/SAS",place="inside",number="1"} 1
systemprovider_connector_info{machine="server",name="",kind="other",place="outside",number="1"} 1
)");
}

TEST(Prometheus, ASummaryHasTheMachineWithoutItsParts)
{
    const std::string all = runTool({"--format", "prometheus", "--from-dump", Server}, AtAFixedTime).output;
    const std::string summary =
        runTool({"summary", "--format", "prometheus", "--from-dump", Server}, AtAFixedTime).output;
    EXPECT_NE(summary.find("systemprovider_machine_info{"), std::string::npos) << summary;
    EXPECT_EQ(summary, all.substr(0, all.find("# HELP systemprovider_base_board_info")));
}

TEST(Prometheus, ThisMachineTellsItsSystemAndMemoryInBytes)
{
    const std::string metrics = runTool({"os", "memory", "--format", "prometheus"}).output;
    expectOrder(metrics);
    const std::string memory = linesOf(metrics, "systemprovider_memory_bytes{");
    EXPECT_GT(std::strtod(memory.c_str() + memory.rfind(' '), nullptr), 1 << 20) << metrics;
    const std::string booted = linesOf(metrics, "systemprovider_boot_timestamp_seconds{");
    EXPECT_GT(std::strtod(booted.c_str() + booted.rfind(' '), nullptr), 1.6e9) << metrics;
    EXPECT_NE(linesOf(metrics, "systemprovider_operating_system_info{").find(",name=\"Linux "), std::string::npos)
        << metrics;
    EXPECT_NE(linesOf(metrics, "systemprovider_swap_bytes{"), "") << metrics;
}

TEST(Prometheus, ALabelIsEscapedAndShowsWhatATerminalWouldObeyByItsNumber)
{
    const std::string metrics =
        metricsOf({withSlots("m", {"a \"b\" \\c\nd", "e\x1B[2J \xFF \xE2\x80\xAE", "\xC3\xA9"})});
    expectOrder(metrics);
    EXPECT_EQ(linesOf(metrics, "systemprovider_slot_info"),
              "systemprovider_slot_info{machine=\"m\",name=\"a \\\"b\\\" \\\\c\\nd\",kind=\"other\",number=\"1\"} 1\n"
              "systemprovider_slot_info{machine=\"m\",name=\"e\\\\x1B[2J \\\\xFF "
              "\\\\u202E\",kind=\"other\",number=\"1\"} 1\n"
              "systemprovider_slot_info{machine=\"m\",name=\"\xC3\xA9\",kind=\"other\",number=\"1\"} 1\n");
}

TEST(Prometheus, PartsOfOneNameAreNumbered)
{
    const std::string metrics = metricsOf({withSlots("m", {"PCI 1", "PCI 2", " PCI 1 ", "PCI 1"})});
    expectOrder(metrics);
    EXPECT_EQ(linesOf(metrics, "systemprovider_slot_info"),
              "systemprovider_slot_info{machine=\"m\",name=\"PCI 1\",kind=\"PCI\",number=\"1\"} 1\n"
              "systemprovider_slot_info{machine=\"m\",name=\"PCI 2\",kind=\"PCI\",number=\"1\"} 1\n"
              "systemprovider_slot_info{machine=\"m\",name=\"PCI 1\",kind=\"PCI\",number=\"2\"} 1\n"
              "systemprovider_slot_info{machine=\"m\",name=\"PCI 1\",kind=\"PCI\",number=\"3\"} 1\n");
}

TEST(Prometheus, MachinesOfOneNameAreToldApartWhateverTheNamesAre)
{
    const std::string metrics = metricsOf({withSlots("web", {}), withSlots("web", {}), withSlots("web #2", {}),
                                           withSlots("\xFF", {}), withSlots("\\xFF", {})});
    expectOrder(metrics);
    EXPECT_EQ(linesOf(metrics, "systemprovider_inventory_success"),
              "systemprovider_inventory_success{machine=\"web\"} 1\n"
              "systemprovider_inventory_success{machine=\"web #2\"} 1\n"
              "systemprovider_inventory_success{machine=\"web #2 #2\"} 1\n"
              "systemprovider_inventory_success{machine=\"\\\\xFF\"} 1\n"
              "systemprovider_inventory_success{machine=\"\\\\xFF #2\"} 1\n");
}

TEST(Prometheus, AFailureIsToldWithItsClassesAndItsCode)
{
    const Failure denied{"CIM_ERR_ACCESS_DENIED", "no"};
    const std::string metrics = metricsOf({machineWith(
        "m",
        {{"QORTAL_Slot", {}, denied, false}, {"QORTAL_Port", {}, denied, false}, {"QORTAL_BIOS", {}, {}, false}})});
    expectOrder(metrics);
    EXPECT_EQ(linesOf(metrics, "systemprovider_"),
              "systemprovider_inventory_success{machine=\"m\"} 0\n"
              "systemprovider_failure_info{machine=\"m\",code=\"CIM_ERR_ACCESS_DENIED\"} 1\n"
              "systemprovider_class_success{machine=\"m\",class=\"QORTAL_Slot\"} 0\n"
              "systemprovider_class_success{machine=\"m\",class=\"QORTAL_Port\"} 0\n"
              "systemprovider_class_success{machine=\"m\",class=\"QORTAL_BIOS\"} 1\n"
              "systemprovider_class_instances{machine=\"m\",class=\"QORTAL_BIOS\"} 0\n");
}

TEST(Prometheus, AClassThatIsAnsweredTwiceIsOneSeries)
{
    Machine machine = withSlots("m", {"PCI 1"});
    machine.answers.push_back({"qortal_slot", {slot("PCI 2")}, {}, false});
    machine.answers.push_back({"QORTAL_Slot", {}, Failure{"CIM_ERR_FAILED", ""}, false});
    const std::string metrics = metricsOf({machine});
    expectOrder(metrics);
    EXPECT_EQ(linesOf(metrics, "systemprovider_class_"),
              "systemprovider_class_success{machine=\"m\",class=\"QORTAL_Slot\"} 0\n");
}

TEST(Prometheus, FamiliesOfSeveralMachinesStandTogether)
{
    const std::string desktop = VQ_SOURCE_DIR "/samples/desktop.bin";
    const std::vector<std::string> arguments = {"--format", "prometheus",  "--from-dump",
                                                Server,     "--from-dump", desktop};
    const std::string metrics = runTool(arguments, AtAFixedTime).output;
    expectOrder(metrics);
    EXPECT_NE(linesOf(metrics, "systemprovider_machine_info{machine=\"desktop\",maker=\"Talvo\""), "") << metrics;
    EXPECT_EQ(metrics, runTool(arguments, AtAFixedTime).output) << "the same input gives the same bytes";
}

TEST(Prometheus, AnImpossiblyLargeSizeStaysLarge)
{
    Instance cache;
    cache.properties = {{{"InstalledSize", {false, false, {std::uint64_t{18446744073709551615ull}}}}, false}};
    const std::string metrics = metricsOf({machineWith("m", {{"QORTAL_CacheMemory", {cache}, {}, false}})});
    EXPECT_EQ(linesOf(metrics, "systemprovider_cache_bytes"),
              "systemprovider_cache_bytes{machine=\"m\",level=\"beyond L3\",type=\"\",number=\"1\"} "
              "1.8889465931478581e+22\n");
}

TEST(Prometheus, PathsAndComparisonsAndResultsHaveNoSuchForm)
{
    const ToolRun names = runTool({"names", "--format", "prometheus"});
    EXPECT_EQ(names.exitCode, 2);
    EXPECT_EQ(names.errors, "vqinventory: --format prometheus is for instances; names prints text or json\n");
    EXPECT_EQ(runTool({"compare", "a", "b", "--format", "prometheus"}).exitCode, 2);
    EXPECT_EQ(runTool({"check", "--format", "prometheus"}).exitCode, 2);
}
