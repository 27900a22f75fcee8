#include "FrmInternetFilterView.h"

#include "FrmInternetFilter.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace tk {

namespace {

// No button is the dialog's default: Enter belongs to the field it is typed in.
QPushButton* knop(QWidget* ouder, const QString& naam) {
    auto* k = new QPushButton(ouder);
    k->setObjectName(naam);
    k->setAutoDefault(false);
    k->setDefault(false);
    return k;
}

const char* const veldNamen[] = {"txtWoord", "txtDomein", "txtGDomein"};
const char* const lijstNamen[] = {"lstLijst", "lstSites", "lstGSites"};
const char* const labelNamen[] = {"lblWoord", "lblDomein", "lblGDomein"};

} // namespace

FrmInternetFilterView::FrmInternetFilterView(FrmInternetFilter& model, QWidget* ouder)
    : QDialog(ouder), m(model) {
    setObjectName(QStringLiteral("frmInternetFilter"));
    setWindowModality(Qt::ApplicationModal);
    resize(Breedte, Hoogte);
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("Tabstrip"));
    for (int l = 0; l < 3; ++l) {
        auto* blad = new QWidget(m_tabs);
        auto* rooster = new QGridLayout(blad);
        m_labels[size_t(l)] = new QLabel(blad);
        m_labels[size_t(l)]->setObjectName(QString::fromLatin1(labelNamen[l]));
        m_velden[size_t(l)] = new QLineEdit(blad);
        m_velden[size_t(l)]->setObjectName(QString::fromLatin1(veldNamen[l]));
        m_labels[size_t(l)]->setBuddy(m_velden[size_t(l)]);
        m_knoppen[size_t(2 * l)] = knop(blad, QStringLiteral("cmdKnop%1").arg(2 * l));
        m_knoppen[size_t(2 * l + 1)] = knop(blad, QStringLiteral("cmdKnop%1").arg(2 * l + 1));
        m_lijsten[size_t(l)] = new QListWidget(blad);
        m_lijsten[size_t(l)]->setObjectName(QString::fromLatin1(lijstNamen[l]));
        m_lijsten[size_t(l)]->installEventFilter(this);
        m_aantallen[size_t(l)] = new QLabel(blad);
        m_aantallen[size_t(l)]->setObjectName(QStringLiteral("lblAantal%1").arg(l));
        rooster->addWidget(m_labels[size_t(l)], 0, 0);
        rooster->addWidget(m_velden[size_t(l)], 0, 1);
        rooster->addWidget(m_knoppen[size_t(2 * l)], 0, 2);
        rooster->addWidget(m_lijsten[size_t(l)], 1, 0, 1, 2);
        rooster->addWidget(m_knoppen[size_t(2 * l + 1)], 1, 2, Qt::AlignTop);
        rooster->addWidget(m_aantallen[size_t(l)], 2, 0, 1, 3);
        m_tabs->addTab(blad, QString());

        connect(m_velden[size_t(l)], &QLineEdit::textEdited, this,
                [this, l](const QString& t) { m.txt_Change(l, t); });
        connect(m_velden[size_t(l)], &QLineEdit::returnPressed, this, [this, l] {
            m.txt_Enter(l);
            naActie();
        });
        connect(m_lijsten[size_t(l)], &QListWidget::currentRowChanged, this,
                [this, l](int rij) { m.lst_Click(l, rij); });
        for (int k : {2 * l, 2 * l + 1})
            connect(m_knoppen[size_t(k)], &QPushButton::clicked, this, [this, k] {
                m.cmdKnop_Click(k);
                naActie();
            });
    }
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int tab) { m.Tabstrip_Click(tab); });

    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("lblStatus"));
    m_status->setWordWrap(true);
    m_voortgang = new QProgressBar(this);
    m_voortgang->setObjectName(QStringLiteral("pbStatus"));
    m_voortgang->setRange(0, FrmInternetFilter::StapKlaar);
    m_updaten = knop(this, QStringLiteral("cmdUpdaten"));
    m_opslaan = knop(this, QStringLiteral("cmdOpslaan"));
    m_annuleren = knop(this, QStringLiteral("cmdAnnuleren"));
    connect(m_updaten, &QPushButton::clicked, this, [this] {
        m.cmdUpdaten_Click();
        naActie();
    });
    connect(m_opslaan, &QPushButton::clicked, this, [this] {
        m.cmdOpslaan_Click();
        naActie();
    });
    connect(m_annuleren, &QPushButton::clicked, this, [this] { reject(); });

    auto* voet = new QHBoxLayout;
    voet->addWidget(m_updaten);
    voet->addStretch(1);
    voet->addWidget(m_opslaan);
    voet->addWidget(m_annuleren);
    auto* geheel = new QVBoxLayout(this);
    geheel->addWidget(m_tabs, 1);
    geheel->addWidget(m_status);
    geheel->addWidget(m_voortgang);
    geheel->addLayout(voet);

    m.onChanged = [this] { bijwerken(); };
    bijwerken();
    m_velden[0]->setFocus();
}

