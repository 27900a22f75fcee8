#pragma once

#include "core/OpstartStappen.h"

#include <QSet>

namespace tk {

class Programma;

// Every step of the start-up and of the close options that no layer of this client fills yet, in
// one place: each writes one line to the log book (once per run) saying what is not built and
// what the workstation does instead, and answers as a workstation that needs nothing would. The
// client's start steps derive from this and override what is built; a reader sees here at once
// what is still missing.
class UnbuiltStartSteps : public OpstartStappen {
public:
    explicit UnbuiltStartSteps(Programma& p);

    bool VeiligeModus() override;
    bool BureaubladAanwezig() override;
    void StartVerkenner() override;
    void ComputerHerstarten() override;
    bool StuurOpstartCommando(const QString& woord) override;
    void StartServer(bool firewall) override;
    void HaalHulpbestand(const QString& naam) override;
    void ControleerUpdate(bool forceer) override;
    void LaadThema() override;
    bool frmActiveren(bool rechten, bool resolutie, bool shellIngesteld,
                      FrmInitialiseren* voortgang) override;
    void WijzigOpstarten() override;
    void BewaarOpstartinstellingen() override;
    void TafelkraterAccountVerwijderen() override;
    void TafelkraterDeactiverenSetup() override;
    void TafelkraterDeactiveren() override;
    void Afmelden() override;
    void ZetBureaubladachtergrond(bool herstel, bool opslaan) override;
    void ZetBrowserbeperkingen(bool aan) override;
    void SchermbeveiligingUit() override;
    void ZetProxy(bool aan) override;
    void NaarSysteembureaublad() override;
    QSize Schermgrootte() override;
    int Kleurdiepte() override;
    bool ControleerResolutieOndersteuning(int breedte, int hoogte, int diepte) override;
    bool ZetResolutie(bool vlag) override;
    void OpenTaakbalk1() override;
    void StartVerbinding(bool opnieuw) override;
    void ControleerChangelog() override;
    void Laden() override;
    void ControleerLerarenRechten() override;
    void LaadThemas(bool toonVoortgang) override;
    void LaadPictogrammen() override;
    QStringList Accounts() override;
    void VerbergLaadlabel() override;
    void ZetSessiebeperkingen(bool beperken, bool opslaan) override;
    void ZetAutomatischeAanmelding(const QString& account, const QString& wachtwoord,
                                   const QString& domein, bool afmelden) override;
    void OpenGlobal(bool eerste) override;
    void OpenGroep(const QString& id) override;
    void OpenLeraar(const QString& id) override;
    void OpenOnderhoud() override;
    void OpenFout(const QString& tekst) override;
    bool SessieActie(const QString& actie) override;

    // The steps that wrote their line in this run, in order.
    const QStringList& gemeld() const { return m_gemeld; }

protected:
    // Writes the step's line to the log book the first time it is reached in this run.
    void nietGebouwd(const char* stap, const QString& inPlaatsDaarvan);
    Programma& p;

private:
    QStringList m_gemeld;
};

} // namespace tk
