#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

namespace tk::fuzz {

inline QTemporaryDir& scratch() {
    static QTemporaryDir dir(QStringLiteral("/dev/shm/tk-fuzz-XXXXXX"));
    static QTemporaryDir fallback;
    return dir.isValid() ? dir : fallback;
}

// What every target needs once: an application object (for the code that pumps events or asks
// for the application's folder), Qt's own warnings silenced so that the fuzzer's output stays
// readable, and a scratch folder in memory when /dev/shm has one.
// Two settings of the process keep a run on the code under test: the C library reads the time
// zone file again at every local time when TZ is unset (a tenth of a target that writes the log
// book per fault), so TZ names that same file once; and the temporary folders the code makes (an
// archive packed per request) go to the scratch folder, not to a disk.
inline void startQt() {
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* app = nullptr;
    if (!app) {
        if (qEnvironmentVariableIsEmpty("TZ"))
            qputenv("TZ", ":/etc/localtime");
        qputenv("TMPDIR", QFile::encodeName(scratch().path()));
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        app = new QCoreApplication(argc, argv);
    }
}

inline QByteArray bytes(const uint8_t* data, size_t size) {
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
}

// A property the target checks: a violation ends the run as a finding with the input saved.
inline void require(bool holds) {
    if (!holds)
        __builtin_trap();
}

} // namespace tk::fuzz
