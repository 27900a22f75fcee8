#include "Werkplek.h"

#include "core/FrmFoutrapportage.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace tk::test {

Werkplek::Werkplek()
    : Werkplek([](const QString& map) { return std::make_unique<FakePlatform>(map); }) {}

Werkplek::Werkplek(const MaakPlatform& maak)
    : m_platform(maak(m_map.path())), platform(*m_platform), p(platform) {
    p.dialogen = &dialogen;
    dialogen.opModaal = [this](Form& f) {
        if (&f == &p.frmFoutrapportage)
            rapporten.append(p.frmFoutrapportage.Procedure);
    };
}

QByteArray Werkplek::lees(const QString& relatief) const {
    QFile f(pad(relatief));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

void Werkplek::schrijf(const QString& relatief, const QByteArray& inhoud) const {
    const QString doel = pad(relatief);
    QDir().mkpath(QFileInfo(doel).path());
    QFile f(doel);
    if (f.open(QIODevice::WriteOnly))
        f.write(inhoud);
}

void Werkplek::kopieer(const QString& bron, const QString& doelMap) const {
    QDirIterator it(bron, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString bestand = it.next();
        const QString doel = pad(doelMap + QDir(bron).relativeFilePath(bestand));
        QDir().mkpath(QFileInfo(doel).path());
        QFile::copy(bestand, doel);
    }
}

QString Werkplek::logboek() const {
    QString alles;
    QDirIterator it(pad(QStringLiteral("Logboek")), QDir::Files);
    while (it.hasNext()) {
        QFile f(it.next());
        if (f.open(QIODevice::ReadOnly))
            alles += QString::fromUtf8(f.readAll());
    }
    return alles;
}

} // namespace tk::test
