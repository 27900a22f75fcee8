#pragma once

#include <QString>

namespace tk::server {

// The server's log: one line per connection and per fault, on standard output, each with the
// moment it happened, written out at the end of the event loop's turn that wrote it, so that a
// service manager's journal keeps up.
class ServerLog {
public:
    static void line(const QString& text);
    // A fault: what went wrong, and on which connection or part.
    static void fault(const QString& where, const QString& what);
};

} // namespace tk::server
