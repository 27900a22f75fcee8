#include "FrmMainCanvas.h"

#include "FrmMain.h"
#include "controls/SkinnedButtonView.h"
#include "screens/common/LoadingBarPainter.h"
#include "screens/common/LogonFields.h"
#include "screens/common/PaintingViewAccessible.h"
#include "screens/taskbar/FrmTaakbalk1View.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

namespace tk {

FrmMainCanvas::FrmMainCanvas(FrmMain& model, QWidget* ouder) : QWidget(ouder), m(model) {
    setFixedSize(1024, 768);
    const LogonFields velden(this, m);
    m_wachtwoord = velden.wachtwoord;
    m_aanmelden = velden.knop;
}

FrmMainCanvas::~FrmMainCanvas() {
    for (auto& [knop, view] : m_knoppen)
        knop->Click = nullptr;
}

void FrmMainCanvas::bijwerken() {
    gewijzigd();
    // The class buttons: a view per button of the model, gone with its button.
    std::map<Knop2*, SkinnedButtonView*> nu;
    for (int i = 0; i < int(m.knopGroep.size()); ++i) {
        Knop2* k = m.knop(i);
        if (!k)
            continue;
        auto it = m_knoppen.find(k);
        SkinnedButtonView* v = nullptr;
        if (it != m_knoppen.end()) {
            v = it->second;
            m_knoppen.erase(it);
        } else {
            v = new SkinnedButtonView(*k, this);
            k->Click = [this, i] { m.knopGroep_Click(i); };
        }
        v->bijwerken();
        nu[k] = v;
    }
    for (auto& [k, v] : m_knoppen)
        delete v;
    m_knoppen = nu;

    const QRect paneel = m.picAanmelden;
    m_wachtwoord->setGeometry(paneel.left() + 20, paneel.top() + 62, paneel.width() - 40, 26);
    m_wachtwoord->setVisible(m.picAanmeldenZichtbaar && m.txtWachtwoordZichtbaar);
    if (m_wachtwoord->text() != m.txtWachtwoord)
        m_wachtwoord->setText(m.txtWachtwoord);
    if (m.wachtwoordGeselecteerd && m_wachtwoord->isVisible()) {
        m_wachtwoord->selectAll();
        m.wachtwoordGeselecteerd = false;
    }
    if (m.focusOpWachtwoord && m_wachtwoord->isVisible()) {
        m_wachtwoord->setFocus();
        m.focusOpWachtwoord = false;
    }
    m_aanmelden->setText(m.knopAanmeldenTekst);
    m_aanmelden->setGeometry(paneel.right() - 120, paneel.top() + 92, 100, 24);
    m_aanmelden->setVisible(m.picAanmeldenZichtbaar && m.knopAanmeldenZichtbaar);
    update();
}

QList<PaintedControl> FrmMainCanvas::maakGeschilderd() const {
    return m.bedieningen();
}

void FrmMainCanvas::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(92, 180, 238));
    if (!m.achtergrond.isNull())
        p.drawImage(0, 0, m.achtergrond);
    if (m.ballonWeergeven && !m.wolk.isNull())
        p.drawImage(m.ballonPlek, m.TekenWolk());
    if (m.lblAccountZichtbaar) {
        if (!m.picIcoon.isNull())
            p.drawImage(m.imgAccountPlek, m.picIcoon);
        p.setFont(m.ballonFont);
        p.setPen(m.KleurKoptekst);
        p.drawText(m.lblAccountPlek, m.lblAccount);
    }
    if (m.link.lblLadenZichtbaar && !m.link.lblLaden.isEmpty()) {
        p.setFont(m.ladenFont);
        p.setPen(m.KleurLaden);
        p.drawText(m.lblLadenRect().adjusted(-4, 0, 4, 0), Qt::AlignHCenter | Qt::AlignTop,
                   QString(m.link.lblLaden).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    }
    if (m.link.picLadenZichtbaar)
        tekenLaadbalk(p);
    if (m.picAanmeldenZichtbaar)
        tekenAanmelden(p);
}

void FrmMainCanvas::tekenLaadbalk(QPainter& p) {
    const LoadingBarPainter tekenaar{m.KleurRand, m.KleurStatus, m.KleurStreep, m.KleurLaden,
                                     m.ladenFont};
    tekenaar.teken(p, m.picLaden, m.laadBlokken, m.laadTekst, m.laadTekstPlek);
}

void FrmMainCanvas::tekenAanmelden(QPainter& p) {
    const QRect r = m.picAanmelden.adjusted(0, 0, 0, -m.aanmeldenSchuif);
    if (r.height() <= 0)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(m.KleurRand, 2));
    p.setBrush(QColor(255, 255, 255, 235));
    p.drawRoundedRect(QRectF(r).adjusted(1, 1, -1, -1), 12, 12);
    p.setClipRect(r);
    p.setPen(m.KleurAanmeldentekst);
    if (m.lblGebruikerZichtbaar) {
        p.setFont(QFont(QStringLiteral("Verdana"), 12, QFont::Bold));
        p.drawText(QRect(r.left() + 20, r.top() + 10, r.width() - 40, 24), Qt::AlignLeft,
                   m.lblGebruiker);
    }
    p.setFont(m.aanmeldenFont);
    p.drawText(QRect(r.left() + 20, r.top() + 38, r.width() - 40, 20), Qt::AlignLeft,
               m.lblAanmeldenTekst);
    p.restore();
    if (!m.wachtwoordBallon.isEmpty()) {
        // The balloon on the password box.
        p.save();
        QString tekst = m.wachtwoordBallon;
        tekst.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        p.setFont(m.aanmeldenFont);
        const QRect maat =
            p.fontMetrics().boundingRect(QRect(0, 0, 320, 400), Qt::TextWordWrap, tekst);
        const QRect vak(m.picAanmelden.left() + 20, m.picAanmelden.bottom() + 12, maat.width() + 20,
                        maat.height() + 14);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(0, 0, 0), 1));
        p.setBrush(QColor(255, 255, 225));
        p.drawRoundedRect(vak, 6, 6);
        const QPointF punt[3] = {QPointF(vak.left() + 20, vak.top()),
                                 QPointF(vak.left() + 30, vak.top() - 10),
                                 QPointF(vak.left() + 36, vak.top())};
        p.drawPolygon(punt, 3);
        p.setPen(Qt::black);
        p.drawText(vak.adjusted(10, 7, -10, -7), Qt::TextWordWrap, tekst);
        p.restore();
    }
}

} // namespace tk
