#include "OnderhoudServerView.h"

#include "FrmChangelogView.h"
#include "OnderhoudServer.h"
#include "PaneelWidgets.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tk {

OnderhoudServerView::OnderhoudServerView(OnderhoudServer& model, QWidget* ouder)
    : QWidget(ouder), m(model) {
    auto* hoofd = new QVBoxLayout(this);
    m_kop = PaneelWidgets::kop(this);
    hoofd->addWidget(m_kop);

    m_updates = new QGroupBox(this);
    auto* g = new QGridLayout(m_updates);
    auto label = [&](QLabel*& l, int rij) {
        l = new QLabel(m_updates);
        g->addWidget(l, rij, 0);
    };
    label(m_lblClient, 0);
    m_client = new QLabel(m_updates);
    g->addWidget(m_client, 0, 1, 1, 2);
    label(m_lblServer, 1);
    m_server = new QLabel(m_updates);
    g->addWidget(m_server, 1, 1, 1, 2);
    label(m_lblLocatie, 2);
    txtServerlocatie = new QLineEdit(m_updates);
    txtServerlocatie->setReadOnly(true);
    m_lblLocatie->setBuddy(txtServerlocatie);
    g->addWidget(txtServerlocatie, 2, 1);
    for (int i = 1; i <= 5; ++i) {
        cmdServer[size_t(i)] =
            new QPushButton(i == 3 || i == 4 ? static_cast<QWidget*>(this) : m_updates);
        connect(cmdServer[size_t(i)], &QPushButton::clicked, this,
                [this, i] { m.cmdServer_Click(i); });
    }
    g->addWidget(cmdServer[1], 2, 2);
    label(m_lblAutomatisch, 3);
    label(m_lblBeta, 4);
    for (int i = 1; i <= 2; ++i) {
        cmbServer[size_t(i)] = new QComboBox(m_updates);
        g->addWidget(cmbServer[size_t(i)], 2 + i, 1);
        connect(cmbServer[size_t(i)], &QComboBox::activated, this,
                [this, i](int keuze) { m.cmbServer_Click(i, keuze == 0); });
    }
    m_lblAutomatisch->setBuddy(cmbServer[1]);
    m_lblBeta->setBuddy(cmbServer[2]);
    m_noot = new QLabel(m_updates);
    g->addWidget(m_noot, 5, 1, 1, 2);
    auto* updateKnoppen = new QHBoxLayout;
    updateKnoppen->addWidget(cmdServer[2]);
    updateKnoppen->addWidget(cmdServer[5]);
    updateKnoppen->addStretch(1);
    g->addLayout(updateKnoppen, 6, 0, 1, 3);
    g->setColumnStretch(1, 1);
    hoofd->addWidget(m_updates);

    m_backup = new QGroupBox(this);
    auto* b = new QHBoxLayout(m_backup);
    cmbBackup = new QComboBox(m_backup);
    b->addWidget(cmbBackup, 1);
    connect(cmbBackup, &QComboBox::activated, this, [this](int i) { m.cmbBackup_Click(i); });
    for (int i = 0; i < 2; ++i) {
        cmdBackup[size_t(i)] = new QPushButton(m_backup);
        b->addWidget(cmdBackup[size_t(i)]);
        connect(cmdBackup[size_t(i)], &QPushButton::clicked, this,
                [this, i] { m.cmdBackup_Click(i); });
    }
    hoofd->addWidget(m_backup);

    auto* knoppen = new QHBoxLayout;
    knoppen->addStretch(1);
    knoppen->addWidget(cmdServer[3]);
    knoppen->addWidget(cmdServer[4]);
    hoofd->addLayout(knoppen);
    hoofd->addStretch(1);

    PaneelWidgets::stijl(this);
    m.onChanged = [this] { bijwerken(); };
    m.toonChangelog = [this](const QString& adres) {
        FrmChangelogView venster(adres, m.changelogTitel, m.changelogSluiten, this);
        venster.exec();
    };
    bijwerken();
}

OnderhoudServerView::~OnderhoudServerView() {
    m.onChanged = nullptr;
    m.toonChangelog = nullptr;
}

void OnderhoudServerView::bijwerken() {
    using W = PaneelWidgets;
    m_kop->setText(m.titel());
    m_updates->setTitle(m.fraUpdates);
    m_backup->setTitle(m.fraBackup);
    m_backup->setAccessibleName(W::naam(m.fraBackup));
    m_lblClient->setText(m.lblClientversie);
    m_client->setText(m.lblClientversieWaarde);
    m_client->setAccessibleName(W::naam(m.lblClientversie));
    m_lblServer->setText(m.lblServerversie);
    m_server->setText(m.lblServerversieWaarde);
    m_server->setAccessibleName(W::naam(m.lblServerversie));
    const BewerkPaneel::Veld& locatie = m.velden[OnderhoudServer::Locatie];
    m_lblLocatie->setText(locatie.caption);
    W::tekst(txtServerlocatie, locatie.waarde, locatie.caption);
    m_lblAutomatisch->setText(m.velden[OnderhoudServer::Automatisch].caption);
    m_lblBeta->setText(m.velden[OnderhoudServer::Beta].caption);
    m_noot->setText(m.lblNoot);
    const bool aan = !m.bezig;
    for (int veld : {OnderhoudServer::Automatisch, OnderhoudServer::Beta}) {
        const BewerkPaneel::Veld& v = m.velden[veld];
        W::lijst(cmbServer[size_t(veld)], v.keuzes, m.ja(veld) ? 0 : 1, v.caption);
        cmbServer[size_t(veld)]->setEnabled(aan);
    }
    // Browse, Check and Changelog are always there; Save and Restore are the pattern's.
    for (size_t i : {1, 2, 5})
        W::knop(cmdServer[i], m.cmdServer[i], aan);
    W::knop(cmdServer[3], m.cmdServer[3], aan && m.knoppen[BewerkPaneel::Opslaan].ingeschakeld);
    W::knop(cmdServer[4], m.cmdServer[4], aan && m.knoppen[BewerkPaneel::Herstellen].ingeschakeld);
    W::lijst(cmbBackup, m.cmbBackup, m.backupIndex, m.fraBackup);
    cmbBackup->setEnabled(aan && m.fraBackupEnabled);
    for (size_t i = 0; i < 2; ++i)
        W::knop(cmdBackup[i], m.cmdBackup[i], aan && m.cmdBackupEnabled[i]);
}

} // namespace tk
