#pragma once

#include "support/smbios/Buffer.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace VQ
{

/// A share in the bytes of a structure table. They never change, so all of its structures share them, whatever thread
/// they are on, and the last one frees them. As small as a pointer, because there is one in every structure.
class TableBytes
{
public:
    TableBytes() = default; ///< in no table: nothing but destruction and copies
    explicit TableBytes(Buffer all) : _shared(new Shared(std::move(all))) {}
    TableBytes(const TableBytes& other) : _shared(other._shared)
    {
        if (_shared)
            _shared->users.fetch_add(1, std::memory_order_relaxed);
    }
    TableBytes& operator=(TableBytes other)
    {
        std::swap(_shared, other._shared);
        return *this;
    }
    ~TableBytes()
    {
        if (_shared && _shared->users.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete _shared;
    }

    bool isNone() const { return !_shared; }
    const unsigned char* data() const { return _shared->all.data(); }
    std::size_t size() const { return _shared->all.size(); }

    /// Some of the bytes as a vector, which lives as long as they do; the same one on every call.
    const std::vector<unsigned char>& copyOf(const unsigned char* begin, std::size_t size) const
    {
        const std::lock_guard<std::mutex> lock(_shared->mutex);
        return _shared->copies.try_emplace(begin, begin, begin + size).first->second;
    }

private:
    struct Shared
    {
        explicit Shared(Buffer bytes) : all(std::move(bytes)) {}

        const Buffer all;
        std::atomic<std::uint32_t> users{1};
        std::mutex mutex; // of the copies
        std::map<const unsigned char*, std::vector<unsigned char>> copies;
    };

    Shared* _shared = nullptr;
};

}
