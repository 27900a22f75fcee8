#pragma once

#include "core/UnbuiltStartSteps.h"
#include "platform/fake/FakeSystemActions.h"
#include "screens/start/FrmActiveren.h"
#include "session/ModMainSessie.h"
#include "tests/support/Werkplek.h"

#include <QProcess>

namespace tk::test {

enum class Familie { Nt, W98 };
enum class Modus { Standalone, Netwerk, Beheer };

// The start-up steps as the client wires them to the session side: the ways out and the wizard
// reach the session; the launcher's words are recorded and the server's accounts are the test's.
class SessieStappen : public UnbuiltStartSteps {
public:
    SessieStappen(Programma& p, ModMainSessie& s) : UnbuiltStartSteps(p), p(p), s(s) {}
    void ZetProxy(bool aan) override { s.ZetProxy(aan); }
    void NaarSysteembureaublad() override { s.NaarSysteembureaublad(); }
    void StartVerkenner() override { s.StartVerkenner(); }
    void TafelkraterDeactiveren() override { s.TafelkraterDeactiveren(true); }
    void ZetAutomatischeAanmelding(const QString& a, const QString& w, const QString& d,
                                   bool af) override {
        s.AanmeldenAlsAccount(a, w, d, af);
    }
    bool frmActiveren(bool rechten, bool resolutie, bool shell, FrmInitialiseren* v) override {
        return FrmActiveren(p, s).Openen(rechten, resolutie, shell, v);
    }
    bool StuurOpstartCommando(const QString& woord) override {
        woorden << woord;
        return true;
    }
    QStringList Accounts() override { return accounts; }

    Programma& p;
    ModMainSessie& s;
    QStringList woorden;
    QStringList accounts;
};

// A workstation of a Windows family and a mode with its settings folder, the machine's session
// side recorded, and the system file of the 98 family as a fresh machine has it.
struct SessieWerkplek : Werkplek {
    explicit SessieWerkplek(Familie familie = Familie::Nt, Modus modus = Modus::Netwerk)
        : sessie(p, systeem), stappen(p, sessie) {
        p.opstartStappen = &stappen;
        p.modMain.MaakMappen("\\Data");
        p.modMain.IsWindows98 = familie == Familie::W98;
        if (p.modMain.IsWindows98)
            platform.fakeEnvironment().playWindows98();
        zetModus(modus);
        platform.fakeEnvironment().setVariable("WINDIR", "\\W");
        schrijf("W/system.ini", "[boot]\r\nshell=Explorer.exe\r\n");
    }
    void zetModus(Modus modus) {
        p.modMain.ModusStandalone = modus == Modus::Standalone;
        p.modMain.ModusNetwerk = modus == Modus::Netwerk;
        p.modMain.ModusBeheer = modus == Modus::Beheer;
    }
    void zetIni(const char* sectie, const char* sleutel, const QString& waarde) {
        p.modMain.SchrijfIni(waarde, QString::fromLatin1(sectie), QString::fromLatin1(sleutel),
                             "\\Data\\Instellingen.ini");
    }
    QString ini(const char* sectie, const char* sleutel,
                const QString& bestand = "\\Data\\Instellingen.ini") {
        return p.modMain.LeesIni(QString::fromLatin1(sectie), QString::fromLatin1(sleutel),
                                 bestand);
    }

    FakeSystemActions systeem;
    ModMainSessie sessie;
    SessieStappen stappen;
};

// The account files of a bare system (only root) under a temporary system root.
inline void kaleRoot(const QString& root) {
    QDir().mkpath(root + "/etc");
    QDir().mkpath(root + "/home");
    for (const auto& [naam, regel] : {std::pair{"/etc/passwd", "root:x:0:0:root:/root:/bin/bash\n"},
                                      std::pair{"/etc/group", "root:x:0:\n"},
                                      std::pair{"/etc/shadow", "root:*:19000:0:99999:7:::\n"},
                                      std::pair{"/etc/gshadow", "root:*::\n"}}) {
        QFile f(root + QLatin1String(naam));
        if (f.open(QIODevice::WriteOnly))
            f.write(regel);
    }
}

// The privileged program itself, run directly against a system root.
class EchtProgramma : public SystemActions {
public:
    explicit EchtProgramma(const QString& root) : m_root(root) {}
    bool run(const QString& verb, const QStringList& args, const QString& input,
             QString* output) override {
        QProcess proces;
        proces.setProcessChannelMode(QProcess::MergedChannels);
        // A root of its own is refused through sudo, also when the suite runs under sudo.
        auto omgeving = QProcessEnvironment::systemEnvironment();
        omgeving.remove("SUDO_UID");
        proces.setProcessEnvironment(omgeving);
        proces.start(QStringLiteral(TK_SYSTEEM_PAD), QStringList{"--root", m_root, verb} + args);
        proces.write(input.toUtf8());
        proces.closeWriteChannel();
        proces.waitForFinished(60000);
        if (output)
            *output = QString::fromUtf8(proces.readAll());
        return proces.exitCode() == 0;
    }

private:
    QString m_root;
};

} // namespace tk::test
