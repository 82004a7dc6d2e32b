#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Shared.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Pegasus
{
/// A sequence of values with value semantics; copies share their elements until one of them changes. Every index beyond
/// the end throws IndexOutOfBoundsException.
template <class T> class PEGASUS_EXPORT Array
{
public:
    Uint32 size() const { return elements_ ? elements_->size : 0; }

    T& operator[](Uint32 index)
    {
        check(index < size());
        own(size());
        return elements_->values[index];
    }
    const T& operator[](Uint32 index) const
    {
        check(index < size());
        return elements_->values[index];
    }

    void append(const T& item) { insert(size(), item); }
    void prepend(const T& item) { insert(0, item); }
    /// Appends a copy of every value of `other`, which may be this array.
    void appendArray(const Array& other)
    {
        const Array added(other);
        own(size() + added.size());
        for (Uint32 i = 0; i < added.size(); ++i)
            elements_->values[elements_->size++] = added[i];
    }
    /// Puts `item` before the value at `index`; `size()` appends it.
    void insert(Uint32 index, const T& item)
    {
        check(index <= size());
        T copy(item); // `item` may lie in this array
        own(size() + 1);
        T* const place = elements_->values.get() + index;
        T* const end = elements_->values.get() + size();
        std::move_backward(place, end, end + 1);
        *place = std::move(copy);
        ++elements_->size;
    }
    void remove(Uint32 index, Uint32 count = 1)
    {
        check(index <= size() && count <= size() - index);
        own(size());
        T* const place = elements_->values.get() + index;
        T* const end = elements_->values.get() + size();
        std::move(place + count, end, place);
        std::fill(end - count, end, T());
        elements_->size -= count;
    }
    void clear() { elements_ = Shared<Elements>(); }

private:
    struct Elements : Counted
    {
        Uint32 size = 0;
        const Uint32 capacity;
        const std::unique_ptr<T[]> values; // not a std::vector: one of Boolean has no contiguous values

        explicit Elements(Uint32 room) : capacity(room), values(new T[room]()) {}
    };

    static void check(bool inside)
    {
        if (!inside)
            throw IndexOutOfBoundsException();
    }

    /// Makes the elements this array's own, with room for that many.
    void own(Uint32 capacity)
    {
        if (elements_.isOwn() && capacity <= elements_->capacity)
            return;
        Shared<Elements> copy(
            new Elements(capacity <= size() ? capacity : std::max({capacity, 2 * size(), Uint32(4)})));
        copy->size = size();
        if (elements_.isOwn())
            std::move(elements_->values.get(), elements_->values.get() + size(), copy->values.get());
        else if (elements_)
            std::copy(elements_->values.get(), elements_->values.get() + size(), copy->values.get());
        elements_ = std::move(copy);
    }

    Shared<Elements> elements_;
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
