#pragma once

#include "InstellingenTeksten.h"

#include <QList>
#include <QString>
#include <QStringList>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tk {

// What the views of the maintenance panels share: the panel's heading, its look, and bringing a
// model's text, list or button onto a standard control without disturbing an edit in progress,
// with the control's accessible name taken from its caption.
class PaneelWidgets {
public:
    // The name a screen reader says for a control with this caption ("Theme:" is "Theme").
    static QString naam(const QString& caption);
    static QLabel* kop(QWidget* ouder);
    static void stijl(QWidget* paneel);
    static void tekst(QLineEdit* veld, const QString& tekst, const QString& caption);
    static void knop(QPushButton* knop, const QString& caption, bool enabled);
    static void lijst(QComboBox* lijst, const QList<InstellingenTeksten::Keuze>& items, int index,
                      const QString& caption);
    static void lijst(QComboBox* lijst, const QStringList& items, int index,
                      const QString& caption);
};

} // namespace tk
