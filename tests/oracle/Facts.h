#pragma once

#include <map>
#include <string>
#include <vector>

// One machine's inventory as named texts, once from the module and once from what dmidecode prints. Both sides use the
// same names ("CacheMemory[2].Level") and write a value in the same form; the rule for a field stands beside it in
// DmidecodeFacts.cpp.

using Facts = std::map<std::string, std::string>;

/// The facts that the module publishes for a dump, and those that only its records hold (asset tags, products, error
/// correction types).
Facts moduleFacts(const std::string& dumpFile);

/// The same facts from dmidecode's text.
Facts dmidecodeFacts(const std::string& dumpFile);

/// dmidecode's text for a code of these fields; "<OUT OF SPEC>" for a code that has none, "0" for a code of 0 that has
/// none, which is also what a field stands for that an old structure does not have.
std::string connectorTypeText(unsigned code);
std::string portTypeText(unsigned code);
std::string cacheLocationText(unsigned code);
std::string cacheErrorCorrectionText(unsigned code);
std::string cacheTypeText(unsigned code);
std::string cacheAssociativityText(unsigned code);

/// A list as one text: `"a" "b"`.
std::string listText(const std::vector<std::string>& texts);
