#include "ModTaal.h"

namespace tk {

ModTaal::ModTaal(Programma& p) : p(p), m_tabel(StringTable::builtIn()) {}

QString ModTaal::loadResourceString(int id, int taal) const {
    return m_tabel.text(id, taal);
}

QString ModTaal::LaadTekst(int id, int taal, bool stil) const {
    QString tekst = loadResourceString(id, taal);
    const QString titel = ProductTitel.trimmed();
    tekst.replace(QStringLiteral("%productnaam%"), titel);
    tekst.replace(QStringLiteral("%productnaam_u%"), titel.toUpper());
    tekst.replace(QStringLiteral("%nieuwe_regel%"), QStringLiteral("\r\n"));
    if (!stil && tekst.trimmed().isEmpty())
        tekst = QStringLiteral("[niet vertaald: %1]").arg(id);
    return tekst;
}

} // namespace tk
