#pragma once

#include <QString>

namespace tk {

class Programma;

// modMain.Laden: the load of the whole data set, at start-up and after a change of data. With a
// link the server is asked and its answers are sealed as the offline cache; without one the
// cache is believed. The steps that belong to higher layers (the update check, the theme and icon
// stores) are start-up steps, called in their place in the order.
class ModMainLaden {
public:
    explicit ModMainLaden(Programma& p);

    void Laden();

private:
    Programma& p;
};

} // namespace tk
