#pragma once

#include <QString>

namespace tk {

class Form;

// Modal windows. The GUI shows them in a nested event loop; tests answer from a script.
class DialogService {
public:
    virtual ~DialogService() = default;
    // The question window: style "-" OK only, ":" OK and Cancel, "?" Yes and No, "*" a masked
    // text, texts joined by "|" a choice, any other text a text entry with that default.
    // Answers "ja", "nee" or the text.
    virtual QString vraag(const QString& titel, const QString& tekst, const QString& stijl) = 0;
    // Shows a form modally; the user's answer reaches the form through its own click
    // procedures before this returns.
    virtual void toonModaal(Form& form) = 0;
    // Closes the question windows open now as if Cancel was chosen: what they asked about has
    // gone (a stay in the maintenance module ended by force while one was open). A service
    // whose questions are answered at once has none open.
    virtual void sluitVragen() {}
};

} // namespace tk
