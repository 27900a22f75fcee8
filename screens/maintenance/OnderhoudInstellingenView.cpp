#include "OnderhoudInstellingenView.h"

#include "OnderhoudInstellingen.h"
#include "PaneelWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tk {

OnderhoudInstellingenView::OnderhoudInstellingenView(OnderhoudInstellingen& model, QWidget* ouder)
    : QWidget(ouder), m(model) {
    auto* hoofd = new QVBoxLayout(this);
    m_kop = PaneelWidgets::kop(this);
    hoofd->addWidget(m_kop);

    m_wachtwoorden = new QGroupBox(this);
    auto* ww = new QGridLayout(m_wachtwoorden);
    for (int i = 0; i < 2; ++i) {
        m_lblWachtwoord[size_t(i)] = new QLabel(m_wachtwoorden);
        txtWachtwoord[size_t(i)] = new QLineEdit(m_wachtwoorden);
        m_lblWachtwoord[size_t(i)]->setBuddy(txtWachtwoord[size_t(i)]);
        ww->addWidget(m_lblWachtwoord[size_t(i)], i, 0);
        ww->addWidget(txtWachtwoord[size_t(i)], i, 1);
        connect(txtWachtwoord[size_t(i)], &QLineEdit::textEdited, this,
                [this, i](const QString& t) { m.txtInstellingen_wachtwoord_Change(i, t); });
    }
    chckWachtwoord = new QCheckBox(m_wachtwoorden);
    ww->addWidget(chckWachtwoord, 2, 1);
    connect(chckWachtwoord, &QCheckBox::toggled, this,
            [this](bool aan) { m.chckInstellingen_Wachtwoord_Click(aan); });
    hoofd->addWidget(m_wachtwoorden);

    m_internet = new QGroupBox(this);
    auto* in = new QGridLayout(m_internet);
    m_lblInternet = new QLabel(m_internet);
    txtInternet = new QLineEdit(m_internet);
    m_lblInternet->setBuddy(txtInternet);
    in->addWidget(m_lblInternet, 0, 0);
    in->addWidget(txtInternet, 1, 0);
    connect(txtInternet, &QLineEdit::textEdited, this,
            [this](const QString& t) { m.txtInstellingen_Internet_Change(t); });
    hoofd->addWidget(m_internet);

    m_email = new QGroupBox(this);
    auto* em = new QGridLayout(m_email);
    m_lblUitleg = new QLabel(m_email);
    m_lblUitleg->setWordWrap(true);
    em->addWidget(m_lblUitleg, 0, 0, 1, 2);
    for (int i = 0; i < 3; ++i) {
        m_lblEmail[size_t(i)] = new QLabel(m_email);
        txtEmail[size_t(i)] = new QLineEdit(m_email);
        m_lblEmail[size_t(i)]->setBuddy(txtEmail[size_t(i)]);
        em->addWidget(m_lblEmail[size_t(i)], i + 1, 0);
        em->addWidget(txtEmail[size_t(i)], i + 1, 1);
        connect(txtEmail[size_t(i)], &QLineEdit::textEdited, this,
                [this, i](const QString& t) { m.txtInstellingen_Email_Change(i, t); });
    }
    hoofd->addWidget(m_email);

    m_taal = new QGroupBox(this);
    auto* tl = new QGridLayout(m_taal);
    m_lblThema = new QLabel(m_taal);
    cmbThema = new QComboBox(m_taal);
    m_lblThema->setBuddy(cmbThema);
    m_lblTaal = new QLabel(m_taal);
    cmbTaal = new QComboBox(m_taal);
    m_lblTaal->setBuddy(cmbTaal);
    tl->addWidget(m_lblThema, 0, 0);
    tl->addWidget(cmbThema, 0, 1);
    tl->addWidget(m_lblTaal, 1, 0);
    tl->addWidget(cmbTaal, 1, 1);
    tl->setColumnStretch(1, 1);
    connect(cmbThema, &QComboBox::activated, this,
            [this](int i) { m.cmbInstellingen_Thema_Click(i); });
    connect(cmbTaal, &QComboBox::activated, this,
            [this](int i) { m.cmbInstellingen_Taal_Click(i); });
    hoofd->addWidget(m_taal);

    auto* knoppen = new QHBoxLayout;
    knoppen->addStretch(1);
    for (int i = 0; i < 2; ++i) {
        cmdInstellingen[size_t(i)] = new QPushButton(this);
        knoppen->addWidget(cmdInstellingen[size_t(i)]);
        connect(cmdInstellingen[size_t(i)], &QPushButton::clicked, this,
                [this, i] { m.cmdInstellingen_Click(i); });
    }
    hoofd->addLayout(knoppen);
    hoofd->addStretch(1);

    PaneelWidgets::stijl(this);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

OnderhoudInstellingenView::~OnderhoudInstellingenView() {
    m.onChanged = nullptr;
}

void OnderhoudInstellingenView::bijwerken() {
    using W = PaneelWidgets;
    m_kop->setText(m.titel());
    m_wachtwoorden->setTitle(m.fraWachtwoorden);
    m_internet->setTitle(m.fraInternet);
    m_email->setTitle(m.fraEmail);
    m_taal->setTitle(m.fraTaal);
    m_lblUitleg->setText(m.lblEmailUitleg);
    for (size_t i = 0; i < 2; ++i) {
        m_lblWachtwoord[i]->setText(m.lblWachtwoord[i]);
        W::tekst(txtWachtwoord[i], m.txtInstellingen_wachtwoord[i].tekst, m.lblWachtwoord[i]);
        txtWachtwoord[i]->setEchoMode(m.chckInstellingen_Wachtwoord ? QLineEdit::Normal
                                                                    : QLineEdit::Password);
        txtWachtwoord[i]->setEnabled(!m.bezig);
        W::knop(cmdInstellingen[i], m.cmdInstellingen[i], m.cmdInstellingenEnabled[i]);
    }
    m_lblInternet->setText(m.lblInternet);
    W::tekst(txtInternet, m.txtInstellingen_Internet.tekst, m.lblInternet);
    for (size_t i = 0; i < 3; ++i) {
        m_lblEmail[i]->setText(m.lblEmail[i]);
        W::tekst(txtEmail[i], m.txtInstellingen_Email[i].tekst, m.lblEmail[i]);
    }
    chckWachtwoord->setText(m.chckWachtwoordCaption);
    chckWachtwoord->setAccessibleName(W::naam(m.chckWachtwoordCaption));
    {
        const QSignalBlocker stil(chckWachtwoord);
        chckWachtwoord->setChecked(m.chckInstellingen_Wachtwoord);
    }
    m_lblThema->setText(m.lblThema);
    m_lblTaal->setText(m.lblTaal);
    W::lijst(cmbThema, m.cmbInstellingen_Thema, m.themaIndex, m.lblThema);
    W::lijst(cmbTaal, m.cmbInstellingen_Taal, m.taalIndex, m.lblTaal);
    for (QWidget* w : {static_cast<QWidget*>(txtInternet), static_cast<QWidget*>(cmbThema),
                       static_cast<QWidget*>(cmbTaal), static_cast<QWidget*>(txtEmail[0]),
                       static_cast<QWidget*>(txtEmail[1]), static_cast<QWidget*>(txtEmail[2])})
        w->setEnabled(!m.bezig);
}

} // namespace tk
