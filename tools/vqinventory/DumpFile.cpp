#include "tools/vqinventory/DumpFile.h"

#include "support/smbios/DumpSource.h"
#include "tools/vqinventory/InputFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t AnchorSize = 5;

std::string hexBytes(const std::string& bytes)
{
    std::string text;
    char byte[4];
    for (const char c : bytes) {
        std::snprintf(byte, sizeof byte, " %02X", static_cast<unsigned char>(c));
        text += byte;
    }
    return text.empty() ? " nothing" : text;
}
}

void checkDumpFile(const std::string& file)
{
    const std::string unfit = unfitReason(file, MaxDumpSize);
    if (!unfit.empty())
        throw LoadError(file + " is not an SMBIOS dump: " + unfit);
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw LoadError("cannot read " + file + ": " + std::strerror(errno));
    std::string anchor(AnchorSize, '\0');
    in.read(anchor.data(), AnchorSize);
    anchor.resize(static_cast<std::size_t>(in.gcount()));
    if (anchor != "_SM3_" && anchor.substr(0, 4) != "_SM_" && anchor != "_DMI_")
        throw LoadError(file +
                        " is not an SMBIOS dump: expected \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" (5F 53 4D 5F) or "
                        "\"_DMI_\" (5F 44 4D 49 5F) at its start, found" +
                        hexBytes(anchor));
}

std::unique_ptr<SharedLibrary> serveDumpFile(const std::string& file, const std::string& moduleFile)
{
    // Through links: the reader lies beside the module itself.
    std::error_code error;
    const std::filesystem::path module = std::filesystem::canonical(moduleFile, error);
    if (error)
        throw LoadError("cannot load " + moduleFile + ": " + error.message());
    const std::string library = module.parent_path() / "from-dump" / "libvqsmbios.so";
    auto reader = std::make_unique<SharedLibrary>(library, RTLD_NOW | RTLD_GLOBAL);
    reinterpret_cast<void (*)(const char*)>(reader->symbol("vqServeSmBiosDump"))(file.c_str());
    return reader;
}

}
