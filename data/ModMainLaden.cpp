#include "ModMainLaden.h"

#include "core/CommandChannel.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "data/ModData.h"
#include "link/FrmMainLink.h"
#include "platform/Environment.h"

namespace tk {

namespace {
QString t(const char* tekst) {
    return QString::fromLatin1(tekst);
}
} // namespace

ModMainLaden::ModMainLaden(Programma& p) : p(p) {
    if (!p.modData)
        p.maak(p.modData, p);
}

void ModMainLaden::Laden() {
    Procedure(p, "modMain.Laden", [&] {
        ModMain& m = p.modMain;
        ModData& d = *p.modData;
        const QString cacheBestand = t(ModData::CacheBestand);
        const QString platBestand = t(ModData::PlatBestand);
        const bool verbonden = m.Verbonden();
        // Whatever happens, the clear cache does not outlive the load.
        struct Sluiten {
            SealedCache& c;
            ~Sluiten() { c.close(); }
        } sluiten{d.cache};

        // The clear copy of the cache lives in memory; a plain file left by an older run goes.
        if (m.BestandBestaat(platBestand))
            m.VerwijderBestand(platBestand);
        try {
            d.cache.open(m.Pad(cacheBestand));
        } catch (const Fout& f) {
            // Reported; the loaders then find nothing in the cache, and the file stays as it is.
            meldProcedureFout(p, "modMain.Laden", f.omschrijving(), QString::number(f.lijn()),
                              false);
        }
        // With a link the answers of this load make the new cache; the old one stays behind
        // it for a link lost halfway.
        if (verbonden)
            d.cache.beginFresh();

        if (p.frmMain) {
            if (verbonden)
                d.cache.write(t("Algemeen"), t("Domein"), p.frmMain->Domein);
            else
                p.frmMain->Domein = d.cache.read(t("Algemeen"), t("Domein"));
        }
        if (verbonden)
            p.opstartStappen->ControleerUpdate(false);
        m.LaadWachttijden();
        m.LaadTaal();

        d.LaadKlassen();
        d.LaadLeraren();
        d.LaadAccounts();
        d.LaadWachtwoorden();
        d.LaadOverigeInstellingen();
        p.opstartStappen->LaadThemas(true);

        QString gebruiker = p.platform.environment().variable(t("USERNAME")).toUpper();
        gebruiker.remove(QChar(0));
        // The global account of a network workstation loads no applications.
        const bool toepassingen =
            (gebruiker != u"GLOBAL" && m.ModusNetwerk) || m.ModusStandalone || m.ModusBeheer;
        if (toepassingen) {
            for (int soort = 0; soort < 3; ++soort)
                d.LaadCategorien(soort);
            for (int soort = 0; soort < 3; ++soort)
                d.LaadApplicaties(soort);
        }
        if (m.Verbonden())
            p.opstartStappen->LaadPictogrammen();
        if (toepassingen) {
            d.LaadVerbodenWoorden();
            d.LaadToegestaneSites();
        }
        d.LaadModules();

        // Sealed only after a whole load with the link: a link lost halfway, or a program ended
        // during the load (its waits end without their answers), keeps the old cache.
        if (verbonden && m.Verbonden() && !p.beeindigd && d.cache.changed()) {
            try {
                m.MaakMappen(t("\\Data"));
                d.cache.seal(m.Pad(cacheBestand));
            } catch (const Fout& f) {
                meldProcedureFout(p, "modMain.Laden", f.omschrijving(), QString::number(f.lijn()),
                                  false);
            }
        }
        d.cache.close();
        if (m.BestandBestaat(platBestand))
            m.VerwijderBestand(platBestand);

        d.VerstuurFoutrapporten();
    });
}

} // namespace tk
