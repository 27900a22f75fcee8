#include "ModPictogrammen.h"

#include "controls/IconPainter.h"

#include "controls/DesktopEntryIcon.h"
#include "controls/IconLibrary.h"
#include "core/Fout.h"
#include "core/Procedure.h"
#include "core/Programma.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>

namespace tk {

namespace {

IconLibrary::Result readFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    if (file.size() > ModPictogrammen::MaxBestand)
        return {};
    if (uchar* mapped = file.map(0, file.size())) {
        IconLibrary::Result r =
            IconLibrary::parse(QByteArrayView(reinterpret_cast<const char*>(mapped), file.size()));
        // The images are copies: the mapping may go.
        return r;
    }
    return IconLibrary::parse(file.readAll());
}

} // namespace

ModPictogrammen::ModPictogrammen(Programma& p) : p(p) {}

int ModPictogrammen::IconCount(const QString& bestand) {
    return int(readFile(p.modMain.Pad(bestand)).icons.size());
}

QImage ModPictogrammen::IconOf(const QString& bestand, int index, int side) {
    const IconLibrary::Result r = readFile(p.modMain.Pad(bestand));
    if (index < 0 || index >= r.icons.size())
        return QImage();
    return IconLibrary::render(r.icons.at(index), side);
}

void ModPictogrammen::ReadLibrary(ImageList& beeldlijst, QList<IconListItem>& lijst,
                                  const QString& bestand, bool lijstVullen) {
    Procedure(p, "modPictogrammen.ReadLibrary", [&] {
        const IconLibrary::Result r = readFile(p.modMain.Pad(bestand));
        const int aantal = int(r.icons.size());
        if (lijstVullen)
            lijst.clear();
        beeldlijst.Clear();
        if (aantal == 0)
            return;
        const QStringList namen = GetIconNames(bestand, aantal);
        for (int i = 0; i < aantal; ++i) {
            // A picture that does not decode stays empty, so that the numbers stay in step.
            QImage werk(32, 32, QImage::Format_ARGB32);
            werk.fill(Qt::transparent);
            const QImage icoon = IconLibrary::render(r.icons.at(i), 32);
            if (!icoon.isNull()) {
                QPainter painter(&werk);
                painter.drawImage(0, 0, icoon);
            }
            const QString key = QString::number(i) + QStringLiteral("pictogram ");
            beeldlijst.Add(key, werk);
            if (lijstVullen) {
                controleerIndex(i, namen.size());
                lijst.append({key, namen.at(i)});
            }
        }
    });
}

QStringList ModPictogrammen::GetIconNames(const QString& bestand, int aantal) {
    return Procedure<QStringList>(p, "modPictogrammen.GetIconNames", {}, [&] {
        QStringList namen;
        if (bestand.right(3) == u"ico") {
            const qsizetype scheiding = std::max(bestand.lastIndexOf(QLatin1Char('\\')),
                                                 bestand.lastIndexOf(QLatin1Char('/')));
            namen.append(bestand.mid(scheiding + 1));
            return namen;
        }
        for (int i = 1; i <= aantal; ++i)
            namen.append(QStringLiteral("Pictogram ") + QString::number(i));
        return namen;
    });
}

QImage ModPictogrammen::FileIcon(const QString& bestand, int side) {
    const QString pad = p.modMain.Pad(bestand);
    const QFileInfo info(pad);
    if (!info.exists())
        return QImage();
    if (info.isDir())
        return IconPainter::paint(QStringLiteral("map"), side);
    if (info.suffix().compare(QStringLiteral("desktop"), Qt::CaseInsensitive) == 0) {
        const QImage icoon = DesktopEntryIcon::load(pad, side);
        if (!icoon.isNull())
            return icoon;
    }
    const IconLibrary::Result r = readFile(pad);
    if (!r.icons.isEmpty()) {
        const QImage icoon = IconLibrary::render(r.icons.first(), side);
        if (!icoon.isNull())
            return icoon;
    }
    return IconPainter::paint(QStringLiteral("document"), side);
}

void ModPictogrammen::draw(const char* procedure, const QString& bestand, QImage& doel, bool klein,
                           bool wissen, int x, int y) {
    Procedure(p, procedure, [&] {
        if (doel.isNull())
            throw Fout(QStringLiteral("Invalid picture"));
        if (wissen)
            doel.fill(Qt::transparent);
        const QImage icoon = FileIcon(bestand, klein ? 16 : 32);
        if (icoon.isNull())
            return;
        QPainter painter(&doel);
        painter.drawImage(x, y, icoon);
    });
}

void ModPictogrammen::DrawIconPic(const QString& bestand, QImage& doel, bool klein, bool wissen,
                                  int x, int y) {
    draw("modPictogrammen.DrawIconPic", bestand, doel, klein, wissen, x, y);
}

void ModPictogrammen::DrawIconExtra(const QString& bestand, QImage& doel, bool klein, bool wissen,
                                    int x, int y) {
    draw("modPictogrammen.DrawIconExtra", bestand, doel, klein, wissen, x, y);
}

} // namespace tk
