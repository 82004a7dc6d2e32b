#include <cstdint>

namespace VQ
{

namespace
{
// The module's version, for who looks at the file: an ELF note that `readelf -n` prints and vqinventory reads. A symbol
// would be one more that the module exports.
struct VersionNote
{
    std::uint32_t nameSize;
    std::uint32_t versionSize;
    std::uint32_t type;
    alignas(4) char name[sizeof "SystemProvider"];
    alignas(4) char version[sizeof VQ_VERSION];
};

__attribute__((section(".note.systemprovider"), used))
const VersionNote Note = {sizeof "SystemProvider", sizeof VQ_VERSION, 1, "SystemProvider", VQ_VERSION};
}

}
