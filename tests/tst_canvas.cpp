#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/WindowBench.h"

#include <QDragEnterEvent>
#include <QGraphicsView>
#include <QMimeData>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using spatialview::SpatialResizingMedia;
using spatialview::SpatialView;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

const QColor kRed(220, 20, 20);

// Inside the outline and the handles of an item.
QRect inner(const QRectF& rect) {
    return rect.toRect().adjusted(9, 9, -9, -9);
}

QList<int> typesOf(const QList<Media*>& medias) {
    QList<int> types;
    for (const Media* media : medias)
        types << int(media->getType());
    std::sort(types.begin(), types.end());
    return types;
}

} // namespace

class TestCanvas : public CanvasTest {
    Q_OBJECT
private:
    QPoint middle() const { return canvas()->getGraphicsView()->viewport()->rect().center(); }
    QString picture(const QString& name, const QColor& colour = kRed) const {
        return MediaFixtures::makeImage(files->path(), name, QSize(120, 80), colour);
    }
    QImage grab() const { return PictureProbe::grab(canvas()->getGraphicsView()->viewport()); }
    Media* addMedia(const QString& path, MediaType type) {
        return doc->createMedia(scene(), path, type, QString(), QString());
    }
    QList<Media*> newMedia(const QList<Media*>& before) const {
        QList<Media*> added = scene()->getAllMedias();
        for (Media* media : before)
            added.removeAll(media);
        return added;
    }

private slots:
    void initTestCase() { QVERIFY(openBench()); }
    void init() { QVERIFY(newProject()); }
    void cleanupTestCase() { bench.reset(); }

    void dropsFilesFromTheFileManager_data() {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("sceneHasVideo");
        QTest::addColumn<QList<int>>("created");
        QTest::addColumn<int>("items");
        QTest::addColumn<bool>("warned");
        const int image = int(MediaType::image);
        QTest::newRow("a second video between two pictures")
            << QStringList{"a.png", "clip.mp4", "b.jpg"} << true << QList<int>{image, image} << 2
            << true;
        QTest::newRow("a first video")
            << QStringList{"clip.mp4"} << false << QList<int>{int(MediaType::video)} << 1 << false;
        QTest::newRow("upper-case extension")
            << QStringList{"C.PNG"} << false << QList<int>() << 0 << false;
        QTest::newRow("sound") << QStringList{"som.mp3"} << false
                               << QList<int>{int(MediaType::audio)} << 0 << false;
        QTest::newRow("unknown kind")
            << QStringList{"notas.txt"} << false << QList<int>() << 0 << false;
    }
    void dropsFilesFromTheFileManager() {
        QFETCH(QStringList, names);
        QFETCH(bool, sceneHasVideo);
        QFETCH(QList<int>, created);
        QFETCH(int, items);
        QFETCH(bool, warned);
        if (sceneHasVideo)
            QVERIFY(addMedia(MediaFixtures::videoPath(), MediaType::video));
        QList<QUrl> urls;
        for (const QString& name : names) {
            QString path = files->filePath(name);
            if (name == "clip.mp4")
                path = MediaFixtures::videoPath();
            else if (name.endsWith("png", Qt::CaseInsensitive) || name.endsWith("jpg"))
                path = picture(name);
            else
                QFile(path).open(QIODevice::WriteOnly);
            urls << QUrl::fromLocalFile(path);
        }
        const QList<Media*> before = scene()->getAllMedias();
        const int itemsBefore = canvas()->countItems();

        ModalAnswerer answerer;
        if (warned)
            answerer.answer("OK");
        auto* data = new QMimeData;
        data->setUrls(urls);
        dropAt(canvas()->getGraphicsView(), data, middle());
        delete data;

        QCOMPARE(typesOf(newMedia(before)), created);
        QCOMPARE(canvas()->countItems() - itemsBefore, items);
        QCOMPARE(answerer.seen().size(), warned ? 1 : 0);
        if (warned) {
            QCOMPARE(answerer.last().title, QString("Alerta."));
            QCOMPARE(answerer.last().text,
                     QString::fromUtf8("A cena já possui vídeo. Insira outras mídias."));
        }
        QCOMPARE(doc->getLastDirectory(), QFileInfo(urls.last().toLocalFile()).absolutePath());
        QCOMPARE(canvas()->getSpatialScene()->backgroundBrush().style(), Qt::NoBrush);
    }

