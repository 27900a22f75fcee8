#include "BewerkPaneelView.h"

#include "BewerkPaneel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tk {

BewerkPaneelView::BewerkPaneelView(BewerkPaneel& model, QWidget* ouder)
    : QWidget(ouder), m(model), m_titel(new QLabel(this)), m_lijst(new QListWidget(this)),
      m_raster(new QGridLayout) {
    QFont kop(QStringLiteral("Verdana"));
    kop.setPixelSize(16);
    kop.setBold(true);
    m_titel->setFont(kop);
    auto* hoofd = new QVBoxLayout(this);
    hoofd->addWidget(m_titel);
    auto* midden = new QHBoxLayout;
    midden->addWidget(m_lijst, 1);
    midden->addLayout(m_raster, 2);
    hoofd->addLayout(midden, 1);
    auto* rij = new QHBoxLayout;
    rij->addStretch();
    for (int i = 0; i < int(m.knoppen.size()); ++i) {
        auto* knop = new QPushButton(this);
        connect(knop, &QPushButton::clicked, this, [this, i] { m.cmd_Click(i); });
        rij->addWidget(knop);
        m_knoppen << knop;
    }
    hoofd->addLayout(rij);
    connect(m_lijst, &QListWidget::currentRowChanged, this, [this](int r) {
        if (!m_bijwerken && r >= 0 && r < m.lijst.size())
            m.Weergeven(m.lijst[r].sleutel);
    });
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

BewerkPaneelView::~BewerkPaneelView() {
    m.onChanged = nullptr;
}

void BewerkPaneelView::maakVelden() {
    qDeleteAll(m_labels);
    qDeleteAll(m_velden);
    m_labels.clear();
    m_velden.clear();
    for (int i = 0; i < m.velden.size(); ++i) {
        const BewerkPaneel::Veld& v = m.velden[i];
        auto* label = new QLabel(this);
        QWidget* veld = nullptr;
        if (v.keuzes.isEmpty()) {
            auto* tekst = new QLineEdit(this);
            tekst->setEchoMode(v.wachtwoord ? QLineEdit::Password : QLineEdit::Normal);
            connect(tekst, &QLineEdit::textEdited, this,
                    [this, i](const QString& t) { m.ZetVeld(i, t); });
            veld = tekst;
        } else {
            auto* keuze = new QComboBox(this);
            connect(keuze, &QComboBox::currentTextChanged, this, [this, i](const QString& t) {
                if (!m_bijwerken)
                    m.ZetVeld(i, t);
            });
            veld = keuze;
        }
        veld->setObjectName(v.naam);
        label->setBuddy(veld);
        m_raster->addWidget(label, i, 0);
        m_raster->addWidget(veld, i, 1);
        m_labels << label;
        m_velden << veld;
    }
}

void BewerkPaneelView::bijwerken() {
    m_bijwerken = true;
    const QString titel = m.titel();
    m_titel->setText(titel);
    setAccessibleName(titel);
    m_lijst->setVisible(m.vorm == BewerkPaneel::Lijst);
    m_lijst->setAccessibleName(titel);
    m_lijst->clear();
    for (const BewerkPaneel::Item& item : std::as_const(m.lijst)) {
        auto* rij = new QListWidgetItem(item.tekst, m_lijst);
        QFont font = rij->font();
        font.setBold(item.vet);
        rij->setFont(font);
        if (item.sleutel == m.huidig)
            m_lijst->setCurrentItem(rij);
    }
    m_lijst->setEnabled(m.lijstIngeschakeld);
    if (m_velden.size() != m.velden.size())
        maakVelden();
    for (int i = 0; i < m.velden.size(); ++i) {
        const BewerkPaneel::Veld& v = m.velden[i];
        m_labels[i]->setText(v.caption);
        m_velden[i]->setAccessibleName(v.caption.isEmpty() ? v.naam : v.caption);
        m_velden[i]->setEnabled(m.bewerkbaar());
        if (auto* tekst = qobject_cast<QLineEdit*>(m_velden[i])) {
            if (tekst->text() != v.waarde)
                tekst->setText(v.waarde);
        } else if (auto* keuze = qobject_cast<QComboBox*>(m_velden[i])) {
            keuze->clear();
            keuze->addItems(v.keuzes);
            keuze->setCurrentText(v.waarde);
        }
    }
    for (int i = 0; i < m_knoppen.size(); ++i) {
        const BewerkPaneel::KnopStaat& k = m.knoppen[size_t(i)];
        m_knoppen[i]->setText(k.tekst);
        m_knoppen[i]->setAccessibleName(k.tekst);
        m_knoppen[i]->setVisible(k.zichtbaar);
        m_knoppen[i]->setEnabled(k.ingeschakeld);
    }
    m_bijwerken = false;
}

} // namespace tk