FrmInternetFilterView::~FrmInternetFilterView() {
    m.onChanged = nullptr;
}

void FrmInternetFilterView::bijwerken() {
    setWindowTitle(m.Caption);
    m_tabs->setAccessibleName(m.Caption);
    m_tabs->tabBar()->setAccessibleName(m.Caption);
    if (m_tabs->currentIndex() != m.Tab)
        m_tabs->setCurrentIndex(m.Tab);
    for (int l = 0; l < 3; ++l) {
        const size_t i = size_t(l);
        m_tabs->setTabText(l, m.tabCaption[i]);
        m_labels[i]->setText(m.lblCaption[i]);
        m_velden[i]->setAccessibleName(m.tabCaption[i] + QStringLiteral(": ") + m.lblCaption[i]);
        if (m_velden[i]->text() != m.txt[i])
            m_velden[i]->setText(m.txt[i]);
        QListWidget* lijst = m_lijsten[i];
        lijst->setAccessibleName(m.tabCaption[i]);
        const QStringList& items = m.lijsten.lijst(FilterLists::Lijst(l));
        // Refilled only when it changed, so that the selection and the scroll stay.
        bool gelijk = lijst->count() == items.size();
        for (int r = 0; gelijk && r < lijst->count(); ++r)
            gelijk = lijst->item(r)->text() == items[r];
        if (!gelijk) {
            const QSignalBlocker stil(lijst);
            lijst->clear();
            lijst->addItems(items);
        }
        if (lijst->currentRow() != m.geselecteerd[i]) {
            const QSignalBlocker stil(lijst);
            lijst->setCurrentRow(m.geselecteerd[i]);
        }
        m_aantallen[i]->setText(m.lblAantal(l));
        for (int k : {2 * l, 2 * l + 1}) {
            m_knoppen[size_t(k)]->setText(m.cmdKnopCaption[size_t(k)]);
            m_knoppen[size_t(k)]->setAccessibleName(m.cmdKnopCaption[size_t(k)] +
                                                    QStringLiteral(": ") + m.tabCaption[i]);
            m_knoppen[size_t(k)]->setEnabled(m.cmdKnopEnabled[size_t(k)]);
        }
        m_velden[i]->setEnabled(!m.Bezig);
        lijst->setEnabled(!m.Bezig);
    }
    m_tabs->tabBar()->setEnabled(!m.Bezig);
    m_status->setText(m.lblStatus);
    m_status->setAccessibleName(m.lblStatus);
    m_voortgang->setVisible(m.picStatusZichtbaar);
    m_voortgang->setValue(m.pbStatus);
    m_updaten->setText(m.cmdUpdatenCaption);
    m_updaten->setEnabled(m.cmdUpdatenEnabled);
    m_opslaan->setText(m.cmdOpslaanCaption);
    m_opslaan->setEnabled(!m.Bezig);
    m_annuleren->setText(m.cmdAnnulerenCaption);
    m_annuleren->setEnabled(!m.Bezig);
}

void FrmInternetFilterView::naActie() {
    if (!m.Open)
        done(m.Opgeslagen ? Accepted : Rejected);
}

void FrmInternetFilterView::reject() {
    // While an update or a save waits for its answer, the window stays.
    if (m.Bezig)
        return;
    m.cmdAnnuleren_Click();
    QDialog::reject();
}

bool FrmInternetFilterView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete)
        for (int l = 0; l < 3; ++l)
            if (object == m_lijsten[size_t(l)] && m.cmdKnopEnabled[size_t(2 * l + 1)]) {
                m.cmdKnop_Click(2 * l + 1);
                return true;
            }
    return QDialog::eventFilter(object, event);
}

} // namespace tk
