#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::document::Template;

// What a scene holds: media in layers, each with its automatic start, and the selection.
class TestSceneLayers : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Scene* scene = nullptr;

    Media* add(Definitions::kMediaType type = Definitions::kMediaType::shape) {
        return doc->createMedia(scene, "", type, "0", "", -1);
    }
    static QStringList layers(const QList<Media*>& medias) {
        QStringList result;
        for (Media* media : medias)
            result << media->getLayer();
        return result;
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        // Regions of earlier tests lift media; start each test from none.
        Scene::updateCountRegions(-scene->getCountRegions());
    }

    void layersStackUpAndKeepGaps() {
        Media* a = add();
        Media* b = add(Definitions::kMediaType::text);
        Media* c = add();
        QCOMPARE(layers({a, b, c}), QStringList({"1", "2", "3"}));
        scene->removeMedia(b->getId());
        QCOMPARE(layers(scene->getAllMediasOrderLayer()), QStringList({"1", "3"}));
        QCOMPARE(add()->getLayer(), QString("4"));
        QCOMPARE(scene->firstMediaLayer(), a);
        QCOMPARE(scene->backMediaLayer(c), a);
        QCOMPARE(scene->nextMediaLayer(a), c);
        QCOMPARE(scene->backMediaLayer(a), a);
    }

    void firstMediaGoesAboveRegions() {
        Template* templ = doc->createTemplate(scene);
        for (int i = 0; i < 3; ++i)
            doc->createRegion(templ);
        QCOMPARE(add()->getLayer(), QString("4"));
    }

    void soundHasNoLayerButStarts() {
        Media* sound = add(Definitions::kMediaType::audio);
        QVERIFY(sound->getLayer().isEmpty());
        QVERIFY(scene->hasSync(Definitions::kSyncType::start, sound->getId(), true));
        QVERIFY(scene->getAllMediasOrderLayer().isEmpty());
        QCOMPARE(scene->getAllMediasLayerNull(), QList<Media*>{sound});
        QCOMPARE(add()->getLayer(), QString("1"));
    }

    void automaticStartsShareIdOne() {
        scene->setCurrentTime(30, false);
        Media* a = add();
        Media* b = add();
        Sync* startA = scene->getSync(Definitions::kSyncType::start, a->getId(), true);
        Sync* startB = scene->getSync(Definitions::kSyncType::start, b->getId(), true);
        QVERIFY(startA && startB && startA != startB);
        QCOMPARE(startA->getId(), 1);
        QCOMPARE(startB->getId(), 1);
        QCOMPARE(startA->getTime(), 30);
        QCOMPARE(startA->getLeft(), a->getLeft());
        QVERIFY(Sync::getLastId() >= 2);
        QVERIFY(doc->createSync(scene, a->getId(), true, Definitions::kSyncType::select, 0,
                                {{"link", "0"}}, -1)
                    ->getId() >= 2);
    }

    void addMediaSignalsAndSelection() {
        QStringList order;
        connect(scene, &Scene::syncAdded, this, [&] { order << "syncAdded"; });
        connect(scene, &Scene::mediaAdded, this, [&] { order << "mediaAdded"; });
        connect(scene, &Scene::mediaCurrentId, this, [&] { order << "mediaCurrentId"; });
        connect(doc, &Document::mediaAdded, this, [&] { order << "documentMediaAdded"; });
        Media* media = add();
        disconnect(scene, nullptr, this, nullptr);
        disconnect(doc, nullptr, this, nullptr);
        QCOMPARE(order,
                 QStringList({"syncAdded", "mediaAdded", "mediaCurrentId", "documentMediaAdded"}));
        QVERIFY(scene->hasCurrentMedia());
        QCOMPARE(scene->getMedia(-1), media);
        QCOMPARE(scene->getMedia(999), media);
        QVERIFY(!scene->setCurrentMedia(999));
        QCOMPARE(scene->getMedia(-1), media);
    }

    void removeMediaTakesItsSyncs() {
        Media* media = add();
        scene->setTotalTime(20);
        doc->createSync(scene, media->getId(), true, Definitions::kSyncType::stop, 10,
                        media->getProperties(), -1);
        QStringList order;
        connect(scene, &Scene::mediaRemoved, this, [&] { order << "mediaRemoved"; });
        connect(scene, &Scene::mediaNull, this, [&] { order << "mediaNull"; });
        connect(scene, &Scene::syncRemoved, this, [&] { order << "syncRemoved"; });
        const int id = media->getId();
        QVERIFY(scene->removeMedia(id));
        disconnect(scene, nullptr, this, nullptr);
        QCOMPARE(order, QStringList({"mediaRemoved", "mediaNull", "syncRemoved", "syncRemoved"}));
        QVERIFY(scene->getAllSyncs().isEmpty());
        QVERIFY(!scene->hasCurrentMedia());
        QVERIFY(!scene->removeMedia(id));
    }

    void updateMediasLayer_data() {
        QTest::addColumn<int>("moved");
        QTest::addColumn<int>("to");
        QTest::addColumn<QStringList>("layers");
        QTest::addColumn<int>("newSyncs");
        QTest::newRow("down three") << 3 << 1 << QStringList({"2", "3", "4", "1"}) << 3;
        QTest::newRow("up two") << 0 << 3 << QStringList({"3", "1", "2", "4"}) << 2;
        QTest::newRow("one step") << 2 << 4 << QStringList({"1", "2", "4", "3"}) << 1;
        QTest::newRow("no move") << 1 << 2 << QStringList({"1", "2", "3", "4"}) << 0;
    }
    void updateMediasLayer() {
        QFETCH(int, moved);
        QFETCH(int, to);
        QFETCH(QStringList, layers);
        QFETCH(int, newSyncs);
        scene->setTotalTime(60);
        QList<Media*> medias;
        for (int i = 0; i < 4; ++i)
            medias << add();
        scene->setCurrentTime(5, false);
        Media* media = medias.at(moved);
        const int old = media->getLayer().toInt();
        media->setLayer(QString::number(to));
        const int before = scene->getAllSyncs().size();
        QSignalSpy updated(scene, &Scene::updateLayers);
        scene->updateMediasLayer(media->getId(), old, to);
        QCOMPARE(this->layers(medias), layers);
        QCOMPARE(scene->getAllSyncs().size() - before, newSyncs);
        QCOMPARE(updated.count(), newSyncs ? 1 : 0);
        for (Sync* sync : scene->getAllSyncs(5)) {
            QCOMPARE(sync->getType(), Definitions::kSyncType::set);
            QCOMPARE(sync->getLayer(), scene->getMedia(sync->getMediaTarget())->getLayer());
        }
    }

    void labelsAndTemplates() {
        QSignalSpy label(scene, QOverload<QString, QString>::of(&Scene::changeLabel));
        QVERIFY(!scene->setLabel(scene->getLabel()));
        QVERIFY(!scene->setLabel(QString()));
        QVERIFY(scene->setLabel("Abertura"));
        QCOMPARE(label.count(), 1);
        QCOMPARE(label.at(0).at(0).toString(), QString("Cena 1"));

        Template* templ = doc->createTemplate(scene);
        doc->createRegion(templ);
        doc->createRegion(templ);
        doc->createRegion(templ);
        const int regions = scene->getCountRegions();
        doc->insertTemplateScene(templ, scene);
        QVERIFY(scene->hasTemplate());
        QVERIFY(scene->hasSync(Definitions::kSyncType::start, templ->getId(), false));
        QSignalSpy removed(scene, &Scene::templateRemovedId);
        QVERIFY(scene->removeTemplate(templ->getId(), 3));
        QCOMPARE(scene->getCountRegions(), regions - 3);
        QCOMPARE(removed.count(), 1);
        QVERIFY(!scene->hasSync(Definitions::kSyncType::start, templ->getId(), false));
        QVERIFY(!scene->removeTemplate(templ->getId(), 3));
    }
};

SELVORA_TEST_MAIN(TestSceneLayers)
#include "tst_scenelayers.moc"
