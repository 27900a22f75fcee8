#include "BinarySender.h"

#include "core/Ansi.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"

#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <cstring>

namespace tk {

namespace {

// Unsent bytes the binary socket may hold before SendFile lets the pump drain it: the file is
// streamed, never held whole in memory.
constexpr qint64 schrijfbuffer = 1024 * 1024;
// Bytes read from the file in one go, handed out as blocks.
constexpr qint64 voorraad = 256 * 1024;

} // namespace

BinarySender::BinarySender(Programma& p, QObject* parent)
    : QObject(parent), p(p), wsInfo(this), wsSender(this), tmrUploadSpeed(this) {
    tmrUploadSpeed.setInterval(500);
    connect(&tmrUploadSpeed, &QTimer::timeout, this, &BinarySender::tmrUploadSpeed_Timer);
    connect(&wsInfo, &QTcpSocket::readyRead, this, &BinarySender::wsInfo_DataArrival);
    // The channel signal comes for every write, also those made while an earlier one is handled.
    connect(&wsSender, &QAbstractSocket::channelBytesWritten, this,
            [this](int, qint64 geschreven) { wsSender_SendProgress(geschreven); });
    connect(&wsInfo, &QAbstractSocket::errorOccurred, this,
            [this] { raiseError(wsInfo.errorString()); });
    connect(&wsSender, &QAbstractSocket::errorOccurred, this,
            [this] { raiseError(wsSender.errorString()); });
}

BinarySender::~BinarySender() {
    wsInfo.disconnect(this);
    wsSender.disconnect(this);
    wsInfo.abort();
    wsSender.abort();
}

bool BinarySender::setSource(const QString& pad) {
    Source = pad;
    CurrentFileName = StripPath(pad);
    CurrentFileSize = 0;
    return Procedure(p, "BinarySender.Source", [&] {
        const QFileInfo info(p.modMain.Pad(pad));
        if (!info.isFile())
            throw Fout(QStringLiteral("File not found: %1").arg(pad));
        CurrentFileSize = info.size();
    });
}

void BinarySender::Connect() {
    Procedure(p, "BinarySender.Connect", [&] {
        if (RemotePortInfo <= 0 || RemotePortInfo > 65535)
            throw Fout(QStringLiteral("Invalid port %1").arg(RemotePortInfo));
        wsInfo.abort();
        p.wacht.Pomp();
        wsInfo.connectToHost(RemoteHost, quint16(RemotePortInfo));
    });
}

void BinarySender::wsInfo_DataArrival() {
    // What arrived while an event of this socket ran is read as the next message here: the
    // socket raises no second event for it.
    while (wsInfo.bytesAvailable() > 0) {
        const QByteArray bericht = wsInfo.readAll();
        Procedure(p, "BinarySender.wsInfo_DataArrival", [&] { handleCommand(bericht); });
    }
}

void BinarySender::handleCommand(const QByteArray& bytes) {
    const QString opdracht = Ansi::naarTekst(bytes.left(3));
    if (opdracht == wire::CNT) {
        if (onConnected)
            onConnected();
        if (RemotePortBinary <= 0 || RemotePortBinary > 65535)
            throw Fout(QStringLiteral("Invalid port %1").arg(RemotePortBinary));
        wsSender.abort();
        p.wacht.Pomp();
        wsSender.connectToHost(RemoteHost, quint16(RemotePortBinary));
    } else if (opdracht == wire::ACP) {
        if (onCommandAccepted)
            onCommandAccepted();
    } else if (opdracht == wire::RFS) {
        if (onCommandRefused)
            onCommandRefused();
    } else if (opdracht == wire::RFC) {
        tmrUploadSpeed.stop();
        if (onSendComplete)
            onSendComplete();
    }
}

void BinarySender::SendInfo() {
    Procedure(p, "BinarySender.SendInfo", [&] {
        if (wsInfo.state() != QAbstractSocket::ConnectedState)
            throw Fout(QStringLiteral("Cannot offer %1: the info connection is not open")
                           .arg(CurrentFileName));
        wsInfo.write(Ansi::naarBytes(wire::FIS + QString::number(CurrentFileSize) + wire::valueSep +
                                     QLatin1Char('0') + wire::fileNameSep + CurrentFileName));
    });
}

void BinarySender::SendFile() {
    Procedure(p, "BinarySender.SendFile", [&] {
        if (wsSender.state() == QAbstractSocket::UnconnectedState)
            throw Fout(QStringLiteral("Cannot send %1: the binary connection is not open")
                           .arg(CurrentFileName));
        if (Blokgrootte <= 0)
            throw Fout(QStringLiteral("Invalid block size %1").arg(Blokgrootte));
        QFile bestand(p.modMain.Pad(Source));
        if (!bestand.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            throw Fout(QStringLiteral("Cannot read %1: %2").arg(Source, bestand.errorString()));
        tmrUploadSpeed.start();
        const qint64 lengte = bestand.size();
        // The file is read from the disk a bounded stretch at a time and handed out in blocks.
        const qint64 stuk = qMax(Blokgrootte, (voorraad / Blokgrootte) * Blokgrootte);
        QByteArray buffer(qMin(stuk, qMax<qint64>(lengte, 1)), Qt::Uninitialized);
        qint64 inBuffer = 0;
        qint64 plaats = 0;
        const auto leesBlok = [&](qint64 grootte) -> const char* {
            if (plaats + grootte > inBuffer) {
                const qint64 over = inBuffer - plaats;
                std::memmove(buffer.data(), buffer.constData() + plaats, size_t(over));
                const qint64 gewenst = qMin<qint64>(buffer.size(), lengte - Gelezen) - over;
                if (gewenst > 0 && bestand.read(buffer.data() + over, gewenst) != gewenst)
                    throw Fout(
                        QStringLiteral("Cannot read %1: %2").arg(Source, bestand.errorString()));
                inBuffer = over + qMax<qint64>(gewenst, 0);
                plaats = 0;
            }
            const char* blok = buffer.constData() + plaats;
            plaats += grootte;
            Gelezen += grootte;
            return blok;
        };
        Gelezen = 0;
        bool open = true;
        while (open && lengte - Gelezen >= Blokgrootte) {
            p.wacht.Pomp();
            const char* blok = leesBlok(Blokgrootte);
            p.wacht.Pomp();
            open = sendBlock(blok, Blokgrootte);
        }
        // The rest in one block, which may be empty.
        if (open)
            sendBlock(leesBlok(lengte - Gelezen), lengte - Gelezen);
        bestand.close();
        tmrUploadSpeed.stop();
    });
}

bool BinarySender::sendBlock(const char* blok, qint64 grootte) {
    // A socket that went away has raised SendError already; the rest of the file is not sent.
    if (wsSender.state() == QAbstractSocket::UnconnectedState)
        return false;
    if (grootte > 0 && wsSender.write(blok, grootte) != grootte)
        return false;
    if (wsSender.bytesToWrite() <= schrijfbuffer)
        return true;
    const auto uitkomst = p.wacht.Tot(
        [&] {
            return wsSender.bytesToWrite() <= schrijfbuffer ||
                   wsSender.state() == QAbstractSocket::UnconnectedState;
        },
        std::nullopt, false);
    return uitkomst == Wacht::Uitkomst::Voldaan &&
           wsSender.state() != QAbstractSocket::UnconnectedState;
}

void BinarySender::wsSender_SendProgress(qint64 geschreven) {
    Verzonden += geschreven;
    // One pump per write; a write during that pump is counted without a pump of its own, so
    // that the events do not nest deeper and deeper.
    if (!m_inProgress) {
        QScopedValueRollback<bool> bezig(m_inProgress, true);
        p.wacht.Pomp();
    }
    if (onSendProgress)
        onSendProgress(CurrentFileSize, Verzonden);
}

void BinarySender::Reset() {
    Procedure(p, "BinarySender.Reset", [&] {
        wsInfo.abort();
        wsSender.abort();
        Blokgrootte = 8192;
        Verzonden = 0;
        Gelezen = 0;
        Snelheid = 0;
        tmrUploadSpeed.stop();
    });
}

void BinarySender::ResetFile() {
    Verzonden = 0;
    Gelezen = 0;
    Snelheid = 0;
    tmrUploadSpeed.stop();
}

bool BinarySender::Connected() const {
    return wsInfo.state() == QAbstractSocket::ConnectedState &&
           wsSender.state() == QAbstractSocket::ConnectedState;
}

QByteArray BinarySender::ReadBinaryArray(const QString& pad) {
    return Procedure<QByteArray>(p, "BinarySender.ReadBinaryArray", QByteArray(), [&] {
        QFile bestand(p.modMain.Pad(pad));
        if (!bestand.open(QIODevice::ReadOnly))
            throw Fout(QStringLiteral("Cannot read %1: %2").arg(pad, bestand.errorString()));
        return bestand.readAll();
    });
}

bool BinarySender::SaveBinaryArray(const QString& pad, const QByteArray& bytes) {
    return Procedure(p, "BinarySender.SaveBinaryArray", [&] {
        QFile bestand(p.modMain.Pad(pad));
        if (!bestand.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            bestand.write(bytes) != bytes.size() || !bestand.flush())
            throw Fout(QStringLiteral("Cannot write %1: %2").arg(pad, bestand.errorString()));
    });
}

QString BinarySender::StripPath(const QString& pad) {
    const qsizetype streep =
        qMax(pad.lastIndexOf(QLatin1Char('\\')), pad.lastIndexOf(QLatin1Char('/')));
    return pad.mid(streep + 1);
}

void BinarySender::tmrUploadSpeed_Timer() {
    const qint64 verschil = Verzonden - Snelheid;
    Snelheid = Verzonden;
    if (onSpeedRecord)
        onSpeedRecord(qRound64(double(verschil) / 1024.0 * 2.0));
}

void BinarySender::raiseError(const QString& omschrijving) {
    if (onSendError)
        onSendError(omschrijving);
}

} // namespace tk
