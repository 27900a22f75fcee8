#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QString>

namespace tk::test {

// Walks an accessible tree as a screen reader does.
struct A11yTree {
    // The first object below `wortel` (depth first) with this role and name, or null.
    static QAccessibleInterface* zoek(QAccessibleInterface* wortel, QAccessible::Role rol,
                                      const QString& naam, int diepte = 0) {
        if (!wortel || diepte > 12)
            return nullptr;
        for (int i = 0; i < wortel->childCount(); ++i) {
            QAccessibleInterface* kind = wortel->child(i);
            if (!kind)
                continue;
            if (kind->role() == rol && kind->text(QAccessible::Name) == naam &&
                !kind->state().invisible)
                return kind;
            if (QAccessibleInterface* dieper = zoek(kind, rol, naam, diepte + 1))
                return dieper;
        }
        return nullptr;
    }
    // How many objects lie below `wortel`.
    static int tel(QAccessibleInterface* wortel, int diepte = 0) {
        if (!wortel || diepte > 12)
            return 0;
        int n = 0;
        for (int i = 0; i < wortel->childCount(); ++i)
            n += 1 + tel(wortel->child(i), diepte + 1);
        return n;
    }
};

} // namespace tk::test
