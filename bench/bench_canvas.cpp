// The canvases of a large project in the whole main window, against the model alone.
//
// The 100-scene project of bench_projectfile is saved once, then, in one run:
//   open  = loading the file into the open main window, every canvas built
//           vs  loading the same file into the model alone (reader and openProject); target < 3
//   memory = resident memory the window adds per scene (/proc/self/statm); target < 2 MB
//   seek  = a seek to the last second of a scene of 200 pictures and 2,000 syncs with the canvas
//           following vs the model's own seek of the same scene; target < 2
//
// Run it on the display the program uses, e.g.
//     xvfb-run -a -s "-screen 0 1600x900x24" build/bench/bench_canvas
#include "BenchProject.h"
#include "app/Definitions.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <unistd.h>

using selvora::Definitions;
using selvora::MainWindow;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::project::OperationsFile;
using selvora::spatialview::SpatialGroupView;
using selvora::spatialview::SpatialView;

namespace {

constexpr int kRuns = 3;
constexpr int kSeekMedia = 200;
constexpr int kSeekSyncs = 2000;
constexpr int kSeekTotalTime = 600;

double bestMs(const std::function<void()>& before, const std::function<void()>& work,
              int runs = kRuns) {
    return benchproject::fastestNs(runs, before, work) / 1e6;
}

double residentMb() {
    QFile statm("/proc/self/statm");
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.value(1).toLongLong() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// Deleted canvases and finished work leave the heap before a figure is taken.
void settle() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

int countItems(SpatialGroupView* group, Document* doc) {
    int items = 0;
    for (Scene* scene : doc->getSceneAll()) {
        if (SpatialView* view = group->getView(scene->getId()))
            items += view->countItems();
    }
    return items;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchproject::startOnReferenceScreen();
    QTemporaryDir temp;

    // The project file, made once.
    Document* doc = Document::instance();
    const benchproject::SavedProject saved = benchproject::saveProject(doc, temp.path());
    const QString& file = saved.file;
    const QString& picture = saved.picture;

    // The model alone: the reader and the opening of the project, nothing listening.
    const double model = bestMs([&] { benchproject::reopen(doc, saved); },
                                [&] {
                                    OperationsFile(doc).loadProject();
                                    doc->openProject();
                                });
    settle();
    const double rssModel = residentMb();

    // The whole window, opened on the project as from the command line.
    QElapsedTimer firstTimer;
    firstTimer.start();
    auto* window = new MainWindow(file);
    const double first = firstTimer.nsecsElapsed() / 1e6;
    benchproject::waitExposed(window);
    auto* group = window->findChild<SpatialGroupView*>();
    settle();
    const double rssWindow = residentMb();
    const int items = countItems(group, doc);
    const double windowed = bestMs([&] { settle(); }, [&] { doc->loadProject(file); });
    settle();

    std::printf("project: %d scenes, %d media, %d canvases, %d items\n", doc->getCountScenes(),
                doc->getCountScenes() * benchproject::kMediaPerScene, group->count(), items);
    std::printf("open  : window %8.1f ms (first, with the window %8.1f ms)   model %8.1f ms   "
                "ratio %.2f   (target < 3)\n",
                windowed, first, model, windowed / model);
    std::printf("memory: resident %.1f MB with the model, %.1f MB with the window and its "
                "canvases: %.2f MB per scene   (target < 2)\n",
                rssModel, rssWindow, (rssWindow - rssModel) / benchproject::kScenes);

    // A scene of 200 pictures and 2,000 syncs on the canvas of the window.
    doc->newProject();
    settle();
    Scene* scene = doc->getScene(-1);
    scene->setTotalTime(kSeekTotalTime);
    QList<Media*> medias;
    for (int i = 0; i < kSeekMedia; ++i)
        medias << doc->createMedia(scene, picture, Definitions::kMediaType::image, QString(),
                                   QString());
    QRandomGenerator random(42);
    for (int i = scene->getAllSyncs().size(); i < kSeekSyncs; ++i) {
        Media* media = medias.at(random.bounded(kSeekMedia));
        QHash<QString, QString> properties = media->getProperties();
        properties["left"] = QString::number(random.bounded(80));
        properties["top"] = QString::number(random.bounded(80));
        properties["layer"] = QString::number(1 + random.bounded(kSeekMedia));
        doc->loadSync(scene, media->getId(), true, Definitions::kSyncType::set,
                      1 + random.bounded(kSeekTotalTime), properties, -1);
    }
    auto* view = qobject_cast<SpatialView*>(group->currentWidget());
    scene->setCurrentTime(kSeekTotalTime, false);
    // In turns, so that the load of a shared machine weighs on both alike.
    double seek = std::numeric_limits<double>::max();
    double seekModel = seek;
    for (int i = 0; i < 7; ++i) {
        seek = std::min(seek, bestMs([] {}, [&] { scene->resetExecuteSyncs(); }, 1));
        scene->blockSignals(true);
        seekModel = std::min(seekModel, bestMs([] {}, [&] { scene->resetExecuteSyncs(); }, 1));
        scene->blockSignals(false);
    }
    scene->resetExecuteSyncs();
    int shown = 0;
    for (Media* media : medias) {
        const auto* item = view->getItem(SpatialView::mediaKey(media->getId()));
        shown += item && item->isVisible() &&
                         item->scenePos() == QPointF(media->getLeftPx(Definitions::getViewWidth()),
                                                     media->getTopPx(Definitions::getViewHeight()))
                     ? 1
                     : 0;
    }
    std::printf("seek  : %d items, %d syncs, %d items where their media stand\n", kSeekMedia,
                int(scene->getAllSyncs().size()), shown);
    std::printf("seek  : canvas %8.2f ms   model %8.2f ms   ratio %.2f   (target < 2)\n", seek,
                seekModel, seek / seekModel);

    doc->setModified(false);
    delete window;
    return shown == kSeekMedia ? 0 : 1;
}
