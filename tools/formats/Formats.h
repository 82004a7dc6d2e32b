#pragma once

#include "tools/core/Compare.h"
#include "tools/core/Machine.h"
#include "tools/formats/Setting.h"
#include "tools/knowledge/Schema.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

using MachinesWriter = std::string (*)(const std::vector<Machine>& machines, const Setting& setting);

/// A form of output: a function for each thing that it can write, whole lines; null for what it does not offer.
struct Format
{
    const char* name; ///< for --format
    MachinesWriter machines;
    MachinesWriter summary;
    MachinesWriter names; ///< the object paths only
    std::string (*comparison)(const Comparison& comparison, const Setting& setting);
    std::string (*results)(const std::vector<MethodAnswer>& answers); ///< of one method
    bool showsNotes; ///< a person who reads the machines in this form finds their notes there
};

/// All of them, the one that is used unless told first.
List<Format> formats();

/// Null when there is none of that name.
const Format* findFormat(const std::string& name);

// For people: one section for each class, key properties first and marked, units and the meaning of codes written out,
// nothing in it that a terminal would obey. A summary is a screen for one machine, a line each for several.
std::string machinesAsText(const std::vector<Machine>& machines, const Setting& setting);
std::string summaryAsText(const std::vector<Machine>& machines, const Setting& setting);
std::string namesAsText(const std::vector<Machine>& machines, const Setting& setting); ///< a path on each line
std::string comparisonAsText(const Comparison& comparison, const Setting& setting);
std::string resultsAsText(const std::vector<MethodAnswer>& answers); ///< a line for each that has a value

// Saved answers (core/Saved.h), and objects with what the others say.
std::string machinesAsJson(const std::vector<Machine>& machines, const Setting& setting);
std::string summaryAsJson(const std::vector<Machine>& machines, const Setting& setting);
std::string comparisonAsJson(const Comparison& comparison, const Setting& setting);
std::string resultsAsJson(const std::vector<MethodAnswer>& answers);

/// Instance declarations in the language of DMTF DSP0004.
std::string machinesAsMof(const std::vector<Machine>& machines, const Setting& setting);

// For spreadsheets: a line for each instance of one machine, for each of several machines, or for each change.
std::string machinesAsCsv(const std::vector<Machine>& machines, const Setting& setting);
std::string summaryAsCsv(const std::vector<Machine>& machines, const Setting& setting);
std::string comparisonAsCsv(const Comparison& comparison, const Setting& setting);

// Metrics for Prometheus, as the node exporter's textfile collector takes them: gauges, each series once whatever the
// machines answered. A summary has no part of a machine for itself.
std::string machinesAsPrometheus(const std::vector<Machine>& machines, const Setting& setting);
std::string summaryAsPrometheus(const std::vector<Machine>& machines, const Setting& setting);

// A page in one file, which needs no network, and no script: that of several machines lets a reader filter and sort.
// The summary as pictures, then every class as a table. What changed is a page of its own.
std::string machinesAsHtml(const std::vector<Machine>& machines, const Setting& setting);
std::string summaryAsHtml(const std::vector<Machine>& machines, const Setting& setting);
std::string comparisonAsHtml(const Comparison& comparison, const Setting& setting);

}
