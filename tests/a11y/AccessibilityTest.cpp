// What a screen reader and AT-SPI see of the painted screens: an accessible object per painted
// control with its role, name, state and press action, read through Qt's accessibility
// interfaces (offscreen: the same calls the AT-SPI bridge makes).
#include "controls/AccessibleName.h"
#include "screens/common/AccessibleFactory.h"
#include "screens/common/PaintedControlAccessible.h"
#include "screens/common/PaintedControls.h"
#include "screens/common/PaintingViewAccessible.h"
#include "screens/desktop/FrmBureaubladView.h"
#include "screens/start/FrmMainView.h"
#include "screens/taskbar/FrmTaakbalk1View.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "screens/taskbar/FrmTaakbalk2View.h"
#include "tests/support/Werkplek.h"

#include <QAccessibleActionInterface>
#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

// The first object below `wortel` (depth first) with this role and name, as a screen reader
// finds it, or null.
QAccessibleInterface* zoek(QAccessibleInterface* wortel, QAccessible::Role rol,
                           const QString& naam) {
    for (int i = 0; wortel && i < wortel->childCount(); ++i) {
        QAccessibleInterface* kind = wortel->child(i);
        if (kind && kind->role() == rol && kind->text(QAccessible::Name) == naam &&
            !kind->state().invisible)
            return kind;
        if (QAccessibleInterface* dieper = zoek(kind, rol, naam))
            return dieper;
    }
    return nullptr;
}
// How many objects lie below `wortel`.
int tel(QAccessibleInterface* wortel) {
    int n = 0;
    for (int i = 0; wortel && i < wortel->childCount(); ++i)
        n += 1 + tel(wortel->child(i));
    return n;
}

struct Rij {
    const char* soort; // what the row checks, for the failure message
    QAccessible::Role rol;
    QString naam;
    bool drukbaar;
};

void controleer(QAccessibleInterface* wortel, const QList<Rij>& rijen) {
    for (const Rij& r : rijen) {
        SCOPED_TRACE(std::string(r.soort) + ": " + r.naam.left(40).toStdString());
        QAccessibleInterface* i = zoek(wortel, r.rol, r.naam);
        ASSERT_NE(nullptr, i);
        EXPECT_TRUE(i->isValid());
        EXPECT_FALSE(i->rect().isEmpty());
        const QStringList acties =
            i->actionInterface() ? i->actionInterface()->actionNames() : QStringList();
        EXPECT_EQ(r.drukbaar, acties.contains(QAccessibleActionInterface::pressAction()));
        // The parent knows the child at the index it reports, and the one at its middle.
        QAccessibleInterface* ouder = i->parent();
        ASSERT_NE(nullptr, ouder);
        EXPECT_EQ(i, ouder->child(ouder->indexOfChild(i)));
        EXPECT_EQ(i, ouder->childAt(i->rect().center().x(), i->rect().center().y()));
        EXPECT_EQ(-1, ouder->indexOfChild(nullptr));
    }
}

struct Startscherm : Werkplek {
    Startscherm() : Werkplek(startscherm) {
        AccessibleFactory::installeren();
        p.modTaal.Taal = 1033;
        p.schermen = &schermen;
        startKlas(0, "Groep 1A", "1A");
        startKlas(1, " ", "");                                                  // a blank name
        startKlas(2, QString(10000, QChar(u'x')), QString(10000, QChar(u'x'))); // a runaway name
        startKlas(3, QString::fromUtf8("مدرسة"), QString::fromUtf8("مدرسة"));   // right to left
        balk1().Zichtbaar = true;
        balk1().LadenVormgeving();
        balk1().Form_Activate();
        balk1().ToonAccounts();
        f().Form_Load();
        f().AccountKlik(0);
        view = std::make_unique<FrmMainView>(f());
        auto* b = new FrmTaakbalk1View(balk1(), view->canvas());
        b->move(0, FrmMain::Hoogte);
        view->canvas()->taakbalk = b;
        view->show();
        wortel = QAccessible::queryAccessibleInterface(view.get());
    }
    OpnameSchermen schermen;
    std::unique_ptr<FrmMainView> view;
    QAccessibleInterface* wortel = nullptr;
};

} // namespace