    void dropsFromTheLibrary() {
        Media* first = addMedia(picture("a.png"), MediaType::image);
        addMedia(picture("b.png"), MediaType::image);
        QHash<QString, QString> stored = first->getProperties();
        stored["left"] = "10";
        stored["top"] = "20";
        stored["width"] = "30";
        stored["height"] = "40";
        stored["hover"] = "3";
        stored["layer"] = "1";
        QVariantHash payload;
        for (auto it = stored.constBegin(); it != stored.constEnd(); ++it)
            payload.insert(it.key(), it.value());

        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(first->getPathStart())});
        data.setProperty("type", int(MediaType::image));
        data.setProperty("properties", payload);
        const QList<Media*> before = scene()->getAllMedias();
        dropAt(canvas()->getGraphicsView(), &data, middle());
        const QList<Media*> added = newMedia(before);
        QCOMPARE(added.size(), 1);
        Media* media = added.first();
        QCOMPARE(media->getLeft().toDouble(), 10.0);
        QCOMPARE(media->getHeight().toDouble(), 40.0);
        QCOMPARE(media->getHover(), QString("3"));
        QCOMPARE(media->getLayer(), QString("3")); // last layer plus one
        QCOMPARE(itemOf(media)->sceneBoundingRect(), pixels(media));
        QCOMPARE(itemOf(media)->zValue(), 3.0);

        // A video from the library into a scene that has one: refused with the warning.
        QVERIFY(addMedia(MediaFixtures::videoPath(), MediaType::video));
        QMimeData video;
        video.setUrls({QUrl::fromLocalFile(MediaFixtures::videoPath())});
        video.setProperty("type", int(MediaType::video));
        ModalAnswerer answerer;
        answerer.answer("OK");
        const int count = scene()->countMedia();
        dropAt(canvas()->getGraphicsView(), &video, middle());
        QCOMPARE(scene()->countMedia(), count);
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(answerer.last().title, QString("Alerta."));
    }

    // Each kind of media has its item at its geometry, the picture shows there, sound has none.
    void standsEachItemAtItsMedia() {
        Media* video = addMedia(MediaFixtures::videoPath(), MediaType::video);
        Media* sound = addMedia(files->filePath("som.mp3"), MediaType::audio);
        Media* image = addMedia(picture("a.png"), MediaType::image);
        QVERIFY(video && image && sound);
        QCOMPARE(canvas()->countItems(), 2);
        QVERIFY(!itemOf(sound));
        for (const Media* media : {video, image}) {
            QVERIFY(itemOf(media)->isVisible());
            QCOMPARE(itemOf(media)->sceneBoundingRect(), pixels(media));
            QCOMPARE(itemOf(media)->zValue(), media->getLayer().toDouble());
        }
        QVERIFY(itemOf(image)->zValue() > itemOf(video)->zValue());
        const QRect inside = inner(pixels(image));
        QTRY_VERIFY2(PictureProbe::share(grab(), inside, kRed) > 0.9,
                     qPrintable(PictureProbe::keep(grab(), "standsEachItemAtItsMedia")));
        // The video's first frame stands in the rest of the canvas: no white hole.
        const QRect beside(10, 10, 100, 100);
        QTRY_VERIFY2(PictureProbe::share(grab(), beside, Qt::white) < 0.5,
                     qPrintable(PictureProbe::keep(grab(), "videoFrame")));

        // The item follows its current media's properties and goes with the media.
        image->setProperties({{"left", "50"}});
        QCOMPARE(itemOf(image)->scenePos().x(), Definitions::getViewWidth() / 2.0);
        scene()->removeMedia(image->getId());
        QCOMPARE(canvas()->countItems(), 1);
    }

    // A picture shown at 0, moved and half transparent at 1, hidden at 2: the same at a seek
    // and while playing.
    void followsTheSyncs_data() {
        QTest::addColumn<bool>("playing");
        QTest::newRow("at a seek") << false;
        QTest::newRow("while playing") << true;
    }
    void followsTheSyncs() {
        QFETCH(bool, playing);
        scene()->setTotalTime(3);
        Media* image = addMedia(picture("a.png"), MediaType::image);
        const QRectF start = pixels(image);
        QHash<QString, QString> moved = image->getProperties();
        moved["left"] = "50";
        moved["top"] = "10";
        moved["transparency"] = "50";
        moved["layer"] = "7";
        QVERIFY(doc->createSync(scene(), image->getId(), true, SyncType::set, 1, moved));
        QVERIFY(doc->createSync(scene(), image->getId(), true, SyncType::stop, 2));
        SpatialResizingMedia* item = itemOf(image);
        const QPointF movedPos(Definitions::getViewWidth() * 0.5,
                               Definitions::getViewHeight() * 0.1);

        QSignalSpy ticks(scene(), &Scene::currentTime);
        if (playing)
            scene()->playScene();
        for (int second = 0; second <= 2; ++second) {
            if (playing && second > 0) {
                QVERIFY(ticks.wait(5000));
                QCOMPARE(ticks.last().first().toInt(), second);
            } else if (!playing) {
                seek(second);
            }
            QCOMPARE(item->isVisible(), second < 2);
            if (second == 0) {
                QCOMPARE(item->sceneBoundingRect(), start);
                QCOMPARE(item->opacity(), 1.0);
            } else if (second == 1) {
                QCOMPARE(item->scenePos(), movedPos);
                QCOMPARE(item->opacity(), 0.5);
                QCOMPARE(item->zValue(), 7.0);
                QCOMPARE(PictureProbe::share(grab(), inner(start), kRed), 0.0);
            }
        }
        if (playing) {
            scene()->pauseScene(); // rebuilds the state of the second where it stops
            QVERIFY(!item->isVisible());
        }
    }

    void showsTheCanvasOfTheCurrentScene() {
        Scene* first = scene();
        Scene* second = doc->createScene();
        Media* image = doc->createMedia(second, picture("b.png", Qt::blue), MediaType::image,
                                        QString(), QString());
        SpatialView* secondView = group->getView(second->getId());
        QVERIFY(secondView && secondView != group->getView(first->getId()));
        QCOMPARE(canvas(), group->getView(first->getId()));
        QCOMPARE(secondView->countItems(), 1);

        doc->setCurrentScene(second->getId(), true);
        QCOMPARE(canvas(), secondView);
        QTRY_VERIFY(PictureProbe::share(PictureProbe::grab(group), inner(pixels(image)), Qt::blue) >
                    0.9);
        doc->setCurrentScene(first->getId(), true);
        QCOMPARE(canvas(), group->getView(first->getId()));

        // A removed scene with media takes its canvas out of the stack.
        doc->removeScene(second->getId());
        QCOMPARE(group->indexOf(secondView), -1);
    }

    // Two scenes saved and opened again: every canvas is built, the items of second 0 shown,
    // a later one hidden, and a picture whose file is gone stands as a placeholder.
    void showsTheItemsOfAnOpenedProject() {
        QVERIFY(project::OperationsFile(doc).makeProject(files->filePath("aula")));
        addMedia(MediaFixtures::videoPath(), MediaType::video);
        Media* image = addMedia(picture("foto.png"), MediaType::image);
        Media* lostBefore = addMedia(picture("perdida.png", Qt::green), MediaType::image);
        QHash<QString, QString> aside = lostBefore->getProperties();
        aside["left"] = "5";
        doc->createSync(scene(), lostBefore->getId(), true, SyncType::set, 0, aside);
        const QRectF imageRect = pixels(image);
        Scene* second = doc->createScene();
        doc->setCurrentScene(second->getId(), true);
        second->setTotalTime(5);
        second->setCurrentTime(2, false);
        addMedia(picture("depois.png", Qt::blue), MediaType::image);
        project::OperationsFile(doc).saveProject();
        const QString file = doc->getProjectDirectory() + "/" + doc->getProjectName();
        QVERIFY(QFile::remove(lostBefore->getPathProject()));
        QVERIFY(QFile::remove(lostBefore->getPathStart()));
        const int lostId = lostBefore->getId();

        doc->loadProject(file);
        QCOMPARE(doc->getCountScenes(), 2);
        QCOMPARE(group->count(), 2);
        const QList<Scene*> scenes = doc->getSceneAllInOrder();
        QCOMPARE(canvas(), group->getView(scenes.first()->getId()));
        QCOMPARE(canvas()->countItems(), 3);
        for (Media* media : scenes.first()->getAllMedias()) {
            QVERIFY(itemOf(media)->isVisible());
            QCOMPARE(itemOf(media)->sceneBoundingRect(), pixels(media));
        }
        SpatialView* later = group->getView(scenes.last()->getId());
        QCOMPARE(later->countItems(), 1);
        const Media* hidden = scenes.last()->getAllMedias().first();
        QVERIFY(!later->getItem(SpatialView::mediaKey(hidden->getId()))->isVisible());

        QTRY_VERIFY2(PictureProbe::share(grab(), inner(imageRect), kRed) > 0.9,
                     qPrintable(PictureProbe::keep(grab(), "opened")));
        const Media* lost = scenes.first()->getMedia(lostId);
        QVERIFY(lost && lost->getId() == lostId);
        const QRect placeholder = inner(pixels(lost));
        QVERIFY2(PictureProbe::share(grab(), placeholder, QColor(224, 224, 224)) > 0.5,
                 qPrintable(PictureProbe::keep(grab(), "placeholder")));
        QCOMPARE(PictureProbe::share(grab(), placeholder, Qt::green), 0.0);
    }
};

SELVORA_TEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
