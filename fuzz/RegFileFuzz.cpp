// The registry store's file reader: the bytes of a .reg file as the store reads them (any
// encoding, any line ends), applied to a hive, written back: what is written reads the same.
#include "FuzzSupport.h"
#include "platform/RegFile.h"
#include "platform/RegistryHive.h"
#include "platform/TextFile.h"

using namespace tk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const RegFile::Parsed parsed = RegFile::parse(TextFile::decode(fuzz::bytes(data, size)));
    for (RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::CurrentUser}) {
        RegistryHive hive;
        RegFile::apply(parsed, root, hive);
        const QString written = RegFile::write(root, hive);
        RegistryHive reread;
        const RegFile::Parsed again = RegFile::parse(written);
        fuzz::require(again.hasHeader && again.skippedLines == 0);
        RegFile::apply(again, root, reread);
        fuzz::require(RegFile::write(root, reread) == written);
    }
    return 0;
}
