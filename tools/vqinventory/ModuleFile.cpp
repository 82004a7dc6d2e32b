#include "tools/vqinventory/ModuleFile.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <elf.h>
#include <fstream>
#include <link.h>

namespace VQ::Tool
{

namespace
{
using FileHeader = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Dynamic = ElfW(Dyn);

// More than any library has; what a damaged file announces is not believed.
constexpr std::size_t MaxSegments = 1000;
constexpr std::size_t MaxDynamics = 10000;
constexpr std::size_t MaxNameSize = 4096;
constexpr std::size_t MaxNoteSize = 65536;

#ifdef __LP64__
constexpr unsigned char OwnClass = ELFCLASS64;
#else
constexpr unsigned char OwnClass = ELFCLASS32;
#endif

class ElfFile
{
public:
    explicit ElfFile(const std::string& file) : _in(file, std::ios::binary) {}

    // `count` elements from the offset; fewer where the file ends.
    template <class Element> std::vector<Element> read(std::uint64_t offset, std::size_t count)
    {
        std::vector<Element> elements(count);
        _in.clear();
        _in.seekg(static_cast<std::streamoff>(offset));
        _in.read(reinterpret_cast<char*>(elements.data()), static_cast<std::streamsize>(count * sizeof(Element)));
        elements.resize(static_cast<std::size_t>(_in.gcount()) / sizeof(Element));
        return elements;
    }

    std::string text(std::uint64_t offset)
    {
        const std::vector<char> bytes = read<char>(offset, MaxNameSize);
        return std::string(bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0'));
    }

private:
    std::ifstream _in;
};

std::vector<Segment> segmentsOf(ElfFile& file)
{
    const std::vector<FileHeader> header = file.read<FileHeader>(0, 1);
    if (header.empty() || std::memcmp(header[0].e_ident, ELFMAG, SELFMAG) != 0 ||
        header[0].e_ident[EI_CLASS] != OwnClass || header[0].e_phentsize != sizeof(Segment))
        return {};
    return file.read<Segment>(header[0].e_phoff, std::min<std::size_t>(header[0].e_phnum, MaxSegments));
}

// Where in the file the byte stands that is loaded to the address; 0, where no name can be, when it is not in the file.
std::uint64_t placeOf(std::uint64_t address, const std::vector<Segment>& segments)
{
    for (const Segment& segment : segments)
        if (segment.p_type == PT_LOAD && address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz)
            return segment.p_offset + (address - segment.p_vaddr);
    return 0;
}
}

std::vector<std::string> neededLibraries(const std::string& path)
{
    ElfFile file(path);
    const std::vector<Segment> segments = segmentsOf(file);
    std::vector<Dynamic> dynamics;
    for (const Segment& segment : segments)
        if (segment.p_type == PT_DYNAMIC)
            dynamics = file.read<Dynamic>(segment.p_offset,
                                          std::min<std::size_t>(segment.p_filesz / sizeof(Dynamic), MaxDynamics));
    const auto texts =
        std::find_if(dynamics.begin(), dynamics.end(), [](const Dynamic& entry) { return entry.d_tag == DT_STRTAB; });
    const std::uint64_t names = texts == dynamics.end() ? 0 : placeOf(texts->d_un.d_ptr, segments);
    std::vector<std::string> libraries;
    for (const Dynamic& entry : dynamics)
        if (entry.d_tag == DT_NEEDED && names != 0)
            libraries.push_back(file.text(names + entry.d_un.d_val));
    return libraries;
}

std::string moduleVersion(const std::string& path)
{
    const std::string owner("SystemProvider", sizeof "SystemProvider"); // with its zero
    ElfFile file(path);
    for (const Segment& segment : segmentsOf(file)) {
        if (segment.p_type != PT_NOTE)
            continue;
        const std::vector<char> notes =
            file.read<char>(segment.p_offset, std::min<std::size_t>(segment.p_filesz, MaxNoteSize));
        const auto name = std::search(notes.begin(), notes.end(), owner.begin(), owner.end());
        // The version follows the name, both on steps of four bytes.
        const auto begin = static_cast<std::size_t>(name - notes.begin()) + (owner.size() + 3) / 4 * 4;
        if (name != notes.end() && begin < notes.size())
            return std::string(notes.begin() + static_cast<std::ptrdiff_t>(begin),
                               std::find(notes.begin() + static_cast<std::ptrdiff_t>(begin), notes.end(), '\0'));
    }
    return "";
}

}
