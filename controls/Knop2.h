#pragma once

#include "controls/SkinnedButton.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QMap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVariant>
#include <functional>

namespace tk {

// The picture-drawn button of the start screen: a mask and three pictures composited over the
// window behind it, a caption on top, and a hover timer that decides which picture shows.
// No widget code: SkinnedButtonView shows it, FrmMainView and the tests drive it.
class Knop2 : public SkinnedButton {
public:
    Knop2();

    // --- persisted properties, in their stored order
    QColor ForeColor = Qt::black;
    // Enabled, X and Y are SkinnedButton's.
    QFont Font;
    QImage Afbeelding_Mask;
    QImage Afbeelding_Normaal;
    QImage Afbeelding_Hover;
    QImage Afbeelding_Down;
    QString Groepnummer = QStringLiteral("-1");
    QString Tekst;
    QImage MouseIcon;
    qint16 MousePointer = 99;

    // --- run time
    // The window behind the button (lhDC): what the button is drawn over at (X, Y).
    const QImage* lhDC = nullptr;
    // The mask of the group this button belongs to (picGroep_Mask), used when Groepnummer is not
    // "-1".
    const QImage* picGroep_Mask = nullptr;

    // Tag as the form sets it (ToolTipText and Visible are SkinnedButton's).
    QString Tag;

    // --- events, forwarded unchanged (Click, MouseDown and MouseUp are SkinnedButton's)
    std::function<void()> DblClick;
    std::function<void(int knop, int shift, QPoint plek)> MouseMove;
    std::function<void(int toets, int shift)> KeyDown;
    std::function<void(int toets, int shift)> KeyUp;
    std::function<void(int teken)> KeyPress;

    // The mask in use (own mask for a bare button, the group's otherwise).
    const QImage& mask() const;
    // The control's size: the mask's, or the normal picture's without a mask.
    QSize Grootte() const override;
    void UserControl_MouseMove(int knop, int shift, QPoint plek) override;
    void UserControl_DblClick() override;
    QString tekst() const override { return Tekst; }
    // The composited picture of the present state (Teken).
    QImage Teken() const override;

    // --- persisted form: InitProperties, ReadProperties, WriteProperties
    void UserControl_InitProperties();
    void UserControl_ReadProperties(const QMap<QString, QVariant>& eigenschappen);
    QMap<QString, QVariant> UserControl_WriteProperties() const;

    // The three raster steps over `achter` (the part of the window behind, of the mask's size):
    // SRCCOPY of the background, MERGEPAINT of the mask, SRCAND of the picture. The picture is
    // taken through the mask, so that a picture drawn on black (as a cloud) still leaves the
    // background around the mask unchanged. A picture of another size is fitted to the mask.
    static QImage samenstellen(const QImage& achter, const QImage& masker, const QImage& beeld);
    // The caption centred by its measured size, line by line.
    static void tekenTekst(QImage& beeld, const QString& tekst, const QFont& font,
                           const QColor& kleur);

protected:
    bool heeftIngedruktBeeld() const override { return !Afbeelding_Down.isNull(); }

private:
    const QImage& huidigBeeld() const;
};

} // namespace tk