TEST(AccessibilityTest, StartScreenGivesEveryPaintedControlItsRoleNameStateAndPress) {
    Startscherm w;
    const QString lang = QString(AccessibleName::Langste - 1, QChar(u'x')) + QChar(0x2026);
    QList<Rij> rijen = {
        {"class button", QAccessible::Button, "Groep 1A", true},
        {"class without a name", QAccessible::Button, "Class 2", true},
        {"class with a runaway name", QAccessible::Button, lang, true},
        {"class in a right-to-left script", QAccessible::Button, QString::fromUtf8("مدرسة"), true},
        {"cloud", QAccessible::StaticText, w.f().ballonTekst, false},
        {"account button", QAccessible::Button, "Children", true},
        {"account button", QAccessible::Button, "Teachers", true},
    };
    for (const auto& k : w.balk1().knoppen)
        rijen.append({"taskbar button", QAccessible::Button, k.toegankelijkeNaam(), true});
    controleer(w.wortel, rijen);

    // In the other language the names follow.
    w.p.modTaal.Taal = 1043;
    w.balk1().LadenVormgeving();
    w.f().WeergevenKlassen(true);
    w.f().AccountKlik(0);
    controleer(w.wortel, {{"account button", QAccessible::Button, "Leerkrachten", true},
                          {"class without a name", QAccessible::Button, "Groep 2", true}});

    // A class taken away takes its button out of the tree that was read before.
    const int objecten = tel(w.wortel);
    w.startKlas(3, "", "");
    w.f().WeergevenKlassen(true);
    w.f().AccountKlik(0);
    EXPECT_EQ(objecten - 1, tel(w.wortel));
    EXPECT_EQ(nullptr, zoek(w.wortel, QAccessible::Button, QString::fromUtf8("مدرسة")));
    controleer(w.wortel, {{"class button", QAccessible::Button, "Groep 1A", true}});
    // A child that is no widget, or a window of its own, is not a control of the screen.
    new QObject(w.view->canvas());
    new QWidget(w.view->canvas(), Qt::Window);
    EXPECT_EQ(objecten - 1, tel(w.wortel));

    // On a fresh start screen: the keyboard's focus and a disabled account are states;
    // pressing a class by its name opens its desktop.
    Startscherm v;
    QAccessibleInterface* klas = zoek(v.wortel, QAccessible::Button, "Groep 1A");
    ASSERT_NE(nullptr, klas);
    EXPECT_FALSE(klas->state().focused);
    EXPECT_TRUE(v.f().Toets(Qt::Key_Tab));
    EXPECT_TRUE(klas->state().focused);
    v.balk1().Account[1].Enabled = false;
    QAccessibleInterface* leraar = zoek(v.wortel, QAccessible::Button, "Teachers");
    ASSERT_NE(nullptr, leraar);
    EXPECT_TRUE(leraar->state().disabled);
    EXPECT_TRUE(leraar->state().checkable);
    klas->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(QStringList{"bureaublad 0:100"}, v.schermen.log);
}

