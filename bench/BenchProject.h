#ifndef SELVORA_BENCH_BENCHPROJECT_H
#define SELVORA_BENCH_BENCHPROJECT_H

// The large project of the benchmarks: 100 scenes (or as many as asked), each with 40 media
// (pictures, texts, shapes and sounds in turn) and about 200 syncs, of which one in ten is a link.

#include "app/Definitions.h"
#include "app/Resources.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QList>
#include <QString>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <limits>

namespace benchproject {

constexpr int kScenes = 100;
constexpr int kMediaPerScene = 40;
constexpr int kExtraSyncsPerScene = 160; // plus one start per medium

inline void buildProject(selvora::document::Document* doc, const QString& picture,
                         int scenes = kScenes) {
    using selvora::Definitions;
    using selvora::document::Media;
    using selvora::document::Scene;
    const Definitions::kMediaType types[] = {
        Definitions::kMediaType::image, Definitions::kMediaType::text,
        Definitions::kMediaType::shape, Definitions::kMediaType::audio};
    for (int s = 0; s < scenes; ++s) {
        Scene* scene = s == 0 ? doc->getScene(-1) : doc->createScene();
        scene->setTotalTime(120);
        doc->setCurrentScene(scene->getId(), true);
        QList<int> ids;
        for (int m = 0; m < kMediaPerScene; ++m) {
            const auto type = types[m % 4];
            const bool file =
                type == Definitions::kMediaType::image || type == Definitions::kMediaType::audio;
            Media* media = doc->createMedia(scene, file ? picture : QString(), type,
                                            QString::number(m % 52), QString("texto %1").arg(m));
            media->setHover(QString::number(m % 10));
            ids << media->getId();
        }
        for (int k = 0; k < kExtraSyncsPerScene; ++k) {
            const int target = ids.at(k % ids.size());
            const int time = 1 + k % 60;
            if (k % 10 == 9)
                doc->loadSync(scene, target, true, Definitions::kSyncType::select, time,
                              {{"key", "49"},
                               {"link", QString::number((s + 1) % scenes)},
                               {"timeEvent", "0"}});
            else
                doc->loadSync(scene, target, true, Definitions::kSyncType::set, time,
                              {{"left", QString::number(k % 90)},
                               {"top", "12.5"},
                               {"width", "20"},
                               {"height", "15"},
                               {"layer", QString::number(k % 40)},
                               {"transparency", "0"}});
        }
    }
}

// The fastest of `runs` runs of `work`, in nanoseconds; `before` runs, untimed, before each.
inline qint64 fastestNs(int runs, const std::function<void()>& before,
                        const std::function<void()>& work) {
    qint64 fastest = std::numeric_limits<qint64>::max();
    for (int i = 0; i < runs; ++i) {
        before();
        QElapsedTimer timer;
        timer.start();
        work();
        fastest = std::min(fastest, timer.nsecsElapsed());
    }
    return fastest;
}

// Where the large project was saved, and the picture its media show.
struct SavedProject {
    QString directory;
    QString name;
    QString file;
    QString picture;
};

// Builds the large project (of `scenes` scenes) in a new project under `folder` and saves it
// once, which copies its pictures.
inline SavedProject saveProject(selvora::document::Document* doc, const QString& folder,
                                int scenes = kScenes) {
    using selvora::project::OperationsFile;
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    SavedProject saved;
    saved.picture = folder + "/foto.png";
    image.save(saved.picture);
    doc->newProject();
    OperationsFile(doc).makeProject(folder + "/grande");
    saved.directory = doc->getProjectDirectory();
    saved.name = doc->getProjectName();
    saved.file = saved.directory + "/" + saved.name;
    buildProject(doc, saved.picture, scenes);
    OperationsFile(doc).saveProject();
    return saved;
}

// An empty model pointed at the saved project, ready for a load.
inline void reopen(selvora::document::Document* doc, const SavedProject& saved) {
    doc->clearDocument();
    doc->setProjectDirectory(saved.directory);
    doc->setProjectName(saved.name);
}

// The resources loaded and the reference screen, as the program starts on it.
inline void startOnReferenceScreen() {
    selvora::initResources();
    selvora::Definitions::setScreenSizeOverride(QSize(1600, 900));
}

// Runs the event loop until the window is on the screen, ten seconds at the most.
inline void waitExposed(QWidget* window) {
    QElapsedTimer exposure;
    exposure.start();
    while (!(window->windowHandle() && window->windowHandle()->isExposed()) &&
           exposure.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

} // namespace benchproject

#endif
