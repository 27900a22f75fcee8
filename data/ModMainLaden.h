#pragma once

#include <QString>
#include <functional>

namespace tk {

class Programma;

// modMain.Laden: the load of the whole data set, at start-up and after a change of data. With a
// link the server is asked and its answers are sealed as the offline cache; without one the
// cache is believed. The steps that belong to layers not built here are hooks, called in their
// place in the order and doing nothing until set.
class ModMainLaden {
public:
    explicit ModMainLaden(Programma& p);

    void Laden();

    // modMain.ControleerUpdate (with a link only).
    std::function<void()> ControleerUpdate;
    // modData.LaadThemas(toonVoortgang).
    std::function<void(bool)> LaadThemas;
    // modData.LaadPictogrammen (with a link only).
    std::function<void()> LaadPictogrammen;

private:
    Programma& p;
};

} // namespace tk
