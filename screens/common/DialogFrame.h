#pragma once

#include "screens/common/PaintedControls.h"

#include <QColor>
#include <QDialog>
#include <QList>
#include <QRect>
#include <QString>
#include <functional>

namespace tk {

// The frame of the program's own dialog windows: no system frame, a caption band to drag it by,
// a light body, and buttons, option buttons and check boxes painted in the product's look
// rather than the desktop's. A subclass paints its body in tekenInhoud (in body coordinates,
// below the band) and lists its click areas in `vlakken`; keys Enter and Escape go to the
// default button and to annuleren(). The colours are fixed, not the theme's: these windows must
// stand even when a theme fails, since they report that fault.
//
// The painted areas are reachable without a mouse: Tab and Shift+Tab go through the window's
// own widgets and then its areas, the arrows move between the areas, Space presses the one with
// the focus ring and Enter that one or else the default button. A screen reader sees each area
// as a button, option or check box (PaintedControls), and the texts a subclass names in
// voegTekstenToe.
class DialogFrame : public QDialog, public PaintedControls {
    Q_OBJECT
public:
    static constexpr int Kop = 28; // the caption band

    enum class Soort { Knop, Optie, Vinkje };
    struct Vlak {
        Soort soort = Soort::Knop;
        QRect plek; // in body coordinates
        QString tekst;
        bool enabled = true;
        bool aan = false;       // an option chosen, a box ticked
        bool standaard = false; // the button Enter presses
        std::function<void()> klik;
    };

    explicit DialogFrame(QWidget* ouder = nullptr);

    // The palette of every dialog.
    static QColor kopKleur() { return {30, 58, 95}; }
    static QColor lijfKleur() { return {244, 247, 251}; }
    static QColor tekstKleur() { return {20, 30, 45}; }
    static QColor accentKleur() { return {76, 175, 80}; }

    // Paints an icon of the question window: 0 a question mark, 1 information.
    static void tekenIcoon(class QPainter& p, const QRect& plek, int icoon);
    // Paints one click area.
    static void tekenVlak(class QPainter& p, const Vlak& v, bool hover, bool ingedrukt);

    // Sizes the window for a body of this size and centres it on the screen.
    void zetLijf(int breedte, int hoogte);
    // A point or rectangle of the body in the window's coordinates.
    static QRect inVenster(const QRect& r) { return r.translated(0, Kop); }

protected:
    // The subclass refills `vlakken` and its child widgets from its model.
    virtual void bijwerken() = 0;
    virtual void tekenInhoud(QPainter& p) = 0;
    // Escape, and the close of the window: the subclass tells its model.
    virtual void annuleren() = 0;
    // After a click or key: refresh, and close once the model has its answer.
    void naActie();
    // By default the window is done once an OK or a cancel set `m_klaar`.
    virtual bool klaar() const { return m_klaar; }

    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void reject() override;
    void showEvent(QShowEvent*) override;
    bool focusNextPrevChild(bool volgende) override;

    // The texts the body paints (a question, a countdown), for a screen reader; none by default.
    virtual void voegTekstenToe(QList<PaintedControl>&) const {}
    QList<PaintedControl> maakGeschilderd() const override;
    void druk(const PaintedControl& control) override;

public:
    // The index in `vlakken` of the area with the focus ring, or -1.
    int focusVlak() const { return m_focus; }

protected:
    // Adds the row of two buttons at the foot of a body `breedte` wide: OK on the left as the
    // default button, which runs `okKlik` and ends the window, and on the right the one that
    // cancels through annuleren().
    void voegKnoppenToe(int breedte, int boven, int hoogte, const QString& ok, bool okEnabled,
                        std::function<void()> okKlik, const QString& annuleer);

    QList<Vlak> vlakken;
    bool m_klaar = false;

private:
    int vlakOp(const QPoint& venster) const;
    // Runs an area's click and refreshes the window.
    void drukVlak(int index);
    // The enabled area `stap` places from `vanaf` (wrapping), or -1 when none is enabled.
    int volgendVlak(int vanaf, int stap) const;
    // Puts the focus ring on an area (-1: none) and tells a screen reader.
    void zetFocus(int index);
    int m_focus = -1;
    int m_gemeld = -1;
    int m_hover = -1;
    int m_ingedrukt = -1;
    bool m_slepen = false;
    QPoint m_sleepBegin;
};

} // namespace tk
