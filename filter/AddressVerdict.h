#pragma once

namespace tk {

// The outcome of the check before a navigation, and the step that decided it.
struct AddressVerdict {
    enum class Outcome {
        Allow,
        // Cancel, stop, and show the blocked page in the tab.
        Refuse,
        // Cancel and stop; nothing is shown (local files and other schemes).
        RefuseSilently,
    };
    enum class Step {
        ScriptOrBlockedPage, // "javascript..." or the blocked page's own address
        AllowedSite,         // an item of ToegestaneSites occurs in it
        Blank,               // about:blank
        LocalPage,           // not a web address, but one of the filter's local pages
        NotWeb,              // not http, https or ftp
        ListedAddress,       // an item of VerbodenWoorden matched (filter on)
        FixedBlock,          // contains PageFilter::VasteBlokkade
        Favourite,           // favourites only, and a favourite occurs in it
        NoFavourite,         // favourites only, and none does
        Free,                // nothing held it back
    };

    Outcome outcome = Outcome::Allow;
    Step step = Step::Free;
    // The list item that decided it (index in its list), or -1.
    int item = -1;

    bool allowed() const { return outcome == Outcome::Allow; }
};

} // namespace tk
