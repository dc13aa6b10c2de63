// Exporting the large project to a web page against saving it.
//
// The project of BenchProject.h (100 scenes, 40 media and about 200 syncs each) is saved once,
// which copies its pictures. Then, best of several runs:
//   export = HtmlExport::run (the lesson's data, the player and the page written)
//   save   = OperationsFile::saveProject of the same model
// Target: ratio under 1.5. Then, where node and the browser tests' packages are installed, the
// page's start in headless Chromium until the first scene shows (target under 1 s).

#include "BenchProject.h"
#include "app/Definitions.h"
#include "document/Document.h"
#include "project/HtmlExport.h"
#include "project/NclExport.h"
#include "project/OperationsFile.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

using selvora::Definitions;
using selvora::document::Document;
using selvora::project::HtmlExport;
using selvora::project::NclExport;
using selvora::project::OperationsFile;

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Definitions::setScreenSizeOverride(QSize(1600, 900));
    QTemporaryDir temp;
    Document* doc = Document::instance();
    const benchproject::SavedProject saved = benchproject::saveProject(doc, temp.path());
    constexpr int kRuns = 5;

    bool ok = true;
    QString page;
    const qint64 save = benchproject::fastestNs(
        kRuns, [] {}, [doc] { OperationsFile(doc).saveProject(); });
    const qint64 html = benchproject::fastestNs(
        kRuns, [] {},
        [&] {
            const auto result = HtmlExport::run(doc, saved.directory);
            ok = ok && result.ok;
            page = result.path;
        });
    const qint64 ncl = benchproject::fastestNs(
        kRuns, [] {}, [&] { ok = NclExport::run(doc, saved.directory).ok && ok; });

    std::printf("project: %d scenes, page %lld bytes, project file %lld bytes\n",
                benchproject::kScenes, QFileInfo(page).size(), QFileInfo(saved.file).size());
    std::printf("html : %8.1f ms   save %8.1f ms   ratio %.2f   (target < 1.5)\n", html / 1e6,
                save / 1e6, double(html) / save);
    std::printf("ncl  : %8.1f ms   save %8.1f ms   ratio %.2f\n", ncl / 1e6, save / 1e6,
                double(ncl) / save);
    const QString script = QStringLiteral(SELVORA_SOURCE_DIR "/bench/page_start.mjs");
    const QString node = QStandardPaths::findExecutable(QStringLiteral("node"));
    if (node.isEmpty() || !QFileInfo::exists(SELVORA_SOURCE_DIR "/tests/web/node_modules")) {
        std::printf("page : not measured (node or tests/web/node_modules missing)\n");
        return ok ? 0 : 1;
    }
    std::fflush(stdout);
    QProcess browser;
    browser.setProcessChannelMode(QProcess::ForwardedChannels);
    browser.start(node, {script, page});
    ok = browser.waitForFinished(120000) && browser.exitCode() == 0 && ok;
    return ok ? 0 : 1;
}
