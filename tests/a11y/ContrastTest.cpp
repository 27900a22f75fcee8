#include "controls/Contrast.h"
#include "controls/AccessibleName.h"

#include <QImage>
#include <gtest/gtest.h>

using namespace tk;

TEST(ContrastTest, RatiosAsTheGuidelinesMeasureThem) {
    struct Case {
        QColor a, b;
        double verhouding;
    };
    const Case cases[] = {
        {Qt::black, Qt::white, 21.0},
        {Qt::white, Qt::white, 1.0},
        {QColor(118, 118, 118), Qt::white, 4.54}, // the lightest grey that passes on white
        {QColor(30, 58, 95), QColor(92, 180, 238), 5.05},
        {QColor(255, 221, 87), Qt::white, 1.34},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.a.name().toStdString() + " on " + c.b.name().toStdString());
        EXPECT_NEAR(c.verhouding, Contrast::verhouding(c.a, c.b), 0.01);
        EXPECT_NEAR(c.verhouding, Contrast::verhouding(c.b, c.a), 0.01);
        // The outline colour always stands out from the text.
        EXPECT_GE(Contrast::verhouding(c.a, Contrast::tegenkleur(c.a)), 4.58);
    }
    // The worst pixel under a caption counts: half white, half black.
    QImage beeld(10, 2, QImage::Format_RGB32);
    beeld.fill(Qt::white);
    for (int x = 0; x < 5; ++x)
        beeld.setPixel(x, 0, qRgb(0, 0, 0));
    EXPECT_NEAR(1.0, Contrast::slechtste(Qt::white, beeld, QRect(0, 0, 10, 2)), 0.01);
    EXPECT_NEAR(21.0, Contrast::slechtste(Qt::white, beeld, QRect(0, 0, 5, 1)), 0.01);
    EXPECT_NEAR(21.0, Contrast::slechtste(Qt::white, beeld, QRect(20, 20, 5, 5)), 0.01);
}

TEST(ContrastTest, AccessibleNamesOfBadInput) {
    const QString lang(10000, QChar(u'a'));
    QString paar = QString(AccessibleName::Langste - 2, QChar(u'b'));
    paar += QString::fromUtf8("😀😀😀"); // a surrogate pair across the cut
    struct Case {
        QString tekst, zonder, naam;
    };
    const Case cases[] = {
        {"Groep 5", "Groep 9", "Groep 5"},
        {"", "Groep 3", "Groep 3"},
        {" \r\n ", "Groep 3", "Groep 3"},
        {"Twee\r\nregels", "", "Twee regels"},
        {"&Kinderen && ouders", "", "Kinderen & ouders"},
        {lang, "", QString(AccessibleName::Langste - 1, QChar(u'a')) + QChar(0x2026)},
        {QString::fromUtf8("שלום עולם"), "", QString::fromUtf8("שלום עולם")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.tekst.left(20).toStdString());
        EXPECT_EQ(c.naam, AccessibleName::maak(c.tekst, c.zonder));
    }
    const QString geknipt = AccessibleName::maak(paar);
    EXPECT_LE(geknipt.size(), AccessibleName::Langste);
    EXPECT_FALSE(geknipt.at(geknipt.size() - 2).isHighSurrogate());
}
