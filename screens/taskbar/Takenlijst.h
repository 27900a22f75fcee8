#pragma once

#include "screens/taskbar/ModTaken.h"

#include <QHash>
#include <QImage>
#include <QList>

namespace tk {

class Programma;

// The task tracking that both taskbars share: lstTaken, the scratch list rebuilt at every tick,
// and lstTaken2, the kept list in order of arrival, with the icon of each kept task.
class Takenlijst {
public:
    explicit Takenlijst(Programma& p);

    // One tick: rebuilds lstTaken, appends new tasks to lstTaken2, removes the ones that are
    // gone and renames the ones whose title changed in place, so that no task moves. True when
    // lstTaken2 changed.
    bool Bijwerken();

    // The kept tasks that are programs, not windows of the shell itself.
    int AantalProgrammas() const;
    // A window of the shell itself, known by the words of its title ("tafel@" or "krater", in
    // any case): it is never a task of its own.
    static bool IsEigenVenster(const QString& titel);

    // The 16 by 16 icon of a kept task; null when the window has none (yet).
    QImage icoon(quint64 handle) const { return m_iconen.value(handle).beeld; }

    ModTaken modTaken;
    QList<Taak> lstTaken;
    QList<Taak> lstTaken2;

    // A window without an icon is asked again every this many ticks, up to IcoonPogingen
    // times: many programs set theirs only after the window is up, and some never do.
    static constexpr int IcoonOpnieuw = 8;
    static constexpr int IcoonPogingen = 5;

private:
    // True when an icon came that was not there before.
    bool haalIconen();
    Programma& p;
    struct Icoon {
        QImage beeld;
        int gevraagd = 0;
    };
    QHash<quint64, Icoon> m_iconen;
    int m_tik = 0;
};

} // namespace tk
