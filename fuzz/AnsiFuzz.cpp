// The Windows-1252 codec: every byte string survives bytes -> text -> bytes; any text comes back
// as one byte per character; upper-casing keeps the length.
#include "FuzzSupport.h"
#include "core/Ansi.h"

#include <cstring>

using namespace tk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = fuzz::bytes(data, size);
    const QString text = Ansi::naarTekst(bytes);
    fuzz::require(text.size() == bytes.size());
    fuzz::require(Ansi::naarBytes(text) == bytes);
    const QString upper = Ansi::hoofdletters(text);
    fuzz::require(upper.size() == text.size());
    fuzz::require(Ansi::naarTekst(Ansi::naarBytes(upper)) == upper);
    // The same bytes read as UTF-16: characters outside the code page become "?".
    QString wide(qsizetype(size / 2), Qt::Uninitialized);
    memcpy(wide.data(), data, size / 2 * 2);
    fuzz::require(Ansi::naarBytes(wide).size() == wide.size());
    return 0;
}
