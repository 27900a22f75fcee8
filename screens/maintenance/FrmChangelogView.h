#pragma once

#include <QDialog>

class QNetworkAccessManager;
class QTextBrowser;

namespace tk {

// frmChangelog: the change log of this version, fetched from the school's web site and shown as
// a page of text, with a Close button.
class FrmChangelogView : public QDialog {
    Q_OBJECT
public:
    FrmChangelogView(const QString& adres, const QString& titel, const QString& sluiten,
                     QWidget* ouder = nullptr);
    QTextBrowser* brwChangelog = nullptr;

private:
    QNetworkAccessManager* m_net = nullptr;
};

} // namespace tk
