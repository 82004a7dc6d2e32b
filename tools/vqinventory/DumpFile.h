#pragma once

#include "tools/vqinventory/SharedLibrary.h"

#include <memory>
#include <string>

namespace VQ::Tool
{

/// Throws LoadError unless the file is a regular one of a dump's size, can be read and begins with the anchor of an
/// SMBIOS entry point, as a file made by `dmidecode --dump-bin` does. A table that is damaged further on is found by
/// the module's own reader.
void checkDumpFile(const std::string& file);

/// Makes a module that is loaded afterwards read its SMBIOS table from the file: loads the reader library that serves
/// a dump, from the directory `from-dump` beside the module, so that the loader takes it for the module's own. The
/// library that is returned must live longer than the module. Throws LoadError.
std::unique_ptr<SharedLibrary> serveDumpFile(const std::string& file, const std::string& moduleFile);

}
