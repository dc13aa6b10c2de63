#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTimer>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using Type = Definitions::kSyncType;
using Properties = QHash<QString, QString>;

// The timeline of a scene: the clock, what each second does, seeking, and the rules that keep
// one coherent chain of syncs per media.
class TestSceneClock : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Scene* scene = nullptr;
    Media* media = nullptr;

    Sync* sync(Type type, int time, const Properties& properties = {}) {
        return doc->createSync(scene, media->getId(), true, type, time, properties, -1);
    }
    Properties at(const QString& left) {
        Properties properties = media->getProperties();
        properties["left"] = left;
        return properties;
    }
    QList<int> timesOf(Type type) const {
        QList<int> times;
        for (Sync* s : scene->getAllSyncsMedia(media->getId(), true)) {
            if (s->getType() == type)
                times << s->getTime();
        }
        std::sort(times.begin(), times.end());
        return times;
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        scene->setTotalTime(30);
        media = doc->createMedia(scene, "", Definitions::kMediaType::shape, "0", "", -1);
    }
    void cleanup() { scene->pauseScene(); }

    void ticksAdvanceUpToTotalTime() {
        scene->setTotalTime(3);
        QSignalSpy times(scene, &Scene::currentTime);
        QSignalSpy status(scene, &Scene::playerStatus);
        scene->playScene();
        QCOMPARE(status.at(0).at(0).value<Definitions::kPlayerStatus>(),
                 Definitions::kPlayerStatus::play);
        for (int i = 0; i < 5; ++i)
            scene->iteratorTime();
        QList<int> seen;
        for (const auto& args : times)
            seen << args.at(0).toInt();
        QCOMPARE(seen, (QList<int>{1, 2, 3, 3, 3}));
        QVERIFY(scene->pauseScene());
        QVERIFY(scene->stopScene());
        QCOMPARE(scene->getCurrentTime(), 0);
        QCOMPARE(scene->getStatusPlayer(), Definitions::kPlayerStatus::stop);
    }

    void sceneOfTotalZeroReplaysSecondZero() {
        scene->setTotalTime(0);
        QSignalSpy shown(scene, &Scene::mediaSyncType);
        scene->playScene();
        scene->iteratorTime();
        scene->iteratorTime();
        QCOMPARE(scene->getCurrentTime(), 0);
        QCOMPARE(shown.count(), 3); // play, then each tick
    }

    void syncsActBeforePanelsHearTheTime() {
        sync(Type::set, 1, at("40"));
        QString leftWhenTold;
        connect(scene, &Scene::currentTime, this, [&] { leftWhenTold = media->getLeft(); });
        scene->playScene();
        scene->iteratorTime();
        disconnect(scene, nullptr, this, nullptr);
        QCOMPARE(leftWhenTold, QString("40"));
    }

    void gotoFiresOnlyWhilePlayingAndLast() {
        Scene* target = doc->createScene(-1);
        target->setTotalTime(10);
        doc->createSync(scene, -1, true, Type::goTo, 5,
                        {{"link", QString::number(target->getId())}, {"timeEvent", "3"}}, -1);
        sync(Type::set, 5, at("60"));
        QSignalSpy jumps(scene, &Scene::documentChangeSceneTime);

        // Paused at 4, moved to 5 with the slider: nothing jumps.
        scene->setCurrentTime(4, false);
        scene->setCurrentTime(5, true);
        QCOMPARE(jumps.count(), 0);
        // A rebuild never follows links.
        scene->resetExecuteSyncs();
        QCOMPARE(jumps.count(), 0);

        QStringList order;
        connect(scene, &Scene::mediaSyncType, this, [&] { order << "media"; });
        connect(scene, &Scene::documentChangeSceneTime, this, [&] { order << "goto"; });
        scene->setCurrentTime(4, false);
        scene->playScene();
        scene->iteratorTime();
        disconnect(scene, nullptr, this, nullptr);
        QCOMPARE(order.last(), QString("goto"));
        QCOMPARE(jumps.count(), 1);
        QCOMPARE(jumps.at(0).at(1).toInt(), 3);
    }

    void playingMarksNothingModified() {
        sync(Type::set, 1, at("10"));
        sync(Type::set, 2, at("20"));
        QSignalSpy sceneDirty(scene, &Scene::projectModified);
        QSignalSpy mediaDirty(media, &Media::projectModified);
        scene->playScene();
        scene->iteratorTime();
        scene->iteratorTime();
        scene->setCurrentTime(1, false);
        scene->resetExecuteSyncs();
        QCOMPARE(media->getLeft(), QString("10"));
        QCOMPARE(sceneDirty.count(), 0);
        QCOMPARE(mediaDirty.count(), 0);
        QVERIFY(!doc->isModified());
    }

    void seekingRebuildsTheState_data() {
        QTest::addColumn<int>("time");
        QTest::addColumn<QString>("left");
        QTest::addColumn<int>("lastType");
        QTest::newRow("before the first set") << 3 << "41.67" << int(Type::start);
        QTest::newRow("between sets") << 7 << "50" << int(Type::set);
        QTest::newRow("on a set") << 10 << "70" << int(Type::set);
        QTest::newRow("after the stop") << 16 << "70" << int(Type::stop);
    }
    void seekingRebuildsTheState() {
        QFETCH(int, time);
        QFETCH(QString, left);
        QFETCH(int, lastType);
        sync(Type::set, 5, at("50"));
        sync(Type::set, 10, at("70"));
        sync(Type::stop, 15, at("70"));
        media->setProperties({{"left", "99"}});
        QSignalSpy types(scene, &Scene::mediaSyncType);
        QSignalSpy done(scene, &Scene::executeSyncsReseted);
        scene->setCurrentTime(time, false);
        scene->resetExecuteSyncs();
        QCOMPARE(media->getLeft(), left);
        QCOMPARE(types.first().at(1).value<Type>(), Type::stop); // everything hidden first
        QCOMPARE(int(types.last().at(1).value<Type>()), lastType);
        QCOMPARE(done.count(), 1);
        QCOMPARE(scene->mediaActivate(media->getId(), time, true), time < 15);
    }

    void seekBetweenSyncTimes() {
        sync(Type::set, 5, at("50"));
        sync(Type::set, 12, at("70"));
        scene->setCurrentTime(7, false);
        QCOMPARE(scene->getBeforeSyncTime(-1), 5);
        QCOMPARE(scene->getNextSyncTime(-1), 12);
        QCOMPARE(scene->getNextSyncTime(12), 30); // the total time
        scene->seekForwardSync();
        QCOMPARE(scene->getCurrentTime(), 12);
        QCOMPARE(media->getLeft(), QString("70"));
        scene->seekBackwardSync();
        QCOMPARE(scene->getCurrentTime(), 5);
        QCOMPARE(media->getLeft(), QString("50"));
        QVERIFY(!scene->getTimer()->isActive());
    }

    void refusedWhileSliderIsMoved() {
        scene->setEnabledAddSync(false);
        QSignalSpy dirty(scene, &Scene::projectModified);
        QVERIFY(!sync(Type::set, 4, at("1")));
        QVERIFY(!sync(Type::stop, 4, at("1")));
        QCOMPARE(dirty.count(), 0);
        scene->setEnabledAddSync(true);
        QCOMPARE(scene->getAllSyncs().size(), 1);
    }

    void setOutsideTheLifeIsRefused() {
        Sync* start = scene->getSync(Type::start, media->getId(), true);
        scene->updateSyncs(start, 0, 10);
        sync(Type::stop, 20, at("1"));
        QVERIFY(!sync(Type::set, 7, at("2")));
        QVERIFY(!sync(Type::set, 21, at("3")));
        // On the stop's own second the look goes into the stop.
        QVERIFY(!sync(Type::set, 20, at("4")));
        QVERIFY(timesOf(Type::set).isEmpty());
        QCOMPARE(scene->getSync(Type::stop, media->getId(), true)->getLeft(), QString("4"));
    }

    void unchangedStateIsNotRecorded() {
        scene->setCurrentTime(8, false);
        // The state before the current second is the start's: the same look is redundant.
        QVERIFY(!sync(Type::set, 8, media->getProperties()));
        QVERIFY(sync(Type::set, 8, at("20")));
        QCOMPARE(timesOf(Type::set), (QList<int>{8}));
        scene->setCurrentTime(9, false);
        QVERIFY(!sync(Type::set, 9, at("20")));
        QVERIFY(sync(Type::set, 9, at("21")));
    }

    void secondLinkUpdatesTheFirst() {
        Sync* first = sync(Type::select, 0, {{"link", "1"}, {"key", "RED"}});
        QVERIFY(first);
        QVERIFY(!sync(Type::select, 0, {{"link", "2"}}));
        // The whole link is replaced, key included.
        QCOMPARE(first->getLink(), QString("2"));
        QCOMPARE(first->getKey(), QString(""));
        QVERIFY(scene->hasSyncWithKey(""));
        QVERIFY(!scene->hasSyncWithKey("RED"));
    }
};

SELVORA_TEST_MAIN(TestSceneClock)
#include "tst_sceneclock.moc"
