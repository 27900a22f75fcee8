#include "screens/browser/BrowserPane.h"
#include "PaginaServer.h"
#include "tests/support/QtPrinters.h"

#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include <unistd.h>

namespace tk {
namespace {

// The pane on the real engine against pages on loopback; the filter's words are "krokodil" and
// "olifant", texts come back as "T<id>".
class BrowserPaneTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (::getuid() == 0) {
            ASSERT_FALSE(qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
                << "the engine runs as root only with QTWEBENGINE_DISABLE_SANDBOX=1";
        }
        ASSERT_TRUE(server.isListening());
        server.pagina("/schoon", "<html><head><title>Schoon</title></head>"
                                 "<body><p>Een gewone pagina over dieren.</p></body></html>");
        server.pagina("/titel", "<html><head><title>De krokodil</title></head>"
                                "<body><p>Niets aan de hand.</p></body></html>");
        server.pagina("/tekst", "<html><head><title>Dieren</title></head>"
                                "<body><p>Hier woont een olifant.</p></body></html>");
        server.pagina("/opener", "<html><head><title>Opener</title></head><body>"
                                 "<script>window.open('/schoon')</script></body></html>");
        server.pagina("/zet", "<html><head><title>Zet</title></head><body>ja</body></html>",
                      "leerling=een");
        server.pagina("/lees", "<html><head><title>Lees</title></head><body>ja</body></html>");
        server.pagina("/bestand", "inhoud van een bestand", {},
                      "Content-Type: application/octet-stream\r\n"
                      "Content-Disposition: attachment; filename=\"bestand.bin\"\r\n");
    }

    std::unique_ptr<BrowserPane>
    maakPane(const std::function<void(BrowserOmgeving&)>& aanpassen = {}) {
        BrowserOmgeving o;
        o.filter = PageFilter("krokodil|olifant", QString());
        o.instellingen.Filteren = true;
        o.programmaMap = QStringLiteral(TK_PROGRAMMA_MAP);
        o.tekst = [](int id) { return QString("T%1").arg(id); };
        o.meld = [this](const QString& m) { meldingen.append(m); };
        o.afdrukMap = map.path();
        if (aanpassen)
            aanpassen(o);
        auto pane = std::make_unique<BrowserPane>(std::move(o));
        pane->resize(1024, 700);
        pane->show();
        return pane;
    }

    static bool eindigtOp(const BrowserPane& pane, int slot, const QString& einde) {
        return pane.view(slot) && pane.view(slot)->url().toString().endsWith(einde);
    }
    // Loaded and through the page check: the status is "approved" or "blocked".
    static bool gecontroleerd(const BrowserPane& pane, int slot) {
        const QString s = pane.tabs().tab(slot).Status;
        return s == "T732" || s == "T731";
    }

    PaginaServer server;
    QStringList meldingen;
    QTemporaryDir map;
};

TEST_F(BrowserPaneTest, AForbiddenWordInTitleOrBodyShowsTheBlockedPageInItsOwnTabOnly) {
    auto pane = maakPane();
    pane->ga(server.adres("/schoon"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return gecontroleerd(*pane, 0); }, 20000));
    EXPECT_EQ(pane->tabs().tab(0).Status, "T732");
    for (const char* pad : {"/titel", "/tekst"}) {
        SCOPED_TRACE(pad);
        const int slot = pane->NieuwTabblad(server.adres(pad));
        ASSERT_GT(slot, 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return eindigtOp(*pane, slot, "niet goedgekeurd.html"); },
                                    20000));
        EXPECT_EQ(pane->tabs().tab(slot).Adres, PageFilter::GeblokkeerdAdres.toString());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return pane->tabs().tab(slot).Titel == PageFilter::FilterTitel.toString(); }));
        EXPECT_EQ(pane->tabs().tab(slot).Status, "T731");
    }
    EXPECT_EQ(pane->view(0)->url().toString(), server.adres("/schoon"));
    EXPECT_EQ(pane->tabs().tab(0).Titel, "Schoon");
}

