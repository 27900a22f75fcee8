#pragma once

#include <QFont>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

namespace tk {

// The password field and the log-on button of a log-on panel, made hidden on `ouder` in the
// program's fonts and wired to the model's procedures: what is typed goes to txtWachtwoord,
// Enter to txtWachtwoord_KeyPress(13), the button to knopAanmelden_Click. The start screen and
// the desktop both log teachers on this way; their views place and show the two.
struct LogonFields {
    template <class Model> LogonFields(QWidget* ouder, Model& m) {
        wachtwoord = new QLineEdit(ouder);
        wachtwoord->setEchoMode(QLineEdit::Password);
        wachtwoord->setFont(QFont(QStringLiteral("Verdana"), 11));
        wachtwoord->hide();
        QObject::connect(wachtwoord, &QLineEdit::textEdited, ouder,
                         [&m](const QString& t) { m.txtWachtwoord = t; });
        QObject::connect(wachtwoord, &QLineEdit::returnPressed, ouder,
                         [&m] { m.txtWachtwoord_KeyPress(13); });
        knop = new QPushButton(ouder);
        knop->setFont(QFont(QStringLiteral("Verdana"), 9, QFont::Bold));
        knop->hide();
        QObject::connect(knop, &QPushButton::clicked, ouder, [&m] { m.knopAanmelden_Click(); });
    }

    QLineEdit* wachtwoord;
    QPushButton* knop;
};

} // namespace tk
