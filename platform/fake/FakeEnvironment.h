#pragma once

#include "platform/Environment.h"

#include <QDir>
#include <QHash>

namespace tk {

// The session's facts for a test. By default an NT-family machine "LOKAAL-12" with the account
// "leerling"; playWindows98() turns it into the other family.
class FakeEnvironment : public Environment {
public:
    FakeEnvironment();
    QString variable(const QString& name) override { return m_vars.value(name.toUpper()); }
    QString computerName() override { return m_computer; }
    OsVersion osVersion() override { return m_version; }
    QStringList removableMedia() override { return media; }
    // The account's real home folder: the file manager opens it, nothing is written there.
    QString homeFolder() override { return QDir::homePath(); }

    void setVariable(const QString& name, const QString& value) {
        m_vars.insert(name.toUpper(), value);
    }
    void setComputerName(const QString& name) { m_computer = name; }
    void setOsVersion(OsVersion v) { m_version = v; }
    void playWindows98() { m_version = OsVersion{1, 4, 10}; }
    void playNt(int major = 5, int minor = 1) { m_version = OsVersion{2, major, minor}; }

    QStringList media; // what removableMedia() answers

private:
    QHash<QString, QString> m_vars;
    QString m_computer;
    OsVersion m_version;
};

} // namespace tk
