// The editor of the filter's lists: the button rules of the model, the update over HTTP from a
// page server on loopback (good lists, failures and answers that are no list), the window by
// name and keyboard, and the round trip through the real server.
#include "screens/maintenance/FrmInternetFilter.h"
#include "data/ModData.h"
#include "link/WebFetch.h"
#include "screens/maintenance/FrmInternetFilterView.h"
#include "tests/browser/PaginaServer.h"
#include "tests/screens/PngBewaren.h"
#include "tests/support/Werkplek.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

class FilterEditor : public ::testing::Test {
protected:
    FilterEditor() {
        w.platform.fakeClock().setStepPerRead(5);
        w.p.maak(w.p.modData, w.p);
        w.p.modData->VerbodenWoorden = "kat|url>slecht.nl";
        w.p.modData->ToegestaneSites = "school.nl";
        webadres(web.adres("/"), 0);
        f.Form_Load();
        f.onChanged = [this] {
            staten << Staat{f.lblStatus, f.picStatusZichtbaar, f.Bezig, f.cmdUpdatenEnabled};
        };
    }
    // The web address of the settings, and what the test of the connection answers for it.
    void webadres(const QString& adres, int ping) {
        w.p.modMain.MaakMappen("\\Data");
        w.p.modMain.SchrijfIni(adres, "Instellingen", "Webadres", "\\Data\\Instellingen.ini");
        const QUrl url(adres);
        w.platform.fakeNetwork().status.insert(url.host() + ":" + QString::number(url.port()),
                                               ping);
    }
    QString tekst(int id) { return w.p.modTaal.LaadTekst(id); }

    // What the window was told to show, change by change.
    struct Staat {
        QString status;
        bool voortgang, bezig, updaten;
        bool operator==(const Staat&) const = default;
    };

    Werkplek w;
    PaginaServer web;
    FrmInternetFilter f{w.p};
    QList<Staat> staten;
};

} // namespace

TEST_F(FilterEditor, AddingAndRemovingFollowTheButtonRules) {
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden), QStringList{"kat"});
    EXPECT_EQ(f.lijsten.lijst(FilterLists::GSites), QStringList{"slecht.nl"});
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Sites), QStringList{"school.nl"});
    // Typing enables Add, Enter adds and empties the field.
    f.txt_Change(0, "  ");
    EXPECT_FALSE(f.cmdKnopEnabled[0]);
    f.txt_Enter(0);
    f.txt_Change(0, " Hond ");
    EXPECT_TRUE(f.cmdKnopEnabled[0]);
    f.txt_Enter(0);
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden), QStringList({"kat", "Hond"}));
    EXPECT_EQ(f.txt[0], "");
    EXPECT_FALSE(f.cmdKnopEnabled[0]);
    EXPECT_EQ(f.lblAantal(0), "Items in this list: 2");
    // A refusal keeps the text and says why.
    struct Case {
        int lijst;
        QString tekst, melding;
    };
    const Case refusals[] = {
        {0, "HOND", "“HOND” is already in the list."},
        {0, "+18", tekst(9603)},
        {0, "url>x.nl",
         "A word that begins with “url>” is a blocked site: add it under “Blocked "
         "sites” without “url>”."},
        {2, "a|b", tekst(9602)},
        {2, QString(FilterLists::LangsteItem, 's'), "An item can be at most 1994 characters long."},
        {0, QString(FilterLists::LangsteItem + 1, 'w'),
         "An item can be at most 1998 characters long."},
        {1, "łódź.pl", tekst(9605)},
    };
    for (const Case& c : refusals) {
        SCOPED_TRACE(c.tekst.left(20).toStdString());
        f.txt_Change(c.lijst, c.tekst);
        f.cmdKnop_Click(2 * c.lijst);
        EXPECT_EQ(f.lblStatus, c.melding);
        EXPECT_EQ(f.txt[size_t(c.lijst)], c.tekst);
    }
    EXPECT_EQ(f.lijsten.verbodenWoorden(), "kat|Hond|url>slecht.nl");
    for (int l : {0, 1, 2})
        f.txt_Change(l, "");
    // Selecting enables Remove; an entry outside the list selects nothing.
    EXPECT_FALSE(f.cmdKnopEnabled[1]);
    f.lst_Click(0, 2);
    EXPECT_FALSE(f.cmdKnopEnabled[1]);
    f.lst_Click(0, 0);
    EXPECT_TRUE(f.cmdKnopEnabled[1]);
    f.cmdKnop_Click(1);
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden), QStringList{"Hond"});
    EXPECT_FALSE(f.cmdKnopEnabled[1]);
    f.lst_Click(2, 0);
    EXPECT_EQ(f.cmdKnopEnabled, (std::array<bool, 6>{false, false, false, false, false, true}));
    f.cmdKnop_Click(5);
    EXPECT_TRUE(f.lijsten.lijst(FilterLists::GSites).isEmpty());
    // The web has words and blocked sites, not the school's allowed sites.
    for (int tab : {0, 1, 2}) {
        f.Tabstrip_Click(tab);
        EXPECT_EQ(f.cmdUpdatenEnabled, tab != 1);
    }
    // Saving without a link fails with the message and keeps what the program had; while it
    // waits for the server nothing else can be pressed.
    staten.clear();
    f.cmdOpslaan_Click();
    EXPECT_EQ(staten.first().bezig, true);
    EXPECT_EQ(staten.last().bezig, false);
    EXPECT_EQ(w.meldingen(), QStringList{tekst(3311)});
    EXPECT_FALSE(f.Opgeslagen);
    EXPECT_EQ(w.p.modData->VerbodenWoorden, "kat|url>slecht.nl");
    EXPECT_EQ(w.p.modData->ToegestaneSites, "school.nl");
    f.cmdAnnuleren_Click();
    EXPECT_FALSE(f.Open);
    EXPECT_EQ(w.p.modData->VerbodenWoorden, "kat|url>slecht.nl");
}

