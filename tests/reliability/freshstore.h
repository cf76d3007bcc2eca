#pragma once

#include <iostream>
#include <map>
#include <streambuf>
#include <string>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace tests {

using Tables = std::map<std::string, std::string>;

// The names and contents of the tables that are in neither the old nor the wanted state.
inline std::string brokenTables(const Tables& now, const Tables& old, const Tables& wanted) {
    std::string names;
    for (const auto& [name, content] : now) {
        if (content != old.at(name) && content != wanted.at(name)) names += name + ": " + content + '\n';
    }
    return names;
}

// Replaces the process's store by a new one.
class FreshStore {
public:
    FreshStore() : store(ttservice::internal::StoreSlot::build()), before(exchange(store)) {}
    FreshStore(const FreshStore&) = delete;
    FreshStore& operator=(const FreshStore&) = delete;
    ~FreshStore() { exchange(before); }

    ttservice::ConfigCollector& operator*() const { return *store; }
    ttservice::ConfigCollector* operator->() const { return store.get(); }

private:
    using Pointer = boost::shared_ptr<ttservice::ConfigCollector>;

    static Pointer exchange(const Pointer& other) { return ttservice::internal::StoreSlot::exchange(other); }

    Pointer store;
    Pointer before;
};

// Discards the library's own lines, so that they use no memory.
class SilentError : std::streambuf {
public:
    SilentError() : before(std::cerr.rdbuf(this)) {}
    SilentError(const SilentError&) = delete;
    SilentError& operator=(const SilentError&) = delete;
    ~SilentError() override { std::cerr.rdbuf(before); }

private:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }

    std::streambuf* before;
};

}  // namespace tests
