#include "BinaryReceiver.h"

#include "core/Ansi.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"
#include "platform/Network.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>
#include <filesystem>
#include <system_error>

namespace tk {

namespace {

// Program path of the folder that holds the temporary files of a download, and nothing else.
const QString tijdelijkeMap = QStringLiteral("\\Tijdelijk\\Ontvangst");
const QString tijdelijkVoorvoegsel = QStringLiteral("TMP");

// Unread bytes the binary socket keeps before the peer is held back by TCP itself.
constexpr qint64 leesbuffer = 4 * 1024 * 1024;

// The leading decimal digits of a text as a number (0 when there are none).
qint64 leadingNumber(const QString& tekst) {
    qint64 getal = 0;
    int cijfers = 0;
    for (const QChar c : tekst) {
        if (c < u'0' || c > u'9' || cijfers == 18)
            break;
        getal = getal * 10 + (c.unicode() - u'0');
        ++cijfers;
    }
    return getal;
}

// Moves a finished file onto its target, replacing what was there; a copy when the two lie on
// different file systems.
void moveOnto(const QString& van, const QString& naar) {
    namespace fs = std::filesystem;
    const fs::path bron(QFile::encodeName(van).toStdString());
    const fs::path doel(QFile::encodeName(naar).toStdString());
    std::error_code fout;
    fs::rename(bron, doel, fout);
    if (!fout)
        return;
    std::error_code kopieerFout;
    fs::copy_file(bron, doel, fs::copy_options::overwrite_existing, kopieerFout);
    if (kopieerFout)
        throw Fout(QStringLiteral("Cannot write %1: %2")
                       .arg(naar, QString::fromLocal8Bit(kopieerFout.message())));
    fs::remove(bron, kopieerFout);
}

} // namespace

BinaryReceiver::FileOffer BinaryReceiver::parseFileOffer(const QString& bericht) {
    FileOffer aanbod;
    if (!bericht.startsWith(wire::FIS)) {
        aanbod.fout = QStringLiteral("Not a file offer");
        return aanbod;
    }
    const QString rest = bericht.mid(wire::FIS.size());
    const qsizetype streep = rest.indexOf(wire::valueSep);
    if (streep < 0) {
        aanbod.fout = QStringLiteral("File offer without \"|\": \"%1\"").arg(bericht.left(80));
        return aanbod;
    }
    const QString grootte = rest.left(streep);
    bool cijfers = !grootte.isEmpty() && grootte.size() <= 18;
    for (const QChar c : grootte)
        cijfers = cijfers && c >= u'0' && c <= u'9';
    if (!cijfers) {
        aanbod.fout = QStringLiteral("File offer with a size that is not a number: \"%1\"")
                          .arg(grootte.left(40));
        return aanbod;
    }
    aanbod.grootte = grootte.toLongLong();
    // The number runs up to the "@"; without an "@" it is all that follows and the name is empty.
    const QString achter = rest.mid(streep + 1);
    const qsizetype apenstaart = achter.indexOf(wire::fileNameSep);
    aanbod.nummer = leadingNumber(apenstaart < 0 ? achter : achter.left(apenstaart));
    aanbod.naam = apenstaart < 0 ? QString() : achter.mid(apenstaart + 1);
    aanbod.geldig = true;
    return aanbod;
}

BinaryReceiver::BinaryReceiver(Programma& p, QObject* parent)
    : QObject(parent), p(p), m_infoListener(this), m_readerListener(this), wsInfo(this),
      wsReader(this), tmrDownloadSpeed(this) {
    tmrDownloadSpeed.setInterval(500);
    connect(&tmrDownloadSpeed, &QTimer::timeout, this, &BinaryReceiver::tmrDownloadSpeed_Timer);
    connect(&m_infoListener, &SocketListener::ConnectionRequest, this,
            &BinaryReceiver::wsInfo_ConnectionRequest);
    connect(&m_readerListener, &SocketListener::ConnectionRequest, this,
            &BinaryReceiver::wsReader_ConnectionRequest);
    connect(&wsInfo, &QTcpSocket::readyRead, this, &BinaryReceiver::wsInfo_DataArrival);
    connect(&wsReader, &QTcpSocket::readyRead, this, &BinaryReceiver::wsReader_DataArrival);
    connect(&wsInfo, &QAbstractSocket::errorOccurred, this,
            [this] { raiseError(wsInfo.errorString()); });
    connect(&wsReader, &QAbstractSocket::errorOccurred, this,
            [this] { raiseError(wsReader.errorString()); });
    connect(&m_infoListener, &QTcpServer::acceptError, this,
            [this] { raiseError(m_infoListener.errorString()); });
    connect(&m_readerListener, &QTcpServer::acceptError, this,
            [this] { raiseError(m_readerListener.errorString()); });
    // A full read buffer stops reading from the socket, so that a fast server is held back by
    // TCP instead of filling memory while the disk catches up.
    wsReader.setReadBufferSize(leesbuffer);
}

BinaryReceiver::~BinaryReceiver() {
    wsInfo.disconnect(this);
    wsReader.disconnect(this);
    wsInfo.abort();
    wsReader.abort();
}

bool BinaryReceiver::Listen() {
    return Procedure(p, "BinaryReceiver.Listen", [&] {
        const auto luister = [&](SocketListener& luisteraar, qint64& poort) {
            if (poort < 0 || poort > 65535)
                throw Fout(QStringLiteral("Invalid port %1").arg(poort));
            luisteraar.close();
            if (!luisteraar.listen(QHostAddress::Any, quint16(poort))) {
                const QString fout = QStringLiteral("Cannot listen on port %1: %2")
                                         .arg(poort)
                                         .arg(luisteraar.errorString());
                raiseError(fout);
                throw Fout(fout);
            }
            poort = luisteraar.serverPort();
        };
        removeStaleTemporaryFiles();
        luister(m_infoListener, LocalPortInfo);
        luister(m_readerListener, LocalPortBinary);
    });
}

void BinaryReceiver::wsInfo_ConnectionRequest(qintptr requestID) {
    Procedure(p, "BinaryReceiver.wsInfo_ConnectionRequest", [&] {
        // Accepting turns the listening socket into the connection: no second one is taken.
        m_infoListener.close();
        wsInfo.abort();
        if (!wsInfo.setSocketDescriptor(requestID))
            throw Fout(
                QStringLiteral("Cannot accept the info connection: %1").arg(wsInfo.errorString()));
        p.wacht.Pomp();
        if (wsInfo.state() == QAbstractSocket::ConnectedState)
            send(wsInfo, wire::CNT);
    });
}

void BinaryReceiver::wsReader_ConnectionRequest(qintptr requestID) {
    Procedure(p, "BinaryReceiver.wsReader_ConnectionRequest", [&] {
        m_readerListener.close();
        wsReader.abort();
        wsReader.setReadBufferSize(leesbuffer);
        if (!wsReader.setSocketDescriptor(requestID))
            throw Fout(QStringLiteral("Cannot accept the binary connection: %1")
                           .arg(wsReader.errorString()));
        if (onConnected)
            onConnected();
    });
}

void BinaryReceiver::wsInfo_DataArrival() {
    // What arrived while an event of this socket ran is read as the next message here: the
    // socket raises no second event for it.
    while (wsInfo.bytesAvailable() > 0) {
        const QByteArray bericht = wsInfo.readAll();
        Procedure(p, "BinaryReceiver.wsInfo_DataArrival", [&] { handleCommand(bericht); });
    }
}

void BinaryReceiver::handleCommand(const QByteArray& bytes) {
    const QString bericht = Ansi::naarTekst(bytes);
    const QString opdracht = bericht.left(3);
    if (opdracht == wire::FSC) {
        if (onReceiveComplete)
            onReceiveComplete();
        return;
    }
    if (opdracht != wire::FIS)
        return;
    const FileOffer aanbod = parseFileOffer(bericht);
    if (!aanbod.geldig) {
        // Nobody could accept this offer; the server hears so at once.
        raiseError(aanbod.fout);
        if (wsInfo.state() == QAbstractSocket::ConnectedState)
            send(wsInfo, wire::RFS);
        return;
    }
    CurrentFileSize = aanbod.grootte;
    m_offerNumber = aanbod.nummer;
    CurrentFileName = aanbod.naam;
    if (onSendRequest)
        onSendRequest();
}

void BinaryReceiver::AcceptSendRequest(const QString& pad) {
    Procedure(p, "BinaryReceiver.AcceptSendRequest", [&] {
        if (pad.trimmed().isEmpty())
            throw Fout(QStringLiteral("No target for the file"));
        discardTemporaryFile();
        Doelpad = p.modMain.Pad(pad);
        if (QFileInfo(Doelpad).isDir())
            throw Fout(QStringLiteral("The target %1 is a folder").arg(Doelpad));
        p.modMain.MaakMappen(tijdelijkeMap);
        auto bestand = std::make_unique<QTemporaryFile>(
            temporaryFolder() + QLatin1Char('/') + tijdelijkVoorvoegsel + QStringLiteral("XXXXXX"));
        if (!bestand->open())
            throw Fout(QStringLiteral("Cannot make a temporary file in %1: %2")
                           .arg(temporaryFolder(), bestand->errorString()));
        // Asking the name gives the file its place in the folder at once (the system may make it
        // without a name first), so that a broken transfer leaves it where Reset finds it.
        if (bestand->fileName().isEmpty())
            throw Fout(QStringLiteral("Cannot make a temporary file in %1").arg(temporaryFolder()));
        m_tempFile = std::move(bestand);
        // An accepted file begins empty, whatever a previous file left in the counter.
        Ontvangen = 0;
        m_lastTickCount = 0;
        send(wsInfo, wire::ACP);
    });
}

void BinaryReceiver::RefuseSendRequest() {
    Procedure(p, "BinaryReceiver.RefuseSendRequest", [&] { send(wsInfo, wire::RFS); });
}

void BinaryReceiver::wsReader_DataArrival() {
    Procedure(p, "BinaryReceiver.wsReader_DataArrival", [&] {
        // Bytes that arrive during the pump below raise no second event: they are taken in the
        // next turn of this loop.
        while (wsReader.bytesAvailable() > 0) {
            writeArrival(wsReader.read(wsReader.bytesAvailable()));
            if (!m_tempFile)
                continue;
            p.wacht.Pomp();
            if (onReceiveProgress)
                onReceiveProgress(Totaal, CurrentFileSize);
            if (m_tempFile && Ontvangen >= CurrentFileSize)
                finishFile();
        }
    });
}

void BinaryReceiver::writeArrival(const QByteArray& buffer) {
    if (!m_tempFile) {
        raiseError(QStringLiteral("%1 bytes arrived while no file was accepted; they are dropped")
                       .arg(buffer.size()));
        return;
    }
    if (!tmrDownloadSpeed.isActive())
        tmrDownloadSpeed.start();
    // Bytes beyond the announced size are not the file's: they never reach the target.
    const qint64 ruimte = qMax<qint64>(0, CurrentFileSize - Ontvangen);
    const qint64 deel = qMin<qint64>(buffer.size(), ruimte);
    if (deel > 0 && m_tempFile->write(buffer.constData(), deel) != deel)
        throw Fout(QStringLiteral("Cannot write %1: %2")
                       .arg(m_tempFile->fileName(), m_tempFile->errorString()));
    Ontvangen += deel;
    Totaal += deel;
    if (deel < buffer.size())
        raiseError(QStringLiteral("%1 bytes beyond the announced size of %2 are dropped")
                       .arg(buffer.size() - deel)
                       .arg(CurrentFileSize));
}

void BinaryReceiver::finishFile() {
    Procedure(p, "BinaryReceiver.finishFile", [&] {
        std::unique_ptr<QTemporaryFile> bestand = std::move(m_tempFile);
        tmrDownloadSpeed.stop();
        if (!bestand->flush())
            throw Fout(QStringLiteral("Cannot write %1: %2")
                           .arg(bestand->fileName(), bestand->errorString()));
        const QString tijdelijk = bestand->fileName();
        bestand->close();
        bestand->setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                QFileDevice::ReadGroup | QFileDevice::ReadOther);
        // The temporary file is removed with its object if the move fails.
        moveOnto(tijdelijk, Doelpad);
        bestand->setAutoRemove(false);
        bestand.reset();
        if (onReceiveComplete)
            onReceiveComplete();
        p.wacht.Pomp();
        if (wsInfo.state() == QAbstractSocket::ConnectedState)
            send(wsInfo, wire::RFC);
    });
}

