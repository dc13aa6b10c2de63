#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
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
};

SELVORA_TEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
