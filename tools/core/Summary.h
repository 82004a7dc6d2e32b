#pragma once

#include "tools/core/Machine.h"
#include "tools/knowledge/Connectors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VQ::Tool
{

// What people want to know of a machine first: no constants, no texts that firmware makers left as they were, nothing
// that is always 0. A text is empty where it is not known.

struct FirmwareSummary
{
    std::string name; ///< "BIOS", or what the firmware calls the element
    std::string maker;
    std::string version;
    std::string date; ///< "2018-11-30"
};

struct BoardSummary
{
    std::string maker;
    std::string serial;
    std::string location; ///< in the chassis
    std::size_t options;  ///< configuration options; all boards have the same
};

/// Caches that are alike.
struct CacheSummary
{
    std::size_t count;
    unsigned level;     ///< 1 to 3; 0 beyond
    std::string type;   ///< "instruction", "data"; empty for a unified one, or where it is not known
    std::uint64_t size; ///< installed, in KB
};

/// Slots of one kind.
struct SlotSummary
{
    std::string kind;
    std::vector<std::string> names;
};

struct ConnectorSummary
{
    ConnectorKind kind;
    std::string name;
    bool outside; ///< on a panel of the machine, not only on its board
};

struct Summary
{
    std::string name;
    Source source;
    std::string time;

    std::string maker, product, model, serial;
    std::string chassis; ///< what the chassis' version tells
    std::string virtualization;
    std::vector<FirmwareSummary> firmware; ///< the system's own first
    std::string smbiosVersion;
    std::string language; ///< of the firmware's menus
    std::vector<BoardSummary> boards;
    std::vector<CacheSummary> caches; ///< by level, the first first
    std::vector<SlotSummary> slots;
    std::vector<ConnectorSummary> connectors;

    std::string operatingSystem;             ///< "Linux 6.1.0"
    std::string bootTime;                    ///< readable
    std::optional<std::int64_t> uptime;      ///< seconds
    std::optional<std::uint64_t> memory;     ///< bytes
    std::optional<std::uint64_t> freeMemory; ///< bytes
    std::optional<std::uint64_t> swap;       ///< bytes

    std::vector<std::string> missing; ///< what a person would look for and is not there: "slots"
    std::vector<std::string> notes;
    std::vector<std::string> failures; ///< a line each
};

Summary summarize(const Machine& machine);

}