void BinaryReceiver::Reset() {
    Procedure(p, "BinaryReceiver.Reset", [&] {
        m_infoListener.close();
        m_readerListener.close();
        wsInfo.abort();
        wsReader.abort();
        Ontvangen = 0;
        Totaal = 0;
        CurrentFileSize = 0;
        CurrentFileName.clear();
        m_offerNumber = 0;
        m_lastTickCount = 0;
        tmrDownloadSpeed.stop();
        discardTemporaryFile();
    });
}

void BinaryReceiver::ResetFile() {
    Procedure(p, "BinaryReceiver.ResetFile", [&] {
        Ontvangen = 0;
        m_lastTickCount = 0;
        tmrDownloadSpeed.stop();
        discardTemporaryFile();
    });
}

void BinaryReceiver::tmrDownloadSpeed_Timer() {
    const qint64 verschil = Ontvangen - m_lastTickCount;
    m_lastTickCount = Ontvangen;
    if (onSpeedRecord)
        onSpeedRecord(qRound64(double(verschil) / 1024.0 * 2.0));
}

QString BinaryReceiver::temporaryFile() const {
    return m_tempFile ? m_tempFile->fileName() : QString();
}

QString BinaryReceiver::temporaryFolder() const {
    return p.modMain.Pad(tijdelijkeMap);
}

QString BinaryReceiver::LocalHostName() const {
    return p.platform.network().hostName();
}

QString BinaryReceiver::LocalIP() const {
    return p.platform.network().localAddress();
}

void BinaryReceiver::discardTemporaryFile() {
    // The object removes its file: an unfinished download leaves nothing behind.
    m_tempFile.reset();
}

void BinaryReceiver::removeStaleTemporaryFiles() {
    // Left by a run that ended during a download: only this receiver writes here.
    QDir map(temporaryFolder());
    if (!map.exists())
        return;
    const QString eigen = QFileInfo(temporaryFile()).fileName();
    for (const QString& naam :
         map.entryList({tijdelijkVoorvoegsel + QLatin1Char('*')}, QDir::Files | QDir::Hidden)) {
        if (naam != eigen)
            map.remove(naam);
    }
}

void BinaryReceiver::send(QTcpSocket& socket, QLatin1StringView bericht) {
    if (socket.state() != QAbstractSocket::ConnectedState)
        throw Fout(QStringLiteral("Cannot send %1: the info connection is not open").arg(bericht));
    socket.write(bericht.data(), bericht.size());
}

void BinaryReceiver::raiseError(const QString& omschrijving) {
    if (onError)
        onError(omschrijving);
}

} // namespace tk