TEST(AccessibilityTest, DesktopItemsAndTaskButtonsAreNamedFromTheirModels) {
    AccessibleFactory::installeren();
    Werkplek w(Werkplek::bureaublad);
    w.p.modTaal.Taal = 1033;
    w.applicatie(0, 0, "1", "Rekenen");
    w.applicatie(0, 1, "2", "");
    w.applicatie(0, 2, "3", QString::fromUtf8("שלום עולם"));
    w.klas(0, "Groep 3", "100", "1|2|3", "Ja");
    w.p.maak(w.p.frmTaakbalk2, w.p);
    FrmTaakbalk2& balk = *w.p.frmTaakbalk2;
    balk.VensterHandle = [] { return quint64(5); };
    balk.KoppelBureaublad(w.b());
    FrmBureaubladView view(w.b());
    FrmTaakbalk2View balkView(balk);
    w.b().Openen(0, "100");
    balk.tmrTaken.stop();
    balk.tmrMuis.stop();
    view.show();
    const QString lang(10000, QChar(u'y'));
    w.platform.fakeWindows().windows.append(WindowInfo{7, true, 0, 0, false, false, lang, 0});
    w.platform.fakeWindows().windows.append(WindowInfo{8, true, 0, 0, false, false, "Tekenen", 0});
    balk.tmrTaken_Timer();
    ASSERT_EQ(2, balk.AantalKnoppen);

    QAccessibleInterface* bureaublad = QAccessible::queryAccessibleInterface(&view);
    controleer(bureaublad,
               {{"desktop item", QAccessible::ListItem, "Rekenen", true},
                {"item without a name", QAccessible::ListItem, "Program 2", true},
                {"item in a right-to-left script", QAccessible::ListItem,
                 QString::fromUtf8("שלום עולם"), true},
                {"internet item", QAccessible::ListItem, "Internet", true},
                {"header", QAccessible::StaticText, AccessibleName::maak(w.b().kop), false}});
    QList<Rij> balkRijen = {
        {"task with a runaway title", QAccessible::Button, AccessibleName::maak(lang), true},
        {"task", QAccessible::Button, "Tekenen", true}};
    for (const auto& k : balk.vasteKnoppen)
        if (!k.plek.isNull())
            balkRijen.append({"fixed button", QAccessible::Button, k.toegankelijkeNaam(), true});
    QAccessibleInterface* taakbalk = QAccessible::queryAccessibleInterface(&balkView);
    controleer(taakbalk, balkRijen);
    EXPECT_EQ("Tafelkrater taakbalk", taakbalk->text(QAccessible::Name)); // its window's title

    // The task in front is checked; pressing the other brings its window forward.
    QAccessibleInterface* tekenen = zoek(taakbalk, QAccessible::Button, "Tekenen");
    tekenen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(w.platform.fakeWindows().log.contains("activate 8"));
    EXPECT_TRUE(tekenen->state().checked);

    // A task that went away: the bar no longer counts it.
    const int voor = taakbalk->childCount();
    w.platform.fakeWindows().windows.removeLast();
    balk.tmrTaken_Timer();
    EXPECT_EQ(voor - 1, taakbalk->childCount());

    // Pressing an item by its name starts its program.
    QAccessibleInterface* rekenen = zoek(bureaublad, QAccessible::ListItem, "Rekenen");
    rekenen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(1, w.platform.fakeProcesses().started.size());
}

namespace {
// A bare view with a list of painted controls that records its presses.
struct ProefView : QWidget, PaintedControls {
    QList<PaintedControl> lijst;
    QList<int> gedrukt;
    void druk(const PaintedControl& c) override { gedrukt << c.stop; }
    QList<PaintedControl> maakGeschilderd() const override { return lijst; }
};
QStringList toestand(const QAccessible::State& s) {
    QStringList uit;
    const std::pair<bool, const char*> bits[] = {
        {s.focusable, "focusable"}, {s.focused, "focused"},     {s.pressed, "pressed"},
        {s.disabled, "disabled"},   {s.checkable, "checkable"}, {s.checked, "checked"},
        {s.readOnly, "readOnly"},   {s.invisible, "invisible"}, {s.invalid, "invalid"}};
    for (const auto& [aan, naam] : bits)
        if (aan)
            uit << naam;
    return uit;
}
} // namespace

