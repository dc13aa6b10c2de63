#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QGraphicsView>
#include <QMimeData>

#include <algorithm>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using MediaType = Definitions::kMediaType;

namespace {

const QColor kRed(220, 20, 20);

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
        QCOMPARE(media->getHover(), QString("3"));
        QCOMPARE(media->getLayer(), QString("3")); // last layer plus one
        QCOMPARE(itemOf(media)->sceneBoundingRect(), pixels(media));
        QCOMPARE(itemOf(media)->zValue(), 3.0);
    }
};

SELVORA_TEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
