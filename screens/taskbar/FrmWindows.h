#pragma once

#include "core/Form.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// The small window over the system's desktop while the user works there: one button goes back to
// the program at once, the other asks first and then leaves the system's desktop for the program.
// Timer1 keeps the window drifting over the screen, so that it hides nothing for long.
class FrmWindows : public Form {
public:
    explicit FrmWindows(Programma& p);
    QString formNaam() const override { return QStringLiteral("frmWindows"); }
    void LaadTaal() override;

    // Shows the window with the account to log on with again.
    void Laden(const QString& account, const QString& wachtwoord);
    void cmdKnop_Click(int index);
    // One step of the drift: the window moves `Stap` pixels each way and turns at the edges of
    // `scherm`.
    void Timer1_Timer();

    static constexpr int Breedte = 220;
    static constexpr int Hoogte = 84;
    static constexpr int Stap = 2;

    QString Caption;
    QString cmdKnop[2];
    QString account, wachtwoord;
    bool Zichtbaar = false;
    QRect scherm{0, 0, 1024, 768}; // set by the view
    QPoint positie{16, 16};
    QPoint richting{Stap, Stap};
    QTimer Timer1;
    std::function<void()> onChanged;

private:
    // Logs on again as the program's account of this mode, or (management) shows the program.
    void terug(const QString& netwerkAccount, const QString& netwerkWachtwoord);
    void gewijzigd();
    Programma& p;
};

} // namespace tk
