// The browser as the client gets it: a plugin that the desktop loads when it first opens the
// internet pane, into a process that holds no web engine before.
#include "PaginaServer.h"
#include "app/ClientAssembly.h"
#include "data/ModData.h"
#include "screens/desktop/FrmBureaublad.h"
#include "tests/support/Werkplek.h"

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QStackedWidget>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <unistd.h>

namespace tk {
namespace {

using test::Werkplek;

bool engineGeladen() {
    QFile maps("/proc/self/maps");
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libQt6WebEngineCore");
}

template <typename T> T* zoek(const QString& naam) {
    for (QWidget* w : QApplication::allWidgets())
        if (auto* t = qobject_cast<T*>(w); t && t->objectName() == naam && t->isVisible())
            return t;
    return nullptr;
}

// A desktop of class "Groep 8" whose favourites make `thuis` the home page, with the client's
// own composition and the browser plugin at `plugin`.
struct Bureaublad {
    explicit Bureaublad(const QString& plugin, const QString& thuis = "http://a/")
        : client(w.p, plugin) {
        w.p.kanaal = &w.kanaal;
        w.p.dialogen = &w.dialogen;
        w.klas(0, "Groep 8", "12", "");
        w.kanaal.antwoorden.insert("LDNFAVGroep12", "0|Ja|Nee|Nee;<>;" + thuis + "|Thuis||Ja");
        w.p.schermen->openBureaublad(0, "12");
    }
    Werkplek w{Werkplek::bureaublad};
    ClientAssembly client;
};

TEST(BrowserPluginTest, WithoutAUsablePluginTheDesktopSaysSoAndTheLogBookSaysWhy) {
    QTemporaryDir map;
    const QString tekst = map.filePath("tafelkrater-browser.so");
    QFile bestand(tekst);
    ASSERT_TRUE(bestand.open(QIODevice::WriteOnly) && bestand.write("geen bibliotheek") > 0);
    bestand.close();
    const QString anderePlugin =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/imageformats/libqgif.so";
    ASSERT_TRUE(QFile::exists(anderePlugin)) << anderePlugin.toStdString();
    struct Case {
        const char* naam;
        QString plugin;
        const char* reden;
    };
    const Case cases[] = {
        {"missing", map.filePath("ontbreekt.so"), "is missing"},
        {"not a library", tekst, "cannot be loaded"},
        {"another interface", anderePlugin, "is not the browser plugin"},
    };
    const bool engineVooraf = engineGeladen();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        Bureaublad b(c.plugin);
        b.w.p.frmBureaublad->InternetWeergeven();
        EXPECT_FALSE(b.w.p.frmBureaublad->Internetstand);
        EXPECT_EQ(b.w.meldingen(), QStringList{b.w.p.modTaal.LaadTekst(9540)});
        EXPECT_TRUE(b.w.logboek().contains(c.plugin + " " + c.reden))
            << b.w.logboek().toStdString();
    }
    EXPECT_EQ(engineGeladen(), engineVooraf);
}

// The engine comes with the first opening, draws a real page in the pane, and stays for the next
// desktop's pane after a log off.
TEST(BrowserPluginTest, TheBuildsPluginLoadsAtTheFirstOpeningAndItsPaneDrawsThePage) {
    if (::getuid() == 0) {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
            << "the engine runs as root only with QTWEBENGINE_DISABLE_SANDBOX=1";
    }
    PaginaServer server;
    ASSERT_TRUE(server.isListening());
    server.pagina("/rood", "<html><head><title>Rood</title></head>"
                           "<body style='margin:0;background:#c03030'></body></html>");
    for (int keer = 0; keer < 2; ++keer) {
        SCOPED_TRACE(keer);
        Bureaublad b(TK_BROWSER_PLUGIN, server.adres("/rood"));
        EXPECT_EQ(engineGeladen(), keer > 0);
        b.w.p.frmBureaublad->InternetWeergeven();
        ASSERT_TRUE(b.w.p.frmBureaublad->Internetstand) << b.w.logboek().toStdString();
        EXPECT_TRUE(engineGeladen());
        auto* thuis = zoek<QToolButton>("tlbInternet2_4");
        auto* strip = zoek<QTabBar>("InternetTab");
        ASSERT_TRUE(thuis && strip);
        thuis->click();
        auto* pagina = strip->parentWidget()->findChild<QStackedWidget*>();
        ASSERT_NE(pagina, nullptr);
        // The page's colour in the middle of the view, once the engine has drawn it.
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const QImage beeld = pagina->currentWidget()->grab().toImage();
                return beeld.pixelColor(beeld.rect().center()) == QColor(0xc0, 0x30, 0x30);
            },
            20000));
        EXPECT_EQ(b.w.meldingen(), QStringList());
        b.w.p.schermen->bureaubladVerlaten();
    }
}

} // namespace
} // namespace tk
