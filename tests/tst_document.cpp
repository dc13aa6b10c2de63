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
        QCOMPARE(scene->getLabel(), QString("Cena 1"));
        QCOMPARE(Media::getLastId(), 0);
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
        QCOMPARE(loaded->getCurrentTime(), 0);
        QCOMPARE(loaded->getTotalTime(), 0);
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

    void loadedSceneAnnouncesNothing() {
        QSignalSpy added(doc, &Document::sceneAdded);
        doc->loadScene(3, 1, 0, 0, "x");
        QCOMPARE(added.count(), 0);
        doc->createScene(-1);
        QCOMPARE(added.count(), 1);
    }

    void getSceneFallsBackToCurrent() {
        Scene* current = doc->getScene(-1);
        Scene* other = doc->createScene(-1);
        other->setLabel("Outra");
        QCOMPARE(doc->getScene(99), current);
        QCOMPARE(doc->getScene(QString("Outra")), other);
        QCOMPARE(doc->getScene(QString("nenhuma")), current);
        QCOMPARE(doc->getScene(QString()), current);
        QVERIFY(!doc->getTemplate(12345));
    }

    void sceneOrder() {
        Scene* a = doc->getScene(0);
        Scene* b = doc->createScene(-1);
        Scene* c = doc->createScene(-1);
        a->setOrder(10);
        b->setOrder(4);
        c->setOrder(7);
        QCOMPARE(doc->getSceneAllInOrder(), (QList<Scene*>{b, c, a}));
        QCOMPARE(doc->firstSceneOrder(), b);
        QCOMPARE(doc->lastSceneOrder(), a);
        QCOMPARE(doc->backSceneOrder(a), c);
        QCOMPARE(doc->backSceneOrder(b), b);
        QCOMPARE(doc->nextSceneOrder(b), c);
        QCOMPARE(doc->nextSceneOrder(a), a);

        QSignalSpy up(doc, &Document::sceneSendUp);
        QSignalSpy down(doc, &Document::sceneSendDown);
        QVERIFY(!doc->sendSceneUp(b->getId())); // already first
        QCOMPARE(up.count(), 0);
        QCOMPARE(b->getOrder(), 4);
        QVERIFY(doc->sendSceneUp(a->getId()));
        QCOMPARE(up.count(), 1);
        QCOMPARE(a->getOrder(), 7);
        QCOMPARE(c->getOrder(), 10);
        QVERIFY(doc->sendSceneDown(b->getId()));
        QCOMPARE(down.count(), 1);
        QCOMPARE(doc->getSceneAllInOrder(), (QList<Scene*>{a, b, c}));
    }

    void guardedSetters() {
        QSignalSpy project(doc, &Document::project);
        QSignalSpy name(doc, &Document::projectName);
        QVERIFY(doc->setProjectDirectory("/tmp/p"));
        QVERIFY(doc->setProjectName("")); // only the null string is refused
        QVERIFY(!doc->setProjectName(QString()));
        QVERIFY(!doc->setProjectDirectory(QString()));
        QCOMPARE(name.count(), 1);
        QCOMPARE(project.count(), 2);
        QCOMPARE(project.at(1).at(0).toString(), QString("/tmp/p/"));
        QVERIFY(!doc->setUrlRepository(""));
        QCOMPARE(doc->getUrlRepository(), QString("????"));
        QVERIFY(!doc->setLastDirectory(QString()));
        QVERIFY(doc->setLastDirectory(""));
        doc->setProjectDate("a");
        doc->setProjectDate("b");
        QCOMPARE(doc->getProjectDate(), QStringList({"a", "b"}));
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
        QVERIFY(!doc->getScene(-1));
        QCOMPARE(doc->getProjectViewWidth(), 720);
        QCOMPARE(doc->getProjectViewHeight(), 405);
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
        QSignalSpy paths(doc, &Document::pathAdded);
        Media* first =
            doc->createMedia(scene, "/a.mp4", Definitions::kMediaType::video, "", "", -1);
        QVERIFY(first);
        QCOMPARE(scene->getMainVideo(), first);
        QVERIFY(!doc->createMedia(scene, "/b.mp4", Definitions::kMediaType::video, "", "", -1));
        QCOMPARE(added.count(), 1);
        QCOMPARE(paths.count(), 1);
        QCOMPARE(scene->countMedia(), 1);
    }

    void pathRegistry() {
        QSignalSpy added(doc, &Document::pathAdded);
        QSignalSpy removed(doc, &Document::pathRemoved);
        doc->addPathMedia("/x/a.png");
        doc->addPathMedia("/x/a.png");
        doc->addPathMedia("/x/A.png");
        doc->addPathMedia("");
        QCOMPARE(added.count(), 2);
        QCOMPARE(doc->getPathMedia(), QStringList({"/x/a.png", "/x/A.png"}));
        doc->removePathMedia("/x/a.png");
        QCOMPARE(removed.count(), 1);
        QCOMPARE(doc->getPathMedia(), QStringList({"/x/A.png"}));
    }

    void clipboardsNeverDangle() {
        Scene* scene = doc->createScene(-1);
        Media* media = doc->createMedia(scene, "", Definitions::kMediaType::text, "", "", -1);
        QVERIFY(doc->addMediaBuffer(media));
        QVERIFY(doc->addSceneBuffer(scene));
        QVERIFY(doc->hasMediaBuffer());
        scene->removeMedia(media->getId());
        QVERIFY(!doc->hasMediaBuffer());
        QVERIFY(!doc->getMediaBuffer());
        doc->removeScene(scene->getId());
        QVERIFY(!doc->hasSceneBuffer());
        Media* other =
            doc->createMedia(doc->getScene(-1), "", Definitions::kMediaType::text, "", "", -1);
        doc->addMediaBuffer(other);
        doc->clearDocument();
        QVERIFY(!doc->hasMediaBuffer());
    }

    void commandsOnlyEmit() {
        QSignalSpy save(doc, &Document::save);
        QSignalSpy undo(doc, &Document::undo);
        QSignalSpy load(doc, &Document::load);
        QSignalSpy exportt(doc, &Document::exportt);
        doc->saveProject();
        doc->undoAction();
        doc->loadProject("/p/a.svproj");
        doc->exportProject(Definitions::kTypeExport::NCL);
        QCOMPARE(save.count(), 1);
        QCOMPARE(undo.count(), 1);
        QCOMPARE(load.at(0).at(0).toString(), QString("/p/a.svproj"));
        QCOMPARE(exportt.count(), 1);
    }

    void gotoEntersAndPlaysTarget() {
        Scene* first = doc->getScene(-1);
        Scene* second = doc->createScene(-1);
        first->setTotalTime(10);
        second->setTotalTime(20);
        doc->createSync(first, -1, true, Definitions::kSyncType::goTo, 2,
                        {{"link", QString::number(second->getId())}, {"timeEvent", "7"}}, -1);
        QSignalSpy current(doc, &Document::sceneCurrentId);
        first->setCurrentTime(1, false);
        first->playScene();
        first->iteratorTime();
        QCOMPARE(first->getStatusPlayer(), Definitions::kPlayerStatus::pause);
        QCOMPARE(current.count(), 0); // entered from the event loop
        QTRY_COMPARE(current.count(), 1);
        QCOMPARE(current.at(0).at(0).toInt(), second->getId());
        QCOMPARE(doc->getScene(-1), second);
        QCOMPARE(second->getCurrentTime(), 7);
        QCOMPARE(second->getStatusPlayer(), Definitions::kPlayerStatus::play);
        second->pauseScene();
        QVERIFY(!doc->setCurrentSceneTime(99, 0));
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
