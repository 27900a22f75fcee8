#include "Takenlijst.h"

#include "core/Programma.h"

#include <QSet>
#include <algorithm>

namespace tk {

Takenlijst::Takenlijst(Programma& p) : modTaken(p), p(p) {}

bool Takenlijst::IsEigenVenster(const QString& titel) {
    return titel.contains(QStringView(u"krater"), Qt::CaseInsensitive) ||
           titel.contains(QStringView(u"tafel@"), Qt::CaseInsensitive);
}

int Takenlijst::AantalProgrammas() const {
    return int(std::count_if(lstTaken2.cbegin(), lstTaken2.cend(),
                             [](const Taak& t) { return !IsEigenVenster(t.titel); }));
}

bool Takenlijst::Bijwerken() {
    ++m_tik;
    // A failed enumeration is passed over: the kept list stays as it was until the next tick.
    try {
        modTaken.WhichWindows(lstTaken);
    } catch (...) {
        return false;
    }

    QHash<quint64, QString> nu;
    nu.reserve(lstTaken.size());
    for (const Taak& t : lstTaken)
        nu.insert(t.handle, t.titel);

    bool gewijzigd = false;
    // Gone: removed. Still there with another title: renamed where it stands.
    for (qsizetype i = lstTaken2.size() - 1; i >= 0; --i) {
        const auto gevonden = nu.constFind(lstTaken2[i].handle);
        if (gevonden == nu.constEnd()) {
            m_iconen.remove(lstTaken2[i].handle);
            lstTaken2.removeAt(i);
            gewijzigd = true;
        } else if (lstTaken2[i].titel != *gevonden) {
            lstTaken2[i].titel = *gevonden;
            gewijzigd = true;
        }
    }
    // New: appended in the manager's order.
    QSet<quint64> bekend;
    bekend.reserve(lstTaken2.size());
    for (const Taak& t : std::as_const(lstTaken2))
        bekend.insert(t.handle);
    for (const Taak& t : std::as_const(lstTaken))
        if (!bekend.contains(t.handle)) {
            lstTaken2.append(t);
            bekend.insert(t.handle);
            gewijzigd = true;
        }
    return haalIconen() || gewijzigd;
}

bool Takenlijst::haalIconen() {
    const bool opnieuw = m_tik % IcoonOpnieuw == 1;
    bool nieuw = false;
    for (const Taak& t : std::as_const(lstTaken2)) {
        Icoon& icoon = m_iconen[t.handle];
        const bool vraag = icoon.gevraagd == 0 ||
                           (opnieuw && icoon.beeld.isNull() && icoon.gevraagd <= IcoonPogingen);
        if (!vraag)
            continue;
        ++icoon.gevraagd;
        icoon.beeld = modTaken.GetIcon(t.handle);
        nieuw |= !icoon.beeld.isNull();
    }
    return nieuw;
}

} // namespace tk
