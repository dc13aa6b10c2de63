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

// The document as the root of the model: ids, the order of scenes, clearing, the registry of
// paths and the clipboards.
class TestDocument : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
    }

    void newProjectResetsCounters() {
        doc->createScene(-1);
        doc->createMedia(doc->getScene(-1), "", Definitions::kMediaType::text, "", "", -1);
        const int templatesBefore = doc->createTemplate(doc->getScene(-1))->getId();
        doc->newProject();
        QCOMPARE(doc->getCountScenes(), 1);
        Scene* scene = doc->getScene(-1);
        QCOMPARE(scene->getId(), 0);
        QCOMPARE(Sync::getLastId(), 0);
        // Templates keep counting across projects of one run.
        QCOMPARE(doc->createTemplate(scene)->getId(), templatesBefore + 1);
        QCOMPARE(doc->createTemplate(scene)->getLabel(),
                 QString("Template %1").arg(templatesBefore + 3));
        QVERIFY(!doc->isModified());
    }

    void firstTwoScenesLeaveProjectUnmodified() {
        QVERIFY(!doc->isModified());
        doc->createScene(-1);
        QVERIFY(!doc->isModified());
        doc->createScene(-1);
        QVERIFY(doc->isModified());
    }

    void idRule() {
        Scene* loaded = doc->loadScene(5, -1, -1, -1, "");
        QCOMPARE(loaded->getOrder(), 5);
        QCOMPARE(loaded->getLabel(), QString("Cena 6"));
        QCOMPARE(doc->createScene(-1)->getId(), 6);
        QCOMPARE(doc->loadScene(2, -2, 3, 9, "Abertura")->getOrder(), 2);
        QCOMPARE(doc->createScene(-1)->getId(), 7); // a lower id leaves the counter alone

        Scene* scene = doc->getScene(-1);
        for (int i = 0; i < 7; ++i)
            doc->createMedia(scene, "", Definitions::kMediaType::text, "", "", -1);
        QCOMPARE(Media::getLastId(), 7);
        QVERIFY(doc->createMedia(doc->getScene(6), "", Definitions::kMediaType::text, "", "", 3));
        QCOMPARE(Media::getLastId(), 7);
        doc->createMedia(doc->getScene(7), "", Definitions::kMediaType::text, "", "", 12);
        QCOMPARE(Media::getLastId(), 13);
    }

    void sceneOrder() {
        Scene* a = doc->getScene(0);
        Scene* b = doc->createScene(-1);
        Scene* c = doc->createScene(-1);
        a->setOrder(10);
        b->setOrder(4);
        c->setOrder(7);
        QCOMPARE(doc->getSceneAllInOrder(), (QList<Scene*>{b, c, a}));

        QSignalSpy up(doc, &Document::sceneSendUp);
        QVERIFY(!doc->sendSceneUp(b->getId())); // already first
        QVERIFY(doc->sendSceneUp(a->getId()));
        QCOMPARE(up.count(), 1);
        QCOMPARE(a->getOrder(), 7);
        QCOMPARE(c->getOrder(), 10);
    }

    void clearDocumentSignalsAndState() {
        doc->setProjectName("aula.svproj");
        doc->setUrlRepository("http://repo");
        doc->setProjectDate("x");
        QStringList order;
        connect(doc, &Document::clear, this, [&] { order << "clear"; });
        connect(doc, &Document::sceneRemoved, this, [&] { order << "sceneRemoved"; });
        connect(doc, &Document::projectName, this,
                [&](const QString& n) { order << "projectName:" + n; });
        connect(doc, &Document::project, this, [&](const QString& t) { order << "project:" + t; });
        doc->clearDocument();
        disconnect(doc, nullptr, this, nullptr);
        QCOMPARE(order, QStringList({"clear", "sceneRemoved", "projectName:",
                                     QString::fromUtf8("project:Sem Título.svproj")}));
        QCOMPARE(doc->getCountScenes(), 0);
        QVERIFY(doc->getProjectName().isNull());
        QVERIFY(doc->getProjectDate().isEmpty());
        QCOMPARE(doc->getUrlRepository(), QString("http://repo"));
    }

    void removeSceneLetsListenersReadIt() {
        Scene* scene = doc->createScene(-1);
        doc->createMedia(scene, "", Definitions::kMediaType::text, "", "", -1);
        doc->createMedia(scene, "", Definitions::kMediaType::shape, "3", "", -1);
        int seenMedia = -1;
        QList<int> removedMedia;
        connect(doc, &Document::sceneRemoved, this, [&](Scene* s) { seenMedia = s->countMedia(); });
        connect(scene, &Scene::mediaRemovedId, this, [&](int id) { removedMedia << id; });
        QSignalSpy syncsGone(scene, &Scene::syncRemoved);
        const int id = scene->getId();
        QVERIFY(doc->removeScene(id));
        disconnect(doc, nullptr, this, nullptr);
        QCOMPARE(seenMedia, 2);
        QCOMPARE(removedMedia.size(), 2);
        QCOMPARE(syncsGone.count(), 2);
        QVERIFY(!doc->removeScene(id));
        QCOMPARE(doc->getCountScenes(), 1);
    }

    void secondMainVideoIsRefused() {
        Scene* scene = doc->getScene(-1);
        QSignalSpy added(doc, &Document::mediaAdded);
        Media* first =
            doc->createMedia(scene, "/a.mp4", Definitions::kMediaType::video, "", "", -1);
        QVERIFY(first);
        QCOMPARE(scene->getMainVideo(), first);
        QVERIFY(!doc->createMedia(scene, "/b.mp4", Definitions::kMediaType::video, "", "", -1));
        QCOMPARE(added.count(), 1);
        QCOMPARE(scene->countMedia(), 1);
    }

    void clipboardsNeverDangle() {
        Scene* scene = doc->createScene(-1);
        Media* media = doc->createMedia(scene, "", Definitions::kMediaType::text, "", "", -1);
        QVERIFY(doc->addMediaBuffer(media));
        QVERIFY(doc->addSceneBuffer(scene));
        QVERIFY(doc->hasMediaBuffer());
        scene->removeMedia(media->getId());
        QVERIFY(!doc->hasMediaBuffer());
        doc->removeScene(scene->getId());
        QVERIFY(!doc->hasSceneBuffer());
        Media* other =
            doc->createMedia(doc->getScene(-1), "", Definitions::kMediaType::text, "", "", -1);
        doc->addMediaBuffer(other);
        doc->clearDocument();
        QVERIFY(!doc->hasMediaBuffer());
    }

    void openProjectBuildsSecondZeroWithoutLinks() {
        doc->clearDocument();
        Scene* later = doc->loadScene(1, 5, 0, 10, "");
        Scene* first = doc->loadScene(2, 1, 0, 10, "");
        Media* media = doc->loadMedia(first, "", Definitions::kMediaType::text, 0, "t", {}, "");
        doc->loadSync(first, media->getId(), true, Definitions::kSyncType::start, 0,
                      {{"left", "12"}}, 1);
        doc->loadSync(first, -1, true, Definitions::kSyncType::goTo, 0,
                      {{"link", QString::number(later->getId())}}, 2);
        doc->setModified(true);
        QSignalSpy opened(doc, &Document::open);
        doc->openProject();
        QCOMPARE(opened.count(), 1);
        QCOMPARE(doc->getScene(-1), first);
        QCOMPARE(media->getLeft(), QString("12"));
        QVERIFY(!doc->isModified());
    }
};

SELVORA_TEST_MAIN(TestDocument)
#include "tst_document.moc"
