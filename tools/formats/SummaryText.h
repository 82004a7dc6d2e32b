#pragma once

#include "tools/core/Summary.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

// The facts of a summary in words, shared by the formats. Nothing in them is made safe for a terminal yet.

/// A line of a summary: what it is about, and what there is to say, each of which stands on a line of its own.
struct SummaryRow
{
    std::string label;
    std::vector<std::string> texts;
};

/// In the order of reading; what is not known is left out.
std::vector<SummaryRow> summaryRows(const Summary& summary);

/// "Norvik Server 410 (8837ABC)"; empty where nothing of it is known.
std::string productText(const Summary& summary);

std::string sizeText(std::uint64_t bytes);                ///< "15.6 GiB"
std::string cacheSizeText(std::uint64_t kilobytes);       ///< "16 KB", "2 MB"
std::string cacheText(const CacheSummary& cache);         ///< "256 x L1 16 KB"
std::string firmwareText(const FirmwareSummary& element); ///< "1.23 of 2018-11-30, Maker"

/// "5 USB, 4 network" of the connectors outside, or of those inside.
std::string connectorCounts(const Summary& summary, bool outside);
std::string slotCounts(const Summary& summary); ///< "5 PCI Express x16, 2 PCI"

}
