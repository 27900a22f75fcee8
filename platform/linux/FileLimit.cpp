#include "FileLimit.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/resource.h>

namespace tk {

FileLimit::Result FileLimit::raise(long long cap) {
    Result result;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        result.fault = QString::fromLocal8Bit(std::strerror(errno));
        return result;
    }
    result.before = result.after = static_cast<long long>(limit.rlim_cur);
    // RLIM_INFINITY is the largest value, so the smaller of hard limit and cap is the aim.
    const rlim_t wanted = std::min(limit.rlim_max, static_cast<rlim_t>(cap));
    if (limit.rlim_cur >= wanted)
        return result;
    limit.rlim_cur = wanted;
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0) {
        result.fault = QString::fromLocal8Bit(std::strerror(errno));
        return result;
    }
    result.after = static_cast<long long>(wanted);
    return result;
}

} // namespace tk
