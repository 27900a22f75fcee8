#pragma once

#if __has_include(<source_location>)
#include <source_location>
#endif

namespace tk {

#if defined(__cpp_lib_source_location)
using SourceLocation = std::source_location;
#else
// The caller's line for a fault, where the standard library offers no std::source_location: clang
// before version 15 with GCC's library (the fuzz build). The builtins of a default argument take
// the place of the call that uses the default, as std::source_location::current() does.
class SourceLocation {
public:
    static constexpr SourceLocation current(unsigned line = __builtin_LINE()) {
        SourceLocation plek;
        plek.m_line = line;
        return plek;
    }
    constexpr unsigned line() const { return m_line; }

private:
    unsigned m_line = 0;
};
#endif

} // namespace tk