TEST(AccessibilityTest, APaintedControlTellsItsStateAndPressesOnlyWhenItCan) {
    // A control of each kind with the fields its `zet` names set, and what accessibility reads.
    struct Case {
        const char* naam;
        const char* zet;
        const char* toestand;
        bool drukt;
    };
    const Case cases[] = {
        {"Knop", "beschrijving", "focusable", true},
        {"Vast", "focus ingedrukt", "focusable focused pressed", true},
        {"Uit", "uitgeschakeld aanvinkbaar aangevinkt", "focusable disabled checkable checked",
         false},
        {"Tekst", "tekst", "readOnly", false},
    };
    // The factory before the view: an interface Qt made for the view earlier stays cached.
    AccessibleFactory::installeren();
    QWidget venster;
    auto& view = *new ProefView;
    view.setParent(&venster);
    view.setWindowTitle("Proef");
    (new QWidget(&view))->setGeometry(150, 150, 20, 20); // a widget child comes first
    for (int i = 0; i < int(std::size(cases)); ++i) {
        const QStringList zet = QString(cases[i].zet).split(' ');
        PaintedControl c;
        c.naam = cases[i].naam;
        c.beschrijving = zet.contains("beschrijving") ? "Opent " + c.naam : QString();
        c.focus = zet.contains("focus");
        c.ingedrukt = zet.contains("ingedrukt");
        c.uitgeschakeld = zet.contains("uitgeschakeld");
        c.aanvinkbaar = zet.contains("aanvinkbaar");
        c.aangevinkt = zet.contains("aangevinkt");
        c.drukbaar = !zet.contains("tekst");
        c.rol = c.drukbaar ? QAccessible::Button : QAccessible::StaticText;
        c.plek = QRect(10, 10 + 30 * i, 80, 20);
        c.stop = i + 1;
        view.lijst << c;
    }
    view.resize(200, 200);
    venster.show();
    for (int i = 0; i < int(std::size(cases)); ++i) {
        const PaintedControl& c = view.lijst[i];
        SCOPED_TRACE(cases[i].naam);
        PaintedControlAccessible a(&view, &view, i);
        EXPECT_TRUE(a.isValid());
        EXPECT_EQ(c.rol, a.role());
        EXPECT_EQ(c.naam, a.text(QAccessible::Name));
        EXPECT_EQ(c.beschrijving, a.text(QAccessible::Description));
        EXPECT_EQ("", a.text(QAccessible::Value));
        EXPECT_EQ(QString(cases[i].toestand).split(' '), toestand(a.state()));
        EXPECT_EQ(QRect(view.mapToGlobal(c.plek.topLeft()), c.plek.size()), a.rect());
        EXPECT_EQ(cases[i].drukt ? QStringList{QAccessibleActionInterface::pressAction()}
                                 : QStringList(),
                  a.actionNames());
        view.gedrukt.clear();
        a.doAction(QAccessibleActionInterface::toggleAction());
        a.doAction(QAccessibleActionInterface::pressAction());
        // (an empty QList<int> compared with == trips UBSan inside Qt 6.4: compare sizes)
        EXPECT_EQ(cases[i].drukt ? 1 : 0, view.gedrukt.size());
        EXPECT_EQ(cases[i].drukt ? c.stop : -1, view.gedrukt.value(0, -1));
    }
    // The view: its widget child, then a child per control, found at its place; named after
    // its title.
    QAccessibleInterface* ouder = QAccessible::queryAccessibleInterface(&view);
    ASSERT_EQ(1 + int(std::size(cases)), ouder->childCount());
    EXPECT_EQ("Proef", ouder->text(QAccessible::Name));
    EXPECT_EQ("", ouder->text(QAccessible::Description));
    for (int i = 0; i < int(std::size(cases)); ++i) {
        const QPoint midden = view.mapToGlobal(view.lijst[i].plek.center());
        QAccessibleInterface* kind = ouder->childAt(midden.x(), midden.y());
        ASSERT_NE(nullptr, kind) << i;
        EXPECT_EQ(1 + i, ouder->indexOfChild(kind));
    }
    // Without a listener no focus is told, and the last one told is forgotten, so that a
    // screen reader that comes hears the focus anew (offscreen accessibility is never on: the
    // told focus is the AT-SPI walk's).
    int gemeld = 3;
    PaintingViewAccessible::meldFocus(&view, view, gemeld);
    EXPECT_EQ(-1, gemeld);
    // A control that went away, or whose view went, is no longer valid and tells nothing.
    PaintedControlAccessible laatste(&view, &view, 3);
    view.lijst.removeLast();
    view.gewijzigd();
    auto* weg = new ProefView;
    weg->lijst = view.lijst;
    PaintedControlAccessible zonderView(weg, weg, 0);
    delete weg;
    for (PaintedControlAccessible* a : {&laatste, &zonderView}) {
        EXPECT_FALSE(a->isValid());
        EXPECT_EQ("", a->text(QAccessible::Name));
        EXPECT_EQ(QAccessible::NoRole, a->role());
        EXPECT_EQ(QStringList{"invalid"}, toestand(a->state()));
        EXPECT_TRUE(a->rect().isNull());
        EXPECT_TRUE(a->actionNames().isEmpty());
        a->doAction(QAccessibleActionInterface::pressAction());
    }
    EXPECT_EQ(nullptr, zonderView.parent());
    EXPECT_TRUE(view.gedrukt.isEmpty());
    // A hidden view's controls are there but not seen; a control acts, it holds no text.
    view.hide();
    PaintedControlAccessible eerste(&view, &view, 0);
    EXPECT_EQ(QStringList({"focusable", "invisible"}), toestand(eerste.state()));
    EXPECT_NE(nullptr, eerste.actionInterface());
    EXPECT_EQ(nullptr, eerste.textInterface());
    EXPECT_FALSE(PaintedControlAccessible(&view, &view, -1).isValid());
}
