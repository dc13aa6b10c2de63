// Seeking replays every sync up to the current second. This measures a seek to the end of a
// one-hour scene against the floor of executing the same syncs once, so that the figure says
// whether a seek pays for empty seconds.
#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>

using namespace selvora;
using namespace selvora::document;

namespace {

template <typename F> double bestOf(int runs, F&& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    Definitions::setScreenSizeOverride(QSize(1600, 900));

    const int totalTime = 3600;
    const int mediaCount = 1000;
    const int syncCount = 10000;
    Document* doc = Document::instance();
    doc->newProject();
    Scene* scene = doc->getScene(-1);
    scene->setTotalTime(totalTime);

    QRandomGenerator random(42);
    QList<Media*> medias;
    for (int i = 0; i < mediaCount; ++i) {
        scene->setCurrentTime(random.bounded(totalTime / 2), false);
        medias << doc->createMedia(scene, "", Definitions::kMediaType::shape, "0", "", -1);
    }
    // Sets spread over the hour, each inside its media's life.
    for (int i = scene->getAllSyncs().size(); i < syncCount; ++i) {
        Media* media = medias.at(random.bounded(mediaCount));
        const int start =
            scene->getSync(Definitions::kSyncType::start, media->getId(), true)->getTime();
        QHash<QString, QString> properties = media->getProperties();
        properties["left"] = QString::number(random.bounded(100));
        doc->loadSync(scene, media->getId(), true, Definitions::kSyncType::set,
                      start + random.bounded(totalTime - start + 1), properties, -1);
    }
    const QList<Sync*> syncs = scene->getAllSyncs();

    scene->setCurrentTime(totalTime, false);
    const double seek = bestOf(7, [&] { scene->resetExecuteSyncs(); });
    const double floor = bestOf(7, [&] {
        for (Sync* sync : syncs) {
            if (Media* media = scene->getMedia(sync->getMediaTarget()))
                media->setProperties(sync->getProperties());
        }
    });
    std::printf("scene: %d s, %d media, %d syncs\n", totalTime, mediaCount, int(syncs.size()));
    std::printf("resetExecuteSyncs at %d s: %.3f ms\n", totalTime, seek);
    std::printf("executing the syncs once:  %.3f ms\n", floor);
    std::printf("ratio: %.2f (target under 2)\n", seek / floor);
    return 0;
}
