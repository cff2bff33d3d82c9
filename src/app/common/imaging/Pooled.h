// SPDX-License-Identifier: MIT
// Holds a pooled object for a scope and gives it back to its pool at the end.
#pragma once

class Bounds;
class PixProps;
class Point;

template <class T>
class Pooled {
public:
    /// @param object  from T::alloc(); not null
    explicit Pooled(T* object)
        : object(object) {}

    Pooled(const Pooled&) = delete;
    Pooled& operator=(const Pooled&) = delete;

    ~Pooled() { object->free(); }

    T* operator->() const { return object; }

    // NOLINTNEXTLINE(google-explicit-constructor): stands wherever the object itself could
    operator T*() const { return object; }

private:
    T* const object;
};

using PooledBounds = Pooled<Bounds>;
using PooledPixProps = Pooled<PixProps>;
using PooledPoint = Pooled<Point>;
