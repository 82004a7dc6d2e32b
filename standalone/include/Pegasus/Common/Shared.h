#pragma once

#include <Pegasus/Common/Config.h>

#include <atomic>
#include <utility>

namespace Pegasus
{
/// The base of what several values hold together.
struct Counted
{
    std::atomic<Uint32> holders{1};
};

/// A pointer to a Counted object, or null. The last one that points to it deletes it, in whatever thread.
/// A value that is about to change what it holds asks isOwn() first, and makes a copy where it isn't.
template <class T> class Shared
{
public:
    Shared() = default;
    /// Takes over an object that was just made.
    explicit Shared(T* made) : object_(made) {}
    Shared(const Shared& other) noexcept : object_(other.object_)
    {
        if (object_)
            object_->holders.fetch_add(1, std::memory_order_relaxed);
    }
    Shared(Shared&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Shared& operator=(Shared other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Shared()
    {
        if (object_ && object_->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete object_;
    }

    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// True for an object that nobody else holds. Their reading of it is over then, in their threads too.
    bool isOwn() const { return object_ && object_->holders.load(std::memory_order_acquire) == 1; }

private:
    T* object_ = nullptr;
};
}
