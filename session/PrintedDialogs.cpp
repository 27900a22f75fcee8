#include "PrintedDialogs.h"

namespace tk {

QString PrintedDialogs::vraag(const QString& titel, const QString& tekst, const QString&) {
    QString regel = tekst;
    regel.replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_uit << (titel.isEmpty() ? QString() : titel + QStringLiteral(": ")) << regel.trimmed()
          << Qt::endl;
    return QStringLiteral("nee");
}

void PrintedDialogs::toonModaal(Form&) {}

} // namespace tk
