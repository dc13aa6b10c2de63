#include "project/HtmlExport.h"

#include "document/Document.h"
#include "project/ExportSources.h"
#include "project/LessonJson.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

// Q_INIT_RESOURCE must be used outside any namespace.
static bool registerPlayerResources() {
    Q_INIT_RESOURCE(player);
    return true;
}

// Once, whichever thread exports first.
static void initPlayerResources() {
    static const bool registered = registerPlayerResources();
    Q_UNUSED(registered);
}

namespace selvora {
namespace project {

namespace {

QByteArray resource(const QString& name) {
    initPlayerResources();
    QFile file(QStringLiteral(":/player/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray htmlEscaped(const QString& text) {
    return text.toHtmlEscaped().replace(QLatin1Char('\''), QLatin1String("&#39;")).toUtf8();
}

// The page runs only the script and style it was written with: anything else that found its
// way into it would be refused by the browser, and nothing can be fetched from the network.
QByteArray policy(const QByteArray& style, const QByteArray& script) {
    const auto hash = [](const QByteArray& text) {
        return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() +
               "'";
    };
    return "default-src 'none'; script-src " + hash(script) + "; style-src " + hash(style) +
           "; img-src 'self' file: blob:; media-src 'self' file: blob:; base-uri 'none';"
           " form-action 'none'";
}

} // namespace

QString HtmlExport::baseName(const document::Document* document, const QString& folder) {
    const QString base = QFileInfo(document->getProjectName()).baseName();
    if (!base.isEmpty())
        return base;
    const QString name = QDir(folder).dirName();
    return name.isEmpty() || name == QLatin1String(".") ? QStringLiteral("projeto") : name;
}

QByteArray HtmlExport::page(const document::Document* document, ExportSources& sources,
                            bool scorm) {
    const QByteArray style = resource(QStringLiteral("player.css"));
    const QByteArray script = resource(QStringLiteral("player.js"));
    const QByteArray title = htmlEscaped(LessonJson::title(document));
    const QByteArray data = LessonJson::build(document, sources, scorm);
    const struct {
        const char* mark;
        const QByteArray& text;
    } fills[] = {{"{{POLICY}}", policy(style, script)},
                 {"{{TITLE}}", title},
                 {"{{STYLE}}", style},
                 {"{{DATA}}", data},
                 {"{{SCRIPT}}", script}};

    // One pass over the template, so that no filled-in text is searched for marks again.
    const QByteArray layout = resource(QStringLiteral("page.html"));
    QByteArray out;
    out.reserve(layout.size() + style.size() + script.size() + data.size() + 256);
    int from = 0;
    while (true) {
        const int open = layout.indexOf("{{", from);
        if (open < 0)
            break;
        const int close = layout.indexOf("}}", open);
        if (close < 0)
            break;
        const QByteArray mark = layout.mid(open, close + 2 - open);
        out += layout.mid(from, open - from);
        bool filled = false;
        for (const auto& fill : fills) {
            if (mark == fill.mark) {
                out += fill.text;
                filled = true;
            }
        }
        if (!filled)
            out += mark;
        from = close + 2;
    }
    out += layout.mid(from);
    return out;
}

bool HtmlExport::hasFolder(const QString& folder, ExportResult& result) {
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return true;
    result.message = QCoreApplication::translate(
        "HtmlExport", "A pasta do projeto não foi encontrada. Salve o projeto antes de exportar.");
    return false;
}

ExportResult HtmlExport::writeFile(const QString& folder, const QString& name,
                                   const QByteArray& data) {
    ExportResult result;
    result.path = QDir(folder).filePath(name);
    QSaveFile file(result.path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        result.message =
            QCoreApplication::translate("HtmlExport", "Não foi possível gravar o arquivo %1.")
                .arg(name);
        return result;
    }
    result.ok = true;
    result.message =
        QCoreApplication::translate("HtmlExport", "O arquivo %1 foi criado na pasta do projeto.")
            .arg(name);
    return result;
}

ExportResult HtmlExport::run(const document::Document* document, const QString& folder) {
    ExportResult result;
    if (!hasFolder(folder, result))
        return result;
    ExportSources sources(folder, false);
    return writeFile(folder, baseName(document, folder) + QStringLiteral(".html"),
                     page(document, sources, false));
}

} // namespace project
} // namespace selvora
