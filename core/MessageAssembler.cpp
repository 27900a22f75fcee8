#include "MessageAssembler.h"

#include <QIODevice>

namespace tk {

MessageAssembler::MessageAssembler(QIODevice* device, QObject* parent)
    : QObject(parent), m_device(device), m_quiet(this) {
    m_quiet.setSingleShot(true);
    connect(&m_quiet, &QTimer::timeout, this, &MessageAssembler::quietTick);
    if (m_device) {
        connect(m_device, &QIODevice::readyRead, this, &MessageAssembler::readDevice);
        // A socket that waited to be taken may hold bytes it announced to nobody.
        if (m_device->bytesAvailable() > 0)
            QTimer::singleShot(0, this, &MessageAssembler::readDevice);
    }
}

void MessageAssembler::readDevice() {
    // In pieces, so that a peer that sends without pause meets the limit before memory does.
    while (m_device && m_device->bytesAvailable() > 0) {
        const QByteArray bytes = m_device->read(64 * 1024);
        if (bytes.isEmpty())
            break;
        feed(bytes);
    }
}

void MessageAssembler::feed(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return;
    const bool first = m_buffer.isEmpty();
    if (m_buffer.size() + bytes.size() > m_limit) {
        const qint64 size = m_buffer.size() + bytes.size();
        m_buffer.clear();
        m_quiet.stop();
        if (onOverLimit)
            onOverLimit(size);
        return;
    }
    m_buffer.append(bytes);
    if (first && m_buffer.size() < longRead) {
        complete();
        return;
    }
    if (first)
        m_sinceFirstPiece.start();
    const qint64 left = m_maxWaitMs - m_sinceFirstPiece.elapsed();
    if (left <= 0) {
        complete();
        return;
    }
    m_quiet.start(int(std::min<qint64>(m_quietMs, left)));
}

void MessageAssembler::quietTick() {
    m_quiet.stop();
    if (!m_buffer.isEmpty())
        complete();
}

void MessageAssembler::clear() {
    m_quiet.stop();
    m_buffer.clear();
}

void MessageAssembler::complete() {
    m_quiet.stop();
    m_ready.enqueue(std::exchange(m_buffer, QByteArray()));
    deliver();
}

void MessageAssembler::deliver() {
    if (m_delivering)
        return; // the handler that runs now hands on the rest when it is done
    m_delivering = true;
    while (!m_ready.isEmpty()) {
        const QByteArray message = m_ready.dequeue();
        if (onMessage)
            onMessage(message);
    }
    m_delivering = false;
    // A socket does not announce bytes again while its announcement is being handled: what came
    // in meanwhile is read as soon as the handler is done.
    if (m_device && m_device->bytesAvailable() > 0)
        QTimer::singleShot(0, this, &MessageAssembler::readDevice);
}

} // namespace tk
