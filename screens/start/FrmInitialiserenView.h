#pragma once

#include "screens/start/VoortgangVenster.h"

namespace tk {

class FrmInitialiseren;

// The progress window of the first checks, on the screen while the model is shown: the info
// line and the rows made visible so far, each with a green tick (passed) or a red cross
// (failed); the sub-rows stand indented. Not modal: the start-up goes on while it shows.
class FrmInitialiserenView : public VoortgangVenster {
    Q_OBJECT
public:
    explicit FrmInitialiserenView(FrmInitialiseren& model, QWidget* ouder = nullptr);
    ~FrmInitialiserenView() override;

    static constexpr int Breedte = 360;
    static constexpr int RijHoogte = 24;
    static constexpr int RijenBoven = 46;
    // The rectangle of the n-th visible row, and where its mark stands.
    static QRect rijVak(int n) { return QRect(24, RijenBoven + n * RijHoogte, Breedte - 48, 22); }
    static QRect markVak(const QRect& rij) {
        return QRect(rij.right() - 20, rij.top() + 2, 18, 18);
    }
    // Brings the window in line with the model: shown, hidden, resized to its rows.
    void bijwerken() override;

protected:
    void tekenInhoud(QPainter& p) override;

private:
    FrmInitialiseren& m;
};

} // namespace tk
