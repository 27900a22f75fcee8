#include "FrmUitschakelenView.h"

#include "FrmUitschakelen.h"

#include <QComboBox>
#include <QPainter>
#include <QSignalBlocker>

namespace tk {

namespace {
constexpr int labelLinks = 52;
constexpr int vakLinks = 140;
} // namespace

FrmUitschakelenView::FrmUitschakelenView(FrmUitschakelen& model, QWidget* ouder)
    : DialogFrame(ouder), m(model) {
    setWindowTitle(m.Caption);
    const int onderOpties = optieVak(int(m.optCaptions.size()) - 1).bottom() + 6;
    m_groep = new QComboBox(this);
    m_groep->setGeometry(inVenster(QRect(vakLinks, onderOpties, Breedte - 18 - vakLinks, 24)));
    m_groep->addItems(m.cmbGroep);
    m_groep->setCurrentIndex(m.cmbGroepIndex);
    m_gebruiker = new QComboBox(this);
    m_gebruiker->setGeometry(
        inVenster(QRect(vakLinks, onderOpties + 30, Breedte - 18 - vakLinks, 24)));
    m_knoppenBoven = onderOpties + 30 + 24 + 18;
    connect(m_groep, &QComboBox::currentIndexChanged, this, [this](int index) {
        m.cmbGroep_Click(index);
        vulGebruikers();
        bijwerken();
    });
    connect(m_gebruiker, &QComboBox::currentIndexChanged, this, [this](int index) {
        m.cmbGebruikerIndex = index;
        bijwerken();
    });
    vulGebruikers();
    zetLijf(Breedte, m_knoppenBoven + 26 + 16);
    bijwerken();
}

void FrmUitschakelenView::vulGebruikers() {
    const QSignalBlocker stil(m_gebruiker);
    m_gebruiker->clear();
    for (const auto& g : m.cmbGebruiker)
        m_gebruiker->addItem(g.naam);
    m_gebruiker->setCurrentIndex(m.cmbGebruikerIndex);
}

void FrmUitschakelenView::bijwerken() {
    const bool aanmelden = m.optAntwoord == int(m.optCaptions.size()) - 1;
    m_groep->setEnabled(aanmelden);
    m_gebruiker->setEnabled(aanmelden && !m.cmbGebruiker.isEmpty());
    vlakken.clear();
    for (int i = 0; i < m.optCaptions.size(); ++i) {
        Vlak v;
        v.soort = Soort::Optie;
        v.plek = optieVak(i);
        v.tekst = m.optCaptions[i];
        v.aan = m.optAntwoord == i;
        v.klik = [this, i] { m.optAntwoord = i; };
        vlakken << v;
    }
    voegKnoppenToe(
        Breedte, m_knoppenBoven, 26, m.cmdOK, m.Controleren(), [this] { m.cmdOK_Click(); },
        m.cmdAnnuleren);
    update();
}

void FrmUitschakelenView::voegTekstenToe(QList<PaintedControl>& lijst) const {
    PaintedControl::voegTekstToe(lijst, m.lblKies, QRect(18, 10, Breedte - 36, 22));
}

void FrmUitschakelenView::tekenInhoud(QPainter& p) {
    QFont vet = p.font();
    vet.setBold(true);
    p.setFont(vet);
    p.setPen(kopKleur());
    p.drawText(QRect(18, 10, Breedte - 36, 22), Qt::AlignLeft | Qt::AlignVCenter, m.lblKies);
    const bool aanmelden = m.optAntwoord == int(m.optCaptions.size()) - 1;
    p.setFont(font());
    p.setPen(aanmelden ? tekstKleur() : QColor(150, 156, 165));
    const QRect groep = m_groep->geometry().translated(0, -Kop);
    const QRect gebruiker = m_gebruiker->geometry().translated(0, -Kop);
    p.drawText(QRect(labelLinks, groep.top(), vakLinks - labelLinks - 6, groep.height()),
               Qt::AlignLeft | Qt::AlignVCenter, m.lblGroep);
    p.drawText(QRect(labelLinks, gebruiker.top(), vakLinks - labelLinks - 6, gebruiker.height()),
               Qt::AlignLeft | Qt::AlignVCenter, m.lblAccount);
}

void FrmUitschakelenView::annuleren() {
    m.cmdAnnuleren_Click();
    m_klaar = true;
}

} // namespace tk
