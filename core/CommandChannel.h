#pragma once

#include <QString>

namespace tk {

// The command channel to the server as the core sees it. The link layer implements it on
// frmMain; until a link exists, the program is simply not connected.
class CommandChannel {
public:
    virtual ~CommandChannel() = default;
    // The socket is connected (state 7).
    virtual bool isConnected() = 0;
    // frmMain.WS_Versturen: sends one message; with `wachten` it pumps until a bare
    // acknowledgement arrives (or the link is lost).
    virtual void WS_Versturen(const QString& bericht, bool wachten) = 0;
};

} // namespace tk
