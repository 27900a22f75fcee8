// The client's dispatcher on one message: the vocabulary sorts it, frmMain's dispatcher acts on
// it (answers, flags, the server's facts). Input: the message as the socket gives it (bytes of
// Windows-1252).
#include "FuzzWorkstation.h"
#include "core/Ansi.h"
#include "link/FrmMainLink.h"
#include "link/Woordenlijst.h"

using namespace tk;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::FuzzWorkstation& w = fuzz::workstation();
    w.p.maak(w.p.frmMain, w.p);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzWorkstation& w = fuzz::workstation();
    const QByteArray bytes = fuzz::bytes(data, size);
    const QString bericht = Ansi::naarTekst(bytes);
    const Woordenlijst::Sortering s = Woordenlijst::sorteer(bericht);
    fuzz::require(s.metPayload || s.payload.isEmpty());
    fuzz::require(s.payload.size() <= bericht.size());
    FrmMainLink& link = *w.p.frmMain;
    link.Offline = false;
    w.p.modMain.AntwoordOntvangen = false;
    link.WS_DataArrival(bytes);
    for (qint64 port : {qint64(link.ReceiverPortBinary), qint64(link.ReceiverPortInfo),
                        qint64(link.SenderPortBinary), qint64(link.SenderPortInfo)})
        fuzz::require(port >= 0 && port <= 65535);
    // What the dispatcher put off until after it returned (the maintenance question) runs now.
    QCoreApplication::processEvents();
    return 0;
}