TEST_F(BrowserPaneTest, ALocalFileIsRefusedSilentlyAndAnUnknownHostShowsNotFound) {
    auto pane = maakPane();
    pane->ga(server.adres("/schoon"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return gecontroleerd(*pane, 0); }, 20000));
    QSignalSpy klaar(pane->view(0)->page(), &QWebEnginePage::loadFinished);
    pane->ga("file:///etc/passwd");
    // The refused navigation ends without a page.
    ASSERT_TRUE(klaar.wait(20000));
    EXPECT_FALSE(klaar.first().first().toBool());
    EXPECT_EQ(pane->view(0)->url().toString(), server.adres("/schoon"));
    EXPECT_EQ(pane->tabs().tab(0).Adres, server.adres("/schoon"));
    for (const QWebEngineHistoryItem& item : pane->view(0)->history()->items())
        EXPECT_NE(item.url().scheme(), "file");

    pane->ga("http://nergens.invalid/");
    ASSERT_TRUE(QTest::qWaitFor([&] { return eindigtOp(*pane, 0, "niet gevonden.html"); }, 20000));
    EXPECT_TRUE(meldingen.isEmpty());
}

TEST_F(BrowserPaneTest, AScriptWindowBecomesATabClosesItselfAndTheFortyFirstIsRefused) {
    auto pane = maakPane();
    pane->ga(server.adres("/opener"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->tabs().aantal() == 2; }, 20000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return gecontroleerd(*pane, 1); }, 20000));
    EXPECT_EQ(pane->view(1)->url().toString(), server.adres("/schoon"));
    EXPECT_EQ(pane->tabs().TabIndex(), 1);

    // The page a script opened may ask to be moved and resized; the pane stays as it is.
    const QRect paneVooraf = pane->geometry();
    const QRect viewVooraf = pane->view(1)->geometry();
    QSignalSpy verzoek(pane->view(1)->page(), &QWebEnginePage::geometryChangeRequested);
    pane->view(1)->page()->runJavaScript("window.resizeTo(300, 200); window.moveTo(40, 50)");
    ASSERT_TRUE(verzoek.wait(20000));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane->geometry(), paneVooraf);
    EXPECT_EQ(pane->view(1)->geometry(), viewVooraf);

    // window.close() of the page the script opened closes its tab.
    pane->view(1)->page()->runJavaScript("window.close()");
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->tabs().aantal() == 1; }, 20000));
    EXPECT_EQ(pane->tabs().TabIndex(), 0);

    while (pane->tabs().aantal() < BrowserTabs::MaxTabs)
        ASSERT_GE(pane->NieuwTabblad(), 0);
    EXPECT_EQ(pane->NieuwTabblad(), -1);
    EXPECT_EQ(meldingen, QStringList{"T727"});
    // Forty pages with their engine processes are slow to come up on a busy machine: the
    // deadline only ends a wait that would otherwise hang.
    pane->view(0)->page()->runJavaScript("window.open('/schoon')");
    ASSERT_TRUE(QTest::qWaitFor([&] { return meldingen.size() == 2; }, 120000));
    EXPECT_EQ(meldingen.last(), "T727");
    EXPECT_EQ(pane->tabs().aantal(), BrowserTabs::MaxTabs);
}

TEST_F(BrowserPaneTest, ASecondPupilAfterLogOffFindsNoCookieOfTheFirst) {
    auto eerste = maakPane();
    EXPECT_TRUE(eerste->profiel()->isOffTheRecord());
    eerste->ga(server.adres("/zet"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return gecontroleerd(*eerste, 0); }, 20000));
    eerste->ga(server.adres("/lees"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.verzoeken("/lees") == 1; }, 20000));
    // The first pupil's own pages do see the cookie.
    EXPECT_EQ(server.koekjeVan("/lees"), QByteArray("leerling=een"));
    eerste.reset();

    auto tweede = maakPane();
    tweede->ga(server.adres("/lees"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.verzoeken("/lees") == 2; }, 20000));
    EXPECT_TRUE(server.koekjeVan("/lees").isEmpty());
}

