#pragma once

#include <QString>

#include <memory>

class QPluginLoader;

namespace tk {

class BrowserFabriek;

// Loads the browser plugin (the internet pane and the web engine) when a desktop first opens the
// browser, not at the client's start: the engine's libraries and the OpenGL context it needs
// cost every client some 80 MB and a tenth of a second, and most never show a page.
class BrowserLader {
public:
    // The plugin's file name, beside the client in the build tree and in the program folder.
    static constexpr const char* Bestandsnaam = "tafelkrater-browser.so";
    // The plugin beside the running program.
    static QString naastProgramma();

    explicit BrowserLader(QString pad);
    ~BrowserLader();
    BrowserLader(const BrowserLader&) = delete;
    BrowserLader& operator=(const BrowserLader&) = delete;

    // The plugin's pane maker, loaded at the first call; nullptr when the plugin is missing or
    // unusable, and fout() says why. A failed load is tried again at the next call.
    BrowserFabriek* fabriek();
    const QString& fout() const { return m_fout; }
    const QString& pad() const { return m_pad; }

private:
    QString m_pad;
    QString m_fout;
    std::unique_ptr<QPluginLoader> m_lader;
    BrowserFabriek* m_fabriek = nullptr;
};

} // namespace tk
