#pragma once

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
// picture, colours for rest, hover and the chosen account. No widget code: AccountsView shows it.
class Accounts {
public:
    Accounts();

    // --- persisted
    bool Enabled = true;
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
    qint16 X = 0;
    qint16 Y = 0;
    bool Transparant = false;
    qint16 Positie_knop = 0; // 0 the picture left of the caption, 1 right of it

    // --- run time
    const QImage* lhDC = nullptr; // the bar behind, for Transparant
    int toestand = 0;             // 0 up, 1 pressed, 2 hover
    bool ingedrukt = false;
    bool Visible = true;
    int Hoogte = 24;

    std::function<void()> Click;
    std::function<void(int knop, int shift, QPoint plek)> MouseDown;
    std::function<void(int knop, int shift, QPoint plek)> MouseUp;

    // The picture's width plus the measured caption's width.
    int Wijdte() const;
    QSize Grootte() const { return {Wijdte(), Hoogte}; }
    // The same hover rules as Knop2.
    bool tmrHover_Timer(QPoint cursor, QRect venster);
    void UserControl_MouseDown(int knop, int shift, QPoint plek);
    void UserControl_MouseUp(int knop, int shift, QPoint plek);
    void UserControl_Click();
    // The picture that the present state shows.
    const QImage& huidigBeeld() const;
    // The caption's colour in the present state.
    QColor tekstKleur() const;
    QImage Teken() const;

    void UserControl_InitProperties();
    void UserControl_ReadProperties(const QMap<QString, QVariant>& eigenschappen);
    QMap<QString, QVariant> UserControl_WriteProperties() const;
};

} // namespace tk
