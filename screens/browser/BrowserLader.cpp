#include "BrowserLader.h"

#include "BrowserFabriek.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QOpenGLContext>
#include <QPluginLoader>

// Exported by Qt GUI for the modules that share OpenGL resources between windows, and declared
// only in its private headers.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace tk {

namespace {

// The engine draws its pages in a context shared with Qt's global one, and crashes without it.
// Qt makes that context when the application starts, but only when asked before the application
// exists (Qt::AA_ShareOpenGLContexts), which loads the OpenGL driver into every client (about
// 60 MB with Mesa's software renderer); so it is made here, once, before the engine's library
// is loaded. Without OpenGL (offscreen) the context stays invalid and the engine draws in
// software. Like the engine's library, the context stays to the end of the process.
void gedeeldeContext() {
    if (QOpenGLContext::globalShareContext())
        return;
    auto* context = new QOpenGLContext;
    context->create();
    qt_gl_set_global_share_context(context);
}

} // namespace

QString BrowserLader::naastProgramma() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(Bestandsnaam));
}

BrowserLader::BrowserLader(QString pad) : m_pad(std::move(pad)) {}

BrowserLader::~BrowserLader() = default;

BrowserFabriek* BrowserLader::fabriek() {
    if (m_fabriek)
        return m_fabriek;
    if (!QFileInfo(m_pad).isFile()) {
        m_fout = QStringLiteral("The browser plugin %1 is missing").arg(m_pad);
        return nullptr;
    }
    gedeeldeContext();
    // The plugin stays loaded to the end: the engine cannot be unloaded.
    m_lader = std::make_unique<QPluginLoader>(m_pad);
    QObject* plugin = m_lader->instance();
    m_fabriek = qobject_cast<BrowserFabriek*>(plugin);
    if (!m_fabriek) {
        m_fout = plugin ? QStringLiteral("%1 is not the browser plugin of this client").arg(m_pad)
                        : QStringLiteral("The browser plugin %1 cannot be loaded: %2")
                              .arg(m_pad, m_lader->errorString());
        return nullptr;
    }
    m_fout.clear();
    return m_fabriek;
}

} // namespace tk
