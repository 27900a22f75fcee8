#pragma once

#include "core/Programma.h"
#include "platform/fake/FakePlatform.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ScriptedDialogs.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tk::test {

// A fresh workstation for one test: an empty program folder in a temporary folder, the fake
// platform, scripted dialogs and a Programma over them.
class Werkplek {
public:
    Werkplek();
    QString map() const { return m_map.path(); }
    // Native path of a file below the program folder ("Data/Instellingen.ini").
    QString pad(const QString& relatief) const { return m_map.filePath(relatief); }
    QByteArray lees(const QString& relatief) const;
    void schrijf(const QString& relatief, const QByteArray& inhoud) const;
    // Copies the files below a folder to a folder below the program folder ("Afbeeldingen/").
    void kopieer(const QString& bron, const QString& doelMap) const;
    // The texts of the messages shown so far.
    QStringList meldingen() const { return dialogen.teksten(); }

    QTemporaryDir m_map;
    FakePlatform platform;
    ScriptedDialogs dialogen;
    Programma p;
};

} // namespace tk::test
