#include "PaneelWidgets.h"

#include "controls/AccessibleName.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace tk {

QString PaneelWidgets::naam(const QString& caption) {
    QString tekst = caption.trimmed();
    while (tekst.endsWith(QLatin1Char(':')) || tekst.endsWith(QChar(0x2026)) ||
           tekst.endsWith(QLatin1Char('*')))
        tekst.chop(1);
    return AccessibleName::maak(tekst);
}

QLabel* PaneelWidgets::kop(QWidget* ouder) {
    auto* kop = new QLabel(ouder);
    QFont font(QStringLiteral("Verdana"));
    font.setPixelSize(20);
    font.setBold(true);
    kop->setFont(font);
    return kop;
}

void PaneelWidgets::stijl(QWidget* paneel) {
    QFont font(QStringLiteral("Verdana"));
    font.setPixelSize(12);
    for (QWidget* w : paneel->findChildren<QWidget*>())
        if (w->font().pixelSize() != 20)
            w->setFont(font);
    paneel->setAutoFillBackground(false);
}

void PaneelWidgets::tekst(QLineEdit* veld, const QString& tekst, const QString& caption) {
    // Only a change from elsewhere: the cursor of the user's own typing stays.
    if (veld->text() != tekst) {
        const QSignalBlocker stil(veld);
        veld->setText(tekst);
    }
    veld->setAccessibleName(naam(caption));
}

void PaneelWidgets::knop(QPushButton* knop, const QString& caption, bool enabled) {
    knop->setText(caption);
    knop->setAccessibleName(naam(caption));
    knop->setEnabled(enabled);
}

void PaneelWidgets::lijst(QComboBox* lijst, const QList<InstellingenTeksten::Keuze>& items,
                          int index, const QString& caption) {
    const QSignalBlocker stil(lijst);
    bool gelijk = lijst->count() == items.size();
    for (int i = 0; gelijk && i < items.size(); ++i)
        gelijk = lijst->itemText(i) == items[i].tekst && lijst->itemData(i) == items[i].data;
    if (!gelijk) {
        lijst->clear();
        for (const auto& item : items)
            lijst->addItem(item.tekst, item.data);
    }
    lijst->setCurrentIndex(index);
    lijst->setAccessibleName(naam(caption));
}

void PaneelWidgets::lijst(QComboBox* lijst, const QStringList& items, int index,
                          const QString& caption) {
    QList<InstellingenTeksten::Keuze> keuzes;
    for (const QString& item : items)
        keuzes.append({item, QString()});
    PaneelWidgets::lijst(lijst, keuzes, index, caption);
}

} // namespace tk
