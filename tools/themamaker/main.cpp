// Draws the default theme into the folder named on the command line.
#include "ThemePainter.h"

#include <QGuiApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: tk_themamaker <folder>\n");
        return 2;
    }
    return ThemePainter(args.at(1)).paintAll() ? 0 : 1;
}
