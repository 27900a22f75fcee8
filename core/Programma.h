#pragma once

#include "core/FrmFoutrapportage.h"
#include "core/IniFiles.h"
#include "core/ModMain.h"
#include "core/ModRegistry.h"
#include "core/ModTaal.h"
#include "core/UnbuiltStartSteps.h"
#include "core/Wacht.h"
#include "platform/Platform.h"

#include <QList>
#include <memory>
#include <utility>
#include <vector>

namespace tk {

class CommandChannel;
class DialogService;
class Form;
class FrmAanmelden;
class FrmAfmelden;
class FrmBureaublad;
class FrmKlok;
class FrmMain;
class FrmMainLink;
class FrmOnderhoud;
class FrmOnderhoudVraag;
class FrmTaakbalk1;
class FrmTaakbalk2;
class FrmWachten;
class ModData;
class ModMainLaden;
class ModMainAfsluiten;
class ModMainStarten;
class ModMainVerbinding;
class ModMainOnderhoud;
class ModPictogrammen;
class ModDataPictogrammen;
class ModDataThemas;
class ModThema;
class ScreenSwitches;
class StartScreenEvents;

// The one object that holds the program: the platform layer and one instance of every module
// and form. A procedure reaches the others through it (p.modMain.LeesIni(...)), so that no state
// is global. The modules of the layers above the core are made with maak() by the client's
// composition root (or by a test), owned here, and reached through their typed pointers; what a
// lower layer asks of a higher one goes through the interfaces below, never through a pointer
// to the higher layer's class. A test builds a fresh Programma per case, so no state outlives it.
class Programma {
public:
    explicit Programma(Platform& platform);
    ~Programma();
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;

    Platform& platform;
    IniFiles iniFiles;
    tk::Wacht wacht;
    ModRegistry modRegistry;
    ModTaal modTaal;
    ModMain modMain;
    FrmFoutrapportage frmFoutrapportage;

    // Set by the layers above: the command channel (frmMain) and the modal windows.
    CommandChannel* kanaal = nullptr;
    DialogService* dialogen = nullptr;
    // The loaded forms, told when the language changes.
    QList<Form*> formulieren;

    // The steps of the start-up that the layers above provide. Until the composition root puts
    // the client's own steps here, every step is an unbuilt one that says so in the log book.
    UnbuiltStartSteps unbuiltSteps{*this};
    OpstartStappen* opstartStappen = &unbuiltSteps;
    // The start screen as the link, the load and the theme and icon fetches see it.
    StartScreenEvents* startScreenEvents = nullptr;
    // The ways between the screens (start screen, desktop, maintenance module, browser).
    ScreenSwitches* schermen = nullptr;

    // The modules of the higher layers, made with maak() by those layers.
    FrmMainLink* frmMain = nullptr; // frmMain's link to the server: WS, the dispatcher
    ModMainVerbinding* modMainVerbinding = nullptr;
    ModData* modData = nullptr;                 // the global tables and their loaders
    ModMainLaden* modMainLaden = nullptr;       // modMain.Laden: the load of the whole data set
    ModThema* modThema = nullptr;               // the theme state and modMain.LaadThema
    ModPictogrammen* modPictogrammen = nullptr; // icon libraries and icon drawing
    ModDataThemas* modDataThemas = nullptr;     // modData.LaadThemas: the theme store
    ModDataPictogrammen* modDataPictogrammen = nullptr; // modData.LaadPictogrammen: icon store
    FrmMain* startScreen = nullptr;                     // frmMain as the screen a pupil sees
    FrmTaakbalk1* frmTaakbalk1 = nullptr;               // the start-screen taskbar
    ModMainAfsluiten* modMainAfsluiten = nullptr;       // the close options and what they do
    FrmWachten* frmWachten = nullptr;                   // the wait window
    FrmAanmelden* frmAanmelden = nullptr;               // the logging-in window
    FrmAfmelden* frmAfmelden = nullptr;                 // the log-off question of the taskbars
    FrmBureaublad* frmBureaublad = nullptr;             // the desktop of a class or teacher
    ModMainStarten* modMainStarten = nullptr;           // starting programs, display modes, drives
    FrmTaakbalk2* frmTaakbalk2 = nullptr;               // the desktop's taskbar and its tasks
    FrmKlok* frmKlok = nullptr;                         // the desktop clock
    // The maintenance module, its exclusive-access question and check (made when first asked).
    FrmOnderhoud* frmOnderhoud = nullptr;
    FrmOnderhoudVraag* frmOnderhoudVraag = nullptr;
    ModMainOnderhoud* modMainOnderhoud = nullptr;

    // Global state the desktop and its taskbar share: the desktop is up, and the internet pane
    // is its active part (65535) or not (0).
    bool BureaubladOpen = false;
    int InternetOpen = 0;

    // What the client must have and does not: the names of the interfaces and modules that are
    // still unset (the desktop's modules are made when a desktop first opens and are not
    // counted). The client refuses to start while this is not empty.
    QStringList unwired() const;

    // Ends the program: every wait returns and the event loop is asked to quit. The process ends
    // when control is back in main().
    void Einde(int code = 0);
    bool beeindigd = false;

    // Makes a module of a higher layer, owned by the program, and points `plek` at it.
    template <class T, class... Args> T& maak(T*& plek, Args&&... args) {
        auto onderdeel = std::make_unique<T>(std::forward<Args>(args)...);
        T* kaal = onderdeel.get();
        m_onderdelen.emplace_back(onderdeel.release(), [](void* o) { delete static_cast<T*>(o); });
        plek = kaal;
        return *kaal;
    }

private:
    std::vector<std::unique_ptr<void, void (*)(void*)>> m_onderdelen;
};

} // namespace tk