TEST_F(BrowserPaneTest, KeysWorkTheTabsAndHistoryAndEveryControlIsNamedFromTheStringTable) {
    auto pane = maakPane();
    pane->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(pane.get()));
    QWidget* adres = pane->findChild<QWidget*>("txtInternet");
    ASSERT_NE(adres, nullptr);
    QTest::keyClick(adres, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(pane->tabs().aantal(), 2);
    QTest::keyClick(adres, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(pane->tabs().aantal(), 1);
    pane->view(0)->setFocus();
    QTest::keyClick(pane.get(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(adres->hasFocus());

    // Back and forward from inside the page, where the keys reach the engine first.
    // Each page loaded and checked (its title shows) before the next: a navigation that begins
    // before the one before it has shown its page takes that page's place in the history.
    for (const auto& [pad, titel] : {std::pair{"/schoon", "Schoon"}, {"/lees", "Lees"}}) {
        pane->ga(server.adres(pad));
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                return gecontroleerd(*pane, 0) && pane->tabs().tab(0).Titel == titel &&
                       eindigtOp(*pane, 0, QString::fromLatin1(pad));
            },
            20000))
            << pad;
    }
    QWidget* pagina = pane->view(0)->focusProxy() ? pane->view(0)->focusProxy() : pane->view(0);
    pagina->setFocus();
    QTest::keyClick(pagina, Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return eindigtOp(*pane, 0, "/schoon"); }, 20000));
    QTest::keyClick(pagina, Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return eindigtOp(*pane, 0, "/lees"); }, 20000));

    struct Naam {
        const char* object;
        const char* naam;
    };
    const Naam namen[] = {
        {"tlbInternet2_0", "T737"}, {"tlbInternet2_1", "T738"}, {"tlbInternet2_2", "T739"},
        {"tlbInternet2_3", "T740"}, {"tlbInternet2_4", "T741"}, {"tlbInternet2_6", "T742"},
        {"tlbInternet2_8", "T601"}, {"knopInternet", "T744"},   {"knopInternetTab", "T9580"},
        {"txtInternet", "T743"},    {"tvFavorieten", "T729"},   {"InternetTab", "T9581"},
    };
    for (const Naam& n : namen) {
        const QWidget* w = pane->findChild<QWidget*>(QString::fromLatin1(n.object));
        ASSERT_NE(w, nullptr) << n.object;
        EXPECT_EQ(w->accessibleName(), QString::fromLatin1(n.naam)) << n.object;
        if (qobject_cast<const QToolButton*>(w)) {
            EXPECT_EQ(w->toolTip(), QString::fromLatin1(n.naam)) << n.object;
        }
    }
}

TEST_F(BrowserPaneTest, APaneRefusesDownloadsAndPrintsToAFileWithoutAPrinter) {
    auto pane = maakPane();
    pane->profiel()->setDownloadPath(map.filePath("downloads"));
    pane->ga(server.adres("/schoon"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return gecontroleerd(*pane, 0); }, 20000));

    QSignalSpy download(pane->profiel(), &QWebEngineProfile::downloadRequested);
    pane->ga(server.adres("/bestand"));
    ASSERT_TRUE(download.wait(20000));
    auto* verzoek = download.first().first().value<QWebEngineDownloadRequest*>();
    ASSERT_NE(verzoek, nullptr);
    EXPECT_EQ(verzoek->state(), QWebEngineDownloadRequest::DownloadCancelled);
    QCoreApplication::processEvents();
    EXPECT_FALSE(QDir(map.filePath("downloads")).exists());
    EXPECT_EQ(pane->view(0)->url().toString(), server.adres("/schoon"));

    pane->knop(int(BrowserTabs::Knop::Afdrukken));
    const auto pdf = [&] {
        const QStringList f = QDir(map.path()).entryList({"*.pdf"}, QDir::Files);
        if (f.isEmpty())
            return QByteArray();
        QFile bestand(map.filePath(f.first()));
        return bestand.open(QIODevice::ReadOnly) ? bestand.read(5) : QByteArray();
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return pdf() == "%PDF-"; }, 20000));
}

