// SPDX-License-Identifier: MIT
// Holds a pooled object, and returns it to its pool at the end of the scope.
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

    // NOLINTNEXTLINE(google-explicit-constructor): can be used like the object itself
    operator T*() const { return object; }

private:
    T* const object;
};

using PooledBounds = Pooled<Bounds>;
using PooledPixProps = Pooled<PixProps>;
using PooledPoint = Pooled<Point>;
