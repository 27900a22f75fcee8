#include "FrmChangelogView.h"

#include "PaneelWidgets.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace tk {

FrmChangelogView::FrmChangelogView(const QString& adres, const QString& titel,
                                   const QString& sluiten, QWidget* ouder)
    : QDialog(ouder) {
    setWindowTitle(titel);
    resize(640, 480);
    auto* lay = new QVBoxLayout(this);
    brwChangelog = new QTextBrowser(this);
    brwChangelog->setOpenLinks(false);
    brwChangelog->setAccessibleName(PaneelWidgets::naam(titel));
    lay->addWidget(brwChangelog, 1);
    auto* knop = new QPushButton(sluiten, this);
    knop->setAccessibleName(PaneelWidgets::naam(sluiten));
    knop->setDefault(true);
    lay->addWidget(knop, 0, Qt::AlignRight);
    connect(knop, &QPushButton::clicked, this, &QDialog::accept);
    m_net = new QNetworkAccessManager(this);
    QNetworkReply* antwoord = m_net->get(QNetworkRequest(QUrl(adres)));
    connect(antwoord, &QNetworkReply::finished, this, [this, antwoord] {
        antwoord->deleteLater();
        const QByteArray inhoud = antwoord->readAll();
        if (antwoord->error() != QNetworkReply::NoError)
            brwChangelog->setPlainText(antwoord->errorString());
        else
            brwChangelog->setHtml(QString::fromUtf8(inhoud));
    });
}

} // namespace tk
