#pragma once

#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace VQ
{

/// An allocator whose new elements are left as the memory is: what a read fills needs no zeros before.
template <class T> class UnfilledAllocator : public std::allocator<T>
{
public:
    template <class Other> struct rebind
    {
        using other = UnfilledAllocator<Other>;
    };

    template <class U> void construct(U* place) { ::new (static_cast<void*>(place)) U; }
    template <class U, class... Values> void construct(U* place, Values&&... values)
    {
        ::new (static_cast<void*>(place)) U(std::forward<Values>(values)...);
    }
};

/// Bytes that are read from a file.
using Buffer = std::vector<unsigned char, UnfilledAllocator<unsigned char>>;

}
