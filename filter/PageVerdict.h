#pragma once

#include <QString>

namespace tk {

// The outcome of the check of a loaded page.
struct PageVerdict {
    enum class Pass {
        NotExamined, // a local page of the filter, or the filter is off
        AllowedSite, // the document's domain holds an allowed site
        Title,       // blocked in the title
        Body,        // blocked in the body
        Approved,    // both passes found nothing (or the body was empty)
    };

    Pass pass = Pass::NotExamined;
    // The tab's caption: the title, or string `captionText` when there is none.
    QString caption;
    int captionText = 0;
    // The status text after the check (731 blocked, 732 approved), for the tab and, when it is
    // the active one, the status panel; 0 when the check did not run.
    int statusText = 0;
    // The item of VerbodenWoorden that blocked the page (index and text), or -1.
    int item = -1;
    QString word;

    bool blocked() const { return pass == Pass::Title || pass == Pass::Body; }
};

} // namespace tk