TEST_F(FilterEditor, UpdateFromTheWebAddressCountsNewItemsAndNamesEveryFailure) {
    const QByteArray woorden = "/applicatie/verbodenwoorden.txt";
    const QByteArray sites = "/applicatie/geblokkeerdesites.txt";
    const QByteArray groot(50 * 1024 * 1024, 'a');
    struct Case {
        const char* naam;
        bool sites;
        QByteArray inhoud, soort;
        bool metLengte;
        int nieuw;
        QString melding;
        const char* woordenNa;
    };
    const Case cases[] = {
        {"CR LF", false, "KAT\r\nhond\r\n\r\nHond\r\nvis\r\n", "text/plain", true, 2,
         "Forbidden words list is updated successfully!\r\nNew forbidden words: 2",
         "kat|hond|vis|url>slecht.nl"},
        {"bare LF, sites", true, "url>slecht.nl\nspel.nl\n", "", false, 1,
         "Forbidden words list is updated successfully!\r\nNew forbidden words: 1",
         "kat|url>slecht.nl|url>spel.nl"},
        {"nothing new, skipped lines", false, "kat\n+18\n\x81x\n" + QByteArray(10'000, 'w'),
         "text/plain", true, 0,
         "Forbidden words list is updated successfully!\r\nNew forbidden words: 0\r\n"
         "Lines skipped: 3",
         "kat|url>slecht.nl"},
        {"a web page", false, "<html><body>kat</body></html>", "text/html; charset=utf-8", true, -1,
         "The web server did not send a text list (text/html; charset=utf-8). The lists are "
         "unchanged.",
         "kat|url>slecht.nl"},
        {"50 MB announced", false, groot, "text/plain", true, -1,
         "The answer of the web server is larger than 4 MB, so it is not a list. The lists are "
         "unchanged.",
         "kat|url>slecht.nl"},
        {"50 MB unannounced", false, groot, "text/plain", false, -1,
         "The answer of the web server is larger than 4 MB, so it is not a list. The lists are "
         "unchanged.",
         "kat|url>slecht.nl"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        // A page without a type of its own carries another header, so that none is sent.
        const QByteArray koppen = c.soort.isEmpty() ? QByteArray("Cache-Control: no-store\r\n")
                                                    : "Content-Type: " + c.soort + "\r\n";
        web.pagina(c.sites ? sites : woorden, c.inhoud, {}, koppen, c.metLengte);
        f.Form_Load();
        w.dialogen.gesteld.clear();
        f.Tabstrip_Click(c.sites ? 2 : 0);
        staten.clear();
        EXPECT_EQ(f.VerbodenWoordenUpdaten(c.sites), c.nieuw);
        // While the list comes in, the status names it, the progress shows and nothing else can
        // be pressed.
        ASSERT_GE(staten.size(), 3);
        EXPECT_EQ(staten[0], (Staat{"", false, true, false}));
        EXPECT_EQ(staten[1], (Staat{tekst(c.sites ? 2935 : 2934), true, true, false}));
        EXPECT_EQ(staten.last(), (Staat{f.lblStatus, false, false, true}));
        EXPECT_EQ(w.meldingen(), QStringList{c.melding});
        EXPECT_EQ(f.lijsten.verbodenWoorden(), QString(c.woordenNa));
        EXPECT_FALSE(f.Bezig);
        EXPECT_TRUE(f.cmdUpdatenEnabled);
        EXPECT_FALSE(f.picStatusZichtbaar);
    }

    // Failures before anything is fetched, and a list that is not there.
    struct Fout {
        QString adres;
        int ping;
        QString melding;
    };
    const Fout fouten[] = {
        {"", 0, tekst(9606)},
        {web.adres("/"), 11003, tekst(2933)},
        {web.adres("/elders"), 0,
         "The list could not be fetched from " + web.adres("/elders") +
             "/applicatie/verbodenwoorden.txt.\r\nError transferring " + web.adres("/elders") +
             "/applicatie/verbodenwoorden.txt - server replied: Not Found"},
    };
    for (const Fout& c : fouten) {
        SCOPED_TRACE(c.melding.toStdString());
        webadres(c.adres, c.ping);
        w.dialogen.gesteld.clear();
        EXPECT_EQ(f.VerbodenWoordenUpdaten(false), -1);
        EXPECT_EQ(w.meldingen(), QStringList{c.melding});
    }

    // A server that takes the request and never answers ends the fetch after its silence.
    QTcpServer stil;
    ASSERT_TRUE(stil.listen(QHostAddress::LocalHost, 0));
    const WebFetch::Resultaat r = WebFetch::haal(
        w.p.wacht, QUrl(QString("http://127.0.0.1:%1/x").arg(stil.serverPort())), 100, 200);
    EXPECT_EQ(r.uitkomst, WebFetch::Resultaat::Uitkomst::Mislukt);
    // The program's end ends a fetch.
    w.p.wacht.Stop();
    EXPECT_EQ(WebFetch::haal(w.p.wacht, QUrl(web.adres("/")), 1024).uitkomst,
              WebFetch::Resultaat::Uitkomst::Gestopt);
}

TEST_F(FilterEditor, TheWindowNamesEveryControlAndWorksByKeyboard) {
    FrmInternetFilterView v(f);
    f.Open = true;
    v.show();
    // Every control that takes the focus has a name a screen reader can read.
    for (QWidget* c : v.findChildren<QWidget*>()) {
        if (!c->isVisible() || c->focusPolicy() == Qt::NoFocus)
            continue;
        SCOPED_TRACE(c->objectName().toStdString());
        QAccessibleInterface* a = QAccessible::queryAccessibleInterface(c);
        ASSERT_NE(a, nullptr);
        EXPECT_FALSE(a->text(QAccessible::Name).isEmpty());
    }
    EXPECT_EQ(v.findChild<QPushButton*>("cmdKnop0")->accessibleName(), "Add: Forbidden words");
    // Type a word and press Enter; select it and press Delete.
    QTest::keyClicks(v.veld(0), "hond");
    QTest::keyClick(v.veld(0), Qt::Key_Return);
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden), QStringList({"kat", "hond"}));
    EXPECT_EQ(v.lijst(0)->count(), 2);
    EXPECT_TRUE(v.isVisible()); // Enter belongs to the field, not to a default button
    QTest::keyClicks(v.veld(0), "HOND");
    QTest::keyClick(v.veld(0), Qt::Key_Enter);
    EXPECT_EQ(v.findChild<QLabel*>("lblStatus")->text(), "“HOND” is already in the list.");
    EXPECT_EQ(v.veld(0)->text(), "HOND");
    tk::test::bewaarPng(v.grab().toImage(), "FrmInternetFilterView");
    v.lijst(0)->setFocus();
    v.lijst(0)->setCurrentRow(0);
    QTest::keyClick(v.lijst(0), Qt::Key_Delete);
    EXPECT_EQ(f.lijsten.lijst(FilterLists::Woorden), QStringList{"hond"});
    // Ctrl+Tab reaches the next tab, where the model follows; Escape cancels.
    QTest::keyClick(v.tabstrip(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(f.Tab, 1);
    EXPECT_FALSE(v.findChild<QPushButton*>("cmdUpdaten")->isEnabled());
    QTest::keyClick(&v, Qt::Key_Escape);
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(f.Open);
}
