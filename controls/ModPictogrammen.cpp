#include "ModPictogrammen.h"

#include "controls/DesktopEntryIcon.h"
#include "controls/IconLibrary.h"
#include "core/Fout.h"
#include "core/Procedure.h"
#include "core/Programma.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPainterPath>

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

// A folder or a document, for files that carry no icon of their own.
QImage genericIcon(bool folder, int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 32.0, side / 32.0);
    if (folder) {
        p.setPen(QPen(QColor(190, 140, 40), 1.2));
        p.setBrush(QColor(255, 206, 84));
        QPainterPath path;
        path.moveTo(2, 8);
        path.lineTo(12, 8);
        path.lineTo(15, 11);
        path.lineTo(30, 11);
        path.lineTo(30, 27);
        path.lineTo(2, 27);
        path.closeSubpath();
        p.drawPath(path);
        p.setBrush(QColor(255, 224, 130));
        p.drawRect(QRectF(2, 14, 28, 13));
    } else {
        p.setPen(QPen(QColor(120, 130, 150), 1.2));
        p.setBrush(Qt::white);
        QPainterPath path;
        path.moveTo(7, 2);
        path.lineTo(20, 2);
        path.lineTo(26, 8);
        path.lineTo(26, 30);
        path.lineTo(7, 30);
        path.closeSubpath();
        p.drawPath(path);
        p.drawLine(QPointF(20, 2), QPointF(20, 8));
        p.drawLine(QPointF(20, 8), QPointF(26, 8));
        p.setPen(QPen(QColor(150, 180, 220), 1.5));
        for (int y = 13; y <= 25; y += 4)
            p.drawLine(QPointF(10, y), QPointF(23, y));
    }
    return image;
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
        return genericIcon(true, side);
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
    return genericIcon(false, side);
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
