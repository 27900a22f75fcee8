#pragma once

#include "screens/start/VoortgangVenster.h"

namespace tk {

class FrmActiveren2;

// The window that asks the user to wait while the take-over is carried out; it stands while the
// model is shown and has no buttons.
class FrmActiveren2View : public VoortgangVenster {
    Q_OBJECT
public:
    explicit FrmActiveren2View(FrmActiveren2& model, QWidget* ouder = nullptr);
    ~FrmActiveren2View() override;
    void bijwerken() override;

protected:
    void tekenInhoud(QPainter& p) override;

private:
    FrmActiveren2& m;
};

} // namespace tk
