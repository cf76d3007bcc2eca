#pragma once

#include <new>

#include <boost/shared_ptr.hpp>

namespace ttservice::internal {

// Holds the single object behind instance(). The first caller creates it while all others wait; it is released when the
// process ends. Unlike a static pointer, the slot may be read even after that, from the destructor of a static object
// that is destroyed later; it is null then. If build() throws, the next caller tries again.
template <typename Object, typename Build>
boost::shared_ptr<Object>& lastingSlot(const Build& build) {
    using Pointer = boost::shared_ptr<Object>;
    alignas(Pointer) static unsigned char memory[sizeof(Pointer)];
    static Pointer& pointer = *new (memory) Pointer(build());  // released below, never destroyed
    struct Release {
        Release() = default;
        Release(const Release&) = delete;
        Release& operator=(const Release&) = delete;
        ~Release() { pointer.reset(); }
    };
    static const Release atTheEnd;
    return pointer;
}

// Whether an object is the process's own, or a substitute for callers after that one is gone. A substitute reads no
// script and so logs nothing.
enum class Lifetime { Process, AfterTheEnd };

}  // namespace ttservice::internal
