#include "ModMain.h"

#include "core/CommandChannel.h"
#include "core/DialogService.h"
#include "core/Form.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/PathResolver.h"
#include "platform/RegistryRoot.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace tk {

namespace {
const QString instellingen() {
    return QString::fromLatin1(ModMain::Instellingen);
}
} // namespace

ModMain::ModMain(Programma& p) : p(p) {}

ModMain::~ModMain() = default;

QString ModMain::Pad(const QString& pad) const {
    return PathResolver::resolve(p.platform.programFolder(), pad);
}

QString ModMain::LeesIni(const QString& sectie, const QString& sleutel, const QString& bestand) {
    QString waarde = p.iniFiles.read(Pad(bestand), sectie, sleutel).value_or(QString());
    if (waarde.size() > IniWaardeMax)
        waarde.truncate(IniWaardeMax);
    return waarde;
}

void ModMain::SchrijfIni(const QString& waarde, const QString& sectie, const QString& sleutel,
                         const QString& bestand) {
    p.iniFiles.write(Pad(bestand), sectie, sleutel, waarde);
}

bool ModMain::BestandBestaat(const QString& pad) {
    if (pad.isEmpty())
        return false;
    const QString native = Pad(pad);
    const QString naam = QFileInfo(native).fileName();
    if (naam.contains(QLatin1Char('*')) || naam.contains(QLatin1Char('?'))) {
        QDir map(QFileInfo(native).path());
        map.setNameFilters({naam});
        map.setFilter(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        map.setSorting(QDir::NoSort);
        return !map.entryList().isEmpty();
    }
    return QFileInfo::exists(native);
}

void ModMain::MaakMappen(const QString& pad) {
    QString deel;
    const QStringList delen = QString(pad)
                                  .replace(QLatin1Char('/'), QLatin1Char('\\'))
                                  .split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    const bool absoluut = pad.startsWith(QLatin1Char('/'));
    for (const QString& stuk : delen) {
        deel += (absoluut ? QStringLiteral("/") : QStringLiteral("\\")) + stuk;
        const QString native = Pad(deel);
        if (!QFileInfo::exists(native)) {
            QDir().mkdir(native);
            p.wacht.Pomp();
        }
    }
}

void ModMain::VerwijderBestand(const QString& pad) {
    const QString native = Pad(pad);
    for (int poging = 0; poging < 10; ++poging) {
        QFile::setPermissions(native, QFile::permissions(native) | QFileDevice::WriteOwner);
        QFile::remove(native);
        if (!QFileInfo::exists(native))
            return;
        Wacht(500);
    }
}

QString ModMain::KortPad(const QString& pad) {
    const QString native = Pad(pad);
    return QFileInfo::exists(native) ? native : QString();
}

void ModMain::LaadWachttijden() {
    QString wachttijd =
        LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Wachttijd"), instellingen());
    if (wachttijd.isEmpty()) {
        wachttijd = QStringLiteral("500");
        MaakMappen(QStringLiteral("\\Data"));
        SchrijfIni(wachttijd, QStringLiteral("Algemeen"), QStringLiteral("Wachttijd"),
                   instellingen());
    }
    Wachttijd = wachttijd.toLong();
    bool ok = false;
    const double verbinden =
        LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Verbinden"), instellingen())
            .trimmed()
            .toDouble(&ok);
    Verbindingspauze = ok ? verbinden : 0;
}

void ModMain::Foutmelding(const QString& omschrijving, const QString& naam,
                          const QString& procedure, const QString& lijn, bool stil) {
    QString tekst = omschrijving;
    tekst.replace(QStringLiteral("\r\n"), QStringLiteral("|"));
    SchrijfLogboek(tekst, naam, procedure, lijn);
    // A fault raised while a report is on screen is written to the log book only.
    if (stil || m_rapportDiepte > 0)
        return;
    ++m_rapportDiepte;
    p.frmFoutrapportage.Tonen(procedure, lijn, tekst, naam);
    --m_rapportDiepte;
}

void ModMain::SchrijfLogboek(const QString& omschrijving, const QString& naam,
                             const QString& procedure, const QString& lijn) {
    const QDateTime nu = p.platform.clock().now();
    const QString datum = nu.date().toString(QStringLiteral("d-M-yyyy"));
    const QString eol = QStringLiteral("\r\n");
    const QString streep = QString(82, QLatin1Char('-'));
    auto tekst = [&](int id) { return p.modTaal.LaadTekst(id); };

    QString regels = streep + eol;
    regels += tekst(2956) + QString(13, QLatin1Char(' ')) + datum + eol;
    regels += tekst(2957) + QString(14, QLatin1Char(' ')) +
              nu.time().toString(QStringLiteral("H:mm:ss")) + eol;
    regels += tekst(2958) + QString(14, QLatin1Char(' ')) + naam + eol;
    QString beschrijving = omschrijving;
    beschrijving.replace(QLatin1Char('|'), eol + QStringLiteral("\t\t   "));
    regels += tekst(2959) + QString(6, QLatin1Char(' ')) + beschrijving + eol;
    if (!procedure.isEmpty()) {
        regels += tekst(2960) + QString(9, QLatin1Char(' ')) + procedure + eol;
        regels += tekst(2961) + QString(9, QLatin1Char(' ')) + lijn + eol;
    }
    regels += streep + eol;

    // A client that meets many faults (a malformed answer of many rows) pays one write per fault:
    // today's file stays open (unbuffered, so that every line is on disk at once) while it is
    // still where it was found. The folder is made and the file looked up again on the first
    // fault of a day, or when the file was removed or its folder renamed.
    const QString bestandNaam = QStringLiteral("\\Logboek\\") + datum + QStringLiteral(".txt");
    if (!m_logboek || bestandNaam != m_logboekNaam || !QFileInfo::exists(m_logboek->fileName())) {
        m_logboek.reset();
        MaakMappen(QStringLiteral("\\Logboek"));
        auto bestand = std::make_unique<QFile>(Pad(bestandNaam));
        if (!bestand->open(QIODevice::Append | QIODevice::Unbuffered))
            return;
        m_logboekNaam = bestandNaam;
        m_logboek = std::move(bestand);
    }
    m_logboek->write(regels.toUtf8());
}

void ModMain::LaadTaal() {
    p.modTaal.ProgrammaPad = p.platform.programFile();
    QString waarde;
    bool vanServer = false;
    if (const auto antwoord = Vraag(QString(wire::LDNTAA))) {
        waarde = *antwoord;
        vanServer = true;
    }
    if (!vanServer) {
        waarde = p.modRegistry.LeesWaarde(RegistryRoot::LocalMachine,
                                          QStringLiteral("Software\\Tafelkrater"),
                                          QStringLiteral("Language"));
        if (waarde.isEmpty())
            waarde =
                LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Language"), instellingen());
    }
    bool numeriek = false;
    const long taal = waarde.trimmed().toLong(&numeriek);
    if (numeriek && !p.modTaal.LaadTekst(3, int(taal), true).isEmpty())
        p.modTaal.Taal = taal;
    else
        p.modTaal.Taal = 1033;
    MaakMappen(QStringLiteral("\\Data"));
    SchrijfIni(QString::number(p.modTaal.Taal), QStringLiteral("Instellingen"),
               QStringLiteral("Language"), instellingen());
    p.modTaal.ProductTitel = p.modTaal.LaadTekst(3);
    if (vanServer)
        for (Form* form : p.formulieren)
            form->LaadTaal();
}

void ModMain::Wacht(qint64 ms) {
    p.wacht.Duur(ms);
}

QString ModMain::ToonVraag(const QString& titel, const QString& tekst, const QString& stijl) {
    if (!p.dialogen)
        return QString();
    return p.dialogen->vraag(titel, tekst, stijl);
}

std::optional<QString> ModMain::Vraag(const QString& bericht, Klasse klasse,
                                      const std::function<void()>& naVersturen) {
    if (!Verbonden())
        return std::nullopt;
    const bool opslaan = klasse == KlasseB;
    bool& ontvangen = opslaan ? AntwoordOpslaanOntvangen : AntwoordOntvangen;
    if (opslaan)
        AntwoordOpslaan.clear();
    ontvangen = false;
    const quint64 verliezen = p.wacht.verliezen();
    p.kanaal->WS_Versturen(bericht, false);
    if (naVersturen)
        naVersturen();
    if (p.wacht.Tot([&ontvangen] { return ontvangen; }, std::nullopt, true, verliezen) !=
        Wacht::Uitkomst::Voldaan)
        return std::nullopt;
    return opslaan ? AntwoordOpslaan : Antwoord;
}

bool ModMain::Verbonden() {
    if (!p.kanaal)
        return false;
    VerbondenWaarde = p.kanaal->isConnected();
    return VerbondenWaarde;
}

QString ModMain::WindowsNaam() {
    const OsVersion v = p.platform.environment().osVersion();
    if (v.platformId == 1)
        return v.minor == 0 ? QStringLiteral("Windows 95") : QStringLiteral("Windows 98");
    if (v.platformId == 2) {
        if (v.major == 5 && v.minor == 0)
            return QStringLiteral("Windows 2000");
        if (v.major == 5 && v.minor == 1)
            return QStringLiteral("Windows XP");
        if (v.major == 5 && v.minor == 2)
            return QStringLiteral("Windows 2003");
        if (v.major == 6)
            return QStringLiteral("Windows Vista");
    }
    return QStringLiteral("Unknown Windows Version");
}

bool ModMain::ControleerNieuwereVersie(const QString& nieuw, const QString& oud) {
    const QStringList a = nieuw.split(QLatin1Char('.'));
    const QStringList b = oud.split(QLatin1Char('.'));
    if (a.size() != 3 || b.size() != 3)
        return false;
    int x[3], y[3];
    for (int i = 0; i < 3; ++i) {
        bool okA = false, okB = false;
        x[i] = a[i].trimmed().toInt(&okA);
        y[i] = b[i].trimmed().toInt(&okB);
        // Each part is a 16-bit number.
        if (!okA || !okB || x[i] < -32768 || x[i] > 32767 || y[i] < -32768 || y[i] > 32767)
            return false;
    }
    for (int i = 0; i < 3; ++i)
        if (x[i] != y[i])
            return x[i] > y[i];
    return false;
}

QString ModMain::WordWrapped_String(const QString& tekst, int breedte, const QString& scheiding,
                                    bool afbreken) {
    if (breedte < 1)
        return tekst;
    QStringList uit;
    QString eigen = tekst;
    eigen.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const QString& alinea : eigen.split(QLatin1Char('\n'))) {
        QString regel;
        const QStringList woorden = alinea.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (QString woord : woorden) {
            if (!regel.isEmpty() && regel.size() + 1 + woord.size() <= breedte) {
                regel += QLatin1Char(' ') + woord;
                continue;
            }
            if (!regel.isEmpty())
                uit << regel;
            regel.clear();
            while (afbreken && woord.size() > breedte) {
                uit << woord.left(breedte);
                woord = woord.mid(breedte);
            }
            regel = woord;
        }
        uit << regel;
    }
    return uit.join(scheiding);
}

QString ModMain::ProgrammaVersie() {
    return QStringLiteral(TK_VERSIE);
}

} // namespace tk
