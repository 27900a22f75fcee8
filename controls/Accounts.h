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

// The account button of the start-screen taskbar: three pictures, a caption beside the
// picture, colours for rest, hover and the chosen account. No widget code: SkinnedButtonView
// shows it.
class Accounts : public SkinnedButton {
public:
    Accounts();

    // --- persisted (Enabled, X and Y are SkinnedButton's)
    QFont Font;
    QString Tekst;
    QImage Image_Up;
    QImage Image_Down;
    QImage Image_Hover;
    bool Geselecteerd = false;
    int Stijl = 0;
    QColor Achtergrondkleur = QColor(255, 255, 255);
    QColor Teksthover = QColor(0, 0, 0);
    QColor Normale_kleur = QColor(0, 0, 0);
    QColor Hoverkleur = QColor(0, 0, 0);
    bool Transparant = false;
    qint16 Positie_knop = 0; // 0 the picture left of the caption, 1 right of it

    // --- run time
    const QImage* lhDC = nullptr; // the bar behind, for Transparant
    int Hoogte = 24;

    // The picture's width plus the measured caption's width.
    int Wijdte() const;
    QSize Grootte() const override { return {Wijdte(), Hoogte}; }
    QString tekst() const override { return Tekst; }
    // The chosen account stays shown pressed.
    bool aanvinkbaar() const override { return true; }
    bool aangevinkt() const override { return Geselecteerd; }
    // The picture that the present state shows.
    const QImage& huidigBeeld() const;
    // The caption's colour in the present state.
    QColor tekstKleur() const;
    QImage Teken() const override;

    void UserControl_InitProperties();
    void UserControl_ReadProperties(const QMap<QString, QVariant>& eigenschappen);
    QMap<QString, QVariant> UserControl_WriteProperties() const;

protected:
    bool heeftIngedruktBeeld() const override { return !Image_Down.isNull(); }
};

} // namespace tk
