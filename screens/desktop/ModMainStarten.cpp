#include "ModMainStarten.h"

#include "BureaubladItem.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/Environment.h"
#include "platform/Processes.h"
#include "platform/Windows.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

namespace tk {

namespace {

// The program that opens a file or folder with the application the desktop chose for it.
const QString openen() {
    return QStringLiteral("xdg-open");
}

bool heeftScheiding(const QString& tekst) {
    return tekst.contains(QLatin1Char('\\')) || tekst.contains(QLatin1Char('/'));
}

// True when the file is a Windows shell link: its header size (76) and its class id.
bool isWindowsSnelkoppeling(const QString& bestand) {
    QFile f(bestand);
    if (!f.open(QIODevice::ReadOnly))
        return false;
    static const char kop[] = "\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46";
    return f.read(20) == QByteArray(kop, 20);
}

} // namespace

ModMainStarten::ModMainStarten(Programma& p) : p(p) {}

// --- the names of the results

QString ModMainStarten::FoutNaam(int resultaat) const {
    switch (resultaat) {
    case 0:
        return p.modTaal.LaadTekst(9520);
    case 1:
        return QStringLiteral("Failed to connect");
    case 4:
        return QStringLiteral("File not found");
    case 5:
        return QStringLiteral("Path not found");
    case 7:
        return QStringLiteral("Access denied");
    case 10:
        return QStringLiteral("Out of memory");
    case 13:
        return QStringLiteral("Invalid EXE file or error in EXE image");
    case 28:
        return QStringLiteral("A sharing violation occurred");
    case 29:
        return QStringLiteral("Incomplete or invalid file association");
    case 30:
        return QStringLiteral("DDE Time out");
    case 31:
        return QStringLiteral("DDE transaction failed");
    case 32:
        return QStringLiteral("DDE busy");
    case 33:
        return QStringLiteral("No association for file extension");
    case 34:
        return QStringLiteral("DLL not found");
    default:
        return QStringLiteral("Unknown error");
    }
}

int ModMainStarten::ResultaatVan(int platformCode) {
    // The platform counts as the operating system's start does (2 file not found, 3 path not
    // found, 5 access denied, 8 out of memory, 11 bad program, 26 to 32 sharing, associations,
    // DDE and libraries); the names of the desktop stand two places further on.
    if (platformCode > 32)
        return Opgestart;
    switch (platformCode) {
    case 0:
        return GeenBronnen;
    case 2:
    case 3:
    case 5:
    case 8:
    case 11:
        return platformCode + 2;
    default:
        return platformCode >= 26 ? platformCode + 2 : platformCode;
    }
}

// --- reading a start command

QString ModMainStarten::WerkMap(const QString& opdracht, const QString& map) {
    if (!map.isEmpty())
        return map;
    const QString tekst = opdracht.trimmed();
    // A command in the system's own form ("\Programma's\Mijn spel\spel.exe", "%TEMP%\x"):
    // up to its last backslash, blanks and all.
    const qsizetype backslash = tekst.lastIndexOf(QLatin1Char('\\'));
    if (backslash >= 0)
        return tekst.left(backslash);
    // A Linux path, or a command line whose program is its first word, so that a "/" in an
    // argument does not count.
    QString programma = tekst;
    if (programma.contains(QLatin1Char(' ')) && !QFileInfo::exists(programma)) {
        const QStringList woorden = QProcess::splitCommand(programma);
        if (!woorden.isEmpty())
            programma = woorden.constFirst();
    }
    const qsizetype slash = programma.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return map;
    return slash == 0 ? QStringLiteral("/") : programma.left(slash);
}

QString ModMainStarten::vulIn(const QString& tekst) {
    // The placeholders of a command are the five values of the session the program may read
    // ("%WINDIR%\Explorer.exe"); any other %...% stays as it is.
    static const QRegularExpression naam(QStringLiteral("%([A-Za-z]+)%"));
    QString uit;
    qsizetype vanaf = 0;
    auto it = naam.globalMatch(tekst);
    while (it.hasNext()) {
        const QRegularExpressionMatch m = it.next();
        const QString waarde = p.platform.environment().variable(m.captured(1));
        if (waarde.isEmpty())
            continue;
        uit += tekst.mid(vanaf, m.capturedStart() - vanaf) + waarde;
        vanaf = m.capturedEnd();
    }
    return uit + tekst.mid(vanaf);
}

QString ModMainStarten::nativePad(const QString& pad) const {
    if (pad.isEmpty())
        return pad;
    // An absolute path with the system's separators behind it, as a placeholder gives it
    // ("%TEMP%\les.pdf"): one path, native throughout.
    if (pad.startsWith(QLatin1Char('/'))) {
        if (!pad.contains(QLatin1Char('\\')) || QFileInfo::exists(pad))
            return pad;
        return QString(pad).replace(QLatin1Char('\\'), QLatin1Char('/'));
    }
    if (pad.contains(QLatin1Char('\\')))
        return p.modMain.Pad(pad);
    return pad;
}

ModMainStarten::Opstart ModMainStarten::LosOp(const QString& opdracht, const QString& parameters,
                                              const QString& map) {
    return opstart(opdracht, parameters, map);
}

ModMainStarten::Opstart ModMainStarten::opstart(const QString& opdrachtIn,
                                                const QString& parametersIn, const QString& mapIn) {
    Opstart uit;
    const QString opdracht = vulIn(opdrachtIn.trimmed());
    const QString parameters = vulIn(parametersIn);
    uit.map = nativePad(vulIn(mapIn));
    const QStringList extra = QProcess::splitCommand(parameters);

    if (opdracht.isEmpty()) {
        uit.resultaat = BestandNietGevonden;
        return uit;
    }
    // The file manager: it opens the folder it is given (the drive of the "cdrom" item).
    const QString laatste = opdracht.section(QRegularExpression(QStringLiteral("[\\\\/]")), -1);
    if (laatste.compare(QLatin1String("explorer.exe"), Qt::CaseInsensitive) == 0) {
        uit.programma = openen();
        uit.argumenten =
            extra.isEmpty() ? QStringList{p.platform.environment().homeFolder()} : extra.mid(0, 1);
        // The system's folder it would have run in means nothing to the file manager here.
        uit.map.clear();
        uit.bestand = uit.argumenten.constFirst();
    } else {
        const QString pad = nativePad(opdracht);
        const QFileInfo info(pad);
        if (heeftScheiding(opdracht) && info.exists()) {
            uit.bestand = info.absoluteFilePath();
            if (info.isFile() && isWindowsSnelkoppeling(uit.bestand)) {
                // A shortcut of another system names a program of that system: nothing here
                // knows how to run it.
                uit.resultaat = OnvolledigeKoppeling;
                return uit;
            }
            if (info.isFile() && BureaubladItem::isItem(uit.bestand)) {
                QFile f(uit.bestand);
                if (!f.open(QIODevice::ReadOnly)) {
                    uit.resultaat = ToegangGeweigerd;
                    return uit;
                }
                const BureaubladItem item = BureaubladItem::lees(f.read(1 << 20));
                if (item.type == u"Link" && !item.url.isEmpty()) {
                    uit.programma = openen();
                    uit.argumenten = {item.url};
                } else {
                    const QStringList woorden = item.opdracht(extra, uit.bestand);
                    if (!item.geldig || woorden.isEmpty()) {
                        uit.resultaat = OnvolledigeKoppeling;
                        return uit;
                    }
                    uit.programma = woorden.constFirst();
                    uit.argumenten = woorden.mid(1);
                }
                if (!item.pad.isEmpty())
                    uit.map = item.pad;
            } else if (info.isFile() && info.isExecutable()) {
                uit.programma = uit.bestand;
                uit.argumenten = extra;
            } else {
                // A folder, a document, a picture: the application chosen for it opens it.
                uit.programma = openen();
                uit.argumenten = {uit.bestand};
            }
        } else {
            // A command line: its first word is the program, the rest go before the parameters.
            const QStringList woorden = QProcess::splitCommand(opdracht);
            if (woorden.isEmpty()) {
                uit.resultaat = BestandNietGevonden;
                return uit;
            }
            uit.programma = nativePad(woorden.constFirst());
            uit.argumenten = woorden.mid(1) + extra;
            uit.bestand = uit.programma;
        }
    }

    // The program must be there: a path as given, a bare name on the PATH.
    if (uit.programma.contains(QLatin1Char('/'))) {
        if (!QFileInfo::exists(uit.programma)) {
            uit.resultaat = BestandNietGevonden;
            return uit;
        }
        uit.bestand = uit.bestand.isEmpty() ? uit.programma : uit.bestand;
    } else {
        const QString gevonden = p.platform.processes().findExecutable(uit.programma);
        if (gevonden.isEmpty()) {
            // Without the program that opens files, no file has an application.
            uit.resultaat = uit.programma == openen() ? GeenKoppeling : BestandNietGevonden;
            return uit;
        }
        if (uit.bestand == uit.programma)
            uit.bestand = gevonden;
    }
    return uit;
}

bool ModMainStarten::IsEigenProgramma(const QString& opdracht) {
    const Opstart o = opstart(opdracht, QString(), QString());
    if (o.bestand.isEmpty())
        return false;
    const QString eigen = p.platform.programFile();
    if (eigen.isEmpty())
        return false;
    const QFileInfo bestand(o.bestand), zelf(eigen);
    if (bestand.exists() && bestand.canonicalFilePath() == zelf.canonicalFilePath())
        return true;
    const QString naam = bestand.fileName().toLower();
    const QString eigenNaam = zelf.fileName().toLower();
    return naam == eigenNaam || naam == eigenNaam + QStringLiteral(".exe");
}

// --- starting and following

int ModMainStarten::ShellExecute(const QString& opdracht, const QString& parameters,
                                 const QString& map) {
    return Procedure<int>(p, "modMain.ShellExecute", GeenBronnen, [&] {
        const Opstart o = opstart(opdracht, parameters, map);
        if (o.resultaat != 0)
            return o.resultaat;
        return ResultaatVan(p.platform.processes().start(o.programma, o.argumenten, o.map).code);
    });
}

ModMainStarten::Gestart ModMainStarten::ShellExecAndWait(const QString& opdracht,
                                                         const QString& parameters,
                                                         const QString& map, bool maximaliseren) {
    return Procedure<Gestart>(p, "modMain.ShellExecAndWait", Gestart{}, [&] {
        const Opstart o = opstart(opdracht, parameters, map);
        if (o.resultaat != 0)
            return Gestart{o.resultaat, 0};
        const StartResult r = p.platform.processes().start(o.programma, o.argumenten, o.map);
        Gestart g{ResultaatVan(r.code), r.started() ? r.pid : 0};
        if (g.proces > 0) {
            Gevolgd gevolgd;
            gevolgd.maximaliseren = maximaliseren;
            m_gevolgd.insert(g.proces, gevolgd);
        }
        return g;
    });
}

bool ModMainStarten::ProcesLeeft(qint64 proces) {
    return Procedure<bool>(p, "modMain.ProcesLeeft", false, [&] {
        if (proces <= 0)
            return false;
        const QList<qint64> levend = p.platform.processes().processesOfStart(proces);
        Gevolgd& g = m_gevolgd[proces];
        bool venster = false;
        if (!levend.isEmpty()) {
            const QList<WindowInfo> vensters = p.platform.windows().topLevelWindows();
            for (const WindowInfo& v : vensters) {
                if (v.pid <= 0 || !levend.contains(v.pid))
                    continue;
                venster = true;
                // Only the first window: a dialog the program opens later keeps its own size.
                if (g.maximaliseren && !g.vensterGezien) {
                    p.platform.windows().maximize(v.handle);
                    g.maximaliseren = false;
                }
            }
        }
        const QDateTime nu = p.platform.clock().now();
        if (!levend.isEmpty())
            g.leegSinds = QDateTime();
        bool leeft = true;
        if (levend.isEmpty()) {
            // Gone when nothing of it shows twice, a moment apart: a process that a wrapper
            // forked as it ended may not be listed yet.
            if (!g.leegSinds.isValid())
                g.leegSinds = nu;
            leeft = g.leegSinds.msecsTo(nu) < LeegMs;
        } else if (venster) {
            g.vensterGezien = true;
            g.zonderVenster = QDateTime();
        } else if (g.vensterGezien) {
            // The program's windows are gone but something of it still runs: a helper it left,
            // or a program between two windows. The wait ends when none comes back in time.
            if (!g.zonderVenster.isValid())
                g.zonderVenster = nu;
            leeft = g.zonderVenster.msecsTo(nu) < NawachtMs;
        }
        if (!leeft)
            m_gevolgd.remove(proces);
        return leeft;
    });
}

void ModMainStarten::KillProcess(qint64 proces) {
    Procedure(p, "modMain.KillProcess", [&] {
        if (proces <= 0)
            return;
        m_gevolgd.remove(proces);
        p.platform.processes().kill(proces);
    });
}

// --- display and drives

bool ModMainStarten::WijzigWeergave(int breedte, int hoogte, int kleurdiepte) {
    return Procedure<bool>(p, "modMain.WijzigWeergave", false, [&] {
        if (breedte <= 0 || hoogte <= 0)
            return false;
        return p.platform.display().setMode(breedte, hoogte, kleurdiepte);
    });
}

int ModMainStarten::Kleurdiepte() {
    return p.platform.display().current().depth;
}

QStringList ModMainStarten::LaadSchijven() {
    return Procedure<QStringList>(p, "modMain.LaadSchijven", QStringList(),
                                  [&] { return p.platform.environment().removableMedia(); });
}

} // namespace tk
