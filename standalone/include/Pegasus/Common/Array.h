#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Pegasus
{
/// A sequence of values with value semantics. Every index beyond the end throws IndexOutOfBoundsException.
template <class T> class PEGASUS_EXPORT Array
{
public:
    Array() = default;
    Array(const Array& other) : elements_(new T[other.size_]()), size_(other.size_), capacity_(other.size_)
    {
        std::copy(other.elements_.get(), other.elements_.get() + size_, elements_.get());
    }
    Array(Array&& other) noexcept { swap(other); }
    Array& operator=(Array other) noexcept
    {
        swap(other);
        return *this;
    }
    ~Array() = default;

    Uint32 size() const { return size_; }

    T& operator[](Uint32 index)
    {
        check(index < size_);
        return elements_[index];
    }
    const T& operator[](Uint32 index) const
    {
        check(index < size_);
        return elements_[index];
    }

    void append(const T& item) { insert(size_, item); }
    void prepend(const T& item) { insert(0, item); }
    /// Appends a copy of every value of `other`, which may be this array.
    void appendArray(const Array& other)
    {
        const Uint32 count = other.size_;
        reserve(size_ + count);
        for (Uint32 i = 0; i < count; ++i)
            elements_[size_++] = other.elements_[i];
    }
    /// Puts `item` before the value at `index`; `size()` appends it.
    void insert(Uint32 index, const T& item)
    {
        check(index <= size_);
        T copy(item); // `item` may lie in this array
        reserve(size_ + 1);
        T* const place = elements_.get() + index;
        std::move_backward(place, elements_.get() + size_, elements_.get() + size_ + 1);
        *place = std::move(copy);
        ++size_;
    }
    void remove(Uint32 index, Uint32 count = 1)
    {
        check(index <= size_ && count <= size_ - index);
        T* const place = elements_.get() + index;
        std::move(place + count, elements_.get() + size_, place);
        size_ -= count;
        std::fill(elements_.get() + size_, elements_.get() + size_ + count, T());
    }
    void clear() { Array().swap(*this); }

private:
    static void check(bool inside)
    {
        if (!inside)
            throw IndexOutOfBoundsException();
    }

    void swap(Array& other) noexcept
    {
        std::swap(elements_, other.elements_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    void reserve(Uint32 capacity)
    {
        if (capacity <= capacity_)
            return;
        capacity = std::max({capacity, 2 * capacity_, Uint32(8)});
        std::unique_ptr<T[]> grown(new T[capacity]());
        std::move(elements_.get(), elements_.get() + size_, grown.get());
        elements_ = std::move(grown);
        capacity_ = capacity;
    }

    std::unique_ptr<T[]> elements_; // not a std::vector: one of Boolean has no contiguous values
    Uint32 size_ = 0;
    Uint32 capacity_ = 0;
};

template <class T> Boolean operator==(const Array<T>& a, const Array<T>& b)
{
    if (a.size() != b.size())
        return false;
    for (Uint32 i = 0; i < a.size(); ++i) {
        if (!(a[i] == b[i]))
            return false;
    }
    return true;
}
}
