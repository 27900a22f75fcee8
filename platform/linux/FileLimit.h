#pragma once

#include <QString>

namespace tk {

// The number of files a process may hold open. A server with many clients needs one descriptor
// per connection; the usual soft limit (1024) is far below the hard one that the administrator
// set, so the server raises its soft limit to the hard one (at most `cap`) at start.
class FileLimit {
public:
    struct Result {
        long long before = -1;
        long long after = -1;
        QString fault; // empty when the limit could be read (and raised where it was lower)
    };
    static Result raise(long long cap = 65536);
};

} // namespace tk
