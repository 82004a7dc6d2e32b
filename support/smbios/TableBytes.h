#pragma once

#include "support/smbios/Buffer.h"
#include "support/smbios/SmBios.h"

#include <cstddef>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace VQ
{

/// The bytes of a structure table. They never change, so all of its structures share them, whatever thread they are on.
class SmBios::Table::Bytes
{
public:
    explicit Bytes(Buffer all) : _all(std::move(all)) {}

    const unsigned char* data() const { return _all.data(); }
    std::size_t size() const { return _all.size(); }

    /// The bytes of one structure as a vector, which lives as long as this object; the same one on every call.
    const std::vector<unsigned char>& copyOf(const unsigned char* begin, std::size_t size) const
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        const auto found = _copies.find(begin);
        return found != _copies.end() ? found->second : _copies.try_emplace(begin, begin, begin + size).first->second;
    }

private:
    Buffer _all;
    mutable std::mutex _mutex; // of the copies
    mutable std::map<const unsigned char*, std::vector<unsigned char>> _copies;
};

}
