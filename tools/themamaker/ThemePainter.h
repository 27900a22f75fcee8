#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QString>
#include <QStringList>

// Draws the default theme: every picture its settings name and the settings file itself,
// friendly and legible for children at 1024 by 768.
class ThemePainter {
public:
    explicit ThemePainter(QString folder);
    // Writes everything below the folder; false (with the reason on stderr) when a file could
    // not be written.
    bool paintAll();

    struct ButtonColour {
        const char* name;
        QColor colour;
    };
    static const QList<ButtonColour>& buttonColours();

private:
    bool save(const QImage& image, const QString& relative, const char* format = nullptr);
    bool writeSettings();

    QImage startScreen(int width, int height) const;
    QImage maintenanceBackground() const;
    QImage meadow(int width, int height) const;
    QImage sea(int width, int height) const;
    QImage space(int width, int height) const;
    QImage bar(int width, int height, QColor top, QColor bottom) const;
    QImage figures() const;
    QPainterPath cloudPath(const QRectF& box) const;
    QImage classButton(QColor colour, bool hover) const;
    QImage tile(int size, QColor background, QColor tileColour, const QString& glyph,
                bool round) const;
    QImage preview(int width, int height) const;

    QString m_folder;
};
