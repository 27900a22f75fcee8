#include "BewerkPaneelView.h"

#include "BewerkPaneel.h"
#include "PaneelWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tk {

BewerkPaneelView::BewerkPaneelView(BewerkPaneel& model, QWidget* ouder)
    : QWidget(ouder), m(model), m_titel(PaneelWidgets::kop(this)), m_lijst(new QListWidget(this)),
      m_vakken(new QVBoxLayout) {
    auto* hoofd = new QVBoxLayout(this);
    hoofd->addWidget(m_titel);
    auto* midden = new QHBoxLayout;
    midden->addWidget(m_lijst, 1);
    midden->addLayout(m_vakken, 2);
    hoofd->addLayout(midden);
    auto* rij = new QHBoxLayout;
    rij->addStretch();
    for (int i = 0; i < int(m.knoppen.size()); ++i) {
        auto* knop = new QPushButton(this);
        connect(knop, &QPushButton::clicked, this, [this, i] { m.cmd_Click(i); });
        rij->addWidget(knop);
        m_knoppen << knop;
    }
    hoofd->addLayout(rij);
    hoofd->addStretch(1);
    connect(m_lijst, &QListWidget::currentRowChanged, this, [this](int r) {
        if (r >= 0 && r < m.lijst.size())
            m.Weergeven(m.lijst[r].sleutel);
    });
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

BewerkPaneelView::~BewerkPaneelView() {
    m.onChanged = nullptr;
}

void BewerkPaneelView::maakVelden() {
    while (QLayoutItem* item = m_vakken->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    m_groepen.clear();
    m_labels.clear();
    m_uitleg.clear();
    m_velden.clear();
    m_tonen = nullptr;
    // Fields that name the same frame one after the other share it.
    QWidget* vak = nullptr;
    QGridLayout* raster = nullptr;
    QString groep;
    int laatsteWachtwoord = -1;
    for (int i = 0; i < m.velden.size(); ++i) {
        const BewerkPaneel::Veld& v = m.velden[i];
        if (!vak || v.groep != groep) {
            groep = v.groep;
            vak = groep.isEmpty() ? new QWidget(this) : new QGroupBox(this);
            raster = new QGridLayout(vak);
            raster->setColumnStretch(1, 1);
            m_vakken->addWidget(vak);
        }
        m_groepen << qobject_cast<QGroupBox*>(vak);
        int r = raster->rowCount();
        QLabel* uitleg = nullptr;
        if (!v.uitleg.isEmpty()) {
            uitleg = new QLabel(vak);
            uitleg->setWordWrap(true);
            raster->addWidget(uitleg, r++, 0, 1, 2);
        }
        m_uitleg << uitleg;
        auto* label = new QLabel(vak);
        QWidget* veld = nullptr;
        if (!v.keuzelijst) {
            auto* tekst = new QLineEdit(vak);
            connect(tekst, &QLineEdit::textEdited, this,
                    [this, i](const QString& t) { m.ZetVeld(i, t); });
            veld = tekst;
        } else {
            auto* keuze = new QComboBox(vak);
            connect(keuze, &QComboBox::activated, this, [this, i](int k) {
                if (i < m.velden.size() && k >= 0 && k < m.velden[i].keuzes.size())
                    m.ZetVeld(i, m.velden[i].keuzes[k].data);
            });
            veld = keuze;
        }
        if (v.wachtwoord)
            laatsteWachtwoord = i;
        veld->setObjectName(v.naam);
        label->setBuddy(veld);
        raster->addWidget(label, r, 0);
        raster->addWidget(veld, r, 1);
        m_labels << label;
        m_velden << veld;
    }
    // The check box that shows the passwords stands under the last of them.
    if (laatsteWachtwoord >= 0 && !m.wachtwoordenTonenTekst.isEmpty()) {
        QWidget* vak = m_velden[laatsteWachtwoord]->parentWidget();
        auto* raster = static_cast<QGridLayout*>(vak->layout());
        m_tonen = new QCheckBox(vak);
        raster->addWidget(m_tonen, raster->rowCount(), 1);
        connect(m_tonen, &QCheckBox::toggled, this,
                [this](bool aan) { m.chckWachtwoord_Click(aan); });
    }
    PaneelWidgets::stijl(this);
}

void BewerkPaneelView::bijwerken() {
    using W = PaneelWidgets;
    const QString titel = m.titel();
    m_titel->setText(titel);
    setAccessibleName(titel);
    {
        const QSignalBlocker stil(m_lijst);
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
        m_lijst->setEnabled(m.lijstIngeschakeld && !m.bezig);
    }
    if (m_velden.size() != m.velden.size())
        maakVelden();
    for (int i = 0; i < m.velden.size(); ++i) {
        const BewerkPaneel::Veld& v = m.velden[i];
        if (m_groepen[i])
            m_groepen[i]->setTitle(v.groep);
        if (m_uitleg[i])
            m_uitleg[i]->setText(v.uitleg);
        m_labels[i]->setText(v.caption);
        const QString caption = v.caption.isEmpty() ? v.naam : v.caption;
        m_velden[i]->setEnabled(m.bewerkbaar());
        if (auto* tekst = qobject_cast<QLineEdit*>(m_velden[i])) {
            W::tekst(tekst, v.waarde, caption);
            tekst->setEchoMode(v.wachtwoord && !m.wachtwoordenTonen ? QLineEdit::Password
                                                                    : QLineEdit::Normal);
        } else if (auto* keuze = qobject_cast<QComboBox*>(m_velden[i])) {
            int gekozen = -1;
            for (int k = 0; k < v.keuzes.size() && gekozen < 0; ++k)
                if (v.keuzes[k].data == v.waarde)
                    gekozen = k;
            W::lijst(keuze, v.keuzes, gekozen, caption);
        }
    }
    if (m_tonen) {
        const QSignalBlocker stil(m_tonen);
        m_tonen->setText(m.wachtwoordenTonenTekst);
        m_tonen->setAccessibleName(W::naam(m.wachtwoordenTonenTekst));
        m_tonen->setChecked(m.wachtwoordenTonen);
    }
    for (int i = 0; i < m_knoppen.size(); ++i) {
        const BewerkPaneel::KnopStaat& k = m.knoppen[size_t(i)];
        W::knop(m_knoppen[i], k.tekst, k.ingeschakeld && !m.bezig);
        m_knoppen[i]->setVisible(k.zichtbaar);
    }
}

} // namespace tk
