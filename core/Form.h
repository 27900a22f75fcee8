#pragma once

#include <QString>

namespace tk {

// A form of the program as the core sees it: something with captions that follow the language,
// and that a view can show.
class Form {
public:
    virtual ~Form() = default;
    // The form's name as the program knows it ("frmFoutrapportage").
    virtual QString formNaam() const = 0;
    // Fills the captions from the string table.
    virtual void LaadTaal() = 0;
};

} // namespace tk
