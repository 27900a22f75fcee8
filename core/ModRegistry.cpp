#include "ModRegistry.h"

#include "core/Programma.h"
#include "platform/RegistryStore.h"

namespace tk {

QString ModRegistry::LeesWaarde(RegistryRoot sleutelroot, const QString& pad, const QString& naam) {
    const auto waarde = p.platform.registry().read(sleutelroot, pad, naam);
    if (!waarde || waarde->type != RegistryValue::Type::String)
        return {};
    QString tekst = waarde->text;
    const int nul = tekst.indexOf(QChar(0));
    if (nul >= 0)
        tekst.truncate(nul);
    return tekst;
}

void ModRegistry::SchrijfWaarde(RegistryRoot sleutelroot, const QString& pad, const QString& naam,
                                const QString& waarde) {
    p.platform.registry().write(sleutelroot, pad, naam, RegistryValue::string(waarde));
}

long ModRegistry::LeesGetal(RegistryRoot sleutelroot, const QString& pad, const QString& naam) {
    const auto waarde = p.platform.registry().read(sleutelroot, pad, naam);
    if (!waarde || waarde->type != RegistryValue::Type::Dword)
        return 0;
    return long(qint32(waarde->dword));
}

void ModRegistry::SchrijfGetal(RegistryRoot sleutelroot, const QString& pad, const QString& naam,
                               long waarde) {
    p.platform.registry().write(sleutelroot, pad, naam,
                                RegistryValue::number(quint32(qint32(waarde))));
}

void ModRegistry::VerwijderWaarde(RegistryRoot sleutelroot, const QString& pad,
                                  const QString& naam) {
    p.platform.registry().deleteValue(sleutelroot, pad, naam);
}

} // namespace tk
