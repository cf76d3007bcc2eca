#pragma once

#include <new>

#include <boost/shared_ptr.hpp>

namespace ttservice::internal {

// Where instance() keeps the process's one object: made by the first caller, whom all others wait for, and released
// when the process ends. Unlike a static pointer it may be looked at after that, from the destructor of a static object
// that ends later, and is null then. An exception out of build() leaves the making to the next caller.
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

// Which of its kind an object is: the one that is built with all there is, or one for who asks after the end, which
// reads no script and so logs nothing.
enum class Lifetime { Process, AfterTheEnd };

}  // namespace ttservice::internal
