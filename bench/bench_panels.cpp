// The panels of the main window following the current scene, in a project of 200 scenes (the
// large project of the benchmarks, 40 media and about 200 syncs a scene):
//   switch     = making each scene current in turn, every panel following (scene list, time
//                strip, properties, canvas, layer and media lists) until the window has handled
//                what the change posted, painting included; median and worst per scene;
//                target under 30 ms at the median
//   thumbnails = after the project is opened in the window, the time until every scene's
//                picture in the scene list is drawn; target under 2 s, or drawn lazily so that
//                the window answers at once: the longest the event loop is kept busy meanwhile
//                says which
//
// Run it on the display the program uses, e.g.
//     xvfb-run -a -s "-screen 0 1600x900x24" build/bench/bench_panels
#include "BenchProject.h"
#include "app/Definitions.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "slideView/SceneThumbnail.h"
#include "slideView/SlideListTree.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

using selvora::Definitions;
using selvora::MainWindow;
using selvora::document::Document;
using selvora::document::Scene;
using selvora::slideView::SceneThumbnail;
using selvora::slideView::SlideListTree;

namespace {

constexpr int kScenes = 200;
constexpr int kThumbnailLimitMs = 60000;

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n == 0 ? 0 : n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Runs the event loop until the scene list has drawn every stale picture. Returns the longest
// stretch the loop worked without a pause, how long the window could not answer (0 if it did
// not finish), and leaves the events posted meanwhile handled.
double waitForThumbnails(SceneThumbnail* thumbnails) {
    QElapsedTimer limit;
    limit.start();
    double worst = 0;
    while (thumbnails->isPending() && limit.elapsed() < kThumbnailLimitMs) {
        QElapsedTimer stretch;
        stretch.start();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        worst = std::max(worst, stretch.nsecsElapsed() / 1e6);
        QThread::msleep(1);
    }
    return thumbnails->isPending() ? 0 : worst;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchproject::startOnReferenceScreen();
    QTemporaryDir temp;
    Document* doc = Document::instance();
    const benchproject::SavedProject saved = benchproject::saveProject(doc, temp.path(), kScenes);
    doc->newProject();

    auto* window = new MainWindow(QString());
    benchproject::waitExposed(window);
    auto* tree = window->findChild<SlideListTree*>();
    SceneThumbnail* thumbnails = tree ? tree->getThumbnails() : nullptr;
    if (!thumbnails)
        return 1;
    int drawn = 0;
    QObject::connect(thumbnails, &SceneThumbnail::pictureChanged, [&drawn] { ++drawn; });

    // Opening, then the pictures of the scene list.
    QElapsedTimer timer;
    timer.start();
    doc->loadProject(saved.file);
    const double open = timer.nsecsElapsed() / 1e6;
    timer.restart();
    drawn = 0;
    const double thumbnailStall = waitForThumbnails(thumbnails);
    const bool allDrawn = !thumbnails->isPending();
    const double thumbnailMs = timer.nsecsElapsed() / 1e6;
    const int thumbnailCount = drawn;

    // Each scene current in turn. The change and what it posted are timed; the pictures it
    // marks stale are drawn between two changes, untimed, as the user's pause would allow.
    const QList<Scene*> scenes = doc->getSceneAllInOrder();
    std::vector<double> switches;
    double idleStall = 0;
    for (Scene* scene : scenes) {
        timer.restart();
        doc->setCurrentScene(scene->getId(), true);
        QCoreApplication::sendPostedEvents();
        switches.push_back(timer.nsecsElapsed() / 1e6);
        idleStall = std::max(idleStall, waitForThumbnails(thumbnails));
    }
    const bool followed = doc->getScene(-1) == scenes.last();

    std::printf("project: %d scenes, %d media each, main window %dx%d\n", int(scenes.size()),
                benchproject::kMediaPerScene, window->width(), window->height());
    std::printf("open    : %8.1f ms (the load, until the window answers again)\n", open);
    std::printf("thumbs  : %d pictures in %8.1f ms%s; longest busy stretch of the loop "
                "meanwhile %.1f ms   (target < 2000 ms, or lazily)\n",
                thumbnailCount, thumbnailMs, allDrawn ? "" : " (NOT all drawn)", thumbnailStall);
    std::printf("switch  : median %6.2f ms   worst %6.2f ms   over %d scenes   (target median "
                "< 30 ms); pictures between changes: longest busy stretch %.1f ms\n",
                median(switches), *std::max_element(switches.begin(), switches.end()),
                int(switches.size()), idleStall);
    doc->setModified(false);
    delete window;
    return followed && allDrawn ? 0 : 1;
}