TEST_F(BrowserPaneTest, FavouritesOnlyLocksTheAddressAndTheTreeLeadsToTheFavourites) {
    int proxy = 0;
    auto pane = maakPane([&](BrowserOmgeving& o) {
        o.instellingen.Internetmodus = 1;
        o.instellingen.Favorieten = {server.adres("/schoon")};
        o.favorieten = {{server.adres("/schoon"), "Schoon"}, {server.adres("/tekst"), QString()}};
        o.proxy = true;
        o.zetProxy = [&] { ++proxy; };
    });
    auto* adres = pane->findChild<QLineEdit*>("txtInternet");
    ASSERT_NE(adres, nullptr);
    EXPECT_TRUE(adres->isReadOnly());
    pane->ga(server.adres("/lees"));
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return eindigtOp(*pane, 0, "niet goedgekeurd.html"); }, 20000));
    EXPECT_EQ(server.verzoeken("/lees"), 0);
    EXPECT_EQ(pane->tabs().tab(0).Status, "T731");

    // The tree: the root and one node per favourite, a name or else the address.
    auto* boom = pane->findChild<QTreeWidget*>("tvFavorieten");
    ASSERT_NE(boom, nullptr);
    ASSERT_EQ(boom->topLevelItemCount(), 1);
    QTreeWidgetItem* root = boom->topLevelItem(0);
    EXPECT_EQ(root->text(0), "T729");
    ASSERT_EQ(root->childCount(), 2);
    EXPECT_EQ(root->child(0)->text(0), "Schoon");
    EXPECT_EQ(root->child(1)->text(0), server.adres("/tekst"));
    EXPECT_TRUE(boom->isHidden());
    const int links = pane->view(0)->mapTo(pane.get(), QPoint()).x();
    pane->knop(int(BrowserTabs::Knop::Favorieten));
    EXPECT_FALSE(boom->isHidden());
    EXPECT_EQ(pane->view(0)->mapTo(pane.get(), QPoint()).x() - links,
              BrowserTabs::LinksMetPaneel - BrowserTabs::Rand);
    EXPECT_TRUE(boom->hasFocus());
    pane->tvFavorieten_NodeClick(root);
    // The keyboard chooses the first favourite.
    EXPECT_EQ(boom->currentItem(), root->child(0));
    QTest::keyClick(boom, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane->tabs().tab(0).Status == "T732"; }, 20000));
    EXPECT_EQ(pane->view(0)->url().toString(), server.adres("/schoon"));

    // tmrProxy switched the proxy on once and stopped.
    EXPECT_TRUE(QTest::qWaitFor([&] { return proxy == 1; }, 20000));
    EXPECT_FALSE(pane->tmrProxy().isActive());
    EXPECT_EQ(proxy, 1);
}

// What the page shows is checked however it came: a page that never finishes or is stopped, a
// frame's text, a text the page's own scripts hide from the check, an address a script takes
// without a navigation, a page left by a navigation that never showed (a download).
TEST_F(BrowserPaneTest, EveryPageThatShowsIsCheckedHoweverItCame) {
    server.stil("/nooit");
    const QByteArray olifant = "<p>Hier woont een olifant.</p>";
    server.pagina("/hangt", "<html><body>" + olifant + "<img src=\"/nooit\"></body></html>");
    server.pagina("/raam", "<html><body><iframe src=\"/tekst\"></iframe></body></html>");
    server.pagina("/verberg", "<html><body>" + olifant +
                                  "<script>Object.defineProperty(HTMLElement.prototype, "
                                  "'innerText', {get: () => ''});</script></body></html>");
    server.pagina("/geschiedenis", "<html><body>ja<script>setTimeout(() => {"
                                   "history.pushState({}, '', '/verder');"
                                   "document.body.textContent = 'olifant'}, 300)</script>"
                                   "</body></html>");
    server.pagina("/weg", "<html><body>" + olifant +
                              "<script>onload = () => location = '/bestand'</script>"
                              "</body></html>");
    auto pane = maakPane();
    for (const char* pad : {"/hangt", "/gestopt", "/raam", "/verberg", "/geschiedenis", "/weg"}) {
        SCOPED_TRACE(pad);
        const bool stop = pad == std::string("/gestopt");
        const int slot = pane->NieuwTabblad(server.adres(stop ? "/hangt" : pad));
        ASSERT_GE(slot, 0);
        if (stop) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return server.verzoeken("/nooit") == 2; }, 20000));
            pane->knop(2);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return eindigtOp(*pane, slot, "niet goedgekeurd.html"); },
                                    20000));
    }
}

} // namespace
} // namespace tk
