// Writes the standard icon library to the file named on the command line.
#include "controls/IconLibraryWriter.h"
#include "controls/IconPainter.h"

#include <QFile>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: tk_pictogrammaker <file.icl>\n");
        return 2;
    }
    QList<QList<QImage>> icons;
    for (const QString& name : tk::IconPainter::names())
        icons.append({tk::IconPainter::paint(name, 48), tk::IconPainter::paint(name, 32),
                      tk::IconPainter::paint(name, 16)});
    QFile file(args.at(1));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(tk::IconLibraryWriter::peLibrary(icons)) < 0) {
        std::fprintf(stderr, "tk_pictogrammaker: cannot write %s\n", qPrintable(args.at(1)));
        return 1;
    }
    return 0;
}
