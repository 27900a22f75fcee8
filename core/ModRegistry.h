#pragma once

#include "platform/RegistryRoot.h"

#include <QString>

namespace tk {

class Programma;

// The registry helpers of the program. None raises a fault: a failed call gives an empty text
// or 0, a failed write is silent.
class ModRegistry {
public:
    explicit ModRegistry(Programma& p) : p(p) {}

    // Only string values are read; another type or a missing value gives an empty text, which
    // is cut at its first NUL.
    QString LeesWaarde(RegistryRoot sleutelroot, const QString& pad, const QString& naam);
    void SchrijfWaarde(RegistryRoot sleutelroot, const QString& pad, const QString& naam,
                       const QString& waarde);
    // A DWORD value; missing (or not a DWORD) gives 0.
    long LeesGetal(RegistryRoot sleutelroot, const QString& pad, const QString& naam);
    void SchrijfGetal(RegistryRoot sleutelroot, const QString& pad, const QString& naam,
                      long waarde);
    void VerwijderWaarde(RegistryRoot sleutelroot, const QString& pad, const QString& naam);

private:
    Programma& p;
};

} // namespace tk
