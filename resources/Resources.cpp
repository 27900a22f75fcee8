// The resources of this folder are compiled in through qt_add_resources; this file gives the
// library a translation unit of its own.
namespace tk {
void resourcesLinked() {}
} // namespace tk
